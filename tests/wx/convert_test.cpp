// Conversions of values, keys and buttons, against literal tables.

#include "vela7/wxconvert.h"

#include "support/fixture.h"

#include <gtk/gtk.h>
#include <wx/event.h>
#include <wx/settings.h>

#include <vector>

namespace vela7 {
namespace {

TEST(ConvertText, NarrowsToAsciiAndDecodesTheLocale)
{
    EXPECT_EQ(wxString(wxUniChar(0xe4)), vela2wx(std::string("\xc3\xa4"))); // the harness runs in UTF-8
    EXPECT_EQ("a_z", wx2vela(wxString("a") + wxUniChar(0xe4) + "z"));
    EXPECT_EQ(3u, vela2wx(std::string("a\0b", 3)).length());
}

TEST(ConvertColour, CopiesChannelsAndClearsTheFlag)
{
    _color flagged(1, 2, 3, 4);
    flagged.flag = 7;
    const wxColour wx = vela2wx(flagged);
    EXPECT_EQ(wxColour(1, 2, 3, 4), wx);
    EXPECT_EQ(_color(1, 2, 3, 4), wx2vela(wx));
    EXPECT_EQ(clBlack, wx2vela(wxColour()));
}

TEST(ConvertRect, IsExclusiveOneWayAndInclusiveTheOther)
{
    EXPECT_EQ(wxRect(0, 0, 10, 10), vela2wx(rectangle<int>(0, 0, 10, 10)));
    EXPECT_EQ(rectangle<int>(0, 0, 9, 9), wx2vela(wxRect(0, 0, 10, 10)));
    EXPECT_EQ(wxRect(3, 4, 17, 26), vela2wx(screen_rectangle<int>(3, 4, 20, 30)));
    const rectangle<int> empty = wx2vela(wxRect(5, 6, 0, 0)); // not normalised
    EXPECT_EQ(5, empty.left);
    EXPECT_EQ(4, empty.right);
    EXPECT_EQ(5, empty.bottom);
    rectangle<int> huge;
    huge.left = -2147483647;
    huge.right = 2147483647;
    EXPECT_EQ(2147483647, vela2wx(huge).width);
}

// ---- fonts

TEST(ConvertFont, SizeIsScaledAndTruncated)
{
    font f;
    f.size = 9;
    f.scale = 1.5;
    EXPECT_EQ(13, vela2wx(f).GetPointSize());
    // A system size of 10 points, as the harness sets it.
    ASSERT_EQ(10, wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetPointSize());
    for (const int size : {0, -3}) {
        f.size = size;
        EXPECT_EQ(15, vela2wx(f).GetPointSize()) << size;
    }
}

TEST(ConvertFont, StylesBothWays)
{
    struct Row
    {
        unsigned style;
        wxFontWeight weight;
        wxFontStyle slant;
        bool underlined;
    };
    const Row rows[] = {
        {0, wxFONTWEIGHT_NORMAL, wxFONTSTYLE_NORMAL, false},
        {1, wxFONTWEIGHT_BOLD, wxFONTSTYLE_NORMAL, false},
        {2, wxFONTWEIGHT_NORMAL, wxFONTSTYLE_ITALIC, false},
        {4, wxFONTWEIGHT_NORMAL, wxFONTSTYLE_NORMAL, true},
        {7, wxFONTWEIGHT_BOLD, wxFONTSTYLE_ITALIC, true},
    };
    for (const Row& row : rows) {
        font f;
        f.size = 11;
        f.style = row.style;
        f.face = "DejaVu Sans";
        const wxFont wx = vela2wx(f);
        EXPECT_EQ(row.weight, wx.GetWeight()) << row.style;
        EXPECT_EQ(row.slant, wx.GetStyle()) << row.style;
        EXPECT_EQ(row.underlined, wx.GetUnderlined()) << row.style;
        EXPECT_EQ(row.style, wx2vela(wx).style);
        EXPECT_EQ("DejaVu Sans", wx2vela(wx).face);
        EXPECT_EQ(11, wx2vela(wx).size);
    }
}

TEST(ConvertFont, OnlyExactlyBoldAndItalicCount)
{
    const wxFont light(10, wxFONTFAMILY_SWISS, wxFONTSTYLE_SLANT, wxFONTWEIGHT_LIGHT);
    EXPECT_EQ(0u, wx2vela(light).style);
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

TEST(ConvertFont, FamiliesFromWx)
{
    struct Row
    {
        wxFontFamily wx;
        int family;
    };
    const Row rows[] = {
        {wxFONTFAMILY_DECORATIVE, 3}, {wxFONTFAMILY_ROMAN, 1},   {wxFONTFAMILY_SCRIPT, 4},
        {wxFONTFAMILY_SWISS, 0},      {wxFONTFAMILY_MODERN, 2},  {wxFONTFAMILY_TELETYPE, 4},
        {wxFONTFAMILY_DEFAULT, 4},    {wxFONTFAMILY_UNKNOWN, 4},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.family, wx2vela(FontOfFamily(row.wx)).family) << row.wx;
}

// Towards wx a family shows only in the face that the platform picks for it.
TEST(ConvertFont, FamiliesToWx)
{
    const auto face = [](int family) {
        font f;
        f.size = 10;
        f.family = family;
        return vela2wx(f).GetFaceName();
    };
    const auto wxFace = [](wxFontFamily family) {
        return wxFont(10, family, wxFONTSTYLE_NORMAL, wxFONTWEIGHT_NORMAL).GetFaceName();
    };
    EXPECT_EQ(wxFace(wxFONTFAMILY_SWISS), face(0));
    EXPECT_EQ(wxFace(wxFONTFAMILY_ROMAN), face(1));
    EXPECT_EQ(wxFace(wxFONTFAMILY_MODERN), face(2));
    EXPECT_EQ(wxFace(wxFONTFAMILY_DECORATIVE), face(3));
    EXPECT_NE(face(1), face(2));
    EXPECT_NE(face(0), face(2));
    for (const int family : {4, -1, 5, 99})
        EXPECT_EQ(wxFace(wxFONTFAMILY_DEFAULT), face(family)) << family;
}

TEST(ConvertFont, InvalidFontIsTheDefaultOne)
{
    const font f = wx2vela(wxFont());
    EXPECT_EQ("", f.face);
    EXPECT_EQ(4, f.family);
    EXPECT_EQ(0, f.size);
    EXPECT_EQ(0u, f.style);
    EXPECT_EQ(0, f.angle);
    EXPECT_EQ(1.0, f.scale);
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
    struct Row
    {
        bool shift, alt, control;
        std::uint32_t key, mouse;
    };
    const Row rows[] = {
        {false, false, false, 0x000, 0x000}, {true, false, false, 0x100, 0x100},
        {false, true, false, 0x400, 0x400},  {false, false, true, 0x200, 0x200},
        {true, false, true, 0x100, 0x300},   {false, true, true, 0x400, 0x600},
        {true, true, true, 0x100, 0x700},
    };
    for (const Row& row : rows) {
        wxKeyEvent key(wxEVT_KEY_DOWN);
        wxMouseEvent mouse(wxEVT_MOTION);
        for (wxKeyboardState* state :
             {static_cast<wxKeyboardState*>(&key), static_cast<wxKeyboardState*>(&mouse)}) {
            state->SetShiftDown(row.shift);
            state->SetAltDown(row.alt);
            state->SetControlDown(row.control);
        }
        EXPECT_EQ(row.key, wx2velaKeyState(key)) << row.mouse;
        EXPECT_EQ(row.mouse, wx2velaMouseState(mouse));
    }
}

// ---- buttons

TEST(ConvertButtons, NumbersByEventType)
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
        {wxEVT_MOTION, 0, 0, 0},      {wxEVT_MOUSEWHEEL, 0, 0, 0},    {wxEVT_ENTER_WINDOW, 0, 0, 0},
    };
    for (const Row& row : rows) {
        const wxMouseEvent event(row.type);
        EXPECT_EQ(row.press, wx2velaMouseBtn(event)) << row.type;
        EXPECT_EQ(row.release, wx2velaMouseBtnUp(event)) << row.type;
        EXPECT_EQ(row.doubleClick, wx2velaMouseBtnDClick(event)) << row.type;
    }
}

TEST(ConvertButtons, MoveTakesTheFirstHeldAndStateAll)
{
    struct Row
    {
        bool left, right, middle;
        std::uint32_t button, state;
    };
    const Row rows[] = {
        {false, false, false, 0, 0}, {true, false, false, 1, 1}, {false, true, false, 3, 2},
        {false, false, true, 2, 4},  {true, true, true, 1, 7},   {false, true, true, 3, 6},
        {true, false, true, 1, 5},
    };
    for (const Row& row : rows) {
        wxMouseEvent event(wxEVT_MOTION);
        event.SetLeftDown(row.left);
        event.SetRightDown(row.right);
        event.SetMiddleDown(row.middle);
        EXPECT_EQ(row.button, wx2velaMouseBtnMove(event)) << row.state;
        EXPECT_EQ(row.state, wx2velaMouseState(event));
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
