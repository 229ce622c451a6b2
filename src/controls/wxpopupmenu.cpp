// Popup menus.
//
// A toolkit menu owns its native menu until that becomes a sub-menu; then the native parent does, and the two
// halves may die in either order: each clears the other's pointer to it. wx waits inside PopupMenu, looks at
// the native menu after each event, and at menu and item after a command. So what goes meanwhile is taken out
// of the menus at once and deleted when wx is through.

#include "vela7/wxpopupmenu.h"

#include "life/callout.h"
#include "port/menus.h"
#include "vela7/wxconvert.h"
#include "vela7/wxeventlife.h"

#include <memory>
#include <utility>
#include <vector>

namespace vela7 {

namespace {

// Held while wx uses menus.
CEventLife& Menus()
{
    static CEventLife menus(CEventLife::atOnce);
    return menus;
}

void Delete(wxObject* menuOrItem)
{
    Menus().Outlive(std::unique_ptr<wxObject>(menuOrItem));
}

// wx asserts that an item has a label, that its first id is in a certain range, and takes some for orders.
wxMenuItem* MakeItem(wxMenu* menu, int id, const wxString& label, wxItemKind kind, wxMenu* sub)
{
    const int first = id == wxID_ANY ? wxID_ANY : 0;
    auto* const item = new wxMenuItem(menu, first, label.empty() ? wxString(" ") : label, "", kind, sub);
    if (first != wxID_ANY)
        item->SetId(id);
    return item;
}

// Once an item is in a menu its kind is fixed, so another one takes its place.
wxMenuItem* MakeCheckable(wxMenuItem* item)
{
    wxMenu* const menu = item->GetMenu();
    wxMenuItem* const check = MakeItem(menu, item->GetId(), item->GetItemLabel(), wxITEM_CHECK, nullptr);
    menu->Insert(static_cast<std::size_t>(menu->GetMenuItems().IndexOf(item)), check);
    check->Enable(item->IsEnabled());
    Delete(menu->Remove(item));
    return check;
}

} // namespace

wxBEGIN_EVENT_TABLE(CwxPopupMenuImpl, wxMenu)
    EVT_MENU(wxID_ANY, CwxPopupMenuImpl::on_command)
wxEND_EVENT_TABLE()

CwxPopupMenuImpl::~CwxPopupMenuImpl()
{
    if (m_owner)
        m_owner->ForgetNative();
}

bool CwxPopupMenuImpl::ProcessEvent(wxEvent& event)
{
    const CEventLife::CHold inUse(Menus());
    return wxMenu::ProcessEvent(event);
}

namespace {

// A command that is being taken to the menus above and to the window.
class COnItsWay
{
public:
    explicit COnItsWay(const wxEvent& event) : m_outer(std::exchange(s_event, &event)) {}
    ~COnItsWay() { s_event = m_outer; }
    COnItsWay(const COnItsWay&) = delete;
    COnItsWay& operator=(const COnItsWay&) = delete;
    static bool Is(const wxEvent& event) { return s_event == &event; }

private:
    static const wxEvent* s_event;
    const wxEvent* const m_outer; // a listener may open another menu
};

const wxEvent* COnItsWay::s_event = nullptr;

} // namespace

void CwxPopupMenuImpl::Tell(wxCommandEvent& event)
{
    m_owner ? m_owner->Chosen(event) : event.Skip();
}

// wx 3.0 leaves out the menus above, 3.2 does not, and either goes on with what a listener has ended: so all
// of the way is gone from here.
void CwxPopupMenuImpl::on_command(wxCommandEvent& event)
{
    const CEventLife::CHold inUse(Menus());
    if (COnItsWay::Is(event)) // from a menu below
        return Tell(event);
    const COnItsWay onItsWay(event);
    // As they are now: a listener may take this menu out of its parent, or destroy the window.
    std::vector<wxWeakRef<wxEvtHandler>> above;
    for (const wxMenu* menu = GetParent(); menu; menu = menu->GetParent())
        above.emplace_back(menu->GetEventHandler());
    const wxWeakRef<wxWindow> window(GetWindow());
    const bool hadWindow = window;
    Tell(event);
    for (const wxWeakRef<wxEvtHandler>& menu : above) {
        event.SetWillBeProcessedAgain(); // the application's turn is after the window's
        if (menu)
            menu->SafelyProcessEvent(event);
    }
    event.WillBeProcessedAgain(); // no more, and if nobody asked, this withdraws it
    if (window)
        window->HandleWindowEvent(event);
    event.Skip(!hadWindow);
}

void CwxPopupMenuImpl::on_destroy(wxWindowDestroyEvent& event)
{
    event.Skip();
    if (CwxPopupMenu* const owner = std::exchange(m_owner, nullptr))
        owner->ForgetNative();
}

CwxPopupMenu::CwxPopupMenu(const ISysWindow* owner, wxWindow* window)
    : CSysMenu(owner), m_window(window), m_menu(new CwxPopupMenuImpl(this))
{
}

CwxPopupMenu::~CwxPopupMenu()
{
    RevokeHandles();
    if (m_menu)
        m_menu->m_owner = nullptr;
    if (!m_ownedByParent)
        Delete(m_menu);
}

void CwxPopupMenu::Dispose()
{
    m_disposed = true;
    if (!m_shown)
        delete this;
    else if (m_menu)
        gtkport::CloseMenu(*m_menu);
}

wxMenuItem* CwxPopupMenu::Insert(const std::string& text, int id, int pos, wxItemKind kind, wxMenu* sub)
{
    if (!m_menu)
        return nullptr;
    const int count = GetItemCount();
    wxMenuItem* const item = MakeItem(m_menu, id, vela2wx(text), kind, sub);
    return m_menu->Insert(static_cast<std::size_t>(pos < 0 || pos > count ? count : pos), item);
}

// Or is it.
bool CwxPopupMenu::IsAbove(const wxMenu* menu) const
{
    while (menu && menu != m_menu)
        menu = menu->GetParent();
    return menu != nullptr;
}

void CwxPopupMenu::InsertSubMenu(const std::string& text, IPopupMenu* menu, int id, int pos)
{
    auto* const sub = dynamic_cast<CwxPopupMenu*>(menu);
    if (!m_menu || !sub || !sub->m_menu || sub->m_ownedByParent || sub->m_shown || sub->IsAbove(m_menu))
        return;
    sub->m_ownedByParent = true;
    wxMenuItem* const item = Insert(text, pos < 0 ? wxID_ANY : id, pos, wxITEM_NORMAL, sub->m_menu);
    if (pos < 0) // Kept by contract: only appended ones are kept here, the others have their native id.
        m_items[id] = item;
}

wxMenuItem* CwxPopupMenu::find_item(int id, PlaceType place) const
{
    // Kept by contract: the number of items bounds command ids as well.
    if (!m_menu || id < 0 || id >= GetItemCount() || (place != ptPosition && place != ptCommand))
        return nullptr;
    if (place == ptPosition)
        return m_menu->FindItemByPosition(static_cast<std::size_t>(id));
    const auto appended = m_items.find(id);
    return appended != m_items.end() ? appended->second : m_menu->FindItem(id);
}

void CwxPopupMenu::ModifyItem(int item, const std::string& text, PlaceType place)
{
    wxMenuItem* const found = find_item(item, place);
    if (found && !found->IsSeparator()) // which has nothing that could show it
        found->SetItemLabel(text.empty() ? wxString(" ") : vela2wx(text));
}

void CwxPopupMenu::DeleteItem(int item, PlaceType place)
{
    wxMenuItem* const found = find_item(item, place);
    m_items.erase(item);                                     // Kept by contract: even when it is a position.
    wxMenu* const menu = found ? found->GetMenu() : nullptr; // this one or a sub-menu
    if (!menu)
        return;
    const auto* const native = dynamic_cast<const CwxPopupMenuImpl*>(menu);
    if (CwxPopupMenu* const holder = native ? native->m_owner : nullptr)
        for (auto it = holder->m_items.begin(); it != holder->m_items.end();)
            it = it->second == found ? holder->m_items.erase(it) : std::next(it);
    gtkport::CloseSubMenu(*found); // or its window would stay, with GTK's grab
    Delete(menu->Remove(found));
}

void CwxPopupMenu::SetItemEnabled(int item, bool enabled, PlaceType place)
{
    if (wxMenuItem* const found = find_item(item, place))
        found->Enable(enabled);
}

void CwxPopupMenu::SetItemChecked(int item, bool checked, PlaceType place)
{
    wxMenuItem* found = find_item(item, place);
    if (!found)
        return;
    if (!found->IsCheckable() && !found->IsSeparator() && !found->IsSubMenu())
        found = MakeCheckable(found);
    if (found->IsCheckable())
        found->Check(checked);
    CSysMenu::SetItemChecked(item, checked, place);
}

bool CwxPopupMenu::IsItemChecked(int item, PlaceType place) const
{
    const wxMenuItem* const found = find_item(item, place);
    return found && found->IsCheckable() && found->IsChecked();
}

int CwxPopupMenu::IdAt(int pos) const
{
    const wxMenuItem* const item = find_item(pos, ptPosition);
    return item ? item->GetId() : -1;
}

int CwxPopupMenu::IndexOf(int id) const
{
    for (int i = 0; i < GetItemCount(); ++i)
        if (IdAt(i) == id)
            return i;
    return -1;
}

// May end this menu.
std::pair<bool, int> CwxPopupMenu::Show(int x, int y)
{
    std::pair<bool, int> result(false, -1);
    if (m_shown || !m_menu || m_menu->GetParent() || !m_window)
        return result;
    const CEventLife::CHold inUse(Menus());
    m_shown = true;
    m_chosen = -1;
    m_window->Bind(wxEVT_DESTROY, &CwxPopupMenu::OnWindowDestroy, this);
    CallOut([&] { result.first = m_window->PopupMenu(m_menu, x, y); });
    if (m_window)
        m_window->Unbind(wxEVT_DESTROY, &CwxPopupMenu::OnWindowDestroy, this);
    m_shown = false;
    result.second = m_chosen;
    if (m_disposed)
        delete this;
    return result;
}

// With the window gone, wx would wait for ever.
void CwxPopupMenu::OnWindowDestroy(wxWindowDestroyEvent& event)
{
    event.Skip();
    if (m_menu && event.GetWindow() == m_window)
        gtkport::CloseOrphan(*m_menu);
}

// May end this menu.
void CwxPopupMenu::Chosen(wxCommandEvent& event)
{
    event.Skip();
    CMenuEvent record(this);
    record.id = m_chosen = event.GetId();
    const NotifyHandler handler = handler_cast(&IMenuNotify::OnMenuCommand);
    CallOut([&] { FireEvent(typeid(IMenuNotify), handler, &record, true); });
}

} // namespace vela7
