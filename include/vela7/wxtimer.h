/// The timer of the wx back-end.
#pragma once

#include "vela7/system.h"
#include "vela7/wxexport.h"

#include <wx/timer.h>

namespace vela7 {

/// Ticks arrive through the application's event loop, one after the other until the timer is stopped.
///
/// The wx timer is its own owner, as wx makes it: wx calls Notify, no event table is involved. The last
/// handle may go inside a tick. Thread: GUI.
class VELA7_WX_API CwxSysTimer final : public CSysTimer, public wxTimer
{
public:
    /// There must be an application object.
    CwxSysTimer(int interval, bool start);
    ~CwxSysTimer() override;

    void SetEnabled(bool enabled) override;
    bool GetEnabled() const override;
    void SetInterval(int milliseconds) override;
    int GetInterval() const override { return m_interval; }

    /// wx calls it when the interval is over.
    void Notify() override;

private:
    void StartPeriodic() { wxTimer::Start(m_interval, wxTIMER_CONTINUOUS); }

    int m_interval; // kept while the timer is stopped
};

} // namespace vela7
