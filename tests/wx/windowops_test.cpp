// What toolkit windows do when they are asked to.
#include "windowhelpers.h"

#include "support/pixels.h"

#include <climits>
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
    // Fills a part of the window with a colour at once.
    void Fill(IPainter& painter, _color color, rectangle<int> area, StdSettings settings = ssAsIs)
    {
        const CPaintScope scope(painter, settings);
        painter.SetBrush(brush{color, bsSolid});
        painter.FillRect(area.left, area.top, area.right, area.bottom);
    }
    void Fill(_color color, rectangle<int> area, StdSettings settings = ssAsIs)
    {
        Fill(*window->TakeDefPainter(), color, area, settings);
    }
};

} // namespace

TEST_F(WindowOps, UpdatePaintsAtOnce)
{
    Recorder heard(window);
    heard.Hear<IDrawingNotify>();
    Settle();
    heard.Take();
    window->SetWindowRect(20, 10, 120, 80, false);
    EXPECT_EQ(0, heard.Count("draw"));
    Settle();
    EXPECT_EQ(1, heard.Count("draw"));
    heard.Take();
    window->SetWindowRect(20, 10, 140, 90, true);
    EXPECT_EQ(1, heard.Count("draw"));
}

TEST_F(WindowOps, HugeAndNegativeGeometryIsWxsAffair)
{
    wxWindow* const plain = new wxWindow(panel, wxID_ANY, wxPoint(20, 10), wxSize(200, 100), wxBORDER_NONE);
    // clang-format off
    const rectangle<int> extremes[] = {{-100000, -100000, 100000, 100000}, {0, 0, 0, 0}, {INT_MAX - 1, 0, INT_MAX, 1}};
    // clang-format on
    for (const rectangle<int>& r : extremes) {
        window->SetWindowRect(r.left, r.top, r.right, r.bottom, true);
        plain->SetSize(r.left, r.top, r.right - r.left, r.bottom - r.top, wxSIZE_AUTO);
        Settle();
        EXPECT_EQ(plain->GetRect(), native->GetRect());
        TakeCriticals();
    }
    window->SetWindowRect(100, 100, 50, 40, true); // the wrong way round
    plain->SetSize(100, 100, -50, -60, wxSIZE_AUTO);
    Settle();
    EXPECT_EQ(plain->GetRect(), native->GetRect());
    plain->Destroy();
    for (const int v : {-1, INT_MIN, INT_MAX}) {
        window->Invalidate(v, v, 0, 0);
        window->Refresh(0, 0, v, v, true);
        window->ScrollContent(v % 4000, v % 4000, v, v, v, v);
        window->GetPixel(v, v);
        point<int> p(v, v);
        window->WindowToScreen(p);
        window->GetCanvasMetrics(static_cast<ICanvas::CanvasMetrics>(v));
        window->SetCursor(v);
    }
    Settle();
    TakeAllFaults();
    window->Synchronize(nullptr);
    window->Subscribe(nullptr, typeid(IMouseNotify), true);
    window->SetWindowRect(20, 10, 220, 110, true);
    Settle();
    Fill(clRed, {0, 0, 200, 100});
    EXPECT_EQ(0xFF0000u, ReadPixels(native).At(199, 99));
}

TEST_F(WindowOps, StateReachesTheNativeWindow)
{
    window->SetEnabled(false);
    EXPECT_FALSE(native->IsThisEnabled());
    EXPECT_FALSE(window->GetEnabled());
    window->SetEnabled(true);
    EXPECT_TRUE(window->GetEnabled());
    window->SetVisible(false);
    EXPECT_FALSE(native->IsShown());
    EXPECT_FALSE(window->GetVisible());
    window->SetVisible(true);
    EXPECT_TRUE(window->GetVisible());
    window->SetText("caption \xc3\xa4");
    EXPECT_EQ(wxString::FromUTF8("caption \xc3\xa4"), native->GetLabel());
    EXPECT_EQ(native, window->GetNativeHandle());
    EXPECT_FALSE(window->HasMultiPainterSupport());

    point<int> p(3, 4);
    window->WindowToScreen(p);
    const wxPoint expected = panel->ClientToScreen(wxPoint(23, 14));
    EXPECT_EQ(point<int>(expected.x, expected.y), p);
    window->ScreenToWindow(p);
    EXPECT_EQ(point<int>(3, 4), p);

    EXPECT_EQ(0, window->GetMonitorIndex());
    window->SetWindowRect(5000, 5000, 5100, 5050, false);
    EXPECT_EQ(-1, window->GetMonitorIndex());
}

TEST_F(WindowOps, BorderStyles)
{
    struct Row
    {
        int style;
        long wx;
        int back;
    };
    // clang-format off
    const Row rows[] = {
        {2, wxBORDER_SIMPLE, 2}, {1, wxBORDER_THEME, 1}, {3, wxBORDER_THEME, 1}, {-1, wxBORDER_THEME, 1},
        {0, wxBORDER_NONE, 0},   {7, wxBORDER_NONE, 0},
    };
    // clang-format on
    constexpr long any = wxBORDER_NONE | wxBORDER_THEME | wxBORDER_SIMPLE;
    EXPECT_EQ(wxCLIP_CHILDREN | wxBORDER_NONE | wxWANTS_CHARS | wxFULL_REPAINT_ON_RESIZE,
              native->GetWindowStyleFlag() &
                  (wxCLIP_CHILDREN | any | wxWANTS_CHARS | wxFULL_REPAINT_ON_RESIZE));
    for (const Row& row : rows) {
        window->SetBorderStyle(static_cast<ISysWindow::BorderStyle>(row.style));
        EXPECT_EQ(row.wx, native->GetWindowStyleFlag() & any);
        EXPECT_EQ(row.back, window->GetBorderStyle());
        EXPECT_TRUE(native->HasFlag(wxWANTS_CHARS));
    }
    native->SetWindowStyleFlag(wxBORDER_SIMPLE | wxBORDER_THEME);
    EXPECT_EQ(2, window->GetBorderStyle()) << "simple is looked for first";
}

TEST_F(WindowOps, GetPixelReadsOrAnswersBlack)
{
    window->SetWindowRect(0, 0, 200, 100, true); // elsewhere GDK 2 reads beside the mark
    Settle();
    Fill({9, 8, 7}, {0, 0, 200, 100});
    EXPECT_EQ(_color(9, 8, 7), window->GetPixel(0, 0));
    EXPECT_EQ(_color(9, 8, 7), window->GetPixel(199, 99));
    EXPECT_EQ(clBlack, window->GetPixel(200, 0));
    EXPECT_EQ(clBlack, window->GetPixel(-1, -1));
    // A window that was never shown, asked before and after it is.
    wxFrame* const unshown = new wxFrame(nullptr, wxID_ANY, "unshown", wxPoint(600, 100), wxSize(300, 200));
    auto* const early = new CwxSysWindow(unshown, false, ISysWindow::wtNormal);
    EXPECT_EQ(clBlack, early->GetPixel(5, 5));
    ShowActive(unshown);
    Fill(*early->TakeDefPainter(), {4, 5, 6}, {0, 0, 50, 50});
    EXPECT_EQ(_color(4, 5, 6), early->GetPixel(5, 5));
    unshown->Destroy();
}

TEST_F(WindowOps, CursorsByNumber)
{
    for (int id = 1; id <= 13; ++id)
        EXPECT_TRUE(window->InternalSetCursor(id)) << id;
    const wxCursor before = native->GetCursor();
    for (const int id : {0, 14, -1, 100})
        EXPECT_FALSE(window->InternalSetCursor(id)) << id;
    EXPECT_TRUE(before.IsSameAs(native->GetCursor()));
    window->SetCursor(100);
    EXPECT_EQ(100, window->GetCursor());
    EXPECT_TRUE(before.IsSameAs(native->GetCursor()));
    wxSetCursor(wxNullCursor);
}

TEST_F(WindowOps, LockDrawNests)
{
    Fill(clBlue, {0, 0, 200, 100});
    Recorder heard(window);
    heard.Hear<IDrawingNotify>();
    window->LockDraw(true);
    window->LockDraw(true);
    window->LockDraw(false);
    EXPECT_TRUE(native->IsFrozen());
    window->Refresh(0, 0, 200, 100, false);
    Settle();
    EXPECT_EQ(0, heard.Count("draw"));
    window->LockDraw(false);
    EXPECT_FALSE(native->IsFrozen());
    Settle();
    EXPECT_EQ(1, heard.Count("draw"));
}

TEST_F(WindowOps, ScrollWithoutBufferMovesAndRepaintsAll)
{
    wxWindow* const inside = Native(window->CreateChild(ISysWindow::wtNormal));
    inside->SetSize(50, 40, 20, 20);
    Settle();
    Recorder heard(window);
    heard.Hear<IDrawingNotify>();
    window->ScrollContent(5, -7, 0, 0, 10, 10);
    Settle();
    EXPECT_EQ(wxPoint(55, 33), inside->GetPosition());
    EXPECT_EQ(Lines{"draw 0,0 200,100"}, heard.Take());
}

TEST_F(WindowOps, ScrollWithBufferMovesTheBufferOnly)
{
    wxWindow* const inside = Native(window->CreateChild(ISysWindow::wtNormal));
    inside->SetSize(150, 40, 20, 20);
    Settle();
    Recorder heard(window);
    heard.Hear<IDrawingNotify>();
    Fill(clRed, {10, 10, 20, 20}, ssBuffered);
    Settle();
    heard.Take();
    window->ScrollContent(30, 5, 10, 10, 19, 19);
    Settle();
    EXPECT_EQ(Lines{}, heard.Take());
    EXPECT_EQ(wxPoint(150, 40), inside->GetPosition());
    EXPECT_EQ(wxRect(10, 10, 10, 10), ReadPixels(native).BoxOf(0xFF0000));
    window->TakeDefPainter()->SetBackgroundColor(_color::none()); // the next paint shows the buffer as it is
    Fill(clBlue, {0, 0, 1, 1}, ssBuffered);
    EXPECT_EQ(wxRect(10, 10, 40, 15), ReadPixels(native).BoxOf(0xFF0000));
    EXPECT_EQ(200, ReadPixels(native).CountColour(wxRect(0, 0, 200, 100), 0xFF0000));
}

TEST_F(WindowOps, CanvasMetrics)
{
    const wxScreenDC screen;
    struct Row
    {
        int code;
        int expected;
    };
    // clang-format off
    const Row rows[] = {
        {0, 200},  {1, 100},  {2, wxClientDC(native).GetSizeMM().x}, {3, wxClientDC(native).GetSizeMM().y},
        {4, 1280}, {5, 1024}, {6, screen.GetSizeMM().x},             {7, screen.GetSizeMM().y},
        {8, 1 << 24}, {9, 24}, {10, 0}, {11, screen.GetPPI().x}, {12, screen.GetPPI().y},
        {13, 0}, {-1, 0}, {1000, 0},
    };
    // clang-format on
    EXPECT_LT(rows[2].expected, rows[6].expected);
    EXPECT_GT(rows[3].expected, 0);
    for (const Row& row : rows)
        EXPECT_EQ(row.expected, window->GetCanvasMetrics(static_cast<ICanvas::CanvasMetrics>(row.code)))
            << row.code;
    window->SetWindowRect(20, 10, 70, 30, false); // the kept DC follows
    EXPECT_EQ(50, window->GetCanvasMetrics(ICanvas::cmWidth));

    wxFrame* const unshown = new wxFrame(nullptr, wxID_ANY, "unshown");
    auto* const early = new CwxSysWindow(unshown, false, ISysWindow::wtNormal);
    for (const int code : {0, 1, 2, 3})
        EXPECT_EQ(0, early->GetCanvasMetrics(static_cast<ICanvas::CanvasMetrics>(code))) << code;
    EXPECT_EQ(1, early->GetCanvasMetrics(ICanvas::cmColors)) << "of no depth at all";
    EXPECT_EQ(24, early->GetCanvasMetrics(ICanvas::cmDepth));
    ShowActive(unshown);
    EXPECT_EQ(1 << 24, early->GetCanvasMetrics(ICanvas::cmColors));
    unshown->Destroy();
}

TEST_F(WindowOps, Factories)
{
    ISysWindow* const child = window->CreateChild(ISysWindow::wtPanel);
    wxWindow* const inside = Native(child);
    EXPECT_EQ(native, inside->GetParent());
    EXPECT_EQ(child, GetWrapper(inside));
    EXPECT_EQ(0u, child->Release()) << "belongs to its native window";
    EXPECT_EQ(child, GetWrapper(inside));

    EXPECT_EQ(window, GetWrapper(native));
    EXPECT_EQ(nullptr, GetWrapper(panel));
    EXPECT_EQ(nullptr, GetWrapper(nullptr));
    EXPECT_FALSE(IsWindowExternal(native, native));
    EXPECT_FALSE(IsWindowExternal(inside, native));
    EXPECT_TRUE(IsWindowExternal(inside, panel));
    EXPECT_TRUE(IsWindowExternal(native, inside));
    EXPECT_TRUE(IsWindowExternal(nullptr, native));

    const IPainter* const own = window->TakeDefPainter();
    EXPECT_EQ(own, window->TakeDefPainter());
    EXPECT_EQ(window, own->GetCanvas());
    CHandle<IPainter> painter = window->CreatePainter();
    EXPECT_NE(own, painter.Get());
    EXPECT_EQ(1u, painter->GetRefCount());
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
    gui.style = fsBold;
    SetDefaultGUIFont(gui);
    UpdateWindowState(native);
    UpdateWindowState(nullptr);
    SetDefaultGUIFont(font());
    EXPECT_EQ(17, native->GetFont().GetPointSize());
    EXPECT_EQ(wxFONTWEIGHT_BOLD, native->GetFont().GetWeight());
    EXPECT_EQ(frame, GetTopWindow());
}
