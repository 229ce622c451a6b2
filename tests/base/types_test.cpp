#include "vela7/types.h"

#include <gtest/gtest.h>

using namespace vela7;

namespace {

using Rect = rectangle<int>;

// Fields as they stand; the constructors would sort them.
Rect Fields(int left, int top, int right, int bottom)
{
    Rect r;
    r.left = left, r.top = top, r.right = right, r.bottom = bottom;
    return r;
}

TEST(Rectangle, SortsCornersAndKnowsItsInside)
{
    const Rect sorted = Fields(3, 4, 10, 20);
    EXPECT_EQ(Rect(10, 20, 3, 4), sorted);
    EXPECT_EQ(Rect(screen_rectangle<int>(10, 20, 3, 4)), sorted);
    EXPECT_EQ(Rect(screen_rectangle<int>(Fields(5, 5, 4, 4))).right, 4); // nothing sorts a conversion
    // clang-format off
    const struct { Rect r; bool null, empty, holds; point<int> p; } table[] = {
        {Rect(),             true,  true,  false, {0, 0}},   {{3, 3, 3, 9},   false, true,  false, {3, 4}},
        {{0, 0, 1, 1},       false, false, true,  {0, 0}},   {{-5, -5, 5, 0}, false, false, true,  {-5, -1}},
        {{0, 0, 1, 1},       false, false, false, {1, 0}},   {{0, 0, 1, 1},   false, false, false, {0, 1}},
        {Fields(5, 5, 4, 9), false, true,  false, {4, 6}},
    };
    // clang-format on
    for (const auto& row : table) {
        EXPECT_EQ(row.r.IsNull(), row.null);
        EXPECT_EQ(row.r.IsEmpty(), row.empty);
        EXPECT_EQ(row.r.Contains(row.p), row.holds) << row.p.x << ',' << row.p.y;
    }
}

TEST(Codes, ThatAreEasyToSwap)
{
    // clang-format off
    const struct { const char* name; unsigned is, want; } table[] = {
        {"mbLeft",      mbLeft,      1}, {"mbMiddle",   mbMiddle,       2}, {"mbRight",    mbRight,    3},
        {"msLeft",      msLeft,      1}, {"msRight",    msRight,        2}, {"msMiddle",   msMiddle,   4},
        {"ksShift",     ksShift, 0x100}, {"ksControl",  ksControl,  0x200}, {"ksAlt",      ksAlt,  0x400},
        {"bsBDiagonal", bsBDiagonal, 5}, {"bsFDiagonal", bsFDiagonal,   6}, {"psAlternate", psAlternate, 6},
        {"crSizeNWSE",  crSizeNWSE,  6}, {"crSizeNESW", crSizeNESW,     8}, {"crSizeNS",   crSizeNS,   7},
    };
    // clang-format on
    for (const auto& row : table)
        EXPECT_EQ(row.is, row.want) << row.name;
}

} // namespace
