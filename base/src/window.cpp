#include "vela7/window.h"

#include "tarn/assert.h"
#include "vela7/customcontrol.h"
#include "vela7/tooltip.h"

#include <algorithm>

namespace vela7 {

namespace {

// ---- what back-ends hand in, where the contract allows one thing only; release builds do not look

#ifdef VELA7_CHECK_HOOKS
constexpr bool checksHooks = true;
#else
constexpr bool checksHooks = false;
#endif

void Demand(bool holds, const char* what)
{
    if (checksHooks && !holds)
        TARN::assertion_failed(what, __FILE__, __LINE__);
}

void DemandRecord(const IEventSender* window, const CEvent* event)
{
    Demand(event && event->sender == window, "hook: the window is the sender of the record");
    Demand(event && event->passOn, "hook: nobody has had the record");
}

void DemandButton(const IEventSender* window, const CMouseEvent* event, MouseButton least, MouseButton most)
{
    DemandRecord(window, event);
    Demand(event && event->button >= least && event->button <= most, "hook: the button is one of its kind");
}

} // namespace

void CTooltipTimerNotify::OnTimer(CTimerEvent* event)
{
    m_owner->OnTooltipTimer(event);
}

// A window belongs to its native window: the cleared heap flag keeps Release from deleting it.
CSysWindow::CSysWindow() : m_tooltipTimerNotify(this)
{
    SetCounted(false);
}

CSysWindow::~CSysWindow() = default;

void CSysWindow::Init()
{
    for (const std::type_info* type :
         {&typeid(IDrawingNotify), &typeid(IMouseNotify), &typeid(IKeyboardNotify), &typeid(IFocusNotify),
          &typeid(IWindowNotify), &typeid(ITabTraversalNotify), &typeid(IContextMenuNotify)})
        SetSupportedEvent(*type);
}

// ---- hooks; after the firing the window may be gone

void CSysWindow::ProcessMousePress(CMouseEvent* event)
{
    DemandButton(this, event, mbLeft, mbRight);
    const CLifeWatch alive = WatchLife();
    if (!IsTipUnderMouse())
        HideTooltip(); // the listeners of its custom layer may destroy the window
    if (alive.IsAlive() && m_focusOnClick && !m_popup && !GetFocused())
        SetFocus(); // and so may this one's
    if (alive.IsAlive())
        FireEvent(typeid(IMouseNotify), handler_cast(&IMouseNotify::OnMousePress), event, true);
}

void CSysWindow::ProcessMouseRelease(CMouseEvent* event)
{
    DemandButton(this, event, mbLeft, mbRight);
    FireEvent(typeid(IMouseNotify), handler_cast(&IMouseNotify::OnMouseRelease), event, true);
}

void CSysWindow::ProcessMouseDoubleClick(CMouseEvent* event)
{
    DemandButton(this, event, mbLeft, mbRight);
    FireEvent(typeid(IMouseNotify), handler_cast(&IMouseNotify::OnMouseDoubleClick), event, true);
}

void CSysWindow::ProcessMouseMove(CMouseEvent* event)
{
    DemandButton(this, event, mbNone, mbRight);
    FireEvent(typeid(IMouseNotify), handler_cast(&IMouseNotify::OnMouseMove), event, true);
}

void CSysWindow::ProcessWheel(CMouseWheelEvent* event)
{
    DemandButton(this, event, mbNone, mbNone);
    const CLifeWatch alive = WatchLife();
    HideTooltip();
    if (alive.IsAlive())
        FireEvent(typeid(IMouseNotify), handler_cast(&IMouseNotify::OnMouseWheel), event, true);
}

void CSysWindow::ProcessEnter(CMouseEvent* event)
{
    DemandButton(this, event, mbNone, mbNone);
    // Leaving a window resets the cursor for the whole screen, so each entry shows the window's own again.
    if (m_cursor != crDefault)
        InternalSetCursor(m_cursor);
    FireEvent(typeid(IMouseNotify), handler_cast(&IMouseNotify::OnMouseEnter), event, true);
}

void CSysWindow::ProcessLeave(CMouseEvent* event)
{
    DemandButton(this, event, mbNone, mbNone);
    const CLifeWatch alive = WatchLife();
    if (!IsTipUnderMouse())
        HideTooltipEx();
    if (alive.IsAlive())
        FireEvent(typeid(IMouseNotify), handler_cast(&IMouseNotify::OnMouseLeave), event, true);
}

void CSysWindow::ProcessKeyPress(CKeyboardEvent* event)
{
    DemandRecord(this, event);
    const CLifeWatch alive = WatchLife();
    HideTooltip();
    if (alive.IsAlive())
        FireEvent(typeid(IKeyboardNotify), handler_cast(&IKeyboardNotify::OnKeyPress), event, true);
}

void CSysWindow::ProcessKeyRelease(CKeyboardEvent* event)
{
    DemandRecord(this, event);
    FireEvent(typeid(IKeyboardNotify), handler_cast(&IKeyboardNotify::OnKeyRelease), event, true);
}

void CSysWindow::ProcessChar(CKeyboardEvent* event)
{
    DemandRecord(this, event);
    FireEvent(typeid(IKeyboardNotify), handler_cast(&IKeyboardNotify::OnChar), event, true);
}

void CSysWindow::ProcessGetFocus()
{
    CEvent event(this);
    FireEvent(typeid(IFocusNotify), handler_cast(&IFocusNotify::OnGetFocus), &event, true);
}

void CSysWindow::ProcessReleaseFocus()
{
    const CLifeWatch alive = WatchLife();
    HideTooltip();
    CEvent event(this);
    if (alive.IsAlive())
        FireEvent(typeid(IFocusNotify), handler_cast(&IFocusNotify::OnReleaseFocus), &event, true);
}

void CSysWindow::ProcessMove(CWindowEvent* event)
{
    DemandRecord(this, event);
    FireEvent(typeid(IWindowNotify), handler_cast(&IWindowNotify::OnMove), event, true);
}

void CSysWindow::ProcessResize(CWindowEvent* event)
{
    DemandRecord(this, event);
    Demand(event && event->x >= 0 && event->y >= 0, "hook: the size is not negative");
    if (m_updateOnResize) {
        const rectangle<int> client = GetClientRect();
        Invalidate(client.left, client.top, client.right, client.bottom);
    }
    FireEvent(typeid(IWindowNotify), handler_cast(&IWindowNotify::OnResize), event, true);
}

void CSysWindow::ProcessPaint(IPainter* painter)
{
    Demand(painter && painter == static_cast<ISysWindow*>(this)->TakeDefPainter(),
           "hook: the painter is the window's own");
    CDrawEvent event(this, painter);
    FireEvent(typeid(IDrawingNotify), handler_cast(&IDrawingNotify::OnDraw), &event, true);
}

void CSysWindow::ProcessContextMenu(CContextMenuEvent* event)
{
    DemandRecord(this, event);
    FireEvent(typeid(IContextMenuNotify), handler_cast(&IContextMenuNotify::OnContextMenu), event, true);
}

void CSysWindow::ProcessSysColorChanged()
{
    CEvent event(this);
    FireEvent(typeid(IWindowNotify), handler_cast(&IWindowNotify::OnSysColorChanged), &event, true);
}

void CSysWindow::ProcessDestroy()
{
    if (m_destroyed.exchange(true))
        return;
    StopTooltipTimer();
    m_tooltipTimer.Reset();
    m_tooltip = nullptr;
    m_tooltipPending = false;
    CEvent event(this);
    try {
        FireEvent(typeid(IWindowNotify), handler_cast(&IWindowNotify::OnDestroy), &event, true);
    } catch (...) {
        // Called from destructors: whatever a listener throws ends here.
    }
}

// ---- navigation

void CSysWindow::CircuitTabTraversal(bool forward)
{
    CKeyboardEvent event(this);
    event.key = kcTab;
    event.state = forward ? 0u : std::uint32_t{ksShift};
    const CLifeWatch alive = WatchLife();
    FireEvent(typeid(ITabTraversalNotify), handler_cast(&ITabTraversalNotify::OnTabTraversal), &event, true);
    if (alive.IsAlive() && event.passOn)
        FocusNextTabStop(forward);
}

// From the stop that has the focus to the next that can take it, round the list; without stops, the window.
void CSysWindow::FocusNextTabStop(bool forward)
{
    const auto focused = std::find_if(m_tabStops.begin(), m_tabStops.end(),
                                      [](const ICustomControl* stop) { return stop->GetFocused(); });
    const std::size_t count = m_tabStops.size();
    const std::size_t step = forward ? 1 : count - 1;
    std::size_t at = static_cast<std::size_t>(focused - m_tabStops.begin());
    if (at == count) // none: the search begins outside the list
        at = forward ? count - 1 : 0;
    for (std::size_t tried = 0; tried < count; ++tried) {
        at = (at + step) % count;
        ICustomControl* const stop = m_tabStops[at];
        if (stop->GetVisible() && stop->GetEnabled()) {
            stop->SetFocusEx();
            return;
        }
    }
    SetFocus();
}

void CSysWindow::AddTabStop(ICustomControl* control)
{
    if (control && std::find(m_tabStops.begin(), m_tabStops.end(), control) == m_tabStops.end())
        m_tabStops.push_back(control);
}

void CSysWindow::RemoveTabStop(ICustomControl* control)
{
    m_tabStops.erase(std::remove(m_tabStops.begin(), m_tabStops.end(), control), m_tabStops.end());
}

// ---- cursor

void CSysWindow::SetCursor(int id)
{
    m_cursor = id;
    InternalSetCursor(id);
}

// ---- tooltip; what is done to a shown one may reach listeners of its layer, which may destroy the window

bool CSysWindow::IsTipUnderMouse() const
{
    return m_tooltip && m_tooltip->IsUnderMouse();
}

bool CSysWindow::IsTooltipVisible() const
{
    return m_tooltip && m_tooltip->IsVisible();
}

void CSysWindow::SetEnableTooltip(bool enable)
{
    m_tooltipEnabled = enable;
    if (!enable)
        HideTooltip();
}

void CSysWindow::TrackTooltip(int x, int y, const std::string& text)
{
    m_tooltipText = text;
    if (!m_tooltipEnabled || !m_tooltip || IsDestroyed())
        return;
    m_tooltipTracking = true;
    m_tooltipPending = true;
    const CLifeWatch alive = WatchLife();
    m_tooltip->Track(x, y, text);
    if (!alive.IsAlive() || IsTooltipVisible())
        return;
    if (m_tooltipDelay <= 0) {
        ShowPendingTooltip();
        return;
    }
    ISystem* const system = GetCurrentSystem();
    if (!m_tooltipTimer && system) {
        m_tooltipTimer = system->CreateTimer(m_tooltipDelay, false);
        if (m_tooltipTimer)
            vela7::Subscribe<ITimerNotify>(*m_tooltipTimer, &m_tooltipTimerNotify);
    }
    if (m_tooltipTimer) {
        m_tooltipTimer->SetInterval(m_tooltipDelay);
        m_tooltipTimer->SetEnabled(true);
    }
}

// Timers are periodic: the first tick ends the wait.
void CSysWindow::OnTooltipTimer(CTimerEvent*)
{
    StopTooltipTimer();
    ShowPendingTooltip();
}

void CSysWindow::ShowPendingTooltip()
{
    const ISystem* const system = GetCurrentSystem();
    const bool wanted = m_tooltip && m_tooltipEnabled && m_tooltipPending && m_tooltipTracking;
    m_tooltipPending = false;
    if (wanted && !IsDestroyed() && HasTip() && system && system->IsAppActive())
        m_tooltip->Show();
}

// There is something to be seen in it.
bool CSysWindow::HasTip() const
{
    return !m_tooltipText.empty() || m_tooltip->GetLayerMode() != ITooltip::lmNormal;
}

void CSysWindow::StopTooltipTimer()
{
    if (m_tooltipTimer)
        m_tooltipTimer->SetEnabled(false);
}

void CSysWindow::HideTooltip()
{
    m_tooltipPending = false;
    StopTooltipTimer();
    if (m_tooltip)
        m_tooltip->Hide();
}

void CSysWindow::HideTooltipEx()
{
    m_tooltipTracking = false;
    if (IsTooltipVisible())
        HideTooltip();
}

} // namespace vela7
