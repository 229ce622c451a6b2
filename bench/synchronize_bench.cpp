// Work queued for the GUI thread from four threads at once, until all of it has run; against wx's CallAfter.

#include "scenes.h"

#include "vela7/wxsyswindow.h"

#include <wx/evtloop.h>
#include <wx/frame.h>

#include <memory>
#include <thread>
#include <vector>

namespace {

using namespace vela7;
using namespace vela7::bench;

constexpr int kThreads = 4, kEach = 2500;

class Count : public IRunnable
{
public:
    explicit Count(int& done) : m_done(done) {}
    bool Run() override
    {
        ++m_done;
        return true;
    }

private:
    int& m_done;
};

// queue: hands one piece of work over.
template <class Queue>
void Run(benchmark::State& state, const int& done, Queue queue)
{
    wxEventLoop loop;
    const wxEventLoopActivator active(&loop);
    int expected = 0;
    const AllocationCounter counter(state);
    for (auto _ : state) {
        std::vector<std::thread> threads;
        threads.reserve(kThreads);
        for (int i = 0; i < kThreads; ++i)
            threads.emplace_back([&queue] {
                for (int n = 0; n < kEach; ++n)
                    queue();
            });
        expected += kThreads * kEach;
        while (done < expected)
            loop.Dispatch();
        for (std::thread& thread : threads)
            thread.join();
    }
    if (done != expected)
        state.SkipWithError("not everything ran once");
}

void SynchronizeToolkit(benchmark::State& state)
{
    Stage stage;
    auto* const window = new CwxSysWindow(stage.Frame(), false, ISysWindow::wtNormal);
    int done = 0;
    Run(state, done, [&] { window->Synchronize(new Count(done)); });
}
BENCHMARK(SynchronizeToolkit)->Name("synchronize/toolkit");

void SynchronizeWx(benchmark::State& state)
{
    Stage stage;
    auto* const window = new wxWindow(stage.Frame(), wxID_ANY);
    int done = 0;
    // The same guarantee: the runnable goes with the last event that carries it, run or not.
    Run(state, done,
        [&] { window->CallAfter([work = std::shared_ptr<IRunnable>(new Count(done))] { work->Run(); }); });
}
BENCHMARK(SynchronizeWx)->Name("synchronize/wx");

} // namespace
