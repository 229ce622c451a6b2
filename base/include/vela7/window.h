/// Windows.
///
/// A toolkit window belongs to its native window: toolkit code never deletes it, and Release does not either.
/// When the native window is destroyed (closed, or its parent died), listeners hear OnDestroy and the window
/// is gone. A listener may bring that about from inside any notification.
/// Thread: GUI, except Synchronize and IsDestroyed.
#pragma once

#include "vela7/canvas.h"
#include "vela7/cbase.h"
#include "vela7/eventsender.h"
#include "vela7/system.h"
#include "vela7/types.h"

#include <atomic>
#include <string>
#include <vector>

namespace vela7 {

class ICustomControl;
class IInplaceComboBox;
class IInplaceEdit;
class IPopup;
class IPopupMenu;
class IScrollBar;
class ITooltip;

class VELA7_BASE_API ISynchronize
{
public:
    virtual ~ISynchronize() = default;
    /// Has a runnable run once on the GUI thread, in a later pass of the event loop. Any thread, which sees
    /// to it that the window outlives the call: end the other threads in OnDestroy at the latest. A dynamic
    /// runnable is deleted after it ran, on the GUI thread, also when it threw or when the window was
    /// destroyed before; one given to a window whose end has begun is neither run nor deleted.
    virtual void Synchronize(IRunnable* runnable) = 0;
};

class VELA7_BASE_API ISysWindow : public CBase, public IEventSender, public ISynchronize
{
public:
    enum WindowType
    {
        wtNormal = 0, ///< background in the window colour
        wtPanel = 1   ///< background in the face colour of buttons
    };

    /// Not to be confused with vela7::BorderStyle.
    enum BorderStyle
    {
        bsNone = 0,
        bsTheme = 1,
        bsSimple = 2
    };

    enum ScrollType
    {
        stHorizontal = 1,
        stVertical = 2
    };

    /// Client coordinates of the parent; right and bottom exclusive. update: repaint at once.
    virtual void SetWindowRect(int left, int top, int right, int bottom, bool update) = 0;
    virtual void SetWindowRect(const screen_rectangle<int>& rect, bool update) = 0;
    /// The normalised rectangle with the corners (x, y) and (width, height): not x + width, y + height.
    virtual rectangle<int> GetWindowRect() const = 0;
    /// (0, 0) to (width, height) of the client area.
    virtual rectangle<int> GetClientRect() const = 0;
    virtual void SetEnabled(bool enabled) = 0;
    virtual bool GetEnabled() const = 0;
    virtual void SetVisible(bool visible) = 0;
    virtual bool GetVisible() const = 0;
    virtual void SetFocus() = 0;
    /// The window itself or a native window directly on it has the focus.
    virtual bool GetFocused() const = 0;

    /// Whether a press takes the focus (the default). With false the native toolkit may still give it to the
    /// window while passOn stays true; clear passOn to prevent that.
    virtual void SetFocusOnClick(bool focus) = 0;
    virtual bool GetFocusOnClick() const = 0;
    /// False also hides a tip that is shown.
    virtual void SetEnableTooltip(bool enable) = 0;
    virtual bool GetEnableTooltip() const = 0;
    /// From tracking to showing; 0 or less shows at once. 500 unless set.
    virtual void SetTooltipDelay(int milliseconds) = 0;
    virtual int GetTooltipDelay() const = 0;
    /// Null when the back-end has none.
    virtual ITooltip* TakeTooltip() = 0;
    /// Wants a tip with this text at this place of the screen.
    virtual void TrackTooltip(int x, int y, const std::string& text) = 0;
    virtual void HideTooltip() = 0;
    /// Hides a tip only when it is visible; ends the tracking in any case.
    virtual void HideTooltipEx() = 0;
    virtual bool IsTooltipVisible() const = 0;
    /// Whether a resize repaints the whole client area (the default).
    virtual void SetUpdateOnResize(bool update) = 0;
    virtual bool GetUpdateOnResize() const = 0;

    virtual void WindowToScreen(point<int>& p) const = 0;
    virtual void ScreenToWindow(point<int>& p) const = 0;
    /// Values outside the enumeration are ignored.
    virtual void SetBorderStyle(BorderStyle style) = 0;
    virtual BorderStyle GetBorderStyle() const = 0;
    /// Black where nothing can be read.
    virtual _color GetPixel(int x, int y) const = 0;
    virtual void SetText(const std::string& text) = 0;
    /// CursorId or a registered id; unknown ids leave the native cursor alone.
    virtual void SetCursor(int id) = 0;
    virtual int GetCursor() const = 0;
    virtual CHandle<IPopupMenu> CreateMenu() = 0;
    virtual void CaptureMouse() = 0;
    virtual void ReleaseMouse() = 0;
    /// style: EditStyle bits.
    virtual CHandle<IInplaceEdit> CreateInplaceEdit(unsigned long style) = 0;
    virtual CHandle<IInplaceComboBox> CreateInplaceComboBox(bool editable) = 0;
    virtual CHandle<IScrollBar> CreateScrollBar(ScrollType type) = 0;
    virtual CHandle<IPopup> CreatePopup() = 0;
    /// Belongs to its native window, which belongs to this one's.
    virtual ISysWindow* CreateChild(WindowType type) = 0;
    /// Moves the content of left..right x top..bottom by (dx, dy).
    virtual void ScrollContent(int dx, int dy, int left, int top, int right, int bottom) = 0;
    /// The painter that OnDraw gets; the window keeps it.
    virtual IPainter* TakeDefPainter() = 0;
    /// Asks for a repaint in a later pass of the event loop; right and bottom exclusive.
    virtual void Invalidate(int left, int top, int right, int bottom) = 0;
    /// Repaints at once.
    virtual void Refresh(int left, int top, int right, int bottom, bool erase) = 0;
    /// -1 when the window is on no monitor.
    virtual int GetMonitorIndex() const = 0;
    /// Nested locks are counted.
    virtual void LockDraw(bool lock) = 0;
    /// The native window; the wx back-end's is a wxWindow*.
    virtual void* GetNativeHandle() const = 0;
    /// The window or anything inside it has the focus.
    virtual bool IsActive() const = 0;
    /// Destruction has begun. Any thread, as long as the window exists.
    virtual bool IsDestroyed() const = 0;
    virtual void OnTooltipTimer(CTimerEvent* event) = 0;
    /// Shows a cursor now; false (and nothing changes) when the id has none.
    virtual bool InternalSetCursor(int id) = 0;
};

class CSysWindow;

/// Passes the ticks of a window's tooltip timer on to it.
class VELA7_BASE_API CTooltipTimerNotify : public CSubscriber<ITimerNotify>
{
public:
    explicit CTooltipTimerNotify(CSysWindow* owner) : m_owner(owner) {}
    void OnTimer(CTimerEvent* event) override;

private:
    CSysWindow* m_owner; // holds this object
};

/// The native control that a window is attached to, when it is hosted by one.
class VELA7_BASE_API INativeControl
{
public:
    virtual ~INativeControl() = default;
    virtual void* GetHandle() const = 0;
};

/// The platform-neutral half of a window: what back-ends derive theirs from.
///
/// Each Process hook is what the back-end calls when something happened; it fires the record to the
/// listeners, not beyond one that cleared passOn. The window may be destroyed when a hook returns.
class VELA7_BASE_API CSysWindow : public CImplEventSender<ISysWindow>, public ICanvas
{
public:
    CSysWindow();
    ~CSysWindow() override;

    /// Declares the event types that windows send.
    void Init();

    virtual void ProcessMousePress(CMouseEvent* event);
    virtual void ProcessMouseRelease(CMouseEvent* event);
    virtual void ProcessMouseDoubleClick(CMouseEvent* event);
    virtual void ProcessMouseMove(CMouseEvent* event);
    virtual void ProcessWheel(CMouseWheelEvent* event);
    virtual void ProcessEnter(CMouseEvent* event);
    virtual void ProcessLeave(CMouseEvent* event);
    virtual void ProcessKeyPress(CKeyboardEvent* event);
    virtual void ProcessKeyRelease(CKeyboardEvent* event);
    virtual void ProcessChar(CKeyboardEvent* event);
    virtual void ProcessGetFocus();
    virtual void ProcessReleaseFocus();
    virtual void ProcessMove(CWindowEvent* event);
    virtual void ProcessResize(CWindowEvent* event);
    virtual void ProcessPaint(IPainter* painter);
    virtual void ProcessContextMenu(CContextMenuEvent* event);
    virtual void ProcessSysColorChanged();
    /// Once, at the beginning of destruction; later calls do nothing. Swallows what listeners throw.
    virtual void ProcessDestroy();

    /// Navigation left the focus in this window: asks ITabTraversalNotify, then moves among the tab stops.
    virtual void CircuitTabTraversal(bool forward);

    void SetFocusOnClick(bool focus) override { m_focusOnClick = focus; }
    bool GetFocusOnClick() const override { return m_focusOnClick; }
    void SetEnableTooltip(bool enable) override;
    bool GetEnableTooltip() const override { return m_tooltipEnabled; }
    void SetTooltipDelay(int milliseconds) override { m_tooltipDelay = milliseconds; }
    int GetTooltipDelay() const override { return m_tooltipDelay; }
    ITooltip* TakeTooltip() override { return m_tooltip; }
    void TrackTooltip(int x, int y, const std::string& text) override;
    void HideTooltip() override;
    void HideTooltipEx() override;
    bool IsTooltipVisible() const override;
    void SetUpdateOnResize(bool update) override { m_updateOnResize = update; }
    bool GetUpdateOnResize() const override { return m_updateOnResize; }
    void SetCursor(int id) override;
    int GetCursor() const override { return m_cursor; }
    bool IsDestroyed() const override { return m_destroyed.load(); }
    void OnTooltipTimer(CTimerEvent* event) override;

    /// Set by the back-end; belongs to the native window.
    void SetTooltip(ITooltip* tooltip) { m_tooltip = tooltip; }

    /// The popup flag: a popup's content does not take the focus when it is pressed.
    void SetPopup(unsigned char popup) { m_popup = popup; }
    unsigned char GetPopup() const { return m_popup; }

    /// Not owned; null unless set.
    void SetNativeControl(INativeControl* control) { m_nativeControl = control; }
    INativeControl* GetNativeControl() const { return m_nativeControl; }

    /// Tab stops in their order, each once; not owned, remove them before they die.
    void AddTabStop(ICustomControl* control);
    void RemoveTabStop(ICustomControl* control);

protected:
    /// This window as the sender of its records.
    IEventSender* Sender() { return this; }

private:
    bool IsTipUnderMouse() const;
    bool HasTip() const;
    void ShowPendingTooltip();
    void StopTooltipTimer();
    void FocusNextTabStop(bool forward);

    ITooltip* m_tooltip = nullptr; // belongs to the native window
    bool m_tooltipEnabled = true;
    bool m_tooltipTracking = false;
    bool m_tooltipPending = false;
    int m_tooltipDelay = 500;
    std::string m_tooltipText;
    CHandle<ISysTimer> m_tooltipTimer; // made when first needed
    CTooltipTimerNotify m_tooltipTimerNotify;
    int m_cursor = crDefault;
    bool m_focusOnClick = true;
    bool m_updateOnResize = true;
    unsigned char m_popup = 0;
    std::atomic<bool> m_destroyed{false};
    INativeControl* m_nativeControl = nullptr;
    std::vector<ICustomControl*> m_tabStops;
};

} // namespace vela7
