/// What the pages have in common: colours made from the system's, fonts, and how far a page is scrolled.
#pragma once

#include "vela7/painter.h"
#include "vela7/window.h"

#include <string>

namespace gallery {

using Box = vela7::rectangle<double>;

// clang-format off
// Fixed colours that read well on light and on dark windows.
constexpr vela7::_color clSea   { 58, 123, 213};
constexpr vela7::_color clAmber {230, 140,  48};
constexpr vela7::_color clLeaf  { 63, 166, 107};
constexpr vela7::_color clPlum  {142,  91, 192};
constexpr vela7::_color clRose  {214,  69,  80};
constexpr vela7::_color clSlate {110, 122, 138};
// clang-format on

/// The colours of a page, from the system palette. Cheap: pages ask for it in each paint, so that they follow
/// the desktop's theme.
struct Style
{
    vela7::_color window, text, face, accent, accentText, info, infoText;
    vela7::_color muted; ///< text of less weight
    vela7::_color line;  ///< thin separators and frames
    vela7::_color shade; ///< a background that differs just a little
};
Style CurrentStyle();

/// share 0 = a .. 1 = b.
vela7::_color Mix(const vela7::_color& a, const vela7::_color& b, double share);

/// The system's font, changed: FontStyle bits, a factor on the size.
vela7::font UiFont(unsigned style = 0, double scale = 1.0);
/// Of a line of text in the painter's font.
double LineHeight(vela7::IPainter& painter);
void Text(vela7::IPainter& painter, double x, double y, const std::string& text, const vela7::_color& color);
/// A one-pixel line without end caps.
void HLine(vela7::IPainter& painter, double l, double r, double y, const vela7::_color& color);
void Fill(vela7::IPainter& painter, const Box& box, const vela7::_color& color);
void InvalidateAll(vela7::ISysWindow& window);
Box ClientBox(const vela7::ISysWindow& window);

/// How far content that is higher than its view is scrolled.
class Scroll
{
public:
    /// staysAtEnd: once at the end, it stays there while content is added.
    explicit Scroll(bool staysAtEnd = false) : m_staysAtEnd(staysAtEnd), m_atEnd(staysAtEnd) {}

    void SetExtent(double content, double view);
    void By(double distance);

    double Top() const { return m_top; }
    bool IsNeeded() const { return m_content > m_view; }
    /// A slim position mark along the right edge of the view.
    void Draw(vela7::IPainter& painter, const Box& view, const vela7::_color& color) const;

private:
    double Limit() const;

    double m_content = 0, m_view = 0, m_top = 0;
    bool m_staysAtEnd;
    bool m_atEnd;
};

} // namespace gallery
