// What toolkit code hears of the mouse and the keyboard.

#include "contract/stagetest.h"

#include <algorithm>

using namespace vela7;
using namespace vela7::contract;
using vela7::test::At;
using vela7::test::Lines;

class Mouse : public StageTest
{
protected:
    void SetUp() override
    {
        StageTest::SetUp();
        heard->Hear<IMouseNotify, IContextMenuNotify>();
        PointAt(*window, 50, 40);
        ASSERT_TRUE(WaitFor([&] { return heard->Count("enter") > 0; }, "the pointer's arrival"));
        heard->Take();
    }
};

TEST_F(Mouse, PressReleaseAndDoubleClick)
{
    DoubleClick(mbLeft);
    EXPECT_EQ((Lines{"press 50,40 button 1 state 0x1", "release 50,40 button 1 state 0x0",
                     "double 50,40 button 1 state 0x1", "release 50,40 button 1 state 0x0"}),
              heard->Take());
    DoubleClick(mbRight);
    EXPECT_EQ((Lines{"press 50,40 button 3 state 0x2", "menu 50,40", "release 50,40 button 3 state 0x0",
                     "double 50,40 button 3 state 0x2", "release 50,40 button 3 state 0x0"}),
              heard->Take());
    DoubleClick(mbMiddle);
    EXPECT_EQ(Lines{}, heard->Take());
}

TEST_F(Mouse, StateHoldsAllButtonsAndModifiers)
{
    // clang-format off
    const struct { std::vector<MouseButton> buttons; std::vector<std::uint32_t> keys; const char* move; } rows[] = {
        {{},                           {},                          "button 0 state 0x0"},
        {{mbRight, mbLeft},            {},                          "button 1 state 0x3"},
        {{mbMiddle, mbLeft},           {},                          "button 1 state 0x5"},
        {{mbMiddle, mbRight},          {},                          "button 3 state 0x6"},
        {{mbMiddle, mbRight, mbLeft},  {},                          "button 1 state 0x7"},
        {{mbLeft},                     {kcShift, kcControl},        "button 1 state 0x301"},
        {{mbRight},                    {kcAlt},                     "button 3 state 0x402"},
        {{mbMiddle},                   {kcShift, kcAlt},            "button 2 state 0x504"},
        {{},                           {kcShift, kcControl, kcAlt}, "button 0 state 0x700"},
    };
    // clang-format on
    int x = 50;
    for (const auto& row : rows) {
        for (const std::uint32_t key : row.keys)
            KeyDown(key);
        for (const MouseButton button : row.buttons)
            Press(button);
        heard->Take();
        PointAt(*window, ++x, 40);
        EXPECT_EQ(Lines{"motion " + At(x, 40) + ' ' + row.move}, heard->Take());
        ReleaseAll();
    }
}

TEST_F(Mouse, WheelCountsLines)
{
    TurnWheel(1);
    TurnWheel(-1);
    EXPECT_EQ((Lines{"wheel 50,40 button 0 state 0x0 delta 3", "wheel 50,40 button 0 state 0x0 delta -3"}),
              heard->Take());
}

TEST_F(Mouse, CaptureFollowsThePointer)
{
    window->ReleaseMouse(); // nobody has it
    window->CaptureMouse();
    window->CaptureMouse();         // does not nest
    stage->Window().ReleaseMouse(); // has not got it
    Press(mbLeft);
    PointAt(*window, -14, 150);
    PointAt(*window, -15, 151);
    EXPECT_EQ(
        1, heard->Count("leave")); // from where, and whether a motion comes with it, is the platform's affair
    const Lines lines = heard->Take();
    EXPECT_GE(4u, lines.size());
    EXPECT_EQ(1, std::count(lines.begin(), lines.end(), "motion -15,151 button 1 state 0x1"));
    Release(mbLeft);
    window->ReleaseMouse();
    heard->Take();
    PointAt(*window, -16, 152);
    EXPECT_EQ(Lines{}, heard->Take());
}

TEST_F(Mouse, ClearedPassOnStopsTheOthers)
{
    test::Recorder first(window);
    window->SubscribeToFront(static_cast<IMouseNotify*>(&first), typeid(IMouseNotify), false);
    Click(mbLeft);
    EXPECT_EQ(2u, heard->Take().size());
    first.DoIn("press", [](CEvent& event) { event.passOn = false; });
    Click(mbLeft);
    EXPECT_EQ(Lines{"release 50,40 button 1 state 0x0"}, heard->Take());
    Click(mbRight); // and the platform makes no menu of it
    EXPECT_EQ(Lines{"release 50,40 button 3 state 0x0"}, heard->Take());
}

TEST_F(Mouse, PressTakesTheFocusUnlessToldNotTo)
{
    ISysWindow* const other = stage->Window().CreateChild(ISysWindow::wtNormal);
    other->SetWindowRect(20, 150, 220, 200, false);
    other->SetFocus();
    Settle();
    window->SetFocusOnClick(false);
    heard->Do([](CEvent& event) { event.passOn = false; });
    Click(mbLeft);
    EXPECT_TRUE(other->GetFocused());
    window->SetFocusOnClick(true);
    Click(mbLeft);
    EXPECT_TRUE(window->GetFocused());
}

// On the only window there is, so that the platform has nowhere to move the focus to.
class Keyboard : public OnStage
{
protected:
    void SetUp() override
    {
        OnStage::SetUp();
        heard->Hear<IKeyboardNotify, ITabTraversalNotify>();
        window->SetFocus();
        Settle();
        ASSERT_TRUE(window->GetFocused());
    }
};

TEST_F(Keyboard, PressCharacterAndRelease)
{
    using Keys = std::vector<std::uint32_t>;
    // clang-format off
    const struct { Keys held; std::uint32_t key; const char* press; int character; const char* release; } rows[] = { // -1: no character
        {{},                 'A',        "65 state 0x0",   97,  "65 state 0x0"},
        {{kcShift},          'A',        "65 state 0x100", 65,  "65 state 0x100"},
        {{kcControl},        'A',        "65 state 0x200", 1,   "65 state 0x200"},
        {{kcAlt},            'A',        "65 state 0x400", 97,  "65 state 0x400"},
        {{kcShift, kcControl}, 'A',      "65 state 0x100", 1,   "65 state 0x100"},
        {{kcControl, kcAlt}, 'A',        "65 state 0x400", 1,   "65 state 0x400"},
        {{},                 '5',        "53 state 0x0",   53,  "53 state 0x0"},
        {{},                 kcEscape,   "27 state 0x0",   27,  "27 state 0x0"},
        {{},                 kcReturn,   "13 state 0x0",   13,  "13 state 0x0"},
        {{},                 kcBack,     "8 state 0x0",    8,   "8 state 0x0"},
        {{},                 kcShift,    "16 state 0x100", -1,  "16 state 0x0"},
        {{},                 kcControl,  "17 state 0x200", -1,  "17 state 0x0"},
        {{},                 kcAlt,      "18 state 0x400", -1,  "18 state 0x0"},
    };
    // clang-format on
    for (const auto& row : rows) {
        for (const std::uint32_t key : row.held)
            KeyDown(key);
        heard->Take();
        KeyDown(row.key);
        KeyUp(row.key);
        Lines expected{std::string("keydown ") + row.press + " char 0"};
        if (row.character >= 0) {
            const std::string code = std::to_string(row.character);
            expected.push_back("char " + code + " state 0x0 char " + code);
        }
        expected.push_back(std::string("keyup ") + row.release + " char 0");
        EXPECT_EQ(expected, heard->Take());
        ReleaseAll();
    }
    // Keys without a character of their own: what their character records hold is the platform's affair.
    for (const std::uint32_t key : {kcF12, kcLeft, kcDown, kcPageUp, kcHome, kcDelete, kcAdd}) {
        KeyDown(key);
        KeyUp(key);
        const Lines lines = heard->Take();
        ASSERT_FALSE(lines.empty());
        EXPECT_EQ("keydown " + std::to_string(key) + " state 0x0 char 0", lines.front());
        EXPECT_EQ("keyup " + std::to_string(key) + " state 0x0 char 0", lines.back());
    }
}

TEST_F(Keyboard, APressThatWasDealtWithMakesNoCharacter)
{
    heard->DoIn("keydown", [](CEvent& event) { event.passOn = false; });
    KeyDown('A');
    KeyUp('A');
    EXPECT_EQ((Lines{"keydown 65 state 0x0 char 0", "keyup 65 state 0x0 char 0"}), heard->Take());
}

TEST_F(Keyboard, TabGoesRoundOrStays)
{
    KeyDown(kcTab); // nowhere to go but round
    EXPECT_EQ((Lines{"keydown 9 state 0x0 char 0", "tab 9 state 0x0 char 0"}), heard->Take());
    KeyUp(kcTab);
    KeyDown(kcShift);
    heard->Take();
    KeyDown(kcTab);
    EXPECT_EQ((Lines{"keydown 9 state 0x100 char 0", "tab 9 state 0x100 char 0"}), heard->Take());
    ReleaseAll();
    heard->Take();
    heard->DoIn("keydown",
                [](CEvent& event) { static_cast<CKeyboardEvent&>(event).allowNavigation = false; });
    KeyDown(kcTab); // for the window itself
    EXPECT_EQ((Lines{"keydown 9 state 0x0 char 0", "char 9 state 0x0 char 9"}), heard->Take());
}
