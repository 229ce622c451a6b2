/// The event that carries work to the GUI thread.
#pragma once

#include "vela7/window.h"
#include "vela7/wxexport.h"

#include <wx/event.h>

namespace vela7 {

/// Carries one runnable. All copies share it; the last one to go deletes it when it is dynamic.
///
/// The counter is a plain integer: at no time may copies live on two threads (see CwxSysWindow::Synchronize).
class VELA7_WX_API wxSyncEvent final : public wxEvent
{
public:
    explicit wxSyncEvent(IRunnable* runnable);
    wxSyncEvent(const wxSyncEvent& other);
    wxSyncEvent& operator=(const wxSyncEvent&) = delete;
    ~wxSyncEvent() override;

    wxEvent* Clone() const override { return new wxSyncEvent(*this); }
    IRunnable* GetRunnable() const { return runnable; }

private:
    IRunnable* runnable;
    int* shareCount;
};

wxDECLARE_EXPORTED_EVENT(VELA7_WX_API, wxEVT_SYNC_RUN, wxSyncEvent);

/// Sets the focus to a window, for ISynchronize: focus that must not change before the present event is over.
class VELA7_WX_API CFocusRunnable final : public IRunnable
{
public:
    /// The window outlives the runnable: give it to the window's own Synchronize.
    explicit CFocusRunnable(ISysWindow* window) : m_window(window) {}
    bool Run() override;

private:
    ISysWindow* m_window;
};

} // namespace vela7
