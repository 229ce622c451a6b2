#include "vela7/xpm.h"

#include <gtest/gtest.h>

using namespace vela7;

namespace {

// Nothing behind the last line, so that reading further is caught by the sanitizer.
const char* const picture[] = {"4 3 2 1", "  c None", "x c #000000", " xx ", "x  x", " xx "};

TEST(XPMBuf, BorrowsOrOwns)
{
    XPMBuf copy;
    {
        std::string values = "0 0 0 0";
        const char* const lines[] = {values.c_str()};
        XPMBuf original;
        original.SetBuffer(lines, true);
        values = "gone";
        copy = original;
    }                                        // a copy owns what its original owned
    copy.SetBuffer(copy.GetBuffer(), false); // which it keeps
    EXPECT_STREQ(XPMBuf(copy).GetBuffer()[0], "0 0 0 0");
    const XPMImage borrowed(picture);
    copy = borrowed;
    EXPECT_EQ(copy.GetBuffer(), picture);
    EXPECT_EQ(copy.GetLineCount(), 6);
    EXPECT_EQ(borrowed.width, 4);
    EXPECT_EQ(borrowed.height, 3);
}

TEST(XPMBuf, ValuesLine)
{
    // clang-format off
    const struct { const char* values; int lines; } table[] = {
        {nullptr, 0}, {"",              0}, {"4 3 2",            0}, {"a 3 2 1",          0}, {"4 3 2 x",          0},
        {"-4 3 2 1",                    0}, {"4 -3 2 1",         0}, {"4 3 -2 1",         0}, {"4 3 2 -1",         0},
        {"2147483648 1 1 1",            0}, {"1 2147483647 1 1", 0}, {"65536 65536 1 1",  0}, {"65536 0 1 65536",  0},
        {"99999999999999999999 1 1 1",  0}, {"4.5 1 1 1",        0}, {"0 0 0 0", 1}, {"  1\t1  1 1",      3}, {"1 1 1 1 7 8 XPMEXT", 3},
    };
    // clang-format on
    for (const auto& row : table) {
        const char* const lines[] = {row.values, "x c red", nullptr};
        for (const bool copy : {false, true}) {
            XPMBuf buffer;
            buffer.SetBuffer(picture, true);
            buffer.SetBuffer(lines, copy);
            EXPECT_EQ(buffer.GetLineCount(), row.lines) << row.values;
            EXPECT_EQ(buffer.GetBuffer() != nullptr, row.lines > 0) << row.values;
        }
    }
    const char* const most[] = {"1 2147483645 1 1"}; // lines in all: the largest int
    EXPECT_EQ(XPMImage(most).GetLineCount(), 2147483647);
    const char* const more[] = {"1 2147483646 1 1"};
    EXPECT_EQ(XPMImage(more).GetLineCount(), 0);
}

} // namespace
