#include "vela7/wxcustomcontrol.h"

#include "life/callout.h"
#include "vela7/wxsyswindow.h"
#include "vela7/wxvelawindow.h"

#include <wx/app.h>

namespace vela7 {

// clang-format off
wxBEGIN_EVENT_TABLE(CwxControlHolder, wxEvtHandler)
    EVT_KILL_FOCUS(CwxControlHolder::focusOutEvent)
    EVT_SET_FOCUS(CwxControlHolder::focusInEvent)
wxEND_EVENT_TABLE()
// clang-format on

CwxControlHolder::CwxControlHolder(wxWindow* control, IChildFocusNotify* notify, bool autoDelete)
    : CFocusReporter(control, notify), m_autoDelete(autoDelete)
{
    AdoptLayoutDirection(control);
    if (!control)
        return;
    Bind(wxEVT_DESTROY, &CwxControlHolder::destroyEvent, this);
    PushOnto(*control);
}

CwxControlHolder::~CwxControlHolder()
{
    RevokeHandles();
}

void CwxControlHolder::Dispose()
{
    Silence();
    End();
}

// Each branch may end this object and its control.
bool CwxControlHolder::ProcessHeld(wxEvent& event)
{
    if (!m_control || !GetEvtHandlerEnabled())
        return CPushedHandler::ProcessHeld(event);
    if (IsTabPress(event)) {
        if (wxWindow* const parent = m_control->GetParent())
            parent->GetEventHandler()->ProcessEvent(event);
        return true;
    }
    if (event.GetEventType() == wxEVT_NAVIGATION_KEY) {
        ForwardNavigation(*m_control, static_cast<wxNavigationKeyEvent&>(event));
        return true;
    }
    return CPushedHandler::ProcessHeld(event);
}

void CwxControlHolder::destroyEvent(wxWindowDestroyEvent& event)
{
    if (event.GetEventObject() != m_control)
        return;
    m_control = nullptr;
    if (m_autoDelete) {
        RevokeHandles();
        Dispose();
    } else {
        event.Skip();
    }
}

// ---- what wrapped controls share

bool FireFrom(ICustomControl& control, wxEvent& event, const std::type_info& type, NotifyHandler handler,
              CEvent& record)
{
    record.sender = &control;
    const CLifeWatch alive = control.WatchLife();
    CallOut([&] { control.FireEvent(type, handler, &record, true); });
    if (alive.IsAlive())
        return true;
    event.Skip(false);
    event.StopPropagation();
    return false;
}

void ReportChildFocus(ICustomControl& control, const CFocusHost& host, wxFocusEvent& event)
{
    const bool in = event.GetEventType() == wxEVT_SET_FOCUS;
    const CLifeWatch alive = control.WatchLife();
    CallOut([&] {
        (in ? control.focus_in_signal : control.focus_out_signal).emit(&control);
        IChildFocusNotify* const notify = alive.IsAlive() ? host.Get() : nullptr;
        if (notify && in)
            notify->OnChildFocusIn(event);
        else if (notify)
            notify->OnChildFocusOut(event);
    });
    event.Skip(alive.IsAlive() && control.GetNativeHandle()); // wx uses the control after a skipped event
}

bool IsTabPress(const wxEvent& event)
{
    return event.GetEventType() == wxEVT_KEY_DOWN &&
           static_cast<const wxKeyEvent&>(event).GetKeyCode() == WXK_TAB;
}

void ForwardNavigation(wxWindow& control, wxNavigationKeyEvent& event)
{
    const wxWeakRef<wxWindow> parent(control.GetParent());
    if (!parent)
        return;
    const bool backward = !event.GetDirection();
    const wxWindow* const self = &control; // maybe gone when the parent is through; then it has no focus
    parent->GetEventHandler()->ProcessEvent(event);
    if (!parent || wxWindow::FindFocus() != self)
        return;
    wxKeyEvent tab(wxEVT_KEY_DOWN);
    tab.SetId(parent->GetId());
    tab.SetEventObject(parent);
    tab.m_keyCode = WXK_TAB;
    tab.SetShiftDown(backward);
    parent->GetEventHandler()->ProcessEvent(tab);
}

void AdoptLayoutDirection(wxWindow* control)
{
    const auto* const app = dynamic_cast<const wxApp*>(wxApp::GetInstance());
    if (control && app && app->GetLayoutDirection() == wxLayout_RightToLeft)
        control->SetLayoutDirection(wxLayout_RightToLeft);
}

// ---- factories

CHandle<ICustomControl> CreateCustomControl(wxWindow* control, ISysWindow* parent, bool autoDelete)
{
    auto* const window = dynamic_cast<CwxSysWindow*>(parent);
    const bool diesWithControl = autoDelete && control; // else nobody would ever delete it
    auto* const holder =
        new CwxControlHolder(control, window ? &window->GetChildFocusNotify() : nullptr, diesWithControl);
    if (window)
        holder->SetNotifyLife(window->WatchLife());
    if (diesWithControl)
        holder->SetCounted(false);
    return CHandle<ICustomControl>(holder);
}

void* GetControlHandle(wxWindow* window)
{
    const CwxSysWindow* const wrapper = GetWrapper(window);
    const INativeControl* const native = wrapper ? wrapper->GetNativeControl() : nullptr;
    return native ? native->GetHandle() : nullptr;
}

} // namespace vela7
