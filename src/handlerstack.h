/// Stacks of event handlers.
#pragma once

#include <wx/event.h>
#include <wx/window.h>

namespace vela7 {

/// Takes exactly this handler off the window's stack; it may have been taken off by somebody else already.
inline void TakeOff(wxWindow& window, wxEvtHandler& handler)
{
    for (wxEvtHandler* on = window.GetEventHandler(); on; on = on->GetNextHandler())
        if (on == &handler) {
            window.RemoveEventHandler(&handler);
            return;
        }
}

} // namespace vela7
