// CSV files: what the index finds, against a parser that knows only csvfile.h's description and reads the
// whole file by characters.

#include "csvfile.h"

#include "fuzz.h"

#include <algorithm>

using table::CsvFile;
using table::RowReader;
using vela7::fuzz::Demand;

namespace {

constexpr std::size_t longestQuoted = std::size_t(1) << 20;
constexpr std::size_t judged = std::size_t(1) << 16;  // the kind of line end is judged by so many bytes
constexpr std::size_t sniffed = std::size_t(1) << 20; // the separator is judged by so many
constexpr int mostColumns = 1024;
constexpr std::size_t mostText = 3000; // is compared: the slow way is very slow

struct SlowRow
{
    std::string raw; // without the line's end
    std::vector<std::string> cells;
};

class SlowFile
{
public:
    explicit SlowFile(const std::string& text);

    bool readable = false;
    std::vector<SlowRow> rows;

private:
    bool IsSeparator(char separator) const { return m_at < m_text.size() && m_text[m_at] == separator; }
    bool IsLineEnd() const { return m_at < m_text.size() && m_text[m_at] == m_newline; }
    void SkipBlankLines();
    std::size_t ClosingQuote() const;
    bool TakeCell(char separator, SlowRow& row);
    SlowRow TakeRow(char separator);

    std::string m_text;
    std::size_t m_at = 0;
    char m_newline = '\n';
};

SlowFile::SlowFile(const std::string& text)
{
    const std::string mark = text.substr(0, 2);
    if (mark == "\xff\xfe" || mark == "\xfe\xff")
        return;
    m_text = text.substr(0, 3) == "\xef\xbb\xbf" ? text.substr(3) : text;
    const std::string head = m_text.substr(0, judged);
    if (head.find('\n') == std::string::npos && head.find('\r') != std::string::npos)
        m_newline = '\r';
    SkipBlankLines();
    const std::size_t begin = m_at;
    readable = begin < m_text.size();
    char separator = ',';
    std::size_t most = 0;
    const std::string whole = std::exchange(m_text, m_text.substr(0, sniffed));
    for (const char candidate : {',', ';', '\t'}) {
        m_at = begin;
        const std::size_t cells = TakeRow(candidate).cells.size();
        if (cells > most) {
            most = cells;
            separator = candidate;
        }
    }
    m_text = whole;
    for (m_at = begin; m_at < m_text.size(); SkipBlankLines())
        rows.push_back(TakeRow(separator));
}

void SlowFile::SkipBlankLines()
{
    for (;;)
        if (IsLineEnd())
            ++m_at;
        else if (m_text.compare(m_at, 2, "\r\n") == 0)
            m_at += 2;
        else
            return;
}

// Where the quote stands that closes the cell here; npos when there is none near enough.
std::size_t SlowFile::ClosingQuote() const
{
    const std::size_t last = std::min(m_text.size(), m_at + longestQuoted);
    for (std::size_t at = m_at + 1; at < last; ++at)
        if (m_text[at] == '"') {
            if (at + 1 == m_text.size() || m_text[at + 1] != '"')
                return at;
            ++at; // the second of two
        }
    return std::string::npos;
}

// True: the row goes on behind a separator.
bool SlowFile::TakeCell(char separator, SlowRow& row)
{
    const std::size_t begin = m_at;
    std::string bytes;
    const std::size_t closing =
        begin < m_text.size() && m_text[begin] == '"' ? ClosingQuote() : std::string::npos;
    if (closing != std::string::npos) {
        for (m_at = begin + 1; m_at < closing; ++m_at) {
            bytes += m_text[m_at];
            m_at += m_text[m_at] == '"';
        }
        m_at = closing + 1;
    }
    for (; m_at < m_text.size() && !IsSeparator(separator) && !IsLineEnd(); ++m_at)
        bytes += m_text[m_at];
    const bool more = IsSeparator(separator);
    if (!more && m_newline == '\n' && m_at > begin && m_text[m_at - 1] == '\r')
        bytes.pop_back();
    row.cells.push_back(bytes);
    m_at += more;
    return more;
}

SlowRow SlowFile::TakeRow(char separator)
{
    SlowRow row;
    const std::size_t begin = m_at;
    while (TakeCell(separator, row))
        continue;
    row.raw = m_text.substr(begin, m_at - begin);
    return row;
}

// ---- as text

struct Utf8Form // one row of the standard's table of well-formed sequences
{
    unsigned char firstLow, firstHigh, secondLow, secondHigh;
    std::size_t length;
};

// clang-format off
constexpr Utf8Form forms[] = {
    {0x00, 0x7f, 0x00, 0x00, 1}, {0xc2, 0xdf, 0x80, 0xbf, 2}, {0xe0, 0xe0, 0xa0, 0xbf, 3},
    {0xe1, 0xec, 0x80, 0xbf, 3}, {0xed, 0xed, 0x80, 0x9f, 3}, {0xee, 0xef, 0x80, 0xbf, 3},
    {0xf0, 0xf0, 0x90, 0xbf, 4}, {0xf1, 0xf3, 0x80, 0xbf, 4}, {0xf4, 0xf4, 0x80, 0x8f, 4},
};
// clang-format on

// The length of the well-formed sequence at a place; 0 when there is none.
std::size_t FormLength(const std::string& bytes, std::size_t at)
{
    const auto byte = [&](std::size_t i) {
        return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0;
    };
    for (const Utf8Form& form : forms) {
        bool fits = byte(at) >= form.firstLow && byte(at) <= form.firstHigh;
        for (std::size_t i = 1; i < form.length; ++i)
            fits = fits && byte(at + i) >= (i == 1 ? form.secondLow : 0x80) &&
                   byte(at + i) <= (i == 1 ? form.secondHigh : 0xbf);
        if (fits)
            return form.length;
    }
    return 0;
}

std::string SlowText(const std::string& bytes)
{
    std::string text;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t length = FormLength(bytes, at);
        const auto lead = static_cast<unsigned char>(bytes[at]);
        const bool c1 = length == 2 && lead == 0xc2 && static_cast<unsigned char>(bytes[at + 1]) < 0xa0;
        if (c1 || (length == 1 && (lead < 0x20 || lead == 0x7f)))
            text += ' ';
        else if (length > 0)
            text += bytes.substr(at, length);
        else if (lead < 0xa0)
            text += "\ufffd";
        else
            text += {static_cast<char>(lead < 0xc0 ? 0xc2 : 0xc3), static_cast<char>(0x80 + lead % 0x40)};
        at += std::max<std::size_t>(length, 1);
    }
    return text;
}

// ---- both

// A short input becomes a long file: \x01 stands for many letters, if wanted one \x02 for as many as a quoted
// cell may hold.
std::string Expanded(const std::string& input, bool longest)
{
    std::string text;
    for (const char c : input)
        if (c == '\x01')
            text.append(1000, 'x');
        else if (c == '\x02' && std::exchange(longest, false))
            text.append(longestQuoted - 10, 'y');
        else
            text += c;
    return text;
}

void DemandCell(RowReader& reader, const SlowRow& row, int column)
{
    const auto index = static_cast<std::size_t>(column);
    const bool there = index < row.cells.size();
    const std::string bytes = there ? row.cells[index] : "";
    Demand(reader.Bytes(column, bytes.size() + 1) == bytes, "the cell");
    Demand(reader.Bytes(column, 3) == bytes.substr(0, 3), "the beginning of the cell");
    if (bytes.size() < mostText)
        Demand(reader.Text(column, mostText) == SlowText(bytes), "the cell as text");
}

void Compare(const CsvFile& file, const std::vector<SlowRow>& rows, FuzzedDataProvider& in)
{
    std::size_t columns = 0;
    for (const SlowRow& row : rows)
        columns = std::max(columns, row.cells.size());
    Demand(file.RowCount() + 1 == rows.size(), "the number of rows");
    Demand(file.ColumnCount() == static_cast<int>(std::min<std::size_t>(columns, mostColumns)),
           "the number of columns");
    RowReader reader(file);
    const auto go = [&](std::size_t row) {
        return reader.Go(row == 0 ? RowReader::header : static_cast<std::uint32_t>(row - 1));
    };
    for (std::size_t i = 0; i < rows.size(); ++i) {
        Demand(go(i) && reader.RawRow(rows[i].raw.size() + 1) == rows[i].raw, "the row");
        for (int column = 0; column <= static_cast<int>(rows[i].cells.size()); ++column)
            DemandCell(reader, rows[i], column);
    }
    Demand(!go(rows.size()) && reader.Bytes(0, 1).empty(), "nothing behind the last row");
    for (int i = 0; i < 20 && in.remaining_bytes() > 0; ++i) { // in any order
        const auto row = in.ConsumeIntegralInRange<std::size_t>(0, rows.size() - 1);
        Demand(go(row), "the row in any order");
        DemandCell(reader, rows[row], in.ConsumeIntegralInRange(0, 40));
    }
}

} // namespace

// The file is what the reader of bytes takes from the front; the order in which it is read comes from the
// end.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider in(data, size);
    const auto step = in.ConsumeIntegralInRange<std::size_t>(1, 300);
    const bool longest = in.ConsumeIntegralInRange(0, 15) == 0; // seldom, it takes long
    const std::string text =
        Expanded(in.ConsumeBytesAsString(in.remaining_bytes() - in.remaining_bytes() / 8), longest);
    const SlowFile slow(text);
    CsvFile file;
    const auto piece = in.ConsumeIntegralInRange<std::size_t>(1, 300);
    Demand(file.Open(std::make_unique<table::MemoryBytes>(text, piece)) == slow.readable,
           "whether it can be read");
    if (!slow.readable) {
        Demand(!file.Error().empty() && !file.IndexSome() && file.RowCount() == 0, "an error and no rows");
        return 0;
    }
    while (file.IndexSome(step))
        Demand(file.Progress() > 0 && file.Progress() <= 1, "the progress");
    Demand(file.Error().empty(), "no error");
    Compare(file, slow.rows, in);
    return 0;
}
