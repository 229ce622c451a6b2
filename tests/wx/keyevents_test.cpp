// Keyboard records of toolkit windows, on real input.
#include "windowhelpers.h"

#include <gdk/gdkkeysyms.h>
#include <wx/textctrl.h>

using namespace vela7;
using namespace vela7::test;

class KeyEvents : public WindowTest
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(WindowTest::SetUp());
        heard = std::make_unique<Recorder>(window);
        heard->Hear<IKeyboardNotify, ITabTraversalNotify>();
        window->SetFocus();
        ASSERT_TRUE(native->HasFocus());
    }

    std::unique_ptr<Recorder> heard;
};

TEST_F(KeyEvents, PressCharacterAndRelease)
{
    constexpr unsigned long shift = GDK_KEY_Shift_L, control = GDK_KEY_Control_L, alt = GDK_KEY_Alt_L;
    struct Row
    {
        std::vector<unsigned long> held;
        unsigned long key;
        Lines expected;
    };
    // clang-format off
    const Row rows[] = {
        {{},               GDK_KEY_a,       {"keydown 65 state 0x0 char 0",    "char 97 state 0x0 char 97",   "keyup 65 state 0x0 char 0"}},
        {{shift},          GDK_KEY_a,       {"keydown 65 state 0x100 char 0",  "char 65 state 0x0 char 65",   "keyup 65 state 0x100 char 0"}},
        {{control},        GDK_KEY_a,       {"keydown 65 state 0x200 char 0",  "char 1 state 0x0 char 1",     "keyup 65 state 0x200 char 0"}},
        {{alt},            GDK_KEY_a,       {"keydown 65 state 0x400 char 0",  "char 97 state 0x0 char 97",   "keyup 65 state 0x400 char 0"}},
        {{shift, control}, GDK_KEY_a,       {"keydown 65 state 0x100 char 0",  "char 1 state 0x0 char 1",     "keyup 65 state 0x100 char 0"}},
        {{control, alt},   GDK_KEY_a,       {"keydown 65 state 0x400 char 0",  "char 1 state 0x0 char 1",     "keyup 65 state 0x400 char 0"}},
        {{},               GDK_KEY_5,       {"keydown 53 state 0x0 char 0",    "char 53 state 0x0 char 53",   "keyup 53 state 0x0 char 0"}},
        {{},               GDK_KEY_F12,     {"keydown 123 state 0x0 char 0",   "char 351 state 0x0 char 95",  "keyup 123 state 0x0 char 0"}},
        {{},               GDK_KEY_Left,    {"keydown 37 state 0x0 char 0",    "char 314 state 0x0 char 58",  "keyup 37 state 0x0 char 0"}},
        {{shift},          GDK_KEY_Down,    {"keydown 40 state 0x100 char 0",  "char 317 state 0x0 char 61",  "keyup 40 state 0x100 char 0"}},
        {{},               GDK_KEY_Page_Up, {"keydown 33 state 0x0 char 0",    "char 366 state 0x0 char 110", "keyup 33 state 0x0 char 0"}},
        {{},               GDK_KEY_Escape,  {"keydown 27 state 0x0 char 0",    "char 27 state 0x0 char 27",   "keyup 27 state 0x0 char 0"}},
        {{},               GDK_KEY_Return,  {"keydown 13 state 0x0 char 0",    "char 13 state 0x0 char 13",   "keyup 13 state 0x0 char 0"}},
        {{},               GDK_KEY_BackSpace, {"keydown 8 state 0x0 char 0",   "char 8 state 0x0 char 8",     "keyup 8 state 0x0 char 0"}},
        {{},               GDK_KEY_Delete,  {"keydown 46 state 0x0 char 0",    "char 127 state 0x0 char 127", "keyup 46 state 0x0 char 0"}},
        {{},               GDK_KEY_KP_Add,  {"keydown 107 state 0x0 char 0",   "char 43 state 0x0 char 43",   "keyup 107 state 0x0 char 0"}},
        {{},               GDK_KEY_KP_Divide, {"keydown 392 state 0x0 char 0", "char 47 state 0x0 char 47",   "keyup 392 state 0x0 char 0"}},
        {{},               GDK_KEY_KP_Begin, {"keydown 8 state 0x0 char 0",    "char 313 state 0x0 char 57", "keyup 8 state 0x0 char 0"}},
        {{},               GDK_KEY_KP_Home, {"keydown 36 state 0x0 char 0",    "char 313 state 0x0 char 57", "keyup 36 state 0x0 char 0"}},
        {{},               shift,             {"keydown 16 state 0x100 char 0",                                "keyup 16 state 0x0 char 0"}},
        {{},               GDK_KEY_Control_R, {"keydown 17 state 0x200 char 0",                                "keyup 17 state 0x0 char 0"}},
        {{},               alt,               {"keydown 18 state 0x400 char 0",                                "keyup 18 state 0x0 char 0"}},
    };
    // clang-format on
    for (const Row& row : rows) {
        for (const unsigned long key : row.held)
            KeyDown(key);
        heard->Take();
        Tap(row.key);
        EXPECT_EQ(row.expected, heard->Take());
        ReleaseAll();
    }
}

TEST_F(KeyEvents, ClearedPassOnStopsWhatFollows)
{
    CountBelow(wxEVT_KEY_DOWN, wxEVT_CHAR, wxEVT_KEY_UP);
    Tap(GDK_KEY_a);
    EXPECT_EQ(3, below);
    const auto clear = [](CEvent& event) { event.passOn = false; };
    heard->DoIn("char", clear);
    Tap(GDK_KEY_a);
    EXPECT_EQ(5, below);
    heard->Take();
    heard->DoIn("keydown", clear); // a press that was dealt with makes no character
    Tap(GDK_KEY_a);
    EXPECT_EQ((Lines{"keydown 65 state 0x0 char 0", "keyup 65 state 0x0 char 0"}), heard->Take());
    EXPECT_EQ(6, below);
}

TEST_F(KeyEvents, TabNavigatesAndEndsHere)
{
    CountBelow(wxEVT_KEY_DOWN, wxEVT_CHAR);
    // Nowhere to go: the focus stays, and goes round inside the window.
    Tap(GDK_KEY_Tab);
    EXPECT_EQ((Lines{"keydown 9 state 0x0 char 0", "tab 9 state 0x0 char 0", "keyup 9 state 0x0 char 0"}),
              heard->Take());
    KeyDown(GDK_KEY_Shift_L);
    below = 0;
    heard->Take();
    KeyDown(GDK_KEY_Tab);
    EXPECT_EQ((Lines{"keydown 9 state 0x100 char 0", "tab 9 state 0x100 char 0"}), heard->Take());
    ReleaseAll();
    EXPECT_EQ(0, below);

    // Else it goes to the next window after the parent, or the last one before it.
    panel->SetSize(400, 150);
    auto* const next =
        new wxTextCtrl(new wxPanel(frame, wxID_ANY, wxPoint(0, 150), wxSize(400, 50)), wxID_ANY);
    auto* const last =
        new wxTextCtrl(new wxPanel(frame, wxID_ANY, wxPoint(0, 200), wxSize(400, 50)), wxID_ANY);
    Settle();
    heard->Take();
    Tap(GDK_KEY_Tab);
    EXPECT_EQ(Lines{"keydown 9 state 0x0 char 0"}, heard->Take());
    EXPECT_TRUE(next->HasFocus());
    window->SetFocus();
    EXPECT_EQ(0, below);
    KeyDown(GDK_KEY_Shift_L);
    Tap(GDK_KEY_Tab);
    EXPECT_TRUE(last->HasFocus());
}

TEST_F(KeyEvents, TabForTheWindowItself)
{
    heard->DoIn("keydown",
                [](CEvent& event) { static_cast<CKeyboardEvent&>(event).allowNavigation = false; });
    CountBelow(wxEVT_KEY_DOWN);
    Tap(GDK_KEY_Tab);
    EXPECT_EQ((Lines{"keydown 9 state 0x0 char 0", "char 9 state 0x0 char 9", "keyup 9 state 0x0 char 0"}),
              heard->Take());
    EXPECT_EQ(1, below);
}

TEST_F(KeyEvents, NavigationBecomesTab)
{
    struct Row
    {
        bool forward, windowChange;
        const char* expected;
    };
    // clang-format off
    const Row rows[] = {
        {true,  false, "keydown 9 state 0x0 char 0"},
        {true,  true,  "keydown 9 state 0x200 char 0"},
        {false, false, "keydown 9 state 0x100 char 0"},
        {false, true,  "keydown 9 state 0x100 char 0"},
    };
    // clang-format on
    CountBelow(wxEVT_NAVIGATION_KEY);
    for (const bool allowed : {true, false})
        for (const Row& row : rows) {
            heard->Do([&](CEvent& event) {
                event.passOn = !allowed; // means nothing here
                static_cast<CKeyboardEvent&>(event).allowNavigation = allowed;
            });
            wxNavigationKeyEvent event;
            event.SetDirection(row.forward);
            event.SetWindowChange(row.windowChange);
            below = 0;
            EXPECT_EQ(!allowed, native->HandleWindowEvent(event));
            EXPECT_EQ(Lines{row.expected}, heard->Take());
            EXPECT_EQ(allowed ? 1 : 0, below);
        }
}
