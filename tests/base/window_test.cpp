#include "common.h"
#include "contract/recorder.h"
#include "vela7/testing/fakecontrols.h"
#include "vela7/testing/fakesystem.h"
#include "vela7/testing/fakewindow.h"

#include <functional>

using namespace vela7;
using namespace vela7::testkit;
using test::Recorder;

namespace {

// The tip: o = unless the mouse is on it.
constexpr char no = 'n', yes = 'y', outside = 'o';

// Hands a fresh record over.
template <class Record>
void Call(CSysWindow& window, void (CSysWindow::*hook)(Record*), std::uint32_t button = mbNone)
{
    Record record;
    record.sender = &window;
    if constexpr (std::is_same_v<Record, CMouseEvent>)
        record.button = button;
    (window.*hook)(&record);
}

// clang-format off
const struct Hook { std::string fires; char hides; void (*call)(FakeWindow&); } hooks[] = {
    {"press",   outside, [](auto& w) { Call(w, &CSysWindow::ProcessMousePress, mbLeft); }},
    {"release", no,      [](auto& w) { Call(w, &CSysWindow::ProcessMouseRelease, mbRight); }},
    {"double",  no,      [](auto& w) { Call(w, &CSysWindow::ProcessMouseDoubleClick, mbLeft); }},
    {"motion",  no,      [](auto& w) { Call(w, &CSysWindow::ProcessMouseMove, mbMiddle); }},
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
    {"draw",    no,      [](auto& w) { w.ProcessPaint(&w.painter); }},
    {"colours", no,      [](auto& w) { w.ProcessSysColorChanged(); }},
    {"tab",     no,      [](auto& w) { w.CircuitTabTraversal(true); }},
    {"destroy", yes,     [](auto& w) { w.ProcessDestroy(); }},
};
// clang-format on

class Windows : public testing::Test
{
protected:
    FakeSystem system;
    FakeWindow& window = system.OpenWindow(100, 80);
};
using Tooltip = Windows;
using TabTraversal = Windows;

// The first listener lets it pass, keeps it, or ends the window; with a tip, and without one.
TEST_F(Windows, HooksFireTheirOwnOperationUntilHandledOrGone)
{
    for (const Hook& hook : hooks)
        for (const std::string what : {"passes", "keeps", "ends"}) {
            SCOPED_TRACE(hook.fires + ' ' + what);
            FakeWindow* const one = &system.OpenWindow();
            // A press gives the focus first, so that the window is gone before the press is fired.
            const bool focus = hook.fires == "press" && what == "ends";
            if (!focus)
                one->SetFocus();
            if (what == "passes")
                one->SetTooltip(nullptr);
            one->SetCursor(crHand);
            one->TrackTooltip(1, 1, "tip");
            Recorder first(one), second(one);
            first.HearAll();
            second.HearAll();
            first.Do([&](CEvent& event) {
                event.passOn = what != "keeps";
                first.Do({});
                if (what == "ends")
                    delete one;
            });
            hook.call(*one);
            const std::string fired = focus ? "focus" : hook.fires;
            const auto counts = [&](Recorder& ear) { return ear.Count(fired) + 10 * int(ear.Take().size()); };
            const bool destroy = hook.fires == "destroy";
            EXPECT_EQ(counts(first), what == "ends" && !destroy ? 21 : 11); // and hears of the end
            EXPECT_EQ(counts(second), what == "passes" ? 11 : what == "ends" && !destroy ? 10 : 0);
        }
}

TEST_F(Windows, ActBeforeTheyReport)
{
    Recorder ear(&window);
    ear.HearAll();
    const auto press = [&] { Call(window, &CSysWindow::ProcessMousePress, mbLeft); };
    // clang-format off
    const struct { const char* what; std::function<void()> act; Lines asked; } table[] = {
        {"resized",             [&] { window.Resize(30, 20); },                                {"Invalidate 0 0 30 20"}},
        {"update switched off", [&] { window.SetUpdateOnResize(false), window.Resize(4, 2); }, {}},
        {"a cursor",            [&] { window.SetCursor(crHand), Call(window, &CSysWindow::ProcessEnter); }, {"ShowCursor 12", "ShowCursor 12"}},
        {"popup pressed",       [&] { window.SetPopup(1), press(); },                          {}},
        {"wants no focus",      [&] { window.SetPopup(0), window.SetFocusOnClick(false), press(); }, {}},
        {"pressed",             [&] { window.SetFocusOnClick(true), press(); },                {"SetFocus"}},
        {"has the focus",       press,                                                         {}},
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

TEST_F(Windows, AreDestroyedOnceAndQuietly)
{
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

// With VELA7_CHECK_HOOKS, which only release builds are without.
#ifdef VELA7_CHECK_HOOKS
TEST_F(Windows, HooksLookAtWhatTheyAreHanded)
{
    CMouseEvent strange, had(&window), middle(&window);
    CWindowEvent small(&window, -1, 5);
    strange.button = had.button = mbLeft;
    middle.button = 4;
    had.passOn = false;
    RecordingPainter painter;
    const std::pair<std::function<void()>, const char*> table[] = {
        {[&] { window.ProcessMousePress(&strange); }, "sender"},
        {[&] { window.ProcessMouseRelease(&had); }, "had"},
        {[&] { window.ProcessMouseDoubleClick(&middle); }, "button"},
        {[&] { window.ProcessMouseMove(&middle); }, "button"},
        {[&] { window.ProcessResize(&small); }, "size"},
        {[&] { window.ProcessPaint(&painter); }, "painter"},
    };
    for (const auto& [act, complaint] : table) {
        testing::internal::CaptureStderr();
        act();
        EXPECT_NE(testing::internal::GetCapturedStderr().find(complaint), std::string::npos) << complaint;
    }
}
#endif

// ---- tooltip

TEST_F(Tooltip, WaitsForItsDelay)
{
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
    EXPECT_FALSE(system.Timers().front()->GetEnabled());
    window.SetEnableTooltip(true);
    system.Advance(5000);
    EXPECT_FALSE(window.IsTooltipVisible());
}

TEST_F(Tooltip, IsShownOnlyWhenItMay)
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
        FakeWindow& fresh = system.OpenWindow();
        system.appActive = row.active;
        fresh.SetTooltipDelay(row.delay);
        fresh.SetEnableTooltip(row.enabled);
        fresh.tooltip.SetLayerMode(row.layer, true);
        fresh.TrackTooltip(7, 8, row.text);
        EXPECT_EQ(fresh.IsTooltipVisible(), row.shown) << row.what;
    }
}

TEST_F(Tooltip, HooksThatHideIt)
{
    for (const Hook& hook : hooks)
        for (const std::string state : {"waiting", "shown", "under the mouse"}) {
            FakeWindow& fresh = system.OpenWindow();
            fresh.TrackTooltip(7, 8, "tip");
            system.Advance(state == "waiting" ? 499 : 500);
            fresh.tooltip.underMouse = state == "under the mouse";
            hook.call(fresh);
            system.Advance(1000);
            const bool kept = hook.hides == no || (hook.hides == outside && fresh.tooltip.underMouse);
            EXPECT_EQ(fresh.IsTooltipVisible(), kept) << hook.fires << ' ' << state;
        }
}

// ---- tab stops

TEST_F(TabTraversal, GoesRoundTheUsableStops)
{
    // F = has the focus, h = hidden, d = disabled, o = another one; expected: which gets the focus, w = the
    // window.
    // clang-format off
    const struct { const char* stops; char forward, backward; } table[] = {
        {"oFo",  '2', '0'}, {"Foo",  '1', '2'}, {"ooF", '0', '1'}, // wraps
        {"ooo",  '0', '2'},                                        // nobody has the focus
        {"Fhdo", '3', '3'}, {"hoFd", '1', '1'}, {"F",   '0', '0'}, // skips
        {"",     'w', 'w'}, {"hd",   'w', 'w'},
    };
    // clang-format on
    for (const auto& row : table)
        for (const bool forward : {true, false}) {
            FakeWindow& fresh = system.OpenWindow();
            std::vector<FakeCustomControl*> stops;
            std::string reported;
            for (const char* kind = row.stops; *kind; ++kind) {
                stops.push_back(new FakeCustomControl(fresh)); // the window's
                if (*kind == 'F')
                    stops.back()->SetFocus();
                stops.back()->SetVisible(*kind != 'h');
                stops.back()->SetEnabled(*kind != 'd');
                stops.back()->focus_in_signal.connect([&](ICustomControl*) { reported = "reported"; });
                fresh.AddTabStop(stops.back());
                fresh.AddTabStop(stops.back()); // stands there already
            }
            fresh.CircuitTabTraversal(forward);
            const auto focused =
                std::find_if(stops.begin(), stops.end(), [](auto* stop) { return stop->GetFocused(); });
            const bool window = focused == stops.end() && fresh.HasFocus();
            const char found = window ? 'w' : static_cast<char>('0' + (focused - stops.begin()));
            EXPECT_EQ(found, forward ? row.forward : row.backward) << row.stops;
            EXPECT_EQ(reported, "");
        }
}

TEST_F(TabTraversal, IsUpToTheListenersFirst)
{
    Recorder ear(&window);
    ear.HearAll();
    FakeCustomControl& stop = *new FakeCustomControl(window); // the window's
    window.AddTabStop(&stop);
    ear.Do([](CEvent& event) { event.passOn = static_cast<CKeyboardEvent&>(event).state == 0x100; });
    window.CircuitTabTraversal(true); // kept from moving
    EXPECT_FALSE(stop.GetFocused());
    window.CircuitTabTraversal(false);
    EXPECT_TRUE(stop.GetFocused());
    window.RemoveTabStop(&stop);
    ear.Do({});
    window.CircuitTabTraversal(false);
    EXPECT_TRUE(window.HasFocus());
}

} // namespace
