#include "vela7/velawxwindow.h"

#include "vela7/wxsyswindow.h"

#include <wx/app.h>

#include <new>
#include <set>

wxIMPLEMENT_DYNAMIC_CLASS(vela7::CVELAwxWindow, wxWindow);

namespace vela7 {

namespace {

// Storage of windows that were deleted while they were delivering an event, between their destructor and
// operator delete.
std::set<const void*>& Lingering()
{
    static std::set<const void*> storages;
    return storages;
}

// Gives the storage of a deleted window back when wx deletes its pending objects.
class CStorage : public wxObject
{
public:
    explicit CStorage(void* storage) : m_storage(storage) {}
    ~CStorage() override { ::operator delete(m_storage); }
    CStorage(const CStorage&) = delete;
    CStorage& operator=(const CStorage&) = delete;

private:
    void* m_storage;
};

} // namespace

// The order matters: listeners hear of the end while everything still works, children go before the toolkit
// window that they report to, and the stack of event handlers is clean before wx looks at it.
CVELAwxWindow::~CVELAwxWindow()
{
    if (owner)
        owner->ProcessDestroy();
    if (HasCapture())
        ReleaseMouse();
    DestroyChildren();
    delete owner;
    owner = nullptr;
    if (wxTheApp)
        wxPendingDelete.DeleteObject(this);
    if (m_deliveries > 0)
        Lingering().insert(dynamic_cast<void*>(this));
}

bool CVELAwxWindow::Destroy()
{
    if (m_deliveries == 0 || !wxTheApp)
        return wxWindow::Destroy();
    Hide();
    if (!wxTheApp->IsScheduledForDestruction(this))
        wxTheApp->ScheduleForDestruction(this);
    return true;
}

// The counterpart that the compiler expects of operator delete; it looks through an inlined one.
[[gnu::noinline]] void* CVELAwxWindow::operator new(std::size_t size)
{
    return ::operator new(size);
}

void CVELAwxWindow::operator delete(void* storage)
{
    if (Lingering().erase(storage) > 0 && wxTheApp)
        wxTheApp->ScheduleForDestruction(new CStorage(storage));
    else
        ::operator delete(storage);
}

CVELAwxWindow::CDelivery::CDelivery(CVELAwxWindow& window) : m_window(&window)
{
    ++window.m_deliveries;
}

CVELAwxWindow::CDelivery::~CDelivery()
{
    if (m_window)
        --m_window->m_deliveries;
}

CwxSysWindow* GetWrapper(wxWindow* window)
{
    const auto* const native = wxDynamicCast(window, CVELAwxWindow);
    return native ? native->owner : nullptr;
}

} // namespace vela7
