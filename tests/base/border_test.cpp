#include "common.h"
#include "vela7/border.h"

using namespace vela7;

namespace {

// Shows what FillRect leaves: at each pixel the brush colour's code.
class Screen : public seam::RecordingPainter
{
public:
    Lines pixels = Lines(5, std::string(6, '.'));

    void internalSetBrush(const brush& value) override { m_code = static_cast<char>('0' + value.color.red); }
    void internalFillRect(int l, int t, int r, int b) override
    {
        for (int y = t; y < b; ++y)
            for (int x = l; x < r; ++x)
                pixels.at(static_cast<std::size_t>(y)).at(static_cast<std::size_t>(x)) = m_code;
    }

private:
    char m_code = '?';
};

TEST(Border, Frames)
{
    // clang-format off
    const struct { BorderShape shape; BorderStyle style; bool frameOnly; int right, bottom; Lines pixels; } table[] = {
        {bsThin,  bdRaised, false, 4, 3, {"44446.", "43336.", "43336.", "66666.", "......"}},
        {bsThin,  bdSunken, true,  4, 3, {"66664.", "6...4.", "6...4.", "44444.", "......"}},
        {bsThick, bdRaised, false, 5, 4, {"444447", "455567", "453367", "466667", "777777"}},
        {bsThick, bdSunken, true,  5, 4, {"777774", "766654", "76..54", "755554", "444444"}},
        {bsThick, bdNone,   false, 1, 1, {"33....", "33....", "......", "......", "......"}},
        {bsThick, bdRaised, false, 1, 1, {"47....", "77....", "......", "......", "......"}},
        {bsThick, bdRaised, false, 0, 0, {"7.....", "......", "......", "......", "......"}},
        {bsThin,  bdRaised, false, -1, 3, Lines(5, "......")}, {bsThin, bdRaised, false, 3, -1, Lines(5, "......")},
    };
    // clang-format on
    CodePalette palette;
    for (const auto& row : table) {
        Screen p;
        p.SetPalette(&palette);
        const CPaintScope paint(p);
        p.SetBrush({clRed, bsCross});
        DrawBorder(&p, 0, 0, row.right, row.bottom, row.shape, row.style, row.frameOnly);
        EXPECT_EQ(p.pixels, row.pixels) << row.shape << row.style;
        EXPECT_EQ(p.GetBrush(), (brush{clRed, bsCross}));
    }
    DrawBorder(nullptr, 0, 0, 3, 3, bsThin, bdRaised, false);
}

TEST_F(Painting, BordersTakeThePaletteOfThePainterElseTheInstalledElseTheBuiltIn)
{
    CodePalette installed;
    EXPECT_EQ(GetSysPalette(), nullptr);
    for (ISysPalette* palette : {static_cast<ISysPalette*>(nullptr), static_cast<ISysPalette*>(&installed)}) {
        SetSysPalette(palette);
        DrawBorder(&p, 0, 0, 0, 0, bsThin, bdNone, false);
        EXPECT_EQ(p.drawn.Take()[0], palette ? "Brush #030000 style 1" : "Brush #f0f0f0 style 1");
    }
    SetSysPalette(nullptr);
}

} // namespace
