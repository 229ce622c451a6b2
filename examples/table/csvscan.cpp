#include "csvscan.h"

#include <algorithm>
#include <cstring>

namespace table {

namespace {

constexpr std::uint64_t longestQuoted = std::uint64_t(1) << 20;
constexpr std::uint64_t mostCounted = std::uint64_t(1) << 20; // cells; in a row that has more, not all are

// Its place; the text's size when it is not there.
std::size_t Find(std::string_view text, char what)
{
    const void* const found = text.empty() ? nullptr : std::memchr(text.data(), what, text.size());
    return found ? std::size_t(static_cast<const char*>(found) - text.data()) : text.size();
}

bool Has(std::string_view text, char what)
{
    return Find(text, what) < text.size();
}

// By sixteens, for the compiler to do them at once.
std::uint64_t Count(std::string_view text, char what)
{
    std::uint64_t count = 0;
    const char* at = text.data();
    const char* const end = at + text.size();
    for (; end - at >= 16; at += 16) {
        unsigned char some = 0;
        for (int i = 0; i < 16; ++i)
            some = static_cast<unsigned char>(some + (at[i] == what));
        count += some;
    }
    return count + std::uint64_t(std::count(at, end, what));
}

} // namespace

CsvDialect Sniff(std::string_view start)
{
    CsvDialect dialect;
    const std::string_view lines = start.substr(0, std::size_t(1) << 16);
    if (!Has(lines, '\n') && Has(lines, '\r'))
        dialect.newline = '\r';
    const MemoryBytes bytes(start);
    std::uint64_t most = 0;
    for (const char separator : {',', ';', '\t'}) {
        CsvScanner scanner(bytes, {separator, dialect.newline});
        std::uint64_t cells = 0;
        scanner.EndOfRow(scanner.SkipBlankLines(0), &cells);
        if (cells > most)
            dialect.separator = separator;
        most = std::max(most, cells);
    }
    return dialect;
}

std::uint64_t CsvScanner::SkipBlankLines(std::uint64_t at)
{
    for (;;) {
        const std::string_view bytes = From(at, 2);
        if (bytes.empty() ||
            (bytes[0] != m_dialect.newline && (bytes[0] != '\r' || bytes.size() < 2 || bytes[1] != '\n')))
            return at;
        ++at;
    }
}

std::uint64_t CsvScanner::EndOfRow(std::uint64_t cell, std::uint64_t* cells, const OnCell* onCell)
{
    std::uint64_t at = cell, before = 0;
    const auto end = [&](std::uint64_t place) {
        if (cells)
            *cells += before + 1;
        return place;
    };
    for (;;) {
        if (onCell && at != cell)
            (*onCell)(at, before);
        const std::string_view seen = From(at);
        const std::string_view line = seen.substr(0, Find(seen, m_dialect.newline));
        const std::uint64_t stop = at + line.size();
        if (!Has(line, '"')) { // which is most rows
            const bool whole = line.size() < seen.size();
            const std::size_t last = whole ? line.size() : line.rfind(m_dialect.separator) + 1;
            if (cells && before < mostCounted)
                before += Count(line.substr(0, last), m_dialect.separator);
            if (whole)
                return end(stop);
            at += last;
        }
        do { // cell by cell, as far as was looked for quotes
            if (onCell)
                (*onCell)(at, before);
            at = EndOfCell(at);
            if (!IsAt(at, m_dialect.separator))
                return end(at);
            ++at;
            ++before;
        } while (at < stop);
    }
}

std::uint64_t CsvScanner::EndOfCell(std::uint64_t cell)
{
    const std::uint64_t behind = IsAt(cell, '"') ? BehindClosingQuote(cell) : 0;
    return EndOfPlain(behind ? behind : cell);
}

std::uint64_t CsvScanner::NextCell(std::uint64_t cell)
{
    const std::uint64_t end = EndOfCell(cell);
    return IsAt(end, m_dialect.separator) ? end + 1 : 0;
}

std::string CsvScanner::Cell(std::uint64_t cell, std::size_t limit)
{
    std::string bytes;
    const std::uint64_t behind = IsAt(cell, '"') ? BehindClosingQuote(cell) : 0;
    if (behind)
        AppendQuoted(bytes, cell + 1, behind - 1, limit);
    AppendPlain(bytes, behind ? behind : cell, limit);
    return bytes;
}

// Where the first separator or newline is; the size when there is none. By short pieces: the next separator
// may be far beyond the line's end.
std::size_t CsvScanner::Stop(std::string_view bytes) const
{
    constexpr std::size_t piece = 4096;
    for (std::size_t done = 0; done < bytes.size(); done += piece) {
        std::string_view some = bytes.substr(done, piece);
        const std::size_t whole = some.size();
        some = some.substr(0, Find(some, m_dialect.separator));
        some = some.substr(0, Find(some, m_dialect.newline));
        if (some.size() < whole)
            return done + some.size();
    }
    return bytes.size();
}

// 0 when there is none near enough.
std::uint64_t CsvScanner::BehindClosingQuote(std::uint64_t opening)
{
    const std::uint64_t last = opening + std::min(longestQuoted, Size() - opening);
    for (std::uint64_t at = opening + 1; at < last;) {
        std::string_view bytes = From(at);
        if (bytes.empty())
            return 0;
        bytes = bytes.substr(0, std::size_t(std::min<std::uint64_t>(bytes.size(), last - at)));
        const std::size_t quote = Find(bytes, '"');
        at += quote;
        if (quote == bytes.size())
            continue;
        if (!IsAt(at + 1, '"'))
            return at + 1;
        at += 2;
    }
    return 0;
}

std::uint64_t CsvScanner::EndOfPlain(std::uint64_t at)
{
    for (;;) {
        const std::string_view bytes = From(at);
        const std::size_t stop = Stop(bytes);
        at += stop;
        if (stop < bytes.size() || bytes.empty())
            return at;
    }
}

// What is between the quotes; of two quotes one.
void CsvScanner::AppendQuoted(std::string& bytes, std::uint64_t at, std::uint64_t end, std::size_t limit)
{
    while (at < end && bytes.size() < limit) {
        const std::string_view seen = From(at);
        if (seen.empty())
            return;
        const std::uint64_t most = std::min<std::uint64_t>(end - at, limit - bytes.size());
        const std::string_view some = seen.substr(0, std::size_t(std::min<std::uint64_t>(seen.size(), most)));
        const std::size_t quote = Find(some, '"');
        bytes += some.substr(0, quote + 1);
        at += quote < some.size() ? quote + 2 : quote;
    }
}

// Up to the cell's end. Takes a byte more than wanted, in case the last one belongs to the line's end.
void CsvScanner::AppendPlain(std::string& bytes, std::uint64_t at, std::size_t limit)
{
    const std::size_t start = bytes.size();
    for (bool more = true; more && bytes.size() <= limit;) {
        const std::string_view some = From(at).substr(0, limit + 1 - bytes.size());
        const std::size_t stop = Stop(some);
        bytes += some.substr(0, stop);
        at += stop;
        more = stop == some.size() && !some.empty();
    }
    const bool carriageReturn = bytes.size() > start && bytes.back() == '\r' && m_dialect.newline == '\n';
    if (carriageReturn && (From(at).empty() || IsAt(at, '\n')))
        bytes.pop_back();
    if (bytes.size() > limit)
        bytes.resize(limit);
}

} // namespace table
