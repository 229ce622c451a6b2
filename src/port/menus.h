/// Open menus. Thread: GUI.
#pragma once

class wxMenu;
class wxMenuItem;

namespace vela7 {
namespace gtkport {

/// Closes a popup menu as Escape does; nothing when it is not open.
void CloseMenu(wxMenu& menu);

/// Closes a popup menu whose window is being destroyed, and tells nobody: wx 3.2 could not bear to tell that
/// window what is highlighted meanwhile. wx waits no longer for a choice.
void CloseOrphan(wxMenu& menu);

/// Closes the sub-menu of an item; nothing when it has none or that is not open.
void CloseSubMenu(wxMenuItem& item);

} // namespace gtkport
} // namespace vela7
