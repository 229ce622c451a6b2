// Work handed to the GUI thread: run once, deleted once or never, whatever happens to the window meanwhile.
#include "windowhelpers.h"

#include <deque>
#include <stdexcept>
#include <thread>

using namespace vela7;
using namespace vela7::test;

namespace {

using Action = std::function<void()>;

// Notes what becomes of it: 'r' for a run, 'd' for its deletion. Not locked: only the GUI thread may do that.
class Work : public IRunnable
{
public:
    Work(std::string& f, bool dynamic, Action action = {}) : m_fate(f), m_dynamic(dynamic), m_action(action)
    {
    }
    ~Work() override { Note('d'); }
    bool Run() override
    {
        Note('r');
        if (m_action)
            m_action();
        return true; // asks for more, in vain
    }
    bool IsDynamicRunnable() const override { return m_dynamic; }

private:
    void Note(char what) { m_fate += wxIsMainThread() ? what : '!'; }

    std::string& m_fate;
    const bool m_dynamic;
    const Action m_action;
};

} // namespace

class Synchronize : public WindowTest
{
protected:
    // From another thread.
    void Queue(const std::vector<IRunnable*>& runnables)
    {
        std::thread([&] {
            for (IRunnable* runnable : runnables)
                window->Synchronize(runnable);
        }).join();
    }
};

TEST_F(Synchronize, FromEightThreads)
{
    constexpr int threads = 8, each = 10000;
    std::vector<std::string> fates(threads * each);
    std::vector<int> next(threads);
    int done = 0, outOfOrder = 0;
    const auto number = [&](int thread, int i) {
        return [&, thread, i] { ++done, outOfOrder += next[thread]++ != i; };
    };
    std::deque<Work> fixed;
    for (int at = 0; at < threads * each; at += 2)
        fixed.emplace_back(fates[at], false, number(at / each, at % each));
    std::vector<std::thread> running;
    for (int t = 0; t < threads; ++t)
        running.emplace_back([&, t] {
            for (int i = 0; i < each; ++i) {
                const int at = t * each + i;
                window->Synchronize(i % 2 ? new Work(fates[at], true, number(t, i)) : &fixed[at / 2]);
            }
        });
    WaitFor([&] { return done >= threads * each; }, "80,000 runnables", 100000);
    for (std::thread& thread : running)
        thread.join();
    Settle();
    EXPECT_EQ(0, outOfOrder) << "of those of one thread";
    for (int at = 0; at < threads * each; ++at)
        ASSERT_EQ(at % 2 ? "rd" : "r", fates[at]) << at;
}

TEST_F(Synchronize, WindowEndsFirst)
{
    const std::pair<const char*, Action> ends[] = {
        {"destroyed", [&] { native->Destroy(); }},
        {"deleted", [&] { delete native; }},
        {"parent", [&] { panel->Destroy(); }},
    };
    for (const auto& [name, end] : ends)
        for (const bool byRunnable : {false, true}) {
            SCOPED_TRACE(name + std::string(byRunnable ? " by a runnable" : ""));
            panel = new wxPanel(frame);
            window = new CwxSysWindow(panel, true, ISysWindow::wtNormal);
            native = Native(window);
            std::string first, dynamic, kept, late;
            Work fixed(kept, false), tooLate(late, true);
            Recorder heard(window);
            heard.Hear<IWindowNotify>();
            heard.DoIn("destroy", [&](CEvent&) { Queue({&tooLate}); });
            const CLifeWatch life = window->WatchLife();
            Queue({new Work(first, true, byRunnable ? end : Action()), new Work(dynamic, true), &fixed});
            if (!byRunnable)
                end();
            EXPECT_EQ(byRunnable, life.IsAlive());
            Settle();
            EXPECT_FALSE(life.IsAlive());
            EXPECT_EQ(byRunnable ? "rd" : "d", first);
            EXPECT_EQ("d", dynamic);
            EXPECT_EQ("", kept + late);
        }
}

TEST_F(Synchronize, ThrowingRunnable)
{
    std::string thrower, next;
    const auto fail = [] { throw std::runtime_error("a runnable's"); };
    Queue({new Work(thrower, true, fail), new Work(next, true)});
    EXPECT_EQ("", thrower);
    Settle();
    ExpectFaults(Fault::loop, 1, "a runnable's");
    EXPECT_EQ("rd", thrower);
    EXPECT_EQ("rd", next);
}
