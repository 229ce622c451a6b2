#include "sorting.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <functional>

namespace table {

namespace {

constexpr std::uint32_t rowsPerStep = 1 << 15;
constexpr std::size_t bytesPerKey = 7; // and one that tells how many of them are there
constexpr std::size_t compared = 4096;
constexpr double loaded = 0.5; // of the progress
constexpr int perKey = 64;     // what reading one takes, in comparisons

// Grows with the value.
std::uint64_t KeyOf(double value)
{
    std::uint64_t bits = 0;
    value += 0.0; // no negative zero
    std::memcpy(&bits, &value, sizeof bits);
    return bits >> 63 ? ~bits : bits | std::uint64_t(1) << 63;
}

bool Parse(std::string_view text, double& value)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    return result.ec == std::errc() && result.ptr == end && std::isfinite(value);
}

constexpr std::size_t mostBytes = std::size_t(1) << 21;  // more than a quoted cell can have
constexpr std::size_t longestRow = std::size_t(1) << 16; // that is looked at as a whole

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? char(c + 'a' - 'A') : c;
}

} // namespace

SortTask::SortTask(std::shared_ptr<const CsvFile> file, int column, bool descending)
    : m_file(std::move(file)), m_reader(*m_file, [this] { Tick(); }), m_column(column),
      m_flip(descending ? ~std::uint64_t(0) : 0)
{
}

bool SortTask::Step()
{
    m_entries.reserve(m_file->RowCount());
    if (m_entries.size() < m_file->RowCount()) {
        if (!Load(m_numbers ? &SortTask::NumberKey : &SortTask::StartKey)) {
            m_numbers = false;
            m_entries.clear();
        }
        progress = loaded * double(m_entries.size()) / m_file->RowCount();
        return true;
    }
    Sort(m_entries.begin(), m_entries.end(), std::less<Entry>());
    if (!m_numbers)
        Refine(m_entries.begin(), m_entries.end(), bytesPerKey);
    Finish();
    return false;
}

// The keys of some more rows; false when a cell is no number.
bool SortTask::Load(std::uint64_t (SortTask::*key)(std::uint32_t))
{
    const auto first = static_cast<std::uint32_t>(m_entries.size());
    const std::uint32_t last = first + std::min(rowsPerStep, m_file->RowCount() - first);
    const bool asNumbers = m_numbers;
    for (std::uint32_t row = first; row < last && m_numbers == asNumbers; ++row) {
        const std::uint64_t value = (this->*key)(row) ^ m_flip;
        m_entries.push_back({std::uint32_t(value >> 32), std::uint32_t(value), row});
    }
    return m_numbers == asNumbers;
}

// Empty cells come before all numbers.
std::uint64_t SortTask::NumberKey(std::uint32_t row)
{
    m_reader.Go(row);
    const std::string bytes = m_reader.Bytes(m_column, 64);
    double value = 0.0;
    if (bytes.empty())
        return 0;
    m_numbers = bytes.size() < 64 && Parse(bytes, value);
    return KeyOf(value);
}

// Seven bytes of the cell and their number; 8 when there are more.
std::uint64_t SortTask::TextKey(std::uint32_t row, std::size_t from)
{
    m_reader.Go(row);
    const std::string bytes = m_reader.Bytes(m_column, from + bytesPerKey + 1);
    std::uint64_t key = 0;
    for (std::size_t i = from; i < from + bytesPerKey; ++i)
        key = key << 8 | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0);
    return key << 8 | (bytes.size() > from ? bytes.size() - from : 0);
}

// Asks now and then whether to go on, about each millisecond. The amount is in comparisons.
void SortTask::Worked(int amount)
{
    m_worked += amount;
    if (m_worked < 1 << 16)
        return;
    m_worked = 0;
    progress = progress + (1.0 - progress) * 0.0005;
    Tick();
}

template <class Less>
void SortTask::Sort(Iterator begin, Iterator end, Less less)
{
    std::sort(begin, end, [&](const Entry& a, const Entry& b) {
        Worked(1);
        return less(a, b);
    });
}

// Sorts the rows that have agreed up to here by what follows.
void SortTask::Refine(Iterator begin, Iterator end, std::size_t from)
{
    for (auto run = begin; run != end;) {
        const auto next = std::find_if(run, end, [&](const Entry& e) {
            Worked(1);
            return e.Key() != run->Key();
        });
        const bool more = ((run->Key() ^ m_flip) & 0xff) > bytesPerKey;
        if (more && next - run > 1 && from < compared) {
            Sort(run, next, [](const Entry& a, const Entry& b) { return a.row < b.row; });
            for (auto entry = run; entry != next; ++entry) {
                const std::uint64_t key = TextKey(entry->row, from) ^ m_flip;
                entry->high = std::uint32_t(key >> 32);
                entry->low = std::uint32_t(key);
                Worked(perKey);
            }
            Sort(run, next, std::less<Entry>());
            Refine(run, next, from + bytesPerKey);
        }
        run = next;
        if (from == bytesPerKey)
            progress = std::max<double>(progress, double(run - m_entries.begin()) / double(m_entries.size()));
    }
}

void SortTask::Finish()
{
    auto order = std::make_shared<std::vector<std::uint32_t>>();
    order->reserve(m_entries.size());
    for (const Entry& entry : m_entries)
        order->push_back(entry.row);
    std::vector<Entry>().swap(m_entries);
    m_result = std::move(order);
    progress = 1.0;
}

// ---- looking for text

FindTask::FindTask(std::shared_ptr<const CsvFile> file, Order order, std::string text, CellPos from)
    : m_file(std::move(file)), m_order(std::move(order)), m_reader(*m_file, [this] { Tick(); }), m_text([&] {
          std::transform(text.begin(), text.end(), text.begin(), Lower);
          return text;
      }()),
      m_from(from)
{
}

bool FindTask::Contains(std::string_view bytes) const
{
    return std::search(bytes.begin(), bytes.end(), m_text.begin(), m_text.end(),
                       [](char a, char b) { return Lower(a) == b; }) != bytes.end();
}

bool FindTask::LookInRow(int first, int last)
{
    m_reader.Go(m_order ? (*m_order)[m_at.row] : m_at.row);
    // Most rows are out at the first look. Quotes stand doubled in the file.
    const std::string_view row = m_reader.RawRow(longestRow);
    if (m_text.find('"') == std::string::npos && row.size() < longestRow && !Contains(row))
        return false;
    for (m_at.column = first; m_at.column < last; ++m_at.column)
        if (Contains(m_reader.Bytes(m_at.column, mostBytes)))
            return true;
    return false;
}

bool FindTask::Step()
{
    const std::uint32_t rows = m_file->RowCount();
    for (int i = 0; i < int(rowsPerStep) && m_looked <= rows && rows > 0; ++i, ++m_looked) {
        m_at.row = static_cast<std::uint32_t>((m_from.row + m_looked) % rows);
        const int first = m_looked == 0 ? m_from.column : 0;
        const int last = m_looked == rows ? m_from.column : m_file->ColumnCount();
        m_found = LookInRow(first, last);
        if (m_found)
            return false;
    }
    progress = rows > 0 ? double(m_looked) / (rows + 1.0) : 1.0;
    return m_looked <= rows && rows > 0;
}

} // namespace table
