#include "convert/devicebounds.h"

#include "convert/xpmread.h"
#include "port/drawing.h"
#include "port/gtkport.h"

#include <wx/pen.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace vela7 {

namespace {

constexpr int around =
    0x6000; // pixels beyond what can be seen; with a picture of full size X still holds both
constexpr int last = 0x7fff;
constexpr int largeImage = 1 << 22; // pixels

using Point = point<double>;
using Points = std::vector<Point>;

// A side of the bounds: what has a negative depth lies outside.
struct Side
{
    double Point::*axis;
    double border;
    double sign;

    double Depth(const Point& p) const { return sign * (p.*axis - border); }
    // Where the line between a point inside and one outside crosses it.
    Point Crossing(const Point& a, const Point& b) const
    {
        const double part = Depth(a) / (Depth(a) - Depth(b));
        return {a.x + part * (b.x - a.x), a.y + part * (b.y - a.y)};
    }
};

using Sides = std::array<Side, 4>;

Sides SidesOf(const wxDC& dc)
{
    const CDeviceBounds bounds(dc);
    const rectangle<int>& area = bounds.Area();
    return {Side{&Point::x, double(area.left), 1}, Side{&Point::x, double(area.right), -1},
            Side{&Point::y, double(area.top), 1}, Side{&Point::y, double(area.bottom), -1}};
}

// False when nothing of the line lies inside.
bool Cut(const Sides& sides, Point& a, Point& b)
{
    for (const Side& side : sides) {
        const bool outside = side.Depth(a) < 0;
        if (outside && side.Depth(b) < 0)
            return false;
        if (outside)
            a = side.Crossing(a, b);
        else if (side.Depth(b) < 0)
            b = side.Crossing(a, b);
    }
    return true;
}

// What of a polygon lies inside: its edges outside are moved onto the sides.
Points Cut(const Sides& sides, Points polygon)
{
    for (const Side& side : sides) {
        Points rest;
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            const Point& a = polygon[i];
            const Point& b = polygon[(i + 1) % polygon.size()];
            const bool inside = side.Depth(a) >= 0;
            if (inside)
                rest.push_back(a);
            if (inside != (side.Depth(b) >= 0))
                rest.push_back(side.Crossing(a, b));
        }
        polygon.swap(rest);
    }
    return polygon;
}

Points Exactly(const std::vector<wxPoint>& points)
{
    Points result;
    for (const wxPoint& p : points)
        result.emplace_back(p.x, p.y);
    return result;
}

wxPoint Rounded(const Point& p)
{
    return {static_cast<int>(std::floor(p.x + 0.5)), static_cast<int>(std::floor(p.y + 0.5))};
}

bool AreOrdinary(const std::vector<wxPoint>& points)
{
    unsigned all = 0;
    for (const wxPoint& p : points)
        all |= Excess(p.x) | Excess(p.y);
    return all == 0;
}

// What of the lines lies inside; where they leave and come back is the only end between them.
void DrawCut(wxDC& dc, const Sides& sides, const Points& points)
{
    std::vector<wxPoint> run;
    const auto draw = [&] {
        if (run.size() > 1)
            gtkport::DrawLines(dc, static_cast<int>(run.size()), run.data());
        run.clear();
    };
    for (std::size_t i = 1; i < points.size(); ++i) {
        Point from = points[i - 1], to = points[i];
        if (!Cut(sides, from, to))
            continue;
        if (run.empty() || run.back() != Rounded(from)) {
            draw();
            run.push_back(Rounded(from));
        }
        run.push_back(Rounded(to));
    }
    draw();
}

Point Middle(const Point& a, const Point& b)
{
    return {(a.x + b.x) / 2, (a.y + b.y) / 2};
}

// The curve from a to c with the control point b, as lines where it can come near the bounds; without its
// beginning. Each halving divides the bend by four.
void Flatten(const Sides& sides, const Point& a, const Point& b, const Point& c, Points& lines)
{
    const bool beside = std::any_of(sides.begin(), sides.end(), [&](const Side& side) {
        return side.Depth(a) < 0 && side.Depth(b) < 0 && side.Depth(c) < 0;
    });
    const double bend = std::max(std::fabs(a.x - 2 * b.x + c.x), std::fabs(a.y - 2 * b.y + c.y));
    if (beside || bend < 2) {
        lines.push_back(c);
        return;
    }
    const Point first = Middle(a, b), second = Middle(b, c), middle = Middle(first, second);
    Flatten(sides, a, first, middle, lines);
    Flatten(sides, middle, second, c, lines);
}

} // namespace

bool CanMakePicture(double width, double height)
{
    return IsPictureSize(width, height) && gtkport::DisplayIsOpen();
}

CDeviceBounds::CDeviceBounds(const wxDC& dc)
{
    const wxRect seen = gtkport::VisibleArea(dc);
    const auto end = [](int seenEnd) { return std::min(seenEnd + around, std::max(seenEnd, last)); };
    m_area = {seen.x - around, seen.y - around, end(seen.x + seen.width), end(seen.y + seen.height)};
}

void DrawLines(wxDC& dc, const std::vector<wxPoint>& points)
{
    if (AreOrdinary(points))
        gtkport::DrawLines(dc, static_cast<int>(points.size()), points.data());
    else
        DrawCut(dc, SidesOf(dc), Exactly(points));
}

void DrawLine(wxDC& dc, const point<int>& from, const point<int>& to)
{
    const wxPoint ends[] = {{from.x, from.y}, {to.x, to.y}};
    if (IsOrdinary(from.x, from.y, to.x, to.y))
        gtkport::DrawLines(dc, 2, ends);
    else
        DrawCut(dc, SidesOf(dc), {Point(from.x, from.y), Point(to.x, to.y)});
}

// As wx draws it: straight to the middle of the first side and from that of the last, and between the middles
// curves with the corners for control points. wx gives up beyond some millions.
void DrawSpline(wxDC& dc, const std::vector<wxPoint>& points)
{
    if (AreOrdinary(points)) {
        gtkport::DrawSpline(dc, static_cast<int>(points.size()), points.data());
        return;
    }
    const Sides sides = SidesOf(dc);
    const Points corners = Exactly(points);
    Points lines = {corners[0], Middle(corners[0], corners[1])};
    for (std::size_t i = 2; i < corners.size(); ++i)
        Flatten(sides, Point(lines.back()), corners[i - 1], Middle(corners[i - 1], corners[i]), lines);
    lines.push_back(corners.back());
    DrawCut(dc, sides, lines);
}

void DrawPolygon(wxDC& dc, const std::vector<wxPoint>& points)
{
    if (AreOrdinary(points)) {
        gtkport::DrawPolygon(dc, static_cast<int>(points.size()), points.data());
        return;
    }
    const Sides sides = SidesOf(dc);
    Points outline = Exactly(points);
    const Points cut = Cut(sides, outline);
    std::vector<wxPoint> inside(cut.size());
    std::transform(cut.begin(), cut.end(), inside.begin(), Rounded);
    const wxPen pen = dc.GetPen();
    dc.SetPen(*wxTRANSPARENT_PEN); // the sides of the bounds are no outline
    gtkport::DrawPolygon(dc, static_cast<int>(inside.size()), inside.data());
    dc.SetPen(pen);
    outline.push_back(Point(outline.front()));
    DrawCut(dc, sides, outline);
}

bool CanBeSeen(const wxDC& dc, int x, int y, int width, int height)
{
    if (IsOrdinary(x, y))
        return true;
    const wxRect seen = gtkport::VisibleArea(dc);
    const auto meet = [](long long a, int extentA, long long b, int extentB) {
        return a < b + extentB && b < a + extentA;
    };
    return meet(x, width, seen.x, seen.width) && meet(y, height, seen.y, seen.height);
}

wxImage Scaled(const wxDC& dc, const wxImage& image, const wxSize& wanted, int& x, int& y)
{
    if (wanted.x <= largeImage / wanted.y)
        return image.Scale(wanted.x, wanted.y, wxIMAGE_QUALITY_NORMAL);
    if (!CanBeSeen(dc, x, y, wanted.x, wanted.y))
        return {};
    const wxRect shown = wxRect(wxPoint(x, y), wanted).Intersect(gtkport::VisibleArea(dc));
    if (shown.IsEmpty())
        return {};
    wxImage part(shown.GetSize(), false);
    if (image.HasMask())
        part.SetMaskColour(image.GetMaskRed(), image.GetMaskGreen(), image.GetMaskBlue());
    if (image.HasAlpha())
        part.SetAlpha();
    const auto nearest = [](int at, int from, int to) { return static_cast<int>(1LL * at * from / to); };
    for (int row = 0; row < shown.height; ++row)
        for (int column = 0; column < shown.width; ++column) {
            const int sx = nearest(column + shown.x - x, image.GetWidth(), wanted.x);
            const int sy = nearest(row + shown.y - y, image.GetHeight(), wanted.y);
            part.SetRGB(column, row, image.GetRed(sx, sy), image.GetGreen(sx, sy), image.GetBlue(sx, sy));
            if (image.HasAlpha())
                part.SetAlpha(column, row, image.GetAlpha(sx, sy));
        }
    x = shown.x;
    y = shown.y;
    return part;
}

void Copy(wxDC& to, const rectangle<int>& target, wxDC& from, const point<int>& source,
          wxRasterOperationMode op, bool useMask)
{
    rectangle<int> rect = target;
    point<int> start = source;
    if (!IsOrdinary(rect.left, rect.top, rect.right, rect.bottom, start.x, start.y)) {
        const wxRect seen = gtkport::VisibleArea(to), there = gtkport::VisibleArea(from);
        const auto cut = [](int& low, int& high, int& begin, int seenLow, int seenExtent, int thereLow,
                            int thereExtent) {
            const long long shift = static_cast<long long>(low) - begin;
            const long long first = std::max({shift + begin, shift + thereLow, 0LL + seenLow});
            const long long end =
                std::min({0LL + high, shift + thereLow + thereExtent, 0LL + seenLow + seenExtent});
            low = high = begin = 0; // nothing, unless
            if (first < end)
                low = static_cast<int>(first), high = static_cast<int>(end),
                begin = static_cast<int>(first - shift);
        };
        cut(rect.left, rect.right, start.x, seen.x, seen.width, there.x, there.width);
        cut(rect.top, rect.bottom, start.y, seen.y, seen.height, there.y, there.height);
    }
    if (!rect.IsEmpty())
        gtkport::Blit(to, wxRect(rect.left, rect.top, rect.Width(), rect.Height()), from,
                      wxPoint(start.x, start.y), op, useMask);
}

} // namespace vela7
