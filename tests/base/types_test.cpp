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

// Codes that are easy to swap; those of input stand in the contract tests.
static_assert(bsBDiagonal == 5 && bsFDiagonal == 6 && psAlternate == 6);
static_assert(crSizeNWSE == 6 && crSizeNS == 7 && crSizeNESW == 8);

} // namespace
