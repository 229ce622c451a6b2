/// A system without a platform: its clock, its event loop, its threads and its user are the test's.
///
///     FakeSystem system;                                // the current one, until it dies
///     FakeWindow& window = system.OpenWindow(200, 100);
///     MyControl control(window);                        // subscribes, as on a real window
///     system.user.Click(window, 5, 5);                  // see user.h
///     system.Advance(500);                              // timers tick
///
/// What works: timers, clipboard, runners and locks, pictures and icons (fakepicture.h), the palette, the
/// mouse's position, registered cursors. What deliberately does not: nothing happens by itself, no time
/// passes, there is no second thread. Input arrives at once; paints, runnables and ends that were put off
/// wait for Settle. Exceptions of listeners reach the test. Made by the test; windows end with it at the
/// latest. Thread: one.
#pragma once

#include "vela7/palette.h"
#include "vela7/system.h"
#include "vela7/testing/export.h"
#include "vela7/testing/user.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace vela7::testkit {

class Desk;
class FakeRunner;
class FakeTimer;
class FakeWindow;

/// Keeps its text; the change is told by RaiseChangeEvent only, as in the wx back-end.
class VELA7_TESTING_API FakeClipboard final : public CClipboard
{
public:
    std::string text;

    void SetText(const std::string& value) override { text = value; }
    std::string GetText() const override { return text; }
    void Clear() override { text.clear(); }
    void RaiseChangeEvent();
};

/// Stays where the user has put it.
class VELA7_TESTING_API FakeMouse final : public IMouse
{
public:
    point<int> position; ///< on the screen; the user's hands move it
    std::set<int> cursors;

    using Bits = const unsigned char*;
    void SetPos(const point<int>&) override {}
    point<int> GetPos() const override { return position; }
    bool RegisterCursor(int id, int, int, Bits, Bits, int, int) override;
    bool UnregisterCursor(int id) override { return cursors.erase(id) > 0; }
};

/// The built-in colours, but for those that the test sets.
class VELA7_TESTING_API FakePalette final : public ISysPalette
{
public:
    std::map<SysColor, _color> colors;

    _color GetSystemColor(SysColor code) const override;
};

class VELA7_TESTING_API FakeSystem : public CSystem
{
public:
    bool appActive = true;
    double dpiScale = 1.0;
    int metrics[4] = {16, 13, 13, 5}; ///< by SystemMetrics, pixels
    screen_rectangle<int> desktop{0, 0, 1279, 1023};
    mutable FakeMouse mouse;
    mutable FakeClipboard clipboard;
    FakePalette palette; ///< installed as long as this system is the current one
    User user;

    FakeSystem();
    ~FakeSystem() override;
    FakeSystem(const FakeSystem&) = delete;
    FakeSystem& operator=(const FakeSystem&) = delete;

    /// A window that fills a frame of its own, at this place of the screen, on top of the others. Nothing is
    /// painted yet, and nobody has the focus.
    FakeWindow& OpenWindow(int width = 400, int height = 300, const point<int>& place = {100, 100});

    // ---- the event loop

    /// Passes without timers, until nothing is left to do, or a hundred: runs what Synchronize was given,
    /// ends what wants to end, paints what is damaged.
    void Settle();
    /// Lets time pass; timers tick when they are due, in that order, and the loop settles after each.
    void Advance(int milliseconds);
    /// The timers that are alive, oldest first.
    const std::vector<FakeTimer*>& Timers() const;

    // ---- threads: they run here, when the test says so

    /// The runners that were not joined yet, oldest first.
    const std::vector<FakeRunner*>& Runners() const { return m_runners; }
    /// One call of the runnable of the oldest runner that runs; IsMainThread is false meanwhile. False when
    /// none runs.
    bool Work();
    /// Works and settles until no runner runs; false when that takes more than a million calls.
    bool WorkToTheEnd();

    // ---- ISystem
    IMouse* TakeMouse() const override { return &mouse; }
    CHandle<ISysTimer> CreateTimer(int milliseconds, bool start) const override;
    CHandle<IImageList> CreateImageList() const override;
    IClipboard* TakeClipboard() const override { return &clipboard; }
    int GetSystemMetrics(SystemMetrics metric) override;
    screen_rectangle<int> GetDesktopRect(int) const override { return desktop; }
    double GetDPIScale() const override { return dpiScale; }
    bool IsXpStylesSupported() const override { return false; }
    void SetXpStylesSupport(bool) override {}
    CHandle<IRasterPicture> CreateRasterPicture(size<int> pixels) const override;
    int GetMonitorsCount() const override { return 1; }
    font GetDefaultFont() const override { return {}; }
    bool IsAppActive() const override { return appActive; }
    IRunner* CreateRunner() override;
    CHandle<ILock> CreateLock() override;
    bool IsMainThread() const override { return !m_working; }

private:
    friend class FakeRunner;
    friend class User;
    struct Clock;
    friend class FakeTimer;

    std::unique_ptr<Desk> m_desk;
    std::shared_ptr<Clock> m_clock;
    std::vector<FakeRunner*> m_runners;
    bool m_working = false;
    ISystem* m_previous;
    ISysPalette* m_previousPalette;
};

class VELA7_TESTING_API FakeTimer final : public CSysTimer
{
public:
    FakeTimer(std::shared_ptr<FakeSystem::Clock> clock, int milliseconds, bool start);
    ~FakeTimer() override;

    void SetEnabled(bool enabled) override;
    bool GetEnabled() const override { return m_enabled; }
    void SetInterval(int milliseconds) override;
    int GetInterval() const override { return m_interval; }

private:
    friend class FakeSystem;

    std::shared_ptr<FakeSystem::Clock> m_clock;
    int m_interval;
    bool m_enabled = false;
    long long m_due = 0;
};

/// A thread that runs inside FakeSystem::Work. Sleeping costs it nothing.
class VELA7_TESTING_API FakeRunner final : public IRunner
{
public:
    explicit FakeRunner(FakeSystem& system) : m_system(system) { system.m_runners.push_back(this); }

    void Run(IRunnable* runnable) override { m_work = runnable; }
    void Join() override;
    void Sleep(unsigned long) override {}
    bool IsRunning() const override { return m_work != nullptr; }

private:
    friend class FakeSystem;

    FakeSystem& m_system;
    IRunnable* m_work = nullptr;
};

} // namespace vela7::testkit
