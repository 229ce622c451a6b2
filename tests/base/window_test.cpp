#include "common.h"
#include "contract/recorder.h"
#include "fakesystem.h"
#include "fakewindow.h"
#include "vela7/customcontrol.h"

#include <functional>

using namespace vela7;
using namespace vela7::seam;
using test::Recorder;

namespace {

enum Hides
{
    no,
    yes,
    outside
}; // the tip; outside: unless the mouse is on it

// Hands a fresh record over.
template <class Record>
void Call(FakeWindow& window, void (CSysWindow::*hook)(Record*))
{
    Record record;
    record.sender = &window;
    (window.*hook)(&record);
}

// clang-format off
const struct Hook { std::string fires; Hides hides; void (*call)(FakeWindow&); } hooks[] = {
    {"press",   outside, [](auto& w) { Call(w, &CSysWindow::ProcessMousePress); }},
    {"release", no,      [](auto& w) { Call(w, &CSysWindow::ProcessMouseRelease); }},
    {"double",  no,      [](auto& w) { Call(w, &CSysWindow::ProcessMouseDoubleClick); }},
    {"motion",  no,      [](auto& w) { Call(w, &CSysWindow::ProcessMouseMove); }},
    {"wheel",   yes,     [](auto& w) { Call(w, &CSysWindow::ProcessWheel); }},
    {"enter",   no,      [](auto& w) { Call(w, &CSysWindow::ProcessEnter); }},
    {"leave",   outside, [](auto& w) { Call(w, &CSysWindow::ProcessLeave); }},
    {"keydown", yes,     [](auto& w) { Call(w, &CSysWindow::ProcessKeyPress); }},
    {"keyup",   no,      [](auto& w) { Call(w, &CSysWindow::ProcessKeyRelease); }},
    {"char",    no,      [](auto& w) { Call(w, &CSysWindow::ProcessChar); }},
    {"move",    no,      [](auto& w) { Call(w, &CSysWindow::ProcessMove); }},
    {"resize",  no,      [](auto& w) { Call(w, &CSysWindow::ProcessResize); }},
    {"menu",    no,      [](auto& w) { Call(w, &CSysWindow::ProcessContextMenu); }},
    {"focus",   no,      [](auto& w) { w.ProcessGetFocus(); }},
    {"unfocus", yes,     [](auto& w) { w.ProcessReleaseFocus(); }},
    {"draw",    no,      [](auto& w) { w.Paint(); }},
    {"colours", no,      [](auto& w) { w.ProcessSysColorChanged(); }},
    {"tab",     no,      [](auto& w) { w.CircuitTabTraversal(true); }},
    {"destroy", yes,     [](auto& w) { w.ProcessDestroy(); }},
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
            Recorder first(&window), second(&window);
            first.HearAll();
            second.HearAll();
            first.Do([&](CEvent& event) { event.passOn = passOn; });
            hook.call(window);
            EXPECT_EQ(first.Count(hook.fires), 1);
            EXPECT_EQ(first.Take().size(), 1U);
            EXPECT_EQ(second.Take().size(), passOn ? 1U : 0U);
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
        Recorder first(window), second(window);
        first.HearAll();
        second.HearAll();
        first.Do([&](CEvent&) {
            first.Do({});
            delete window;
        });
        hook.call(*window);
        // A press gives the focus first, so that the window is gone before the press is fired.
        const Lines heard = first.Take();
        EXPECT_EQ(heard.front().find(hook.fires == "press" ? "focus" : hook.fires), 0U);
        EXPECT_EQ(second.Take(), hook.fires == "destroy" ? Lines{} : Lines{"destroy"});
        EXPECT_TRUE(system.Timers().empty());
    }
}

TEST(Window, ActsBeforeItReports)
{
    FakeWindow window;
    Recorder ear(&window);
    ear.HearAll();
    // clang-format off
    const struct { const char* what; std::function<void()> act; Lines asked; } table[] = {
        {"resized",             [&] { window.Resize(30, 20); },                                  {"Invalidate 0 0 30 20"}},
        {"update switched off", [&] { window.SetUpdateOnResize(false), window.Resize(4, 2); },   {}},
        {"a cursor",            [&] { window.SetCursor(crHand), Call(window, &CSysWindow::ProcessEnter); }, {"ShowCursor 12", "ShowCursor 12"}},
        {"popup pressed",       [&] { window.SetPopup(1), window.MousePress(1, 1); },            {}},
        {"pressed",             [&] { window.SetPopup(0), window.MousePress(1, 1); },            {"SetFocus"}},
        {"has the focus",       [&] { window.MousePress(1, 1); },                                {}},
        {"wants no focus",      [&] { window.focused = false, window.SetFocusOnClick(false), window.MousePress(1, 1); }, {}},
    };
    // clang-format on
    for (const auto& row : table) {
        Lines asked; // by the time of the first report
        ear.Do([&](CEvent&) {
            asked = window.asked.Take();
            ear.Do({});
        });
        row.act();
        EXPECT_EQ(asked, row.asked) << row.what;
    }
}

TEST(Window, IsDestroyedOnceAndQuietly)
{
    FakeWindow window;
    Recorder first(&window);
    first.HearAll();
    first.Do([&](CEvent&) {
        EXPECT_TRUE(window.IsDestroyed());
        window.ProcessDestroy();
        throw 7;
    });
    window.ProcessDestroy();
    EXPECT_EQ(first.Take(), Lines{"destroy"});
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
    const struct { const char* what; int delay; const char* text; bool active, enabled, shown; ITooltip::LayerMode layer = ITooltip::lmNormal; } table[] = {
        {"delay 0",      0, "tip", true,  true,  true},  {"delay -5",    -5, "tip", true, true,  true},
        {"no text",      0, "",    true,  true,  false}, {"not enabled",  0, "tip", true, false, false},
        {"not active",   0, "tip", false, true,  false}, {"delay 1",      1, "tip", true, true,  false},
        {"own layer",    0, "",    true,  true,  true, ITooltip::lmCustom},
    };
    // clang-format on
    for (const auto& row : table) {
        FakeSystem system;
        FakeWindow window;
        system.appActive = row.active;
        window.SetTooltipDelay(row.delay);
        window.SetEnableTooltip(row.enabled);
        window.tooltip.SetLayerMode(row.layer, true);
        window.TrackTooltip(7, 8, row.text);
        EXPECT_EQ(window.IsTooltipVisible(), row.shown) << row.what;
    }
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
    Recorder ear(&window);
    ear.HearAll();
    std::string asked;
    Stop stop('o', 0, asked);
    window.AddTabStop(&stop);
    ear.Do([](CEvent& event) { event.passOn = static_cast<CKeyboardEvent&>(event).state == 0x100; });
    window.CircuitTabTraversal(false);
    EXPECT_EQ(asked, "0");
    window.CircuitTabTraversal(true); // kept from moving
    window.RemoveTabStop(&stop);
    window.CircuitTabTraversal(false);
    EXPECT_EQ(asked, "0");
}

} // namespace
