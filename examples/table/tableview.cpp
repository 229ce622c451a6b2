#include "tableview.h"

#include <algorithm>
#include <cmath>

namespace table {

using namespace vela7;

namespace {

constexpr std::size_t mostDirty = 16; // rectangles

std::string Grouped(std::uint64_t number)
{
    std::string text = std::to_string(number);
    for (int at = int(text.size()) - 3; at > 0; at -= 3)
        text.insert(std::size_t(at), ",");
    return text;
}

} // namespace

TableView::TableView(ISysWindow& window)
    : m_window(&window), m_job(window), m_finder(window), m_copier(window), m_fitter(window)
{
    Subscribe<IDrawingNotify>(window, this);
    Subscribe<IMouseNotify>(window, this);
    Subscribe<IKeyboardNotify>(window, this);
    Subscribe<IFocusNotify>(window, this);
    Subscribe<IWindowNotify>(window, this);
    m_bars[0] = window.CreateScrollBar(ISysWindow::stHorizontal);
    m_bars[1] = window.CreateScrollBar(ISysWindow::stVertical);
    for (const auto& bar : m_bars)
        if (bar)
            Subscribe<IScrollBarNotify>(*bar, this);
    Measure();
    Layout();
}

void TableView::OnDestroy(CEvent*)
{
    for (Worker* const worker : {&m_job, &m_finder, &m_copier, &m_fitter})
        worker->Cancel();
    m_window = nullptr;
}

// ---- the file

void TableView::Open(const std::string& path)
{
    ShowFile(nullptr, {});
    const auto task = std::make_shared<OpenTask>(path);
    const std::string what = "Reading", memory = "There is not enough memory to read this file";
    Start(m_job, task, what, [=](bool ok) {
        const auto file = task->File();
        if (!ok || !file->Error().empty())
            return SetNote(ok ? file->Error() : memory);
        const auto widths = std::make_shared<WidthTask>(file, m_measure, 0, file->ColumnCount());
        Start(m_job, widths, what, [=](bool fits) {
            ShowFile(fits ? file : nullptr, widths->Widths());
            SetNote(fits ? "" : memory);
        });
    });
}

void TableView::Start(Worker& worker, std::shared_ptr<Task> task, const std::string& what,
                      std::function<void(bool)> ended)
{
    SetNote(what);
    worker.Start(
        std::move(task), [this, what](int percent) { Tell(what, percent); }, std::move(ended));
}

void TableView::ShowFile(std::shared_ptr<const CsvFile> file, const std::vector<int>& widths)
{
    Cancel();
    m_order.reset();
    m_sortColumn = -1;
    m_file = std::move(file);
    m_reader = m_file ? std::make_unique<RowReader>(*m_file) : nullptr;
    m_state = ByteSource::State::unchanged;
    m_edges.assign(1, 0);
    if (m_file)
        for (const int width : widths)
            m_edges.push_back(m_edges.back() + width);
    m_current = m_anchor = {};
    m_top = m_left = 0;
    Layout();
}

// What was read of the file counts no more when the file is another one.
void TableView::CheckFile()
{
    const auto state = m_file ? m_file->Bytes().Now() : ByteSource::State::unchanged;
    if (state == m_state)
        return;
    m_state = state;
    m_reader = std::make_unique<RowReader>(*m_file);
    Mark(m_client);
}

std::string TableView::FileState() const
{
    switch (m_state) {
    case ByteSource::State::changed:
        return "The file was changed since it was read";
    case ByteSource::State::replaced:
        return "The file was replaced or deleted since it was read";
    case ByteSource::State::shortened:
        return "The file was shortened since it was read, " + Grouped(m_file->Bytes().SizeNow()) + " of " +
               Grouped(m_file->Bytes().Size()) + " bytes are left";
    default:
        return "";
    }
}

void TableView::SortBy(int column, bool descending)
{
    Cancel();
    m_order.reset(); // while the rows are sorted there is no memory for two orders
    m_sortColumn = column;
    m_descending = descending;
    Mark(m_client);
    if (column < 0 || !m_file)
        return;
    const auto task = std::make_shared<SortTask>(m_file, column, descending);
    Start(m_job, task, "Sorting", [this, task](bool ok) {
        const bool whole = m_file->Bytes().Now() != ByteSource::State::shortened;
        m_order = whole ? task->Result() : nullptr;
        m_sortColumn = ok && whole ? m_sortColumn : -1;
        SetNote(ok ? "" : "There is not enough memory to sort this file");
        Mark(m_client);
    });
}

std::shared_ptr<CopyTask> TableView::MakeCopy() const
{
    const auto rows = std::minmax({m_current.row, m_anchor.row});
    const auto columns = std::minmax({m_current.column, m_anchor.column});
    return std::make_shared<CopyTask>(m_file, m_order, CellPos{rows.first, columns.first},
                                      CellPos{rows.second, columns.second});
}

std::string TableView::SelectedText() const
{
    if (!m_file)
        return {};
    const auto task = MakeCopy();
    while (task->Step())
        continue;
    return task->Text();
}

// ---- widths

void TableView::Measure()
{
    IPainter& painter = *m_window->TakeDefPainter();
    const CPaintScope paint(painter, ssAsIs);
    if (!paint.IsOk())
        return;
    fontmetrics metrics;
    painter.GetFontMetrics(&metrics);
    m_rowHeight = metrics.height + padding;
    m_textTop = padding / 2;
    double(&advance)[128] = m_measure.advance;
    const double between = painter.GetTextSize("nn").width;
    for (int c = ' '; c < 127; ++c) {
        advance[c] = (painter.GetTextSize("n" + std::string(16, char(c)) + "n").width - between) / 16;
        advance[0] = std::max({advance[0], advance[c], double(metrics.height)});
    }
}

void TableView::FitWidth(int column)
{
    const auto task = std::make_shared<WidthTask>(m_file, m_measure, column, column + 1);
    m_fitter.Start(
        task, [](int) {},
        [=](bool ok) {
            if (ok)
                SetWidth(column, task->Widths()[0]);
        });
}

void TableView::SetWidth(int column, int width)
{
    const int change = std::max(width, narrowest) - (XOf(column + 1) - XOf(column));
    for (std::size_t edge = std::size_t(column) + 1; edge < m_edges.size(); ++edge)
        m_edges[edge] += change;
    Layout();
}

// ---- places

int TableView::ColumnAt(int x) const
{
    const auto right = std::upper_bound(m_edges.begin() + 1, m_edges.end(), x + m_left);
    return std::max(0, std::min(int(right - m_edges.begin()), ColumnCount()) - 1);
}

int TableView::EdgeAt(int x) const
{
    int column = ColumnCount() - 1;
    while (column >= 0 && std::abs(XOf(column + 1) - x) > 3)
        --column;
    return column;
}

CellPos TableView::CellAt(const point<int>& p) const
{
    const int down = p.y - m_cells.top;
    const std::int64_t row = m_top + (down >= 0 ? down / m_rowHeight : -1);
    return {std::uint32_t(std::clamp<std::int64_t>(row, 0, std::max<std::int64_t>(RowCount(), 1) - 1)),
            ColumnAt(p.x)};
}

bool TableView::IsSelected(std::int64_t row, int column) const
{
    const auto rows = std::minmax({m_current.row, m_anchor.row});
    const auto columns = std::minmax({m_current.column, m_anchor.column});
    return row >= rows.first && row <= rows.second && column >= columns.first && column <= columns.second;
}

void TableView::Layout()
{
    ISystem* const system = GetCurrentSystem();
    const int metric = system ? system->GetSystemMetrics(ISystem::smVScrollWidth) : 0;
    const int thickness = m_bars[0] && m_bars[1] ? std::max(metric, 12) : 0;
    m_client = m_window->GetClientRect();
    const int right = std::max(m_client.right - thickness, 0);
    const int bottom = std::max(m_client.bottom - m_rowHeight - thickness, 0);
    m_cells = Rect(0, m_rowHeight, right, std::max(bottom, m_rowHeight));
    if (thickness > 0) {
        m_bars[0]->SetPos(0, bottom, right, bottom + thickness);
        m_bars[1]->SetPos(right, 0, m_client.right, bottom);
    }
    ScrollTo(m_top, m_left);
    UpdateBars();
    Mark(m_client);
}

void TableView::UpdateBars()
{
    const ScrollInfo infos[] = {
        {0, 0.0, double(m_edges.back()), 1.0, double(m_cells.Width()), double(m_left), false},
        {0, 0.0, std::min<double>(RowCount(), INT32_MAX), 1.0, double(m_cells.Height() / m_rowHeight),
         double(m_top), false}};
    for (int i = 0; i < 2; ++i)
        if (m_bars[i])
            m_bars[i]->SetScrollInfo(infos[i]);
}

// ---- what changes

void TableView::Mark(const Rect& area)
{
    const Rect seen = m_client.Intersect(area);
    if (!m_window || seen.IsEmpty())
        return;
    if (m_dirty.size() == mostDirty)
        m_dirty.assign(1, m_client);
    m_dirty.push_back(seen);
    m_window->Invalidate(seen.left, seen.top, seen.right, seen.bottom);
}

void TableView::Tell(const std::string& what, int percent)
{
    SetNote(what + ": " + std::to_string(percent) + " %  (Esc cancels)");
}

void TableView::MarkRows(std::int64_t first, std::int64_t last)
{
    const std::int64_t beyond = m_top + m_cells.Height() / m_rowHeight + 1;
    if (first < beyond && last >= m_top)
        Mark(m_cells.Intersect(
            {0, YOf(std::max(first, m_top)), m_cells.right, YOf(std::min(last + 1, beyond))}));
}

void TableView::SetNote(const std::string& note)
{
    m_note = note;
    Mark({0, m_file ? m_cells.bottom : 0, m_client.right, m_client.bottom});
}

std::string TableView::Status() const
{
    if (!m_note.empty() || !m_file)
        return m_note;
    const std::string state = FileState();
    return (state.empty() ? "" : state + ". ") + "Row " +
           Grouped(RowCount() ? m_current.row + std::uint64_t(1) : 0) + " of " + Grouped(RowCount()) +
           ", column " + std::to_string(m_current.column + 1) + " of " + std::to_string(ColumnCount());
}

// Moves what the retained picture shows of an area; draws only what comes into sight.
void TableView::Shift(const Rect& area, int dx, int dy)
{
    const auto moved = [&](const Rect& r) {
        return Rect(r.left + dx, r.top + dy, r.right + dx, r.bottom + dy);
    };
    if (std::abs(dx) >= area.Width() || std::abs(dy) >= area.Height())
        return m_dirty.push_back(area);
    const Rect stays = area.Intersect({area.left - dx, area.top - dy, area.right - dx, area.bottom - dy});
    m_window->ScrollContent(dx, dy, stays.left, stays.top, stays.right - 1, stays.bottom - 1);
    const std::size_t count = m_dirty.size();
    for (std::size_t i = 0; i < count; ++i)
        m_dirty.push_back(area.Intersect(moved(area.Intersect(m_dirty[i]))));
    const Rect shown = moved(stays);
    if (dy != 0)
        m_dirty.push_back(
            {area.left, dy > 0 ? area.top : shown.bottom, area.right, dy > 0 ? shown.top : area.bottom});
    else
        m_dirty.push_back(
            {dx > 0 ? area.left : shown.right, area.top, dx > 0 ? shown.left : area.right, area.bottom});
    if (m_dirty.size() > mostDirty)
        m_dirty.assign(1, m_client);
}

void TableView::ScrollTo(std::int64_t topRow, std::int64_t left)
{
    const std::int64_t lastTop = std::int64_t(RowCount()) - m_cells.Height() / m_rowHeight;
    topRow = std::clamp<std::int64_t>(topRow, 0, std::max<std::int64_t>(lastTop, 0));
    left = std::clamp<std::int64_t>(left, 0, std::max(m_edges.back() - m_cells.Width(), 0));
    const std::int64_t dy = std::clamp<std::int64_t>(m_top - topRow, -100000, 100000) * m_rowHeight;
    const int dx = m_left - int(left);
    m_top = topRow;
    m_left = int(left);
    if (dx == 0 && dy == 0)
        return;
    if (dx != 0)
        Shift({0, 0, m_cells.right, m_cells.bottom}, dx, 0);
    if (dy != 0)
        Shift(m_cells, 0, int(dy));
    // At once: a paint event would copy the whole window once more.
    Draw(*m_window->TakeDefPainter());
    for (int i = 0; i < 2; ++i)
        if (m_bars[i] && (i == 0 ? dx : dy) != 0)
            m_bars[i]->SetScrollVal(int(std::min<std::int64_t>(i == 0 ? m_left : m_top, INT32_MAX)));
}

} // namespace table
