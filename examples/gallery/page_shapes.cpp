/// Draws with everything that the painter offers, directly or buffered, and follows the mouse.

#include "page.h"
#include "shape_cards.h"

#include <cmath>

namespace gallery {

using namespace vela7;

namespace {

constexpr double kMargin = 16, kGap = 12, kPadding = 12;
constexpr double kMinCardWidth = 240, kMinCardHeight = 160;

class ShapesPage : public Page,
                   CSubscriber<IDrawingNotify>,
                   CSubscriber<IMouseNotify>,
                   CSubscriber<IKeyboardNotify>,
                   CSubscriber<IWindowNotify>
{
public:
    explicit ShapesPage(ISysWindow& window) : m_window(window)
    {
        Subscribe<IDrawingNotify>(window, this);
        Subscribe<IMouseNotify>(window, this);
        Subscribe<IKeyboardNotify>(window, this);
        Subscribe<IWindowNotify>(window, this);
        window.SetCursor(crCross);
    }

    void OnDraw(CDrawEvent* event) override;
    void OnMouseRelease(CMouseEvent* event) override
    {
        if (event->button == mbLeft)
            ToggleMode();
    }
    void OnMouseMove(CMouseEvent* event) override { Follow(event->position, true); }
    void OnMouseEnter(CMouseEvent* event) override { Follow(event->position, true); }
    void OnMouseLeave(CMouseEvent* event) override { Follow(event->position, false); }
    void OnMouseWheel(CMouseWheelEvent* event) override
    {
        m_scroll.By(-20.0 * event->delta);
        InvalidateAll(m_window);
    }
    void OnChar(CKeyboardEvent* event) override
    {
        if (event->character == 'b' || event->character == 'B')
            ToggleMode();
    }
    void OnSysColorChanged(CEvent*) override { InvalidateAll(m_window); }

private:
    void ToggleMode()
    {
        m_buffered = !m_buffered;
        InvalidateAll(m_window);
    }
    void Follow(const point<int>& mouse, bool inside)
    {
        m_mouse = mouse;
        m_inside = inside;
        InvalidateAll(m_window);
    }
    void DrawCards(IPainter& painter, const Box& view, const Style& style);
    void DrawCrossHair(IPainter& painter, const Box& client, const Style& style) const;
    void DrawStatus(IPainter& painter, const Box& bar, const Style& style) const;

    ISysWindow& m_window;
    Scroll m_scroll;
    point<int> m_mouse;
    bool m_inside = false;
    bool m_buffered = true;
};

void DrawCard(IPainter& painter, const Box& box, const ShapeCard& card, const Style& style)
{
    painter.SetPen({style.line, 1, psSolid});
    painter.SetBrush({style.shade, bsSolid});
    painter.RoundRect(box.left, box.top, box.right, box.bottom, 5, 5);
    const double title = LineHeight(painter);
    painter.SetFont(UiFont(fsBold));
    Text(painter, box.left + kPadding, box.top + 8, card.title, style.text);
    painter.SetFont(UiFont());
    const Box area{box.left + kPadding, box.top + title + 18, box.right - kPadding, box.bottom - kPadding};
    card.draw(painter, area, style);
}

void ShapesPage::DrawCards(IPainter& painter, const Box& view, const Style& style)
{
    const auto& cards = ShapeCards();
    const int count = int(cards.size());
    const double width = view.Width() + kGap;
    const int columns = std::clamp(int(width / (kMinCardWidth + kGap)), 1, 3);
    const int rows = (count + columns - 1) / columns;
    // Whole pixels: the shapes of equal cards look equal.
    const double cardWidth = std::max(kMinCardWidth, std::floor(width / columns - kGap));
    const double cardHeight = std::max(kMinCardHeight, std::floor((view.Height() + kGap) / rows - kGap));
    m_scroll.SetExtent(rows * (cardHeight + kGap) - kGap, view.Height());
    for (int i = 0; i < count; ++i) {
        const double left = view.left + (i % columns) * (cardWidth + kGap);
        const double top = view.top + (i / columns) * (cardHeight + kGap) - m_scroll.Top();
        if (top < view.bottom && top + cardHeight > view.top)
            DrawCard(painter, {left, top, left + cardWidth, top + cardHeight}, cards[i], style);
    }
}

void ShapesPage::DrawCrossHair(IPainter& painter, const Box& client, const Style& style) const
{
    painter.SetPen({style.accent, 1, psSolid});
    painter.MoveTo(client.left, m_mouse.y);
    painter.LineTo(client.right, m_mouse.y);
    painter.MoveTo(m_mouse.x, client.top);
    painter.LineTo(m_mouse.x, client.bottom);

    const std::string text = std::to_string(m_mouse.x) + ", " + std::to_string(m_mouse.y);
    const size<double> extent = painter.GetTextSize(text);
    const double width = extent.width + 12, height = extent.height + 6;
    const double left = m_mouse.x + 8 + width > client.right ? m_mouse.x - 8 - width : m_mouse.x + 8;
    const double top = m_mouse.y - 8 - height < client.top ? m_mouse.y + 8 : m_mouse.y - 8 - height;
    painter.SetPen({style.accent, 1, psSolid});
    painter.SetBrush({style.info, bsSolid});
    painter.Rectangle(left, top, left + width, top + height);
    Text(painter, left + 6, top + 3, text, style.infoText);
}

void ShapesPage::DrawStatus(IPainter& painter, const Box& bar, const Style& style) const
{
    Fill(painter, bar, style.face);
    HLine(painter, bar.left, bar.right, bar.top, style.line);
    const double y = bar.top + (bar.Height() - LineHeight(painter)) / 2;
    const std::string mode = m_buffered ? "Buffered" : "Direct";
    painter.SetFont(UiFont(fsBold));
    Text(painter, bar.left + kMargin, y, mode, style.text);
    const double next = bar.left + kMargin + painter.GetTextSize(mode).width + 12;
    painter.SetFont(UiFont());
    Text(painter, next, y,
         m_buffered ? "A click or the key B draws directly instead; move the mouse to see the difference."
                    : "A click or the key B draws through a buffer again, without the flicker.",
         style.muted);
}

void ShapesPage::OnDraw(CDrawEvent* event)
{
    IPainter& painter = *event->painter;
    const Style style = CurrentStyle();
    painter.SetBackgroundColor(style.window);
    const CPaintScope paint(painter, m_buffered ? ssBuffered : ssClear);
    if (!paint.IsOk())
        return;

    const Box client = ClientBox(m_window);
    const double barHeight = LineHeight(painter) + 12;
    const Box bar{client.left, client.bottom - barHeight, client.right, client.bottom};
    const Box view{client.left + kMargin, client.top + kMargin,
                   std::max(client.left + kMargin, client.right - kMargin),
                   std::max(client.top + kMargin, bar.top - kMargin)};
    DrawCards(painter, view, style);
    m_scroll.Draw(painter, {client.left, client.top, client.right, bar.top}, style.muted);
    if (m_inside)
        DrawCrossHair(painter, client, style);
    DrawStatus(painter, bar, style);
}

} // namespace

std::unique_ptr<Page> CreateShapesPage(ISysWindow& window)
{
    return std::make_unique<ShapesPage>(window);
}

} // namespace gallery
