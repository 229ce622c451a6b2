#include "vela7/parentresizehandler.h"

wxIMPLEMENT_DYNAMIC_CLASS(vela7::CParentResizeHandler, wxEvtHandler);

namespace vela7 {

// clang-format off
wxBEGIN_EVENT_TABLE(CParentResizeHandler, wxEvtHandler)
    EVT_SIZE(CParentResizeHandler::sizeEvent)
    EVT_SET_FOCUS(CParentResizeHandler::focusInEvent)
wxEND_EVENT_TABLE()
// clang-format on

// Both events end here: the handlers return without skipping, and touch nothing after calling out, since
// a listener may destroy the toolkit window and this handler with it.

void CParentResizeHandler::sizeEvent(wxSizeEvent& event)
{
    if (auto* const parent = dynamic_cast<wxWindow*>(event.GetEventObject()))
        parent->Layout();
}

void CParentResizeHandler::focusInEvent(wxFocusEvent&)
{
    if (m_window)
        m_window->SetFocus();
}

} // namespace vela7
