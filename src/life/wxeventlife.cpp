#include "vela7/wxeventlife.h"

#include "port/widgets.h"

#include <wx/app.h>
#include <wx/window.h>

#include <utility>

namespace vela7 {

namespace {

void DeleteOnIdle(wxObject* object)
{
    wxAppConsole* const application = wxApp::GetInstance();
    if (!application)
        delete object;
    else if (!application->IsScheduledForDestruction(object))
        application->ScheduleForDestruction(object);
}

bool HasFocusInside(const wxWindow& window)
{
    const wxWindow* focus = wxWindow::FindFocus();
    while (focus && focus != &window)
        focus = focus->GetParent();
    return focus != nullptr;
}

} // namespace

CEventLife::CHold* CEventLife::s_innermost = nullptr;

CEventLife::~CEventLife()
{
    for (CHold* hold = s_innermost; hold; hold = hold->m_below)
        if (hold->m_life == this)
            hold->m_life = nullptr;
}

CEventLife::CHold* CEventLife::Outermost() const
{
    CHold* outermost = nullptr;
    for (CHold* hold = s_innermost; hold; hold = hold->m_below)
        if (hold->m_life == this)
            outermost = hold;
    return outermost;
}

// This hold is off the stack already.
void CEventLife::CHold::Leave()
{
    const bool now = m_life && m_life->m_parts == atOnce;
    for (wxObject* const object : m_leftovers)
        now ? delete object : DeleteOnIdle(object);
    if (m_life && m_life->m_putOff && !m_life->IsHeld())
        DeleteOnIdle(m_life->m_putOff);
}

bool CEventLife::PutOffDeletion(wxObject& object)
{
    if (!IsHeld() || !wxApp::GetInstance())
        return false;
    m_putOff = &object;
    return true;
}

bool CEventLife::PutOffDestruction(wxWindow& window)
{
    if (!PutOffDeletion(window))
        return false;
    if (!HasFocusInside(window)) // GTK complains when the focus vanishes while it arrives
        window.Hide();
    return true;
}

bool CEventLife::SetAside(wxWindow& window)
{
    if (!PutOffDeletion(window))
        return false;
    Outlive(gtkport::KeepWidgets(window));
    gtkport::TakeFromParent(window);
    return true;
}

void CEventLife::Outlive(std::unique_ptr<wxObject> part)
{
    if (CHold* const hold = Outermost())
        Leftover(*hold, std::move(part));
}

void CEventLife::Consume(wxEvent& event)
{
    event.Skip(false);
    event.StopPropagation();
}

void CEventLife::KeepStorage(wxWindow& window)
{
    wxPendingDelete.DeleteObject(&window); // wx will not delete it again
    CHold* const hold = wxApp::GetInstance() ? Outermost() : nullptr;
    if (!hold)
        return;
    Leftover(*hold, gtkport::KeepWidgets(window));
    hold->m_storage = dynamic_cast<void*>(&window);
}

CEventLife::CHold* CEventLife::FindKept(const void* storage)
{
    for (CHold* hold = s_innermost; hold; hold = hold->m_below)
        if (hold->m_storage == storage) {
            hold->m_storage = nullptr;
            return hold;
        }
    return nullptr;
}

void CEventLife::Leftover(CHold& hold, std::unique_ptr<wxObject> object)
{
    hold.m_leftovers.push_front(object.get());
    static_cast<void>(object.release());
}

} // namespace vela7
