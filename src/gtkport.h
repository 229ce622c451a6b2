/// Everything that needs GTK or GDK, and everything that differs between wx 3.0 on GTK 2 and wx 3.2 on GTK 3.
///
/// No other file includes GTK headers or asks for a version of wx or GTK. Thread: GUI.
#pragma once

#include <wx/bitmap.h>
#include <wx/gdicmn.h>

#include <optional>

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

/// The picture of complete XPM lines, with the colour names as GTK knows them; invalid when there is none.
wxBitmap BitmapFromXPM(const char* const* lines);

/// Keeps the widgets of a window that is being destroyed in memory until GTK is idle: some caller of GTK's
/// may be using them.
void KeepWidgets(wxWindow& window);

/// Size of the theme's check box.
wxSize CheckBoxSize();

} // namespace gtkport
} // namespace vela7
