#include "cards.h"

#include <cmath>

namespace gallery {

using namespace vela7;

namespace {

constexpr double kMargin = 16, kGap = 12, kPadding = 12;
constexpr double kMinCardWidth = 240, kMinCardHeight = 160;
constexpr int kMaxColumns = 3;

} // namespace

void DrawCard(IPainter& painter, const Box& box, const Card& card, const Style& style)
{
    painter.SetPen({style.line, 1, psSolid});
    painter.SetBrush({style.shade, bsSolid});
    painter.RoundRect(box.left, box.top, box.right, box.bottom, 5, 5);
    const double title = LineHeight(painter);
    painter.SetFont(UiFont(fsBold));
    Text(painter, box.left + kPadding, box.top + 8, card.title, style.text);
    painter.SetFont(UiFont());
    const Box area{box.left + kPadding, box.top + title + 18, box.right - kPadding, box.bottom - kPadding};
    const ClipScope clip(painter, Shrunk(box, 1)); // a small card does not have room for everything
    card.draw(painter, area, style);
    painter.SetFont(UiFont());
}

Box Column(const Box& area, int index, int columns, double gap)
{
    const double width = (area.Width() - gap * (columns - 1)) / columns;
    const double left = area.left + index * (width + gap);
    return {left, area.top, left + width, area.bottom};
}

Box Row(const Box& area, int index, int rows, double gap)
{
    const double height = (area.Height() - gap * (rows - 1)) / rows;
    const double top = area.top + index * (height + gap);
    return {area.left, top, area.right, top + height};
}

Box Cell(const Box& area, int index, int columns, int rows, double gap)
{
    return Column(Row(area, index / columns, rows, gap), index % columns, columns, gap);
}

Box Square(const Box& area)
{
    const double half = std::min(area.Width(), area.Height()) / 2;
    const double x = (area.left + area.right) / 2, y = (area.top + area.bottom) / 2;
    return {x - half, y - half, x + half, y + half};
}

Box Shrunk(const Box& box, double by)
{
    return {box.left + by, box.top + by, box.right - by, box.bottom - by};
}

void Line(IPainter& painter, double x1, double y1, double x2, double y2)
{
    painter.MoveTo(x1, y1);
    painter.LineTo(x2, y2);
}

void Frame(IPainter& painter, const Box& box, const _color& color)
{
    painter.SetPen({color, 1, psSolid});
    painter.SetBrush({color, bsNone});
    painter.Rectangle(box);
}

void CenteredText(IPainter& painter, const Box& box, const std::string& text, const _color& color)
{
    painter.SetTextColor(color);
    painter.DrawStringEx(text, box, tfSingleLine | tfHCenter | tfVCenter);
}

void DrawChecks(IPainter& painter, const Box& box)
{
    constexpr double side = 6;
    Fill(painter, box, {236, 236, 236});
    for (int row = 0; box.top + row * side < box.bottom; ++row)
        for (int column = row % 2; box.left + column * side < box.right; column += 2) {
            const Box square = Box(box.left + column * side, box.top + row * side,
                                   box.left + (column + 1) * side, box.top + (row + 1) * side)
                                   .Intersect(box);
            Fill(painter, square, {200, 200, 200});
        }
}

double StatusBarHeight(IPainter& painter)
{
    return LineHeight(painter) + 12;
}

void DrawStatusBar(IPainter& painter, const Box& bar, const Status& status, const Style& style)
{
    Fill(painter, bar, style.face);
    HLine(painter, bar.left, bar.right, bar.top, style.line);
    const double y = bar.top + (bar.Height() - LineHeight(painter)) / 2;
    double x = bar.left + kMargin;
    if (!status.mode.empty()) {
        painter.SetFont(UiFont(fsBold));
        Text(painter, x, y, status.mode, style.text);
        x += painter.GetTextSize(status.mode).width + 12;
    }
    painter.SetFont(UiFont());
    Text(painter, x, y, status.hint, style.muted);
}

CardPage::CardPage(ISysWindow& window) : m_window(window)
{
    Subscribe<IDrawingNotify>(window, this);
    Subscribe<IMouseNotify>(window, this);
    Subscribe<IKeyboardNotify>(window, this);
    Subscribe<IWindowNotify>(window, this);
}

void CardPage::Follow(const point<int>& mouse, bool inside)
{
    m_mouse = mouse;
    m_inside = inside;
    Repaint();
}

void CardPage::OnMouseWheel(CMouseWheelEvent* event)
{
    m_scroll.By(-20.0 * event->delta);
    Repaint();
}

void CardPage::DrawCards(IPainter& painter, const Box& view, const Style& style)
{
    const std::vector<Card>& cards = Cards();
    const int count = int(cards.size());
    const double width = view.Width() + kGap;
    const int columns = std::clamp(int(width / (kMinCardWidth + kGap)), 1, kMaxColumns);
    const int rows = (count + columns - 1) / columns;
    // Whole pixels: the drawings of equal cards look equal.
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

void CardPage::OnDraw(CDrawEvent* event)
{
    IPainter& painter = *event->painter;
    const Style style = CurrentStyle();
    painter.SetBackgroundColor(style.window);
    const CPaintScope paint(painter, PaintSettings());
    if (!paint.IsOk())
        return;

    const Box client = ClientBox(m_window);
    const Box bar{client.left, client.bottom - StatusBarHeight(painter), client.right, client.bottom};
    const Box view{client.left + kMargin, client.top + kMargin,
                   std::max(client.left + kMargin, client.right - kMargin),
                   std::max(client.top + kMargin, bar.top - kMargin)};
    DrawCards(painter, view, style);
    m_scroll.Draw(painter, {client.left, client.top, client.right, bar.top}, style.muted);
    DrawOverlay(painter, client, style);
    DrawStatusBar(painter, bar, GetStatus(), style);
}

} // namespace gallery
