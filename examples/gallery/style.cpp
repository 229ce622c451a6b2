#include "style.h"

#include "vela7/palette.h"
#include "vela7/system.h"

#include <cmath>

namespace gallery {

using namespace vela7;

Style CurrentStyle()
{
    const ISysPalette& palette = *GetDefaultPalette();
    Style s;
    s.window = palette.GetSystemColor(ISysPalette::scWindow);
    s.text = palette.GetSystemColor(ISysPalette::scWindowText);
    s.face = palette.GetSystemColor(ISysPalette::scButtonFace);
    s.accent = palette.GetSystemColor(ISysPalette::scHighlight);
    s.accentText = palette.GetSystemColor(ISysPalette::scHighlightText);
    s.info = palette.GetSystemColor(ISysPalette::scInfoBackground);
    s.infoText = palette.GetSystemColor(ISysPalette::scInfoText);
    s.muted = Mix(s.window, s.text, 0.6);
    s.line = Mix(s.window, s.text, 0.16);
    s.shade = Mix(s.window, s.text, 0.035);
    return s;
}

_color Mix(const _color& a, const _color& b, double share)
{
    const auto channel = [share](int from, int to) {
        return static_cast<unsigned char>(std::lround(from + (to - from) * share));
    };
    return {channel(a.red, b.red), channel(a.green, b.green), channel(a.blue, b.blue)};
}

font UiFont(unsigned style, double scale)
{
    const ISystem* const system = GetCurrentSystem();
    font f = system ? system->GetDefaultFont() : font();
    f.style = style;
    f.scale = scale;
    return f;
}

double LineHeight(IPainter& painter)
{
    return painter.GetTextSize("Ag").height;
}

void Text(IPainter& painter, double x, double y, const std::string& text, const _color& color)
{
    painter.SetTextColor(color);
    painter.DrawString(x, y, text);
}

void HLine(IPainter& painter, double l, double r, double y, const _color& color)
{
    Fill(painter, {l, y, r, y + 1}, color);
}

void Fill(IPainter& painter, const Box& box, const _color& color)
{
    painter.SetBrush({color, bsSolid});
    painter.FillRect(box.left, box.top, box.right, box.bottom);
}

void InvalidateAll(ISysWindow& window)
{
    const rectangle<int> all = window.GetClientRect();
    window.Invalidate(all.left, all.top, all.right, all.bottom);
}

Box ClientBox(const ISysWindow& window)
{
    const rectangle<int> client = window.GetClientRect();
    return Box(client.left, client.top, client.right, client.bottom);
}

double Scroll::Limit() const
{
    return std::max(0.0, m_content - m_view);
}

void Scroll::SetExtent(double content, double view)
{
    m_content = content;
    m_view = view;
    m_top = m_atEnd ? Limit() : std::min(m_top, Limit());
}

void Scroll::By(double distance)
{
    m_top = std::clamp(m_top + distance, 0.0, Limit());
    m_atEnd = m_staysAtEnd && m_top >= Limit();
}

void Scroll::Draw(IPainter& painter, const Box& view, const _color& color) const
{
    if (!IsNeeded() || view.Height() < 24)
        return;
    const double length = std::max(16.0, view.Height() * m_view / m_content);
    const double top = view.top + (view.Height() - length) * m_top / Limit();
    Fill(painter, {view.right - 6, top, view.right - 2, top + length}, color);
}

} // namespace gallery
