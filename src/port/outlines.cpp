#include "port/outlines.h"

#include <wx/version.h>

#if wxCHECK_VERSION(3, 2, 0) // before, X itself does it

#include "port/gtk.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace vela7 {
namespace gtkport {

namespace {

constexpr double degree = 3.14159265358979323846 / 180;

// The pixels of an ellipse, each with its angle. All lengths are doubled, since the middle may lie between
// pixels.
class CEllipse
{
public:
    struct Pixel
    {
        int x, y;
        double angle;
    };

    explicit CEllipse(const wxRect& rect) : m_rect(rect)
    {
        for (int x = 0; x <= rect.width; ++x)
            AddPair(x, Across(x, rect.width, rect.height), true);
        for (int y = 0; y <= rect.height; ++y)
            AddPair(Across(y, rect.height, rect.width), y, false);
    }

    std::vector<Pixel> pixels;

private:
    // Where the curve is nearest to one end, seen from a place between the others.
    static int Across(int at, int along, int across)
    {
        const double part = double(2 * at - along) / along;
        return static_cast<int>(std::floor((across - across * std::sqrt(1 - part * part)) / 2 + 0.5));
    }

    // A pixel and its reflection. Where the curve is steep there is one to each row, else one to each column.
    void AddPair(int x, int y, bool flat)
    {
        const double w = m_rect.width, h = m_rect.height;
        const bool steep = std::fabs(2 * x - w) * h * h > std::fabs(2 * y - h) * w * w;
        if (steep == flat)
            return;
        Add(x, y);
        flat ? Add(x, m_rect.height - y) : Add(m_rect.width - x, y);
    }

    void Add(int x, int y)
    {
        const double angle = std::atan2(double(m_rect.height - 2 * y) / m_rect.height,
                                        double(2 * x - m_rect.width) / m_rect.width);
        pixels.push_back({m_rect.x + x, m_rect.y + y, angle / degree});
    }

    const wxRect m_rect;
};

} // namespace

bool COutline::IsOn()
{
    if (m_dashes.empty())
        return true;
    const bool on = m_dash % 2 == 0;
    if (++m_used >= m_dashes[m_dash]) {
        m_used = 0;
        m_dash = (m_dash + 1) % m_dashes.size();
    }
    return on;
}

void COutline::EndRun()
{
    if (!m_run.IsEmpty())
        cairo_rectangle(m_cr, m_run.x, m_run.y, m_run.width, m_run.height);
    m_run = wxRect();
}

void COutline::AddPixel(int x, int y)
{
    if (!IsOn())
        return;
    const bool inRow = m_run.height == 1 && y == m_run.y && (x == m_run.x - 1 || x == m_run.x + m_run.width);
    const bool inColumn =
        m_run.width == 1 && x == m_run.x && (y == m_run.y - 1 || y == m_run.y + m_run.height);
    if (!inRow && !inColumn) {
        EndRun();
        m_run = wxRect(x, y, 1, 1);
        return;
    }
    inRow ? ++m_run.width : ++m_run.height;
    m_run.x = std::min(m_run.x, x);
    m_run.y = std::min(m_run.y, y);
}

void COutline::AddLine(const wxPoint& from, const wxPoint& to)
{
    const int dx = std::abs(to.x - from.x), dy = std::abs(to.y - from.y);
    const int stepX = from.x < to.x ? 1 : -1, stepY = from.y < to.y ? 1 : -1;
    if (m_dashes.empty() && (dx == 0 || dy == 0)) {
        const int left = stepX > 0 || dx == 0 ? from.x : to.x + 1;
        const int top = stepY > 0 || dy == 0 ? from.y : to.y + 1;
        if (dx != dy)
            cairo_rectangle(m_cr, left, top, std::max(dx, 1), std::max(dy, 1));
        return;
    }
    const bool steep = dy >= dx;
    const int length = std::max(dx, dy), side = std::min(dx, dy);
    // Where two pixels are equally near, X takes the same one for a line and for its reverse.
    const bool biased = steep ? stepY < 0 : stepX < 0;
    int error = -length - (biased ? 1 : 0);
    wxPoint p = from;
    for (int i = 0; i < length; ++i) {
        AddPixel(p.x, p.y);
        steep ? p.y += stepY : p.x += stepX;
        error += 2 * side;
        if (error < 0)
            continue;
        error -= 2 * length;
        steep ? p.x += stepX : p.y += stepY;
    }
}

void COutline::AddLines(const std::vector<wxPoint>& points, bool closed)
{
    for (std::size_t i = 1; i < points.size(); ++i)
        AddLine(points[i - 1], points[i]);
    if (closed && points.size() > 1)
        AddLine(points.back(), points.front());
}

void COutline::AddArc(const wxRect& rect, double start, double extent)
{
    if (rect.width == 0 || rect.height == 0)
        return AddLine(rect.GetPosition(), rect.GetPosition() + rect.GetSize());
    std::vector<CEllipse::Pixel> pixels = CEllipse(rect).pixels;
    const double first = extent < 0 ? start + extent : start, length = std::fabs(extent);
    const auto beyond = [=](double angle) { return angle - first - 360 * std::floor((angle - first) / 360); };
    for (CEllipse::Pixel& pixel : pixels)
        pixel.angle = beyond(pixel.angle);
    if (length < 360)
        pixels.erase(
            std::remove_if(pixels.begin(), pixels.end(), [=](const auto& p) { return p.angle > length; }),
            pixels.end());
    std::sort(pixels.begin(), pixels.end(), [](const auto& a, const auto& b) { return a.angle < b.angle; });
    for (std::size_t i = 0; i < pixels.size(); ++i)
        if (i == 0 || pixels[i].x != pixels[i - 1].x || pixels[i].y != pixels[i - 1].y)
            AddPixel(pixels[i].x, pixels[i].y);
}

namespace {

int Ceiling(double x)
{
    return static_cast<int>(std::ceil(x));
}

} // namespace

void AddPolygon(cairo_t* cr, const std::vector<wxRealPoint>& corners)
{
    double top = corners.empty() ? 0 : corners[0].y, bottom = top;
    for (const wxRealPoint& p : corners)
        top = std::min(top, p.y), bottom = std::max(bottom, p.y);
    std::vector<double> crossings;
    for (int y = Ceiling(top); y < bottom; ++y) {
        crossings.clear();
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const wxRealPoint &a = corners[i], &b = corners[(i + 1) % corners.size()];
            if ((a.y <= y) != (b.y <= y))
                crossings.push_back(a.x + (y - a.y) * (b.x - a.x) / (b.y - a.y));
        }
        std::sort(crossings.begin(), crossings.end());
        for (std::size_t i = 1; i < crossings.size(); i += 2) {
            const int left = Ceiling(crossings[i - 1]), right = Ceiling(crossings[i]);
            if (left < right)
                cairo_rectangle(cr, left, y, right - left, 1);
        }
    }
}

void AddEllipse(cairo_t* cr, const wxRect& rect)
{
    for (int y = 0; y < rect.height; ++y) {
        const double part = 2.0 * y / rect.height - 1;
        const double half = rect.width / 2.0 * std::sqrt(1 - part * part);
        const int left = Ceiling(rect.width / 2.0 - half), right = Ceiling(rect.width / 2.0 + half);
        if (left < right)
            cairo_rectangle(cr, rect.x + left, rect.y + y, right - left, 1);
    }
}

void AddPie(cairo_t* cr, const wxRect& rect, double start, double extent)
{
    if (std::fabs(extent) >= 360)
        return AddEllipse(cr, rect);
    const double a = rect.width / 2.0, b = rect.height / 2.0;
    const wxRealPoint centre(rect.x + a, rect.y + b);
    std::vector<wxRealPoint> corners = {centre};
    const int steps = Ceiling(std::max(a, b) * std::fabs(extent) * degree) + 1; // of a pixel at most
    for (int i = 0; i <= steps; ++i) {
        const double angle = (start + extent * i / steps) * degree;
        corners.emplace_back(centre.x + a * std::cos(angle), centre.y - b * std::sin(angle));
    }
    AddPolygon(cr, corners);
}

} // namespace gtkport
} // namespace vela7

#endif
