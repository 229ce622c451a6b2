#include "port/drawing.h"

#include <wx/version.h>

#if wxCHECK_VERSION(3, 2, 0)

#include "port/cairo.h"
#include "port/outlines.h"

#include <wx/bitmap.h>
#include <wx/brush.h>
#include <wx/pen.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace vela7 {
namespace gtkport {

namespace {

void SetColour(cairo_t* cr, const wxColour& colour)
{
    cairo_set_source_rgb(cr, colour.Red() / 255.0, colour.Green() / 255.0, colour.Blue() / 255.0);
}

// ---- what the pen says

struct DashRow
{
    wxPenStyle style;
    std::vector<int> lengths; // in widths of the pen
};

std::vector<int> DashesOf(const wxPen& pen)
{
    static const DashRow rows[] = {
        {wxPENSTYLE_DOT, {1, 1}},
        {wxPENSTYLE_SHORT_DASH, {2, 2}},
        {wxPENSTYLE_LONG_DASH, {2, 4}},
        {wxPENSTYLE_DOT_DASH, {3, 3, 1, 3}},
    };
    std::vector<int> dashes;
    for (const DashRow& row : rows)
        if (row.style == pen.GetStyle())
            dashes = row.lengths;
    if (pen.GetStyle() == wxPENSTYLE_USER_DASH) {
        wxDash* own = nullptr;
        const int count = pen.GetDashes(&own);
        dashes.assign(own, own + count);
    }
    for (int& dash : dashes)
        dash *= std::max(pen.GetWidth(), 1);
    return dashes;
}

bool IsThin(const wxPen& pen)
{
    return pen.GetWidth() <= 1;
}

cairo_line_cap_t CapOf(const wxPen& pen)
{
    return pen.GetCap() == wxCAP_BUTT         ? CAIRO_LINE_CAP_BUTT
           : pen.GetCap() == wxCAP_PROJECTING ? CAIRO_LINE_CAP_SQUARE
                                              : CAIRO_LINE_CAP_ROUND;
}

cairo_line_join_t JoinOf(const wxPen& pen)
{
    return pen.GetJoin() == wxJOIN_MITER   ? CAIRO_LINE_JOIN_MITER
           : pen.GetJoin() == wxJOIN_BEVEL ? CAIRO_LINE_JOIN_BEVEL
                                           : CAIRO_LINE_JOIN_ROUND;
}

// The middle of a pixel; a little before it, so that an edge there counts for the pixel below or beyond.
constexpr double middle = 0.5 - 1.0 / 256;

void StrokeWide(cairo_t* cr, const wxPen& pen)
{
    const std::vector<int> lengths = DashesOf(pen);
    const std::vector<double> dashes(lengths.begin(), lengths.end());
    cairo_set_dash(cr, dashes.data(), static_cast<int>(dashes.size()), 0);
    cairo_set_line_width(cr, pen.GetWidth());
    cairo_set_line_cap(cr, CapOf(pen));
    cairo_set_line_join(cr, JoinOf(pen));
    cairo_set_miter_limit(cr, 10);
    SetColour(cr, pen.GetColour());
    cairo_stroke(cr);
}

void AddPath(cairo_t* cr, const std::vector<wxPoint>& points, bool closed)
{
    for (const wxPoint& p : points)
        cairo_line_to(cr, p.x + middle, p.y + middle);
    if (closed)
        cairo_close_path(cr);
}

void AddArcPath(cairo_t* cr, const wxRect& rect, double start, double extent)
{
    constexpr double degree = 3.14159265358979323846 / 180;
    cairo_matrix_t before;
    cairo_get_matrix(cr, &before);
    cairo_translate(cr, rect.x + rect.width / 2.0 + middle, rect.y + rect.height / 2.0 + middle);
    cairo_scale(cr, rect.width / 2.0, rect.height / 2.0);
    cairo_new_sub_path(cr);
    if (extent < 0)
        cairo_arc(cr, 0, 0, 1, -start * degree, -(start + extent) * degree);
    else
        cairo_arc_negative(cr, 0, 0, 1, -start * degree, -(start + extent) * degree);
    cairo_set_matrix(cr, &before);
}

void StrokeLines(cairo_t* cr, const wxPen& pen, const std::vector<wxPoint>& points, bool closed)
{
    if (!pen.IsNonTransparent())
        return;
    if (!IsThin(pen)) {
        AddPath(cr, points, closed);
        return StrokeWide(cr, pen);
    }
    COutline(cr, DashesOf(pen)).AddLines(points, closed);
    SetColour(cr, pen.GetColour());
    cairo_fill(cr);
}

// One arc, or the four of a rounded rectangle with the lines between them.
struct Arc
{
    wxRect rect;
    double start, extent;
};

void StrokeArc(cairo_t* cr, const wxPen& pen, const Arc& arc)
{
    if (!pen.IsNonTransparent())
        return;
    const bool flat = arc.rect.width == 0 || arc.rect.height == 0;
    if (!IsThin(pen) && !flat) {
        AddArcPath(cr, arc.rect, arc.start, arc.extent);
        return StrokeWide(cr, pen);
    }
    COutline(cr, DashesOf(pen)).AddArc(arc.rect, arc.start, arc.extent);
    SetColour(cr, pen.GetColour());
    cairo_fill(cr);
}

// ---- what the brush says

struct HatchRow
{
    wxBrushStyle style;
    bool (*covers)(int x, int y);
};

constexpr int hatchPeriod = 8;

// clang-format off
constexpr HatchRow hatches[] = {
    {wxBRUSHSTYLE_BDIAGONAL_HATCH,  [](int x, int y) { return x + y == 7; }},
    {wxBRUSHSTYLE_FDIAGONAL_HATCH,  [](int x, int y) { return x == y; }},
    {wxBRUSHSTYLE_CROSSDIAG_HATCH,  [](int x, int y) { return x == y || x + y == 7; }},
    {wxBRUSHSTYLE_CROSS_HATCH,      [](int x, int y) { return x == 3 || y == 3; }},
    {wxBRUSHSTYLE_HORIZONTAL_HATCH, [](int, int y)   { return y == 3; }},
    {wxBRUSHSTYLE_VERTICAL_HATCH,   [](int x, int)   { return x == 3; }},
};
// clang-format on

cairo_pattern_t* MakeHatch(const HatchRow& row)
{
    cairo_surface_t* const image = cairo_image_surface_create(CAIRO_FORMAT_A8, hatchPeriod, hatchPeriod);
    unsigned char* const data = cairo_image_surface_get_data(image);
    for (int y = 0; y < hatchPeriod; ++y)
        for (int x = 0; x < hatchPeriod; ++x)
            data[y * cairo_image_surface_get_stride(image) + x] = row.covers(x, y) ? 255 : 0;
    cairo_surface_mark_dirty(image);
    cairo_pattern_t* const pattern = cairo_pattern_create_for_surface(image);
    cairo_surface_destroy(image);
    cairo_pattern_set_extend(pattern, CAIRO_EXTEND_REPEAT);
    cairo_pattern_set_filter(pattern, CAIRO_FILTER_NEAREST);
    return pattern;
}

// Fills the path, as hatches do what lies between their lines stays.
void Fill(cairo_t* cr, const wxBrush& brush)
{
    if (brush.GetStyle() == wxBRUSHSTYLE_STIPPLE && brush.GetStipple() && brush.GetStipple()->IsOk()) {
        brush.GetStipple()->SetSourceSurface(cr, 0, 0);
        cairo_pattern_set_extend(cairo_get_source(cr), CAIRO_EXTEND_REPEAT);
        return cairo_fill(cr);
    }
    SetColour(cr, brush.GetColour());
    const auto row = std::find_if(std::begin(hatches), std::end(hatches),
                                  [&](const HatchRow& hatch) { return hatch.style == brush.GetStyle(); });
    if (row == std::end(hatches))
        return cairo_fill(cr);
    static cairo_pattern_t* patterns[std::size(hatches)] = {}; // to the end of the process
    cairo_pattern_t*& pattern = patterns[row - std::begin(hatches)];
    if (!pattern)
        pattern = MakeHatch(*row);
    cairo_save(cr);
    cairo_clip(cr);
    cairo_mask(cr, pattern);
    cairo_restore(cr);
}

wxRect Normal(wxRect rect)
{
    if (rect.width < 0)
        rect.x += rect.width, rect.width = -rect.width;
    if (rect.height < 0)
        rect.y += rect.height, rect.height = -rect.height;
    return rect;
}

// What a shape in a rectangle covers, with the ends and corners of the pen.
wxRect Around(const wxDC& dc, wxRect rect)
{
    const wxPen& pen = dc.GetPen();
    return rect.Inflate(pen.IsOk() ? 10 * std::max(1, pen.GetWidth()) : 1); // the limit of mitres
}

wxRect Around(const wxDC& dc, const std::vector<wxPoint>& points)
{
    wxRect box;
    for (const wxPoint& p : points)
        box.Union(wxRect(p, wxSize(1, 1)));
    return Around(dc, box);
}

std::vector<wxPoint> Corners(const wxRect& rect)
{
    const int right = rect.x + rect.width - 1, bottom = rect.y + rect.height - 1;
    return {{rect.x, rect.y}, {right, rect.y}, {right, bottom}, {rect.x, bottom}};
}

} // namespace

void DrawPoint(wxDC& dc, const wxPoint& point)
{
    if (!dc.GetPen().IsNonTransparent())
        return;
    Draw(dc, wxRect(point, wxSize(1, 1)), dc.GetLogicalFunction(), [&](cairo_t* cr) {
        SetColour(cr, dc.GetPen().GetColour());
        cairo_rectangle(cr, point.x, point.y, 1, 1);
        cairo_fill(cr);
    });
}

void DrawLines(wxDC& dc, int count, const wxPoint* points)
{
    const std::vector<wxPoint> all(points, points + count);
    Draw(dc, Around(dc, all), dc.GetLogicalFunction(),
         [&](cairo_t* cr) { StrokeLines(cr, dc.GetPen(), all, false); });
}

// Straight to the middle of the first side and from that of the last; between the middles curves with the
// corners for control points.
void DrawSpline(wxDC& dc, int count, const wxPoint* points)
{
    if (count < 2)
        return;
    const auto middle = [points](int i) {
        return wxRealPoint((points[i - 1].x + points[i].x) / 2.0, (points[i - 1].y + points[i].y) / 2.0);
    };
    std::vector<wxPoint> lines = {points[0]};
    for (int i = 1; i < count; ++i) {
        const wxRealPoint from = middle(i), &corner = points[i],
                          to = i + 1 < count ? middle(i + 1) : wxRealPoint(corner);
        const double length = std::fabs(to.x - from.x) + std::fabs(to.y - from.y);
        const int steps = i + 1 < count ? static_cast<int>(length / 4) + 1 : 0; // of some pixels
        for (int step = 0; step <= steps; ++step) {
            const double t = steps ? double(step) / steps : 0, a = (1 - t) * (1 - t), b = 2 * t * (1 - t),
                         c = t * t;
            lines.emplace_back(static_cast<int>(std::lround(a * from.x + b * corner.x + c * to.x)),
                               static_cast<int>(std::lround(a * from.y + b * corner.y + c * to.y)));
        }
    }
    lines.push_back(points[count - 1]);
    DrawLines(dc, static_cast<int>(lines.size()), lines.data());
}

void DrawPolygon(wxDC& dc, int count, const wxPoint* points)
{
    const std::vector<wxPoint> all(points, points + count);
    Draw(dc, Around(dc, all), dc.GetLogicalFunction(), [&](cairo_t* cr) {
        if (dc.GetBrush().IsNonTransparent()) {
            AddPolygon(cr, std::vector<wxRealPoint>(all.begin(), all.end()));
            Fill(cr, dc.GetBrush());
        }
        StrokeLines(cr, dc.GetPen(), all, true);
    });
}

void FillRectangle(wxDC& dc, const wxRect& given)
{
    const wxRect rect = Normal(given);
    if (rect.IsEmpty() || !dc.GetBrush().IsNonTransparent())
        return;
    Draw(dc, rect, dc.GetLogicalFunction(), [&](cairo_t* cr) {
        cairo_rectangle(cr, rect.x, rect.y, rect.width, rect.height);
        Fill(cr, dc.GetBrush());
    });
}

void DrawRectangle(wxDC& dc, const wxRect& given)
{
    const wxRect rect = Normal(given);
    if (rect.IsEmpty())
        return;
    Draw(dc, Around(dc, rect), dc.GetLogicalFunction(), [&](cairo_t* cr) {
        if (dc.GetBrush().IsNonTransparent()) {
            cairo_rectangle(cr, rect.x, rect.y, rect.width, rect.height);
            Fill(cr, dc.GetBrush());
        }
        wxPen pen = dc.GetPen();
        if (pen.IsOk() && pen.GetWidth() == 2 && pen.GetStyle() == wxPENSTYLE_SOLID)
            pen.SetJoin(wxJOIN_MITER); // the corners are there
        StrokeLines(cr, pen, Corners(rect), true);
    });
}

void DrawEllipse(wxDC& dc, const wxRect& given)
{
    const wxRect rect = Normal(given);
    Draw(dc, Around(dc, rect), dc.GetLogicalFunction(), [&](cairo_t* cr) {
        if (dc.GetBrush().IsNonTransparent() && !rect.IsEmpty()) {
            wxRect inner = rect;
            if (!dc.GetPen().IsNonTransparent()) // as large as with a line
                ++inner.width, ++inner.height;
            AddEllipse(cr, inner);
            Fill(cr, dc.GetBrush());
        }
        StrokeArc(cr, dc.GetPen(), {rect, 0, 360});
    });
}

void DrawEllipticArc(wxDC& dc, const wxRect& given, double start, double end)
{
    const wxRect rect = Normal(given);
    const double extent = std::clamp(end - start, -360.0, 360.0);
    Draw(dc, Around(dc, rect), dc.GetLogicalFunction(), [&](cairo_t* cr) {
        if (dc.GetBrush().IsNonTransparent() && !rect.IsEmpty()) {
            AddPie(cr, rect, start, extent);
            Fill(cr, dc.GetBrush());
        }
        StrokeArc(cr, dc.GetPen(), {rect, start, extent});
    });
}

void DrawRoundedRectangle(wxDC& dc, const wxRect& given, int radius)
{
    wxRect rect = Normal(given);
    if (radius < 0)
        radius = -radius * std::min(rect.width, rect.height);
    if (radius == 0 || rect.IsEmpty())
        return DrawRectangle(dc, rect);
    const bool outlined = dc.GetPen().IsNonTransparent();
    if (outlined)
        --rect.width, --rect.height;
    const int across = std::min({2 * radius, rect.width, rect.height}), corner = across / 2;
    const int right = rect.x + rect.width, bottom = rect.y + rect.height;
    const wxSize size(across, across);
    const Arc arcs[] = {{{wxPoint(right - across, rect.y), size}, 0, 90},
                        {{rect.GetPosition(), size}, 90, 90},
                        {{wxPoint(rect.x, bottom - across), size}, 180, 90},
                        {{wxPoint(right - across, bottom - across), size}, 270, 90}};
    Draw(dc, Around(dc, rect), dc.GetLogicalFunction(), [&](cairo_t* cr) {
        if (dc.GetBrush().IsNonTransparent()) {
            for (const Arc& arc : arcs)
                AddPie(cr, arc.rect, arc.start, arc.extent);
            cairo_rectangle(cr, rect.x + corner, rect.y, rect.width - across + 1, rect.height);
            cairo_rectangle(cr, rect.x, rect.y + corner, rect.width, rect.height - across + 1);
            Fill(cr, dc.GetBrush());
        }
        if (!outlined)
            return;
        const int first = corner + 1;
        StrokeLines(cr, dc.GetPen(), {{rect.x + first, rect.y}, {right - corner, rect.y}}, false);
        StrokeLines(cr, dc.GetPen(), {{rect.x + first, bottom}, {right - corner, bottom}}, false);
        StrokeLines(cr, dc.GetPen(), {{rect.x, rect.y + first}, {rect.x, bottom - corner}}, false);
        StrokeLines(cr, dc.GetPen(), {{right, rect.y + first}, {right, bottom - corner}}, false);
        for (const Arc& arc : arcs)
            StrokeArc(cr, dc.GetPen(), arc);
    });
}

void InvertDotted(wxDC& dc, const wxRect& given)
{
    const wxRect rect = Normal(given);
    if (rect.IsEmpty())
        return;
    Draw(dc, rect, wxXOR, [&](cairo_t* cr) {
        COutline(cr, {1, 2}).AddLines(Corners(rect), true);
        SetColour(cr, *wxWHITE);
        cairo_fill(cr);
    });
}

} // namespace gtkport
} // namespace vela7

#endif
