/// Popup menus on wx.
#pragma once

#include "vela7/menu.h"
#include "vela7/wxexport.h"

#include <wx/menu.h>
#include <wx/window.h>

#include <type_traits> // wx/weakref.h needs it and does not include it
#include <wx/weakref.h>

namespace vela7 {

class CwxPopupMenu;

/// The native half of a CwxPopupMenu. Belongs to it, or to the native menu that it was inserted into.
class VELA7_WX_API CwxPopupMenuImpl : public wxMenu
{
public:
    explicit CwxPopupMenuImpl(CwxPopupMenu* owner) : m_owner(owner) {}
    ~CwxPopupMenuImpl() override;

    /// Tells the owner and passes the event on: to all menus that this one is in, then to the window. Without
    /// a window wx goes on with it.
    void on_command(wxCommandEvent& event);
    /// Parts owner and native menu, which whoever calls this deletes.
    void on_destroy(wxWindowDestroyEvent& event);
    /// Where a sub-menu's commands go next; null for other menus.
    wxEvtHandler* GetParentHandler() const { return GetParent() ? GetParent()->GetEventHandler() : nullptr; }
    bool ProcessEvent(wxEvent& event) override;

private:
    friend class CwxPopupMenu;
    void Tell(wxCommandEvent& event);
    CwxPopupMenu* m_owner; // null when it died

    wxDECLARE_EVENT_TABLE();
};

/// A context menu over a window. Thread: GUI.
///
/// Made by ISysWindow::CreateMenu. Dies with its last handle; when that goes while the menu is shown, the
/// menu closes first. A sub-menu's items live as long as the menu they were inserted into, whatever becomes
/// of the object that filled them; it is never shown on its own. An item is found only by a position or
/// command id below the number of items, by command also in sub-menus; IdAt and IndexOf do not know appended
/// sub-menus. A menu that belongs to a menu already, is shown, or would contain itself is not inserted.
class VELA7_WX_API CwxPopupMenu final : public CSysMenu
{
public:
    CwxPopupMenu(const ISysWindow* owner, wxWindow* window);

    /// A negative position, or one behind the last, appends.
    void InsertItem(const std::string& text, int id, int pos) override { Insert(text, id, pos); }
    void InsertSeparator(int pos) override { Insert("", wxID_SEPARATOR, pos, wxITEM_SEPARATOR); }
    void InsertSubMenu(const std::string& text, IPopupMenu* menu, int id, int pos) override;
    void ModifyItem(int item, const std::string& text, PlaceType place) override;
    void DeleteItem(int item, PlaceType place) override;
    void SetItemEnabled(int item, bool enabled, PlaceType place) override;
    bool IsItemEnabled(int i, PlaceType p) const override
    {
        return find_item(i, p) && find_item(i, p)->IsEnabled();
    }
    /// Makes a check item of a plain one. Separators and items with a sub-menu stay what they are.
    void SetItemChecked(int item, bool checked, PlaceType place) override;
    bool IsItemChecked(int item, PlaceType place) const override;
    int GetItemCount() const override { return m_menu ? static_cast<int>(m_menu->GetMenuItemCount()) : 0; }
    int IdAt(int pos) const override;
    int IndexOf(int id) const override;
    bool Popup(int x, int y) override { return Show(x, y).first; }
    int Execute(int x, int y) override { return Show(x, y).second; }
    /// Nothing, as there is no menu without a window.
    void PopupGlob(int, int) override {}
    int ExecuteGlob(int, int) override { return 0; }

    wxMenuItem* find_item(int id, PlaceType place) const;
    void on_command(wxCommandEvent& event) { m_menu ? m_menu->on_command(event) : Chosen(event); }
    void on_destroy(wxWindowDestroyEvent& event) { m_menu ? m_menu->on_destroy(event) : event.Skip(); }

protected:
    ~CwxPopupMenu() override;
    void Dispose() override;

private:
    friend class CwxPopupMenuImpl;
    std::pair<bool, int> Show(int x, int y); // wx's answer, and what was chosen
    wxMenuItem* Insert(const std::string& text, int id, int pos, wxItemKind kind = wxITEM_NORMAL,
                       wxMenu* sub = nullptr);
    bool IsAbove(const wxMenu* menu) const;
    void Chosen(wxCommandEvent& event);
    void ForgetNative() { m_menu = nullptr, m_items.clear(); }
    void OnWindowDestroy(wxWindowDestroyEvent& event);

    wxWeakRef<wxWindow> m_window;
    CwxPopupMenuImpl* m_menu;           // null when it died
    std::map<int, wxMenuItem*> m_items; // appended sub-menus by toolkit command id
    int m_chosen = -1;
    bool m_ownedByParent = false; // the native menu
    bool m_shown = false;
    bool m_disposed = false; // to die when it is not shown any more
};

} // namespace vela7
