#include "vela7/wxsyncevent.h"

namespace vela7 {

wxDEFINE_EVENT(wxEVT_SYNC_RUN, wxSyncEvent);

wxSyncEvent::wxSyncEvent(IRunnable* runnable_)
    : wxEvent(0, wxEVT_SYNC_RUN), runnable(runnable_), shareCount(new int(1))
{
}

wxSyncEvent::wxSyncEvent(const wxSyncEvent& other)
    : wxEvent(other), runnable(other.runnable), shareCount(other.shareCount)
{
    ++*shareCount;
}

wxSyncEvent::~wxSyncEvent()
{
    if (--*shareCount > 0)
        return;
    delete shareCount;
    if (runnable && runnable->IsDynamicRunnable())
        delete runnable;
}

bool CFocusRunnable::Run()
{
    if (m_window)
        m_window->SetFocus();
    return true;
}

} // namespace vela7
