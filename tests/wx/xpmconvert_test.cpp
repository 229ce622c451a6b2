// XPM lines of wx images, read back by wx and by another program.

#include "support/faults.h"
#include "vela7/wxxpm.h"
#include "vela7/xpm.h"

#include <gtest/gtest.h>
#include <map>
#include <wx/palette.h>

using namespace vela7;
using namespace vela7::test;
using Strings = std::vector<std::string>;

Strings Convert(const wxImage* image, std::size_t lines)
{
    char** const made = convert::wximage_to_xpm(image);
    const Strings result(made, made + lines);
    convert::free_xpm_array(made);
    return result;
}

wxImage Make(std::uint32_t width, const std::vector<std::uint32_t>& colors)
{
    wxImage image(static_cast<int>(width), static_cast<int>(colors.size() / width));
    for (std::size_t i = 0; i < 3 * colors.size(); ++i)
        image.GetData()[i] = static_cast<unsigned char>(colors[i / 3] >> (16 - i % 3 * 8));
    return image;
}

std::string Bytes(const wxImage& image)
{
    const auto* const data = reinterpret_cast<const char*>(image.GetData());
    return {data, data + 3 * image.GetWidth() * image.GetHeight()};
}

TEST(XpmConvert, LinesByColourNumbersByAppearance)
{
    const wxImage example = Make(2, {0xff0000, 0x0000ff}), empty;
    wxImage masked = Make(2, {0x0000ff, 0x00ff00, 0x0000ff, 0xabcdef}), alpha = Make(3, {1, 2, 3});
    masked.SetMaskColour(0, 255, 0);
    alpha.SetAlpha();
    std::copy_n("\x7f\x80\x81", 3, alpha.GetAlpha());
    alpha.SetMaskColour(0, 0, 3);
    // clang-format off
    const std::pair<const wxImage*, Strings> rows[] = {
        {&example, {"2 1 3 1", "  c None", "X c #0000ff", ". c #ff0000", ".X"}},
        {&masked,  {"2 2 4 1", "  c None", ". c #0000ff", "X c #00ff00", "o c #abcdef", ". ", ".o"}},
        {&alpha,   {"3 1 4 1", "  c None", ". c #000001", "X c #000002", "o c #000003", " X "}},
        {&empty,   {"0 0 1 1", "  c None"}}, // nobody should, but it ends well
        {nullptr,  {"0 0 1 1", "  c None"}},
    };
    // clang-format on
    for (const auto& [image, lines] : rows)
        EXPECT_EQ(lines, Convert(image, lines.size()));
    const std::map<unsigned long, unsigned long> table = {{0x0000ff, 1}, {0x00ff00, 2}, {0xabcdef, 3}};
    EXPECT_EQ(table, convert::enum_colors(&masked));
    EXPECT_EQ(3u, convert::scan_colors_count(&masked) + convert::scan_colors_count(nullptr));
}

TEST(XpmConvert, IsReadBack)
{
    // clang-format off
    const std::tuple<std::uint32_t, std::uint32_t, const char*> rows[] = {
        {1, 1, "1 1 2 1"},          {91, 91, "91 1 92 1"},      {92, 92, "92 1 93 2"},      {93, 31, "31 3 94 2"},
        {8463, 93, "93 91 8464 2"}, {8464, 92, "92 92 8465 3"}, {8465, 95, "95 90 8466 3"}, {40000, 200, "200 200 40001 3"}};
    // clang-format on
    XPMImage xpm;
    wxImage image;
    for (const auto& [count, width, values] : rows) {
        std::vector<std::uint32_t> colors((count + width - 1) / width * width); // may begin again
        for (std::uint32_t i = 0; i < colors.size(); ++i)
            colors[i] = i % count * 0x9e3779b1u & 0xffffff; // no two alike, in no order
        image = Make(width, colors);
        convert::fill_xpm_from_wximage(&xpm, &image);
        ASSERT_STREQ(values, xpm.GetBuffer()[0]);
        EXPECT_EQ(image.GetSize(), wxSize(xpm.width, xpm.height));
        EXPECT_TRUE(Bytes(image) == Bytes(wxImage(xpm.GetBuffer()))) << count;
    }
    convert::fill_xpm_from_wximage(&xpm, nullptr);
    convert::fill_xpm_from_wximage(nullptr, &image);
    EXPECT_EQ(200, xpm.width);
}

TEST(XpmConvert, LargeAndOddInput)
{
    wxImage large(10000, 3000); // its values line is longer than that of any icon
    for (int i = 0; i < 3 * 70000; ++i)
        large.GetData()[i] = static_cast<unsigned char>(i / 3 >> (16 - i % 3 * 8));
    large.SetMaskColour(0, 0, 0); // nearly all of it
    const Strings texts = Convert(&large, 73002);
    EXPECT_EQ("10000 3000 70001 3", texts[0]);
    EXPECT_EQ("    c None", texts[1]);
    EXPECT_EQ(std::string(30000, ' '), texts[73001]);
    convert::free_xpm_array(nullptr);
    static char malformed[] = "2 1 x", negative[] = "1 -9 3 1", wide[] = "1 2147483647 -2147483648 1";
    for (char* const values : {malformed, negative, wide})
        convert::free_xpm_array(new char* [1] { values }); // the array only
}

TEST(XpmConvert, TakesPalettesAway)
{
    wxImage image = Make(2, {0xff0000, 0x0000ff});
    const unsigned char channel[] = {1, 2, 3};
    image.SetPalette(wxPalette(3, channel, channel, channel));
    EXPECT_FALSE(create_paletteless_image(image).HasPalette());
    EXPECT_EQ(Bytes(image), Bytes(create_paletteless_image(image)));
    EXPECT_FALSE(create_paletteless_image(wxImage()).IsOk());
    ExpectAsserts(1, "src/wximagelist:31 create_paletteless_image: image.IsOk() / ");
}
