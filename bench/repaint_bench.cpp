// A repaint of a whole 800 x 600 window, straight and through an off-screen buffer, against the same drawing
// on bare DCs. The scene: cleared, then 200 filled rectangles, 200 lines and 50 texts.

#include "scenes.h"

#include "vela7/eventsender.h"
#include "vela7/painter.h"
#include "vela7/wxsyswindow.h"

#include <wx/brush.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/frame.h>
#include <wx/pen.h>
#include <wx/settings.h>

namespace {

using namespace vela7;
using namespace vela7::bench;

constexpr int rectangles = 200;
constexpr int lines = 200;
constexpr int texts = 50;

class View : public CSubscriber<IDrawingNotify>
{
public:
    explicit View(StdSettings settings) : m_settings(settings) {}

    void OnDraw(CDrawEvent* event) override
    {
        ++paints;
        IPainter& painter = *event->painter;
        const CPaintScope scope(painter, m_settings);
        painter.SetBrush(brush{clBlue, bsSolid});
        for (int i = 0; i < rectangles; ++i)
            painter.FillRect(i * 3, i * 2, i * 3 + 50, i * 2 + 30);
        painter.SetPen(pen{clRed, 1, psSolid});
        for (int i = 0; i < lines; ++i) {
            painter.MoveTo(i * 4, 0);
            painter.LineTo(i * 2, 500);
        }
        for (int i = 0; i < texts; ++i)
            painter.DrawString(i * 10, i * 10, "Twelve chars");
    }

    long paints = 0;

private:
    const StdSettings m_settings;
};

class BareView : public wxWindow
{
public:
    BareView(wxWindow* parent, bool buffered)
        : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxFULL_REPAINT_ON_RESIZE),
          m_buffered(buffered)
    {
        SetBackgroundStyle(wxBG_STYLE_PAINT);
        Bind(wxEVT_PAINT, &BareView::OnPaint, this);
    }

    long paints = 0;

private:
    static void Draw(wxDC& dc)
    {
        dc.SetBackground(wxBrush(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW)));
        dc.Clear();
        dc.SetFont(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT));
        dc.SetBrush(wxBrush(*wxBLUE));
        dc.SetPen(*wxTRANSPARENT_PEN);
        for (int i = 0; i < rectangles; ++i)
            dc.DrawRectangle(i * 3, i * 2, 50, 30);
        dc.SetPen(wxPen(*wxRED));
        for (int i = 0; i < lines; ++i)
            dc.DrawLine(i * 4, 0, i * 2, 500);
        for (int i = 0; i < texts; ++i)
            dc.DrawText("Twelve chars", i * 10, i * 10);
    }

    void OnPaint(wxPaintEvent&)
    {
        ++paints;
        wxPaintDC dc(this);
        if (!m_buffered) {
            Draw(dc);
            return;
        }
        const wxSize client = GetClientSize();
        if (!m_bitmap.IsOk())
            m_bitmap.Create(client.GetWidth(), client.GetHeight());
        wxMemoryDC memory(m_bitmap);
        Draw(memory);
        dc.Blit(0, 0, client.GetWidth(), client.GetHeight(), &memory, 0, 0);
    }

    const bool m_buffered;
    wxBitmap m_bitmap;
};

void Repaint(benchmark::State& state, wxWindow& window, const long& paints)
{
    SyncX();
    const long before = paints;
    const AllocationCounter counter(state);
    for (auto _ : state) {
        window.Refresh(false);
        window.Update();
        SyncX();
    }
    if (paints - before != static_cast<long>(state.iterations()))
        state.SkipWithError("not one paint event for each repaint");
}

void RepaintToolkit(benchmark::State& state, StdSettings settings)
{
    Stage stage;
    auto* const window = new CwxSysWindow(stage.Frame(), false, ISysWindow::wtNormal);
    View view(settings);
    Subscribe<IDrawingNotify>(*window, &view);
    auto* const native = static_cast<wxWindow*>(window->GetNativeHandle());
    stage.Show(native);
    Repaint(state, *native, view.paints);
}

void RepaintWx(benchmark::State& state, bool buffered)
{
    Stage stage;
    auto* const window = new BareView(stage.Frame(), buffered);
    stage.Show(window);
    Repaint(state, *window, window->paints);
}

BENCHMARK_CAPTURE(RepaintToolkit, direct, ssClear)
    ->Name("repaint_direct/toolkit")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(RepaintWx, direct, false)->Name("repaint_direct/wx")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(RepaintToolkit, buffered, ssBuffered)
    ->Name("repaint_buffered/toolkit")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(RepaintWx, buffered, true)->Name("repaint_buffered/wx")->Unit(benchmark::kMicrosecond);

} // namespace
