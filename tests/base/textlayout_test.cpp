// Text in a rectangle: broken into lines, aligned, measured.

#include "common.h"

#include <clocale>

using namespace vela7;

namespace {

const char* const breaks = ", <>:._\n\r";

// Characters are 10 wide, lines 20 high; counts what is measured.
class TextPainter : public testkit::RecordingPainter
{
public:
    int measured = 0;

    TextPainter() { charWidth = 10; }
    point<int> internalGetTextSize(const char* text, const font* with, int length) override
    {
        ++measured;
        return RecordingPainter::internalGetTextSize(text, with, length);
    }
    void internalGetFontMetrics(fontmetrics* metrics) override
    {
        metrics->height = 16;
        metrics->externalLeading = 4;
    }
};

class TextLayout : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
        p.BeginPaint();
        p.drawn.Take();
    }
    void TearDown() override { std::setlocale(LC_CTYPE, "C"); }

    // The lines of a text in a rectangle of so many characters, from the top left.
    Lines Wrapped(const std::string& text, int characters)
    {
        rectangle<double> area;
        area.right = 10 * characters;
        p.DrawStringEx(text, area, 9, -1, breaks);
        Lines lines = p.drawn.Take();
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const std::string at = "Text 0 " + std::to_string(20 * i) + ' ';
            EXPECT_EQ(lines[i].substr(0, at.size()), at);
            lines[i] = lines[i].substr(at.size() + 1, lines[i].size() - at.size() - 2);
        }
        return lines;
    }

    TextPainter p;
};

TEST_F(TextLayout, BreaksLines)
{
    // clang-format off
    const struct { const char* text; int width; Lines lines; } table[] = {
        {"a\nb\rc\r\nd\n\ne", 9, {"a", "b", "c", "d", "", "e"}},
        {"one two three",     7, {"one two", "three"}},   {"one two three", 6, {"one", "two", "three"}},
        {"one  \t two",       5, {"one", "two"}},         {"a b \nc ",      9, {"a b", "c"}},
        {"aa,bb<cc>dd",       4, {"aa,", "bb<", "cc>", "dd"}},
        {"aa:bb.cc_dd",       3, {"aa:", "bb.", "cc_", "dd"}},
        {"aa-bb/cc",          9, {"aa-bb/cc"}},           {"aa-bb",         3, {"aa-", "bb"}},
        {"abc\tdef",          3, {"abc", "\tde", "f"}},
        {"abcdefg hi",        3, {"abc", "def", "g", "hi"}}, {"abcdefg hi", 4, {"abcd", "efg", "hi"}},
        {"abcdefg,hi",        5, {"abcde", "fg,hi"}},     {"x abcd y",      3, {"x", "abc", "d y"}},
        {"äöü",               3, {"ä", "ö", "ü"}},        {"€€",            7, {"€€"}}, {"€€",  5, {"€", "€"}},
        {"a\xff\xfe" "b",     2, {"a\xff", "\xfe" "b"}},  {"\xe2\x82",      1, {"\xe2", "\x82"}},
        {"ab c",              0, {"a", "b", "c"}},        {"ab",           -5, {"a", "b"}}, {"€", 0, {"€"}},
    };
    // clang-format on
    for (const auto& row : table)
        EXPECT_EQ(Wrapped(row.text, row.width), row.lines) << row.text << ' ' << row.width;
}

TEST_F(TextLayout, AlignsInTheRectangle)
{
    // clang-format off
    const struct { unsigned format; Lines lines; } table[] = {
        {0x09, {"Text 100 50 \"abcd\"", "Text 100 70 \"ef\""}}, {0x12, {"Text 120 110 \"abcd\"", "Text 140 130 \"ef\""}},
        {0x24, {"Text 110 80 \"abcd\"", "Text 120 100 \"ef\""}}, {0x21, {"Text 100 80 \"abcd\"", "Text 100 100 \"ef\""}},
        {0x1009, {}}, {0x1021, {}},
    };
    // clang-format on
    for (const auto& row : table) {
        EXPECT_EQ(p.DrawStringEx("abcd ef", {100, 50, 160, 150}, row.format), size<double>(40, 40));
        EXPECT_EQ(p.drawn.Take(), row.lines) << row.format;
    }
    p.Scale(2, 4); // the rectangle is 120 pixels wide, the answer logical
    EXPECT_EQ(p.DrawStringEx("abcd ef", {0, 0, 60, 10}, 9), size<double>(35, 5));
    EXPECT_EQ(p.drawn.Take(), Lines{"Text 0 0 \"abcd ef\""});
}

TEST_F(TextLayout, SingleLines)
{
    // clang-format off
    const struct { unsigned format; int width; double measured; Lines lines; } table[] = {
        {0x49, 30, 80, {"Text 0 0 \"abc efgh\""}}, {0xc9, 80, 80, {"Text 0 0 \"abc efgh\""}},
        {0xc9, 60, 60, {"Text 0 0 \"abc...\""}},   {0xc9, 79, 70, {"Text 0 0 \"abc ...\""}},
        {0xc9, 20, 30, {"Text 0 0 \"...\""}},      {0xca, 70, 70, {"Text 0 0 \"abc ...\""}},
        {0x10c9, 60, 60, {}},
    };
    // clang-format on
    for (const auto& row : table) {
        EXPECT_EQ(p.DrawStringEx("abc efgh", rectangle<double>(0, 0, row.width, 9), row.format),
                  size<double>(row.measured, 20));
        EXPECT_EQ(p.drawn.Take(), row.lines) << row.format << ' ' << row.width;
    }
}

TEST_F(TextLayout, LengthAndNothing)
{
    const rectangle<double> area(0, 0, 100, 100);
    EXPECT_EQ(p.DrawStringEx("abcdef", area, 9, 3), size<double>(30, 20));
    EXPECT_EQ(p.DrawStringEx("abc", area, 9, 99), size<double>(30, 20));
    EXPECT_EQ(p.drawn.Take(), (Lines{"Text 0 0 \"abc\"", "Text 0 0 \"abc\""}));
    EXPECT_EQ(p.DrawStringEx("", area, 9), size<double>());
    EXPECT_EQ(p.DrawStringEx("abc", area, 9, 0), size<double>());
    EXPECT_EQ(p.drawn.Take(), Lines{});
}

TEST_F(TextLayout, MeasuresInProportionToTheWords)
{
    // Width, and how many measurements 1,000 words may take; at 3 each word is cut in two.
    const std::pair<int, int> table[] = {{3, 12000}, {300, 500}, {100000, 50}};
    for (const auto& [width, limit] : table) {
        int measured[2];
        for (const int words : {1000, 10000}) {
            std::string text;
            for (int i = 0; i < words; ++i)
                text += "word ";
            p.measured = 0;
            Wrapped(text, width);
            measured[words / 10000] = p.measured;
        }
        EXPECT_LT(measured[1], 12 * measured[0]) << width;
        EXPECT_LE(measured[0], limit) << width;
    }
}

} // namespace
