/// A CSV file as a table of cells: indexed and read where needed, never copied.
///
/// Every 32nd row's place is kept, the rows between are found by looking; in long rows also places in
/// between, so that looking for a cell never takes more than some MiB. The first row is the header.
///
/// What is accepted: the separator is the one of comma, semicolon and tab that the first row (its first MiB)
/// has most of; lines end with LF, CRLF or (in a file without LF) CR; blank lines count for nothing. A cell
/// that begins with a quote ends at the next single quote and may hold anything, doubled quotes for one. What
/// follows the closing quote belongs to the cell too. A quote that is not closed within 1 MiB is an ordinary
/// character. Missing cells are empty; cells beyond the 1024th of a row are not shown.
///
/// To try the grammar on any bytes, without a file and without a window:
///
///     CsvFile file;
///     file.Open(std::make_unique<MemoryBytes>(bytes, 1)); // cut into pieces of a byte at first
///     while (file.IndexSome())
///         continue;
///     RowReader(file).Go(RowReader::header);              // and so on
#pragma once

#include "csvscan.h"

namespace table {

/// Thread: opening and indexing on any one thread; when it is through, any number of threads may read.
class CsvFile
{
public:
    CsvFile() = default;
    CsvFile(const CsvFile&) = delete;
    CsvFile& operator=(const CsvFile&) = delete;

    /// Once. False: Error tells why, for the user. onRead is called before each read of opening and indexing;
    /// it may throw, which is the end of this file.
    bool Open(const std::string& path, std::function<void()> onRead = {});
    bool Open(std::unique_ptr<ByteSource> bytes, std::function<void()> onRead = {});
    const std::string& Error() const { return m_error; }

    /// Indexes about this many bytes; false when there is nothing more to do, or Error is not empty.
    bool IndexSome(std::size_t bytes = std::size_t(4) << 20);
    /// 0..1, of the indexing; its thread.
    double Progress() const { return m_scan ? double(m_scan->End()) / double(Bytes().Size()) : 1.0; }

    /// Without the header.
    std::uint32_t RowCount() const { return m_rows > 0 ? m_rows - 1 : 0; }
    /// Of the longest row.
    int ColumnCount() const { return m_columns; }
    /// When the file is open.
    const ByteSource& Bytes() const { return *m_bytes; }

private:
    friend class RowReader;

    // Where a cell begins. Rows are counted with the header.
    struct Place
    {
        std::uint64_t at = 0;
        std::uint32_t row = 0;
        int column = 0;
    };

    bool Fail(const std::string& why);
    void Keep(std::uint64_t at, std::uint64_t column);
    Place LastBefore(std::uint32_t row, int column) const;

    std::unique_ptr<ByteSource> m_bytes;
    CsvDialect m_dialect;
    std::unique_ptr<CsvScanner> m_scan;  // while there is something to index
    std::uint64_t m_next = 0;            // to be indexed
    std::vector<std::uint64_t> m_blocks; // where every 32nd row begins
    std::vector<Place> m_marks;          // in long rows, in order
    std::uint64_t m_kept = 0;            // the last place in either
    std::uint32_t m_rows = 0;            // with the header
    int m_columns = 0;
    std::string m_error;
};

/// Reads cells; fastest from top to bottom and from left to right. One thread each.
class RowReader
{
public:
    static constexpr std::uint32_t header = UINT32_MAX;

    /// Of an open file. onRead is called before each read; it may throw.
    explicit RowReader(const CsvFile& file, std::function<void()> onRead = {})
        : m_file(&file), m_scan(file.Bytes(), file.m_dialect, std::move(onRead))
    {
    }

    /// False, and only empty cells, when there is no such row, or no more since the file was shortened.
    bool Go(std::uint32_t row);
    /// The bytes of the cell, at most limit.
    std::string Bytes(int column, std::size_t limit);
    /// The same as ShownText; of a character that limit cuts through, all.
    std::string Text(int column, std::size_t limit);
    /// The row as it stands in the file, at most limit bytes. Good until the next call.
    std::string_view RawRow(std::size_t limit);

private:
    bool GoTo(int column);

    const CsvFile* m_file;
    CsvScanner m_scan;
    bool m_there = false;
    std::uint64_t m_row = 0; // where it begins
    CsvFile::Place m_cell;   // in it
    int m_cells = 0;         // in it, as far as known
};

} // namespace table
