/// What is known of the display, of devices and of the theme.
///
/// This room has everything that needs GTK or GDK, and everything that differs between wx 3.0 on GTK 2 and
/// wx 3.2 on GTK 3. No other file includes GTK headers or asks for a version of wx or GTK. Thread: GUI.
#pragma once

#include <wx/bitmap.h>
#include <wx/gdicmn.h>

#include <functional>
#include <memory>
#include <optional>

class wxDC;
class wxWindow;

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

/// Bits of colour in a pixel.
int Depth(const wxDC& dc);

/// Extent of a device in millimetres, at its resolution.
wxSize Millimetres(const wxDC& dc);

/// The monitor that most of a window is on, -1 when it is on none.
int MonitorOf(const wxWindow& window);

/// Whether a client device that is kept follows its window to another size.
bool DevicesFollowWindows();

/// The picture of complete XPM lines, with the colour names as GTK knows them; invalid when there is none.
wxBitmap BitmapFromXPM(const char* const* lines);

/// Size of the theme's check box.
wxSize CheckBoxSize();

} // namespace gtkport
} // namespace vela7
