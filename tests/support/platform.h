// What tests ask of the platform that wx 3.0 on GTK 2 and wx 3.2 on GTK 3 answer differently.
#pragma once

#include <wx/gdicmn.h>

// NOLINTNEXTLINE(bugprone-reserved-identifier): GTK calls them so
typedef struct _GdkPixbufAnimation GdkPixbufAnimation;
typedef struct _GtkWidget GtkWidget; // NOLINT(bugprone-reserved-identifier)
class wxAnimation;
class wxWindow;

namespace vela7::test {

// Until each window has laid itself out, handled its input and painted: GTK 3 does so once a frame.
void AwaitFrames();

// Where a window's top-level window lies between GTK's pixels, in the screen's: GTK counts whole ones of its
// own.
wxPoint Fraction(const wxWindow& window);

// GDK or GTK has a grab of the pointer.
bool PointerIsGrabbed();

// Grabs the pointer without wx's knowledge, as a menu of somebody else's does.
void GrabPointer(const wxWindow& window);
void UngrabPointer();

// The pointer is over a widget, and the widget shows it.
bool IsPrelit(GtkWidget* widget);

GdkPixbufAnimation* PixbufOf(const wxAnimation& animation);

} // namespace vela7::test
