#include "vela7/deliverycount.h"

#include "gtkport.h"

#include <wx/app.h>
#include <wx/window.h>

#include <set>
#include <utility>

namespace vela7 {

namespace {

// Storage of windows that were deleted while they were delivering an event, between their destructor and
// operator delete.
std::set<const void*>& Kept()
{
    static std::set<const void*> storages;
    return storages;
}

} // namespace

CDeliveryCount::~CDeliveryCount()
{
    for (CDelivery* delivery = m_innermost; delivery; delivery = delivery->m_outer)
        delivery->m_count = nullptr;
}

void CDeliveryCount::Leave(CDelivery* outer)
{
    m_innermost = outer;
    wxObject* const object = outer ? nullptr : std::exchange(m_putOff, nullptr);
    if (object && wxApp::GetInstance() && !wxApp::GetInstance()->IsScheduledForDestruction(object))
        wxApp::GetInstance()->ScheduleForDestruction(object);
}

bool CDeliveryCount::PutOffDestruction(wxWindow& window)
{
    if (!PutOffDeletion(window))
        return false;
    if (!window.HasFocus()) // GTK complains when the focus vanishes while it arrives
        window.Hide();
    return true;
}

bool CDeliveryCount::PutOffDeletion(wxObject& object)
{
    if (!IsDelivering() || !wxApp::GetInstance())
        return false;
    m_putOff = &object;
    return true;
}

void CDeliveryCount::Retire(wxWindow& window) const
{
    if (wxApp::GetInstance())
        wxPendingDelete.DeleteObject(&window);
    if (!IsDelivering())
        return;
    gtkport::KeepWidgets(window);
    Kept().insert(dynamic_cast<void*>(&window));
}

bool CDeliveryCount::TakeKept(void* storage)
{
    return Kept().erase(storage) > 0 && wxApp::GetInstance();
}

} // namespace vela7
