/// The widgets of windows that are being destroyed, and of controls. Thread: GUI.
#pragma once

#include <memory>

class wxObject;
class wxWindow;

namespace vela7 {
namespace gtkport {

/// Keeps the widgets of a window and of all that is in it in memory for as long as the result lives: the
/// window is being destroyed, and some caller of GTK's may be using them.
std::unique_ptr<wxObject> KeepWidgets(wxWindow& window);

/// Takes a window out of its parent: wx knows no parent of it any more, and GTK has it in a window that is
/// never shown, where it can go on with the event that it is in. Its place in a sizer goes, too.
void TakeFromParent(wxWindow& window);

/// Closes the list of a combo box, if it is one and its list is open.
void DismissList(wxWindow& control);

} // namespace gtkport
} // namespace vela7
