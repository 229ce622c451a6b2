// What the in-place edit and combo box share, on real input; then the edit's own.
#include "controlhelpers.h"
#include "vela7/wxinplaceedit.h"

#include <gtk/gtk.h>
#include <stdexcept>
#include <wx/app.h>
#include <wx/textctrl.h>

using namespace vela7;
using namespace vela7::test;

INSTANTIATE_TEST_SUITE_P(, EditAndCombo, testing::Bool(),
                         [](const auto& info) { return info.param ? "Combo" : "Edit"; });

TEST_P(EditAndCombo, KeysReachListenersTextAndParent)
{
    constexpr unsigned long shift = GDK_KEY_Shift_L;
    const Lines tab{"keydown 9 state 0x0 char 0"}, back{"keydown 9 state 0x100 char 0"};
    // clang-format off
    const struct { unsigned long held, key; Lines heard, parent; const char* text; } rows[] = {
        {0,     GDK_KEY_a,      {"keydown 65 state 0x0 char 65", "char 97 state 0x0 char 97", "text a"},      {}, "a"},
        {shift, GDK_KEY_b,      {"keydown 66 state 0x100 char 66", "char 66 state 0x100 char 66", "text aB"}, {}, "aB"},
        {0,     GDK_KEY_Return, {"keydown 13 state 0x0 char 13", "char 13 state 0x0 char 13", "enter"},       {}, "aB"},
        {0,     GDK_KEY_Tab,    {"keydown 9 state 0x0 char 9"},   tab,  "aB"},
        {shift, GDK_KEY_Tab,    {"keydown 9 state 0x100 char 9"}, back, "aB"},
    };
    // clang-format on
    heard->Hear<IKeyboardNotify>();
    heard->Do([](CEvent& e) { static_cast<CKeyboardEvent&>(e).allowNavigation = false; });
    for (const auto& row : rows) {
        if (row.held)
            KeyDown(row.held);
        edits->Take();
        Tap(row.key);
        EXPECT_EQ(row.heard, edits->Take());
        EXPECT_EQ(row.parent, heard->Take());
        EXPECT_EQ(row.text, text->GetText());
        EXPECT_TRUE(text->GetFocused());
        ReleaseAll();
    }
    wxKeyEvent typed(wxEVT_CHAR);
    typed.m_keyCode = WXK_TAB;
    edits->Take();
    EXPECT_TRUE(control->HandleWindowEvent(typed)); // consumed
    EXPECT_EQ("char", edits->TakeNames());
    edits->DoIn("keydown", [](CEvent& e) { // reaches the parent nevertheless, which has nowhere else to go
        e.passOn = static_cast<CEditKeyEvent&>(e).defaultProcessing() = false;
        static_cast<CEditKeyEvent&>(e).skip = false;
    });
    heard->Do({});
    Tap(GDK_KEY_Tab);
    EXPECT_TRUE(native->HasFocus());
}

TEST_P(EditAndCombo, ThreeFlagsOfAKey)
{
    // What the listener behind hears, and what is typed.
    // clang-format off
    const struct { const char* hook; bool passOn, processing, skip; const char *second, *text; } rows[] = {
        {"none",    true,  true,  true,  "keydown char text", "x"},
        {"keydown", false, true,  true,  "char text",         "x"},
        {"keydown", false, false, true,  "",                  ""},
        {"keydown", false, true,  false, "",                  ""},
        {"char",    false, true,  true,  "keydown text",      "x"},
        {"char",    false, false, true,  "keydown",           ""},
        {"char",    false, true,  false, "keydown",           ""},
    };
    // clang-format on
    Recorder second(text.Get());
    second.HearAll();
    for (const auto& row : rows) {
        edits->Do({});
        text->SetText("");
        second.Take();
        edits->DoIn(row.hook, [&](CEvent& e) {
            e.passOn = row.passOn;
            static_cast<CEditKeyEvent&>(e).defaultProcessing() = row.processing;
            static_cast<CEditKeyEvent&>(e).skip = row.skip;
        });
        Tap(GDK_KEY_x);
        EXPECT_EQ(row.text, text->GetText()) << row.hook;
        EXPECT_EQ(row.second, second.TakeNames()) << row.hook;
    }
}

TEST_P(EditAndCombo, RewritingTheTextAndThrowing)
{
    edits->DoIn("text", [&](CEvent&) {
        if (text->GetText() != "other")
            text->SetText("other");
    });
    Tap(GDK_KEY_a);
    EXPECT_EQ("other", text->GetText());
    EXPECT_EQ(GetParam() ? "keydown char text text" : "keydown char text", edits->TakeNames());
    edits->DoIn("text", [&](CEvent&) { throw std::runtime_error("a listener's"); });
    Tap(GDK_KEY_b);
    ExpectFaults(Fault::loop, 1, "a listener's");
    edits->Do({});
    edits->Take();
    text->SetText("reported again");
    EXPECT_EQ(Lines{"text reported again"}, edits->Take());
}

TEST_P(EditAndCombo, MotionGoesOnToTheWindow)
{
    heard->Hear<IMouseNotify>();
    for (const bool active : {true, false}) {
        wxTheApp->SetActive(active, nullptr);
        PointAt(control, 20, 12);
        heard->Take();
        PointAt(control, 21, 12);
        EXPECT_EQ(active ? 1 : 0, heard->Count("motion"));
    }
    wxTheApp->SetActive(true, nullptr);
    for (const auto press :
         {&wxMouseState::SetLeftDown, &wxMouseState::SetMiddleDown, &wxMouseState::SetRightDown,
          &wxMouseState::SetAux1Down, &wxMouseState::SetAux2Down})
        for (const bool down : {true, false}) {
            wxMouseEvent motion(wxEVT_MOTION);
            motion.SetPosition(wxPoint(5, 6));
            (motion.*press)(down);
            heard->Take();
            EXPECT_FALSE(control->HandleWindowEvent(motion)); // the control's own business too
            EXPECT_EQ(down ? Lines{} : Lines{"motion 15,16 button 0 state 0x0"}, heard->Take());
        }
}

TEST_P(EditAndCombo, ContextMenuIsTheListeners)
{
    heard->Hear<IContextMenuNotify>();
    const auto ask = [&](const wxPoint& screen) {
        wxContextMenuEvent event(wxEVT_CONTEXT_MENU, wxID_ANY, screen);
        EXPECT_TRUE(control->HandleWindowEvent(event));
        return edits->Take();
    };
    EXPECT_EQ(Lines{"menu 3,-30"}, ask(control->ClientToScreen(wxPoint(3, -30))));
    for (const wxPoint& edge :
         {wxPoint(-1, 400), wxPoint(400, -1), wxPoint(0, -1)}) { // of the screen; not by a key
        const wxPoint client = control->ScreenToClient(edge);
        EXPECT_EQ(Lines{"menu " + At(client.x, client.y)}, ask(edge));
    }
    PointAt(control, -5, 22); // on the parent
    Tap(GDK_KEY_Menu);
    EXPECT_EQ("menu -5,22", edits->Take().back());
    PointAt(control, 20, 12);
    Click(rightButton);
    EXPECT_EQ("menu", edits->TakeNames());
    EXPECT_EQ(nullptr, gtk_grab_get_current());
    EXPECT_EQ(Lines{}, heard->Take());
}

TEST_P(EditAndCombo, FocusGoesToSignalsThenToTheWindow)
{
    Lines order;
    text->focus_in_signal.connect([&](ICustomControl*) { order.push_back("in"); });
    text->focus_out_signal.connect([&](ICustomControl*) { order.push_back("out"); });
    heard->Hear<IFocusNotify>();
    heard->Do([&](CEvent&) { order.push_back("window"); });
    auto* const other = new wxTextCtrl(frame, wxID_ANY, "", wxPoint(20, 250));
    other->SetFocus();
    EXPECT_EQ((Lines{"out", "window"}), std::exchange(order, {}));
    text->SetFocusEx();
    EXPECT_TRUE(text->GetFocused());
    EXPECT_EQ(Lines{}, order);
    other->SetFocus(); // no longer within SetFocusEx
    text->SetFocus();
    EXPECT_EQ((Lines{"out", "window", "in", "window"}), order);
    heard->Take();
    native->SetFocus(); // not lost to the window
    EXPECT_EQ(Lines{"focus"}, heard->Take());
    text->focus_out_signal.disconnect_all(), heard->Forget();
}

TEST_F(WindowTest, EditOperations)
{
    const auto text = window->CreateInplaceEdit(0);
    auto* const control = static_cast<wxWindow*>(text->GetNativeHandle());
    for (const bool framed : {true, false}) {
        text->SetFramed(framed);
        EXPECT_EQ(framed, text->GetFramed());
        EXPECT_EQ(framed ? 0x08000000 : 0x00200000, control->GetWindowStyleFlag() & 0x08200000);
        text->SetVisible(framed);
        EXPECT_EQ(framed, control->IsShownOnScreen());
    }
    control->SetForegroundColour(*wxRED);
    text->SetVisible(true); // with the system's colours
    EXPECT_NE(*wxRED, control->GetForegroundColour());
    text->SetFocus();
    text->SetText("one two");
    text->SelectAll();
    EXPECT_EQ("one two", text->GetSelectedText());
    text->Deselect();
    EXPECT_EQ("", text->GetSelectedText());
    text->SetTextMaxLen(8);
    text->SetCursorPos(3);
    Tap(GDK_KEY_a);
    Tap(GDK_KEY_b);
    EXPECT_EQ("onea two", text->GetText());
    EXPECT_EQ(4, text->GetCursorPos());

    const std::pair<unsigned long, long> rows[] = {{2, 0}, {4, 0x10}, {~0ul, 0x30}};
    for (const auto& [style, wx] : rows)
        EXPECT_EQ(wx, GetEditStyle(style)) << style;
    const auto lines = window->CreateInplaceEdit(esMultiLine);
    lines->SetTextMaxLen(3); // not for several lines
    lines->SetText("three\nlonger line");
    EXPECT_EQ(5, lines->GetTextLen());
}
