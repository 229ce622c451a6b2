/// Draws with everything that the painter offers, directly or buffered, and follows the mouse.

#include "shape_cards.h"

namespace gallery {

using namespace vela7;

namespace {

class ShapesPage : public CardPage
{
public:
    explicit ShapesPage(ISysWindow& window) : CardPage(window) { window.SetCursor(crCross); }

    void OnMouseRelease(CMouseEvent* event) override
    {
        if (event->button == mbLeft)
            ToggleMode();
    }
    void OnChar(CKeyboardEvent* event) override
    {
        if (event->character == 'b' || event->character == 'B')
            ToggleMode();
    }

private:
    const std::vector<Card>& Cards() const override { return ShapeCards(); }
    StdSettings PaintSettings() const override { return m_buffered ? ssBuffered : ssClear; }
    Status GetStatus() const override
    {
        if (m_buffered)
            return {"Buffered",
                    "A click or the key B draws directly instead; move the mouse to see the difference."};
        return {"Direct", "A click or the key B draws through a buffer again, without the flicker."};
    }
    void DrawOverlay(IPainter& painter, const Box& client, const Style& style) override
    {
        if (IsMouseInside())
            DrawCrossHair(painter, client, style);
    }
    void ToggleMode()
    {
        m_buffered = !m_buffered;
        Repaint();
    }
    void DrawCrossHair(IPainter& painter, const Box& client, const Style& style) const;

    bool m_buffered = true;
};

void ShapesPage::DrawCrossHair(IPainter& painter, const Box& client, const Style& style) const
{
    const point<int>& at = Mouse();
    painter.SetPen({style.accent, 1, psSolid});
    Line(painter, client.left, at.y, client.right, at.y);
    Line(painter, at.x, client.top, at.x, client.bottom);

    const std::string text = std::to_string(at.x) + ", " + std::to_string(at.y);
    const size<double> extent = painter.GetTextSize(text);
    const double width = extent.width + 12, height = extent.height + 6;
    const double left = at.x + 8 + width > client.right ? at.x - 8 - width : at.x + 8;
    const double top = at.y - 8 - height < client.top ? at.y + 8 : at.y - 8 - height;
    painter.SetPen({style.accent, 1, psSolid});
    painter.SetBrush({style.info, bsSolid});
    painter.Rectangle(left, top, left + width, top + height);
    Text(painter, left + 6, top + 3, text, style.infoText);
}

} // namespace

std::unique_ptr<Page> CreateShapesPage(ISysWindow& window)
{
    return std::make_unique<ShapesPage>(window);
}

} // namespace gallery
