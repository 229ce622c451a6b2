// A repaint of a whole 800 x 600 window, straight and through an off-screen buffer, against the same drawing
// on bare DCs. The scene: cleared, then 200 filled rectangles, 200 lines and 50 texts.

#include "scenes.h"

#include "vela7/eventsender.h"
#include "vela7/painter.h"
#include "vela7/wxsyswindow.h"

#include <wx/brush.h>
#include <wx/dcbuffer.h>
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

void DrawScene(IPainter& painter)
{
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

class View : public CSubscriber<IDrawingNotify>
{
public:
    explicit View(StdSettings settings) : m_settings(settings) {}

    void OnDraw(CDrawEvent* event) override
    {
        ++paints;
        const CPaintScope scope(*event->painter, m_settings);
        DrawScene(*event->painter);
    }

    long paints = 0;

private:
    const StdSettings m_settings;
};

// Keeps its picture: draws it once, then only what changed.
class RetainedView : public CSubscriber<IDrawingNotify>
{
public:
    void OnDraw(CDrawEvent* event) override
    {
        IPainter& painter = *event->painter;
        painter.SetBackgroundColor(_color::none());
        const CPaintScope scope(painter, ssBuffered);
        ++paints;
        if (painter.IsFullRepaint())
            DrawScene(painter);
        painter.SetBrush(brush{paints % 2 ? clGreen : clYellow, bsSolid});
        painter.FillRect(100, 100, 150, 150);
    }

    long paints = 0;
};

enum class Bare
{
    direct,
    buffered,
    autoBuffered
};

class BareView : public wxWindow
{
public:
    BareView(wxWindow* parent, Bare kind)
        : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxFULL_REPAINT_ON_RESIZE), m_kind(kind)
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
        if (m_kind == Bare::autoBuffered) {
            wxAutoBufferedPaintDC dc(this);
            Draw(dc);
            return;
        }
        wxPaintDC dc(this);
        if (m_kind == Bare::direct) {
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

    const Bare m_kind;
    wxBitmap m_bitmap;
};

const wxRect whole(0, 0, 800, 600);
const wxRect damage(100, 100, 50, 50);

void Repaint(benchmark::State& state, wxWindow& window, const long& paints, const wxRect& area = whole)
{
    SyncX();
    const long before = paints;
    const AllocationCounter counter(state);
    for (auto _ : state) {
        window.Refresh(false, &area);
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

void RepaintWx(benchmark::State& state, Bare kind, const wxRect& area)
{
    Stage stage;
    auto* const window = new BareView(stage.Frame(), kind);
    stage.Show(window);
    Repaint(state, *window, window->paints, area);
}

void DamageToolkit(benchmark::State& state)
{
    Stage stage;
    auto* const window = new CwxSysWindow(stage.Frame(), false, ISysWindow::wtNormal);
    RetainedView view;
    Subscribe<IDrawingNotify>(*window, &view);
    auto* const native = static_cast<wxWindow*>(window->GetNativeHandle());
    stage.Show(native);
    Repaint(state, *native, view.paints, damage);
}

BENCHMARK_CAPTURE(RepaintToolkit, direct, ssClear)
    ->Name("repaint_direct/toolkit")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(RepaintWx, direct, Bare::direct, whole)
    ->Name("repaint_direct/wx")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(RepaintToolkit, buffered, ssBuffered)
    ->Name("repaint_buffered/toolkit")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(RepaintWx, buffered, Bare::buffered, whole)
    ->Name("repaint_buffered/wx")
    ->Unit(benchmark::kMicrosecond);

BENCHMARK(DamageToolkit)->Name("repaint_damage/toolkit")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(RepaintWx, damage, Bare::autoBuffered, damage)
    ->Name("repaint_damage/wx")
    ->Unit(benchmark::kMicrosecond);

} // namespace
