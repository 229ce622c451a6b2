// CSV files: what is accepted, what is refused.

#include "csvfile.h"
#include "tempfile.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <sys/stat.h>
#include <vector>

using table::ByteSource;
using table::CsvFile;
using table::MemoryBytes;
using table::RowReader;

namespace {

using Row = std::vector<std::string>;
using Rows = std::vector<Row>;

// The header and all rows.
Rows Read(const CsvFile& file, std::string (RowReader::*as)(int, std::size_t) = &RowReader::Text)
{
    Rows all;
    RowReader reader(file);
    for (std::int64_t row = -1; row < std::int64_t(file.RowCount()); ++row) {
        EXPECT_TRUE(reader.Go(row < 0 ? RowReader::header : std::uint32_t(row)));
        all.emplace_back();
        for (int column = 0; column < file.ColumnCount(); ++column)
            all.back().push_back((reader.*as)(column, 1 << 21));
    }
    return all;
}

TEST(CsvFile, MakesTheBestOfWhatItGets)
{
    const std::string big(2 << 20, 'x');
    // clang-format off
    const struct { const char* what; std::string text; Rows rows; } cases[] = {
        {"no last newline",    "a,b\n1,2",                    {{"a", "b"}, {"1", "2"}}},
        {"CRLF",               "a,b\r\n1,2\r\n",              {{"a", "b"}, {"1", "2"}}},
        {"CR",                 "a,b\r1,2\r",                  {{"a", "b"}, {"1", "2"}}},
        {"byte order mark",    "\xef\xbb\xbf" "a,b\n",        {{"a", "b"}}},
        {"semicolons",         "a;b;c\n1,5;2;3\n",            {{"a", "b", "c"}, {"1,5", "2", "3"}}},
        {"tabs",               "a\tb,\tc\n",                  {{"a", "b,", "c"}}},
        {"quoted separators",  "\"a;b;c;d\",e\n\"1,2\",3\n",  {{"a;b;c;d", "e"}, {"1,2", "3"}}},
        {"quoted newlines",    "a,b\n\"1\n\n2\",3\n4,5\n",    {{"a", "b"}, {"1  2", "3"}, {"4", "5"}}},
        {"doubled quotes",     "a\n\"x\"\"y\"\"\"\n",         {{"a"}, {"x\"y\""}}},
        {"text behind quotes", "a,b\n\"x\"y,z\n",             {{"a", "b"}, {"xy", "z"}}},
        {"quote in the cell",  "a,b\n5\" disk,x\n",           {{"a", "b"}, {"5\" disk", "x"}}},
        {"unbalanced quote",   "a,b\n\"x,y\n1,2\n",           {{"a", "b"}, {"\"x", "y"}, {"1", "2"}}},
        {"endless quote",      "a\n\"x\n" + big + "\n\"\n",   {{"a"}, {"\"x"}, {big.substr(0, 1 << 21)}, {"\""}}},
        {"ragged rows",        "a,b\n1\n1,2,3\n",             {{"a", "b", ""}, {"1", "", ""}, {"1", "2", "3"}}},
        {"blank lines",        "\n\r\na\n\n\n1\n\n",          {{"a"}, {"1"}}},
        {"NUL bytes",          std::string("a\0b,c\n", 6),    {{"a b", "c"}}},
        {"UTF-8",              "\xc3\xa4,\xe2\x82\xac\n",     {{"\xc3\xa4", "\xe2\x82\xac"}}},
        {"Latin-1",            "\xe4,\xff\n",                 {{"\xc3\xa4", "\xc3\xbf"}}},
        {"overlong, surrogate", "\xc0\xa0,\xed\xa0\x80\n",
            {{"\xc3\x80\xc2\xa0", "\xc3\xad\xc2\xa0\xef\xbf\xbd"}}},
        {"no lead, beyond",    "\xf8\xa0\xa0\xa0,\xf4\xa0\xa0\xa0\n",
            {{"\xc3\xb8\xc2\xa0\xc2\xa0\xc2\xa0", "\xc3\xb4\xc2\xa0\xc2\xa0\xc2\xa0"}}},
        {"cut off, control",   "\xf0\xa0\xa0,\xc2\x85\n",   {{"\xc3\xb0\xc2\xa0\xc2\xa0", " "}}},
        {"only separators",    ",,\n,\n",                     {{"", "", ""}, {"", "", ""}}},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const TempFile temp(c.text);
        CsvFile file;
        ASSERT_TRUE(temp.good && file.Open(temp.path)) << file.Error();
        while (file.IndexSome(1))
            continue;
        EXPECT_EQ(Read(file), c.rows);
    }
}

// A file that is one byte all over, and tells how often it was read.
struct Uniform : ByteSource
{
    Uniform(std::uint64_t count, char what, int& reads) : size(count), byte(what), read(reads) {}
    std::uint64_t Size() const override { return size; }
    std::size_t Read(std::uint64_t, char* to, std::size_t count) const override
    {
        ++read;
        std::memset(to, byte, count);
        return count;
    }
    const std::uint64_t size;
    const char byte;
    int& read;
};

TEST(CsvFile, RowsMayBeOfAnyLength)
{
    int reads = 0;
    CsvFile wide, sparse;
    ASSERT_TRUE(wide.Open(std::make_unique<Uniform>((std::uint64_t(1) << 31) + 9, ',', reads)));
    while (wide.IndexSome())
        continue;
    EXPECT_EQ(wide.ColumnCount(), 1024);

    int asked = 0;
    const auto cancel = [&] { ++asked == 10 ? throw 0 : 0; };
    reads = 0;
    ASSERT_TRUE(sparse.Open(std::make_unique<Uniform>(std::uint64_t(10) << 30, '\0', reads), cancel));
    EXPECT_THROW(sparse.IndexSome(), int);
    EXPECT_EQ(reads, 9) << "asked before each";
}

TEST(CsvFile, CellsOfLongRowsAreFoundWithoutReadingTheRow)
{
    struct Counted : MemoryBytes
    {
        Counted(const std::string& text, int& reads) : MemoryBytes(text), read(reads) {}
        std::size_t Read(std::uint64_t at, char* to, std::size_t count) const override
        {
            return ++read, MemoryBytes::Read(at, to, count);
        }
        int& read;
    };
    int reads = 0;
    const std::string text = "a,b\n" + std::string(4 << 20, 'x') + ",far\nlast,\n";
    CsvFile file;
    ASSERT_TRUE(file.Open(std::make_unique<Counted>(text, reads)));
    while (file.IndexSome())
        continue;
    RowReader reader(file);
    reads = 0;
    ASSERT_TRUE(reader.Go(0));
    EXPECT_EQ(reader.Text(1, 9), "far");
    ASSERT_TRUE(reader.Go(1));
    EXPECT_EQ(reader.Text(0, 9), "last");
    EXPECT_LE(reads, 4);
}

TEST(CsvFile, SaysWhyItCannotRead)
{
    const TempFile empty(""), blank("\n\r\n\n"), wide("\377\376a");
    const std::string fifo = std::string(empty.path) + "_fifo";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    const std::pair<std::string, const char*> cases[] = {
        {"/nowhere/x.csv", "No such file or directory"},
        {"/tmp", "This is a directory, not a file"},
        {fifo, "This is not an ordinary file"},
        {empty.path, "The file is empty"},
        {blank.path, "The file has no text in it"},
        {wide.path, "The file is encoded in UTF-16; save it as UTF-8"},
    };
    for (const auto& [path, why] : cases) {
        CsvFile file;
        EXPECT_FALSE(file.Open(path));
        EXPECT_EQ(file.Error(), path + ": " + why);
        EXPECT_FALSE(file.IndexSome());
        EXPECT_EQ(file.RowCount(), 0u);
    }
    unlink(fifo.c_str());
}

TEST(CsvFile, OfAShortenedFileThereIsWhatIsLeft)
{
    std::string text = "a,b\n";
    while (text.size() < 100000)
        text += "1,2\n";
    const TempFile temp(text), other(text);
    CsvFile read, unread;
    ASSERT_TRUE(read.Open(temp.path) && unread.Open(other.path));
    while (read.IndexSome())
        continue;
    unread.IndexSome(10);
    ASSERT_EQ(truncate(temp.path, 3), 0);
    ASSERT_EQ(truncate(other.path, 3), 0);
    RowReader reader(read);
    EXPECT_FALSE(reader.Go(20000));
    EXPECT_EQ(reader.Text(0, 10), "");
    ASSERT_TRUE(reader.Go(RowReader::header)) << "what is left of it";
    EXPECT_EQ(reader.Text(1, 10), "b");
    EXPECT_FALSE(unread.IndexSome());
    EXPECT_EQ(unread.Error(), "The file was shortened while it was read");
}

TEST(CsvFile, GivesBackWhatWasWritten)
{
    std::mt19937 random(20240607);
    const char* const pieces[] = {"a", ",", "\"", "\"\"", "\n", "\r\n", "\xc3\xa4", "x y"};
    for (int round = 0; round < 100; ++round) {
        Rows rows(2 + random() % 200, Row(3, "h"));
        std::string text;
        for (Row& row : rows)
            for (std::string& cell : row) {
                for (unsigned i = random() % 4; i > 0; --i)
                    cell += pieces[random() % std::size(pieces)];
                std::string written = cell;
                for (std::size_t at = 0; (at = written.find('"', at)) != std::string::npos; at += 2)
                    written.insert(at, 1, '"');
                const bool plain = cell.find_first_of(",\"\n") == std::string::npos;
                text += (plain ? cell : '"' + written + '"') + (&cell == &row.back() ? "\n" : ",");
            }
        CsvFile file;
        ASSERT_TRUE(file.Open(std::make_unique<MemoryBytes>(text, 1 + round % 7))); // cut anywhere
        while (file.IndexSome(1 + random() % 100))
            continue;
        ASSERT_EQ(Read(file, &RowReader::Bytes), rows);
        RowReader reader(file);
        for (int i = 0; i < 50; ++i) { // in any order
            const std::uint32_t row = std::uint32_t(random()) % file.RowCount();
            ASSERT_TRUE(reader.Go(row));
            ASSERT_EQ(reader.Bytes(i % 3, 1000), rows[row + 1][std::size_t(i % 3)]);
        }
    }
}

} // namespace
