/// Native controls inside toolkit windows.
///
/// Dies with its last handle or with the window that it lives in. Thread: GUI. Coordinates are client
/// coordinates of the parent window.
#pragma once

#include "basekit2/signal.h"
#include "vela7/cbase.h"
#include "vela7/eventsender.h"
#include "vela7/types.h"

#include <string>

namespace vela7 {

class VELA7_BASE_API ICustomControl : public CBase, public IEventSender
{
public:
    basekit2::_internal::signal_t<ICustomControl*> focus_in_signal;
    basekit2::_internal::signal_t<ICustomControl*> focus_out_signal;

    virtual void SetPos(int left, int top, int right, int bottom) = 0;
    virtual rectangle<int> GetPos() const = 0;
    virtual void SetVisible(bool visible) = 0;
    virtual bool GetVisible() const = 0;
    virtual void SetEnabled(bool enabled) = 0;
    virtual bool GetEnabled() const = 0;
    virtual void SetFocus() = 0;
    virtual bool GetFocused() const = 0;
    /// Focus that is not reported as coming from elsewhere.
    virtual void SetFocusEx() { SetFocus(); }
    virtual void UpdateState() {}
    virtual std::string AsString() const { return {}; }
    virtual void* GetNativeHandle() const = 0;
};

class VELA7_BASE_API ITextControl : public ICustomControl
{
public:
    virtual void SetText(const std::string& text) = 0;
    virtual std::string GetText() const = 0;
    std::string AsString() const override { return GetText(); }
};

} // namespace vela7
