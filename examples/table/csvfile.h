/// A CSV file as a table of cells: mapped into memory and indexed, never copied.
///
/// Every 32nd row's place is kept, the rows between are found by looking. The first row is the header.
///
/// What is accepted: the separator is the one of comma, semicolon and tab that the first row has most of;
/// lines end with LF, CRLF or (in a file without LF) CR; blank lines count for nothing. A cell that begins
/// with a quote ends at the next single quote and may hold anything, doubled quotes for one. What follows the
/// closing quote belongs to the cell too. A quote that is not closed within 1 MiB is an ordinary character.
/// Missing cells are empty; cells beyond the 1024th of a row are not shown.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace table {

/// Thread: indexing on any one thread; when it is through, any number of threads may read.
class CsvFile
{
public:
    CsvFile() = default;
    ~CsvFile();
    CsvFile(const CsvFile&) = delete;
    CsvFile& operator=(const CsvFile&) = delete;

    /// Once. False: Error tells why, for the user.
    bool Open(const std::string& path);
    const std::string& Error() const { return m_error; }

    /// Indexes about this many bytes; false when there is nothing more to do, or Error is not empty.
    bool IndexSome(std::size_t bytes = std::size_t(4) << 20);
    /// 0..1, of the indexing; its thread.
    double Progress() const { return double(m_next - m_map) / double(m_size); }

    /// Without the header.
    std::uint32_t RowCount() const { return m_rows > 0 ? m_rows - 1 : 0; }
    /// Of the longest row.
    int ColumnCount() const { return m_columns; }
    std::size_t Size() const { return m_size; }

    /// False when somebody shortened the file: its tail must not be touched then.
    bool IsIntact() const;
    /// Gives the memory of the mapping back; it is read anew where needed.
    void Release() const;

private:
    friend class RowReader;

    const char* SkipBlankLines(const char* at) const;
    const char* EndOfRow(const char* row, int* cells = nullptr) const;
    const char* EndOfCell(const char* cell) const;
    void Sniff();

    int m_file = -1;
    const char* m_map = nullptr;
    std::size_t m_size = 0;
    const char* m_begin = nullptr; // behind the byte order mark
    const char* m_end = nullptr;
    const char* m_next = nullptr;        // to be indexed
    std::vector<std::uint64_t> m_blocks; // where every 32nd row begins
    std::uint32_t m_rows = 0;            // with the header
    int m_columns = 0;
    char m_separator = ',';
    char m_newline = '\n';
    std::string m_error;
};

/// Reads cells; fastest from top to bottom and from left to right. One thread each.
class RowReader
{
public:
    static constexpr std::uint32_t header = UINT32_MAX;

    explicit RowReader(const CsvFile& file) : m_file(&file) {}

    /// False, and only empty cells, when there is no such row or the file was shortened.
    bool Go(std::uint32_t row);
    /// The cell's bytes as they stand in the file, with its quotes.
    std::string_view Raw(int column);
    /// The bytes of the cell, at most limit.
    std::string Bytes(int column, std::size_t limit);
    /// The same in valid UTF-8 (bytes that are not are taken for Latin-1), control characters as blanks.
    std::string Text(int column, std::size_t limit);
    /// The whole row as it stands in the file.
    std::string_view RawRow() const;

private:
    const CsvFile* m_file;
    const char* m_row = nullptr;  // null: no row
    const char* m_cell = nullptr; // null: behind the last one
    std::uint64_t m_number = 0;   // of m_row, with the header
    int m_column = 0;             // of m_cell
};

} // namespace table
