/// Event handlers on other windows' stacks.
#pragma once

#include "vela7/wxeventlife.h"
#include "vela7/wxexport.h"

#include <wx/event.h>
#include <wx/window.h>

#include <type_traits> // wx/weakref.h needs it and does not include it
#include <wx/weakref.h>

namespace vela7 {

/// A handler that sits on the stack of a window that is not its own, and leaves it in time.
///
/// wx walks along the stack while it delivers an event, so one that is to go meanwhile stays where it is,
/// deaf, until wx is through. It leaves by identity, never "whatever is on top": others push handlers as
/// well. When its window dies it leaves before wx looks at the stack. Deleted by End. Thread: GUI.
class VELA7_WX_API CPushedHandler : public wxEvtHandler
{
public:
    CPushedHandler() = default;
    ~CPushedHandler() override;

    /// Onto one window, once.
    void PushOnto(wxWindow& target);
    /// Takes the handler off the stack and deletes it, at once or when wx is through with it.
    void End();
    /// For std::unique_ptr.
    struct CDeleter
    {
        void operator()(CPushedHandler* handler) const { handler->End(); }
    };

    bool ProcessEvent(wxEvent& event) override;

protected:
    /// The parent of the window that this handler is on is being destroyed. When the handler is in use, so is
    /// the window: it is set aside.
    void SetTargetAside();
    /// While wx uses the handler: it may be ended, but is not deleted before this returns.
    virtual bool ProcessHeld(wxEvent& event);

private:
    bool ProcessEndOfTarget(wxEvent& event);

    wxWeakRef<wxWindow> m_target;
    CEventLife m_life;
};

/// Takes exactly this handler off the window's stack; it may have been taken off by somebody else already.
void TakeOff(wxWindow& window, wxEvtHandler& handler);

} // namespace vela7
