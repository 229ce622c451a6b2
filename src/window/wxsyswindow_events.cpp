// Toolkit windows: from wx events to the toolkit's records; focus, navigation, work from other threads.
//
// Every handler is the same four steps: build the record, call the hook, see whether the window still exists,
// copy passOn back.

#include "vela7/wxsyswindow.h"

#include "life/callout.h"
#include "port/drawing.h"
#include "port/wayland.h"
#include "vela7/wxconvert.h"
#include "vela7/wxvelawindow.h"

#include <wx/app.h>
#include <wx/dcclient.h>
#include <wx/utils.h>
#include <wx/window.h>

namespace vela7 {

namespace {

using SyncEventFunction = void (wxEvtHandler::*)(wxSyncEvent&);

} // namespace

// clang-format off
// Kept by contract: no entries for presses, releases and double clicks of the middle button; controls act on left and
// right.
wxBEGIN_EVENT_TABLE(CwxSysWindow, wxEvtHandler)
    EVT_LEFT_DOWN(CwxSysWindow::mousePressEvent)
    EVT_RIGHT_DOWN(CwxSysWindow::mousePressEvent)
    EVT_LEFT_UP(CwxSysWindow::mouseReleaseEvent)
    EVT_RIGHT_UP(CwxSysWindow::mouseReleaseEvent)
    EVT_LEFT_DCLICK(CwxSysWindow::mouseDoubleClickEvent)
    EVT_RIGHT_DCLICK(CwxSysWindow::mouseDoubleClickEvent)
    EVT_MOTION(CwxSysWindow::mouseMoveEvent)
    EVT_MOUSEWHEEL(CwxSysWindow::wheelEvent)
    EVT_ENTER_WINDOW(CwxSysWindow::enterEvent)
    EVT_LEAVE_WINDOW(CwxSysWindow::leaveEvent)
    EVT_KEY_DOWN(CwxSysWindow::keyPressEvent)
    EVT_KEY_UP(CwxSysWindow::keyReleaseEvent)
    EVT_CHAR(CwxSysWindow::OnChar)
    EVT_SET_FOCUS(CwxSysWindow::focusInEvent)
    EVT_KILL_FOCUS(CwxSysWindow::focusOutEvent)
    EVT_MOVE(CwxSysWindow::moveEvent)
    EVT_SIZE(CwxSysWindow::sizeEvent)
    EVT_PAINT(CwxSysWindow::paintEvent)
    EVT_ERASE_BACKGROUND(CwxSysWindow::eraseEvent)
    EVT_CLOSE(CwxSysWindow::closeEvent)
    EVT_MOUSE_CAPTURE_LOST(CwxSysWindow::captureLostEvent)
    EVT_CONTEXT_MENU(CwxSysWindow::contextMenuEvent)
    EVT_SYS_COLOUR_CHANGED(CwxSysWindow::sysColorChangedEvent)
    wx__DECLARE_EVT0(wxEVT_SYNC_RUN, wxEVENT_HANDLER_CAST(SyncEventFunction, CwxSysWindow::syncEvent))
    EVT_NAVIGATION_KEY(CwxSysWindow::navigationEvent)
wxEND_EVENT_TABLE()
// clang-format on

// Calls a hook. False: a listener destroyed the window, or wanted its end before this event came; then the
// hook is not called. In both cases the event counts as handled whatever passOn says, since wx uses the
// window after an unhandled event.
template <class Hook>
bool CwxSysWindow::Deliver(wxEvent& event, Hook hook)
{
    const CEventLife::CHold hold(window->life);
    const bool wanted = !window->life.IsEnding();
    if (wanted)
        CallOut(hook);
    if (wanted && hold.IsAlive())
        return true;
    CEventLife::Consume(event);
    return false;
}

// The same for a hook that takes a record, with passOn copied back.
template <class Record>
void CwxSysWindow::Deliver(wxEvent& event, Record& record, void (CSysWindow::*hook)(Record*))
{
    if (Deliver(event, [&] { (this->*hook)(&record); }))
        event.Skip(record.passOn);
}

bool CwxSysWindow::ProcessEvent(wxEvent& event)
{
    if (event.GetEventType() == wxEVT_CLOSE_WINDOW) // ends the window at once; wx looks at nothing after it
        return wxEvtHandler::ProcessEvent(event);
    const CEventLife::CHold hold(window->life);
    const bool processed = wxEvtHandler::ProcessEvent(event);
    if (hold.IsAlive())
        return processed;
    CEventLife::Consume(event);
    return true;
}

// ---- mouse

CMouseEvent CwxSysWindow::MakeMouseRecord(const wxMouseEvent& event, std::uint32_t button)
{
    CMouseEvent record(this);
    record.state = wx2velaMouseState(event);
    record.position = {event.GetX(), event.GetY()};
    record.button = button;
    return record;
}

void CwxSysWindow::mousePressEvent(wxMouseEvent& event)
{
    CMouseEvent record = MakeMouseRecord(event, wx2velaMouseBtn(event));
    pressedButton = static_cast<int>(record.button);
    Deliver(event, record, &CSysWindow::ProcessMousePress);
}

void CwxSysWindow::mouseReleaseEvent(wxMouseEvent& event)
{
    CMouseEvent record = MakeMouseRecord(event, wx2velaMouseBtnUp(event));
    pressedButton = mbNone;
    Deliver(event, record, &CSysWindow::ProcessMouseRelease);
}

void CwxSysWindow::mouseDoubleClickEvent(wxMouseEvent& event)
{
    CMouseEvent record = MakeMouseRecord(event, wx2velaMouseBtnDClick(event));
    Deliver(event, record, &CSysWindow::ProcessMouseDoubleClick);
}

void CwxSysWindow::mouseMoveEvent(wxMouseEvent& event)
{
    CMouseEvent record = MakeMouseRecord(event, wx2velaMouseBtnMove(event));
    Deliver(event, record, &CSysWindow::ProcessMouseMove);
}

void CwxSysWindow::wheelEvent(wxMouseEvent& event)
{
    CMouseWheelEvent record;
    static_cast<CMouseEvent&>(record) = MakeMouseRecord(event, mbNone);
    const int rotation = event.GetWheelRotation();
    const int lines = event.GetLinesPerAction();
    record.delta = rotation > 0 ? lines : rotation < 0 ? -lines : 0;
    // Kept by contract: the wheel ends here, whatever the listeners say; wx would scroll the parent too.
    if (Deliver(event, [&] { ProcessWheel(&record); }))
        event.Skip(false);
}

// Kept by contract: entering and leaving do not copy passOn; the events end here.

void CwxSysWindow::enterEvent(wxMouseEvent& event)
{
    CMouseEvent record = MakeMouseRecord(event, mbNone);
    Deliver(event, [&] { ProcessEnter(&record); });
}

void CwxSysWindow::leaveEvent(wxMouseEvent& event)
{
    CMouseEvent record = MakeMouseRecord(event, mbNone);
    Deliver(event, [&] { ProcessLeave(&record); });
    wxSetCursor(*wxSTANDARD_CURSOR);
}

void CwxSysWindow::contextMenuEvent(wxContextMenuEvent& event)
{
    // Kept by contract: the record says where the mouse is, not what the event says, and the event always
    // ends here; a menu belongs to the pointer.
    const wxPoint position = window->ScreenToClient(wxGetMousePosition());
    CContextMenuEvent record(this);
    record.position = {position.x, position.y};
    if (Deliver(event, [&] { ProcessContextMenu(&record); }))
        event.Skip(false);
}

void CwxSysWindow::captureLostEvent(wxMouseCaptureLostEvent&)
{
    // wx wants to know that the loss was noticed.
}

// ---- keyboard

namespace {

CKeyboardEvent MakeKeyRecord(IEventSender* sender, const wxKeyEvent& event)
{
    CKeyboardEvent record(sender);
    record.state = wx2velaKeyState(event);
    record.key = static_cast<std::uint32_t>(wx2velaKeyCode(event.GetKeyCode()));
    return record;
}

} // namespace

void CwxSysWindow::keyPressEvent(wxKeyEvent& event)
{
    CKeyboardEvent record = MakeKeyRecord(this, event);
    if (!Deliver(event, [&] { ProcessKeyPress(&record); }))
        return;
    if (event.GetKeyCode() == WXK_TAB && record.allowNavigation) {
        const bool forward = !event.ShiftDown();
        const bool windowChange = event.ControlDown();
        if (Deliver(event, [&] { doNavigation(forward, windowChange); }))
            event.Skip(false);
        return;
    }
    event.Skip(record.passOn);
}

void CwxSysWindow::keyReleaseEvent(wxKeyEvent& event)
{
    CKeyboardEvent record = MakeKeyRecord(this, event);
    Deliver(event, record, &CSysWindow::ProcessKeyRelease);
}

void CwxSysWindow::OnChar(wxKeyEvent& event)
{
    CKeyboardEvent record(this);
    record.key = static_cast<std::uint32_t>(wx2velaChar(event.GetKeyCode()));
    record.character = static_cast<unsigned char>(event.GetKeyCode() & 0xff);
    Deliver(event, record, &CSysWindow::ProcessChar);
}

// ---- geometry, painting, life

void CwxSysWindow::moveEvent(wxMoveEvent& event)
{
    CWindowEvent record(this, event.GetPosition().x, event.GetPosition().y);
    Deliver(event, record, &CSysWindow::ProcessMove);
}

void CwxSysWindow::sizeEvent(wxSizeEvent& event)
{
    if (window->PutOffResize())
        return;
    const wxSize client =
        window->GetClientSize(); // Kept by contract: the size is the client area's, not what the event says
    CWindowEvent record(this, client.GetWidth(), client.GetHeight());
    Deliver(event, record, &CSysWindow::ProcessResize);
}

void CwxSysWindow::paintEvent(wxPaintEvent& event)
{
    if (!defPainter || defPainter->GetPaintSuppressed() || window->life.IsEnding())
        return;
    wxPaintDC dc(window);
    const std::shared_ptr<gtkport::CKeptPicture> kept = m_kept;
    const wxRect damage = kept ? kept->TakeDamage() : window->GetUpdateRegion().GetBox();
    bool alive = true;
    if (!kept)
        Paint(event, dc, damage);
    else if (!damage.IsEmpty())
        alive = Paint(event, *kept->BeginPaint(damage), damage);
    if (kept && alive)
        kept->CopyTo(dc);
}

// False: the window is gone.
bool CwxSysWindow::Paint(wxPaintEvent& event, wxDC& dc, const wxRect& damage)
{
    CwxWinPainter& painter = *defPainter;
    painter.SetDC(&dc);
    bool alive = true;
    if (IsSubscribed(typeid(IDrawingNotify))) {
        painter.SetUpdateRect({damage.x, damage.y, damage.x + damage.width, damage.y + damage.height});
        alive = Deliver(event, [&] { ProcessPaint(&painter); });
    } else {
        const CPaintScope paint(painter);
        const rectangle<int> client = GetClientRect();
        painter.SetBrush(brush{painter.GetBackgroundColor(), bsSolid});
        painter.FillRect(client.left, client.top, client.right, client.bottom);
    }
    if (alive)
        painter.SetDC(nullptr);
    return alive;
}

void CwxSysWindow::eraseEvent(wxEraseEvent& event)
{
    // Kept by contract: not skipped, so wx does not erase either; all filling is done while painting.
    if (event.GetDC())
        gtkport::Erase(*event.GetDC(), *window);
}

void CwxSysWindow::closeEvent(wxCloseEvent&)
{
    window->Destroy();
}

void CwxSysWindow::sysColorChangedEvent(wxSysColourChangedEvent& event)
{
    event.Skip(true);
    Deliver(event, [this] { ProcessSysColorChanged(); });
}

// ---- focus and navigation

void CwxSysWindow::SetFocus()
{
    window->SetFocus();
}

bool CwxSysWindow::GetFocused() const
{
    // Kept by contract: children count, deeper descendants do not, unlike IsActive; in-place editors are
    // children.
    const wxWindow* const focus = wxWindow::FindFocus();
    return focus && !IsWindowExternal(focus, window);
}

bool CwxSysWindow::IsActive() const
{
    return IsActiveImp(wxWindow::FindFocus());
}

bool CwxSysWindow::IsActiveImp(const wxWindow* candidate) const
{
    while (candidate && candidate != window)
        candidate = candidate->GetParent();
    return candidate != nullptr;
}

void CwxSysWindow::doNavigation(bool forward, bool windowChange)
{
    const CLifeWatch alive = WatchLife();
    wxWindow* const parent = window->GetParent();
    wxWindow* const grandparent = parent ? parent->GetParent() : nullptr;
    if (grandparent)
        grandparent->NavigateIn((forward ? wxNavigationKeyEvent::IsForward : 0) |
                                (windowChange ? wxNavigationKeyEvent::WinChange : 0));
    if (alive.IsAlive() && IsActive())
        CircuitTabTraversal(forward);
}

void CwxSysWindow::navigationEvent(wxNavigationKeyEvent& event)
{
    if (!wxApp::GetInstance() || !wxApp::GetInstance()->IsMainLoopRunning())
        return;
    CKeyboardEvent record(this);
    record.key = static_cast<std::uint32_t>(wx2velaKeyCode(WXK_TAB));
    if (!event.GetDirection())
        record.state = ksShift;
    else if (event.IsWindowChange())
        record.state = ksControl;
    // Kept by contract: a window that used the Tab stops wx's navigation by allowNavigation, not by passOn.
    if (Deliver(event, [&] { ProcessKeyPress(&record); }))
        event.Skip(record.allowNavigation);
}

void CwxSysWindow::focusInEvent(wxFocusEvent& event)
{
    if (Deliver(event, [this] { ProcessGetFocus(); }))
        event.Skip();
}

// Focus that stays inside the window is not lost.
void CwxSysWindow::focusOutEvent(wxFocusEvent& event)
{
    if (IsActiveImp(event.GetWindow()) || Deliver(event, [this] { ProcessReleaseFocus(); }))
        event.Skip();
}

// The event is the control's own, so wx goes on using the control: what dies here is dealt with as in the
// window's own handlers.

void CwxSysWindow::OnChildFocusIn(wxFocusEvent& event)
{
    if (IsWindowExternal(event.GetWindow(), window))
        Deliver(event, [this] { ProcessGetFocus(); });
}

void CwxSysWindow::OnChildFocusOut(wxFocusEvent& event)
{
    if (IsWindowExternal(event.GetWindow(), window))
        Deliver(event, [this] { ProcessReleaseFocus(); });
}

// ---- work from other threads

void CwxSysWindow::Synchronize(IRunnable* runnable)
{
    if (IsDestroyed())
        return;
    QueueEvent(new wxSyncEvent(runnable));
}

void CwxSysWindow::syncEvent(wxSyncEvent& event)
{
    if (IRunnable* const runnable = event.GetRunnable())
        Deliver(event, [runnable] { runnable->Run(); });
}

} // namespace vela7
