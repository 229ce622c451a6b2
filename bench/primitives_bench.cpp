// Single operations of the painter against the same call on a bare DC of the same window. A hundred calls are
// timed together with the X server's work on them; the times are per call.

#include "scenes.h"

#include "vela7/painter.h"
#include "vela7/system.h"
#include "vela7/wxrasterpicture.h"
#include "vela7/wxwinpainter.h"

#include <wx/brush.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/frame.h>
#include <wx/pen.h>
#include <wx/settings.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

using namespace vela7;
using namespace vela7::bench;

constexpr int batch = 100;
constexpr int corners = 100;

// What both sides draw with: made once, outside the timed region.
struct Material
{
    Material()
        : small(size<int>(16, 16)), large(size<int>(500, 500)), smallBitmap(16, 16), largeBitmap(500, 500)
    {
        for (int i = 0; i < corners; ++i) {
            const double angle = i * 6.28318 / corners;
            polygon.emplace_back(200 + std::floor(100 * std::cos(angle)),
                                 200 + std::floor(100 * std::sin(angle)));
            wxPolygon.emplace_back(static_cast<int>(polygon.back().x), static_cast<int>(polygon.back().y));
        }
    }

    std::vector<point<double>> polygon;
    std::vector<wxPoint> wxPolygon;
    CwxRasterPicture small, large;
    wxBitmap smallBitmap, largeBitmap;
    const std::string text = "Twelve chars";
    const wxString wxText = "Twelve chars";
};

using ToolkitCall = void (*)(IPainter&, Material&);
using WxCall = void (*)(wxDC&, Material&);

struct Scene
{
    const char* name;
    ToolkitCall toolkit;
    WxCall wx;
};

void BlitBare(wxDC& dc, const wxBitmap& bitmap)
{
    wxMemoryDC memory;
    memory.SelectObjectAsSource(bitmap);
    dc.Blit(10, 10, bitmap.GetWidth(), bitmap.GetHeight(), &memory, 0, 0, wxCOPY, true);
}

// clang-format off
const Scene scenes[] = {
    {"line",
     [](IPainter& p, Material&) { p.MoveTo(10, 10); p.LineTo(110, 10); },
     [](wxDC& dc, Material&) { dc.DrawLine(10, 10, 110, 10); }},
    {"rectangle",
     [](IPainter& p, Material&) { p.Rectangle(10, 10, 110, 110); },
     [](wxDC& dc, Material&) { dc.DrawRectangle(10, 10, 100, 100); }},
    {"fill",
     [](IPainter& p, Material&) { p.FillRect(10, 10, 110, 110); },
     [](wxDC& dc, Material&) {
         const wxPen pen = dc.GetPen();
         dc.SetPen(*wxTRANSPARENT_PEN);
         dc.DrawRectangle(10, 10, 100, 100);
         dc.SetPen(pen);
     }},
    {"ellipse",
     [](IPainter& p, Material&) { p.Ellipse(10, 10, 110, 70); },
     [](wxDC& dc, Material&) { dc.DrawEllipse(10, 10, 100, 60); }},
    {"polygon100",
     [](IPainter& p, Material& m) { p.Polygon(m.polygon.data(), corners); },
     [](wxDC& dc, Material& m) { dc.DrawPolygon(corners, m.wxPolygon.data(), 0, 0, wxODDEVEN_RULE); }},
    {"text12",
     [](IPainter& p, Material& m) { p.DrawString(10, 10, m.text); },
     [](wxDC& dc, Material& m) { dc.DrawText(m.wxText, 10, 10); }},
    {"measure12",
     [](IPainter& p, Material& m) { benchmark::DoNotOptimize(p.GetTextSize(m.text)); },
     [](wxDC& dc, Material& m) { benchmark::DoNotOptimize(dc.GetTextExtent(m.wxText)); }},
    {"clip",
     [](IPainter& p, Material&) { p.SetClipRect(10, 10, 110, 110); p.CancelClipping(); },
     [](wxDC& dc, Material&) { dc.SetClippingRegion(10, 10, 100, 100); dc.DestroyClippingRegion(); }},
    {"picture16",
     [](IPainter& p, Material& m) { p.DrawRasterPicture(&m.small, 10, 10, 26, 26); },
     [](wxDC& dc, Material& m) { BlitBare(dc, m.smallBitmap); }},
    {"picture500",
     [](IPainter& p, Material& m) { p.DrawRasterPicture(&m.large, 10, 10, 510, 510); },
     [](wxDC& dc, Material& m) { BlitBare(dc, m.largeBitmap); }},
    {"pen",
     [](IPainter& p, Material&) { p.SetPen(pen{clRed, 2, psDash}); },
     [](wxDC& dc, Material&) { dc.SetPen(wxPen(*wxRED, 2, wxPENSTYLE_SHORT_DASH)); }},
    {"brush",
     [](IPainter& p, Material&) { p.SetBrush(brush{clBlue, bsSolid}); },
     [](wxDC& dc, Material&) { dc.SetBrush(wxBrush(*wxBLUE, wxBRUSHSTYLE_SOLID)); }},
};
// clang-format on

template <class Target, class Call>
void Time(benchmark::State& state, Target& target, Material& material, Call call)
{
    SyncX();
    const AllocationCounter counter(state);
    while (state.KeepRunningBatch(batch)) {
        for (int i = 0; i < batch; ++i)
            call(target, material);
        SyncX();
    }
}

void RunToolkit(benchmark::State& state, const Scene& scene)
{
    Stage stage;
    auto* const window = new wxWindow(stage.Frame(), wxID_ANY);
    stage.Show(window);
    Material material;
    CwxWinPainter painter(window);
    const CPaintScope scope(painter, ssAsIs);
    painter.SetPen(pen{clRed, 1, psSolid});
    painter.SetBrush(brush{clBlue, bsSolid});
    Time(state, static_cast<IPainter&>(painter), material, scene.toolkit);
}

void RunWx(benchmark::State& state, const Scene& scene)
{
    Stage stage;
    auto* const window = new wxWindow(stage.Frame(), wxID_ANY);
    stage.Show(window);
    Material material;
    wxClientDC dc(window);
    dc.SetFont(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT));
    dc.SetPen(wxPen(*wxRED));
    dc.SetBrush(wxBrush(*wxBLUE));
    Time(state, static_cast<wxDC&>(dc), material, scene.wx);
}

// ---- wrapping has no counterpart in wx: it is compared with itself, ten times the words

std::string Words(int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += i % 3 ? "wrapping " : "long words, ";
    return text;
}

void Wrap(benchmark::State& state, int words)
{
    Stage stage;
    auto* const window = new wxWindow(stage.Frame(), wxID_ANY);
    stage.Show(window);
    CwxWinPainter painter(window);
    const CPaintScope scope(painter, ssAsIs);
    const std::string text = Words(words);
    const AllocationCounter counter(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            painter.DrawStringEx(text, {0, 0, 400, 100}, tfLeft | tfTop | tfMeasureOnly));
}
BENCHMARK_CAPTURE(Wrap, 1000, 1000)->Name("wrap 1000 words/toolkit")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Wrap, 10000, 10000)->Name("wrap 10000 words/toolkit")->Unit(benchmark::kMicrosecond);

const bool registered = [] {
    for (const Scene& scene : scenes) {
        const std::string name = scene.name;
        benchmark::RegisterBenchmark((name + "/toolkit").c_str(), RunToolkit, scene);
        benchmark::RegisterBenchmark((name + "/wx").c_str(), RunWx, scene);
    }
    return true;
}();

} // namespace
