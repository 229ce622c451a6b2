// The drawing operations of IPainter: each converts its coordinates and calls the back-end.

#include "vela7/painter.h"

#include "textlayout.h"
#include "vela7/xpm.h"

#include <algorithm>
#include <cmath>

namespace vela7 {

namespace {

int TextLength(const std::string& text, int length)
{
    const int size = static_cast<int>(text.size());
    return length < 0 ? size : std::min(length, size);
}

// Where something of this extent begins between two borders.
int Aligned(int low, int high, int extent, bool center, bool far)
{
    if (center)
        return low + (high - low - extent) / 2;
    return far ? high - extent : low;
}

} // namespace

// Calls an operation with a converted rectangle; outside a paint bracket nothing.
template <class... Params, class... Args>
void IPainter::OnRect(void (IPainter::*operation)(int, int, int, int, Params...), double l, double t,
                      double r, double b, const Args&... args)
{
    if (!m_enabled)
        return;
    const DeviceRect d = ToDevice(l, t, r, b);
    (this->*operation)(d.l, d.t, d.r, d.b, args...);
}

_color IPainter::SetPixel(double x, double y, const _color& color)
{
    if (!m_enabled)
        return {};
    return internalSetPixel(DeviceX(x), DeviceY(y), Tint(color));
}

_color IPainter::GetPixel(double x, double y)
{
    return m_enabled ? internalGetPixel(DeviceX(x), DeviceY(y)) : _color();
}

void IPainter::MoveTo(double x, double y)
{
    if (!m_enabled)
        return;
    internalMoveTo(DeviceX(x), DeviceY(y));
    if (DoSetLastCoord())
        m_last = {x, y};
}

void IPainter::LineTo(double x, double y)
{
    if (!m_enabled)
        return;
    internalLineTo(DeviceX(x), DeviceY(y));
    if (DoSetLastCoord())
        m_last = {x, y};
}

point<double> IPainter::GetCurrentPos()
{
    if (!m_enabled || DoSetLastCoord())
        return m_last;
    const point<int> device = internalGetCurrentPos();
    point<double> logical(device.x, device.y);
    ConvertCoord1(&logical, true);
    return logical;
}

void IPainter::FillRect(double l, double t, double r, double b)
{
    OnRect(&IPainter::internalFillRect, l, t, r, b);
}

void IPainter::Rectangle(double l, double t, double r, double b)
{
    OnRect(&IPainter::internalRectangle, l, t, r, b);
}

void IPainter::FocusRect(double l, double t, double r, double b)
{
    OnRect(&IPainter::internalFocusRect, l, t, r, b);
}

void IPainter::Ellipse(double l, double t, double r, double b)
{
    OnRect(&IPainter::internalEllipse, l, t, r, b);
}

void IPainter::RoundRect(double l, double t, double r, double b, double ew, double eh)
{
    OnRect(&IPainter::internalRoundRect, l, t, r, b, DeviceWidth(ew), DeviceHeight(eh));
}

void IPainter::Arc(double l, double t, double r, double b, int start, int end)
{
    OnRect(&IPainter::internalArc, l, t, r, b, start, end);
}

void IPainter::Chord(double l, double t, double r, double b, int start, int end)
{
    OnRect(&IPainter::internalChord, l, t, r, b, start, end);
}

void IPainter::Pie(double l, double t, double r, double b, int start, int end)
{
    OnRect(&IPainter::internalPie, l, t, r, b, start, end);
}

void IPainter::PolyLine(const point<double>* points, int count, int first, int last)
{
    if (m_enabled && points && count > 0)
        internalPolyLine(ToDevice(points, count), count, first, last);
}

void IPainter::PolyBezier(const point<double>* points, int count, int first, int last)
{
    if (m_enabled && points && count > 0)
        internalPolyBezier(ToDevice(points, count), count, first, last);
}

void IPainter::Polygon(const point<double>* points, int count)
{
    if (m_enabled && points && count > 0)
        internalPolygon(ToDevice(points, count), count);
}

void IPainter::GradientH(double l, double t, double r, double b, const _color& from, const _color& to,
                         unsigned long steps)
{
    OnRect(&IPainter::internalGradientH, l, t, r, b, Tint(from), Tint(to), steps);
}

void IPainter::GradientV(double l, double t, double r, double b, const _color& from, const _color& to,
                         unsigned long steps)
{
    OnRect(&IPainter::internalGradientV, l, t, r, b, Tint(from), Tint(to), steps);
}

void IPainter::SemiFillRect(double l, double t, double r, double b, const _color& color)
{
    OnRect(&IPainter::internalSemiFillRect, l, t, r, b, Tint(color));
}

// ---- text

void IPainter::DrawString(double x, double y, const std::string& text, int length)
{
    if (m_enabled)
        internalDrawString(DeviceX(x), DeviceY(y), text.c_str(), TextLength(text, length));
}

size<double> IPainter::GetTextSize(const std::string& text, const font* with, int length)
{
    if (!m_enabled)
        return {};
    return ToLogical(internalGetTextSize(text.c_str(), with, TextLength(text, length)));
}

point<int> IPainter::MeasureDevice(const std::string& text)
{
    return internalGetTextSize(text.c_str(), nullptr, static_cast<int>(text.size()));
}

// A width and a height in logical units.
size<double> IPainter::ToLogical(const point<int>& extent) const
{
    size<double> logical(extent.x, extent.y);
    if (m_convert && m_sx != 0.0 && m_sy != 0.0) {
        logical.width /= std::fabs(m_sx);
        logical.height /= std::fabs(m_sy);
    }
    return logical;
}

size<double> IPainter::DrawStringEx(const std::string& text, const rectangle<double>& area, unsigned format,
                                    int length, const char* breakSet)
{
    const std::string shown = text.substr(0, static_cast<std::size_t>(TextLength(text, length)));
    if (!m_enabled || shown.empty())
        return {};
    const TextLayout layout([this](const std::string& piece) { return MeasureDevice(piece).x; },
                            breakSet ? breakSet : "");
    const int room = DeviceWidth(area.Width());
    const std::vector<TextLine> lines = (format & tfSingleLine)
                                            ? layout.Single(shown, room, (format & tfEndEllipsis) != 0)
                                            : layout.Wrap(shown, room);
    fontmetrics metrics;
    internalGetFontMetrics(&metrics);
    const int lineHeight = metrics.height + metrics.externalLeading;
    const int height = lineHeight * static_cast<int>(lines.size());
    int width = 0;
    for (const TextLine& line : lines)
        width = std::max(width, line.width);
    if (!(format & tfMeasureOnly)) {
        const DeviceRect d = ToDevice(area.left, area.top, area.right, area.bottom);
        int y = Aligned(d.t, d.b, height, format & tfVCenter, format & tfBottom);
        for (const TextLine& line : lines) {
            const int x = Aligned(d.l, d.r, line.width, format & tfHCenter, format & tfRight);
            internalDrawString(x, y, line.text.c_str(), static_cast<int>(line.text.size()));
            y += lineHeight;
        }
    }
    return ToLogical({width, height});
}

void IPainter::GetFontMetrics(fontmetrics* metrics)
{
    if (metrics)
        *metrics = fontmetrics();
    if (m_enabled)
        internalGetFontMetrics(metrics);
}

// ---- pictures

void IPainter::DrawXPM(const XPMImage& image, double x, double y, int cx, int cy, int w, int h, double scale,
                       RasterOperation op)
{
    if (m_enabled)
        internalDrawXPM(image, DeviceX(x), DeviceY(y), cx, cy, w, h, scale, op);
}

void IPainter::DrawRasterPicture(IRasterPicture* picture, double l, double t, double r, double b,
                                 RasterOperation op)
{
    if (!m_enabled)
        return;
    const DeviceRect d = ToDevice(l, t, r, b);
    internalDrawRasterPicture(picture, d.l, d.t, d.r, d.b, op);
}

void IPainter::DrawRasterPictureEx(IRasterPicture* picture, const rectangle<int>& source,
                                   const rectangle<double>& target, RasterOperation op)
{
    if (!m_enabled)
        return;
    const DeviceRect d = ToDevice(target.left, target.top, target.right, target.bottom);
    internalDrawRasterPictureEx(picture, source.left, source.top, source.right, source.bottom, d.l, d.t, d.r,
                                d.b, op);
}

void IPainter::ExtractRasterPicture(IRasterPicture* picture, double l, double t, double r, double b)
{
    if (!m_enabled)
        return;
    const DeviceRect d = ToDevice(l, t, r, b);
    internalExtractRasterPicture(picture, d.l, d.t, d.r, d.b);
}

void IPainter::ExtractRasterPictureEx(IRasterPicture* picture, const rectangle<int>& target,
                                      const rectangle<double>& source)
{
    if (!m_enabled)
        return;
    const DeviceRect d = ToDevice(source.left, source.top, source.right, source.bottom);
    internalExtractRasterPictureEx(picture, target.left, target.top, target.right, target.bottom, d.l, d.t,
                                   d.r, d.b);
}

void IPainter::AlphaBlend(double l, double t, double r, double b, IRasterPicture* picture, int transparency)
{
    using Blend = void (IPainter::*)(int, int, int, int, IRasterPicture*, int);
    OnRect(static_cast<Blend>(&IPainter::internalAlphaBlend), l, t, r, b, picture, transparency);
}

void IPainter::AlphaBlend(double l, double t, double r, double b, IRasterPicture* picture,
                          unsigned char* transparencies)
{
    using Blend = void (IPainter::*)(int, int, int, int, IRasterPicture*, unsigned char*);
    OnRect(static_cast<Blend>(&IPainter::internalAlphaBlend), l, t, r, b, picture, transparencies);
}

void IPainter::DrawControlElement(ControlElement element, double l, double t, double r, double b, int state)
{
    if (!m_enabled)
        return;
    const DeviceRect d = ToDevice(l, t, r, b);
    internalDrawControlElement(element, d.l, d.t, d.r, d.b, state);
}

} // namespace vela7
