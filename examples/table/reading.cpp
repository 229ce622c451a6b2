#include "reading.h"

#include <algorithm>
#include <cmath>

namespace table {

namespace {

constexpr int widestByItself = 320;
constexpr std::uint32_t sampledRows = 100;
constexpr std::size_t sampledBytes = 100;
constexpr std::uint64_t rowsPerStep = 4096;
constexpr std::size_t mostCopied = std::size_t(16) << 20;

} // namespace

int TextMeasure::Width(const std::string& text) const
{
    double width = 0.0;
    for (const unsigned char byte : text)
        width += byte < 128 ? advance[byte] : byte >= 0xc0 ? advance[0] : 0.0;
    return int(std::ceil(width));
}

// ---- widths

WidthTask::WidthTask(std::shared_ptr<const CsvFile> file, const TextMeasure& measure, int first, int last)
    : m_file(std::move(file)), m_reader(*m_file, [this] { Tick(); }), m_measure(measure), m_first(first),
      m_widths(std::size_t(last - first), narrowest)
{
}

void WidthTask::Look(std::uint32_t row)
{
    m_reader.Go(row);
    for (std::size_t i = 0; i < m_widths.size(); ++i) {
        const std::string text = m_reader.Text(m_first + int(i), sampledBytes);
        m_widths[i] = std::max(m_widths[i], std::min(m_measure.Width(text) + 2 * padding, widestByItself));
    }
}

bool WidthTask::Step()
{
    const std::uint32_t rows = m_file->RowCount();
    Look(RowReader::header);
    for (std::uint32_t i = 0; i < sampledRows && i < rows; ++i) {
        Tick();
        Look(i);
        Look(std::uint32_t(std::uint64_t(rows) * i / sampledRows));
    }
    return false;
}

// ---- the file

bool OpenTask::Step()
{
    const auto tell = [this] {
        progress = m_file->Progress();
        Tick();
    };
    if (!m_opened)
        return m_opened = m_file->Open(m_path, tell);
    return m_file->IndexSome();
}

// ---- what is copied

CopyTask::CopyTask(std::shared_ptr<const CsvFile> file, Order order, CellPos first, CellPos last)
    : m_file(std::move(file)), m_order(std::move(order)), m_reader(*m_file, [this] { Tick(); }),
      m_first(first), m_last(last), m_row(first.row)
{
}

bool CopyTask::Step()
{
    const std::uint64_t end = std::min<std::uint64_t>(std::uint64_t(m_last.row) + 1, m_file->RowCount());
    for (std::uint64_t i = 0; i < rowsPerStep && m_row < end && m_text.size() < mostCopied; ++i, ++m_row) {
        m_reader.Go(m_order ? (*m_order)[std::size_t(m_row)] : std::uint32_t(m_row));
        for (int column = m_first.column; column <= m_last.column && m_text.size() < mostCopied; ++column)
            m_text +=
                m_reader.Text(column, mostCopied - m_text.size()) + (column < m_last.column ? "\t" : "");
        m_text += m_row < m_last.row ? "\n" : "";
    }
    const bool more = m_row < end && m_text.size() < mostCopied;
    progress = more ? std::max(double(m_row - m_first.row) / double(end - m_first.row),
                               double(m_text.size()) / double(mostCopied))
                    : 1.0;
    return more;
}

} // namespace table
