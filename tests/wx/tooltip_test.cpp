// Tips of toolkit windows. The screen is 1600 pixels wide, the scale is 1.
#include "windowhelpers.h"

#include "support/pixels.h"
#include "support/process.h"
#include "vela7/wxpopup.h"
#include "vela7/wxtooltip.h"

#include <cstring>
#include <wx/app.h>
#include <wx/dcclient.h>
#include <wx/dialog.h>
#include <wx/textctrl.h>

#include <gdk/gdkx.h>

using namespace vela7;
using namespace vela7::test;

namespace {

class Tooltip : public WindowTest
{
public:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(WindowTest::SetUp());
        Use(window);
        MovePointer(500, 700); // beside everything
    }
    void Use(ISysWindow* owner)
    {
        window = dynamic_cast<CwxSysWindow*>(owner);
        window->SetTooltipDelay(0);
        native = Native(window);
        tip = dynamic_cast<CwxTooltip*>(window->TakeTooltip());
        ASSERT_TRUE(tip);
    }
    void ShowAt(int x, int y, const std::string& text)
    {
        const wxPoint at = native->ClientToScreen(wxPoint(x, y));
        window->TrackTooltip(at.x, at.y, text);
        Settle();
        ASSERT_TRUE(tip->IsVisible());
    }
    void PointAtTip()
    {
        MovePointer(500, 700);
        ShowAt(150, 60, std::string(30, 'm')); // beyond the window's right edge
        PointAt(native, 160, 65);
        PointAt(tip, 5, 4);
    }
    wxSize SizeOf(const std::string& text)
    {
        tip->SetText(text);
        const screen_rectangle<int> r = tip->GetScreenRect();
        return {r.right - r.left, r.bottom - r.top};
    }
    wxSize Extent(const std::string& text)
    {
        wxClientDC dc(native);
        dc.SetFont(tip->GetFont());
        return dc.GetTextExtent(text);
    }
    std::string TextOfWidth(int width) // without any character that ends a line
    {
        std::string text(static_cast<std::size_t>(width / Extent("m").x), 'm'), rest;
        for (; Extent(text + rest).x != width && !text.empty(); rest += 'i')
            if (Extent(text + rest).x > width)
                text.pop_back(), rest.clear();
        EXPECT_EQ(width, Extent(text + rest).x);
        return text + rest;
    }
    int HeightOf(int lines) { return lines * Extent("m").y + 6; }

    CwxTooltip* tip = nullptr;
    using GuiTest::frame, WindowTest::native, WindowTest::panel, WindowTest::window;
};

TEST_F(Tooltip, SizeFollowsTheText)
{
    // clang-format off
    const struct { int text, owner, width, lines; } rows[] = {
        {0,    200, 8,   0}, {99,   200, 107, 1}, {100,  200,  110,  1}, {778,  200,  800, 1}, {779, 200, 800, 1},
        {792,  200, 800, 1}, {793, 200, 800, 2}, // wrapped within the margins
        {2000, 200, 800, 3}, {2000, 900, 900, 3}, {2000, 1600, 1600, 2}, {2000, 1601, 800, 3},
    };
    // clang-format on
    for (const auto& row : rows) {
        window->SetWindowRect(0, 0, row.owner, 100, false);
        EXPECT_EQ(wxSize(row.width, HeightOf(row.lines)), SizeOf(TextOfWidth(row.text))) << row.text;
    }
    const std::string piece = TextOfWidth(60);
    for (const char between : std::string(", <>:._\n\r-;")) {
        tip->SetWidth(8 + 105); // less than two pieces
        const int lines = between == '-' || between == ';' ? 2 : 3;
        EXPECT_EQ(HeightOf(lines), SizeOf(piece + between + piece + between + piece).y) << int{between};
        tip->Clear();
        const bool newLine = between < ' '; // counts however short the text is
        EXPECT_EQ(HeightOf(newLine ? 2 : 1), SizeOf(std::string("a") + between + "b").y);
    }
}

TEST_F(Tooltip, FixedSizeAppliesOnce)
{
    const std::string text = TextOfWidth(2000);
    const int line = Extent("m").y;
    tip->SetHeight(50);
    EXPECT_EQ(50, SizeOf("mm").y);
    EXPECT_EQ(wxSize(800, 3 * line + 2 * ((50 - line) / 2)), SizeOf(text)); // wrapped: what it needs
    tip->SetHeight(5);
    EXPECT_EQ(wxSize(800, 3 * line + 2), SizeOf(text));
    tip->SetWidth(500);
    EXPECT_LT(SizeOf("mm").x, 100); // a limit only
    ShowAt(10, 10, text);
    EXPECT_EQ(500, tip->GetSize().x);
    EXPECT_EQ(wxSize(800, HeightOf(3)), SizeOf(text));
    tip->SetWidth(500);
    tip->Clear(); // but for the text
    EXPECT_EQ(800, tip->GetScreenRect().right - tip->GetScreenRect().left);
}

// Divides the screen; GDK looks when an event says so, which the server does not send for these monitors.
void ChangeMonitors(const std::string& how, unsigned count)
{
    EXPECT_EQ(0, RunProgram({"sh", "-c", how}).exitCode) << how;
    XEvent event{};
    int opcode = 0, error = 0;
    event.xany.display = gdk_x11_get_default_xdisplay();
    event.xany.window = gdk_x11_get_default_root_xwindow();
    ASSERT_TRUE(XQueryExtension(event.xany.display, "RANDR", &opcode, &event.type, &error));
    ++event.type; // RRNotify
    XPutBackEvent(event.xany.display, &event);
    ASSERT_TRUE(WaitFor([=] { return wxDisplay::GetCount() == count; }, "the monitors"));
}

TEST_F(Tooltip, WidthFollowsThePointersMonitor)
{
    const std::string text = TextOfWidth(2000);
    ChangeMonitors("xrandr --setmonitor A 700/185x1200/317+0+0 screen && "
                   "xrandr --setmonitor B 500/132x1200/317+700+0 none",
                   2);
    for (const auto& [pointer, owner, width] :
         {std::tuple(900, 500, 500), std::tuple(900, 501, 250), std::tuple(1500, 1000, 600)}) {
        window->SetWindowRect(0, 0, owner, 100, false); // on the other monitor
        MovePointer(pointer, 700);
        EXPECT_EQ(pointer == 900 ? 1 : -1, tip->GetMonitorIndex());
        EXPECT_EQ(width, SizeOf(text).x) << owner;
    }
    MovePointer(900, 700);
    // clang-format off
    const struct { wxPoint at; wxPoint (wxRect::*corner)() const; wxPoint shown; } places[] = { // 500 x 1200 at (700, 0)
        {{0, -9},     &wxRect::GetTopLeft,     {700, 0}},  {{1199, 1199}, &wxRect::GetBottomRight, {1199, 1199}},
        {{-1, 20},    &wxRect::GetTopLeft,     {700, 20}}, {{750, 1201},  &wxRect::GetBottomLeft,  {750, 1199}},
    };
    // clang-format on
    for (const auto& place : places)
        for (const bool shown : {false, true}) { // by being shown, and by tracking what is shown
            shown ? void() : window->HideTooltip();
            window->TrackTooltip(place.at.x, place.at.y, "mm");
            EXPECT_EQ(place.shown, (tip->GetRect().*place.corner)());
            EXPECT_EQ(place.at.x, tip->GetScreenRect().left);
            EXPECT_EQ(SizeOf("mm"), tip->GetSize());
        }
    window->HideTooltip();
    ChangeMonitors("xrandr --delmonitor A; xrandr --delmonitor B", 1);
}

TEST_F(Tooltip, Pixels)
{
    tip->SetColor(_color(0x20, 0x40, 0x60)), tip->SetTextColor(_color(0xf0, 0xe0, 0));
    tip->SetFont(font{"DejaVu Sans", ffDefault, 20, fsBold});
    for (const char* text : {"mmm", "mmm\nmmm", "mmm\n "}) { // the others while it is shown
        ShowAt(10, 10, text);
        const Pixels shown = ReadPixels(tip);
        const int w = shown.Width(), h = shown.Height(), wide = Extent("m").x;
        ASSERT_EQ(HeightOf(text[3] ? 2 : 1), h);
        const auto count = [&](int x, int y, int cx, int cy, unsigned colour) {
            return shown.CountColour(wxRect(x, y, cx, cy), colour);
        };
        EXPECT_EQ(2 * (w - 1), count(0, 0, w, 1, 0xf0e000) + count(0, h - 2, w, 1, 0xf0e000));
        EXPECT_EQ(2 * (h - 1), count(0, 0, 1, h, 0xf0e000) + count(w - 2, 0, 1, h, 0xf0e000));
        EXPECT_EQ(h - 3, count(1, 1, 1, h - 3, 0x204060)) << "the left margin";
        EXPECT_GT(count(2 + 2 * wide, 4, wide, Extent("m").y, 0xf0e000), 20) << "the third letter";
        const bool hasSecond = text[3] && count(2, h / 2, wide, h / 2 - 3, 0xf0e000) > 20;
        EXPECT_EQ(text[3] && text[4] == 'm', hasSecond) << text;
    }
}

// clang-format off
const std::string press = "press 155,64 button 1 state 0x1", release = "release 155,64 button 1 state 0x0";
const struct Input { const char* what; void (*give)(Tooltip&); Lines ownerHears; bool stays, focuses; } inputs[] = {
    {"motion", [](Tooltip& t) { PointAt(t.tip, 7, 5); }, {"motion 157,65 button 0 state 0x0"}, true, false},
    {"click", [](Tooltip&) { Click(); }, {press, release}, true, true},
    {"menu", [](Tooltip&) { Press(rightButton); }, {"press 155,64 button 3 state 0x2", "menu 155,64"}, true, true},
    {"wheel", [](Tooltip&) { WheelUp(); }, {"wheel 155,64 button 0 state 0x0 delta 3"}, false, false},
    {"double", [](Tooltip&) { DoubleClick(); }, {press, release, "double 155,64 button 1 state 0x1"}, false, true},
    {"into the owner", [](Tooltip& t) { PointAt(t.native, 100, 50); }, {}, false, false},
    {"leave", [](Tooltip& t) { PointAt(t.panel, 390, 290); }, {"leave 370,280 button 0 state 0x0"}, false, false},
    {"inactive", [](Tooltip& t) { wxTheApp->SetActive(false, nullptr); PointAt(t.tip, 9, 9); }, {}, false, false},
};
// clang-format on

TEST_F(Tooltip, HandsTheMouseOnToItsOwner)
{
    auto* const other = new wxTextCtrl(panel, wxID_ANY, "", wxPoint(20, 220));
    window->SetFocusOnClick(false);
    Recorder heard(window);
    heard.Hear<IMouseNotify, IContextMenuNotify>();
    for (const Input& input : inputs) {
        other->SetFocus();
        PointAtTip();
        heard.Take();
        input.give(*this);
        Lines lines = heard.Take();
        wxTheApp->SetActive(true, frame);
        // When the tip has gone, the pointer enters the owner itself, moves there, and is released.
        const auto goesOn = [&](const std::string& line) {
            return !input.stays && std::strchr("em", line[0]);
        };
        lines.erase(std::remove_if(lines.begin(), lines.end(), goesOn), lines.end());
        lines.resize(input.what == std::string("double") ? 3 : lines.size());
        EXPECT_EQ(input.ownerHears, lines) << input.what;
        EXPECT_EQ(input.stays, tip->IsVisible()) << input.what;
        EXPECT_EQ(input.focuses ? native : other, wxWindow::FindFocus()) << input.what;
        ReleaseAll();
        window->HideTooltip();
    }
}

// A modal dialog and a popup have GTK's grab: tips in them hear the mouse and end with them, others do not.
TEST_F(Tooltip, UnderAGrab)
{
    CwxSysWindow* const behind = window;
    Recorder heardBehind(behind);
    heardBehind.Hear<IMouseNotify>();
    const auto use = [&](ISysWindow* inside, const std::function<void()>& close) {
        Use(inside);
        Recorder heard(window);
        heard.Hear<IMouseNotify>();
        PointAtTip();
        heard.Take();
        Click();
        EXPECT_EQ((Lines{press, release}), heard.Take());
        EXPECT_TRUE(tip->IsVisible() && native->IsShownOnScreen());
        PointAt(native, 100, 50);
        EXPECT_FALSE(tip->IsVisible());
        ShowAt(10, 10, "mmm");
        behind->TrackTooltip(150, 600, "mmm");
        MovePointer(155, 605);
        Click();
        EXPECT_EQ(0, heardBehind.Count("press"));
        close();
        EXPECT_FALSE(tip->IsVisible());
    };
    const CHandle<IPopup> popup = window->CreatePopup();
    popup->SetSize(200, 100);
    popup->Show(600, 100);
    use(popup->GetContent(), [&] { EXPECT_FALSE(popup->IsVisible()) << "a click beside it"; });
    wxDialog dialog(frame, wxID_ANY, "", wxPoint(600, 100), wxSize(300, 200));
    auto* const inDialog = new CwxSysWindow(&dialog, true, ISysWindow::wtNormal);
    inDialog->SetWindowRect(20, 10, 220, 110, false);
    dialog.CallAfter([&] {
        EXPECT_TRUE(WaitFor([&] { return Viewable(&dialog) && dialog.IsActive(); }, "the dialog"));
        use(inDialog, [&] { dialog.EndModal(0); });
        window->TrackTooltip(300, 300, "mmm");
        EXPECT_FALSE(tip->IsVisible()) << "of a hidden one";
    });
    dialog.ShowModal();
}

TEST_F(Tooltip, ShowsACustomLayer)
{
    tip->SetLayerMode(ITooltip::lmNormal, true);
    EXPECT_EQ(nullptr, tip->GetCustomLayer());
    for (const bool hides : {true, false}) {
        tip->SetLayerMode(ITooltip::lmCustom, hides);
        ISysWindow* const layer = tip->GetCustomLayer();
        ASSERT_TRUE(layer);
        tip->SetLayerMode(ITooltip::lmCustom, hides);
        EXPECT_EQ(layer, tip->GetCustomLayer());
        layer->TakeDefPainter()->SetBackgroundColor(_color(0xff, 0, 0));
        tip->SetWidth(120), tip->SetHeight(40);
        ShowAt(10, 10, "");
        EXPECT_TRUE(layer->GetVisible());
        EXPECT_EQ(120 * 40, ReadPixels(tip).CountColour(wxRect(0, 0, 120, 40), 0xff0000));
        window->HideTooltip();
        EXPECT_EQ(!hides, layer->GetVisible());
        EXPECT_EQ(hides ? ITooltip::lmNormal : ITooltip::lmCustom, tip->GetLayerMode());
    }
}

TEST_F(Tooltip, KnowsWhetherItIsUnderTheMouse)
{
    ShowAt(10, 10, "mmm");
    const wxSize s = tip->GetSize();
    // clang-format off
    const std::pair<wxPoint, bool> rows[] = {{{0, 0}, true},         {{s.x, s.y}, true},  {{-1, 0}, false},
                                             {{s.x + 1, 0}, false},  {{0, -1}, false},    {{0, s.y + 1}, false}};
    // clang-format on
    for (const auto& [at, isUnder] : rows) {
        PointAt(tip, at.x, at.y);
        ShowAt(10, 10, "mmm");
        EXPECT_EQ(isUnder, tip->IsUnderMouse()) << at.x << ',' << at.y;
    }
}

} // namespace
