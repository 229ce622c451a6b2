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

/// From now on a widget may come and go inside wx's windows while they are being drawn, and the listeners of
/// a toolkit window are called in the middle of that: GTK 3 walks through the children of the windows around
/// it meanwhile. window: any that has children.
void BearChangesWhileDrawing(const wxWindow& window);

/// Takes a window out of its parent: wx knows no parent of it any more, and GTK has it in a window that is
/// never shown, where it can go on with the event that it is in. Its place in a sizer goes, too.
void TakeFromParent(wxWindow& window);

/// Has a text control take the focus before GTK deals with the press that brings it, not in the middle of
/// that: GTK 3 goes on with the event, which it has freed when a listener runs an event loop meanwhile.
void FocusBeforePress(wxWindow& control);

/// For a control that has a new size or is shown: while it is smaller than its theme wants it, which GTK 3
/// complains of, it does without the theme's least size, and when it is very small without margins and
/// borders.
void FitTheme(wxWindow& control);

/// Closes the list of a combo box, if it is one and its list is open.
void DismissList(wxWindow& control);

} // namespace gtkport
} // namespace vela7
