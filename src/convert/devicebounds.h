/// Where device coordinates are kept within what X can hold. Internal.
///
/// X counts in 16 bits: what lies beyond comes out on the other side, and a picture that is larger ends the
/// process. Ordinary numbers pass as they are. Others are bounded, far outside of what can be seen of the
/// device, so that the same is seen. Thread: GUI.
#pragma once

#include "vela7/types.h"

#include <wx/dc.h>
#include <wx/image.h>

#include <algorithm>
#include <vector>

namespace vela7 {

/// Whether a device picture of this size may be made: positive, what X can hold, and there is a display.
bool CanMakePicture(double width, double height);

/// Zero for a number that X holds wherever the device lies in a window of its own, the difference of two of
/// them too.
constexpr unsigned Excess(int value)
{
    constexpr unsigned limit = 0x4000;
    return (static_cast<unsigned>(value) + limit) & ~(2 * limit - 1);
}

/// Whether all numbers are such.
template <class... Ints>
constexpr bool IsOrdinary(Ints... values)
{
    return (Excess(values) | ...) == 0;
}

/// What of the device can be seen at most, and so far around it as X can hold.
class CDeviceBounds
{
public:
    explicit CDeviceBounds(const wxDC& dc);

    int X(int x) const { return std::clamp(x, m_area.left, m_area.right); }
    int Y(int y) const { return std::clamp(y, m_area.top, m_area.bottom); }
    /// Right and bottom are inclusive.
    const rectangle<int>& Area() const { return m_area; }

private:
    rectangle<int> m_area;
};

/// A rectangle as wx takes it; a reversed one stays reversed.
inline wxRect Bounded(const wxDC& dc, int l, int t, int r, int b)
{
    if (!IsOrdinary(l, t, r, b)) {
        const CDeviceBounds bounds(dc);
        l = bounds.X(l), t = bounds.Y(t), r = bounds.X(r), b = bounds.Y(b);
    }
    return wxRect(l, t, r - l, b - t);
}

/// The same as the DC's operations of these names, with any numbers.
void DrawLines(wxDC& dc, const std::vector<wxPoint>& points);
void DrawSpline(wxDC& dc, const std::vector<wxPoint>& points);
void DrawPolygon(wxDC& dc, const std::vector<wxPoint>& points);
void DrawLine(wxDC& dc, const point<int>& from, const point<int>& to);

/// Whether some of a rectangle can be seen on the device.
bool CanBeSeen(const wxDC& dc, int x, int y, int width, int height);

/// An image scaled for a device, where it is to stand at (x, y): of a very large one only what can be seen,
/// and (x, y) move along; invalid when that is nothing.
wxImage Scaled(const wxDC& dc, const wxImage& image, const wxSize& wanted, int& x, int& y);

/// wxDC::Blit with any numbers: the target's corners as given (nothing for reversed ones), the source's
/// first.
void Copy(wxDC& to, const rectangle<int>& target, wxDC& from, const point<int>& source,
          wxRasterOperationMode op, bool useMask);

} // namespace vela7
