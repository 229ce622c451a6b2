/// A table of the cells of a CSV file, on any toolkit window.
#pragma once

#include "reading.h"

#include "vela7/painter.h"
#include "vela7/palette.h"
#include "vela7/scrollbar.h"
#include "vela7/window.h"

namespace table {

/// Shows one file: header, cells, a line that tells where one is or what goes on, and two scroll bars.
///
/// Arrows, page, Home and End keys (with Control: of the table) and the mouse move the current cell; Shift or
/// dragging selects. Control+C copies, Control+A selects all. Typed text is looked for; Return or F3 goes to
/// the next place, Backspace and Escape take it back. Escape also cancels what goes on. A click on a header
/// sorts, a second one the other way round, a third one as in the file. Dragging the right edge of a header
/// sets the width of the column, a double click fits it to its content.
///
/// What may take long is read in the background; only what is drawn is read here, some MiB for a cell at
/// most. Somebody may change the file meanwhile: what is left of it is shown, and the last line says so.
///
/// The window may die first. Thread: GUI.
class TableView : public vela7::CSubscriber<vela7::IDrawingNotify>,
                  public vela7::CSubscriber<vela7::IMouseNotify>,
                  public vela7::CSubscriber<vela7::IKeyboardNotify>,
                  public vela7::CSubscriber<vela7::IFocusNotify>,
                  public vela7::CSubscriber<vela7::IWindowNotify>,
                  public vela7::CSubscriber<vela7::IScrollBarNotify>
{
public:
    explicit TableView(vela7::ISysWindow& window);

    /// Reads the file in the background. When it cannot be read, the window says why.
    void Open(const std::string& path);
    /// In the background. -1: as in the file.
    void SortBy(int column, bool descending);
    /// The current cell; extend: leaves the other end of the selection where it is.
    void Select(CellPos cell, bool extend);
    void ScrollTo(std::int64_t topRow, std::int64_t left);
    /// What is selected, as CopyTask has it. Reads it at once; the key that copies does it in the background.
    std::string SelectedText() const;

    bool IsBusy() const
    {
        return m_job.IsBusy() || m_finder.IsBusy() || m_copier.IsBusy() || m_fitter.IsBusy();
    }
    std::uint32_t RowCount() const { return m_file ? m_file->RowCount() : 0; }
    int ColumnCount() const { return m_file ? m_file->ColumnCount() : 0; }
    CellPos Current() const { return m_current; }
    std::int64_t TopRow() const { return m_top; }
    /// Everything that changed is drawn.
    bool IsDrawn() const { return m_dirty.empty(); }
    int RowHeight() const { return m_rowHeight; }
    int ColumnWidth(int column) const { return XOf(column + 1) - XOf(column); }
    /// Where the cells are, client coordinates.
    const vela7::rectangle<int>& Cells() const { return m_cells; }
    /// What the last line says.
    std::string Status() const;

    void OnDraw(vela7::CDrawEvent* event) override { Draw(*event->painter); }
    void OnMousePress(vela7::CMouseEvent* event) override;
    void OnMouseRelease(vela7::CMouseEvent* event) override;
    void OnMouseDoubleClick(vela7::CMouseEvent* event) override;
    void OnMouseMove(vela7::CMouseEvent* event) override;
    void OnMouseWheel(vela7::CMouseWheelEvent* event) override;
    void OnKeyPress(vela7::CKeyboardEvent* event) override;
    void OnChar(vela7::CKeyboardEvent* event) override;
    void OnGetFocus(vela7::CEvent*) override { MarkRows(m_current.row, m_current.row); }
    void OnReleaseFocus(vela7::CEvent*) override { MarkRows(m_current.row, m_current.row); }
    void OnResize(vela7::CWindowEvent*) override { Layout(); }
    void OnSysColorChanged(vela7::CEvent*) override { Mark(m_client); }
    void OnDestroy(vela7::CEvent*) override;
    void OnScroll(vela7::CScrollEvent* event) override;

private:
    using Rect = vela7::rectangle<int>;
    using Color = vela7::ISysPalette::SysColor;

    // Places. Columns stand side by side from 0 on; the window shows them from m_left on.
    int ColumnAt(int x) const; // window coordinates; the nearest one
    int EdgeAt(int x) const;   // the column whose right edge is there; -1
    int XOf(int column) const { return m_edges[std::size_t(column)] - m_left; }
    int YOf(std::int64_t row) const { return m_cells.top + int(row - m_top) * m_rowHeight; }
    CellPos CellAt(const vela7::point<int>& p) const;
    std::uint32_t RowInFile(std::int64_t row) const
    {
        return m_order ? (*m_order)[std::size_t(row)] : std::uint32_t(row);
    }
    bool IsSelected(std::int64_t row, int column) const;

    void Measure();
    void FitWidth(int column);
    void SetWidth(int column, int width);
    void Start(Worker& worker, std::shared_ptr<Task> task, const std::string& what,
               std::function<void(bool)> ended);
    void ShowFile(std::shared_ptr<const CsvFile> file, const std::vector<int>& widths);
    void CheckFile();
    std::string FileState() const;
    void Layout();
    void UpdateBars();
    void Mark(const Rect& area);
    void MarkRows(std::int64_t first, std::int64_t last);
    void Shift(const Rect& area, int dx, int dy);
    void SetNote(const std::string& note);
    void Tell(const std::string& what, int percent);

    bool Navigate(std::uint32_t key, bool control, bool extend);
    void Find(const std::string& text, bool next);
    std::shared_ptr<CopyTask> MakeCopy() const;
    void Copy();
    void Cancel();

    void Draw(vela7::IPainter& painter);
    void PaintHeader(vela7::IPainter& painter, const Rect& area);
    void PaintCells(vela7::IPainter& painter, const Rect& area);
    void PaintGrid(vela7::IPainter& painter, const Rect& area, const Rect& cells);
    void PaintRow(vela7::IPainter& painter, const Rect& area, std::int64_t row, int first, int last);
    void PaintText(vela7::IPainter& painter, const Rect& area, const Rect& cell, const std::string& text);
    void PaintStatus(vela7::IPainter& painter, const Rect& area);

    vela7::ISysWindow* m_window;                 // null: gone
    vela7::CHandle<vela7::IScrollBar> m_bars[2]; // horizontal, vertical
    std::shared_ptr<const CsvFile> m_file;
    std::unique_ptr<RowReader> m_reader;
    ByteSource::State m_state = ByteSource::State::unchanged; // of the file, when it was drawn last
    Order m_order;
    int m_sortColumn = -1;
    bool m_descending = false;
    std::vector<int> m_edges{0}; // of columns: left of the first, right of each

    Rect m_client, m_cells;
    int m_rowHeight = 20;
    int m_textTop = 2;
    TextMeasure m_measure;
    std::int64_t m_top = 0;
    int m_left = 0;
    std::vector<Rect> m_dirty; // what the retained picture does not show as it should

    CellPos m_current, m_anchor; // the corners of the selection
    bool m_selecting = false;    // with the mouse
    int m_sizing = -1;           // the column whose width is dragged
    std::string m_note;          // instead of the position
    std::string m_text;          // looked for
    Worker m_job;                // reads or sorts; ends before what it uses
    Worker m_finder;
    Worker m_copier;
    Worker m_fitter; // of widths
};

} // namespace table
