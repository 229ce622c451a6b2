/// What is different on Wayland: nobody shows what is drawn outside of a paint, and a popup that is shown
/// already cannot grab the pointer. On other displays nothing here does anything. Thread: GUI.
#pragma once

#include <wx/colour.h>
#include <wx/gdicmn.h>

#include <memory>

class wxDC;
class wxPopupWindow;
class wxWindow;

namespace vela7 {
namespace gtkport {

bool IsOnWayland();

/// What a window shows. All drawing goes here; each of the window's paints copies it to the screen.
///
/// Anything drawn outside of a paint asks for one in the next frame. That one is for the copy only, unless
/// the window has been damaged as well.
class CKeptPicture
{
public:
    /// For a window on Wayland, null elsewhere. To be given up before the window.
    static std::shared_ptr<CKeptPicture> Make(wxWindow& window);
    virtual ~CKeptPicture() = default;

    /// What must be drawn anew in the paint that is under way; empty: nothing. Once for each paint.
    virtual wxRect TakeDamage() = 0;
    /// A device to draw on for the paint that is under way, restricted to the damage. There the picture is of
    /// the window's background colour.
    virtual std::unique_ptr<wxDC> BeginPaint(const wxRect& damage) = 0;
    virtual void CopyTo(wxDC& dc) = 0;
    /// Invalid outside of the window.
    virtual wxColour GetPixel(const wxPoint& point) = 0;
};

/// A device to draw on a window outside of its paints, and what to call afterwards.
std::unique_ptr<wxDC> MakeWindowDC(wxWindow& window);
void ShowDrawn(const wxWindow& window);

/// Shows a popup that gets all of the application's events. For wx's way, which grabs the pointer when the
/// popup is shown, it is too late then.
bool ShowWithoutGrab(wxPopupWindow& popup);

} // namespace gtkport
} // namespace vela7
