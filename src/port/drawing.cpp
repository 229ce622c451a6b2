// On GTK 2, where wx and X do it. What GTK 3 takes is in the other files of this name.

#include "port/drawing.h"

#include <wx/version.h>

#if !wxCHECK_VERSION(3, 2, 0)

#include <wx/brush.h>
#include <wx/pen.h>

namespace vela7 {
namespace gtkport {

namespace {

// Selects a pen and a brush for the time of a scope.
class CSelection
{
public:
    explicit CSelection(wxDC& dc) : m_dc(dc), m_pen(dc.GetPen()), m_brush(dc.GetBrush()) {}
    ~CSelection()
    {
        m_dc.SetPen(m_pen);
        m_dc.SetBrush(m_brush);
    }
    CSelection(const CSelection&) = delete;
    CSelection& operator=(const CSelection&) = delete;

private:
    wxDC& m_dc;
    const wxPen m_pen;
    const wxBrush m_brush;
};

} // namespace

void DrawPoint(wxDC& dc, const wxPoint& point)
{
    dc.DrawPoint(point);
}

void DrawLines(wxDC& dc, int count, const wxPoint* points)
{
    dc.DrawLines(count, points);
}

void DrawSpline(wxDC& dc, int count, const wxPoint* points)
{
    dc.DrawSpline(count, points);
}

void DrawPolygon(wxDC& dc, int count, const wxPoint* points)
{
    dc.DrawPolygon(count, points, 0, 0, wxODDEVEN_RULE);
}

void DrawRectangle(wxDC& dc, const wxRect& rect)
{
    dc.DrawRectangle(rect);
}

void FillRectangle(wxDC& dc, const wxRect& rect)
{
    const wxPen before = dc.GetPen();
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.DrawRectangle(rect);
    dc.SetPen(before);
}

void DrawRoundedRectangle(wxDC& dc, const wxRect& rect, int radius)
{
    dc.DrawRoundedRectangle(rect, static_cast<double>(radius));
}

void DrawEllipse(wxDC& dc, const wxRect& rect)
{
    dc.DrawEllipse(rect);
}

void DrawEllipticArc(wxDC& dc, const wxRect& rect, double start, double end)
{
    dc.DrawEllipticArc(rect.GetTopLeft(), rect.GetSize(), start, end);
}

void InvertDotted(wxDC& dc, const wxRect& rect)
{
    static const wxDash dashes[] = {1, 2};
    wxPen dotted(*wxWHITE, 1, wxPENSTYLE_USER_DASH);
    dotted.SetDashes(2, dashes);
    const CSelection before(dc);
    const wxRasterOperationMode op = dc.GetLogicalFunction();
    dc.SetLogicalFunction(wxXOR);
    dc.SetPen(dotted);
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    dc.DrawRectangle(rect);
    dc.SetLogicalFunction(op);
}

void DrawGradient(wxDC& dc, const wxRect& rect, const wxColour& from, const wxColour& to,
                  wxDirection direction)
{
    dc.GradientFillLinear(rect, from, to, direction);
}

void DrawPicture(wxDC& dc, const wxBitmap& bitmap, const wxPoint& at, bool useMask)
{
    dc.DrawBitmap(bitmap, at, useMask);
}

void Blit(wxDC& dc, const wxRect& target, wxDC& source, const wxPoint& from, wxRasterOperationMode op,
          bool useMask)
{
    dc.Blit(target.GetPosition(), target.GetSize(), &source, from, op, useMask);
}

wxColour GetPixel(wxDC& dc, const wxPoint& point)
{
    wxColour read;
    dc.GetPixel(point, &read);
    return read;
}

void Erase(wxDC&, const wxWindow&) {} // by GDK

void Refresh(const wxBitmap&) {}

} // namespace gtkport
} // namespace vela7

#endif
