/// Keeps a parent in step with the toolkit window that fills it.
#pragma once

#include "vela7/wxexport.h"
#include "vela7/wxpushedhandler.h"
#include "vela7/wxvelawindow.h"

namespace vela7 {

/// On the stack of the parent of a toolkit window that fills it: a resize of the parent lays it out again,
/// focus that the parent gets goes on to the window.
///
/// Made and ended by the CwxSysWindow. Thread: GUI.
class VELA7_WX_API CParentResizeHandler final : public CPushedHandler
{
public:
    CParentResizeHandler() = default;
    explicit CParentResizeHandler(CVELAwxWindow* window) : m_window(window) {}

private:
    void sizeEvent(wxSizeEvent& event);
    void focusInEvent(wxFocusEvent& event);

    wxWeakRef<CVELAwxWindow> m_window; // of the toolkit window

    wxDECLARE_DYNAMIC_CLASS(CParentResizeHandler);
    wxDECLARE_EVENT_TABLE();
};

} // namespace vela7
