// What toolkit windows do when they are asked to.
#include "support/platform.h"
#include "windowhelpers.h"

#include <climits>
#include <gtk/gtk.h>
#include <map>
#include <wx/dcclient.h>
#include <wx/dcscreen.h>
#include <wx/settings.h>
#include <wx/utils.h>

using namespace vela7;
using namespace vela7::test;

namespace {

class WindowOps : public WindowTest
{
protected:
    void Paint(_color color, rectangle<int> area, StdSettings settings = ssAsIs)
    {
        Fill(*window->TakeDefPainter(), color, area, settings);
    }
};

// A window that nobody has shown yet.
struct Early
{
    ~Early() { frame->Destroy(); }
    wxFrame* const frame = new wxFrame(nullptr, wxID_ANY, "unshown", wxPoint(600, 100), wxSize(300, 200));
    CwxSysWindow& window = *new CwxSysWindow(frame, false, ISysWindow::wtNormal);
};

} // namespace

TEST_F(WindowOps, UpdatePaintsAtOnce)
{
    heard->Hear<IDrawingNotify>();
    window->SetWindowRect(20, 10, 120, 80, false);
    EXPECT_EQ(0, heard->Count("draw"));
    window->SetWindowRect(20, 10, 140, 90, true);
    EXPECT_EQ(1, heard->Count("draw"));
}

TEST_F(WindowOps, ExtremesAreHarmless)
{
    for (const int v : {-100000, -1, 0, INT_MIN, INT_MAX}) {
        window->SetWindowRect(v, v, 100, 0, true); // also the wrong way round
        window->Invalidate(v, v, 0, 0);
        window->Refresh(0, 0, v, v, true);
        window->ScrollContent(v % 4000, v % 4000, v, v, v, v);
        window->GetPixel(v, v);
        point<int> p(v, v);
        window->WindowToScreen(p);
        Settle();
    }
    window->Synchronize(nullptr);
    Settle();
    TakeAllFaults(); // wx and GTK complain
    window->SetWindowRect(20, 10, 220, 110, true);
    Settle();
    Paint(clRed, {0, 0, 200, 100});
    EXPECT_EQ(0xFF0000u, ReadPixels(native).At(199, 99));
}

TEST_F(WindowOps, StateReachesTheNativeWindow)
{
    window->SetEnabled(false);
    window->SetVisible(false);
    EXPECT_FALSE(native->IsThisEnabled() || native->IsShown());
    window->SetText("caption \xc3\xa4");
    EXPECT_EQ(wxString::FromUTF8("caption \xc3\xa4"), native->GetLabel());
    window->SetWindowRect(5000, 5000, 5100, 5050, false);
    EXPECT_EQ(-1, window->GetMonitorIndex());
}

TEST_F(WindowOps, BorderStyles)
{
    // clang-format off
    const struct { int style; long wx; int back; } rows[] = {
        {2, wxBORDER_SIMPLE, 2}, {1, wxBORDER_THEME, 1}, {3, wxBORDER_THEME, 1}, {-1, wxBORDER_THEME, 1},
        {0, wxBORDER_NONE, 0},   {7, wxBORDER_NONE, 0},
    };
    // clang-format on
    constexpr long any = wxBORDER_NONE | wxBORDER_THEME | wxBORDER_SIMPLE;
    constexpr long others = wxCLIP_CHILDREN | wxWANTS_CHARS | wxFULL_REPAINT_ON_RESIZE;
    EXPECT_EQ(others | wxBORDER_NONE, native->GetWindowStyleFlag() & (others | any));
    for (const auto& row : rows) {
        window->SetBorderStyle(static_cast<ISysWindow::BorderStyle>(row.style));
        EXPECT_EQ(others | row.wx, native->GetWindowStyleFlag() & (others | any));
        EXPECT_EQ(row.back, window->GetBorderStyle());
    }
    native->SetWindowStyleFlag(wxBORDER_SIMPLE | wxBORDER_THEME);
    EXPECT_EQ(2, window->GetBorderStyle()) << "simple is looked for first";
}

TEST_F(WindowOps, GetPixelReadsOrAnswersBlack)
{
    window->SetWindowRect(0, 0, 200, 100, true); // elsewhere GDK 2 reads beside the mark
    Settle();
    Paint({9, 8, 7}, {0, 0, 200, 100});
    EXPECT_EQ(_color(9, 8, 7), window->GetPixel(199, 99));
    EXPECT_EQ(clBlack, window->GetPixel(200, 0));
    EXPECT_EQ(clBlack, window->GetPixel(-1, -1));
    const Early early; // asked before it is shown and after
    EXPECT_EQ(clBlack, early.window.GetPixel(5, 5));
    ShowActive(early.frame);
    Fill(*early.window.TakeDefPainter(), {4, 5, 6}, {0, 0, 50, 50});
    EXPECT_EQ(_color(4, 5, 6), early.window.GetPixel(5, 5));
}

TEST_F(WindowOps, LockedIsFrozen)
{
    for (const bool lock : {true, false}) {
        window->LockDraw(lock);
        EXPECT_EQ(lock, native->IsFrozen());
    }
}

TEST_F(WindowOps, ScrollMovesTheChildrenOrTheBufferOnly)
{
    wxWindow* const inside = Native(window->CreateChild(ISysWindow::wtNormal));
    inside->SetSize(150, 40, 20, 20);
    Settle();
    heard->Hear<IDrawingNotify>();
    for (const wxPoint& by : {wxPoint(5, 0), wxPoint(0, -7)}) {
        window->ScrollContent(by.x, by.y, 0, 0, 10, 10);
        Settle();
        EXPECT_EQ(Lines{"draw 0,0 200,100"}, heard->Take());
    }
    EXPECT_EQ(wxPoint(155, 33), inside->GetPosition());
    Paint(clRed, {10, 10, 20, 20}, ssBuffered);
    window->ScrollContent(30, 5, 10, 10, 19, 19);
    Settle();
    EXPECT_EQ(Lines{}, heard->Take());
    EXPECT_EQ(wxPoint(155, 33), inside->GetPosition());
    EXPECT_EQ(wxRect(10, 10, 10, 10), ReadPixels(native).BoxOf(0xFF0000));
    window->TakeDefPainter()->SetBackgroundColor(_color::none()); // the next paint shows the buffer as it is
    Paint(clBlue, {0, 0, 1, 1}, ssBuffered);
    EXPECT_EQ(wxRect(10, 10, 40, 15), ReadPixels(native).BoxOf(0xFF0000));
}

TEST_F(WindowOps, CanvasMetrics)
{
    const wxScreenDC screen;
    // clang-format off
    const std::pair<int, int> rows[] = {
        {0, 200},  {1, 100},  {2, 52},   {3, 26},
        {4, 1280}, {5, 1024}, {6, 339}, {7, 271},
        {8, 1 << 24}, {9, 24}, {10, 0}, {11, screen.GetPPI().x}, {12, screen.GetPPI().y},
        {13, 0}, {-1, 0}, {1000, 0},
    };
    // clang-format on
    for (const auto& [code, expected] : rows)
        EXPECT_EQ(expected, window->GetCanvasMetrics(static_cast<ICanvas::CanvasMetrics>(code))) << code;
    window->SetWindowRect(20, 10, 70, 30, false); // the kept DC follows
    EXPECT_EQ(50, window->GetCanvasMetrics(ICanvas::cmWidth));

    const Early early;
    for (const int code : {0, 1, 2, 3})
        EXPECT_EQ(0, early.window.GetCanvasMetrics(static_cast<ICanvas::CanvasMetrics>(code))) << code;
    EXPECT_EQ(1, early.window.GetCanvasMetrics(ICanvas::cmColors)) << "of no depth at all";
    EXPECT_EQ(24, early.window.GetCanvasMetrics(ICanvas::cmDepth));
    ShowActive(early.frame);
    EXPECT_EQ(1 << 24, early.window.GetCanvasMetrics(ICanvas::cmColors));
}

TEST_F(WindowOps, ChildrenAndPainters)
{
    ISysWindow* const child = window->CreateChild(ISysWindow::wtPanel);
    wxWindow* const inside = Native(child);
    EXPECT_EQ(native, inside->GetParent());
    EXPECT_EQ(0u, child->Release()) << "belongs to its native window";
    EXPECT_EQ(child, GetWrapper(inside));
    EXPECT_EQ(nullptr, GetWrapper(panel));
    EXPECT_EQ(nullptr, GetWrapper(nullptr));

    const IPainter* const own = window->TakeDefPainter();
    const CHandle<IPainter> painter = window->CreatePainter();
    EXPECT_NE(own, painter.Get());
    EXPECT_TRUE(own->GetCanvas() == window && painter->GetCanvas() == window);
    EXPECT_EQ(1u, painter->GetRefCount());
    Settle(); // GTK 3 paints all again when the child gets its place
    Fill(*painter, clRed, {30, 30, 40, 40});
    EXPECT_EQ(wxRect(30, 30, 10, 10), ReadPixels(native).BoxOf(0xFF0000));
}

TEST_F(WindowOps, UpdateWindowStateGivesFontAndColours)
{
    native->SetBackgroundColour(*wxRED);
    native->SetForegroundColour(*wxRED);
    const wxFont before = native->GetFont();
    UpdateWindowState(native);
    EXPECT_EQ(before, native->GetFont()) << "no GUI font is set";
    EXPECT_EQ(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT), native->GetForegroundColour());
    EXPECT_EQ(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW), native->GetBackgroundColour());
    font gui;
    gui.size = 17;
    SetDefaultGUIFont(gui);
    UpdateWindowState(native);
    UpdateWindowState(nullptr);
    SetDefaultGUIFont(font());
    EXPECT_EQ(17, native->GetFont().GetPointSize());
    EXPECT_EQ(frame, GetTopWindow());
}

TEST_F(WindowOps, CaptureMayBeTakenAway)
{
    PointAt(native, 50, 40);
    heard->Hear<IMouseNotify>();
    window->CaptureMouse();
    GrabPointer(*frame);
    Settle();
    UngrabPointer();
    Settle(); // GDK 3 notices a grab when it next hears of the pointer
    EXPECT_EQ(nullptr, wxWindow::GetCapture());
    EXPECT_EQ(Lines{}, heard->Take());
    window->CaptureMouse(); // and can be had again
    EXPECT_EQ(native, wxWindow::GetCapture());
    window->ReleaseMouse();
}

// ---- + captures, - releases, ! destroys; B is beside A, C on A, and F is a window of the host's

TEST_F(WindowOps, CapturesEndInAnyOrder)
{
    // clang-format off
    const std::pair<std::string, std::string> rows[] = {
        {"+A+B!A-B", "ABB."},    {"+A+B!B-A", "ABA."},           {"+A+C!A", "AC."},            {"+C+A!A", "CA."},
        {"+A+B-A-B-A", "ABBA."}, {"+A+B+A-A-B", "ABAB."},        {"+A+B+C!B-C-A", "ABCCA."},   {"+A+B+C!A-B", "ABCB."},
        {"+A+F!A-F", "AFF."},    {"+A+F+B!A-B-F", "AFBBF."},     {"+F+A+B!A-B-F", "FABBF."},   {"+F+A+B!B-A-F", "FABAF."},
    };
    // clang-format on
    for (const auto& [steps, expected] : rows) {
        ISysWindow* const a = window->CreateChild(ISysWindow::wtNormal);
        ISysWindow* const b = window->CreateChild(ISysWindow::wtNormal);
        const std::map<char, wxWindow*> windows{{'A', Native(a)},
                                                {'B', Native(b)},
                                                {'C', Native(a->CreateChild(ISysWindow::wtNormal))},
                                                {'F', panel},
                                                {'.', nullptr}};
        std::string captured;
        for (std::size_t i = 0; i < steps.size(); i += 2) {
            wxWindow* const of = windows.at(steps[i + 1]);
            CwxSysWindow* const own = GetWrapper(of);
            if (steps[i] == '!')
                delete of;
            else if (steps[i] == '+')
                own ? own->CaptureMouse() : of->CaptureMouse();
            else
                own ? own->ReleaseMouse() : of->ReleaseMouse();
            for (const auto& [name, candidate] : windows)
                if (candidate == wxWindow::GetCapture())
                    captured += name;
        }
        EXPECT_EQ(expected, captured) << steps;
        native->DestroyChildren();
    }
}
