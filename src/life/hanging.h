/// What hangs on other windows: popups and tips. They are windows of their own to X and GTK, so neither hides
/// them together with what they hang on, and a popup's pointer grab is lost when any other popup hides.
///
/// Internal. Thread: GUI.
#pragma once

#include <functional>

class wxWindow;

namespace vela7 {
namespace hanging {

/// A popup or tip is on the screen now. It hangs on its wx parent: when that or anything above it, up to the
/// dialog or frame, is hidden, hide is called, innermost window first. A popup of these is also to have the
/// pointer grab while it was the last one to be shown.
void Shown(wxWindow& window, bool grabs, std::function<void()> hide);

/// It is not any more, or is dying. Nothing for an unknown one.
void Hidden(const wxWindow& window);

/// After something that has ended the pointer grab: gives it back to the window that has the capture, or to
/// the popup that is on top.
void RestoreGrab();

} // namespace hanging
} // namespace vela7
