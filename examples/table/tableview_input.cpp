// What keys and mouse do.

#include "tableview.h"

#include <algorithm>

namespace table {

using namespace vela7;

void TableView::Select(CellPos cell, bool extend)
{
    if (!m_file)
        return;
    const auto before = std::minmax({m_current.row, m_anchor.row});
    m_current = cell;
    if (!extend)
        m_anchor = cell;
    const auto after = std::minmax({m_current.row, m_anchor.row});
    MarkRows(before.first, before.second);
    if (after != before)
        MarkRows(after.first, after.second);
    const std::int64_t pageful = std::max(m_cells.Height() / m_rowHeight, 1);
    const std::int64_t top = std::clamp<std::int64_t>(m_top, cell.row - pageful + 1, cell.row);
    const int right = XOf(cell.column + 1) + m_left - m_cells.Width();
    ScrollTo(top, std::min(std::max(m_left, right), XOf(cell.column) + m_left));
    SetNote(IsBusy() || !m_text.empty() ? m_note : "");
}

bool TableView::Navigate(std::uint32_t key, bool control, bool extend)
{
    const std::int64_t lastRow = std::max<std::int64_t>(RowCount(), 1) - 1;
    const int lastColumn = std::max(ColumnCount(), 1) - 1;
    const int page = std::max(m_cells.Height() / m_rowHeight - 1, 1);
    const int wide = control ? lastColumn : 0;
    const std::int64_t high = control ? lastRow : 0;
    // clang-format off
    const struct { std::uint32_t key; std::int64_t rows; int columns; } moves[] = {
        {kcUp,     -std::max<std::int64_t>(high, 1), 0},
        {kcDown,    std::max<std::int64_t>(high, 1), 0},
        {kcLeft,    0,     -std::max(wide, 1)},
        {kcRight,   0,      std::max(wide, 1)},
        {kcPageUp, -page,   0},
        {kcPageDown, page,  0},
        {kcHome,   -high,  -lastColumn},
        {kcEnd,     high,   lastColumn},
    };
    // clang-format on
    for (const auto& move : moves)
        if (move.key == key) {
            const std::int64_t row = std::clamp<std::int64_t>(m_current.row + move.rows, 0, lastRow);
            Select({std::uint32_t(row), std::clamp(m_current.column + move.columns, 0, lastColumn)}, extend);
            return true;
        }
    return false;
}

void TableView::OnKeyPress(CKeyboardEvent* event)
{
    const bool control = event->state == ksControl;
    event->passOn = event->state == ksAlt;
    if (event->passOn)
        return;
    if (control && event->key == 'C')
        Copy();
    else if (control && event->key == 'A' && RowCount() > 0) {
        m_anchor = {};
        m_current = {RowCount() - 1, ColumnCount() - 1};
        Mark(m_client);
    } else if (event->key == kcEscape)
        Cancel();
    else if (event->key == kcReturn || event->key == kcF3)
        Find(m_text, true);
    else if (event->key == kcBack)
        Find(m_text.substr(0, m_text.empty() ? 0 : m_text.size() - 1), false);
    else if (!Navigate(event->key, control, event->state == ksShift))
        event->passOn = true;
}

void TableView::OnChar(CKeyboardEvent* event)
{
    if (event->character < ' ' || event->character > '~')
        return;
    event->passOn = false;
    Find(m_text + char(event->character), false);
}

void TableView::Find(const std::string& text, bool next)
{
    m_text = text;
    m_finder.Cancel();
    if (!m_file || text.empty())
        return SetNote("");
    const std::string quoted = "\"" + text + "\"";
    CellPos from = m_current;
    from.column += next;
    const auto task = std::make_shared<FindTask>(m_file, m_order, text, from);
    Start(m_finder, task, "Looking for " + quoted, [this, quoted, task](bool ok) {
        if (ok && task->IsFound())
            Select(task->Where(), false);
        SetNote((ok && task->IsFound() ? "Found " : "There is no ") + quoted);
    });
}

// What is short is copied before the note would tell of it.
void TableView::Copy()
{
    const std::string what = "Copying";
    const auto isTold = [=] { return m_note.compare(0, what.size(), what) == 0; };
    if (!m_file)
        return;
    const auto task = MakeCopy();
    m_copier.Start(
        task, [=](int percent) { Tell(what, percent); },
        [=](bool ok) {
            ISystem* const system = GetCurrentSystem();
            IClipboard* const clipboard = system ? system->TakeClipboard() : nullptr;
            if (ok && clipboard)
                clipboard->SetText(task->Text());
            if (!ok || isTold())
                SetNote(ok ? "" : "There is not enough memory to copy this");
        });
}

void TableView::Cancel()
{
    if (m_job.IsBusy())
        m_sortColumn = -1;
    for (Worker* const worker : {&m_job, &m_finder, &m_copier, &m_fitter})
        worker->Cancel();
    m_text.clear();
    SetNote("");
}

// ---- mouse

void TableView::OnMousePress(CMouseEvent* event)
{
    const point<int> p = event->position;
    if (event->button != mbLeft || !m_file || p.x >= m_cells.right || p.y >= m_cells.bottom)
        return;
    const bool onColumn = p.x < XOf(ColumnCount());
    if (p.y < m_cells.top) {
        m_sizing = EdgeAt(p.x);
        const int column = ColumnAt(p.x);
        const bool again = column == m_sortColumn;
        if (m_sizing < 0 && onColumn)
            SortBy(again && m_descending ? -1 : column, again);
    } else if (RowCount() > 0) {
        m_selecting = true;
        Select(CellAt(p), (event->state & ksShift) != 0);
    }
    if (m_selecting || m_sizing >= 0)
        m_window->CaptureMouse();
}

void TableView::OnMouseRelease(CMouseEvent* event)
{
    if (event->button != mbLeft || (!m_selecting && m_sizing < 0))
        return;
    m_selecting = false;
    m_sizing = -1;
    m_window->ReleaseMouse();
}

void TableView::OnMouseDoubleClick(CMouseEvent* event)
{
    const int edge = event->position.y < m_cells.top ? EdgeAt(event->position.x) : -1;
    if (edge >= 0)
        FitWidth(edge);
    else
        OnMousePress(event);
}

void TableView::OnMouseMove(CMouseEvent* event)
{
    const point<int> p = event->position;
    if (m_sizing >= 0)
        SetWidth(m_sizing, p.x - XOf(m_sizing));
    else if (m_selecting)
        Select(CellAt(p), true);
    else {
        const int cursor = p.y < m_cells.top && EdgeAt(p.x) >= 0 ? crSizeWE : crArrow;
        if (m_window->GetCursor() != cursor)
            m_window->SetCursor(cursor);
    }
}

void TableView::OnMouseWheel(CMouseWheelEvent* event)
{
    if (event->state & ksShift)
        ScrollTo(m_top, m_left - std::int64_t(event->delta) * m_rowHeight);
    else
        ScrollTo(m_top - event->delta, m_left);
}

void TableView::OnScroll(CScrollEvent* event)
{
    if (m_bars[0] && event->sender == static_cast<IEventSender*>(m_bars[0].Get()))
        ScrollTo(m_top, std::int64_t(event->value));
    else
        ScrollTo(std::int64_t(event->value), m_left);
}

} // namespace table
