/// Outlines of one pixel's width and areas on Cairo, pixel by pixel as X draws them. Cairo's own lines are
/// never less than a pixel wide, and its areas end differently on windows and on pictures. Thread: GUI.
#pragma once

#include <wx/gdicmn.h>

#include <vector>

// NOLINTNEXTLINE(bugprone-reserved-identifier): Cairo calls it so
typedef struct _cairo cairo_t;

namespace vela7 {
namespace gtkport {

/// Adds the pixels of lines and arcs to the path of a context, as rectangles to be filled.
class COutline
{
public:
    /// Lengths in pixels, on and off in turn; none: a solid line. A dash goes on from one line to the next.
    COutline(cairo_t* cr, std::vector<int> dashes) : m_cr(cr), m_dashes(std::move(dashes)) {}
    ~COutline() { EndRun(); }
    COutline(const COutline&) = delete;
    COutline& operator=(const COutline&) = delete;

    /// Without the pixel at its end, so that what begins there does not draw it twice.
    void AddLine(const wxPoint& from, const wxPoint& to);
    /// Lines from each point to the next, and from the last to the first if wanted.
    void AddLines(const std::vector<wxPoint>& points, bool closed);
    /// The part of the ellipse in a rectangle, whose far sides count, from an angle on. Degrees,
    /// counter-clockwise.
    void AddArc(const wxRect& rect, double start, double extent);

private:
    void AddPixel(int x, int y);
    void EndRun();
    bool IsOn();

    cairo_t* m_cr;
    const std::vector<int> m_dashes;
    std::size_t m_dash = 0; // which one
    int m_used = 0;         // pixels of it
    wxRect m_run;
};

/// Adds the pixels of an area to the path of a context, as rectangles: those whose middle lies inside, and of
/// those on its edge the ones on the left. What lies inside of two parts of a polygon lies outside.
void AddPolygon(cairo_t* cr, const std::vector<wxRealPoint>& corners);
void AddEllipse(cairo_t* cr, const wxRect& rect);
void AddPie(cairo_t* cr, const wxRect& rect, double start, double extent);

} // namespace gtkport
} // namespace vela7
