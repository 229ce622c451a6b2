// Toolkit timers in the running event loop, and what becomes of the loop when a listener throws.
#include "contract/recorder.h"
#include "support/faults.h"
#include "support/waits.h"
#include "vela7/system.h"

#include <chrono>
#include <stdexcept>
#include <wx/app.h>
#include <wx/evtloop.h>

using namespace vela7;
using namespace vela7::test;
using std::chrono::milliseconds, std::chrono::steady_clock;

namespace {
struct Ticks
{
    explicit Ticks(int interval, bool start = true) : timer(GetCurrentSystem()->CreateTimer(interval, start))
    {
        heard.Hear<ITimerNotify>();
    }
    bool Await(int number)
    {
        return WaitFor([&] { return heard.Count("tick") >= number; }, "the ticks");
    }
    CHandle<ISysTimer> timer;
    Recorder heard{timer.Get()};
};

// The application while a listener's exception is dealt with; one that has had enough.
struct Hopeless : wxAppConsole
{
    Hopeless(wxAppConsole& app, bool throws) : real(app), rethrows(throws) {}
    bool OnExceptionInMainLoop() override
    {
        wxApp::SetInstance(&real);
        return rethrows ? throw 1 : false;
    }
    void OnUnhandledException() override { ++unhandled; }
    wxAppConsole& real;
    const bool rethrows;
    int unhandled = 0;
};
} // namespace

TEST(Timer, TicksUntilStopped)
{
    Ticks ticks(5000, false), second(25);
    ticks.timer->SetInterval(20);
    EXPECT_FALSE(ticks.timer->GetEnabled());
    EXPECT_TRUE(second.Await(3));
    EXPECT_EQ(0, ticks.heard.Count("tick"));

    ticks.timer->SetEnabled(true);
    EXPECT_TRUE(ticks.Await(3));
    ticks.heard.Take();
    ticks.heard.Do([&](CEvent&) { ticks.timer->SetEnabled(false); });
    EXPECT_TRUE(Ticks(25).Await(3));
    EXPECT_EQ(1, ticks.heard.Count("tick"));
}

TEST(Timer, RestartsItsPeriod)
{
    for (const bool byInterval : {false, true}) {
        Ticks ticks(150);
        EXPECT_TRUE(Ticks(100).Await(1));
        const auto start = steady_clock::now();
        ticks.heard.Take();
        byInterval ? ticks.timer->SetInterval(160) : ticks.timer->SetEnabled(true);
        EXPECT_TRUE(ticks.Await(1));
        EXPECT_GE(steady_clock::now() - start, milliseconds(byInterval ? 160 : 150));
    }
}

// The listener throws, and the next time it drops the last handle.
TEST(Timer, SurvivesItsListener)
{
    Ticks ticks(5);
    Recorder second(ticks.timer.Get());
    second.HearAll();
    ticks.heard.Do([&](CEvent& event) {
        event.passOn = false;
        if (ticks.heard.Count("tick") == 1)
            throw std::runtime_error("out of time");
        ticks.timer.Reset();
    });
    EXPECT_TRUE(Ticks(15).Await(3));
    EXPECT_EQ("tick tick", ticks.heard.TakeNames());
    EXPECT_EQ("", second.TakeNames());
    ExpectFaults(Fault::loop, 1, "out of time");
}

TEST(Timer, LoopIsLeftWhenTheApplicationGivesUp)
{
    wxAppConsole* const real = wxApp::GetInstance();
    for (const bool rethrows : {false, true}) {
        auto hopeless = std::make_unique<Hopeless>(*real, rethrows);
        wxApp::SetInstance(real);
        wxEventLoop loop;
        Ticks throwing(5), late(2000);
        throwing.heard.Do([&](CEvent&) {
            throwing.timer->SetEnabled(false);
            wxApp::SetInstance(hopeless.get());
            throw std::runtime_error("not reported");
        });
        late.heard.Do([&](CEvent&) { loop.Exit(); });
        loop.Run();
        EXPECT_EQ(0, late.heard.Count("tick")) << "the loop goes on";
        EXPECT_EQ(rethrows ? 1 : 0, hopeless->unhandled);
        hopeless.reset(); // and nobody is the application
        wxApp::SetInstance(real);
    }
}
