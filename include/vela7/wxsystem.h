/// The system object of the wx back-end.
#pragma once

#include "vela7/system.h"
#include "vela7/wxexport.h"
#include "vela7/wxmouse.h"

namespace vela7 {

/// Answers the toolkit's questions about the platform, and is the mouse object as well.
///
/// There is one, SystemCreator; loading the library registers it. It works before wx is initialised and
/// without an application object: then sizes and counts are 0, the scale is 1.0, nothing is active, there are
/// no timers and no runners, and the clipboard is empty.
/// Thread: GUI, except IsMainThread, CreateRunner and CreateLock.
class VELA7_WX_API CwxSystem : public CSystem, public CwxMouse
{
public:
    CwxSystem();
    /// Deletes the installed palette, whoever installed it.
    ~CwxSystem() override;

    /// Part of this object; never null.
    IMouse* TakeMouse() const override;
    /// Empty without an application object.
    CHandle<ISysTimer> CreateTimer(int milliseconds, bool start) const override;
    CHandle<IImageList> CreateImageList() const override;
    /// The process's CwxClipboard, made at the first call, from whatever thread, and destroyed when the
    /// process exits, in the order of static objects; never null.
    IClipboard* TakeClipboard() const override;
    int GetSystemMetrics(SystemMetrics metric) override;
    /// An index without a monitor raises wx's own assertion.
    screen_rectangle<int> GetDesktopRect(int monitor) const override;
    double GetDPIScale() const override;
    /// Always false.
    bool IsXpStylesSupported() const override;
    /// Does nothing.
    void SetXpStylesSupport(bool supported) override;
    CHandle<IRasterPicture> CreateRasterPicture(size<int> pixels) const override;
    int GetMonitorsCount() const override;
    font GetDefaultFont() const override;
    bool IsAppActive() const override;
    /// Null while wx is not initialised.
    IRunner* CreateRunner() override;
    CHandle<ILock> CreateLock() override;
    /// True as long as wx has not recorded its main thread.
    bool IsMainThread() const override;
};

/// The class of the one system object; adds nothing to CwxSystem.
class VELA7_WX_API CSystemCreator final : public CwxSystem
{
public:
    CSystemCreator();
    ~CSystemCreator() override;
};

/// The system object. Loading the library registers it with the toolkit; it lives until the process ends.
VELA7_WX_API extern CSystemCreator SystemCreator;

} // namespace vela7
