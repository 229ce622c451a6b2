/// What native controls do with keys and with their parent. Internal. Thread: GUI.
#pragma once

class wxEvent;
class wxNavigationKeyEvent;
class wxWindow;

namespace vela7 {

/// Hands a navigation request on to the control's parent. When the focus stays, the parent gets a Tab key
/// press.
void ForwardNavigation(wxWindow& control, wxNavigationKeyEvent& event);

/// For each event of a control: its looks go with its size.
void FollowSize(wxWindow& control, const wxEvent& event);

/// Whether it is the press of a Tab key.
bool IsTabPress(const wxEvent& event);

/// Right-to-left in a right-to-left application; null is left alone.
void AdoptLayoutDirection(wxWindow* control);

} // namespace vela7
