// The painter's pixels, lines and shapes. What an operation selects for its own purposes it puts back.

#include "vela7/wxpainter.h"

#include "vela7/wxconvert.h"

#include <wx/brush.h>
#include <wx/pen.h>

#include <algorithm>
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

} // namespace

_color CwxPainter::internalSetPixel(int x, int y, _color color)
{
    if (color.flag != 0) {
        device->DrawPoint(x, y);
        return wx2vela(device->GetPen().GetColour());
    }
    wxPen pen = device->GetPen();
    pen.SetColour(color.red, color.green, color.blue);
    const CPenScope scope(*device, pen);
    device->DrawPoint(x, y);
    return color;
}

_color CwxPainter::internalGetPixel(int x, int y)
{
    wxColour read;
    device->GetPixel(x, y, &read);
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
    device->DrawLine(m_current.x, m_current.y, x, y);
    m_current = {x, y};
}

void CwxPainter::internalFillRect(int l, int t, int r, int b)
{
    const CPenScope scope(*device, *wxTRANSPARENT_PEN);
    device->DrawRectangle(l, t, r - l, b - t);
}

void CwxPainter::internalRectangle(int l, int t, int r, int b)
{
    device->DrawRectangle(l, t, r - l, b - t);
}

void CwxPainter::internalEllipse(int l, int t, int r, int b)
{
    device->DrawEllipse(l, t, r - l, b - t);
}

void CwxPainter::internalRoundRect(int l, int t, int r, int b, int ew, int eh)
{
    // Kept by contract: the two sizes of the corner collapse into one radius and are not halved; wx has one.
    device->DrawRoundedRectangle(l, t, r - l, b - t, static_cast<double>(std::min(ew, eh)));
}

void CwxPainter::internalFocusRect(int l, int t, int r, int b)
{
    static const wxDash dashes[] = {1, 2};
    wxPen dotted(*wxWHITE, 1, wxPENSTYLE_USER_DASH);
    dotted.SetDashes(2, dashes);
    const wxRasterOperationMode before = device->GetLogicalFunction();
    device->SetLogicalFunction(wxXOR);
    {
        const CPenScope pen(*device, dotted);
        const CBrushScope brush(*device, *wxTRANSPARENT_BRUSH);
        device->DrawRectangle(l, t, r - l, b - t);
    }
    device->SetLogicalFunction(before);
}

void CwxPainter::internalGradientH(int l, int t, int r, int b, _color from, _color to, unsigned long)
{
    device->GradientFillLinear(wxRect(l, t, r - l, b - t), vela2wx(from), vela2wx(to), wxRIGHT);
}

void CwxPainter::internalGradientV(int l, int t, int r, int b, _color from, _color to, unsigned long)
{
    device->GradientFillLinear(wxRect(l, t, r - l, b - t), vela2wx(from), vela2wx(to), wxDOWN);
}

// Angles: whole degrees, truncated toward zero.

void CwxPainter::internalArc(int l, int t, int r, int b, int start, int end)
{
    const CBrushScope scope(*device, *wxTRANSPARENT_BRUSH);
    device->DrawEllipticArc(l, t, r - l, b - t, start / 10, end / 10);
}

void CwxPainter::internalChord(int l, int t, int r, int b, int start, int end)
{
    // Kept by contract: a chord is drawn as a pie, wx has no chords.
    internalPie(l, t, r, b, start, end);
}

void CwxPainter::internalPie(int l, int t, int r, int b, int start, int end)
{
    device->DrawEllipticArc(l, t, r - l, b - t, start / 10, end / 10);
}

void CwxPainter::internalPolyLine(const point<int>* points, int count, int first, int last)
{
    const std::vector<wxPoint> range = Range(points, count, first, last);
    if (!range.empty())
        device->DrawLines(static_cast<int>(range.size()), range.data(), 0, 0);
}

void CwxPainter::internalPolyBezier(const point<int>* points, int count, int first, int last)
{
    const std::vector<wxPoint> range = Range(points, count, first, last);
    if (range.size() > 1) // wx reads a second point unasked
        device->DrawSpline(static_cast<int>(range.size()), range.data());
}

void CwxPainter::internalPolygon(const point<int>* points, int count)
{
    const std::vector<wxPoint> all = Range(points, count, 0, -1);
    if (!all.empty())
        device->DrawPolygon(static_cast<int>(all.size()), all.data(), 0, 0, wxODDEVEN_RULE);
}

void CwxPainter::internalSemiFillRect(int, int, int, int, _color)
{
    // Kept by contract: nothing is drawn, this painter has no translucent fill; AlphaBlend draws translucent
    // pictures.
}

} // namespace vela7
