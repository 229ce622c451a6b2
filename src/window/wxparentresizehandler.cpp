#include "vela7/wxparentresizehandler.h"

#include "vela7/wxvelawindow.h"

wxIMPLEMENT_DYNAMIC_CLASS(vela7::CParentResizeHandler, wxEvtHandler);

namespace vela7 {

// clang-format off
wxBEGIN_EVENT_TABLE(CParentResizeHandler, wxEvtHandler)
    EVT_SIZE(CParentResizeHandler::sizeEvent)
    EVT_SET_FOCUS(CParentResizeHandler::focusInEvent)
wxEND_EVENT_TABLE()
// clang-format on

// Both events end here: the handlers return without skipping.

// The sizer stands between the parent's resize and the window's. A listener that destroyed the parent would
// pull it away under wx, so the window hears of its new size when the layout is through.
void CParentResizeHandler::sizeEvent(wxSizeEvent& event)
{
    auto* const parent = dynamic_cast<wxWindow*>(event.GetEventObject());
    if (!parent)
        return;
    const wxWeakRef<CVELAwxWindow> window(m_window);
    if (window)
        window->HoldResize();
    parent->Layout();
    if (window)
        window->ReleaseResize();
}

void CParentResizeHandler::focusInEvent(wxFocusEvent&)
{
    if (m_window)
        m_window->SetFocus();
}

} // namespace vela7
