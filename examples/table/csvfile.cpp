#include "csvfile.h"

#include "utf8.h"

#include <algorithm>
#include <limits>

namespace table {

namespace {

constexpr std::uint32_t rowsPerBlock = 32;
constexpr std::uint64_t far = std::uint64_t(1) << 20; // between places that are kept
constexpr std::size_t sniffed = std::size_t(1) << 20;
constexpr int mostColumns = 1024;

} // namespace

// ---- the file

bool CsvFile::Fail(const std::string& why)
{
    m_error += why;
    m_scan.reset();
    return false;
}

bool CsvFile::Open(const std::string& path, std::function<void()> onRead)
{
    std::string why;
    auto bytes = OpenFile(path, why);
    m_error = path + ": ";
    if (!bytes)
        return Fail(why);
    if (!Open(std::move(bytes), std::move(onRead)))
        return false;
    m_error.clear();
    return true;
}

bool CsvFile::Open(std::unique_ptr<ByteSource> bytes, std::function<void()> onRead)
{
    m_bytes = std::move(bytes);
    std::uint64_t begin = 0; // behind the byte order mark
    {
        ByteWindow window(*m_bytes, onRead);
        const std::string_view start = window.From(0, 3).substr(0, 3);
        if (start.substr(0, 2) == "\xff\xfe" || start.substr(0, 2) == "\xfe\xff")
            return Fail("The file is encoded in UTF-16; save it as UTF-8");
        if (start == "\xef\xbb\xbf")
            begin = 3;
        m_dialect = Sniff(window.From(begin, sniffed).substr(0, sniffed));
    }
    m_scan = std::make_unique<CsvScanner>(*m_bytes, m_dialect, std::move(onRead));
    m_next = m_scan->SkipBlankLines(begin);
    return m_next < m_bytes->Size() || Fail("The file has no text in it");
}

bool CsvFile::IndexSome(std::size_t bytes)
{
    if (!m_scan)
        return false;
    const CsvScanner::OnCell keep = [this](std::uint64_t at, std::uint64_t before) { Keep(at, before); };
    const std::uint64_t size = m_bytes->Size();
    const std::uint64_t stop = m_next + std::min<std::uint64_t>(bytes, size - m_next);
    while (m_next < stop && !m_scan->IsLost()) {
        if (m_rows == std::numeric_limits<std::uint32_t>::max())
            return Fail("The file has too many rows");
        if (m_rows % rowsPerBlock == 0)
            m_blocks.push_back(m_kept = m_next);
        else
            Keep(m_next, 0);
        std::uint64_t cells = 0;
        m_next = m_scan->SkipBlankLines(m_scan->EndOfRow(m_next, &cells, &keep));
        m_columns = int(std::max<std::uint64_t>(m_columns, std::min<std::uint64_t>(cells, mostColumns)));
        ++m_rows;
    }
    if (m_bytes->Now() == ByteSource::State::shortened)
        return Fail("The file was shortened while it was read");
    if (m_scan->IsLost())
        return Fail("The file could not be read to its end");
    if (m_next == size)
        m_scan.reset();
    return m_next < size;
}

// Where a cell of the row begins that is being indexed, if the last place kept is far away.
void CsvFile::Keep(std::uint64_t at, std::uint64_t column)
{
    if (at - m_kept >= far && column < mostColumns) {
        m_marks.push_back({at, m_rows, int(column)});
        m_kept = at;
    }
}

// The last place kept that is not behind a cell.
CsvFile::Place CsvFile::LastBefore(std::uint32_t row, int column) const
{
    const std::uint32_t block = row / rowsPerBlock;
    const Place place{m_blocks[block], block * rowsPerBlock, 0};
    if (m_marks.empty())
        return place;
    const auto behind =
        std::upper_bound(m_marks.begin(), m_marks.end(), row, [&](std::uint32_t wanted, const Place& mark) {
            return mark.row != wanted ? mark.row > wanted : mark.column > column;
        });
    return behind != m_marks.begin() && behind[-1].at > place.at ? behind[-1] : place;
}

// ---- reading

bool RowReader::Go(std::uint32_t row)
{
    const std::uint32_t wanted = row + 1; // 0 for the header
    m_scan.ForgetLoss();
    if (wanted >= m_file->m_rows)
        return m_there = false;
    CsvFile::Place start = m_file->LastBefore(wanted, 0);
    if (m_there && m_cell.row <= wanted && m_cell.at > start.at)
        start = m_cell;
    if (start.row < wanted || !m_there || m_cell.row != wanted) {
        for (; start.row < wanted; ++start.row)
            start.at = m_scan.SkipBlankLines(m_scan.EndOfRow(start.at));
        m_row = start.at;
    }
    m_cell = {m_row, wanted, 0};
    m_cells = mostColumns;
    m_scan.From(m_row);
    return m_there = !m_scan.IsLost();
}

// To the beginning of a cell; false when the row has fewer.
bool RowReader::GoTo(int column)
{
    if (!m_there || column < 0 || column >= m_cells)
        return false;
    if (column < m_cell.column)
        m_cell = {m_row, m_cell.row, 0};
    const CsvFile::Place kept = m_file->LastBefore(m_cell.row, column);
    if (kept.row == m_cell.row && kept.at > m_cell.at)
        m_cell = kept;
    for (; m_cell.column < column; ++m_cell.column) {
        const std::uint64_t next = m_scan.NextCell(m_cell.at);
        if (next == 0) {
            m_cells = m_cell.column + 1;
            return false;
        }
        m_cell.at = next;
    }
    return true;
}

std::string RowReader::Bytes(int column, std::size_t limit)
{
    return GoTo(column) ? m_scan.Cell(m_cell.at, limit) : std::string();
}

std::string RowReader::Text(int column, std::size_t limit)
{
    return ShownText(Bytes(column, limit + longestSequence - 1), limit);
}

std::string_view RowReader::RawRow(std::size_t limit)
{
    if (!m_there)
        return {};
    const std::uint64_t length = std::min<std::uint64_t>(m_scan.EndOfRow(m_row) - m_row, limit);
    return m_scan.From(m_row, std::size_t(length)).substr(0, std::size_t(length));
}

} // namespace table
