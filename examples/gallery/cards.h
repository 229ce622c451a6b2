/// Pages made of cards: a grid of framed drawings with titles, and a status bar below it.
#pragma once

#include "page.h"
#include "style.h"

#include <functional>

namespace gallery {

struct Card
{
    const char* title;
    std::function<void(vela7::IPainter& painter, const Box& area, const Style& style)> draw;
};

/// Frame and title around what the card draws.
void DrawCard(vela7::IPainter& painter, const Box& box, const Card& card, const Style& style);
/// One of `columns` equal parts of a box, with a gap between them.
Box Column(const Box& area, int index, int columns, double gap = 16);
Box Row(const Box& area, int index, int rows, double gap = 12);
/// Counted row by row.
Box Cell(const Box& area, int index, int columns, int rows, double gap = 12);
/// The largest square in the middle of a box.
Box Square(const Box& area);
Box Shrunk(const Box& box, double by);
void Line(vela7::IPainter& painter, double x1, double y1, double x2, double y2);
/// One pixel wide; nothing inside it changes.
void Frame(vela7::IPainter& painter, const Box& box, const vela7::_color& color);
/// A line of text in the middle of a box.
void CenteredText(vela7::IPainter& painter, const Box& box, const std::string& text,
                  const vela7::_color& color);
/// The grey squares that stand behind what one can see through.
void DrawChecks(vela7::IPainter& painter, const Box& box);

/// Clips to a box as well, until the end of the scope.
class ClipScope
{
public:
    ClipScope(vela7::IPainter& painter, const Box& box) : m_painter(painter), m_before(painter.GetClipRect())
    {
        painter.SetClipRect(box.left, box.top, box.right, box.bottom);
    }
    ~ClipScope()
    {
        m_painter.CancelClipping();
        if (!m_before.IsNull())
            m_painter.SetClipRect(m_before.left, m_before.top, m_before.right, m_before.bottom);
    }
    ClipScope(const ClipScope&) = delete;
    ClipScope& operator=(const ClipScope&) = delete;

private:
    vela7::IPainter& m_painter;
    Box m_before;
};

/// What the status bar of a page says.
struct Status
{
    std::string mode; ///< bold; may be empty
    std::string hint;
};
double StatusBarHeight(vela7::IPainter& painter);
void DrawStatusBar(vela7::IPainter& painter, const Box& bar, const Status& status, const Style& style);

/// A page of up to three columns of cards. It is painted anew when the mouse moves.
class CardPage : public Page,
                 protected vela7::CSubscriber<vela7::IDrawingNotify>,
                 protected vela7::CSubscriber<vela7::IMouseNotify>,
                 protected vela7::CSubscriber<vela7::IKeyboardNotify>,
                 protected vela7::CSubscriber<vela7::IWindowNotify>
{
public:
    explicit CardPage(vela7::ISysWindow& window);

    void OnDraw(vela7::CDrawEvent* event) override;
    void OnMouseMove(vela7::CMouseEvent* event) override { Follow(event->position, true); }
    void OnMouseEnter(vela7::CMouseEvent* event) override { Follow(event->position, true); }
    void OnMouseLeave(vela7::CMouseEvent* event) override { Follow(event->position, false); }
    void OnMouseWheel(vela7::CMouseWheelEvent* event) override;
    void OnSysColorChanged(vela7::CEvent*) override { Repaint(); }

protected:
    virtual const std::vector<Card>& Cards() const = 0;
    virtual Status GetStatus() const = 0;
    /// Above the cards.
    virtual void DrawOverlay(vela7::IPainter&, const Box& /*client*/, const Style&) {}
    virtual vela7::StdSettings PaintSettings() const { return vela7::ssBuffered; }

    void Repaint() { InvalidateAll(m_window); }
    bool IsMouseInside() const { return m_inside; }
    const vela7::point<int>& Mouse() const { return m_mouse; }
    vela7::ISysWindow& Window() { return m_window; }

private:
    void Follow(const vela7::point<int>& mouse, bool inside);
    void DrawCards(vela7::IPainter& painter, const Box& view, const Style& style);

    vela7::ISysWindow& m_window;
    Scroll m_scroll;
    vela7::point<int> m_mouse;
    bool m_inside = false;
};

} // namespace gallery
