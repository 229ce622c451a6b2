/// Keeps a parent in step with the toolkit window that fills it.
#pragma once

#include "vela7/wxexport.h"

#include <wx/event.h>
#include <wx/window.h>

#include <type_traits> // wx/weakref.h needs it and does not include it
#include <wx/weakref.h>

namespace vela7 {

/// Pushed onto the parent of a toolkit window that fills it: a resize of the parent lays it out again, focus
/// that the parent gets goes on to the window.
///
/// Made and deleted by the CwxSysWindow. Thread: GUI.
class VELA7_WX_API CParentResizeHandler : public wxEvtHandler
{
public:
    CParentResizeHandler() = default;
    explicit CParentResizeHandler(wxWindow* window) : m_window(window) {}

private:
    void sizeEvent(wxSizeEvent& event);
    void focusInEvent(wxFocusEvent& event);

    wxWeakRef<wxWindow> m_window; // the toolkit window's native one

    wxDECLARE_DYNAMIC_CLASS(CParentResizeHandler);
    wxDECLARE_EVENT_TABLE();
};

} // namespace vela7
