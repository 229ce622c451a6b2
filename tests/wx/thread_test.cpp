// Worker threads and locks. Meant for the thread sanitizer as well.
#include "basekit2/mutex.h"
#include "support/waits.h"
#include "vela7/system.h"

#include <atomic>
#include <fstream>
#include <future>
#include <gtest/gtest.h>
#include <sched.h>
#include <wx/app.h>

using namespace vela7;
using namespace vela7::test;

namespace {
void Nothing() {}

struct Work : IRunnable
{
    explicit Work(int number, std::function<void()> function = Nothing) : last(number), work(function) {}
    bool Run() override { return work(), ++calls < last; }
    bool IsDynamicRunnable() const override { return ADD_FAILURE() << "a runner asked", false; }
    const int last;
    const std::function<void()> work;
    std::atomic<int> calls{0};
};
constexpr int forever = 1 << 30;
const auto Runner = [] { return GetCurrentSystem()->CreateRunner(); };

void AwaitEnd(const IRunner* runner)
{
    EXPECT_TRUE(WaitFor([&] { return !runner->IsRunning(); }, "the end of the work"));
}

struct Ear : wxAppConsole
{
    void OnUnhandledException() override { throw ++heard; }
    int heard = 0;
};
} // namespace

TEST(Runner, CallsOneRunnableUntilFalse)
{
    const CHandle<ILock> lock = GetCurrentSystem()->CreateLock();
    int counter = 0, inside = 0; // of two threads
    Work adding(300, [&] { lock->Enter(), counter += ++inside, sched_yield(), --inside, lock->Leave(); });
    Work single(1), ignored(1);
    std::pair<IRunner*, Work*> const started[] = {
        {Runner(), &adding}, {Runner(), &adding}, {Runner(), &single}};
    for (const auto& [runner, work] : started)
        runner->Run(nullptr), runner->Run(work), runner->Run(&ignored);
    for (const auto& [runner, work] : started)
        AwaitEnd(runner), runner->Run(&ignored), runner->Join();
    EXPECT_EQ(adding.calls, counter);
    EXPECT_EQ(1, single.calls);
    EXPECT_EQ(0, ignored.calls);
}

TEST(Runner, JoinWaitsAndFrees)
{
    long before = 0, after = 0; // pages: a thread that nobody waited for keeps its stack of 8 MB
    std::ifstream("/proc/self/statm") >> before;
    for (int i = 0; i < 1000; ++i) {
        Work work(i % 2 ? forever : 1);
        IRunner* const runners[] = {Runner(), Runner()}; // one never runs
        runners[0]->Run(&work);
        if (i % 4 == 0)
            AwaitEnd(runners[0]); // a thread that is through is waited for as well
        for (IRunner* const runner : runners)
            runner->Join();
        EXPECT_LE(work.calls, work.last);
    }
    std::ifstream("/proc/self/statm") >> after;
    EXPECT_LT(after - before, 250000);
}

TEST(Runner, ReportsExceptionsToTheApplication)
{
    wxAppConsole* const application = wxApp::GetInstance();
    for (const bool present : {true, false}) {
        std::promise<void> called;
        Work failing(1, [&] { throw(called.set_value(), 1); });
        IRunner* const runner = Runner();
        auto ear = std::make_unique<Ear>(); // the application from here on
        wxApp::SetInstance(present ? ear.get() : nullptr);
        runner->Run(&failing);
        called.get_future().wait();
        runner->Join();
        EXPECT_EQ(present ? 1 : 0, ear->heard);
        ear.reset();
        wxApp::SetInstance(application);
    }
}

TEST(Runner, IsJoinedByWorkers)
{
    IRunner *const outer = Runner(), *const inner = Runner();
    Work endless(forever), joining(forever, [&] { inner->Join(), outer->Join(); }); // itself it only stops
    inner->Run(&endless), outer->Run(&joining);
    AwaitEnd(outer);
    EXPECT_EQ(1, joining.calls);
    outer->Join();
}

TEST(Mutex, IsTakenOrNot)
{
    basekit2::threading::mutex_t mutex;
    ASSERT_TRUE(mutex.try_lock());
    EXPECT_FALSE(std::async(std::launch::async, [&] { return mutex.try_lock(); }).get());
    mutex.unlock();
}
