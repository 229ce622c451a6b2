#include "vela7/wxtimer.h"

#include "life/callout.h"

namespace vela7 {

CwxSysTimer::CwxSysTimer(int interval, bool start) : m_interval(interval)
{
    if (start)
        StartPeriodic();
}

CwxSysTimer::~CwxSysTimer()
{
    Stop();
}

void CwxSysTimer::SetEnabled(bool enabled)
{
    if (enabled)
        StartPeriodic(); // also restarts a running period
    else
        Stop();
}

bool CwxSysTimer::GetEnabled() const
{
    return IsRunning();
}

void CwxSysTimer::SetInterval(int milliseconds)
{
    m_interval = milliseconds;
    if (!IsRunning())
        return;
    Stop();
    StartPeriodic();
}

// A listener may drop the last handle: nothing of the timer is touched behind the delivery.
void CwxSysTimer::Notify()
{
    CTimerEvent event(this);
    CallOut([&] { FireEvent(typeid(ITimerNotify), handler_cast(&ITimerNotify::OnTimer), &event, true); });
}

} // namespace vela7
