/// The mouse capture of toolkit windows.
///
/// wx keeps a stack of the windows that capture on top of each other, and restores the capture of the next
/// one at each release; but a window that dies below another stays in that stack, and wx calls it later. That
/// stack is the only record of who captured what, since wx, popups and hosts capture and release as well; it
/// cannot be looked into, but it can be taken down window by window and built up again.
///
/// Internal. Thread: GUI.
#pragma once

class wxWindow;

namespace vela7 {
namespace capture {

/// Nothing when the window has the capture. One that captured before, below others, goes to the top.
void Take(wxWindow& window);

/// Nothing unless the window has the capture. Gives the pointer grab back to a shown popup.
void Release(wxWindow& window);

/// For a dying window and one that is to capture anew: takes it off wherever it stands; who else captures
/// goes on doing so.
void Leave(wxWindow& window);

/// For a popup that is about to hide: ends the capture of it and of what is in it.
void LeaveAllIn(const wxWindow& window);

} // namespace capture
} // namespace vela7
