#include "vela7/wxpushedhandler.h"

#include "gtkport.h"

#include <wx/app.h>

namespace vela7 {

void TakeOff(wxWindow& window, wxEvtHandler& handler)
{
    for (wxEvtHandler* on = window.GetEventHandler(); on; on = on->GetNextHandler())
        if (on == &handler) {
            window.RemoveEventHandler(&handler);
            return;
        }
}

CPushedHandler::~CPushedHandler()
{
    if (m_target)
        TakeOff(*m_target, *this);
    wxPendingDelete.DeleteObject(this);
}

void CPushedHandler::PushOnto(wxWindow& target)
{
    m_target = &target;
    target.PushEventHandler(this);
}

void CPushedHandler::End()
{
    SetEvtHandlerEnabled(false);
    if (!m_life.PutOffDeletion(*this))
        delete this;
}

bool CPushedHandler::ProcessEvent(wxEvent& event)
{
    const CEventLife::CHold hold(m_life);
    if (event.GetEventType() == wxEVT_DESTROY && m_target && event.GetEventObject() == m_target)
        return ProcessEndOfTarget(event);
    return ProcessHeld(event);
}

bool CPushedHandler::ProcessHeld(wxEvent& event)
{
    return wxEvtHandler::ProcessEvent(event);
}

void CPushedHandler::OnParentEnds()
{
    if (!m_target || !m_life.IsHeld())
        return;
    gtkport::TakeFromParent(*m_target);
    m_life.Outlive(std::unique_ptr<wxObject>(m_target.get()));
}

// When this handler was called from above as a member of the stack, those below would not hear of the end any
// more once it has left, so they are called from here.
bool CPushedHandler::ProcessEndOfTarget(wxEvent& event)
{
    wxWindow& target = *m_target;
    wxEvtHandler* const below = event.ShouldProcessOnlyIn(this) ? GetNextHandler() : nullptr;
    const bool processed = wxEvtHandler::ProcessEvent(event);
    TakeOff(target, *this);
    m_target = nullptr;
    return processed || (below && below->ProcessEventLocally(event));
}

} // namespace vela7
