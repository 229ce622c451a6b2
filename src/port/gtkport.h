/// Everything that needs GTK or GDK, and everything that differs between wx 3.0 on GTK 2 and wx 3.2 on GTK 3.
///
/// No other file includes GTK headers or asks for a version of wx or GTK. Thread: GUI.
#pragma once

#include <wx/bitmap.h>
#include <wx/gdicmn.h>

#include <functional>
#include <memory>
#include <optional>

class wxAnimation;
class wxDC;
class wxMenu;
class wxMenuItem;
class wxObject;
class wxWindow;
// NOLINTNEXTLINE(bugprone-reserved-identifier): GTK calls it so
typedef struct _GdkPixbufAnimationIter GdkPixbufAnimationIter;

namespace vela7 {
namespace gtkport {

/// GTK has a display: wx may be asked for colours, fonts and metrics. False before wx is initialised.
bool DisplayIsOpen();

/// Dots per inch of the default screen as the desktop has set it, negative when it has not; empty without a
/// screen.
std::optional<double> ScreenResolution();

/// Identity of what a window is drawn on; null before it is realised. Compare it, do not use it.
const void* Drawable(const wxWindow& window);

/// Calls before what a window is drawn on goes, with the window or because it moves to another parent; for as
/// long as the result lives.
std::shared_ptr<void> WatchDrawable(const wxWindow& window, std::function<void()> call);

/// What of a device can be seen at most; empty for a window that is not shown.
wxRect VisibleArea(const wxDC& dc);

/// Whether the native window of a popup is transient for its parent's top-level window. wx makes it so; but
/// GTK searches all transient windows whenever one comes or goes, which adds up with many popups.
void SetTransient(wxWindow& popup, bool transient);

/// The picture of complete XPM lines, with the colour names as GTK knows them; invalid when there is none.
wxBitmap BitmapFromXPM(const char* const* lines);

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

/// At the first frame, counting time from now on; for EndAnimation. Null when there are no frames.
GdkPixbufAnimationIter* StartAnimation(const wxAnimation& animation);
void EndAnimation(GdkPixbufAnimationIter* iterator);
/// Milliseconds; -1: for ever.
int FrameDelay(GdkPixbufAnimationIter* iterator);
/// To the frame that is due now.
void AdvanceFrame(GdkPixbufAnimationIter* iterator);
/// Shares the iterator's pixels: for use before the next AdvanceFrame. Invalid when there is none.
wxBitmap CurrentFrame(GdkPixbufAnimationIter* iterator);

/// Keeps the widgets of a window and of all that is in it in memory for as long as the result lives: the
/// window is being destroyed, and some caller of GTK's may be using them.
std::unique_ptr<wxObject> KeepWidgets(wxWindow& window);

/// Takes a window out of its parent: wx knows no parent of it any more, and GTK has it in a window that is
/// never shown, where it can go on with the event that it is in. Its place in a sizer goes, too.
void TakeFromParent(wxWindow& window);

/// Closes the list of a combo box, if it is one and its list is open.
void DismissList(wxWindow& control);

/// Size of the theme's check box.
wxSize CheckBoxSize();

/// Closes a popup menu as Escape does; nothing when it is not open.
void CloseMenu(wxMenu& menu);

/// Closes the sub-menu of an item; nothing when it has none or that is not open.
void CloseSubMenu(wxMenuItem& item);

/// Whether wx itself offers the commands of a sub-menu to the menus above it.
bool MenuCommandsReachParents();

} // namespace gtkport
} // namespace vela7
