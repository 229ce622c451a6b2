/// A system object without a platform, with a clock that the test moves.
///
/// It is the current system from construction to destruction; the one before comes back then. Timers tick
/// inside Advance only. Services that have no fake answer empty handles and null.
#pragma once

#include "vela7/system.h"

#include <memory>
#include <vector>

namespace vela7::seam {

class FakeTimer;

/// The time of a FakeSystem, in milliseconds; its timers keep it.
struct Clock
{
    long long now = 0;
    std::vector<FakeTimer*> timers; // alive ones; each removes itself
};

class FakeTimer : public CSysTimer
{
public:
    FakeTimer(std::shared_ptr<Clock> clock, int milliseconds, bool start);
    ~FakeTimer() override;

    void SetEnabled(bool enabled) override;
    bool GetEnabled() const override { return m_enabled; }
    void SetInterval(int milliseconds) override { m_interval = milliseconds, SetEnabled(m_enabled); }
    int GetInterval() const override { return m_interval; }

private:
    friend class FakeSystem;

    std::shared_ptr<Clock> m_clock;
    int m_interval;
    bool m_enabled = false;
    long long m_due = 0;
};

/// Stays where it is; takes every cursor and keeps none.
class FakeMouse : public IMouse
{
public:
    using Bytes = const unsigned char*;

    void SetPos(const point<int>&) override {}
    point<int> GetPos() const override { return {}; }
    bool RegisterCursor(int, int, int, Bytes, Bytes, int, int) override { return true; }
    bool UnregisterCursor(int) override { return false; }
};

class FakeSystem : public CSystem
{
public:
    bool appActive = true;
    mutable FakeMouse mouse;

    FakeSystem();
    ~FakeSystem() override;
    FakeSystem(const FakeSystem&) = delete;
    FakeSystem& operator=(const FakeSystem&) = delete;

    /// Lets time pass; running timers tick when they are due, in that order.
    void Advance(int milliseconds);
    /// The timers that are alive, oldest first.
    const std::vector<FakeTimer*>& Timers() const { return m_clock->timers; }

    IMouse* TakeMouse() const override { return &mouse; }
    CHandle<ISysTimer> CreateTimer(int milliseconds, bool start) const override;
    CHandle<IImageList> CreateImageList() const override { return {}; }
    IClipboard* TakeClipboard() const override { return nullptr; }
    int GetSystemMetrics(SystemMetrics) override { return 0; }
    screen_rectangle<int> GetDesktopRect(int) const override { return {0, 0, 1919, 1079}; }
    double GetDPIScale() const override { return 1.0; }
    bool IsXpStylesSupported() const override { return false; }
    void SetXpStylesSupport(bool) override {}
    CHandle<IRasterPicture> CreateRasterPicture(size<int>) const override { return {}; }
    int GetMonitorsCount() const override { return 1; }
    font GetDefaultFont() const override { return {}; }
    bool IsAppActive() const override { return appActive; }
    IRunner* CreateRunner() override { return nullptr; }
    CHandle<ILock> CreateLock() override { return {}; }
    bool IsMainThread() const override { return true; }

private:
    std::shared_ptr<Clock> m_clock = std::make_shared<Clock>();
    ISystem* m_previous;
};

} // namespace vela7::seam
