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
    Work(
        std::string& f, bool dynamic, Action action = [] {})
        : m_fate(f), m_dynamic(dynamic), m_action(action)
    {
    }
    ~Work() override { Note('d'); }
    bool Run() override { return Note('r'), m_action(), true; } // asks for more, in vain
    bool IsDynamicRunnable() const override { return m_dynamic; }

private:
    void Note(char what) { m_fate += wxIsMainThread() ? what : '!'; }

    std::string& m_fate;
    const bool m_dynamic;
    const Action m_action;
};

class Synchronize : public WindowTest
{
};

} // namespace

TEST_F(Synchronize, FromEightThreads)
{
    constexpr int threads = 8, each = 10000;
    std::vector<std::string> fates(threads * each);
    std::vector<int> next(threads);
    int done = 0, outOfOrder = 0;
    const auto number = [&](int at) {
        return [&, at] { ++done, outOfOrder += next[at / each]++ != at % each; };
    };
    std::deque<Work> fixed;
    for (int at = 0; at < threads * each; at += 2)
        fixed.emplace_back(fates[at], false, number(at));
    std::vector<std::thread> running;
    for (int t = 0; t < threads; ++t)
        running.emplace_back([&, t] {
            for (int at = t * each; at < (t + 1) * each; ++at)
                window->Synchronize(at % 2 ? new Work(fates[at], true, number(at)) : &fixed[at / 2]);
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
    for (const bool byRunnable : {false, true})
        for (const bool byParent : {false, true}) {
            panel = new wxPanel(frame);
            window = new CwxSysWindow(panel, true, ISysWindow::wtNormal);
            std::string first, dynamic, kept, late;
            Work fixed(kept, false), tooLate(late, true);
            Recorder heard(window);
            heard.Hear<IWindowNotify>();
            heard.DoIn("destroy", [&](CEvent&) { window->Synchronize(&tooLate); });
            const CLifeWatch life = window->WatchLife();
            const Action end = [&] { byParent ? panel->Destroy() : Native(window)->Destroy(); };
            window->Synchronize(new Work(first, true, byRunnable ? end : Action([] {})));
            window->Synchronize(new Work(dynamic, true));
            window->Synchronize(&fixed);
            byRunnable ? void() : end();
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
    window->Synchronize(new Work(thrower, true, [] { throw std::runtime_error("a runnable's"); }));
    window->Synchronize(new Work(next, true));
    EXPECT_EQ("", thrower);
    Settle();
    ExpectFaults(Fault::loop, 1, "a runnable's");
    EXPECT_EQ("rd rd", thrower + ' ' + next);
}
