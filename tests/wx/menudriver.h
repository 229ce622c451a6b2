// Three menus in each other, and a hand that chooses from them while they are open.
#pragma once

#include "support/platform.h"
#include "support/x11.h"
#include "vela7/wxpopupmenu.h"
#include "windowhelpers.h"

#include <gdk/gdkkeysyms.h>
#include <gtk/gtk.h>
#include <wx/timer.h>

namespace vela7::test {

using MenuItems = std::vector<wxMenuItem*>;

inline wxMenuItem* Find(const CHandle<IPopupMenu>& menu, int item, int place)
{
    return dynamic_cast<CwxPopupMenu&>(*menu).find_item(item, IPopupMenu::PlaceType(place));
}

// While PopupMenu waits: points at one item after the other, each as soon as it can be hit, clicks those that
// do not open a menu, then does something in the middle of it all. With nothing to do it dismisses the menu;
// what is open after that, it closes as a user would.
class MenuDriver : public wxTimer
{
public:
    MenuDriver(wxMenu* root, MenuItems path, std::function<void()> then)
        : m_root(root), m_path(std::move(path)), m_then(std::move(then))
    {
        Settle();
        Start(10);
    }

private:
    void Notify() override
    {
        if (m_over)
            return Escape();
        const bool through = m_next == m_path.size();
        if (!gtk_widget_get_mapped(m_root->m_menu) || (through && !m_path.empty() && !m_then))
            return;
        if (!through && ++m_ticks < 400)
            return GoOn(m_path[m_next]->GetMenuItem());
        m_over = true;
        EXPECT_EQ(m_path.size(), m_next) << "an item cannot be hit";
        m_then ? m_then() : gtk_menu_shell_cancel(GTK_MENU_SHELL(m_root->m_menu));
    }
    void GoOn(GtkWidget* item)
    {
        if (!gtk_widget_get_mapped(item) || !gdk_window_is_viewable(gtk_widget_get_window(item)))
            return;
        if (!IsPrelit(item)) {
            wxPoint at;
            GtkAllocation area;
            gdk_window_get_origin(gtk_widget_get_window(item), &at.x, &at.y);
            gtk_widget_get_allocation(item, &area);
            x11::MovePointer(at.x + area.x + 10 + m_ticks % 2, at.y + area.y + area.height / 2);
            return;
        }
        if (!m_path[m_next++]->IsSubMenu())
            x11::Button(1, true), x11::Button(1, false);
    }
    void Escape()
    {
        if (++m_ticks % 10 == 5)
            x11::Key(GDK_KEY_Escape, true), x11::Key(GDK_KEY_Escape, false);
        GtkWidget* const grab = m_ticks > 600 ? gtk_grab_get_current() : nullptr;
        if (!grab)
            return;
        ADD_FAILURE() << "the menu does not hear Escape";
        GTK_IS_MENU_SHELL(grab) ? gtk_menu_shell_deactivate(GTK_MENU_SHELL(grab)) : gtk_widget_hide(grab);
    }

    wxMenu* m_root;
    MenuItems m_path;
    std::function<void()> m_then;
    std::size_t m_next = 0;
    int m_ticks = 0;
    bool m_over = false;
};

// Each menu has an item behind a separator: 100 in the top one, 201 and 302.
struct MenuTree
{
    explicit MenuTree(ISysWindow& window)
    {
        g_object_set(gtk_settings_get_default(), "gtk-menu-popup-delay", 0, nullptr);
        for (const int i : {0, 1, 2}) {
            menus[i] = window.CreateMenu();
            menus[i]->InsertSeparator(-1);
            menus[i]->InsertItem("plain item", 101 * i + 100, -1);
            items[i] = Find(menus[i], 1, IPopupMenu::ptPosition);
        }
        menus[1]->InsertSubMenu("deeper", menus[2].Get(), 1, 0); // inserted, native id 1
        menus[0]->InsertSubMenu("deep", menus[1].Get(), 2, -1);  // appended
        toDeep = Find(menus[0], 2, IPopupMenu::ptPosition);
        toDeeper = Find(menus[1], 0, IPopupMenu::ptPosition);
    }
    int Execute(MenuItems path, std::function<void()> then = nullptr)
    {
        const MenuDriver driver(toDeep->GetMenu(), std::move(path), std::move(then));
        return menus[0]->Execute(10, 10);
    }
    void Reset() { menus[2] = menus[1] = menus[0] = nullptr; }

    CHandle<IPopupMenu> menus[3];
    wxMenuItem* items[3] = {}; // the plain ones
    wxMenuItem *toDeep = nullptr, *toDeeper = nullptr;
};

} // namespace vela7::test
