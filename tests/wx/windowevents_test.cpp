// What toolkit windows make of wx's events, which of them wx gets to see, and what is painted when.
#include "windowhelpers.h"

#include <gtk/gtk.h>
#include <wx/app.h>
#include <wx/dcclient.h>
#include <wx/settings.h>
#include <wx/utils.h>

using namespace vela7;
using namespace vela7::test;

namespace {

template <class Event>
std::function<void(wxWindow*)> Sends(Event event)
{
    return [event](wxWindow* window) {
        Event sent(event);
        window->HandleWindowEvent(sent);
    };
}
auto Mouse(wxEventType type)
{
    return Sends(wxMouseEvent(type));
}
auto Wheel(int rotation, int lines)
{
    wxMouseEvent event(wxEVT_MOUSEWHEEL);
    event.m_wheelRotation = rotation, event.m_linesPerAction = lines, event.m_wheelDelta = 120;
    return Sends(event);
}
auto Key(wxEventType type, int code)
{
    wxKeyEvent event(type);
    event.m_keyCode = code;
    return Sends(event);
}

class WindowEvents : public WindowTest
{
protected:
    // The events that reach the native window's own handlers, which come after the toolkit's.
    template <class... Types>
    void CountBelow(const Types&... types)
    {
        const auto count = [this](wxEvent& event) { ++below, event.Skip(); };
        (native->Bind(types, count), ...);
    }

    int below = 0;
};

// The main loop, taken away for a moment.
struct MainLoop : wxApp
{
    static wxEventLoopBase*& Of(wxAppConsole& app) { return app.*(&MainLoop::m_mainLoop); }
};

} // namespace

TEST_F(WindowEvents, WhatWxGetsToSee)
{
    // clang-format off
    const struct { Lines heard; std::function<void(wxWindow*)> send; bool seen, seenWhenCleared; } rows[] = {
        {{"press 0,0 button 1 state 0x0"},   Mouse(wxEVT_LEFT_DOWN),    true,  false},
        {{"press 0,0 button 3 state 0x0"},   Mouse(wxEVT_RIGHT_DOWN),   true,  false},
        {{},                                 Mouse(wxEVT_MIDDLE_DOWN),  true,  true},
        {{"release 0,0 button 1 state 0x0"}, Mouse(wxEVT_LEFT_UP),      true,  false},
        {{"double 0,0 button 1 state 0x0"},  Mouse(wxEVT_LEFT_DCLICK),  true,  false},
        {{"motion 0,0 button 0 state 0x0"},  Mouse(wxEVT_MOTION),       true,  false},
        {{"enter 0,0 button 0 state 0x0"},   Mouse(wxEVT_ENTER_WINDOW), false, false},
        {{"leave 0,0 button 0 state 0x0"},   Mouse(wxEVT_LEAVE_WINDOW), false, false},
        // Lines, not notches, and none without a rotation.
        {{"wheel 0,0 button 0 state 0x0 delta 3"},  Wheel(240, 3),      false, false},
        {{"wheel 0,0 button 0 state 0x0 delta -5"}, Wheel(-10, 5),      false, false},
        {{"wheel 0,0 button 0 state 0x0 delta 0"},  Wheel(0, 3),        false, false},
        // Where the pointer is, not where the event says.
        {{"menu 50,40"}, Sends(wxContextMenuEvent(wxEVT_CONTEXT_MENU, wxID_ANY, wxPoint(700, 600))), false, false},
        {{"keydown 65 state 0x0 char 0"},    Key(wxEVT_KEY_DOWN, 'A'),  true,  false},
        {{"keyup 65 state 0x0 char 0"},      Key(wxEVT_KEY_UP, 'A'),    true,  false},
        {{"char 65 state 0x0 char 65"},      Key(wxEVT_CHAR, 'A'),      true,  false},
        {{"char 351 state 0x0 char 95"},     Key(wxEVT_CHAR, WXK_F12),  true,  false}, // wx's code and its low byte
        {{"focus"},                          Sends(wxFocusEvent(wxEVT_SET_FOCUS)),  true,  true},
        {{"unfocus"},                        Sends(wxFocusEvent(wxEVT_KILL_FOCUS)), true,  true},
        {{"move 7,-8"},                      Sends(wxMoveEvent(wxPoint(7, -8))),    true,  false},
        {{"resize 200,100"},                 Sends(wxSizeEvent(wxSize(7, 8))),      true,  false},
        {{"colours"},                        Sends(wxSysColourChangedEvent()),      true,  true},
        {{},                                 Sends(wxMouseCaptureLostEvent()),      false, false},
        {{}, [](wxWindow* w) { wxClientDC dc(w); wxEraseEvent e(0, &dc); w->HandleWindowEvent(e); }, false, false},
    };
    // clang-format on
    CountBelow(wxEVT_LEFT_DOWN, wxEVT_RIGHT_DOWN, wxEVT_MIDDLE_DOWN, wxEVT_LEFT_UP, wxEVT_LEFT_DCLICK,
               wxEVT_MOTION, wxEVT_MOUSEWHEEL, wxEVT_ENTER_WINDOW, wxEVT_LEAVE_WINDOW, wxEVT_CONTEXT_MENU,
               wxEVT_KEY_DOWN, wxEVT_KEY_UP, wxEVT_CHAR, wxEVT_SET_FOCUS, wxEVT_KILL_FOCUS, wxEVT_MOVE,
               wxEVT_SIZE, wxEVT_SYS_COLOUR_CHANGED, wxEVT_ERASE_BACKGROUND, wxEVT_MOUSE_CAPTURE_LOST);
    PointAt(native, 50, 40);
    window->SetFocusOnClick(false);
    heard->Hear<IMouseNotify, IKeyboardNotify, IFocusNotify, IWindowNotify, IContextMenuNotify>();
    for (const bool passOn : {true, false}) {
        heard->Do([passOn](CEvent& event) { event.passOn = passOn; });
        for (const auto& row : rows) {
            SCOPED_TRACE(&row - rows);
            below = 0;
            row.send(native);
            EXPECT_EQ(row.heard, heard->Take());
            EXPECT_EQ((passOn ? row.seen : row.seenWhenCleared) ? 1 : 0, below);
        }
    }
}

TEST_F(WindowEvents, NavigationBecomesTabInTheMainLoop)
{
    // clang-format off
    const struct { bool forward, windowChange; const char* expected; } rows[] = {
        {true,  false, "keydown 9 state 0x0 char 0"},
        {true,  true,  "keydown 9 state 0x200 char 0"},
        {false, false, "keydown 9 state 0x100 char 0"},
        {false, true,  "keydown 9 state 0x100 char 0"},
    };
    // clang-format on
    heard->Hear<IKeyboardNotify>();
    CountBelow(wxEVT_NAVIGATION_KEY);
    wxNavigationKeyEvent event;
    for (const bool allowed : {true, false})
        for (const auto& row : rows) {
            heard->Do([&](CEvent& e) {
                e.passOn = !allowed; // means nothing here
                static_cast<CKeyboardEvent&>(e).allowNavigation = allowed;
            });
            event.SetDirection(row.forward), event.SetWindowChange(row.windowChange);
            below = 0;
            EXPECT_EQ(!allowed, native->HandleWindowEvent(event));
            EXPECT_EQ(Lines{row.expected}, heard->Take());
            EXPECT_EQ(allowed ? 1 : 0, below);
        }
    wxEventLoopBase* const parked = std::exchange(MainLoop::Of(*wxTheApp), nullptr);
    EXPECT_TRUE(native->HandleWindowEvent(event));
    MainLoop::Of(*wxTheApp) = parked;
    EXPECT_EQ(Lines{}, heard->Take());
}

// The cursor on the screen, which wx keeps on the frame while it is a global one.
static int ShownCursor(wxWindow* frame)
{
    GdkCursor* const cursor = gdk_window_get_cursor(gtk_widget_get_window(frame->GetHandle()));
    return cursor ? gdk_cursor_get_cursor_type(cursor) : -1;
}

TEST_F(WindowEvents, EnterShowsTheCursorAndLeaveResetsIt)
{
    window->SetCursor(crHand);
    EXPECT_EQ(GDK_HAND2, ShownCursor(frame));
    PointAt(native, 50, 40);
    PointAt(panel, 300, 200);
    EXPECT_EQ(GDK_LEFT_PTR, ShownCursor(frame));
    PointAt(native, 1, 2);
    EXPECT_EQ(GDK_HAND2, ShownCursor(frame));
    wxSetCursor(wxNullCursor);
}

// ---- painting

class WindowPainting : public WindowEvents
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(WindowEvents::SetUp());
        heard->Hear<IDrawingNotify>();
    }
    void Repaint() { window->Refresh(0, 0, 200, 100, false); }
    std::uint32_t At(int x, int y) { return ReadPixels(native).At(x, y); }
    IPainter& Painter() { return *window->TakeDefPainter(); }
};

TEST_F(WindowPainting, TypeGivesTheBackground)
{
    const auto rgb = [](wxSystemColour id) {
        const wxColour c = wxSystemSettings::GetColour(id);
        return std::uint32_t(c.Red() << 16 | c.Green() << 8 | c.Blue());
    };
    ASSERT_NE(rgb(wxSYS_COLOUR_BTNFACE), rgb(wxSYS_COLOUR_WINDOW));
    for (const auto& [type, color] : {std::pair(ISysWindow::wtPanel, wxSYS_COLOUR_BTNFACE),
                                      std::pair(ISysWindow::wtNormal, wxSYS_COLOUR_WINDOW)}) {
        auto* const other = new CwxSysWindow(panel, true, type);
        other->SetWindowRect(20, 120, 220, 220, true);
        EXPECT_EQ(rgb(color), ReadPixels(Native(other)).At(100, 50));
        EXPECT_EQ(wxSystemSettings::GetColour(color), Native(other)->GetBackgroundColour());
        Native(other)->Destroy();
    }
}

TEST_F(WindowPainting, ForgottenAndMisplacedBrackets)
{
    Painter().SetBackgroundColor({0x10, 0x20, 0x30});
    for (const StdSettings settings : {ssClear, ssBuffered}) {
        heard->Do([&](CEvent&) {
            EXPECT_TRUE(Painter().BeginPaint(settings));
            Fill(Painter(), clRed, {0, 0, 200, 100}); // and nobody ends it
        });
        Repaint();
        EXPECT_FALSE(Painter().IsEnabled() || Painter().GetDC());
        EXPECT_EQ(0xFF0000u, At(100, 50));
        Painter().EndPaint();
        heard->Do([this, settings](CEvent&) { Fill(Painter(), clBlue, {0, 0, 200, 100}, settings); });
        Repaint();
        EXPECT_EQ(0x0000FFu, At(100, 50));
    }
    // Outside of a paint event it shows at once.
    for (const StdSettings settings : {ssAsIs, ssBuffered}) {
        Fill(Painter(), clYellow, {5, 6, 20, 30}, settings);
        EXPECT_EQ(wxRect(5, 6, 15, 24), ReadPixels(native).BoxOf(0xFFFF00));
        EXPECT_EQ(settings == ssAsIs ? 0x0000FFu : 0x102030u, At(100, 50));
    }
    // And a bracket that is open when a paint event comes ends with it.
    Painter().BeginPaint(ssBuffered);
    Repaint();
    EXPECT_FALSE(Painter().IsEnabled());
    EXPECT_EQ(0x0000FFu, At(5, 6));
}

TEST_F(WindowPainting, AsIsBeginsWithTheNativeColour)
{
    native->SetBackgroundColour(wxColour(1, 2, 3));
    Settle(); // it is painted anew
    heard->Do([this](CEvent&) { Fill(Painter(), clRed, {5, 6, 20, 30}, ssAsIs); });
    Repaint();
    const Pixels drawn = ReadPixels(native);
    EXPECT_EQ(15 * 24, drawn.CountColour(drawn.Bounds(), 0xFF0000));
    EXPECT_EQ(200 * 100 - 15 * 24, drawn.CountColour(drawn.Bounds(), 0x010203));
}

TEST_F(WindowPainting, PaintInsideAPaint)
{
    for (const StdSettings settings : {ssClear, ssBuffered}) {
        int depth = 0;
        heard->Do([&](CEvent&) {
            const CPaintScope scope(Painter(), settings);
            if (++depth == 1)
                window->Refresh(0, 0, 50, 50, false);
            Painter().FillRect(0, 0, 200, 100);
        });
        Repaint();
        Settle(); // GTK 3 leaves the inner one to the next frame
        EXPECT_EQ(2, depth);
        EXPECT_FALSE(Painter().IsEnabled() || Painter().GetDC());
        heard->Do([this, settings](CEvent&) { Fill(Painter(), clYellow, {0, 0, 200, 100}, settings); });
        Repaint();
        EXPECT_EQ(200 * 100, ReadPixels(native).CountColour(wxRect(0, 0, 200, 100), 0xFFFF00));
    }
}
