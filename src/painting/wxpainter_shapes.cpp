// The painter's pixels, lines and shapes. What an operation selects for its own purposes it puts back.

#include "vela7/wxpainter.h"

#include "convert/devicebounds.h"
#include "port/drawing.h"
#include "vela7/wxconvert.h"

#include <wx/brush.h>
#include <wx/pen.h>

#include <algorithm>
#include <climits>
#include <vector>

namespace vela7 {

namespace {

// Selects a pen for the time of a scope.
class CPenScope
{
public:
    CPenScope(wxDC& dc, const wxPen& pen) : m_dc(dc), m_before(dc.GetPen()) { dc.SetPen(pen); }
    ~CPenScope() { m_dc.SetPen(m_before); }
    CPenScope(const CPenScope&) = delete;
    CPenScope& operator=(const CPenScope&) = delete;

private:
    wxDC& m_dc;
    const wxPen m_before;
};

class CBrushScope
{
public:
    CBrushScope(wxDC& dc, const wxBrush& brush) : m_dc(dc), m_before(dc.GetBrush()) { dc.SetBrush(brush); }
    ~CBrushScope() { m_dc.SetBrush(m_before); }
    CBrushScope(const CBrushScope&) = delete;
    CBrushScope& operator=(const CBrushScope&) = delete;

private:
    wxDC& m_dc;
    const wxBrush m_before;
};

// Points first..last, both inclusive, as wx takes them; empty for an empty or reversed range.
std::vector<wxPoint> Range(const point<int>* points, int count, int first, int last)
{
    const int end = last != -1 && count > last ? last : count - 1;
    const int begin = std::max(first, 0);
    std::vector<wxPoint> result;
    if (!points || end < begin)
        return result;
    result.reserve(static_cast<std::size_t>(end - begin) + 1);
    for (int i = begin; i <= end; ++i)
        result.emplace_back(points[i].x, points[i].y);
    return result;
}

// The colour at a part of the way from one to another.
wxColour Between(const _color& from, const _color& to, double part)
{
    const auto mix = [part](unsigned char a, unsigned char b) {
        return static_cast<unsigned char>(a + (b - a) * part + 0.5);
    };
    return wxColour(mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue));
}

// X holds no angles beyond a turn and a half. A start within the first turn, and one turn at most from there,
// look the same.
double StartAngle(int start)
{
    return start / 10 % 360;
}

double EndAngle(int start, int end)
{
    const int extent = static_cast<int>(std::clamp<long long>(0LL + end / 10 - start / 10, -360, 360));
    return StartAngle(start) + extent;
}

} // namespace

_color CwxPainter::internalSetPixel(int x, int y, _color color)
{
    const bool canBeSeen = CanBeSeen(*device, x, y, 1, 1);
    if (color.flag != 0) {
        if (canBeSeen)
            gtkport::DrawPoint(*device, {x, y});
        return wx2vela(device->GetPen().GetColour());
    }
    wxPen pen = device->GetPen();
    pen.SetColour(color.red, color.green, color.blue);
    const CPenScope scope(*device, pen);
    if (canBeSeen)
        gtkport::DrawPoint(*device, {x, y});
    return color;
}

_color CwxPainter::internalGetPixel(int x, int y)
{
    const wxColour read = gtkport::GetPixel(*device, {x, y});
    return wx2vela(read.IsOk() ? read : *wxBLACK);
}

point<int> CwxPainter::internalMoveTo(int x, int y)
{
    return m_current = {x, y};
}

point<int> CwxPainter::internalGetCurrentPos()
{
    return m_current;
}

void CwxPainter::internalLineTo(int x, int y)
{
    DrawLine(*device, m_current, {x, y});
    m_current = {x, y};
}

void CwxPainter::internalFillRect(int l, int t, int r, int b)
{
    gtkport::FillRectangle(*device, Bounded(*device, l, t, r, b));
}

void CwxPainter::internalRectangle(int l, int t, int r, int b)
{
    gtkport::DrawRectangle(*device, Bounded(*device, l, t, r, b));
}

void CwxPainter::internalEllipse(int l, int t, int r, int b)
{
    gtkport::DrawEllipse(*device, Bounded(*device, l, t, r, b));
}

void CwxPainter::internalRoundRect(int l, int t, int r, int b, int ew, int eh)
{
    // Kept by contract: the two sizes of the corner collapse into one radius and are not halved; wx has one.
    gtkport::DrawRoundedRectangle(*device, Bounded(*device, l, t, r, b), std::min({ew, eh, SHRT_MAX}));
}

void CwxPainter::internalFocusRect(int l, int t, int r, int b)
{
    gtkport::InvertDotted(*device, Bounded(*device, l, t, r, b));
}

// wx computes the colours in ints, which are too short for long ways.
void CwxPainter::internalGradientH(int l, int t, int r, int b, _color from, _color to, unsigned long)
{
    const wxRect rect = Bounded(*device, l, t, r, b);
    const double way = static_cast<double>(r) - l;
    if (rect.width > 0)
        gtkport::DrawGradient(*device, rect, Between(from, to, (rect.x - l) / way),
                              Between(from, to, (rect.x + rect.width - l) / way), wxRIGHT);
}

void CwxPainter::internalGradientV(int l, int t, int r, int b, _color from, _color to, unsigned long)
{
    const wxRect rect = Bounded(*device, l, t, r, b);
    const double way = static_cast<double>(b) - t;
    if (rect.height > 0)
        gtkport::DrawGradient(*device, rect, Between(from, to, (rect.y - t) / way),
                              Between(from, to, (rect.y + rect.height - t) / way), wxDOWN);
}

// Angles: whole degrees, truncated toward zero.

void CwxPainter::internalArc(int l, int t, int r, int b, int start, int end)
{
    const CBrushScope scope(*device, *wxTRANSPARENT_BRUSH);
    internalPie(l, t, r, b, start, end);
}

void CwxPainter::internalChord(int l, int t, int r, int b, int start, int end)
{
    // Kept by contract: a chord is drawn as a pie, wx has no chords.
    internalPie(l, t, r, b, start, end);
}

void CwxPainter::internalPie(int l, int t, int r, int b, int start, int end)
{
    const wxRect rect = Bounded(*device, l, t, r, b);
    gtkport::DrawEllipticArc(*device, rect, StartAngle(start), EndAngle(start, end));
}

void CwxPainter::internalPolyLine(const point<int>* points, int count, int first, int last)
{
    const std::vector<wxPoint> range = Range(points, count, first, last);
    if (!range.empty())
        DrawLines(*device, range);
}

void CwxPainter::internalPolyBezier(const point<int>* points, int count, int first, int last)
{
    const std::vector<wxPoint> range = Range(points, count, first, last);
    if (range.size() > 1) // wx reads a second point unasked
        DrawSpline(*device, range);
}

void CwxPainter::internalPolygon(const point<int>* points, int count)
{
    const std::vector<wxPoint> all = Range(points, count, 0, -1);
    if (!all.empty())
        DrawPolygon(*device, all);
}

void CwxPainter::internalSemiFillRect(int, int, int, int, _color)
{
    // Kept by contract: nothing is drawn, this painter has no translucent fill; AlphaBlend draws translucent
    // pictures.
}

} // namespace vela7
