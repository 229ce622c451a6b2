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
    // clang-format off
    const struct { unsigned long held, key; Lines heard, parent; const char* text; } rows[] = {
        {0,     GDK_KEY_a,         {"keydown 65 0x0 65", "char 97 0x0 97", "text a"},      {}, "a"},
        {shift, GDK_KEY_b,         {"keydown 66 0x100 66", "char 66 0x100 66", "text aB"}, {}, "aB"},
        {0,     GDK_KEY_Return,    {"keydown 13 0x0 13", "char 13 0x0 13", "enter"},       {}, "aB"},
        {0,     GDK_KEY_Escape,    {"keydown 27 0x0 27", "char 27 0x0 27"},                {}, "aB"},
        {0,     GDK_KEY_Tab,       {"keydown 9 0x0 9"},   {"keydown 9 state 0x0 char 0"},      "aB"},
        {shift, GDK_KEY_Tab,       {"keydown 9 0x100 9"}, {"keydown 9 state 0x100 char 0"},    "aB"},
    };
    // clang-format on
    EditRecorder heard(*text);
    Recorder parent(window);
    parent.Hear<IKeyboardNotify>();
    parent.Do([](CEvent& e) { static_cast<CKeyboardEvent&>(e).allowNavigation = false; });
    for (const auto& row : rows) {
        if (row.held)
            KeyDown(row.held);
        heard.Take();
        Tap(row.key);
        EXPECT_EQ(row.heard, heard.Take());
        EXPECT_EQ(row.parent, parent.Take());
        EXPECT_EQ(row.text, text->GetText());
        ReleaseAll();
    }
    wxKeyEvent tab(wxEVT_CHAR);
    tab.m_keyCode = WXK_TAB;
    heard.Take();
    EXPECT_TRUE(control->HandleWindowEvent(tab)); // consumed
    EXPECT_EQ(Lines{"char 9 0x0 9"}, heard.Take());
    heard.DoIn("keydown", [](CEvent* e) { // reaches the parent nevertheless, which has nowhere else to go
        e->passOn = static_cast<CEditKeyEvent*>(e)->defaultProcessing() = false;
        static_cast<CEditKeyEvent*>(e)->skip = false;
    });
    parent.Do({});
    Tap(GDK_KEY_Tab);
    EXPECT_TRUE(native->HasFocus());
}

TEST_P(EditAndCombo, ThreeFlagsOfAKey)
{
    // What the listener behind hears, and what is typed.
    // clang-format off
    const struct { const char* hook; bool passOn, processing, skip; const char *second, *text; } rows[] = {
        {"keydown", true,  true,  true,  "keydown char text", "x"},
        {"keydown", false, true,  true,  "char text",         "x"},
        {"keydown", true,  false, true,  "keydown",           ""},
        {"keydown", true,  true,  false, "keydown",           ""},
        {"char",    false, true,  true,  "keydown text",      "x"},
        {"char",    true,  false, true,  "keydown char",      ""},
        {"char",    true,  true,  false, "keydown char",      ""},
    };
    // clang-format on
    for (const auto& row : rows) {
        text->SetText("");
        EditRecorder first(*text), second(*text);
        first.DoIn(row.hook, [&](CEvent* e) {
            e->passOn = row.passOn;
            static_cast<CEditKeyEvent*>(e)->defaultProcessing() = row.processing;
            static_cast<CEditKeyEvent*>(e)->skip = row.skip;
        });
        Tap(GDK_KEY_x);
        EXPECT_EQ(row.text, text->GetText()) << row.hook;
        EXPECT_EQ(row.second, second.TakeNames()) << row.hook;
    }
}

TEST_P(EditAndCombo, RewritingTheTextAndThrowing)
{
    EditRecorder heard(*text);
    heard.DoIn("text", [&](CEvent*) {
        if (text->GetText() != "other")
            text->SetText("other");
    });
    Tap(GDK_KEY_a);
    EXPECT_EQ("other", text->GetText());
    EXPECT_EQ(GetParam() ? "keydown char text text" : "keydown char text", heard.TakeNames());
    heard.DoIn("text", [&](CEvent*) { throw std::runtime_error("a listener's"); });
    Tap(GDK_KEY_b);
    ExpectFaults(Fault::loop, 1, "a listener's");
    heard.DoIn("", {});
    heard.Take();
    text->SetText("reported again");
    EXPECT_EQ(Lines{"text reported again"}, heard.Take());
}

TEST_P(EditAndCombo, MouseAndContextMenu)
{
    EditRecorder heard(*text);
    Recorder parent(window);
    parent.Hear<IMouseNotify, IContextMenuNotify>();
    const auto motions = [&](int x) {
        parent.Take();
        PointAt(control, x, 12);
        return parent.Count("motion");
    };
    motions(20);
    EXPECT_EQ(1, motions(21));
    Press();
    EXPECT_EQ(0, motions(22));
    Release();
    wxTheApp->SetActive(false, nullptr);
    EXPECT_EQ(0, motions(24));
    wxTheApp->SetActive(true, nullptr);
    wxMouseEvent motion(wxEVT_MOTION);
    motion.SetPosition(wxPoint(5, 6));
    EXPECT_FALSE(control->HandleWindowEvent(motion)); // the control's own business too
    EXPECT_EQ(Lines{"motion 15,16 button 0 state 0x0"}, parent.Take());
    Click(rightButton);
    EXPECT_EQ("menu", heard.TakeNames());
    wxContextMenuEvent asked(wxEVT_CONTEXT_MENU, wxID_ANY, control->ClientToScreen(wxPoint(3, -30)));
    EXPECT_TRUE(control->HandleWindowEvent(asked));
    EXPECT_EQ(Lines{"menu 3,-30"}, heard.Take());
    wxContextMenuEvent left(wxEVT_CONTEXT_MENU, wxID_ANY, wxPoint(-1, 400)); // of the screen; not by a key
    EXPECT_TRUE(control->HandleWindowEvent(left));
    const wxPoint client = control->ScreenToClient(wxPoint(-1, 400));
    EXPECT_EQ(Lines{"menu " + At(client.x, client.y)}, heard.Take());
    PointAt(control, -5, 22); // on the parent
    Tap(GDK_KEY_Menu);
    EXPECT_EQ("menu -5,22", heard.Take().back());
    EXPECT_EQ(nullptr, gtk_grab_get_current());
    EXPECT_EQ(0, parent.Count("menu"));
}

TEST_P(EditAndCombo, FocusGoesToSignalsThenToTheWindow)
{
    EditRecorder heard(*text);
    heard.HearFocus();
    Recorder parent(window);
    parent.Hear<IFocusNotify>();
    Lines order;
    parent.Do([&](CEvent&) { order.push_back(heard.TakeNames() + " window"); });
    auto* const other = new wxTextCtrl(frame, wxID_ANY, "", wxPoint(20, 250));
    other->SetFocus();
    EXPECT_EQ(Lines{"out window"}, std::exchange(order, {}));
    text->SetFocus();
    EXPECT_EQ(Lines{"in window"}, std::exchange(order, {}));
    parent.Take();
    native->SetFocus(); // not lost to the window
    EXPECT_EQ(Lines{"focus"}, parent.Take());
    heard.Take(), order.clear();
    text->SetFocusEx();
    EXPECT_TRUE(text->GetFocused());
    EXPECT_TRUE(order.empty() && heard.TakeNames().empty());
    other->SetFocus(); // no longer within SetFocusEx
    EXPECT_EQ(Lines{"out window"}, order);
    text->focus_out_signal.disconnect_all();
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
    text->SetVisible(true);
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
