/// wx controls seen through ICustomControl.
#pragma once

#include "vela7/customcontrol.h"
#include "vela7/inplace.h"
#include "vela7/wxchildfocusnotify.h"
#include "vela7/wxexport.h"
#include "vela7/wxpushedhandler.h"

#include <wx/event.h>
#include <wx/window.h>

#include <optional>

namespace vela7 {

class ISysWindow;

/// ICustomControl over any wx window; T is the interface with its event sender. Without a window every
/// operation is neutral. Thread: GUI.
template <class T>
class VELA7_WX_API CImpCustomControl : public T
{
public:
    explicit CImpCustomControl(wxWindow* control = nullptr) : m_control(control) {}

    /// Right and bottom exclusive; repaints at once.
    void SetPos(int left, int top, int right, int bottom) override
    {
        if (!m_control)
            return;
        const CLifeWatch alive = this->WatchLife(); // listeners hear of the new size
        m_control->SetSize(left, top, right - left, bottom - top, wxSIZE_AUTO);
        if (alive.IsAlive() && m_control)
            m_control->Update();
    }
    rectangle<int> GetPos() const override
    {
        if (!m_control)
            return {};
        const wxPoint at = m_control->GetPosition();
        const wxSize size = m_control->GetSize();
        return {at.x, at.y, at.x + size.x, at.y + size.y};
    }
    void SetVisible(bool visible) override
    {
        if (m_control)
            m_control->Show(visible);
    }
    bool GetVisible() const override { return m_control && m_control->IsShown(); }
    void SetEnabled(bool enabled) override
    {
        if (m_control)
            m_control->Enable(enabled);
    }
    bool GetEnabled() const override { return m_control && m_control->IsEnabled(); }
    void SetFocus() override
    {
        if (m_control)
            m_control->SetFocus();
    }
    bool GetFocused() const override { return m_control && wxWindow::FindFocus() == m_control; }
    /// The wxWindow; null when it is gone.
    void* GetNativeHandle() const override { return m_control; }

protected:
    wxWindow* m_control;         // a foreign one or this object itself
    bool m_inSetFocusEx = false; // only while SetFocusEx runs
};

/// For controls that can take the focus.
template <class T>
class VELA7_WX_API CFocusFlavour : public T
{
public:
    using T::T;

    void SetFocusEx() override
    {
        const CLifeWatch alive = this->WatchLife();
        this->m_inSetFocusEx = true;
        this->SetFocus();
        if (alive.IsAlive())
            this->m_inSetFocusEx = false;
    }
};

/// The window that hears of the focus of a control, as long as it lives.
struct VELA7_WX_API CFocusHost
{
    /// Null when there is none any more.
    IChildFocusNotify* Get() const { return !life || life->IsAlive() ? window : nullptr; }

    IChildFocusNotify* window = nullptr;
    std::optional<CLifeWatch> life; // none: the window outlives the control
};

/// What all wrapped controls share: notifications, and the report of their focus. notify may be null.
template <class T>
class VELA7_WX_API CFocusReporter : public CFocusFlavour<CImpCustomControl<T>>
{
public:
    /// The window that hears of the focus is not called any more when this says that it is gone.
    void SetNotifyLife(const CLifeWatch& life) { m_host.life = life; }

protected:
    CFocusReporter(wxWindow* control, IChildFocusNotify* notify);

    /// Sends a record to the listeners. False when one of them destroyed the control: then the event counts
    /// as handled, since wx uses a control after an unhandled one.
    bool FireAny(wxEvent& event, const std::type_info& type, NotifyHandler handler, CEvent& record);

    void ReportFocusIn(wxFocusEvent& event);
    // Kept by contract: a loss while SetFocusEx runs is never reported.
    void ReportFocusOut(wxFocusEvent& event) { Report(event, !this->m_inSetFocusEx); }

    /// From now on nobody hears of this control: to its users it is gone.
    void Silence();

private:
    void Report(wxFocusEvent& event, bool wanted);

    CFocusHost m_host;
};

extern template class CFocusReporter<CImplEventSender<ICustomControl>>;
extern template class CFocusReporter<CInplaceEdit>;
extern template class CFocusReporter<CInplaceComboBoxInt>;

/// A control that the application made itself. It sits on the control's stack of event handlers.
///
/// Comes from CreateCustomControl. With autoDelete it dies with its control, else with its last handle; the
/// control's life is never its business. It supports no event types unless its user declares some.
class VELA7_WX_API CwxControlHolder final : public CPushedHandler,
                                            public CFocusReporter<CImplEventSender<ICustomControl>>,
                                            public IEndsWithParent
{
public:
    /// All may be null or false. notify outlives the holder, or see SetNotifyLife.
    CwxControlHolder(wxWindow* control, IChildFocusNotify* notify, bool autoDelete);
    ~CwxControlHolder() override;

    void Dispose() override;
    void OnParentEnds() override { SetTargetAside(); }

protected:
    bool ProcessHeld(wxEvent& event) override;

private:
    void focusInEvent(wxFocusEvent& event) { ReportFocusIn(event); }
    void focusOutEvent(wxFocusEvent& event) { ReportFocusOut(event); }
    void destroyEvent(wxWindowDestroyEvent& event);

    bool m_autoDelete;

    wxDECLARE_EVENT_TABLE();
};

/// Wraps a control for toolkit code. parent (may be null) hears of its focus. With autoDelete the handle
/// holds no reference and turns empty when the control dies; without, the control may die first, which leaves
/// neutral operations.
VELA7_WX_API CHandle<ICustomControl> CreateCustomControl(wxWindow* control, ISysWindow* parent,
                                                         bool autoDelete);

/// What the native control of a toolkit window (CSysWindow::SetNativeControl) reports; null when there is
/// none.
VELA7_WX_API void* GetControlHandle(wxWindow* window);

} // namespace vela7
