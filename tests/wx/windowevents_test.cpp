// What toolkit windows make of geometry, focus, paint and other events, and which of them wx gets to see.
#include "windowhelpers.h"

#include "support/pixels.h"

#include <wx/dcclient.h>
#include <wx/settings.h>
#include <wx/textctrl.h>

using namespace vela7;
using namespace vela7::test;

class WindowEvents : public WindowTest
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(WindowTest::SetUp());
        heard = std::make_unique<Recorder>(window);
    }

    std::unique_ptr<Recorder> heard;
};

TEST_F(WindowEvents, WhatWxGetsToSee)
{
    const auto mouse = [](wxEventType type) {
        return [type](wxWindow* w) {
            wxMouseEvent e(type);
            w->HandleWindowEvent(e);
        };
    };
    const auto key = [](wxEventType type) {
        return [type](wxWindow* w) {
            wxKeyEvent e(type);
            e.m_keyCode = 'A';
            w->HandleWindowEvent(e);
        };
    };
    struct Row
    {
        Lines heard;
        std::function<void(wxWindow*)> send;
        bool seen, seenWhenCleared;
    };
    // clang-format off
    const Row rows[] = {
        {{"press 0,0 button 1 state 0x0"},   mouse(wxEVT_LEFT_DOWN),    true,  false},
        {{"press 0,0 button 3 state 0x0"},   mouse(wxEVT_RIGHT_DOWN),   true,  false},
        {{},                                 mouse(wxEVT_MIDDLE_DOWN),  true,  true},
        {{"release 0,0 button 1 state 0x0"}, mouse(wxEVT_LEFT_UP),      true,  false},
        {{"double 0,0 button 1 state 0x0"},  mouse(wxEVT_LEFT_DCLICK),  true,  false},
        {{"motion 0,0 button 0 state 0x0"},  mouse(wxEVT_MOTION),       true,  false},
        {{"wheel 0,0 button 0 state 0x0 delta 0"}, mouse(wxEVT_MOUSEWHEEL), false, false},
        {{"enter 0,0 button 0 state 0x0"},   mouse(wxEVT_ENTER_WINDOW), false, false},
        {{"leave 0,0 button 0 state 0x0"},   mouse(wxEVT_LEAVE_WINDOW), false, false},
        {{"keydown 65 state 0x0 char 0"},    key(wxEVT_KEY_DOWN),       true,  false},
        {{"keyup 65 state 0x0 char 0"},      key(wxEVT_KEY_UP),         true,  false},
        {{"char 65 state 0x0 char 65"},      key(wxEVT_CHAR),           true,  false},
        {{"focus"},     [](wxWindow* w) { wxFocusEvent e(wxEVT_SET_FOCUS); w->HandleWindowEvent(e); },          true,  true},
        {{"unfocus"},   [](wxWindow* w) { wxFocusEvent e(wxEVT_KILL_FOCUS); w->HandleWindowEvent(e); },         true,  true},
        {{"move 7,-8"}, [](wxWindow* w) { wxMoveEvent e(wxPoint(7, -8)); w->HandleWindowEvent(e); },            true,  false},
        {{"resize 200,100"}, [](wxWindow* w) { wxSizeEvent e(wxSize(7, 8)); w->HandleWindowEvent(e); },         true,  false},
        {{"colours"},   [](wxWindow* w) { wxSysColourChangedEvent e; w->HandleWindowEvent(e); },                true,  true},
        {{},            [](wxWindow* w) { wxClientDC dc(w); wxEraseEvent e(0, &dc); w->HandleWindowEvent(e); }, false, false},
        {{},            [](wxWindow* w) { wxMouseCaptureLostEvent e; w->HandleWindowEvent(e); },                false, false},
    };
    // clang-format on
    CountBelow(wxEVT_LEFT_DOWN, wxEVT_RIGHT_DOWN, wxEVT_MIDDLE_DOWN, wxEVT_LEFT_UP, wxEVT_RIGHT_UP,
               wxEVT_MIDDLE_UP, wxEVT_LEFT_DCLICK, wxEVT_RIGHT_DCLICK, wxEVT_MIDDLE_DCLICK, wxEVT_MOTION,
               wxEVT_MOUSEWHEEL, wxEVT_ENTER_WINDOW, wxEVT_LEAVE_WINDOW, wxEVT_KEY_DOWN, wxEVT_KEY_UP,
               wxEVT_CHAR, wxEVT_SET_FOCUS, wxEVT_KILL_FOCUS, wxEVT_MOVE, wxEVT_SIZE,
               wxEVT_SYS_COLOUR_CHANGED, wxEVT_ERASE_BACKGROUND, wxEVT_MOUSE_CAPTURE_LOST);
    window->SetFocusOnClick(false);
    heard->Hear<IMouseNotify, IKeyboardNotify, IFocusNotify, IWindowNotify>();
    for (const bool passOn : {true, false}) {
        heard->Do([passOn](CEvent& event) { event.passOn = passOn; });
        for (const Row& row : rows) {
            SCOPED_TRACE(&row - rows);
            below = 0;
            row.send(native);
            EXPECT_EQ(row.heard, heard->Take());
            EXPECT_EQ((passOn ? row.seen : row.seenWhenCleared) ? 1 : 0, below);
        }
    }
}

// ---- painting

class WindowPainting : public WindowEvents
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(WindowEvents::SetUp());
        window->TakeDefPainter()->SetBackgroundColor({0x10, 0x20, 0x30});
        Repaint();
    }
    void Repaint() { window->Refresh(0, 0, 200, 100, false); }

    // Has the listener draw a rectangle of a colour whenever it is asked to.
    void Draw(_color color, StdSettings settings, rectangle<int> area)
    {
        heard->DoIn("draw", [=](CEvent& event) {
            IPainter& painter = *static_cast<CDrawEvent&>(event).painter;
            const CPaintScope scope(painter, settings);
            EXPECT_TRUE(scope.IsOk());
            painter.SetBrush(brush{color, bsSolid});
            painter.FillRect(area.left, area.top, area.right, area.bottom);
        });
    }
};

constexpr std::uint32_t backgroundPixel = 0x102030;

TEST_F(WindowPainting, TypeGivesTheBackground)
{
    auto* const face = new CwxSysWindow(panel, true, ISysWindow::wtPanel);
    face->SetWindowRect(20, 120, 220, 220, false);
    auto* const plain = new CwxSysWindow(panel, true, ISysWindow::wtNormal);
    plain->SetWindowRect(20, 230, 220, 280, false);
    const auto rgb = [](wxSystemColour id) {
        const wxColour c = wxSystemSettings::GetColour(id);
        return std::uint32_t(c.Red() << 16 | c.Green() << 8 | c.Blue());
    };
    ASSERT_NE(rgb(wxSYS_COLOUR_BTNFACE), rgb(wxSYS_COLOUR_WINDOW));
    EXPECT_EQ(rgb(wxSYS_COLOUR_BTNFACE), ReadPixels(Native(face)).At(100, 50));
    EXPECT_EQ(rgb(wxSYS_COLOUR_WINDOW), ReadPixels(Native(plain)).At(100, 25));
    EXPECT_EQ(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE), Native(face)->GetBackgroundColour());
    EXPECT_EQ(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW), Native(plain)->GetBackgroundColour());
}

TEST_F(WindowPainting, DirectAndBuffered)
{
    heard->Hear<IDrawingNotify>();
    struct Row
    {
        StdSettings settings;
        std::uint32_t
            outside; // of the rectangle, within the damage; GTK itself begins with the native colour
    };
    native->SetBackgroundColour(wxColour(1, 2, 3));
    for (const Row& row :
         {Row{ssClear, backgroundPixel}, {ssBuffered, backgroundPixel}, {ssAsIs, 0x010203}}) {
        SCOPED_TRACE(row.settings);
        Draw(clYellow, ssClear, {0, 0, 200, 100});
        Repaint();
        Draw(clRed, row.settings, {20, 30, 80, 90});
        window->Refresh(10, 20, 50, 60, false);
        const Pixels shown = ReadPixels(native);
        EXPECT_EQ(wxRect(20, 30, 30, 30), shown.BoxOf(0xFF0000));
        EXPECT_EQ(30 * 30, shown.CountColour(shown.Bounds(), 0xFF0000));
        EXPECT_EQ(row.outside, shown.At(10, 20));
        EXPECT_EQ(row.outside, shown.At(49, 29));
        EXPECT_EQ(0xFFFF00u, shown.At(9, 20));
        EXPECT_EQ(0xFFFF00u, shown.At(50, 60));
        EXPECT_FALSE(window->TakeDefPainter()->IsEnabled());
        EXPECT_EQ(nullptr, window->TakeDefPainter()->GetDC());
        EXPECT_EQ(row.settings == ssBuffered, window->TakeDefPainter()->GetRetainedBuffer());
    }
}

TEST_F(WindowPainting, ForgottenAndMisplacedBrackets)
{
    IPainter& painter = *window->TakeDefPainter();
    heard->Hear<IDrawingNotify>();
    for (const StdSettings settings : {ssClear, ssBuffered}) {
        heard->DoIn("draw", [&](CEvent&) {
            EXPECT_TRUE(painter.BeginPaint(settings));
            painter.BeginPaint();
            painter.SetBrush(brush{clRed, bsSolid});
            painter.FillRect(0, 0, 200, 100); // and nobody ends it
        });
        Repaint();
        EXPECT_FALSE(painter.IsEnabled());
        EXPECT_EQ(nullptr, painter.GetDC());
        EXPECT_EQ(0xFF0000u, ReadPixels(native).At(100, 50));
        painter.EndPaint();
        Draw(clBlue, settings, {0, 0, 200, 100});
        Repaint();
        EXPECT_EQ(0x0000FFu, ReadPixels(native).At(100, 50));
    }
    // Outside of a paint event it shows at once.
    for (const StdSettings settings : {ssAsIs, ssBuffered}) {
        {
            const CPaintScope scope(painter, settings);
            ASSERT_TRUE(scope.IsOk());
            painter.SetBrush(brush{clYellow, bsSolid});
            painter.FillRect(5, 6, 20, 30);
        }
        const Pixels shown = ReadPixels(native);
        EXPECT_EQ(wxRect(5, 6, 15, 24), shown.BoxOf(0xFFFF00));
        EXPECT_EQ(settings == ssAsIs ? 0x0000FF : backgroundPixel, shown.At(100, 50));
    }
    // And a bracket that is open when a paint event comes ends with it.
    painter.BeginPaint(ssBuffered);
    Repaint();
    EXPECT_FALSE(painter.IsEnabled());
    EXPECT_EQ(0x0000FFu, ReadPixels(native).At(5, 6));
}

TEST_F(WindowPainting, PaintInsideAPaint)
{
    IPainter& painter = *window->TakeDefPainter();
    heard->Hear<IDrawingNotify>();
    for (const StdSettings settings : {ssClear, ssBuffered}) {
        int depth = 0;
        heard->DoIn("draw", [&](CEvent&) {
            ++depth;
            const CPaintScope scope(painter, settings);
            painter.SetBrush(brush{depth == 1 ? clRed : clBlue, bsSolid});
            if (depth == 1)
                window->Refresh(0, 0, 50, 50, false);
            painter.FillRect(0, 0, 200, 100);
            --depth;
        });
        Repaint();
        EXPECT_FALSE(painter.IsEnabled());
        EXPECT_EQ(nullptr, painter.GetDC());
        Draw(clYellow, settings, {0, 0, 200, 100});
        Repaint();
        EXPECT_EQ(200 * 100, ReadPixels(native).CountColour(wxRect(0, 0, 200, 100), 0xFFFF00));
    }
}

TEST_F(WindowPainting, ThrowingListenersAreReported)
{
    heard->HearAll();
    heard->DoIn("draw", [&](CEvent&) {
        window->TakeDefPainter()->BeginPaint();
        throw std::runtime_error("no paint left");
    });
    Repaint();
    ExpectFaults(Fault::loop, 1, "no paint left");
    EXPECT_EQ(nullptr, window->TakeDefPainter()->GetDC());
    heard->DoIn("press", [](CEvent&) { throw 7; });
    ASSERT_TRUE(MoveTo(native, 50, 40));
    Click();
    ExpectFaults(Fault::loop, 1, "unknown type");
    EXPECT_EQ(1, heard->Count("release")) << "life goes on";
    heard->DoIn("destroy", [](CEvent&) { throw std::runtime_error("swallowed"); });
    native->Destroy();
    EXPECT_EQ(1, heard->Count("destroy"));
}
