// Toolkit timers in the running event loop.
#include "support/faults.h"
#include "support/waits.h"
#include "vela7/system.h"

#include <chrono>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace vela7;
using namespace vela7::test;
using std::chrono::milliseconds, std::chrono::steady_clock;

namespace {
struct Ticks : CSubscriber<ITimerNotify>
{
    explicit Ticks(int interval, bool start = true) : timer(GetCurrentSystem()->CreateTimer(interval, start))
    {
        Subscribe<ITimerNotify>(*timer, this);
        Subscribe<ITimerNotify>(*timer, this); // reached only by what is passed on
    }
    void OnTimer(CTimerEvent* event) override
    {
        EXPECT_EQ(static_cast<IEventSender*>(timer.Get()), event->sender);
        event->passOn = false;
        ++count;
        action();
    }
    bool Await(int number)
    {
        return WaitFor([&] { return count >= number; }, "the ticks");
    }
    CHandle<ISysTimer> timer;
    int count = 0;
    std::function<void()> action = [] {};
};
} // namespace

TEST(Timer, TicksUntilStopped)
{
    Ticks ticks(5000, false);
    ticks.timer->SetInterval(20);
    EXPECT_FALSE(ticks.timer->GetEnabled());
    EXPECT_TRUE(Ticks(25).Await(3));
    EXPECT_EQ(0, ticks.count);

    ticks.timer->SetEnabled(true);
    EXPECT_TRUE(ticks.Await(3));
    const int before = ticks.count;
    ticks.action = [&] { ticks.timer->SetEnabled(false); };
    EXPECT_TRUE(Ticks(25).Await(3));
    EXPECT_EQ(before + 1, ticks.count);
}

TEST(Timer, RestartsItsPeriod)
{
    for (const bool byInterval : {false, true}) {
        Ticks ticks(150);
        EXPECT_TRUE(Ticks(100).Await(1));
        const auto start = steady_clock::now();
        ticks.count = 0;
        byInterval ? ticks.timer->SetInterval(160) : ticks.timer->SetEnabled(true);
        EXPECT_TRUE(ticks.Await(1));
        EXPECT_GE(steady_clock::now() - start, milliseconds(byInterval ? 160 : 150));
    }
}

// The listener throws, and the next time it drops the last handle.
TEST(Timer, SurvivesItsListener)
{
    Ticks ticks(5);
    ticks.action = [&] {
        if (ticks.count == 1)
            throw std::runtime_error("out of time");
        ticks.timer.Reset();
    };
    EXPECT_TRUE(Ticks(15).Await(3));
    EXPECT_EQ(2, ticks.count);
    ExpectFaults(Fault::loop, 1, "out of time");
}
