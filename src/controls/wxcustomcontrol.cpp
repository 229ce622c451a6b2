#include "vela7/wxcustomcontrol.h"

#include "controls/controlevents.h"
#include "life/callout.h"
#include "port/widgets.h"
#include "vela7/wxsyswindow.h"
#include "vela7/wxvelawindow.h"

#include <wx/app.h>

namespace vela7 {

// ---- what all wrapped controls share

template <class T>
CFocusReporter<T>::CFocusReporter(wxWindow* control, IChildFocusNotify* notify)
    : CFocusFlavour<CImpCustomControl<T>>(control), m_host{notify, {}}
{
}

template <class T>
bool CFocusReporter<T>::FireAny(wxEvent& event, const std::type_info& type, NotifyHandler handler,
                                CEvent& record)
{
    record.sender = this;
    const CLifeWatch alive = this->WatchLife();
    CallOut([&] { this->FireEvent(type, handler, &record, true); });
    if (alive.IsAlive())
        return true;
    CEventLife::Consume(event);
    return false;
}

template <class T>
void CFocusReporter<T>::ReportFocusIn(wxFocusEvent& event)
{
    // Which window had it before, only wx 3.2 tells of a focus that has really come; nobody is to depend on
    // that.
    const bool hasCome = wxWindow::FindFocus() == this->m_control;
    if (hasCome || (!this->m_inSetFocusEx && event.GetWindow() == this->m_control))
        event.SetWindow(nullptr);
    Report(event, !this->m_inSetFocusEx || event.GetWindow());
}

// The focus signal first, then the window, if both are still there.
template <class T>
void CFocusReporter<T>::Report(wxFocusEvent& event, bool wanted)
{
    if (!wanted || !m_host.Get()) {
        event.Skip();
        return;
    }
    const bool in = event.GetEventType() == wxEVT_SET_FOCUS;
    const CLifeWatch alive = this->WatchLife();
    CallOut([&] {
        (in ? this->focus_in_signal : this->focus_out_signal).emit(this);
        IChildFocusNotify* const notify = alive.IsAlive() ? m_host.Get() : nullptr;
        if (notify && in)
            notify->OnChildFocusIn(event);
        else if (notify)
            notify->OnChildFocusOut(event);
    });
    event.Skip(alive.IsAlive() && this->GetNativeHandle()); // wx uses the control after a skipped event
}

template <class T>
void CFocusReporter<T>::Silence()
{
    m_host = CFocusHost();
    this->focus_in_signal.disconnect_all();
    this->focus_out_signal.disconnect_all();
    this->StopAll();
}

template class CFocusReporter<CImplEventSender<ICustomControl>>;
template class CFocusReporter<CInplaceEdit>;
template class CFocusReporter<CInplaceComboBoxInt>;

// ---- controls of the application

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
    gtkport::FocusBeforePress(*control);
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
    FollowSize(*m_control, event);
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
