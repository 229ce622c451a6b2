/// The notification interfaces: what a listener implements.
///
/// Each derives from INotify singly and not virtually, with INotify as its first base: the senders call
/// through members of INotify. Every operation does nothing unless overridden. A class that listens to
/// several families derives from several of these and subscribes each by its own type (see Subscribe in
/// eventsender.h). Listeners belong to whoever made them; they unsubscribe before they die (CSubscriber
/// does). Thread: GUI.
#pragma once

#include "vela7/baseexport.h"
#include "vela7/events.h"

namespace vela7 {

class VELA7_BASE_API INotify
{
public:
    virtual ~INotify() = default;
    /// After a subscription that asked for notice.
    virtual void NoticeStarted(IEventSender*) {}
    /// After an unsubscription that asked for notice, and always when the sender dies. Then only the
    /// pointer's identity may be used, the sender is half gone.
    virtual void NoticeStopped(IEventSender*) {}
};

class VELA7_BASE_API IDrawingNotify : public INotify
{
public:
    /// Draw the window: bracket the drawing with BeginPaint and EndPaint (or a CPaintScope).
    virtual void OnDraw(CDrawEvent*) {}
};

/// Left and right button only: a press of the middle button is not reported, though it shows in the state of
/// other records and as the button of a move.
class VELA7_BASE_API IMouseNotify : public INotify
{
public:
    virtual void OnMousePress(CMouseEvent*) {}
    virtual void OnMouseRelease(CMouseEvent*) {}
    virtual void OnMouseDoubleClick(CMouseEvent*) {}
    virtual void OnMouseMove(CMouseEvent*) {}
    virtual void OnMouseWheel(CMouseWheelEvent*) {}
    virtual void OnMouseEnter(CMouseEvent*) {}
    virtual void OnMouseLeave(CMouseEvent*) {}
};

/// A listener that uses Tab itself clears allowNavigation in OnKeyPress, and passOn there or in the OnChar
/// that follows: the native toolkit moves the focus by a Tab that nobody stopped.
class VELA7_BASE_API IKeyboardNotify : public INotify
{
public:
    virtual void OnKeyPress(CKeyboardEvent*) {}
    virtual void OnKeyRelease(CKeyboardEvent*) {}
    virtual void OnChar(CKeyboardEvent*) {}
};

class VELA7_BASE_API IFocusNotify : public INotify
{
public:
    virtual void OnGetFocus(CEvent*) {}
    virtual void OnReleaseFocus(CEvent*) {}
};

class VELA7_BASE_API IWindowNotify : public INotify
{
public:
    virtual void OnMove(CWindowEvent*) {}
    virtual void OnResize(CWindowEvent*) {}
    virtual void OnSysColorChanged(CEvent*) {}
    /// The window is being destroyed; its native part still exists.
    virtual void OnDestroy(CEvent*) {}
};

class VELA7_BASE_API ITabTraversalNotify : public INotify
{
public:
    /// Tab left the focus in this window; state has Shift for backward. Clear passOn when handled.
    virtual void OnTabTraversal(CKeyboardEvent*) {}
};

class VELA7_BASE_API IContextMenuNotify : public INotify
{
public:
    virtual void OnContextMenu(CContextMenuEvent*) {}
};

class VELA7_BASE_API ITimerNotify : public INotify
{
public:
    virtual void OnTimer(CTimerEvent*) {}
};

class VELA7_BASE_API IClipboardChangeNotify : public INotify
{
public:
    virtual void OnClipboardChange(CEvent*) {}
};

class VELA7_BASE_API IEditNotify : public INotify
{
public:
    virtual void OnEditTextChanged(CEditTextEvent*) {}
    virtual void OnEditChar(CEditKeyEvent*) {}
    virtual void OnEditKeyDown(CEditKeyEvent*) {}
    virtual void OnEditEnter(CEditEnterEvent*) {}
};

class VELA7_BASE_API IComboBoxNotify : public INotify
{
public:
    /// The list is about to open; the wx back-end does not report it.
    virtual void OnComboDropDown(CEvent*) {}
    virtual void OnComboItemSelected(CComboEvent*) {}
};

class VELA7_BASE_API IScrollBarNotify : public INotify
{
public:
    virtual void OnScroll(CScrollEvent*) {}
};

class VELA7_BASE_API IMenuNotify : public INotify
{
public:
    /// The menu is about to open; the wx back-end does not report it.
    virtual void OnMenuPopup(CEvent*) {}
    virtual void OnMenuCommand(CMenuEvent*) {}
};

} // namespace vela7
