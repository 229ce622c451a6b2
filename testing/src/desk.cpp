#include "desk.h"

#include "vela7/testing/fakepopup.h"
#include "vela7/testing/fakewindow.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace vela7::testkit {

namespace {

struct DropRunnable
{
    void operator()(IRunnable* runnable) const
    {
        if (runnable->IsDynamicRunnable())
            delete runnable;
    }
};
using RunnableOwner = std::unique_ptr<IRunnable, DropRunnable>;

} // namespace

Desk::~Desk()
{
    while (!frames.empty())
        delete frames.back();
}

// Who loses the focus is told first, and may give it to yet another one, or end the one who is to get it.
void Desk::SetFocus(FakeNative* to)
{
    if (to == m_focus)
        return;
    FakeNative* const from = std::exchange(m_focus, to);
    if (from)
        from->FocusOut(to);
    if (to && m_focus == to)
        to->FocusIn();
}

void Desk::Forget(FakeNative& native)
{
    if (m_focus == &native)
        m_focus = nullptr;
    for (auto* const list : {&frames, &m_ended})
        list->erase(std::remove(list->begin(), list->end(), &native), list->end());
}

void Desk::DropWork(const FakeWindow& window)
{
    std::vector<RunnableOwner> dropped; // they go when the queue is in order again
    const auto mine = [&](const Work& work) {
        if (work.window == &window)
            dropped.emplace_back(work.runnable);
        return work.window == &window;
    };
    m_work.erase(std::remove_if(m_work.begin(), m_work.end(), mine), m_work.end());
}

bool Desk::Pass()
{
    const bool ran = RunQueued();
    const bool ended = EndAll();
    return PaintAll() || ran || ended;
}

// What is queued meanwhile waits for the next pass.
bool Desk::RunQueued()
{
    const std::size_t count = m_work.size();
    for (std::size_t i = 0; i < count && !m_work.empty(); ++i) {
        const Work work = m_work.front();
        m_work.pop_front();
        const RunnableOwner owner(work.runnable);
        work.window->Run(*work.runnable);
    }
    return count > 0;
}

bool Desk::EndAll()
{
    bool any = false;
    const std::vector<FakeNative*> ended = m_ended; // each may end others
    for (FakeNative* const native : ended)
        if (std::find(m_ended.begin(), m_ended.end(), native) != m_ended.end() && !native->IsInUse()) {
            delete native;
            any = true;
        }
    return any;
}

bool Desk::PaintAll()
{
    std::vector<CHandle<FakeWindow>> damaged;
    for (FakeNative* const frame : frames)
        Collect(*frame, damaged);
    for (const CHandle<FakeWindow>& window : damaged)
        if (window)
            window->PaintDamage();
    return !damaged.empty();
}

void Desk::Collect(FakeNative& native, std::vector<CHandle<FakeWindow>>& damaged)
{
    if (!native.m_visible)
        return;
    auto* const window = dynamic_cast<FakeWindow*>(&native);
    if (window && window->WantsPaint())
        damaged.emplace_back(window);
    for (FakeNative* const child : native.m_children)
        Collect(*child, damaged);
}

FakeNative* Desk::At(const point<int>& screen) const
{
    for (auto popup = popups.rbegin(); popup != popups.rend(); ++popup)
        if (FakeNative* const hit = DeepestAt(**popup, screen))
            return hit;
    for (auto frame = frames.rbegin(); frame != frames.rend(); ++frame)
        if (FakeNative* const hit = DeepestAt(**frame, screen))
            return hit;
    return nullptr;
}

// Later children lie on earlier ones.
FakeNative* Desk::DeepestAt(FakeNative& native, const point<int>& screen)
{
    const point<int> origin = native.Origin();
    const rectangle<int> area(0, 0, native.m_rect.Width(), native.m_rect.Height());
    if (!native.IsOnScreen() || !area.Contains({screen.x - origin.x, screen.y - origin.y}))
        return nullptr;
    const auto& children = native.m_children;
    for (auto child = children.rbegin(); child != children.rend(); ++child)
        if (FakeNative* const hit = (*child)->IsTopLevel() ? nullptr : DeepestAt(**child, screen))
            return hit;
    return &native;
}

// To the next one beside `from` that takes the focus, round the list.
void Desk::NavigateIn(const FakeNative& parent, const FakeNative& from, bool forward)
{
    const auto& all = parent.m_children;
    const std::size_t count = all.size();
    auto at = static_cast<std::size_t>(std::find(all.begin(), all.end(), &from) - all.begin());
    for (std::size_t tried = 1; tried < count; ++tried) {
        at = (at + (forward ? 1 : count - 1)) % count;
        if (all[at]->AcceptsFocus() && all[at]->IsUsable()) {
            SetFocus(all[at]);
            return;
        }
    }
}

} // namespace vela7::testkit
