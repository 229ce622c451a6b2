/// Drawing on devices with the pixels of the reference platform. Thread: GUI.
///
/// All but the last group take the pen, the brush and the logical function of the device. On GTK 2 this is
/// what wx does there: X draws without anti-aliasing and knows all 16 functions. Cairo, which wx draws with
/// on GTK 3, has neither; so shapes are made of whole pixels here, and combined with those that are there.
///
/// Rectangles may be reversed: a negative extent goes to the other side.
#pragma once

#include <wx/bitmap.h>
#include <wx/dc.h>

namespace vela7 {
namespace gtkport {

void DrawPoint(wxDC& dc, const wxPoint& point);
/// Without its last pixel, when the pen is one pixel wide.
void DrawLines(wxDC& dc, int count, const wxPoint* points);
void DrawSpline(wxDC& dc, int count, const wxPoint* points);
void DrawPolygon(wxDC& dc, int count, const wxPoint* points);
void DrawRectangle(wxDC& dc, const wxRect& rect);
void FillRectangle(wxDC& dc, const wxRect& rect);
void DrawRoundedRectangle(wxDC& dc, const wxRect& rect, int radius);
void DrawEllipse(wxDC& dc, const wxRect& rect);
/// Degrees, counter-clockwise; a pie, whose straight sides have no line.
void DrawEllipticArc(wxDC& dc, const wxRect& rect, double start, double end);

/// Inverts one of three pixels of a rectangle's outline, whatever is selected; twice restores them.
void InvertDotted(wxDC& dc, const wxRect& rect);
/// In bands of at least a pixel.
void DrawGradient(wxDC& dc, const wxRect& rect, const wxColour& from, const wxColour& to,
                  wxDirection direction);
/// A picture with its mask or its opacity, if wanted.
void DrawPicture(wxDC& dc, const wxBitmap& bitmap, const wxPoint& at, bool useMask);
/// The pixels of another device. Opacity is ignored or, if a mask is to be used, all or nothing.
void Blit(wxDC& dc, const wxRect& target, wxDC& source, const wxPoint& from, wxRasterOperationMode op,
          bool useMask);
/// The colour of a pixel; invalid outside of the device.
wxColour GetPixel(wxDC& dc, const wxPoint& point);

/// Fills a window that is being erased with its native colour, where the platform has not done it already.
void Erase(wxDC& dc, const wxWindow& window);

/// Lets a picture that is selected into a device be read as it is now, and not as it was when it was read
/// before.
void Refresh(const wxBitmap& bitmap);

} // namespace gtkport
} // namespace vela7
