#include "vela7/menu.h"

namespace vela7 {

void CSysMenu::SetItemChecked(int item, bool checked, PlaceType place)
{
    m_items[Key(place, item)].checked = checked;
}

bool CSysMenu::IsRecordedChecked(int item, PlaceType place) const
{
    const auto found = m_items.find(Key(place, item));
    return found != m_items.end() && found->second.checked;
}

unsigned CSysMenu::GetItemStyle(int item, PlaceType place) const
{
    const auto found = m_items.find(Key(place, item));
    return found != m_items.end() ? found->second.style : 0;
}

void CSysMenu::SetItemStyle(int item, unsigned style, PlaceType place)
{
    m_items[Key(place, item)].style = style;
}

} // namespace vela7
