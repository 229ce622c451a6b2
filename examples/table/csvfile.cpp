#include "csvfile.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace table {

namespace {

constexpr std::uint32_t rowsPerBlock = 32;
constexpr std::size_t longestQuoted = std::size_t(1) << 20;
constexpr int mostColumns = 1024;

const char* Find(const char* from, const char* to, char what)
{
    const void* const found = from < to ? std::memchr(from, what, std::size_t(to - from)) : nullptr;
    return found ? static_cast<const char*>(found) : to;
}

// Behind the quote that closes the cell; null when there is none near enough.
const char* BehindClosingQuote(const char* opening, const char* end)
{
    const char* const last = opening + std::min<std::size_t>(longestQuoted, std::size_t(end - opening));
    for (const char* at = opening + 1;; at += 2) {
        at = Find(at, last, '"');
        if (at == last)
            return nullptr;
        if (at + 1 == end || at[1] != '"')
            return at + 1;
    }
}

// The length of the UTF-8 sequence at the beginning of the text; 0 when it is none.
std::size_t SequenceLength(std::string_view text)
{
    constexpr std::uint32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    std::uint32_t code = static_cast<unsigned char>(text[0]);
    const std::size_t length = code < 0x80 ? 1 : code < 0xc0 ? 0 : code < 0xe0 ? 2 : code < 0xf0 ? 3 : 4;
    if (length < 2 || length > text.size())
        return length == 1;
    code &= 0x7fu >> length;
    for (std::size_t i = 1; i < length; ++i) {
        if ((text[i] & 0xc0) != 0x80)
            return 0;
        code = code << 6 | (text[i] & 0x3f);
    }
    return code < least[length] || (code >= 0xd800 && code < 0xe000) || code > 0x10ffff ? 0 : length;
}

bool IsControl(unsigned char byte)
{
    return byte < 0x20 || byte == 0x7f;
}

} // namespace

// ---- the file

CsvFile::~CsvFile()
{
    if (m_map)
        munmap(const_cast<char*>(m_map), m_size);
    if (m_file >= 0)
        close(m_file);
}

bool CsvFile::Open(const std::string& path)
{
    const auto fail = [&](const std::string& why) {
        m_error = path + ": " + why;
        return false;
    };
    m_file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); // a pipe without writer must not block
    struct stat info = {};
    if (m_file < 0 || fstat(m_file, &info) != 0)
        return fail(std::strerror(errno));
    if (S_ISDIR(info.st_mode))
        return fail("This is a directory, not a file");
    if (!S_ISREG(info.st_mode))
        return fail("This is not an ordinary file");
    if (info.st_size == 0)
        return fail("The file is empty");
    m_size = static_cast<std::size_t>(info.st_size);
    void* const map = mmap(nullptr, m_size, PROT_READ, MAP_PRIVATE, m_file, 0);
    if (map == MAP_FAILED)
        return fail(std::strerror(errno));
    m_map = m_begin = static_cast<const char*>(map);
    m_end = m_map + m_size;
    const std::string_view start(m_map, std::min<std::size_t>(m_size, 3));
    if (start.substr(0, 2) == "\xff\xfe" || start.substr(0, 2) == "\xfe\xff")
        return fail("The file is encoded in UTF-16; save it as UTF-8");
    if (start == "\xef\xbb\xbf")
        m_begin += 3;
    Sniff();
    m_next = SkipBlankLines(m_begin);
    return m_next < m_end || fail("The file has no text in it");
}

void CsvFile::Sniff()
{
    const char* const end = m_begin + std::min<std::size_t>(std::size_t(m_end - m_begin), 1 << 16);
    if (Find(m_begin, end, '\n') == end && Find(m_begin, end, '\r') != end)
        m_newline = '\r';
    int best = 0;
    for (const char candidate : {',', ';', '\t'}) {
        const char before = m_separator;
        int cells = 0;
        m_separator = candidate;
        EndOfRow(SkipBlankLines(m_begin), &cells);
        if (cells <= best)
            m_separator = before;
        best = std::max(best, cells);
    }
}

bool CsvFile::IsIntact() const
{
    struct stat info = {};
    return fstat(m_file, &info) == 0 && static_cast<std::size_t>(info.st_size) >= m_size;
}

void CsvFile::Release() const
{
    madvise(const_cast<char*>(m_map), m_size, MADV_DONTNEED);
}

bool CsvFile::IndexSome(std::size_t bytes)
{
    if (!m_error.empty() || m_next == m_end)
        return false;
    if (!IsIntact()) {
        m_error = "The file was shortened while it was read";
        return false;
    }
    const char* const stop = m_next + std::min(bytes, std::size_t(m_end - m_next));
    while (m_next < stop) {
        if (m_rows == UINT32_MAX) {
            m_error = "The file has too many rows";
            return false;
        }
        if (m_rows % rowsPerBlock == 0)
            m_blocks.push_back(std::uint64_t(m_next - m_map));
        ++m_rows;
        int cells = 0;
        m_next = SkipBlankLines(EndOfRow(m_next, &cells));
        m_columns = std::max(m_columns, std::min(cells, mostColumns));
    }
    Release();
    return m_next < m_end;
}

// ---- the grammar

const char* CsvFile::SkipBlankLines(const char* at) const
{
    while (at < m_end && (*at == m_newline || (*at == '\r' && at + 1 < m_end && at[1] == '\n')))
        ++at;
    return at;
}

// At the line's end. cells: counts them.
const char* CsvFile::EndOfRow(const char* row, int* cells) const
{
    const char* const end = Find(row, m_end, m_newline);
    if (Find(row, end, '"') == end) { // which is most rows
        if (cells)
            *cells = 1 + static_cast<int>(std::count(row, end, m_separator));
        return end;
    }
    int count = 1;
    const char* at = EndOfCell(row);
    for (; at < m_end && *at == m_separator; ++count)
        at = EndOfCell(at + 1);
    if (cells)
        *cells = count;
    return at;
}

// At the separator or at the line's end.
const char* CsvFile::EndOfCell(const char* cell) const
{
    const char* at = cell;
    if (at < m_end && *at == '"')
        if (const char* const behind = BehindClosingQuote(at, m_end))
            at = behind;
    for (;;) { // by pieces: the next separator may be far beyond the line's end
        const char* const stop = at + std::min<std::size_t>(4096, std::size_t(m_end - at));
        at = Find(at, Find(at, stop, m_separator), m_newline);
        if (at != stop || stop == m_end)
            return at;
    }
}

// ---- reading

bool RowReader::Go(std::uint32_t row)
{
    const std::uint64_t wanted = row == header ? 0 : std::uint64_t(row) + 1;
    const std::uint64_t block = wanted / rowsPerBlock;
    const bool onwards = m_row && wanted >= m_number && block == m_number / rowsPerBlock;
    if (wanted >= m_file->m_rows || (!onwards && !m_file->IsIntact())) {
        m_row = m_cell = nullptr;
        return false;
    }
    if (!onwards) {
        m_number = block * rowsPerBlock;
        m_row = m_file->m_map + m_file->m_blocks[block];
    }
    for (; m_number < wanted; ++m_number)
        m_row = m_file->SkipBlankLines(m_file->EndOfRow(m_row));
    m_cell = m_row;
    m_column = 0;
    return true;
}

std::string_view RowReader::Raw(int column)
{
    if (!m_row || column < 0)
        return {};
    if (column < m_column)
        m_cell = m_row, m_column = 0;
    for (; m_cell && m_column < column; ++m_column) {
        const char* const end = m_file->EndOfCell(m_cell);
        m_cell = end < m_file->m_end && *end == m_file->m_separator ? end + 1 : nullptr;
    }
    m_column = column;
    if (!m_cell)
        return {};
    const char* end = m_file->EndOfCell(m_cell);
    const bool lastOfRow = end == m_file->m_end || *end == m_file->m_newline;
    if (lastOfRow && m_file->m_newline == '\n' && end > m_cell && end[-1] == '\r')
        --end;
    return {m_cell, std::size_t(end - m_cell)};
}

std::string RowReader::Bytes(int column, std::size_t limit)
{
    const std::string_view raw = Raw(column);
    const char* const end = raw.data() + raw.size();
    const char* const behind = !raw.empty() && raw[0] == '"' ? BehindClosingQuote(raw.data(), end) : nullptr;
    if (!behind)
        return std::string(raw.substr(0, limit));
    std::string bytes;
    for (const char* at = raw.data() + 1; at < behind - 1 && bytes.size() < limit; ++at) {
        bytes += *at;
        at += *at == '"'; // the second of two
    }
    bytes.append(behind, std::min(std::size_t(end - behind), limit - bytes.size()));
    return bytes;
}

std::string RowReader::Text(int column, std::size_t limit)
{
    std::string bytes = Bytes(column, limit);
    if (std::all_of(bytes.begin(), bytes.end(),
                    [](unsigned char byte) { return byte < 0x80 && !IsControl(byte); }))
        return bytes;
    std::string text;
    for (std::string_view rest = bytes; !rest.empty();) {
        const auto lead = static_cast<unsigned char>(rest[0]);
        const std::size_t length = SequenceLength(rest);
        if (length == 0)
            text += {char(0xc0 | lead >> 6), char(0x80 | (lead & 0x3f))};
        else if (IsControl(lead))
            text += ' ';
        else
            text += rest.substr(0, length);
        rest.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return text;
}

std::string_view RowReader::RawRow() const
{
    return m_row ? std::string_view(m_row, std::size_t(m_file->EndOfRow(m_row) - m_row)) : std::string_view();
}

} // namespace table
