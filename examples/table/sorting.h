/// Orders of rows, and looking for text in them.
#pragma once

#include "csvfile.h"
#include "worker.h"

#include <memory>
#include <string>
#include <vector>

namespace table {

/// The rows of the file in the order in which they are shown. Null: as in the file.
using Order = std::shared_ptr<const std::vector<std::uint32_t>>;

/// Sorts the rows by a column: by value when all its cells are numbers (or empty), else by their bytes. Rows
/// that are equal (in their first 4 KiB) stay in the order of the file, descending too.
///
/// Takes 16 bytes a row.
class SortTask : public Task
{
public:
    SortTask(std::shared_ptr<const CsvFile> file, int column, bool descending);

    bool Step() override;
    /// When done.
    Order Result() const { return m_result; }

private:
    // Packed: as many as there are rows.
    struct Entry
    {
        std::uint32_t high, low, row;

        std::uint64_t Key() const { return std::uint64_t(high) << 32 | low; }
        friend bool operator<(const Entry& a, const Entry& b)
        {
            return a.Key() != b.Key() ? a.Key() < b.Key() : a.row < b.row;
        }
    };
    using Iterator = std::vector<Entry>::iterator;

    bool Load(std::uint64_t (SortTask::*key)(std::uint32_t));
    std::uint64_t NumberKey(std::uint32_t row);
    std::uint64_t TextKey(std::uint32_t row, std::size_t from);
    std::uint64_t StartKey(std::uint32_t row) { return TextKey(row, 0); }
    void Worked(int amount);
    template <class Less>
    void Sort(Iterator begin, Iterator end, Less less);
    void Refine(Iterator begin, Iterator end, std::size_t from);
    void Finish();

    const std::shared_ptr<const CsvFile> m_file;
    RowReader m_reader;
    const int m_column;
    const std::uint64_t m_flip; // turns the keys round
    std::vector<Entry> m_entries;
    int m_worked = 0;      // since the last tick
    bool m_numbers = true; // so far
    Order m_result;
};

struct CellPos
{
    std::uint32_t row = 0; // as shown
    int column = 0;

    friend bool operator==(const CellPos& a, const CellPos& b)
    {
        return a.row == b.row && a.column == b.column;
    }
};

/// Looks for a cell that contains a text, row by row from a cell on, then from the top on. Letters A to Z are
/// the same in both cases.
class FindTask : public Task
{
public:
    FindTask(std::shared_ptr<const CsvFile> file, Order order, std::string text, CellPos from);

    bool Step() override;
    /// When done.
    bool IsFound() const { return m_found; }
    CellPos Where() const { return m_at; }

private:
    bool Contains(std::string_view bytes) const;
    bool LookInRow(int first, int last);

    const std::shared_ptr<const CsvFile> m_file;
    const Order m_order;
    RowReader m_reader;
    const std::string m_text; // in lower case
    const CellPos m_from;
    std::uint64_t m_looked = 0; // rows; the first one is looked at twice
    CellPos m_at;
    bool m_found = false;
};

} // namespace table
