#include "common.h"
#include "vela7/border.h"

using namespace vela7;

namespace {

TEST_F(Painting, BorderFrames)
{
    // At each pixel the code of its colour.
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
    p.SetPalette(&palette);
    for (const auto& row : table) {
        p.Resize(6, 5);
        Begin();
        p.SetBrush({clRed, bsCross});
        DrawBorder(&p, 0, 0, row.right, row.bottom, row.shape, row.style, row.frameOnly);
        Lines pixels(5);
        for (int i = 0; i < 30; ++i) {
            const int code = p.PixelAt(i % 6, i / 6).red;
            pixels[std::size_t(i / 6)] += code == 255 ? '.' : char('0' + code);
        }
        EXPECT_EQ(pixels, row.pixels) << row.shape << row.style;
        EXPECT_EQ(p.GetBrush(), (brush{clRed, bsCross}));
    }
    DrawBorder(nullptr, 0, 0, 3, 3, bsThin, bdRaised, false);
}

TEST_F(Painting, BordersTakeThePaletteOfThePainterElseTheInstalledElseTheBuiltIn)
{
    CodePalette installed;
    EXPECT_EQ(GetSysPalette(), nullptr);
    EXPECT_EQ(GetDefaultPalette()->GetSystemColor(ISysPalette::SysColor(99)), clWhite); // as windows
    for (ISysPalette* palette : {static_cast<ISysPalette*>(nullptr), static_cast<ISysPalette*>(&installed)}) {
        SetSysPalette(palette);
        DrawBorder(&p, 0, 0, 0, 0, bsThin, bdNone, false);
        EXPECT_EQ(p.drawn.Take()[0], palette ? "Brush #030000 style 1" : "Brush #f0f0f0 style 1");
    }
    SetSysPalette(nullptr);
}

} // namespace
