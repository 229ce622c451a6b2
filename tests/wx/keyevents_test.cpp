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

// Keys without a character: the records carry wx's code and its low byte.
TEST_F(KeyEvents, CharactersOfNamedKeys)
{
    struct Row
    {
        unsigned long key;
        Lines expected;
    };
    // clang-format off
    const Row rows[] = {
        {GDK_KEY_F12,     {"keydown 123 state 0x0 char 0",   "char 351 state 0x0 char 95",  "keyup 123 state 0x0 char 0"}},
        {GDK_KEY_Left,    {"keydown 37 state 0x0 char 0",    "char 314 state 0x0 char 58",  "keyup 37 state 0x0 char 0"}},
        {GDK_KEY_Page_Up, {"keydown 33 state 0x0 char 0",    "char 366 state 0x0 char 110", "keyup 33 state 0x0 char 0"}},
        {GDK_KEY_KP_Divide, {"keydown 392 state 0x0 char 0", "char 47 state 0x0 char 47",   "keyup 392 state 0x0 char 0"}},
        {GDK_KEY_KP_Begin, {"keydown 8 state 0x0 char 0",    "char 313 state 0x0 char 57", "keyup 8 state 0x0 char 0"}},
        {GDK_KEY_KP_Home, {"keydown 36 state 0x0 char 0",    "char 313 state 0x0 char 57", "keyup 36 state 0x0 char 0"}},
    };
    // clang-format on
    for (const Row& row : rows) {
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
    // To the next window after the parent, or the last one before it.
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
