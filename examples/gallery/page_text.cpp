/// Text: fonts, angles, lines that wrap in a width that the mouse drags, alignment, ellipses, measures.

#include "text_cards.h"

#include <cmath>

namespace gallery {

using namespace vela7;

namespace {

constexpr double kGrip = 6;
constexpr double kMinWidth = 24;

class TextPage : public CardPage
{
public:
    explicit TextPage(ISysWindow& window)
        : CardPage(window), m_cards{{"Families", &DrawFamilies},
                                    {"Sizes, scales", &DrawSizes},
                                    {"Styles", &DrawStyles},
                                    {"Rotated", &DrawRotated},
                                    {"Aligned", &DrawAligned},
                                    {"Ellipsis", &DrawEllipsis},
                                    {"Wrapped", Drawing(&TextPage::DrawWrapped)},
                                    {"Break sets", Drawing(&TextPage::DrawBreakSets)},
                                    {"Measured", &DrawMeasured}}
    {
    }

    void OnDraw(CDrawEvent* event) override
    {
        m_wrapped = m_broken = Box(); // for cards that are scrolled out of view
        CardPage::OnDraw(event);
    }
    void OnMousePress(CMouseEvent* event) override
    {
        m_dragging = event->button == mbLeft && FindWrapping(event->position) != nullptr;
        Drag(event->position);
    }
    void OnMouseMove(CMouseEvent* event) override
    {
        m_dragging = m_dragging && (event->state & msLeft);
        Drag(event->position);
        const int cursor = m_dragging || FindWrapping(event->position) ? crSizeWE : crArrow;
        if (Window().GetCursor() != cursor)
            Window().SetCursor(cursor);
        CardPage::OnMouseMove(event);
    }
    void OnMouseRelease(CMouseEvent*) override { m_dragging = false; }
    void OnMouseWheel(CMouseWheelEvent* event) override
    {
        if (!FindWrapping(event->position))
            return CardPage::OnMouseWheel(event);
        SetShare(m_share + 0.02 * event->delta);
    }

private:
    using Method = void (TextPage::*)(IPainter&, const Box&, const Style&);

    std::function<void(IPainter&, const Box&, const Style&)> Drawing(Method method)
    {
        return [this, method](IPainter& p, const Box& area, const Style& style) {
            (this->*method)(p, area, style);
        };
    }
    const std::vector<Card>& Cards() const override { return m_cards; }
    Status GetStatus() const override
    {
        return {"",
                "Drag in the cards Wrapped and Break sets, or turn the wheel there, to change the width."};
    }

    /// The card below that wraps in the common width; null when there is none.
    const Box* FindWrapping(const point<int>& at) const
    {
        const point<double> p(at.x, at.y);
        return m_wrapped.Contains(p) ? &m_wrapped : m_broken.Contains(p) ? &m_broken : nullptr;
    }
    void Drag(const point<int>& at)
    {
        const Box* const area = m_dragging ? FindWrapping(at) : nullptr;
        if (area)
            SetShare((at.x - area->left) / area->Width());
    }
    void SetShare(double share)
    {
        m_share = std::clamp(share, 0.0, 1.0);
        Repaint();
    }
    Box Wrapping(const Box& area) const
    {
        const double width = std::max(kMinWidth, std::floor(area.Width() * m_share));
        return {area.left, area.top, area.left + width, area.bottom};
    }
    void DrawGrip(IPainter& painter, const Box& box, const Style& style) const;
    void DrawWrapped(IPainter& painter, const Box& area, const Style& style);
    void DrawBreakSets(IPainter& painter, const Box& area, const Style& style);

    std::vector<Card> m_cards;
    double m_share = 0.8;    // of the card's width
    Box m_wrapped, m_broken; // of the last paint
    bool m_dragging = false;
};

void TextPage::DrawGrip(IPainter& painter, const Box& box, const Style& style) const
{
    HLine(painter, box.left, box.right, box.top, style.line);
    HLine(painter, box.left, box.right, box.bottom - 1, style.line);
    Fill(painter, {box.right - 1, box.top, box.right, box.bottom}, style.accent);
    const double middle = (box.top + box.bottom) / 2;
    Fill(painter, {box.right - 2, middle - kGrip, box.right + 1, middle + kGrip}, style.accent);
}

void TextPage::DrawWrapped(IPainter& painter, const Box& area, const Style& style)
{
    const std::string text =
        "Lines end where the next word would not fit any more.\nA line break starts a new one. "
        "averyveryveryverylongwordlikethisone is cut between its characters.";
    m_wrapped = area;
    const Box box = Wrapping(area);
    const ClipScope clip(painter, area);
    painter.SetTextColor(style.text);
    const size<double> used =
        painter.DrawStringEx(text, {box.left, box.top, box.right - 4, box.bottom}, tfLeft);
    Fill(painter, {box.left, box.top + used.height, box.left + used.width, box.top + used.height + 2},
         clAmber);
    DrawGrip(painter, box, style);
}

void TextPage::DrawBreakSets(IPainter& painter, const Box& area, const Style& style)
{
    const struct
    {
        const char* name;
        const char* breakSet;
        _color color;
    } rows[] = {{"blanks", " \t\n\r", clSea}, {"slashes", "/", clLeaf}, {"none", "", clPlum}};
    m_broken = area;
    painter.SetFont(UiFont(0, 0.9));
    for (int i = 0; i < 3; ++i) {
        const Box row = Row(area, i, 3, 6), box = Wrapping(row);
        const ClipScope clip(painter, row);
        Fill(painter, box, Mix(style.window, rows[i].color, 0.15));
        painter.SetTextColor(style.text);
        painter.DrawStringEx("my pictures/last summer/the long way home/boat.xpm",
                             {box.left + 4, box.top, box.right - 4, box.bottom}, tfLeft, -1,
                             rows[i].breakSet);
        painter.SetTextColor(rows[i].color);
        painter.DrawStringEx(rows[i].name, {box.right + 6, row.top, row.right, row.bottom},
                             tfSingleLine | tfVCenter);
    }
    DrawGrip(painter, Wrapping(area), style);
}

} // namespace

std::unique_ptr<Page> CreateTextPage(ISysWindow& window)
{
    return std::make_unique<TextPage>(window);
}

} // namespace gallery
