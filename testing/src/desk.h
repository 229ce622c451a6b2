/// What there is once for all windows of a system: focus, captures, popups, work for later.
#pragma once

#include "vela7/system.h"
#include "vela7/testing/fakenative.h"

#include <deque>
#include <vector>

namespace vela7::testkit {

class FakePopup;
class FakeSystem;
class FakeWindow;

class Desk
{
public:
    explicit Desk(FakeSystem& system) : system(system) {}
    ~Desk();

    FakeSystem& system;
    std::vector<FakeNative*> frames;   // top-level windows, the last one on top
    std::vector<FakePopup*> popups;    // that are shown, the last one on top
    std::vector<FakeWindow*> captures; // the last one has the mouse

    FakeNative* Focus() const { return m_focus; }
    void SetFocus(FakeNative* to);
    /// It dies.
    void Forget(FakeNative& native);
    /// Deletes it in one of the next passes.
    void EndLater(FakeNative& native) { m_ended.push_back(&native); }
    /// One that is gone by then is not run; runnables that say so are deleted.
    void Queue(FakeWindow& window, IRunnable& runnable) { m_work.push_back({&window, &runnable}); }
    /// The window dies: its runnables go.
    void DropWork(const FakeWindow& window);
    /// One pass of the event loop, without timers; false when there was nothing to do.
    bool Pass();
    /// The deepest one at this place of the screen; null when there is none.
    FakeNative* At(const point<int>& screen) const;
    /// Moves the focus on from a child of the parent.
    void NavigateIn(const FakeNative& parent, const FakeNative& from, bool forward);

private:
    struct Work
    {
        FakeWindow* window;
        IRunnable* runnable;
    };

    bool RunQueued();
    bool EndAll();
    bool PaintAll();
    static void Collect(FakeNative& native, std::vector<CHandle<FakeWindow>>& damaged);
    static FakeNative* DeepestAt(FakeNative& native, const point<int>& screen);

    FakeNative* m_focus = nullptr;
    std::vector<FakeNative*> m_ended;
    std::deque<Work> m_work;
};

} // namespace vela7::testkit
