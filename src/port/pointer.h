/// Popups and who gets the pointer's events. Thread: GUI.
#pragma once

class wxWindow;

namespace vela7 {
namespace gtkport {

/// Whether the native window of a popup is transient for its parent's top-level window. wx makes it so; but
/// GTK searches all transient windows whenever one comes or goes, which adds up with many popups.
void SetTransient(wxWindow& popup, bool transient);

/// While it lives, a popup's events reach it although the top-level window that its parent is in has GTK's
/// grab, as a modal dialog and a transient popup have: that takes the events of all other windows. A window
/// group of its own would do for the dialog; but while the pointer is grabbed as well, GTK takes another
/// group for another application.
class CPastGrab
{
public:
    explicit CPastGrab(const wxWindow& popup);
    ~CPastGrab();
    CPastGrab(const CPastGrab&) = delete;
    CPastGrab& operator=(const CPastGrab&) = delete;

private:
    void* m_top; // the widget; null once it is gone
    unsigned long m_handler;
};

/// Has the pointer's events reported to a top-level window, wherever on the screen the pointer is; those
/// inside the application go on to the windows they belong to.
void GrabPointer(const wxWindow& window);

/// From now on wx is not told that the window lost its capture when that is about an earlier one: GDK reports
/// the end of a grab late, when the window may have the pointer again. Once for each window, further calls do
/// nothing.
void IgnorePastGrabs(const wxWindow& window);

} // namespace gtkport
} // namespace vela7
