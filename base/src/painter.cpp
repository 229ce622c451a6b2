#include "vela7/painter.h"

#include "vela7/palette.h"
#include "vela7/system.h"

#include <algorithm>
#include <cmath>

namespace vela7 {

namespace {

// Rounds half up. What is beyond any device ends where the difference of two coordinates, and that of such a
// difference and an extent, still fit an int; what is no number is 0.
int Round(double v)
{
    constexpr double limit = 0x1fffffff;
    if (std::isnan(v))
        return 0;
    return static_cast<int>(std::clamp(std::floor(v + 0.5), -limit, limit));
}

} // namespace

IPainter::IPainter() = default;
IPainter::~IPainter() = default;

std::uint64_t IPainter::AddRef()
{
    return CBase::AddRef();
}

std::uint64_t IPainter::Release()
{
    return CBase::Release();
}

void IPainter::internalDrawStringNative(const rectangle<int>& area, const std::string& text, int)
{
    internalDrawString(area.left, area.top, text.c_str(), static_cast<int>(text.size()));
}

bool IPainter::BeginPaint(StdSettings settings)
{
    if (m_nesting > 0) {
        ++m_nesting;
        return m_enabled;
    }
    m_retained = false;
    const bool created = CreatePaintDevice(settings);
    m_nesting = 1; // not before: a back-end that throws has opened no bracket
    if (!created)
        return false;
    SetBeginSettings();
    m_enabled = true;
    m_retained = settings == ssBuffered;
    SyncState();
    return true;
}

void IPainter::EndPaint()
{
    if (m_nesting == 0 || --m_nesting > 0)
        return;
    m_enabled = false;
    m_clipped = false;
    internalEndPaint(); // also after a failed begin, which may have made a device
}

void IPainter::EndAllPaints()
{
    m_nesting = std::min(m_nesting, 1);
    EndPaint();
}

// The cached values repeat what SetBeginSettings selected in the device.
void IPainter::SyncState()
{
    const ISysPalette* const palette = m_palette ? m_palette : GetDefaultPalette();
    m_pen = pen{clBlack, 1, psSolid};
    m_brush = brush{palette->GetSystemColor(ISysPalette::scButtonFace), bsNone};
    m_fontKnown = false;
    m_clipped = false;
    m_startScale = (GetDPIAutoScale() & asPainters) ? GetDPIScale() : 1.0;
    ResetTransform();
}

void IPainter::ResetTransform()
{
    m_sx = m_sy = m_startScale;
    m_tx = m_ty = 0.0;
}

void IPainter::Scale(double sx, double sy)
{
    m_sx *= sx;
    m_sy *= sy;
    internalScale(sx, sy);
}

void IPainter::Translate(double dx, double dy)
{
    m_tx += dx * m_sx;
    m_ty += dy * m_sy;
    internalTranslate(dx, dy);
}

void IPainter::ConvertCoord1(point<double>* p, bool toLogical) const
{
    if (!p || !m_convert)
        return;
    if (!toLogical) {
        p->x = p->x * m_sx + m_tx;
        p->y = p->y * m_sy + m_ty;
    } else if (m_sx != 0.0 && m_sy != 0.0) {
        p->x = (p->x - m_tx) / m_sx;
        p->y = (p->y - m_ty) / m_sy;
    }
}

int IPainter::DeviceX(double x) const
{
    return Round(m_convert ? x * m_sx + m_tx : x);
}

int IPainter::DeviceY(double y) const
{
    return Round(m_convert ? y * m_sy + m_ty : y);
}

// Extents: a mirrored painter does not turn them round.
int IPainter::DeviceWidth(double width) const
{
    return Round(m_convert ? width * std::fabs(m_sx) : width);
}

int IPainter::DeviceHeight(double height) const
{
    return Round(m_convert ? height * std::fabs(m_sy) : height);
}

IPainter::DeviceRect IPainter::ToDevice(double l, double t, double r, double b) const
{
    return {DeviceX(l), DeviceY(t), DeviceX(r), DeviceY(b)};
}

const point<int>* IPainter::ToDevice(const point<double>* points, int count)
{
    m_points.resize(static_cast<std::size_t>(count));
    std::transform(points, points + count, m_points.begin(),
                   [this](const point<double>& p) { return point<int>(DeviceX(p.x), DeviceY(p.y)); });
    return m_points.data();
}

_color IPainter::ToGray(const _color& color)
{
    // In whole numbers: with fractions like 0.3 the sum of a gray falls just short of it.
    const auto gray = static_cast<unsigned char>((30 * color.red + 59 * color.green + 11 * color.blue) / 100);
    _color result(gray, gray, gray, color.alpha);
    result.flag = color.flag;
    return result;
}

// ---- state

void IPainter::SetPen(const pen& value)
{
    if (!m_enabled)
        return;
    m_pen = value;
    pen device = value;
    device.color = Tint(value.color);
    if (value.width >= 1 && m_convert)
        device.width = std::max(1, Round(value.width * std::fabs(m_sx)));
    internalSetPen(device);
}

void IPainter::SetBrush(const brush& value)
{
    if (!m_enabled)
        return;
    m_brush = value;
    internalSetBrush(brush{Tint(value.color), value.style});
}

void IPainter::SetFont(const font& value)
{
    if (!m_enabled)
        return;
    m_font = value;
    m_fontKnown = true;
    const double zoom = m_convert ? std::fabs(m_sy) / m_startScale : 1.0;
    if (zoom == 1.0) {
        internalSetFont(m_font);
        return;
    }
    font device = m_font;
    device.scale *= zoom;
    internalSetFont(device);
}

const font& IPainter::GetFont()
{
    if (!m_fontKnown && m_enabled) {
        m_font = internalGetFont();
        m_fontKnown = true;
    }
    return m_font;
}

void IPainter::SetTextColor(const _color& color)
{
    if (m_enabled)
        internalSetTextColor(Tint(color));
}

void IPainter::SetBkColor(const _color& color)
{
    if (m_enabled)
        internalSetBkColor(Tint(color));
}

// ---- clipping

void IPainter::SetClipRect(double l, double t, double r, double b, bool exclude)
{
    if (!m_enabled)
        return;
    const DeviceRect d = ToDevice(l, t, r, b);
    const rectangle<int> added(d.l, d.t, d.r, d.b); // not reversed, wherever the painter is mirrored
    internalSetClipRect(added.left, added.top, added.right, added.bottom, exclude);
    if (exclude)
        return;
    m_clip = m_clipped ? m_clip.Intersect(added) : added;
    m_clipped = true;
}

void IPainter::CancelClipping()
{
    if (!m_enabled)
        return;
    m_clipped = false;
    internalCancelClipping();
}

rectangle<double> IPainter::GetClipRect() const
{
    rectangle<double> result;
    if (!m_clipped)
        return result;
    if (m_clip.IsEmpty()) {
        result.left = result.top = result.right = result.bottom = -1.0;
        return result;
    }
    point<double> first(m_clip.left, m_clip.top);
    point<double> second(m_clip.right, m_clip.bottom);
    ConvertCoord1(&first, true);
    ConvertCoord1(&second, true);
    return {first, second};
}

} // namespace vela7
