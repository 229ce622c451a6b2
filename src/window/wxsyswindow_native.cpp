// The native half of a toolkit window.

#include "vela7/wxvelawindow.h"

#include "life/capture.h"
#include "life/leavingparent.h"
#include "port/widgets.h"
#include "vela7/wxsyswindow.h"

#include <list>
#include <new>
#include <utility>

wxIMPLEMENT_DYNAMIC_CLASS(vela7::CVELAwxWindow, wxWindow);

namespace vela7 {

// The order matters: listeners hear of the end while everything still works, children go before the toolkit
// window that they report to, and the stack of event handlers is clean before wx looks at it.
CVELAwxWindow::~CVELAwxWindow()
{
    if (owner)
        owner->LeaveParent();
    const CLeavingParent parent(*this, m_parent);
    const auto widgets = gtkport::KeepWidgets(*this); // GTK's halves go with the parent's
    if (owner)
        owner->ProcessDestroy();
    if (m_hasCaptured)
        capture::Leave(*this);
    EndControls();
    DestroyChildren();
    if (owner)
        std::exchange(owner, nullptr)->End();
    life.KeepStorage(*this);
}

namespace {

// A control of ours, or the handler on somebody else's.
void EndControl(wxWindow& child)
{
    auto* control = dynamic_cast<IEndsWithParent*>(&child);
    for (wxEvtHandler* on = child.GetEventHandler(); on && !control; on = on->GetNextHandler())
        control = dynamic_cast<IEndsWithParent*>(on);
    if (control)
        control->OnParentEnds();
}

} // namespace

// One that is told may have listeners that destroy another.
void CVELAwxWindow::EndControls()
{
    std::list<wxWeakRef<wxWindow>> children;
    for (wxWindow* const child : GetChildren())
        children.emplace_back(child);
    for (const wxWeakRef<wxWindow>& child : children)
        if (child)
            EndControl(*child);
}

bool CVELAwxWindow::Destroy()
{
    if (owner && owner->IsDestroyed())
        return true; // under way: a listener wants what it is being told of
    return life.PutOffDestruction(*this) || wxWindow::Destroy();
}

bool CVELAwxWindow::Reparent(wxWindowBase* newParent)
{
    if (!wxWindow::Reparent(newParent))
        return false;
    if (owner)
        owner->FollowParent();
    return true;
}

void CVELAwxWindow::HoldResize()
{
    if (m_resize == Resize::free)
        m_resize = Resize::held;
}

bool CVELAwxWindow::PutOffResize()
{
    if (m_resize != Resize::free)
        m_resize = Resize::waiting;
    return m_resize != Resize::free;
}

// Sends the event that was held anew, through all handlers.
void CVELAwxWindow::ReleaseResize()
{
    if (std::exchange(m_resize, Resize::free) != Resize::waiting)
        return;
    wxSizeEvent event(GetSize(), GetId());
    event.SetEventObject(this);
    HandleWindowEvent(event);
}

void CVELAwxWindow::DoCaptureMouse()
{
    m_hasCaptured = true;
    wxWindow::DoCaptureMouse();
}

void CVELAwxWindow::DoClientToScreen(int* x, int* y) const
{
    if (m_widget)
        wxWindow::DoClientToScreen(x, y);
}

bool CVELAwxWindow::IsTransparentBackgroundSupported(wxString* reason) const
{
    return m_widget && wxWindow::IsTransparentBackgroundSupported(reason);
}

// The counterpart that the compiler expects of operator delete; it looks through an inlined one.
[[gnu::noinline]] void* CVELAwxWindow::operator new(std::size_t size)
{
    return ::operator new(size);
}

// Nobody derives from this class, so an object of the same type takes the place of the dead one, and pointers
// to that one are pointers to it.
void CVELAwxWindow::operator delete(void* storage)
{
    if (CEventLife::CHold* const hold = CEventLife::FindKept(storage))
        CEventLife::Leftover(*hold, std::unique_ptr<wxObject>(::new (storage) CVELAwxWindow));
    else
        ::operator delete(storage);
}

CwxSysWindow* GetWrapper(wxWindow* window)
{
    const auto* const native = dynamic_cast<const CVELAwxWindow*>(window);
    return native ? native->owner : nullptr;
}

} // namespace vela7
