#include "vela7/deliverycount.h"

#include <wx/app.h>
#include <wx/window.h>

namespace vela7 {

CDeliveryCount::~CDeliveryCount()
{
    for (CDelivery* delivery = m_innermost; delivery; delivery = delivery->m_outer)
        delivery->m_count = nullptr;
}

bool CDeliveryCount::PutOffDestruction(wxWindow& window) const
{
    if (!IsDelivering() || !wxTheApp)
        return false;
    if (!window.HasFocus()) // GTK complains when the focus vanishes while it arrives
        window.Hide();
    if (!wxTheApp->IsScheduledForDestruction(&window))
        wxTheApp->ScheduleForDestruction(&window);
    return true;
}

} // namespace vela7
