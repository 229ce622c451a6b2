#include "fakesystem.h"

#include <algorithm>

namespace vela7::seam {

FakeTimer::FakeTimer(std::shared_ptr<Clock> clock, int milliseconds, bool start)
    : m_clock(std::move(clock)), m_interval(milliseconds)
{
    m_clock->timers.push_back(this);
    if (start)
        SetEnabled(true);
}

FakeTimer::~FakeTimer()
{
    auto& timers = m_clock->timers;
    timers.erase(std::find(timers.begin(), timers.end(), this));
}

void FakeTimer::SetEnabled(bool enabled)
{
    m_enabled = enabled;
    m_due = m_clock->now + std::max(1, m_interval);
}

FakeSystem::FakeSystem() : m_previous(GetCurrentSystem())
{
    SetCurrentSystem(this);
}

FakeSystem::~FakeSystem()
{
    SetCurrentSystem(m_previous);
}

CHandle<ISysTimer> FakeSystem::CreateTimer(int milliseconds, bool start) const
{
    return CHandle<ISysTimer>(new FakeTimer(m_clock, milliseconds, start));
}

// Each tick may start, stop, make and release timers: the next one is looked for anew.
void FakeSystem::Advance(int milliseconds)
{
    const long long end = m_clock->now + milliseconds;
    for (FakeTimer* next = nullptr;; next = nullptr) {
        for (FakeTimer* timer : m_clock->timers)
            if (timer->m_enabled && timer->m_due <= (next ? next->m_due - 1 : end))
                next = timer;
        m_clock->now = next ? next->m_due : end;
        if (!next)
            return;
        next->m_due += std::max(1, next->m_interval);
        CTimerEvent event(next);
        next->FireEvent(typeid(ITimerNotify), handler_cast(&ITimerNotify::OnTimer), &event, true);
    }
}

} // namespace vela7::seam
