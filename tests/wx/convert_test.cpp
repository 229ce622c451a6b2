// Conversions of values, keys and buttons, against literal tables.

#include "vela7/wxconvert.h"

#include "support/fixture.h"

#include <gtk/gtk.h>
#include <wx/event.h>
#include <wx/settings.h>

#include <cmath>
#include <vector>

namespace vela7 {
namespace {

TEST(Convert, Text)
{
    EXPECT_EQ(wxString(wxUniChar(0xe4)), vela2wx(std::string("\xc3\xa4"))); // the harness runs in UTF-8
    EXPECT_EQ("", vela2wx(std::string("\xf4\x93\xaf\xae"))); // beyond the last character
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
    for (const auto& [size, points] : {std::pair(9, 13), {0, 15}, {-3, 15}}) {
        font f;
        f.size = size;
        f.scale = 1.5;
        EXPECT_EQ(points, vela2wx(f).GetPointSize()) << size;
    }
    for (const auto& [scale, points] : {std::pair(1e300, 2048), {-1.0, 0}, {std::nan(""), 0}}) {
        font f;
        f.scale = scale;
        EXPECT_EQ(points, vela2wx(f).GetPointSize()) << scale;
    }
}

TEST(ConvertFont, StylesBothWays)
{
    for (const unsigned style : {0u, 1u, 2u, 4u, 7u}) {
        const wxFont wx = vela2wx(font{"DejaVu Sans", ffDefault, 11, style});
        EXPECT_EQ(style & 1 ? wxFONTWEIGHT_BOLD : wxFONTWEIGHT_NORMAL, wx.GetWeight()) << style;
        EXPECT_EQ(style & 2 ? wxFONTSTYLE_ITALIC : wxFONTSTYLE_NORMAL, wx.GetStyle()) << style;
        EXPECT_EQ((style & 4) != 0, wx.GetUnderlined()) << style;
        EXPECT_EQ(style, wx2vela(wx).style);
        EXPECT_EQ("DejaVu Sans", wx2vela(wx).face);
        EXPECT_EQ(11, wx2vela(wx).size);
    }
    // Exactly bold and italic count.
    EXPECT_EQ(0u, wx2vela(wxFont(10, wxFONTFAMILY_SWISS, wxFONTSTYLE_SLANT, wxFONTWEIGHT_LIGHT)).style);
    EXPECT_EQ(font(), wx2vela(wxFont()));
}

// A font whose family reads back as it was given; the platform's own answers only a few.
class FontOfFamily : public wxFont
{
public:
    explicit FontOfFamily(wxFontFamily family)
        : wxFont(10, wxFONTFAMILY_DEFAULT, wxFONTSTYLE_NORMAL, wxFONTWEIGHT_NORMAL), m_family(family)
    {
    }

protected:
    wxFontFamily DoGetFamily() const override { return m_family; }

private:
    const wxFontFamily m_family;
};

// Towards wx a family shows only in the face that the platform picks for it.
TEST(ConvertFont, Families)
{
    const auto face = [](const wxFont& f) { return f.GetFaceName(); };
    const auto ofWx = [](wxFontFamily family) {
        return wxFont(10, family, wxFONTSTYLE_NORMAL, wxFONTWEIGHT_NORMAL);
    };
    const wxFontFamily families[] = {wxFONTFAMILY_SWISS, wxFONTFAMILY_ROMAN, wxFONTFAMILY_MODERN,
                                     wxFONTFAMILY_DECORATIVE};
    for (int family = 0; family < 4; ++family) {
        EXPECT_EQ(family, wx2vela(FontOfFamily(families[family])).family);
        EXPECT_EQ(face(ofWx(families[family])), face(vela2wx(font{"", family, 10}))) << family;
    }
    EXPECT_NE(face(ofWx(wxFONTFAMILY_ROMAN)), face(ofWx(wxFONTFAMILY_MODERN)));
    EXPECT_NE(face(ofWx(wxFONTFAMILY_SWISS)), face(ofWx(wxFONTFAMILY_MODERN)));
    for (const wxFontFamily other :
         {wxFONTFAMILY_SCRIPT, wxFONTFAMILY_TELETYPE, wxFONTFAMILY_DEFAULT, wxFONTFAMILY_UNKNOWN})
        EXPECT_EQ(4, wx2vela(FontOfFamily(other)).family) << other;
    for (const int family : {4, -1, 5, 99})
        EXPECT_EQ(face(ofWx(wxFONTFAMILY_DEFAULT)), face(vela2wx(font{"", family, 10}))) << family;
}

// ---- keys

TEST(ConvertKeys, Table)
{
    // clang-format off
    const int table[][2] = {
        {27, 27}, {9, 9}, {8, 8}, {13, 13}, {322, 45}, {127, 46}, {310, 19}, {319, 44}, {313, 36}, {312, 35},
        {314, 37}, {315, 38}, {316, 39}, {317, 40}, {366, 33}, {367, 34}, {306, 16}, {308, 17}, {307, 18},
        {311, 20}, {364, 144}, {365, 145},
        {324, 96}, {325, 97}, {326, 98}, {327, 99}, {328, 100}, {329, 101}, {330, 102}, {331, 103}, {332, 104},
        {333, 105},
        {387, 106}, {388, 107}, {389, 108}, {390, 109}, {391, 110}, {369, 9}, {383, 8}, {370, 13}, {384, 45},
        {385, 46}, {375, 36}, {382, 35}, {376, 37}, {377, 38}, {378, 39}, {379, 40}, {380, 33}, {381, 34},
        {65, 65}, {90, 90}, {48, 48}, {57, 57},
        {340, 112}, {341, 113}, {351, 123},
        // unchanged: beyond the ranges, keypad divide, equal, space and function keys, anything unknown
        {352, 352}, {339, 339}, {323, 323}, {334, 334}, {392, 392}, {386, 386}, {368, 368}, {371, 371},
        {374, 374}, {97, 97}, {32, 32}, {0, 0}, {-1, -1}, {100000, 100000},
    };
    // clang-format on
    for (const auto& row : table)
        EXPECT_EQ(row[1], wx2velaKeyCode(row[0])) << "wx key " << row[0];
    EXPECT_EQ(392, WXK_NUMPAD_DIVIDE);
    EXPECT_EQ(228, wx2velaChar(228));
}

TEST(ConvertKeys, StateIsOneBitButMouseStateAll)
{
    // By the bits shift, control, alt of wx's state.
    const std::uint32_t expected[][2] = {{0, 0},         {0x100, 0x100}, {0x200, 0x200}, {0x100, 0x300},
                                         {0x400, 0x400}, {0x100, 0x500}, {0x400, 0x600}, {0x100, 0x700}};
    for (unsigned bits = 0; bits < 8; ++bits) {
        wxKeyEvent key(wxEVT_KEY_DOWN);
        wxMouseEvent mouse(wxEVT_MOTION);
        for (wxKeyboardState* const state :
             {static_cast<wxKeyboardState*>(&key), static_cast<wxKeyboardState*>(&mouse)}) {
            state->SetShiftDown((bits & 1) != 0);
            state->SetControlDown((bits & 2) != 0);
            state->SetAltDown((bits & 4) != 0);
        }
        EXPECT_EQ(expected[bits][0], wx2velaKeyState(key)) << bits;
        EXPECT_EQ(expected[bits][1], wx2velaMouseState(mouse)) << bits;
    }
}

TEST(ConvertButtons, NumbersByEventTypeOrState)
{
    struct Row
    {
        wxEventType type;
        std::uint32_t press, release, doubleClick;
    };
    const Row rows[] = {
        {wxEVT_LEFT_DOWN, 1, 0, 0},   {wxEVT_MIDDLE_DOWN, 2, 0, 0},   {wxEVT_RIGHT_DOWN, 3, 0, 0},
        {wxEVT_LEFT_UP, 0, 1, 0},     {wxEVT_MIDDLE_UP, 0, 2, 0},     {wxEVT_RIGHT_UP, 0, 3, 0},
        {wxEVT_LEFT_DCLICK, 0, 0, 1}, {wxEVT_MIDDLE_DCLICK, 0, 0, 2}, {wxEVT_RIGHT_DCLICK, 0, 0, 3},
        {wxEVT_MOTION, 0, 0, 0},
    };
    for (const Row& row : rows) {
        const wxMouseEvent event(row.type);
        EXPECT_EQ(row.press, wx2velaMouseBtn(event)) << row.type;
        EXPECT_EQ(row.release, wx2velaMouseBtnUp(event)) << row.type;
        EXPECT_EQ(row.doubleClick, wx2velaMouseBtnDClick(event)) << row.type;
    }
    const std::uint32_t first[] = {0, 1, 3, 1, 2, 1, 3, 1}; // by the bits left, right, middle
    for (std::uint32_t bits = 0; bits < 8; ++bits) {
        wxMouseEvent event(wxEVT_MOTION);
        event.SetLeftDown((bits & 1) != 0);
        event.SetRightDown((bits & 2) != 0);
        event.SetMiddleDown((bits & 4) != 0);
        EXPECT_EQ(first[bits], wx2velaMouseBtnMove(event)) << bits;
        EXPECT_EQ(bits, wx2velaMouseState(event));
    }
}

// ---- scale; one test, since the process remembers the first resolution that is set

TEST(ConvertScale, EstimatesUntilTheDesktopHasAResolutionAndKeepsIt)
{
    GdkScreen* const screen = gdk_screen_get_default();
    gdk_screen_set_resolution(screen, -1);
    const int pixels = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetPixelSize().GetHeight();
    const double estimate = pixels > 16 ? pixels / 16.0 : 1.0;
    EXPECT_DOUBLE_EQ(estimate, correctScaleWithDefaultFontSize(1.0));
    EXPECT_DOUBLE_EQ(estimate, correctScaleWithDefaultFontSize(0.5));
    EXPECT_DOUBLE_EQ(1.5, correctScaleWithDefaultFontSize(1.5));
    gdk_screen_set_resolution(screen, 120);
    for (const double scale : {0.5, 1.0, 3.0})
        EXPECT_DOUBLE_EQ(1.25, correctScaleWithDefaultFontSize(scale)) << scale;
    gdk_screen_set_resolution(screen, 72); // read once
    EXPECT_DOUBLE_EQ(1.25, correctScaleWithDefaultFontSize(2.0));
}

} // namespace
} // namespace vela7
