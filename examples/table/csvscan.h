/// The grammar of CSV files, on bytes of which only a part is in memory.
#pragma once

#include "bytes.h"

namespace table {

struct CsvDialect
{
    char separator = ',';
    char newline = '\n';
};

/// What the beginning of a file (behind the byte order mark) shows of its dialect.
CsvDialect Sniff(std::string_view start);

/// Finds rows and cells; takes and answers places in the file. One thread each.
class CsvScanner : public ByteWindow
{
public:
    CsvScanner(const ByteSource& source, CsvDialect dialect, std::function<void()> onRead = {})
        : ByteWindow(source, std::move(onRead)), m_dialect(dialect)
    {
    }

    std::uint64_t SkipBlankLines(std::uint64_t at);
    /// At the line's end, of a row or from a cell on. cells: adds their number, of rows with very many at
    /// least a million. onCell: hears of some cells of long rows on the way, their places and how many cells
    /// are before them.
    using OnCell = std::function<void(std::uint64_t at, std::uint64_t before)>;
    std::uint64_t EndOfRow(std::uint64_t cell, std::uint64_t* cells = nullptr,
                           const OnCell* onCell = nullptr);
    /// At the separator or at the line's end.
    std::uint64_t EndOfCell(std::uint64_t cell);
    /// Behind the separator; 0: this is the last cell of the row.
    std::uint64_t NextCell(std::uint64_t cell);
    /// The cell's bytes without its quotes, at most so many.
    std::string Cell(std::uint64_t cell, std::size_t limit);

private:
    std::size_t Stop(std::string_view bytes) const;
    std::uint64_t BehindClosingQuote(std::uint64_t opening);
    std::uint64_t EndOfPlain(std::uint64_t at);
    void AppendQuoted(std::string& bytes, std::uint64_t at, std::uint64_t end, std::size_t limit);
    void AppendPlain(std::string& bytes, std::uint64_t at, std::size_t limit);

    const CsvDialect m_dialect;
};

} // namespace table
