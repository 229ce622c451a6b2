#include "port/menus.h"

#include "port/gtk.h"

#include <wx/menu.h>

namespace vela7 {
namespace gtkport {

void CloseMenu(wxMenu& menu)
{
    if (gtk_widget_get_visible(menu.m_menu))
        gtk_menu_shell_cancel(GTK_MENU_SHELL(menu.m_menu));
}

void CloseOrphan(wxMenu& menu)
{
    menu.SetInvokingWindow(nullptr);
    CloseMenu(menu);
    menu.m_popupShown = false; // without a window, wx does not notice
}

void CloseSubMenu(wxMenuItem& item)
{
    wxMenu* const sub = item.GetSubMenu();
    if (sub && item.GetMenu() && gtk_widget_get_visible(sub->m_menu))
        gtk_menu_shell_deselect(GTK_MENU_SHELL(item.GetMenu()->m_menu));
}

} // namespace gtkport
} // namespace vela7
