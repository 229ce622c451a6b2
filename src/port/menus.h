/// Open menus. Thread: GUI.
#pragma once

class wxMenu;
class wxMenuItem;

namespace vela7 {
namespace gtkport {

/// Closes a popup menu as Escape does; nothing when it is not open.
void CloseMenu(wxMenu& menu);

/// Closes the sub-menu of an item; nothing when it has none or that is not open.
void CloseSubMenu(wxMenuItem& item);

/// Whether wx itself offers the commands of a sub-menu to the menus above it.
bool MenuCommandsReachParents();

} // namespace gtkport
} // namespace vela7
