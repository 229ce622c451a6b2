// Mouse records of toolkit windows, on real input.
#include "windowhelpers.h"

#include <gdk/gdkkeysyms.h>
#include <gtk/gtk.h>
#include <map>
#include <wx/cursor.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

using namespace vela7;
using namespace vela7::test;

class MouseEvents : public WindowTest
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(WindowTest::SetUp());
        heard = std::make_unique<Recorder>(window);
        heard->Hear<IMouseNotify, IContextMenuNotify>();
        ASSERT_TRUE(MoveTo(native, 50, 40));
        EXPECT_EQ((Lines{"enter 50,40 button 0 state 0x0", "motion 50,40 button 0 state 0x0"}),
                  heard->Take());
    }
    void TearDown() override
    {
        wxSetCursor(wxNullCursor);
        WindowTest::TearDown();
    }

    std::unique_ptr<Recorder> heard;
};

TEST_F(MouseEvents, MiddleButtonIsSilent)
{
    CountBelow(wxEVT_MIDDLE_DOWN, wxEVT_MIDDLE_UP, wxEVT_MIDDLE_DCLICK);
    DoubleClick(middleButton);
    EXPECT_EQ(Lines{}, heard->Take());
    EXPECT_EQ(4, below) << "the clicks did not arrive at all";
    Press(middleButton);
    ASSERT_TRUE(MoveTo(native, 60, 45));
    Click(leftButton);
    EXPECT_EQ((Lines{"motion 60,45 button 2 state 0x4", "press 60,45 button 1 state 0x5",
                     "release 60,45 button 1 state 0x4"}),
              heard->Take());
}

TEST_F(MouseEvents, WheelReportsLinesAndEndsHere)
{
    CountBelow(wxEVT_MOUSEWHEEL);
    struct Row
    {
        int rotation;
        int lines;
        const char* expected;
    };
    for (const Row& row :
         {Row{-120, 3, "delta -3"}, {240, 3, "delta 3"}, {10, 5, "delta 5"}, {0, 3, "delta 0"}}) {
        wxMouseEvent event(wxEVT_MOUSEWHEEL);
        event.m_wheelRotation = row.rotation;
        event.m_linesPerAction = row.lines;
        event.m_wheelDelta = 120;
        EXPECT_TRUE(native->HandleWindowEvent(event));
        EXPECT_EQ(Lines{std::string("wheel 0,0 button 0 state 0x0 ") + row.expected}, heard->Take());
    }
    EXPECT_EQ(0, below);
}

// The cursor on the screen, which wx keeps on the frame while it is a global one.
static int ShownCursor(wxWindow* frame)
{
    GdkCursor* const cursor = gdk_window_get_cursor(gtk_widget_get_window(frame->GetHandle()));
    return cursor ? gdk_cursor_get_cursor_type(cursor) : -1;
}

TEST_F(MouseEvents, EnterShowsTheCursorAndLeaveResetsIt)
{
    CountBelow(wxEVT_ENTER_WINDOW, wxEVT_LEAVE_WINDOW);
    EXPECT_EQ(-1, ShownCursor(frame));
    window->SetCursor(crHand);
    EXPECT_EQ(GDK_HAND2, ShownCursor(frame));
    PointAt(panel, 300, 200);
    EXPECT_EQ(Lines{"leave 280,190 button 0 state 0x0"}, heard->Take());
    EXPECT_EQ(GDK_LEFT_PTR, ShownCursor(frame));
    const HeldKey control(GDK_KEY_Control_L);
    PointAt(native, 1, 2);
    EXPECT_EQ(Lines{"enter 1,2 button 0 state 0x200"}, heard->Take());
    EXPECT_EQ(GDK_HAND2, ShownCursor(frame));
    EXPECT_EQ(0, below);
}

TEST_F(MouseEvents, ClearedPassOnKeepsFocusAndMenuAway)
{
    auto* const other = new wxTextCtrl(panel, wxID_ANY, "", wxPoint(20, 150));
    window->SetFocusOnClick(false);
    other->SetFocus();
    const auto clear = [](CEvent& event) { event.passOn = false; };
    heard->Do(clear);
    Click(leftButton);
    EXPECT_TRUE(other->HasFocus());
    Click(rightButton);
    EXPECT_EQ(0, heard->Count("menu"));
    heard->Do({});
    heard->Take();
    Click(rightButton);
    EXPECT_EQ(1, heard->Count("menu"));
    EXPECT_TRUE(other->HasFocus());
    Click(leftButton); // wx itself focuses what was clicked and did not mind
    EXPECT_TRUE(native->HasFocus());
}

TEST_F(MouseEvents, ContextMenuByKeyReportsThePointer)
{
    window->SetFocus();
    Tap(GDK_KEY_Menu);
    EXPECT_EQ(Lines{"menu 50,40"}, heard->Take());
    CountBelow(wxEVT_CONTEXT_MENU);
    wxContextMenuEvent event(wxEVT_CONTEXT_MENU, wxID_ANY, wxPoint(700, 600));
    EXPECT_TRUE(native->HandleWindowEvent(event));
    EXPECT_EQ(Lines{"menu 50,40"}, heard->Take());
    EXPECT_EQ(0, below);
}

// wx asserts when a window does not mind that.
TEST_F(MouseEvents, CaptureMayBeTakenAway)
{
    auto* const other = window->CreateChild(ISysWindow::wtNormal);
    window->CaptureMouse();
    other->ReleaseMouse(); // not its own
    EXPECT_EQ(native, wxWindow::GetCapture());
    gdk_pointer_grab(gtk_widget_get_window(frame->GetHandle()), FALSE, GDK_BUTTON_PRESS_MASK, nullptr,
                     nullptr, GDK_CURRENT_TIME);
    Settle();
    gdk_pointer_ungrab(GDK_CURRENT_TIME);
    EXPECT_EQ(nullptr, wxWindow::GetCapture());
    EXPECT_EQ(Lines{}, heard->Take());
    window->CaptureMouse(); // and can be had again
    EXPECT_EQ(native, wxWindow::GetCapture());
    window->ReleaseMouse();
}

// + captures, - releases, ! destroys; B is beside A, C on A, and F is a window of the host's.
TEST_F(MouseEvents, CapturesEndInAnyOrder)
{
    // clang-format off
    const struct { std::string steps, captured; } rows[] = {
        {"+A+B!A-B", "ABB."},    {"+A+B!B-A", "ABA."},           {"+A+C!A", "AC."},            {"+C+A!A", "CA."},
        {"+A+B-A-B-A", "ABBA."}, {"+A+B+A-A-B", "ABAB."},        {"+A+B+C!B-C-A", "ABCCA."},   {"+A+B+C!A-B", "ABCB."},
        {"+A+F!A-F", "AFF."},    {"+A+F+B!A-B-F", "AFBBF."},     {"+F+A+B!A-B-F", "FABBF."},   {"+F+A+B!B-A-F", "FABAF."},
    };
    // clang-format on
    for (const auto& row : rows) {
        ISysWindow* const a = window->CreateChild(ISysWindow::wtNormal);
        ISysWindow* const b = window->CreateChild(ISysWindow::wtNormal);
        const std::map<char, wxWindow*> windows{{'A', Native(a)},
                                                {'B', Native(b)},
                                                {'C', Native(a->CreateChild(ISysWindow::wtNormal))},
                                                {'F', panel},
                                                {'.', nullptr}};
        std::string captured;
        for (std::size_t i = 0; i < row.steps.size(); i += 2) {
            wxWindow* const of = windows.at(row.steps[i + 1]);
            CwxSysWindow* const own = GetWrapper(of);
            if (row.steps[i] == '!')
                delete of;
            else if (row.steps[i] == '+')
                own ? own->CaptureMouse() : of->CaptureMouse();
            else
                own ? own->ReleaseMouse() : of->ReleaseMouse();
            for (const auto& [name, candidate] : windows)
                if (candidate == wxWindow::GetCapture())
                    captured += name;
        }
        EXPECT_EQ(row.captured, captured) << row.steps;
        native->DestroyChildren();
    }
}
