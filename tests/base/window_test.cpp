#include "common.h"
#include "fakesystem.h"
#include "fakewindow.h"
#include "vela7/customcontrol.h"

#include <functional>
#include <optional>

using namespace vela7;
using namespace vela7::seam;

namespace {

// Hears everything, writes it down and does what the test wants.
struct Ear : Listening<IDrawingNotify, IMouseNotify, IKeyboardNotify, IFocusNotify, IWindowNotify,
                       ITabTraversalNotify, IContextMenuNotify>
{
    using Listening::Listening;

    Lines heard;
    std::function<void(CEvent*)> action = [](CEvent*) {};

    void OnDraw(CDrawEvent* e) override { Hear("OnDraw", e); }
    void OnMousePress(CMouseEvent* e) override { Hear("OnMousePress", e); }
    void OnMouseRelease(CMouseEvent* e) override { Hear("OnMouseRelease", e); }
    void OnMouseDoubleClick(CMouseEvent* e) override { Hear("OnMouseDoubleClick", e); }
    void OnMouseMove(CMouseEvent* e) override { Hear("OnMouseMove", e); }
    void OnMouseWheel(CMouseWheelEvent* e) override { Hear("OnMouseWheel", e); }
    void OnMouseEnter(CMouseEvent* e) override { Hear("OnMouseEnter", e); }
    void OnMouseLeave(CMouseEvent* e) override { Hear("OnMouseLeave", e); }
    void OnKeyPress(CKeyboardEvent* e) override { Hear("OnKeyPress", e); }
    void OnKeyRelease(CKeyboardEvent* e) override { Hear("OnKeyRelease", e); }
    void OnChar(CKeyboardEvent* e) override { Hear("OnChar", e); }
    void OnGetFocus(CEvent* e) override { Hear("OnGetFocus", e); }
    void OnReleaseFocus(CEvent* e) override { Hear("OnReleaseFocus", e); }
    void OnMove(CWindowEvent* e) override { Hear("OnMove", e); }
    void OnResize(CWindowEvent* e) override { Hear("OnResize", e); }
    void OnSysColorChanged(CEvent* e) override { Hear("OnSysColorChanged", e); }
    void OnDestroy(CEvent* e) override { Hear("OnDestroy", e); }
    void OnContextMenu(CContextMenuEvent* e) override { Hear("OnContextMenu", e); }
    void OnTabTraversal(CKeyboardEvent* e) override { Hear("OnTabTraversal", e); }

    void Hear(const char* name, CEvent* event)
    {
        heard.push_back(name);
        const auto now = action; // it may be replaced meanwhile
        now(event);
    }
};

enum Hides
{
    no,
    yes,
    outside
}; // the tip; outside: unless the mouse is on it

// Hands a fresh record over; answers whether it may pass on.
template <class Record>
std::optional<bool> Call(FakeWindow& window, void (CSysWindow::*hook)(Record*))
{
    Record record;
    (window.*hook)(&record);
    return record.passOn;
}

using Passed = std::optional<bool>; // nothing: the window makes the record itself

// clang-format off
const struct Hook { std::string fires; Hides hides; Passed (*call)(FakeWindow&); } hooks[] = {
    {"OnMousePress",       outside, [](auto& w) { return Call(w, &CSysWindow::ProcessMousePress); }},
    {"OnMouseRelease",     no,      [](auto& w) { return Call(w, &CSysWindow::ProcessMouseRelease); }},
    {"OnMouseDoubleClick", no,      [](auto& w) { return Call(w, &CSysWindow::ProcessMouseDoubleClick); }},
    {"OnMouseMove",        no,      [](auto& w) { return Call(w, &CSysWindow::ProcessMouseMove); }},
    {"OnMouseWheel",       yes,     [](auto& w) { return Call(w, &CSysWindow::ProcessWheel); }},
    {"OnMouseEnter",       no,      [](auto& w) { return Call(w, &CSysWindow::ProcessEnter); }},
    {"OnMouseLeave",       outside, [](auto& w) { return Call(w, &CSysWindow::ProcessLeave); }},
    {"OnKeyPress",         yes,     [](auto& w) { return Call(w, &CSysWindow::ProcessKeyPress); }},
    {"OnKeyRelease",       no,      [](auto& w) { return Call(w, &CSysWindow::ProcessKeyRelease); }},
    {"OnChar",             no,      [](auto& w) { return Call(w, &CSysWindow::ProcessChar); }},
    {"OnMove",             no,      [](auto& w) { return Call(w, &CSysWindow::ProcessMove); }},
    {"OnResize",           no,      [](auto& w) { return Call(w, &CSysWindow::ProcessResize); }},
    {"OnContextMenu",      no,      [](auto& w) { return Call(w, &CSysWindow::ProcessContextMenu); }},
    {"OnGetFocus",         no,      [](auto& w) { return w.ProcessGetFocus(), Passed(); }},
    {"OnReleaseFocus",     yes,     [](auto& w) { return w.ProcessReleaseFocus(), Passed(); }},
    {"OnDraw",             no,      [](auto& w) { return w.ProcessPaint(nullptr), Passed(); }},
    {"OnSysColorChanged",  no,      [](auto& w) { return w.ProcessSysColorChanged(), Passed(); }},
    {"OnTabTraversal",     no,      [](auto& w) { return w.CircuitTabTraversal(true), Passed(); }},
    {"OnDestroy",          yes,     [](auto& w) { return w.ProcessDestroy(), Passed(); }},
};
// clang-format on

TEST(WindowHooks, FireTheirOwnOperationUntilHandled)
{
    for (const Hook& hook : hooks)
        for (const bool passOn : {true, false}) {
            SCOPED_TRACE(hook.fires);
            FakeWindow window;
            window.focused = true;
            if (passOn)
                window.SetTooltip(nullptr);
            window.TrackTooltip(1, 1, "tip"); // without system: comes to nothing
            Ear first(window), second(window);
            IEventSender* sender = nullptr;
            first.action = [&](CEvent* event) { event->passOn = passOn, sender = event->sender; };
            const Passed passed = hook.call(window);
            EXPECT_EQ(passed.value_or(passOn), passOn);
            EXPECT_EQ(sender, passed ? nullptr : &window);
            EXPECT_EQ(first.heard, Lines{hook.fires});
            EXPECT_EQ(second.heard, passOn ? first.heard : Lines{});
        }
}

TEST(WindowHooks, MayDestroyTheWindow)
{
    FakeSystem system;
    for (const Hook& hook : hooks) {
        SCOPED_TRACE(hook.fires);
        auto* const window = new FakeWindow;
        window->SetCursor(crHand);
        window->TrackTooltip(1, 1, "tip");
        Ear first(*window), second(*window);
        first.action = [&](CEvent*) {
            first.action = [](CEvent*) {};
            delete window;
        };
        hook.call(*window);
        // A press gives the focus first, so that the window is gone before the press is fired.
        EXPECT_EQ(first.heard.front(), hook.fires == "OnMousePress" ? "OnGetFocus" : hook.fires);
        EXPECT_EQ(second.heard, hook.fires == "OnDestroy" ? Lines{} : Lines{"OnDestroy"});
        EXPECT_TRUE(system.Timers().empty());
    }
}

TEST(Window, ActsBeforeItReports)
{
    FakeWindow window;
    Ear ear(window);
    // clang-format off
    const struct { const char* what; std::function<void()> act; Lines asked; } table[] = {
        {"resized",             [&] { window.Resize(30, 20); },                                  {"Invalidate 0 0 30 20"}},
        {"update switched off", [&] { window.SetUpdateOnResize(false), window.Resize(4, 2); },   {}},
        {"no cursor",           [&] { window.ProcessEnter(nullptr); },                           {}},
        {"a cursor",            [&] { window.SetCursor(crHand), window.ProcessEnter(nullptr); }, {"ShowCursor 12", "ShowCursor 12"}},
        {"popup pressed",       [&] { window.SetPopup(1), window.MousePress(1, 1); },            {}},
        {"pressed",             [&] { window.SetPopup(0), window.MousePress(1, 1); },            {"SetFocus"}},
        {"has the focus",       [&] { window.MousePress(1, 1); },                                {}},
        {"wants no focus",      [&] { window.focused = false, window.SetFocusOnClick(false), window.MousePress(1, 1); }, {}},
    };
    // clang-format on
    for (const auto& row : table) {
        Lines asked; // by the time of the first report
        ear.action = [&](CEvent*) {
            asked = window.asked.Take();
            ear.action = [](CEvent*) {};
        };
        row.act();
        EXPECT_EQ(asked, row.asked) << row.what;
    }
}

TEST(Window, IsDestroyedOnceAndQuietly)
{
    FakeWindow window;
    Ear first(window), second(window);
    first.action = [&](CEvent*) {
        EXPECT_TRUE(window.IsDestroyed());
        window.ProcessDestroy();
        throw 7;
    };
    window.ProcessDestroy();
    EXPECT_EQ(first.heard, Lines{"OnDestroy"});
    window.TrackTooltip(9, 9, "late");
    EXPECT_EQ(window.tooltip.text, "");
}

// ---- tooltip

TEST(Tooltip, WaitsForItsDelay)
{
    FakeSystem system;
    FakeWindow window;
    window.TrackTooltip(7, 8, "tip");
    system.Advance(400);
    window.TrackTooltip(9, 8, "tip"); // the wait begins anew
    system.Advance(499);
    EXPECT_FALSE(window.IsTooltipVisible());
    system.Advance(1);
    EXPECT_TRUE(window.IsTooltipVisible());

    window.TrackTooltip(30, 8, "other"); // shown, it follows at once
    EXPECT_EQ(window.tooltip.text, "other");
    EXPECT_FALSE(system.Timers().front()->GetEnabled());
    window.SetEnableTooltip(false);
    EXPECT_FALSE(window.IsTooltipVisible());
    window.SetEnableTooltip(true);
    window.TrackTooltip(7, 8, "tip");
    window.SetEnableTooltip(false); // the waiting one is dropped
    window.SetEnableTooltip(true);
    system.Advance(5000);
    EXPECT_FALSE(window.IsTooltipVisible());
}

TEST(Tooltip, IsShownOnlyWhenItMay)
{
    // clang-format off
    const struct { const char* what; int delay; const char* text; bool active, enabled, shown; } table[] = {
        {"delay 0",      0, "tip", true,  true,  true},  {"delay -5",    -5, "tip", true, true,  true},
        {"no text",      0, "",    true,  true,  false}, {"not enabled",  0, "tip", true, false, false},
        {"not active",   0, "tip", false, true,  false}, {"delay 1",      1, "tip", true, true,  false},
    };
    // clang-format on
    for (const auto& row : table) {
        FakeSystem system;
        FakeWindow window;
        system.appActive = row.active;
        window.SetTooltipDelay(row.delay);
        window.SetEnableTooltip(row.enabled);
        window.TrackTooltip(7, 8, row.text);
        EXPECT_EQ(window.IsTooltipVisible(), row.shown) << row.what;
    }
    FakeSystem system;
    FakeWindow window;
    window.SetTooltipDelay(0);
    window.tooltip.SetLayerMode(ITooltip::lmCustom, true);
    window.TrackTooltip(7, 8, ""); // its layer is what is shown
    EXPECT_TRUE(window.IsTooltipVisible());
}

TEST(Tooltip, HooksThatHideIt)
{
    enum State
    {
        waiting,
        shown,
        underMouse
    };
    for (const Hook& hook : hooks)
        for (const State state : {waiting, shown, underMouse}) {
            FakeSystem system;
            FakeWindow window;
            window.TrackTooltip(7, 8, "tip");
            system.Advance(state == waiting ? 499 : 500);
            window.tooltip.underMouse = state == underMouse;
            hook.call(window);
            system.Advance(1000);
            const bool kept = hook.hides == no || (hook.hides == outside && state == underMouse);
            EXPECT_EQ(window.IsTooltipVisible(), kept) << hook.fires << ' ' << state;
        }
}

// ---- tab stops

struct Stop : CImplEventSender<ICustomControl>
{
    const char kind; // F = has the focus, h = hidden, d = disabled, else usable
    const int index;
    std::string& asked;

    Stop(char k, int i, std::string& a) : kind(k), index(i), asked(a) {}
    void SetPos(int, int, int, int) override {}
    rectangle<int> GetPos() const override { return {}; }
    void SetVisible(bool) override {}
    bool GetVisible() const override { return kind != 'h'; }
    void SetEnabled(bool) override {}
    bool GetEnabled() const override { return kind != 'd'; }
    void SetFocus() override { asked += "plain "; }
    void SetFocusEx() override { asked += std::to_string(index); }
    bool GetFocused() const override { return kind == 'F'; }
    void* GetNativeHandle() const override { return nullptr; }
};

TEST(TabTraversal, GoesRoundTheUsableStops)
{
    // clang-format off
    const struct { const char* stops; const char* forward; const char* backward; } table[] = {
        {"oFo",  "2", "0"}, {"Foo", "1", "2"}, {"ooF",  "0", "1"},    // wraps
        {"ooo",  "0", "2"},                                           // nobody has the focus
        {"Fhdo", "3", "3"}, {"hoFd", "1", "1"}, {"F",   "0", "0"},    // skips
        {"",     "window", "window"}, {"hd", "window", "window"},
    };
    // clang-format on
    for (const auto& row : table)
        for (const bool forward : {true, false}) {
            FakeWindow window;
            std::string asked;
            std::vector<std::unique_ptr<Stop>> stops;
            for (const char* kind = row.stops; *kind; ++kind) {
                stops.push_back(std::make_unique<Stop>(*kind, static_cast<int>(stops.size()), asked));
                window.AddTabStop(stops.back().get());
            }
            window.CircuitTabTraversal(forward);
            asked += window.asked.Take() == Lines{"SetFocus"} ? "window" : "";
            EXPECT_EQ(asked, forward ? row.forward : row.backward) << row.stops;
        }
}

TEST(TabTraversal, IsUpToTheListenersFirst)
{
    FakeWindow window;
    Ear ear(window);
    std::string asked;
    Stop stop('o', 0, asked);
    window.AddTabStop(&stop);
    ear.action = [&](CEvent* event) { event->passOn = static_cast<CKeyboardEvent*>(event)->state == 0x100; };
    window.CircuitTabTraversal(false);
    EXPECT_EQ(asked, "0");
    window.CircuitTabTraversal(true); // kept from moving
    window.RemoveTabStop(&stop);
    window.CircuitTabTraversal(false);
    EXPECT_EQ(asked, "0");
}

} // namespace
