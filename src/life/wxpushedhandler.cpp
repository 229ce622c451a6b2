#include "vela7/wxpushedhandler.h"

#include "port/widgets.h"

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

namespace {

// Ends a window with itself, unless somebody else has done so.
class CEndOf : public wxObject
{
public:
    explicit CEndOf(wxWindow& window) : m_window(&window) {}
    CEndOf(const CEndOf&) = delete;
    CEndOf& operator=(const CEndOf&) = delete;
    ~CEndOf() override
    {
        if (m_window)
            m_window->Destroy();
    }

private:
    wxWeakRef<wxWindow> m_window;
};

} // namespace

void CPushedHandler::SetTargetAside()
{
    if (!m_target || !m_life.IsHeld())
        return;
    gtkport::TakeFromParent(*m_target);
    m_life.Outlive(std::make_unique<CEndOf>(*m_target));
    m_life.Outlive(gtkport::KeepWidgets(*m_target)); // goes before it
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
