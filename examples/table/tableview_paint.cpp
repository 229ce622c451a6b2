// How the table is drawn.

#include "tableview.h"

#include <algorithm>

namespace table {

using namespace vela7;

namespace {

constexpr std::size_t mostBytes = 256; // drawn of a cell

_color Colour(ISysPalette::SysColor code)
{
    return GetDefaultPalette()->GetSystemColor(code);
}

void Fill(IPainter& painter, const rectangle<int>& area, ISysPalette::SysColor code)
{
    painter.SetBrush(brush{Colour(code), bsSolid});
    painter.FillRect(area.left, area.top, area.right, area.bottom);
}

void Clip(IPainter& painter, const rectangle<int>& area)
{
    painter.SetClipRect(area.left, area.top, area.right, area.bottom);
}

void Line(IPainter& painter, int x1, int y1, int x2, int y2)
{
    painter.MoveTo(x1, y1);
    painter.LineTo(x2, y2);
}

} // namespace

void TableView::Draw(IPainter& painter)
{
    painter.SetBackgroundColor(_color::none()); // keeps the picture of the last paint
    const CPaintScope paint(painter, ssBuffered);
    if (!paint.IsOk())
        return;
    CheckFile();
    if (painter.IsFullRepaint())
        m_dirty.assign(1, m_client);
    const Rect header(0, 0, m_client.right, m_cells.top);
    const Rect status(0, m_cells.bottom, m_client.right, m_client.bottom);
    for (const Rect& area : m_dirty) {
        PaintHeader(painter, header.Intersect(area));
        PaintCells(painter, m_cells.Intersect(area));
        PaintStatus(painter, status.Intersect(area));
    }
    m_dirty.clear();
}

// Cut off at the cell's right edge; that needs a clip only when the text is too long.
void TableView::PaintText(IPainter& painter, const Rect& area, const Rect& cell, const std::string& text)
{
    if (text.empty())
        return;
    const bool fits = m_measure.Width(text) <= cell.Width() - 2 * padding;
    if (!fits)
        Clip(painter, cell);
    painter.DrawString(cell.left + padding, cell.top + m_textTop, text);
    if (!fits) {
        painter.CancelClipping();
        Clip(painter, area);
    }
}

void TableView::PaintHeader(IPainter& painter, const Rect& area)
{
    if (area.IsEmpty())
        return;
    Clip(painter, area);
    Fill(painter, area, ISysPalette::scButtonFace);
    painter.SetTextColor(Colour(ISysPalette::scButtonText));
    painter.SetPen({Colour(ISysPalette::scButtonShadow), 1, psSolid});
    Line(painter, area.left, m_cells.top - 1, area.right, m_cells.top - 1);
    if (m_file)
        m_reader->Go(RowReader::header);
    for (int column = ColumnAt(area.left); column < ColumnCount() && XOf(column) < area.right; ++column) {
        const Rect cell(XOf(column), 0, XOf(column + 1) - 1, m_cells.top - 1);
        PaintText(painter, area, cell, m_reader->Text(column, mostBytes));
        Line(painter, cell.right, 0, cell.right, m_cells.top);
        if (column != m_sortColumn)
            continue;
        const double x = cell.right - 10, y = m_cells.top / 2.0, tip = m_descending ? 3 : -3;
        const point<double> arrow[] = {{x - 4, y - tip}, {x + 4, y - tip}, {x, y + tip}};
        painter.SetBrush({Colour(ISysPalette::scButtonShadow), bsSolid});
        painter.Polygon(arrow, 3);
    }
    painter.CancelClipping();
}

void TableView::PaintCells(IPainter& painter, const Rect& area)
{
    if (area.IsEmpty())
        return;
    Clip(painter, area);
    Fill(painter, area, ISysPalette::scWindow);
    if (!m_file) {
        painter.SetTextColor(Colour(ISysPalette::scWindowText));
        painter.DrawStringEx(m_note, {24, m_cells.top + 24.0, m_cells.right - 24.0, m_cells.bottom - 24.0},
                             tfLeft);
    }
    const std::int64_t firstRow = m_top + (area.top - m_cells.top) / m_rowHeight;
    const std::int64_t rows = std::min<std::int64_t>(
        RowCount(), m_top + (area.bottom - m_cells.top + m_rowHeight - 1) / m_rowHeight);
    const int first = ColumnAt(area.left);
    const int last = area.left < XOf(ColumnCount()) ? ColumnAt(area.right - 1) : first - 1;
    for (std::int64_t row = firstRow; row < rows; ++row)
        PaintRow(painter, area, row, first, last);
    PaintGrid(painter, area, {first, int(firstRow - m_top), last + 1, int(std::max(rows, firstRow) - m_top)});
    if (m_current.row >= firstRow && m_current.row < rows && m_window->GetFocused())
        painter.FocusRect(XOf(m_current.column), YOf(m_current.row), XOf(m_current.column + 1) - 1,
                          YOf(m_current.row + std::int64_t(1)) - 1);
    painter.CancelClipping();
}

// All lines of a direction in one go, to and fro; the turns are on grid lines or outside the area. cells:
// columns, and rows from the top one on.
void TableView::PaintGrid(IPainter& painter, const Rect& area, const Rect& cells)
{
    if (cells.IsEmpty())
        return;
    const int right = std::min(area.right, XOf(cells.right) - 1);
    const int bottom = std::min(area.bottom, YOf(m_top + cells.bottom) - 1);
    std::vector<point<double>> across, down;
    for (int row = cells.top; row < cells.bottom; ++row) {
        const double y = YOf(m_top + row + 1) - 1, x = row % 2 ? right : area.left - 1;
        across.insert(across.end(), {{x, y}, {right + area.left - 1 - x, y}});
    }
    for (int column = cells.left; column < cells.right; ++column) {
        const double x = XOf(column + 1) - 1, y = column % 2 ? bottom : area.top - 1;
        down.insert(down.end(), {{x, y}, {x, bottom + area.top - 1 - y}});
    }
    painter.SetPen({Colour(ISysPalette::sc3DLight), 1, psSolid});
    painter.PolyLine(across.data(), int(across.size()));
    painter.PolyLine(down.data(), int(down.size()));
}

void TableView::PaintRow(IPainter& painter, const Rect& area, std::int64_t row, int first, int last)
{
    m_reader->Go(RowInFile(row));
    const int top = YOf(row);
    Color before = Color(0);
    for (int column = first; column <= last; ++column) {
        const Rect cell(XOf(column), top, XOf(column + 1) - 1, top + m_rowHeight - 1);
        const bool selected = IsSelected(row, column);
        if (selected)
            Fill(painter, cell, ISysPalette::scHighlight);
        const Color color = selected ? ISysPalette::scHighlightText : ISysPalette::scWindowText;
        if (color != before)
            painter.SetTextColor(Colour(color));
        before = color;
        PaintText(painter, area, cell, m_reader->Text(column, mostBytes));
    }
}

void TableView::PaintStatus(IPainter& painter, const Rect& area)
{
    if (area.IsEmpty())
        return;
    Clip(painter, area);
    Fill(painter, area, ISysPalette::scButtonFace);
    painter.SetTextColor(Colour(ISysPalette::scButtonText));
    if (m_file)
        painter.DrawString(padding, m_client.bottom - m_rowHeight + m_textTop, Status());
    painter.CancelClipping();
}

} // namespace table
