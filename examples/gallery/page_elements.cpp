/// Control elements in each state, by the desktop's theme and by hand, side by side.

#include "cards.h"

#include "vela7/system.h"

#include <cmath>

namespace gallery {

using namespace vela7;

namespace {

constexpr double kMargin = 16, kMinRow = 34, kMaxRow = 44, kMinColumn = 108, kPairGap = 4, kPairMargin = 6;

struct ElementRow
{
    const char* name;
    ControlElement element;
    int width, height; ///< 0: those of a check box
    bool byHand;       ///< false: by hand it is nothing
};

struct StateColumn
{
    const char* name;
    int state;
    bool clipped;
};

// clang-format off
constexpr ElementRow elements[] = {
    {"header button",          ceHeaderButton,         46, 24, true},
    {"push button",            cePushButton,           46, 26, true},
    {"check box, checked",     ceCheckBoxChecked,       0,  0, true},
    {"check box, unchecked",   ceCheckBoxUnchecked,     0,  0, true},
    {"check box, undecided",   ceCheckBoxUndetermined,  0,  0, false},
    {"radio button, checked",  ceRadioChecked,          0,  0, true},
    {"radio button, unchecked", ceRadioUnchecked,       0,  0, true},
    {"tree, collapsed",        ceTreeCollapsed,        13, 13, true},
    {"tree, expanded",         ceTreeExpanded,         13, 13, true},
    {"combo drop button",      ceComboDropButton,      24, 26, false},
    {"drop arrow",             ceDropArrow,            16, 16, false},
    {"focus rectangle",        ceFocusRect,            46, 22, true},
};

constexpr StateColumn states[] = {
    {"normal",   0,           false},
    {"disabled", csDisabled,  false},
    {"focused",  csFocused,   false},
    {"current",  csCurrent,   false},
    {"pressed",  csPressed,   false},
    {"clipped",  0,           true},
};
// clang-format on
constexpr int kElements = int(std::size(elements)), kStates = int(std::size(states));

/// In the middle of a cell, on whole pixels.
rectangle<int> Placed(const Box& cell, const ElementRow& row, bool byHand)
{
    constexpr int boxByHand = 13;
    int width = row.width, height = row.height;
    if (!width) {
        ISystem& system = *GetCurrentSystem();
        width = byHand ? boxByHand : system.GetSystemMetrics(ISystem::smCheckBoxWidth);
        height = byHand ? boxByHand : system.GetSystemMetrics(ISystem::smCheckBoxHeight);
    }
    const int left = int(cell.left + (cell.Width() - width) / 2),
              top = int(cell.top + (cell.Height() - height) / 2);
    return {left, top, left + width, top + height};
}

class ElementsPage : public Page,
                     CSubscriber<IDrawingNotify>,
                     CSubscriber<IMouseNotify>,
                     CSubscriber<IWindowNotify>
{
public:
    explicit ElementsPage(ISysWindow& window) : m_window(window)
    {
        Subscribe<IDrawingNotify>(window, this);
        Subscribe<IMouseNotify>(window, this);
        Subscribe<IWindowNotify>(window, this);
    }

    void OnDraw(CDrawEvent* event) override;
    void OnMousePress(CMouseEvent* event) override { Follow(*event, true); }
    void OnMouseRelease(CMouseEvent* event) override { Follow(*event, true); }
    void OnMouseMove(CMouseEvent* event) override { Follow(*event, true); }
    void OnMouseLeave(CMouseEvent* event) override { Follow(*event, false); }
    void OnMouseWheel(CMouseWheelEvent* event) override
    {
        m_scroll.By(-20.0 * event->delta);
        InvalidateAll(m_window);
    }
    void OnSysColorChanged(CEvent*) override { InvalidateAll(m_window); }

private:
    void Follow(const CMouseEvent& event, bool inside)
    {
        m_mouse = event.position;
        m_inside = inside;
        m_pressed = event.state & msLeft;
        InvalidateAll(m_window);
    }
    /// What the mouse adds to the state of the elements in a cell.
    int LiveState(const Box& cell, const StateColumn& column) const
    {
        if (!m_inside || column.state != 0 || !cell.Contains(point<double>(m_mouse.x, m_mouse.y)))
            return 0;
        return csCurrent | (m_pressed ? csPressed : 0);
    }
    void DrawTitles(IPainter& painter, const Box& bar, double left, double column, const Style& style) const;
    void DrawPair(IPainter& painter, const Box& cell, const ElementRow& row, const StateColumn& column,
                  const Style& style) const;

    ISysWindow& m_window;
    Scroll m_scroll;
    point<int> m_mouse;
    bool m_inside = false, m_pressed = false;
};

/// The theme's or the painter's own half of what belongs to a state.
Box Half(double left, double top, double right, double bottom, int side)
{
    return Column(Box(left + kPairMargin, top, right - kPairMargin, bottom), side, 2, kPairGap);
}

void ElementsPage::DrawTitles(IPainter& painter, const Box& bar, double left, double column,
                              const Style& style) const
{
    Fill(painter, bar, style.window);
    const double line = LineHeight(painter);
    for (int i = 0; i < kStates; ++i) {
        const double l = left + i * column;
        painter.SetFont(UiFont(fsBold));
        CenteredText(painter, {l, bar.top + 8, l + column, bar.top + 8 + line}, states[i].name, style.text);
        painter.SetFont(UiFont(0, 0.8));
        for (int side = 0; side < 2; ++side) {
            const Box half = Half(l, bar.top + 10 + line, l + column, bar.bottom - 4, side);
            CenteredText(painter, half, side ? "by hand" : "theme", style.muted);
        }
    }
    painter.SetFont(UiFont());
    HLine(painter, bar.left, bar.right, bar.bottom - 1, style.line);
}

void ElementsPage::DrawPair(IPainter& painter, const Box& cell, const ElementRow& row,
                            const StateColumn& column, const Style& style) const
{
    for (int side = 0; side < 2; ++side) {
        const Box half = Half(cell.left, cell.top, cell.right, cell.bottom, side);
        const rectangle<int> rect = Placed(half, row, side == 1);
        if (side == 1 && !row.byHand) {
            CenteredText(painter, half, "-", style.muted);
            continue;
        }
        const int state = column.state | LiveState(cell, column);
        // The left and upper parts only; the page's own clip takes the rest away.
        const double fraction = column.clipped ? 0.6 : 1.0;
        const Box shown = Box(rect.left, rect.top, rect.left + std::ceil(rect.Width() * fraction),
                              rect.top + std::ceil(rect.Height() * fraction));
        painter.SetBrush({style.window, bsNone});
        if (column.clipped)
            painter.SetClipRect(shown.left, shown.top, shown.right, shown.bottom);
        if (side == 0)
            painter.DrawControlElement(row.element, rect.left, rect.top, rect.right, rect.bottom, state);
        else
            DrawElementByHand(painter, row.element, rect, state);
        if (column.clipped)
            painter.CancelClipping();
    }
}

void ElementsPage::OnDraw(CDrawEvent* event)
{
    IPainter& painter = *event->painter;
    const Style style = CurrentStyle();
    painter.SetBackgroundColor(style.window);
    const CPaintScope paint(painter, ssBuffered);
    if (!paint.IsOk())
        return;

    const Box client = ClientBox(m_window);
    const double line = LineHeight(painter), barHeight = StatusBarHeight(painter);
    const Box titles{client.left, client.top, client.right, client.top + 2 * line + 16};
    const Box bar{client.left, client.bottom - barHeight, client.right, client.bottom};
    const double names = client.left + kMargin;
    const double left = names + painter.GetTextSize("radio button, unchecked").width + 20;
    const double column = std::max(kMinColumn, std::floor((client.right - kMargin - left) / kStates));
    const double rowHeight = std::clamp(std::floor((bar.top - titles.bottom) / kElements), kMinRow, kMaxRow);
    m_scroll.SetExtent(kElements * rowHeight, bar.top - titles.bottom);

    for (int i = 0; i < kElements; ++i) {
        const double top = titles.bottom + i * rowHeight - m_scroll.Top();
        const Box row{client.left, top, client.right, top + rowHeight};
        if (row.bottom <= titles.bottom || row.top >= bar.top)
            continue;
        if (i % 2)
            Fill(painter, row, style.shade);
        painter.SetTextColor(style.text);
        painter.DrawStringEx(elements[i].name, {names, row.top, left, row.bottom}, tfSingleLine | tfVCenter);
        for (int s = 0; s < kStates; ++s) {
            const double l = left + s * column;
            DrawPair(painter, {l, row.top, l + column, row.bottom}, elements[i], states[s], style);
        }
    }
    const double end = std::min(bar.top, titles.bottom + kElements * rowHeight - m_scroll.Top());
    for (int s = 0; s < kStates; ++s)
        Fill(painter, {left + s * column, titles.top, left + s * column + 1, end}, style.line);
    DrawTitles(painter, titles, left, column, style);
    m_scroll.Draw(painter, {client.left, titles.bottom, client.right, bar.top}, style.muted);
    DrawStatusBar(painter, bar, {"", "Move over the normal ones and press: they follow the mouse."}, style);
}

} // namespace

std::unique_ptr<Page> CreateElementsPage(ISysWindow& window)
{
    return std::make_unique<ElementsPage>(window);
}

} // namespace gallery
