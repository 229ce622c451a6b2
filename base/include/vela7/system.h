/// The system object: through it toolkit code reaches every service of the platform.
///
/// A back-end registers its one system object while it is loaded; nobody deletes it.
/// Thread: GUI, except IsMainThread, CreateRunner and CreateLock, which may be called anywhere.
#pragma once

#include "vela7/cbase.h"
#include "vela7/eventsender.h"
#include "vela7/types.h"

#include <string>

namespace vela7 {

class IImageList;
class IRasterPicture;

/// The pointer and the registered cursors. Kept by the system object.
class VELA7_BASE_API IMouse
{
public:
    virtual ~IMouse() = default;
    virtual void SetPos(const point<int>& screen) = 0;
    /// Screen coordinates.
    virtual point<int> GetPos() const = 0;
    /// Registers a cursor of width x height pixels under an id above the standard ones; one bit a pixel, rows
    /// padded to bytes. True.
    virtual bool RegisterCursor(int id, int width, int height, const unsigned char* andBits,
                                const unsigned char* xorBits, int hotX, int hotY) = 0;
    /// False when the id was not registered.
    virtual bool UnregisterCursor(int id) = 0;
};

/// A periodic timer; ticks arrive at ITimerNotify on the GUI thread. Dies with its last handle.
class VELA7_BASE_API ISysTimer : public CBase, public IEventSender
{
public:
    /// True starts it, or restarts the period when it runs.
    virtual void SetEnabled(bool enabled) = 0;
    virtual bool GetEnabled() const = 0;
    /// Milliseconds. A running timer is restarted, a stopped one stays stopped.
    virtual void SetInterval(int milliseconds) = 0;
    virtual int GetInterval() const = 0;
};

class VELA7_BASE_API CSysTimer : public CImplEventSender<ISysTimer>
{
public:
    CSysTimer() { SetSupportedEvent(typeid(ITimerNotify)); }
};

/// A mutual-exclusion lock, not recursive. Any thread; dies with its last handle.
class VELA7_BASE_API ILock : public CBase
{
public:
    virtual void Enter() = 0;
    virtual void Leave() = 0;
};

/// A piece of work for a runner or for ISynchronize.
class VELA7_BASE_API IRunnable
{
public:
    virtual ~IRunnable() = default;
    /// True asks a runner to call again; ISynchronize ignores it.
    virtual bool Run() = 0;
    /// True: ISynchronize deletes it after use. Runners never delete.
    virtual bool IsDynamicRunnable() const { return true; }
};

/// A worker thread.
class VELA7_BASE_API IRunner
{
public:
    virtual ~IRunner() = default;
    /// Starts calling the runnable until it answers false. Null: does nothing.
    virtual void Run(IRunnable* runnable) = 0;
    /// Asks the thread to stop, waits for it, and deletes this runner.
    virtual void Join() = 0;
    /// Puts the calling thread to sleep.
    virtual void Sleep(unsigned long milliseconds) = 0;
    virtual bool IsRunning() const = 0;
};

/// The text clipboard; reports IClipboardChangeNotify. Kept by the system object.
class VELA7_BASE_API IClipboard : public IEventSender
{
public:
    virtual void SetText(const std::string& text) = 0;
    /// Empty when there is no text.
    virtual std::string GetText() const = 0;
    virtual void Clear() = 0;
};

class VELA7_BASE_API CClipboard : public CImplEventSender<IClipboard>
{
public:
    CClipboard() { SetSupportedEvent(typeid(IClipboardChangeNotify)); }
};

class VELA7_BASE_API ISystem
{
public:
    /// A plain integer underneath; unknown codes answer 0.
    enum SystemMetrics : int
    {
        smVScrollWidth = 0, ///< all in pixels
        smCheckBoxWidth = 1,
        smCheckBoxHeight = 2,
        smDoubleClickX = 3
    };

    virtual ~ISystem() = default;
    virtual IMouse* TakeMouse() const = 0;
    virtual CHandle<ISysTimer> CreateTimer(int milliseconds, bool start) const = 0;
    virtual CHandle<IImageList> CreateImageList() const = 0;
    virtual IClipboard* TakeClipboard() const = 0;
    virtual int GetSystemMetrics(SystemMetrics metric) = 0;
    /// The work area of a monitor; right and bottom are inclusive.
    virtual screen_rectangle<int> GetDesktopRect(int monitor) const = 0;
    /// 1.0 or more.
    virtual double GetDPIScale() const = 0;
    virtual bool IsXpStylesSupported() const = 0;
    virtual void SetXpStylesSupport(bool supported) = 0;
    virtual CHandle<IRasterPicture> CreateRasterPicture(size<int> pixels) const = 0;
    virtual int GetMonitorsCount() const = 0;
    virtual font GetDefaultFont() const = 0;
    virtual bool IsAppActive() const = 0;
    /// The caller owns the runner; its Join deletes it.
    virtual IRunner* CreateRunner() = 0;
    virtual CHandle<ILock> CreateLock() = 0;
    virtual bool IsMainThread() const = 0;
    virtual double GetDBUScale() const { return 1.0; }
};

/// What back-ends derive their system object from.
class VELA7_BASE_API CSystem : public ISystem
{
};

/// Null when no back-end is loaded. Late in process exit the object may be gone already: do not call from
/// destructors of static objects.
VELA7_BASE_API ISystem* GetCurrentSystem();
/// Not owned.
VELA7_BASE_API void SetCurrentSystem(ISystem* system);

/// Bits of the automatic DPI scaling.
enum DPIAutoScale : unsigned
{
    asPainters = 1, ///< painters start scaled by their DPI scale
    asImages = 2    ///< image lists and animations scale their pixels
};

/// DPIAutoScale bits; 0 unless set.
VELA7_BASE_API unsigned GetDPIAutoScale();
VELA7_BASE_API void SetDPIAutoScale(unsigned bits);

/// The font for native controls; size 0 or less (the default) means: leave theirs.
VELA7_BASE_API font GetDefaultGUIFont();
VELA7_BASE_API void SetDefaultGUIFont(const font& value);

} // namespace vela7
