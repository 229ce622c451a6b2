// Toolkit windows: focus, keyboard navigation, work from other threads.

#include "window/wxsyswindow_deliver.h"

#include "vela7/wxconvert.h"

#include <wx/app.h>

namespace vela7 {

void CwxSysWindow::SetFocus()
{
    window->SetFocus();
}

bool CwxSysWindow::GetFocused() const
{
    // Kept by contract: children count, deeper descendants do not, unlike IsActive; in-place editors are
    // children.
    const wxWindow* const focus = wxWindow::FindFocus();
    return focus && !IsWindowExternal(focus, window);
}

bool CwxSysWindow::IsActive() const
{
    return IsActiveImp(wxWindow::FindFocus());
}

bool CwxSysWindow::IsActiveImp(const wxWindow* candidate) const
{
    while (candidate && candidate != window)
        candidate = candidate->GetParent();
    return candidate != nullptr;
}

void CwxSysWindow::doNavigation(bool forward, bool windowChange)
{
    const CLifeWatch alive = WatchLife();
    wxWindow* const parent = window->GetParent();
    wxWindow* const grandparent = parent ? parent->GetParent() : nullptr;
    if (grandparent)
        grandparent->NavigateIn((forward ? wxNavigationKeyEvent::IsForward : 0) |
                                (windowChange ? wxNavigationKeyEvent::WinChange : 0));
    if (alive.IsAlive() && IsActive())
        CircuitTabTraversal(forward);
}

void CwxSysWindow::navigationEvent(wxNavigationKeyEvent& event)
{
    if (!wxApp::GetInstance() || !wxApp::GetInstance()->IsMainLoopRunning())
        return;
    CKeyboardEvent record(this);
    record.key = static_cast<std::uint32_t>(wx2velaKeyCode(WXK_TAB));
    if (!event.GetDirection())
        record.state = ksShift;
    else if (event.IsWindowChange())
        record.state = ksControl;
    // Kept by contract: a window that used the Tab stops wx's navigation by allowNavigation, not by passOn.
    if (Deliver(event, [&] { ProcessKeyPress(&record); }))
        event.Skip(record.allowNavigation);
}

// ---- focus

void CwxSysWindow::focusInEvent(wxFocusEvent& event)
{
    if (Deliver(event, [this] { ProcessGetFocus(); }))
        event.Skip();
}

// Focus that stays inside the window is not lost.
void CwxSysWindow::focusOutEvent(wxFocusEvent& event)
{
    if (IsActiveImp(event.GetWindow()) || Deliver(event, [this] { ProcessReleaseFocus(); }))
        event.Skip();
}

// The event is the control's own, so wx goes on using the control: what dies here is dealt with as in the
// window's own handlers.

void CwxSysWindow::OnChildFocusIn(wxFocusEvent& event)
{
    if (IsWindowExternal(event.GetWindow(), window))
        Deliver(event, [this] { ProcessGetFocus(); });
}

void CwxSysWindow::OnChildFocusOut(wxFocusEvent& event)
{
    if (IsWindowExternal(event.GetWindow(), window))
        Deliver(event, [this] { ProcessReleaseFocus(); });
}

// ---- work from other threads

void CwxSysWindow::Synchronize(IRunnable* runnable)
{
    if (IsDestroyed())
        return;
    // The copies share a plain counter, so only one of them may live when the GUI thread can see it.
    wxEvent* queued = nullptr;
    {
        const wxSyncEvent local(runnable);
        queued = local.Clone();
    }
    QueueEvent(queued);
}

void CwxSysWindow::syncEvent(wxSyncEvent& event)
{
    if (IRunnable* const runnable = event.GetRunnable())
        Deliver(event, [runnable] { runnable->Run(); });
}

} // namespace vela7
