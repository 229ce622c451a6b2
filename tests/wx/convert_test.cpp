// Conversions of values, keys and buttons, against literal tables.

#include "vela7/wxconvert.h"

#include "support/faults.h"
#include "support/fixture.h"
#include "vela7/painter.h"
#include "vela7/wxrasterpicture.h"

#include <gtk/gtk.h>
#include <wx/event.h>
#include <wx/settings.h>

#include <cmath>
#include <vector>

using namespace vela7;

TEST(Convert, Text)
{
    EXPECT_EQ(wxString(wxUniChar(0xe4)), vela2wx(std::string("\xc3\xa4"))); // the harness runs in UTF-8
    EXPECT_EQ("", vela2wx(std::string("\xf4\x90\x80\x80")));                // beyond the last character
    EXPECT_EQ("a_z", wx2vela(wxString("a") + wxUniChar(0xe4) + "z"));
    EXPECT_EQ(3u, vela2wx(std::string("a\0b", 3)).length());
}

TEST(Convert, ColoursLoseTheirFlag)
{
    _color flagged(1, 2, 3, 4);
    flagged.flag = 7;
    EXPECT_EQ(wxColour(1, 2, 3, 4), vela2wx(flagged));
    EXPECT_EQ(_color(1, 2, 3, 4), wx2vela(vela2wx(flagged)));
    EXPECT_EQ(clBlack, wx2vela(wxColour()));
}

TEST(Convert, RectanglesAreExclusiveOneWayAndInclusiveTheOther)
{
    EXPECT_EQ(rectangle<int>(0, 0, 9, 9), wx2vela(wxRect(0, 0, 10, 10)));
    EXPECT_EQ(wxRect(3, 4, 17, 26), vela2wx(screen_rectangle<int>(3, 4, 20, 30)));
    const rectangle<int> empty = wx2vela(wxRect(5, 6, 0, 0)); // not normalised
    EXPECT_TRUE(empty.left == 5 && empty.right == 4 && empty.bottom == 5);
    rectangle<int> huge;
    huge.left = -2147483647;
    huge.right = 2147483647;
    EXPECT_EQ(2147483647, vela2wx(huge).width);
    EXPECT_EQ(2147483647, wx2vela(wxRect(2147483647, 0, 2, 2147483647)).right);
}

// ---- fonts

TEST(ConvertFont, SizeIsScaledAndTruncated)
{
    ASSERT_EQ(10, wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetPointSize()); // as the harness sets it
    // clang-format off
    const struct { int size; double scale; int points; } rows[] = {
        {9, 1.5, 13}, {1, 1.0, 1}, {0, 1.5, 15}, {-3, 1.5, 15}, {10, 1e300, 2048}, {10, -1.0, 0}, {10, std::nan(""), 0}};
    // clang-format on
    for (const auto& row : rows) {
        font f{"", ffDefault, row.size};
        f.scale = row.scale;
        EXPECT_EQ(row.points, vela2wx(f).GetPointSize()) << row.size << ' ' << row.scale;
    }
}

TEST(ConvertFont, StylesBothWays)
{
    for (const unsigned style : {0u, 1u, 2u, 4u, 7u}) {
        const wxFont wx = vela2wx(font{"DejaVu Sans", ffDefault, 11, style | fsStrikeOut});
        EXPECT_EQ(style & 1 ? wxFONTWEIGHT_BOLD : wxFONTWEIGHT_NORMAL, wx.GetWeight()) << style;
        EXPECT_EQ(style & 2 ? wxFONTSTYLE_ITALIC : wxFONTSTYLE_NORMAL, wx.GetStyle()) << style;
        EXPECT_EQ((style & 4) != 0, wx.GetUnderlined()) << style;
        const font back = wx2vela(wx);
        EXPECT_TRUE(style == back.style && back.face == "DejaVu Sans" && back.size == 11) << style;
    }
    // Exactly bold and italic count.
    EXPECT_EQ(0u, wx2vela(wxFont(10, wxFONTFAMILY_SWISS, wxFONTSTYLE_SLANT, wxFONTWEIGHT_LIGHT)).style);
    EXPECT_EQ(font(), wx2vela(wxFont()));
}

// A font whose family reads back as it was given; the platform's own answers only a few.
struct FontOfFamily : wxFont
{
    explicit FontOfFamily(wxFontFamily which) : wxFont(*wxNORMAL_FONT), family(which) {}
    wxFontFamily DoGetFamily() const override { return family; }
    const wxFontFamily family;
};

TEST(ConvertFont, Families)
{
    // clang-format off
    const std::pair<wxFontFamily, int> rows[] = {
        {wxFONTFAMILY_SWISS, 0},  {wxFONTFAMILY_ROMAN, 1},    {wxFONTFAMILY_MODERN, 2},  {wxFONTFAMILY_DECORATIVE, 3},
        {wxFONTFAMILY_SCRIPT, 4}, {wxFONTFAMILY_TELETYPE, 4}, {wxFONTFAMILY_DEFAULT, 4}, {wxFONTFAMILY_UNKNOWN, 4}};
    // clang-format on
    for (const auto& [wx, family] : rows)
        EXPECT_EQ(family, wx2vela(FontOfFamily(wx)).family) << wx;
    // Towards wx a family shows only in the face that the platform picks for it.
    const auto face = [](int family) { return wx2vela(vela2wx(font{"", family, 10})).face; };
    const std::string sans = face(ffSwiss), other = face(ffDefault);
    EXPECT_TRUE(face(ffRoman) != sans && face(ffModern) != sans && face(ffModern) != face(ffRoman));
    for (const int family : {4, -1, 5, 99})
        EXPECT_EQ(other, face(family)) << family;
}

// ---- keys

TEST(ConvertKeys, Table)
{
    // clang-format off
    const int table[][2] = {
        {27, 27}, {9, 9}, {8, 8}, {13, 13}, {322, 45}, {127, 46}, {310, 19}, {319, 44}, {313, 36}, {312, 35}, {314, 37}, {315, 38},
        {316, 39}, {317, 40}, {366, 33}, {367, 34}, {306, 16}, {308, 17}, {307, 18}, {311, 20}, {364, 144}, {365, 145},
        {324, 96}, {325, 97}, {333, 105}, {387, 106}, {388, 107}, {389, 108}, {390, 109}, {391, 110}, {369, 9}, {383, 8}, {370, 13},
        {384, 45}, {385, 46}, {375, 36}, {382, 35}, {376, 37}, {377, 38}, {378, 39}, {379, 40}, {380, 33}, {381, 34},
        {65, 65}, {90, 90}, {48, 48}, {57, 57}, {340, 112}, {341, 113}, {351, 123},
        // unchanged: beyond the ranges, keypad divide, equal, space and function keys, anything unknown
        {352, 352}, {339, 339}, {323, 323}, {334, 334}, {392, 392}, {386, 386}, {368, 368}, {371, 371}, {374, 374}, {97, 97},
        {32, 32}, {0, 0}, {-1, -1}, {100000, 100000}};
    // clang-format on
    for (const auto& row : table)
        EXPECT_EQ(row[1], wx2velaKeyCode(row[0])) << "wx key " << row[0];
    EXPECT_EQ(392, WXK_NUMPAD_DIVIDE);
    EXPECT_EQ(228, wx2velaChar(228));
}

TEST(ConvertState, OneBitOfKeysAndAllOfTheMouse)
{
    const std::uint32_t ofKey[] = {0,     0x100, 0x200, 0x100,
                                   0x400, 0x100, 0x400, 0x100}; // by shift, control, alt
    const std::uint32_t button[] = {0, 1, 3, 1, 2, 1, 3, 1};    // by left, right, middle
    for (std::uint32_t bits = 0; bits < 64; ++bits) {
        wxMouseEvent mouse(wxEVT_MOTION);
        mouse.SetLeftDown((bits & 1) != 0);
        mouse.SetRightDown((bits & 2) != 0);
        mouse.SetMiddleDown((bits & 4) != 0);
        mouse.SetShiftDown((bits & 8) != 0);
        mouse.SetControlDown((bits & 16) != 0);
        mouse.SetAltDown((bits & 32) != 0);
        wxKeyEvent key(wxEVT_KEY_DOWN);
        static_cast<wxKeyboardState&>(key) = mouse;
        EXPECT_EQ((bits & 7) | (bits & 0x38) << 5, wx2velaMouseState(mouse));
        EXPECT_EQ(button[bits & 7], wx2velaMouseBtnMove(mouse)) << bits;
        EXPECT_EQ(ofKey[bits >> 3], wx2velaKeyState(key)) << bits;
    }
}

TEST(ConvertButtons, NumbersByEventType)
{
    std::string seen;
    for (const wxEventType type :
         {wxEVT_LEFT_DOWN, wxEVT_MIDDLE_DOWN, wxEVT_RIGHT_DOWN, wxEVT_LEFT_UP, wxEVT_MIDDLE_UP,
          wxEVT_RIGHT_UP, wxEVT_LEFT_DCLICK, wxEVT_MIDDLE_DCLICK, wxEVT_RIGHT_DCLICK, wxEVT_MOTION}) {
        const wxMouseEvent event(type);
        seen += std::to_string(wx2velaMouseBtn(event)) + std::to_string(wx2velaMouseBtnUp(event)) +
                std::to_string(wx2velaMouseBtnDClick(event)) + ' ';
    }
    EXPECT_EQ("100 200 300 010 020 030 001 002 003 000 ", seen);
}

// ---- scale; one test, since the process remembers the first resolution that is set

TEST(ConvertScale, EstimatesUntilTheDesktopHasAResolutionAndKeepsIt)
{
    GdkScreen* const screen = gdk_screen_get_default();
    gdk_screen_set_resolution(screen, -1);
    const int pixels = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetPixelSize().GetHeight();
    const double estimate = pixels > 16 ? pixels / 16.0 : 1.0;
    EXPECT_DOUBLE_EQ(estimate, correctScaleWithDefaultFontSize(1.0));
    CwxRasterPicture picture(size<int>(1, 1)); // has 96 pixels an inch
    const CPaintScope scope(*picture.TakeDefPainter());
    EXPECT_DOUBLE_EQ(estimate, picture.TakeDefPainter()->GetDPIScale());
    EXPECT_DOUBLE_EQ(estimate, correctScaleWithDefaultFontSize(0.5));
    EXPECT_DOUBLE_EQ(1.5, correctScaleWithDefaultFontSize(1.5));
    test::TakeCriticals(); // wx 3.2 measures text with the negative one
    gdk_screen_set_resolution(screen, 120);
    for (const double scale : {0.5, 1.0, 3.0})
        EXPECT_DOUBLE_EQ(1.25, correctScaleWithDefaultFontSize(scale)) << scale;
    gdk_screen_set_resolution(screen, 72); // read once
    EXPECT_DOUBLE_EQ(1.25, correctScaleWithDefaultFontSize(2.0));
}
