// Scroll bars: numbers, events, real dragging.
#include "vela7/wxscrollbar.h"
#include "windowhelpers.h"

#include <climits>
#include <cmath>
#include <wx/textctrl.h>

using namespace vela7;
using namespace vela7::test;

namespace {

constexpr int least = INT_MIN, most = INT_MAX;
using Numbers = std::vector<double>;

// Writes down what the native bar is told.
struct Probe : CwxScrollBar
{
    explicit Probe(wxWindow* parent) : CwxScrollBar(parent, true) {}
    void SetThumbPosition(int position) override { CwxScrollBar::SetThumbPosition(thumb = position); }
    void SetScrollbar(int position, int size, int range, int page, bool refresh) override
    {
        told = {double(position), double(size), double(range), double(page), double(refresh)};
        CwxScrollBar::SetScrollbar(position, size, range, page, refresh);
    }
    int thumb = 0;
    Numbers told;
};

ScrollInfo Info(const Numbers& from)
{
    return {0, from[0], from[1], from[2], from[3], from[4], false};
}

class ScrollBars : public WindowTest
{
protected:
    // A bar 200 long at the top of the window, from 10 to 110 with a step of 10, and somebody to hear it.
    void MakeBar()
    {
        bar = window->CreateScrollBar(ISysWindow::stHorizontal);
        bar->SetPos(0, 0, 200, 20);
        bar->SetScrollInfo(Info({10, 110, 10, 20, 55}));
        heard = std::make_unique<Recorder>(bar.Get());
        heard->HearAll();
        nativeBar = static_cast<wxWindow*>(bar->GetNativeHandle());
        Settle();
    }
    bool Send(wxEventType type)
    {
        wxScrollEvent event(type, nativeBar->GetId(), 3, wxHORIZONTAL);
        return nativeBar->GetEventHandler()->ProcessEvent(event);
    }
    CHandle<IScrollBar> bar;
    wxWindow* nativeBar = nullptr;
    std::unique_ptr<Recorder> heard;
};

} // namespace

TEST_F(ScrollBars, Numbers)
{
    // clang-format off
    const struct { Numbers in, told, back; } rows[] = { // min max line page pos; pos thumb range page refresh; as in
        {{10, 110, 10, 20, 55},                  {5, 2, 10, 2, 1},             {10, 110, 10, 20, 60}},
        {{0, 100, -1, 10, 3},                    {3, 10, 100, 10, 1},          {0, 100, 1, 10, 3}},
        {{0, 100, 0, 10, 3.5},                   {4, 10, 100, 10, 1},          {0, 100, 1, 10, 4}},
        {{0, 100, 0.5, 10, 3},                   {3, 10, 100, 10, 1},          {0, 100, 1, 10, 3}},
        {{0, 100, 1.9, 10, 3},                   {3, 10, 100, 10, 1},          {0, 100, 1, 10, 3}},
        {{0, 100, 2, 10, 7},                     {4, 5, 50, 5, 1},             {0, 100, 2, 10, 8}},
        {{0, 100, 2.9, 10, 6},                   {3, 5, 50, 5, 1},             {0, 100, 2, 10, 6}},
        {{-7.6, 100, 1, 10, 0},                  {8, 10, 108, 10, 1},          {-7, 101, 1, 10, 1}},
        {{5, 5, 1, 1, 5},                        {0, 1, 0, 1, 1},              {5, 6, 1, 1, 5}},
        {{100, 0, 1, 10, 50},                    {-49, 10, -99, 10, 1},        {100, 101, 1, 1, 100}},
        {{NAN, NAN, NAN, NAN, NAN},              {0, 0, 0, 0, 1},              {0, 1, 1, 1, 0}},
        {{0, INFINITY, -INFINITY, INFINITY, 1e300}, {most, most, most, most, 1}, {0, most, 1, most, 0}},
        {{0, 1e300, 1e300, -50, 0},              {0, 0, most, 0, 1},           {0, double(most) * most, most, most, 0}},
    };
    const struct { int min, step, value, thumb; } values[] = {
        {10, 10, -20, -2}, {10, 10, 0, 0}, {10, 10, 9, 0}, {10, 10, 19, 0}, {10, 10, 20, 1}, {10, 10, 110, 10},
        {most, 1, least, least}, {least, 1, most, most}, {least, 2, most, most}, {0, most, least, 0},
    };
    // clang-format on
    auto* const probe = new Probe(native);
    const CHandle<IScrollBar> handle(probe);
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        ScrollInfo in = Info(row.in), out;
        in.disableNoScroll = (&row - rows) % 2 == 0;
        handle->SetScrollInfo(in);
        handle->GetScrollInfo(out);
        EXPECT_EQ(row.told, probe->told);
        EXPECT_EQ(row.back, (Numbers{out.min, out.max, out.line, out.page, out.pos}));
        EXPECT_EQ(in.disableNoScroll, out.disableNoScroll);
        EXPECT_EQ(row.back[4], handle->GetScrollVal());
    }
    for (const auto& row : values) {
        handle->SetScrollInfo(Info({double(row.min), row.min + 100.0 * row.step, double(row.step), 1, 0}));
        probe->thumb = 12345;
        handle->SetScrollVal(row.value);
        EXPECT_EQ(row.thumb, probe->thumb) << row.min << ' ' << row.step << ' ' << row.value;
    }
}

TEST_F(ScrollBars, Events)
{
    // clang-format off
    const std::pair<wxEventType, const char*> rows[] = {
        {wxEVT_SCROLL_TOP, "10 action 5"},        {wxEVT_SCROLL_BOTTOM, "110 action 5"},
        {wxEVT_SCROLL_LINEUP, "40 action 0"},     {wxEVT_SCROLL_LINEDOWN, "40 action 1"},
        {wxEVT_SCROLL_PAGEUP, "40 action 2"},     {wxEVT_SCROLL_PAGEDOWN, "40 action 3"},
        {wxEVT_SCROLL_THUMBTRACK, "40 action 5"}, {wxEVT_SCROLL_THUMBRELEASE, "40 action 5"}};
    // clang-format on
    MakeBar();
    for (const auto& [type, expected] : rows) {
        EXPECT_TRUE(Send(type)) << "skipped";
        bar->SetEnabled(false);
        EXPECT_TRUE(Send(type));
        bar->SetEnabled(true);
        EXPECT_EQ(Lines{std::string("scroll ") + expected}, heard->Take());
    }
    EXPECT_FALSE(Send(wxEVT_SCROLL_CHANGED));
    window->SetEnabled(false); // and with it the bar, which keeps that
    Send(wxEVT_SCROLL_TOP);
    window->SetEnabled(true);
    EXPECT_FALSE(bar->GetEnabled());
    EXPECT_EQ(Lines{}, heard->Take());
}

TEST_F(ScrollBars, MouseAndFocus)
{
    MakeBar();
    auto* const other = new wxTextCtrl(frame, wxID_ANY, "", wxPoint(20, 220));
    other->SetFocus();
    bar->SetFocus();
    PointAt(nativeBar, 170, 5); // behind the thumb
    Click();
    EXPECT_EQ(Lines{"scroll 80 action 3"}, heard->Take()); // from 60, by a page of 20
    PointAt(nativeBar, 145, 5);
    Press();
    PointAt(nativeBar, 60, 5);
    Release();
    EXPECT_EQ("scroll " + std::to_string(bar->GetScrollVal()) + " action 5", heard->Take().back());
    EXPECT_LT(bar->GetScrollVal(), 60);
    EXPECT_TRUE(other->HasFocus() && !bar->GetFocused());
}

TEST_F(ScrollBars, Place)
{
    for (const bool vertical : {true, false}) {
        bar = window->CreateScrollBar(vertical ? ISysWindow::stVertical : ISysWindow::stHorizontal);
        nativeBar = static_cast<wxWindow*>(bar->GetNativeHandle());
        const int thickness = vertical ? nativeBar->GetSize().x : nativeBar->GetSize().y;
        EXPECT_GT(thickness, 6);
        EXPECT_EQ(vertical, nativeBar->HasFlag(wxSB_VERTICAL));
        bar->SetPos(3, 4, vertical ? 5 : 93, vertical ? 94 : 6);
        EXPECT_EQ(wxRect(3, 4, vertical ? thickness : 90, vertical ? 90 : thickness), nativeBar->GetRect());
        nativeBar->SetSize(2, 2);
        bar->SetPos(0, 0, vertical ? 50 : 90, vertical ? 90 : 50);
        EXPECT_EQ(vertical ? At(6, 90) : At(90, 6), At(bar->GetPos().right, bar->GetPos().bottom));
    }
}
