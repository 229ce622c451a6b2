#include "vela7/testing/fakesystem.h"

#include "desk.h"
#include "vela7/imagelist.h"
#include "vela7/testing/fakepicture.h"
#include "vela7/testing/fakewindow.h"

#include <algorithm>
#include <utility>

namespace vela7::testkit {

// Timers keep it, which may outlive their system.
struct FakeSystem::Clock
{
    long long now = 0; // milliseconds
    std::vector<FakeTimer*> timers;
};

namespace {

// There is one thread: it can neither wait nor be kept waiting.
class FakeLock final : public ILock
{
    void Enter() override {}
    void Leave() override {}
};

} // namespace

// ---- small services

void FakeClipboard::RaiseChangeEvent()
{
    CEvent event(this);
    FireEvent(typeid(IClipboardChangeNotify), handler_cast(&IClipboardChangeNotify::OnClipboardChange),
              &event, true);
}

bool FakeMouse::RegisterCursor(int id, int, int, Bits, Bits, int, int)
{
    cursors.insert(id);
    return true;
}

_color FakePalette::GetSystemColor(SysColor code) const
{
    const auto found = colors.find(code);
    return found != colors.end() ? found->second : GetBuiltinPalette()->GetSystemColor(code);
}

// ---- timers

FakeTimer::FakeTimer(std::shared_ptr<FakeSystem::Clock> clock, int milliseconds, bool start)
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

void FakeTimer::SetInterval(int milliseconds)
{
    m_interval = milliseconds;
    SetEnabled(m_enabled);
}

// ---- threads

void FakeRunner::Join()
{
    auto& all = m_system.m_runners;
    all.erase(std::find(all.begin(), all.end(), this));
    delete this;
}

// The runnable may have its runner joined.
bool FakeSystem::Work()
{
    const auto running = std::find_if(m_runners.begin(), m_runners.end(),
                                      [](const FakeRunner* runner) { return runner->IsRunning(); });
    if (running == m_runners.end())
        return false;
    FakeRunner* const runner = *running;
    struct Working
    {
        bool& flag;
        ~Working() { flag = false; }
    } working{m_working};
    m_working = true;
    const bool again = runner->m_work->Run();
    if (!again && std::find(m_runners.begin(), m_runners.end(), runner) != m_runners.end())
        runner->m_work = nullptr;
    return true;
}

bool FakeSystem::WorkToTheEnd()
{
    constexpr int limit = 1000000;
    int calls = 0;
    for (; calls < limit && Work(); ++calls)
        Settle();
    return calls < limit;
}

// ---- system

FakeSystem::FakeSystem()
    : user(*this), m_desk(std::make_unique<Desk>(*this)), m_clock(std::make_shared<Clock>()),
      m_previous(GetCurrentSystem()), m_previousPalette(GetSysPalette())
{
    SetCurrentSystem(this);
    SetSysPalette(&palette);
}

FakeSystem::~FakeSystem()
{
    m_desk.reset(); // with all windows, while the system is still the current one
    SetSysPalette(m_previousPalette);
    SetCurrentSystem(m_previous);
}

FakeWindow& FakeSystem::OpenWindow(int width, int height, const point<int>& place)
{
    const rectangle<int> area(place.x, place.y, place.x + width, place.y + height);
    auto* const frame = new FakeFrame(*m_desk, area); // the desk's
    return *new FakeWindow(*frame, {0, 0, width, height});
}

void FakeSystem::Settle()
{
    for (int passes = 0; passes < 100 && m_desk->Pass(); ++passes)
        continue;
}

// Each tick may start, stop, make and release timers: the next one is looked for anew.
void FakeSystem::Advance(int milliseconds)
{
    const long long end = m_clock->now + milliseconds;
    for (;;) {
        FakeTimer* next = nullptr;
        for (FakeTimer* timer : m_clock->timers)
            if (timer->m_enabled && timer->m_due <= (next ? next->m_due - 1 : end))
                next = timer;
        m_clock->now = next ? next->m_due : end;
        if (!next)
            break;
        next->m_due += std::max(1, next->m_interval);
        CTimerEvent event(next);
        next->FireEvent(typeid(ITimerNotify), handler_cast(&ITimerNotify::OnTimer), &event, true);
        Settle();
    }
    Settle();
}

const std::vector<FakeTimer*>& FakeSystem::Timers() const
{
    return m_clock->timers;
}

int FakeSystem::GetSystemMetrics(SystemMetrics metric)
{
    const int code = metric; // any integer may arrive
    return code >= smVScrollWidth && code <= smDoubleClickX ? metrics[code] : 0;
}

CHandle<ISysTimer> FakeSystem::CreateTimer(int milliseconds, bool start) const
{
    return CHandle<ISysTimer>(new FakeTimer(m_clock, milliseconds, start));
}

CHandle<IImageList> FakeSystem::CreateImageList() const
{
    return CHandle<IImageList>(new FakeImageList);
}

CHandle<IRasterPicture> FakeSystem::CreateRasterPicture(size<int> pixels) const
{
    return CHandle<IRasterPicture>(new FakeRasterPicture(pixels));
}

IRunner* FakeSystem::CreateRunner()
{
    return new FakeRunner(*this);
}

CHandle<ILock> FakeSystem::CreateLock()
{
    return CHandle<ILock>(new FakeLock);
}

} // namespace vela7::testkit
