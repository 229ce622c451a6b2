#include "vela7/velawxwindow.h"

#include "vela7/wxsyswindow.h"

#include <wx/app.h>

#include <new>

wxIMPLEMENT_DYNAMIC_CLASS(vela7::CVELAwxWindow, wxWindow);

namespace vela7 {

namespace {

// What wx finds where a window was that died in the middle of its own event: a window that was never created,
// until the next idle pass.
class CRemains : public CVELAwxWindow
{
    // wx's own ones assert that there is a native window.
    void DoClientToScreen(int*, int*) const override {}
    bool IsTransparentBackgroundSupported(wxString*) const override { return false; }
};
static_assert(sizeof(CRemains) == sizeof(CVELAwxWindow), "it takes the place of one");

} // namespace

// The order matters: listeners hear of the end while everything still works, children go before the toolkit
// window that they report to, and the stack of event handlers is clean before wx looks at it.
CVELAwxWindow::~CVELAwxWindow()
{
    if (owner)
        owner->LeaveParent();
    // A listener, also one of a child's, may destroy the parent, which must not delete this window a second
    // time.
    const wxWeakRef<wxWindow> parent(GetParent());
    if (parent)
        parent->GetChildren().DeleteObject(this);
    if (owner)
        owner->ProcessDestroy();
    if (!parent)
        m_parent = nullptr;
    if (HasCapture())
        ReleaseMouse();
    DestroyChildren();
    delete owner;
    owner = nullptr;
    if (!parent)
        m_parent = nullptr;
    deliveries.Retire(*this);
}

bool CVELAwxWindow::Destroy()
{
    if (owner && owner->IsDestroyed())
        return true; // under way: a listener wants what it is being told of
    return deliveries.PutOffDestruction(*this) || wxWindow::Destroy();
}

// The counterpart that the compiler expects of operator delete; it looks through an inlined one.
[[gnu::noinline]] void* CVELAwxWindow::operator new(std::size_t size)
{
    return ::operator new(size);
}

void CVELAwxWindow::operator delete(void* storage)
{
    if (CDeliveryCount::TakeKept(storage))
        wxApp::GetInstance()->ScheduleForDestruction(::new (storage) CRemains);
    else
        ::operator delete(storage);
}

CwxSysWindow* GetWrapper(wxWindow* window)
{
    const auto* const native = dynamic_cast<const CVELAwxWindow*>(window);
    return native ? native->owner : nullptr;
}

} // namespace vela7
