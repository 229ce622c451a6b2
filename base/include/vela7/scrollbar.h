/// Scroll bars.
///
/// Created by ISysWindow::CreateScrollBar; dies with its last handle or with its window. Thread: GUI.
#pragma once

#include "vela7/customcontrol.h"

namespace vela7 {

/// Range, steps and position, in the units of whoever scrolls.
struct ScrollInfo
{
    unsigned mask = 0; ///< not used by scroll bars
    double min = 0.0;
    double max = 0.0;
    double line = 0.0;
    double page = 0.0;
    double pos = 0.0;
    bool disableNoScroll = false;
};

/// The action codes of CScrollEvent; 4 is never sent.
enum ScrollAction
{
    saLineUp = 0,
    saLineDown = 1,
    saPageUp = 2,
    saPageDown = 3,
    saAbsolute = 5
};

/// Reports IScrollBarNotify.
class VELA7_BASE_API IScrollBar : public ICustomControl
{
public:
    virtual void SetScrollInfo(const ScrollInfo& info) = 0;
    virtual void GetScrollInfo(ScrollInfo& info) const = 0;
    virtual void SetScrollVal(int value) = 0;
    virtual int GetScrollVal() const = 0;
};

/// Scroll bars never take the focus.
class VELA7_BASE_API CScrollBar : public CImplEventSender<IScrollBar>
{
public:
    void SetFocus() override {}
    bool GetFocused() const override { return false; }
};

} // namespace vela7
