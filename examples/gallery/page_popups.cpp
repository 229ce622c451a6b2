/// A colour picker in a popup, and fields that explain themselves.

#include "cards.h"

#include "vela7/popup.h"
#include "vela7/tooltip.h"

#include <cmath>
#include <cstdio>

namespace gallery {

using namespace vela7;

namespace {

constexpr _color hues[] = {{128, 128, 128}, clRose, clAmber, {222, 196, 60}, clLeaf,
                           {48, 168, 178},  clSea,  clPlum,  {204, 88, 158}};
constexpr int kColumns = int(std::size(hues)), kRows = 7, kCells = kColumns * kRows;
constexpr int kSide = 22, kStep = kSide + 4, kEdge = 8, kWidth = 2 * kEdge + kColumns * kStep - 4,
              kHeight = 2 * kEdge + kRows * kStep - 4;

/// From light to dark; the middle row has the hues themselves, the greys run from white to black.
_color CellColor(int cell)
{
    const double row = cell / kColumns, middle = (kRows - 1) / 2;
    const _color end = row < middle ? _color{255, 255, 255} : _color{0, 0, 0};
    return Mix(hues[cell % kColumns], end, std::abs(row - middle) / middle * (cell % kColumns ? 0.78 : 1));
}

int CellAt(const point<int>& place)
{
    const int column = (place.x - kEdge) / kStep, row = (place.y - kEdge) / kStep;
    const bool inside = place.x >= kEdge && place.y >= kEdge && column < kColumns && row < kRows;
    return inside ? row * kColumns + column : -1;
}

/// A click picks a colour and closes the popup, Escape and clicks elsewhere only close it.
class ColorPicker : CSubscriber<IDrawingNotify>, CSubscriber<IMouseNotify>, CSubscriber<IKeyboardNotify>
{
public:
    /// Below a box of the window, always of the same one. The colour is changed by the picking.
    void Open(ISysWindow& window, const Box& below, _color& color);
    void Close() { m_popup->Hide(); }
    bool IsOpenFor(const _color& color) const { return m_color == &color && m_popup && m_popup->IsVisible(); }

    void OnDraw(CDrawEvent* event) override;
    void OnMouseMove(CMouseEvent* event) override { Point(CellAt(event->position)); }
    void OnMouseLeave(CMouseEvent*) override { Point(-1); }
    void OnMouseRelease(CMouseEvent* event) override
    {
        const int cell = CellAt(event->position);
        if (event->button != mbLeft || cell < 0)
            return;
        *m_color = CellColor(cell);
        Close();
        InvalidateAll(*m_popup->GetParent());
    }
    void OnKeyPress(CKeyboardEvent* event) override
    {
        if (event->key == kcEscape)
            Close();
    }

private:
    void Point(int cell)
    {
        if (std::exchange(m_pointed, cell) != cell)
            InvalidateAll(*m_popup->GetContent());
    }

    CHandle<IPopup> m_popup;
    _color* m_color = nullptr;
    int m_pointed = -1;
};

void ColorPicker::Open(ISysWindow& window, const Box& below, _color& color)
{
    if (!m_popup) {
        m_popup = window.CreatePopup();
        ISysWindow& content = *m_popup->GetContent();
        Subscribe<IDrawingNotify>(content, this);
        Subscribe<IMouseNotify>(content, this);
        Subscribe<IKeyboardNotify>(content, this);
        m_popup->SetSize(kWidth, kHeight);
    }
    m_color = &color;
    m_pointed = -1;
    for (int cell = 0; cell < kCells; ++cell)
        if (CellColor(cell) == color)
            m_pointed = cell;
    point<int> place{int(below.left), int(below.bottom) + 2};
    window.WindowToScreen(place);
    m_popup->Show(place.x, place.y);
}

void ColorPicker::OnDraw(CDrawEvent* event)
{
    IPainter& painter = *event->painter;
    const Style style = CurrentStyle();
    painter.SetBackgroundColor(style.window);
    const CPaintScope paint(painter, ssBuffered);
    if (!paint.IsOk())
        return;
    Frame(painter, {0, 0, kWidth, kHeight}, Mix(style.window, style.text, 0.4));
    for (int cell = 0; cell < kCells; ++cell) {
        const double left = kEdge + cell % kColumns * kStep, top = kEdge + cell / kColumns * kStep;
        const Box box{left, top, left + kSide, top + kSide};
        Fill(painter, box, CellColor(cell));
        Frame(painter, box, Mix(CellColor(cell), style.text, 0.2));
        if (cell == m_pointed)
            for (const double by : {0, -1, -2})
                Frame(painter, Shrunk(box, by), by == 0 ? style.window : style.accent);
    }
}

/// Drawn like a button: of a colour that can be picked, or of a tip.
struct Item
{
    const char* name;
    _color color;
    const char* tip;
    Box box; // of the last paint
};

class TipsPage : public CardPage
{
public:
    explicit TipsPage(ISysWindow& window) : CardPage(window) {}
    void OnMousePress(CMouseEvent* event) override
    {
        for (Item& part : m_parts)
            if (event->button == mbLeft && part.box.Contains(Spot(event->position)))
                OpenPicker(part);
    }
    void OnMouseMove(CMouseEvent* event) override;
    void ShowSample(bool show) override;

private:
    const std::vector<Card>& Cards() const override { return m_cards; }
    Status GetStatus() const override
    {
        return {"", "A click on a colour opens a popup; the mouse over a field brings up its tip."};
    }
    static point<double> Spot(const point<int>& place) { return {double(place.x), double(place.y)}; }
    void OpenPicker(Item& part)
    {
        Window().HideTooltip();
        m_picker.Open(Window(), part.box, part.color);
        Repaint();
    }
    void TrackTip(const Item& field, const point<int>& place);
    using Items = Item[4];
    void DrawItems(IPainter& painter, const Box& area, const Style& style, Items& items);
    void DrawHouse(IPainter& painter, const Box& area) const;

    // clang-format off
    Items m_parts = {{"Sky", {176, 211, 238}, nullptr, {}}, {"Roof", {170, 62, 54}, nullptr, {}},
                     {"Wall", {244, 232, 205}, nullptr, {}}, {"Door", clSea, nullptr, {}}};
    Items m_fields = {
        {"Short", {255, 255, 225}, "Saved", {}},
        {"Long", {255, 255, 225}, "A tip that is too wide for the monitor does not run out of it: it goes on in "
                 "further lines, and each of them ends where a word ends. So nobody who writes such a text "
                 "has to count its characters, and it can be read on small screens and on large ones.", {}},
        {"Lines", {255, 255, 225}, "Three lines:\nthe second\nand the third", {}},
        {"Colours", {206, 235, 216}, "A tip in colours of its own", {}}};
    const std::vector<Card> m_cards = {
        {"Colours", [this](IPainter& p, const Box& area, const Style& style) { DrawItems(p, area, style, m_parts); }},
        {"House",   [this](IPainter& p, const Box& area, const Style&) { DrawHouse(p, area); }},
        {"Tips",    [this](IPainter& p, const Box& area, const Style& style) { DrawItems(p, area, style, m_fields); }}};
    // clang-format on
    const Item* m_tipped = nullptr;
    ColorPicker m_picker;
};

void TipsPage::DrawItems(IPainter& painter, const Box& area, const Style& style, Items& items)
{
    const double height = LineHeight(painter) + 18;
    double y = area.top;
    for (Item& item : items) {
        item.box = {area.left, y, area.right, y + height};
        const bool open = m_picker.IsOpenFor(item.color);
        const bool hot = open || (IsMouseInside() && item.box.Contains(Spot(Mouse())));
        painter.SetPen({hot ? style.accent : style.line, 1, psSolid});
        painter.SetBrush({open ? Mix(style.window, style.accent, 0.15) : style.window, bsSolid});
        painter.RoundRect(area.left, y, area.right, y + height, 4, 4);
        const Box swatch{area.left + 9, y + 9, area.left + 41, y + height - 9};
        Fill(painter, swatch, item.color);
        Frame(painter, swatch, Mix(item.color, style.text, 0.3));
        Text(painter, swatch.right + 12, y + 9, item.name, style.text);
        if (!item.tip)
            painter.DrawControlElement(ceDropArrow, area.right - 26, y + 9, area.right - 10, y + height - 9,
                                       0);
        y += height + 8;
    }
}

void TipsPage::DrawHouse(IPainter& painter, const Box& area) const
{
    const double height = std::min(area.Height(), area.Width() * 0.9), ground = area.top + height * 0.85;
    const double middle = (area.left + area.right) / 2, half = area.Width() * 0.28;
    const double eaves = area.top + height * 0.45;
    const _color &sky = m_parts[0].color, &roof = m_parts[1].color;
    painter.GradientV(area.left, area.top, area.right, ground, sky, Mix(sky, {255, 255, 255}, 0.6));
    Fill(painter, {area.left, ground, area.right, area.top + height}, {122, 158, 98});
    Fill(painter, {middle - half, eaves, middle + half, ground}, m_parts[2].color);
    painter.SetPen({roof, 1, psSolid});
    painter.SetBrush({roof, bsSolid});
    const double top = area.top + height * 0.16;
    const point<double> gable[] = {{middle - half - 14, eaves}, {middle + half + 14, eaves}, {middle, top}};
    painter.Polygon(gable, 3);
    Fill(painter, {middle - half * 0.3, eaves + height * 0.12, middle + half * 0.3, ground},
         m_parts[3].color);
}

void TipsPage::TrackTip(const Item& field, const point<int>& place)
{
    if (ITooltip* const tip = Window().TakeTooltip()) {
        tip->SetColor(field.color);
        tip->SetTextColor({0, 0, 0});
    }
    point<int> below{place.x + 4, place.y + 20};
    Window().WindowToScreen(below);
    Window().TrackTooltip(below.x, below.y, field.tip);
}

void TipsPage::OnMouseMove(CMouseEvent* event)
{
    CardPage::OnMouseMove(event);
    const Item* const before = std::exchange(m_tipped, nullptr);
    for (const Item& field : m_fields)
        if (field.box.Contains(Spot(event->position)))
            m_tipped = &field;
    if (before && before != m_tipped)
        Window().HideTooltip();
    if (m_tipped)
        TrackTip(*m_tipped, event->position);
}

void TipsPage::ShowSample(bool show)
{
    if (!show) {
        Window().HideTooltip();
        return m_picker.Close();
    }
    OpenPicker(m_parts[3]);
    Window().SetTooltipDelay(0);
    TrackTip(m_fields[1], {-4, int(m_fields[1].box.bottom) + 320}); // it may be as wide as the window
    Window().SetTooltipDelay(500);
}

} // namespace

std::unique_ptr<Page> CreatePopupsAndTipsPage(ISysWindow& window)
{
    return std::make_unique<TipsPage>(window);
}

} // namespace gallery
