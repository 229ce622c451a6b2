/// How the handlers of a toolkit window call its hooks. Included by the window's own source files only.
#pragma once

#include "life/callout.h"
#include "vela7/wxsyswindow.h"
#include "vela7/wxvelawindow.h"

namespace vela7 {

/// Calls a hook. False: a listener destroyed the window, or wanted its end before this event came; then the
/// hook is not called. In both cases the event counts as handled whatever passOn says, since wx uses the
/// window after an unhandled event.
template <class Hook>
bool CwxSysWindow::Deliver(wxEvent& event, Hook hook)
{
    const CEventLife::CHold hold(window->life);
    const bool wanted = !window->life.IsEnding();
    if (wanted)
        CallOut(hook);
    if (wanted && hold.IsAlive())
        return true;
    event.Skip(false);
    event.StopPropagation();
    return false;
}

/// The same for a hook that takes a record, with passOn copied back.
template <class Record>
void CwxSysWindow::DeliverRecord(wxEvent& event, Record& record, void (CSysWindow::*hook)(Record*))
{
    if (Deliver(event, [&] { (this->*hook)(&record); }))
        event.Skip(record.passOn);
}

} // namespace vela7
