#include "buttons.h"

#include "cards.h"

#include <utility>

namespace gallery {

using namespace vela7;

Buttons::Buttons(std::vector<std::string> labels)
{
    for (std::string& label : labels)
        m_items.push_back({std::move(label)});
}

double Buttons::Height(IPainter& painter)
{
    return LineHeight(painter) + 12;
}

double Buttons::Draw(IPainter& painter, double left, double top, const Style& style)
{
    constexpr double gap = 8, padding = 14;
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        Item& item = m_items[i];
        const double width = painter.GetTextSize(item.label).width + 2 * padding;
        item.box = {left, top, left + width, top + Height(painter)};
        const bool hot = m_hot == int(i), pressed = hot && m_pressed == int(i);
        const int state = !item.enabled ? csDisabled : (hot ? csCurrent : 0) | (pressed ? csPressed : 0);
        painter.DrawControlElement(cePushButton, item.box.left, item.box.top, item.box.right, item.box.bottom,
                                   state);
        CenteredText(painter, item.box, item.label, item.enabled ? style.text : style.muted);
        left = item.box.right + gap;
    }
    return left - gap;
}

int Buttons::Release(const point<int>& mouse)
{
    const int clicked = Find(mouse) == m_pressed ? m_pressed : -1;
    m_pressed = -1;
    return clicked;
}

int Buttons::Find(const point<int>& mouse) const
{
    for (std::size_t i = 0; i < m_items.size(); ++i)
        if (m_items[i].enabled && m_items[i].box.Contains(point<double>(mouse.x, mouse.y)))
            return int(i);
    return -1;
}

} // namespace gallery
