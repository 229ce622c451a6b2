// Whatever calls out may end the window: it is the last thing that an operation does, or is followed by a
// look at what Deliver has answered.

#include "vela7/testing/fakewindow.h"

#include "desk.h"
#include "vela7/palette.h"
#include "vela7/testing/fakecontrols.h"
#include "vela7/testing/fakemenu.h"
#include "vela7/testing/fakepopup.h"
#include "vela7/testing/fakesystem.h"

#include <algorithm>

namespace vela7::testkit {

FakeFrame::FakeFrame(Desk& desk, const rectangle<int>& screen) : FakeNative(desk, screen)
{
    desk.frames.push_back(this);
}

void FakeFrame::Fit(int width, int height)
{
    m_rect.right = m_rect.left + width;
    m_rect.bottom = m_rect.top + height;
}

FakeWindow::FakeWindow(FakeNative& parent, const rectangle<int>& rect, WindowType type)
    : FakeNative(parent, rect), tooltip(*this)
{
    Init();
    SetTooltip(&tooltip);
    painter.SetCounted(false); // a part of this window
    painter.SetCanvas(this);
    painter.SetBackgroundColor(GetDefaultPalette()->GetSystemColor(type == wtPanel ? ISysPalette::scButtonFace
                                                                                   : ISysPalette::scWindow));
    Place(rect);
}

// Children go while there still is a window to report to.
FakeWindow::~FakeWindow()
{
    BeginEnd();
    ProcessDestroy();
    ReleaseMouse();
    EndChildren();
    m_desk.DropWork(*this);
    RevokeHandles();
    StopAll();
}

void FakeWindow::ProcessDestroy()
{
    const CLifeWatch alive = WatchLife();
    CSysWindow::ProcessDestroy();
    if (!alive.IsAlive())
        return;
    if (auto* const popup = dynamic_cast<FakePopup*>(Parent()))
        popup->LoseContent(*this);
}

// ---- events

/// Calls a hook, if the window wants to hear of anything. False: it is gone, or will be.
template <class Call>
bool FakeWindow::Deliver(Call call)
{
    const Use use(*this);
    if (use.IsWanted())
        call();
    return use.IsWanted();
}

point<int> FakeWindow::PointerPlace() const
{
    point<int> place = m_desk.system.mouse.position;
    ScreenToWindow(place);
    return place;
}

// False when the platform is to do nothing about it.
bool FakeWindow::Mouse(void (CSysWindow::*hook)(CMouseEvent*), MouseButton button)
{
    CMouseEvent event(Sender());
    event.state = m_desk.system.user.held;
    event.position = PointerPlace();
    event.button = button;
    return Deliver([&] { (this->*hook)(&event); }) && event.passOn;
}

void FakeWindow::Wheel(int lines)
{
    CMouseWheelEvent event(Sender());
    event.state = m_desk.system.user.held;
    event.position = PointerPlace();
    event.delta = lines;
    Deliver([&] { ProcessWheel(&event); });
}

void FakeWindow::ContextMenu()
{
    CContextMenuEvent event(Sender());
    event.position = PointerPlace();
    Deliver([&] { ProcessContextMenu(&event); });
}

void FakeWindow::Run(IRunnable& runnable)
{
    Deliver([&] { runnable.Run(); });
}

bool FakeWindow::KeyDown(std::uint32_t key, std::uint32_t state)
{
    CKeyboardEvent event(Sender());
    event.key = key;
    event.state = OneModifier(state);
    if (!Deliver([&] { ProcessKeyPress(&event); }))
        return false;
    if (key != kcTab || !event.allowNavigation)
        return event.passOn;
    Deliver([&] { Navigate(!(state & ksShift)); });
    return false;
}

// Among the siblings of the parent first, as if the window filled it, then among the window's own tab stops.
void FakeWindow::Navigate(bool forward)
{
    const CLifeWatch alive = WatchLife();
    if (Parent() && Parent()->Parent())
        m_desk.NavigateIn(*Parent()->Parent(), *Parent(), forward);
    if (alive.IsAlive() && IsActive())
        CircuitTabTraversal(forward);
}

void FakeWindow::KeyUp(std::uint32_t key, std::uint32_t state)
{
    CKeyboardEvent event(Sender());
    event.key = key;
    event.state = OneModifier(state);
    Deliver([&] { ProcessKeyRelease(&event); });
}

void FakeWindow::Char(unsigned char byte, std::uint32_t)
{
    CKeyboardEvent event(Sender());
    event.key = event.character = byte;
    Deliver([&] { ProcessChar(&event); });
}

// ---- focus

void FakeWindow::SetFocus()
{
    asked.Note("SetFocus");
    TakeFocus();
}

// Kept by contract: children count, deeper descendants do not.
bool FakeWindow::GetFocused() const
{
    const FakeNative* const focus = m_desk.Focus();
    return focus && (focus == this || focus->Parent() == this);
}

bool FakeWindow::IsActive() const
{
    return Holds(m_desk.Focus());
}

void FakeWindow::FocusIn()
{
    Deliver([&] { ProcessGetFocus(); });
}

// Focus that stays inside the window is not lost.
void FakeWindow::FocusOut(const FakeNative* to)
{
    if (!Holds(to))
        Deliver([&] { ProcessReleaseFocus(); });
}

// Of a control on this window; other: where the focus goes, null when it comes.
void FakeWindow::ChildFocus(bool in, const FakeNative* other)
{
    if (other && (other == this || other->Parent() == this))
        return;
    Deliver([&] { in ? ProcessGetFocus() : ProcessReleaseFocus(); });
}

// ---- place and state

void FakeWindow::Place(const rectangle<int>& rect)
{
    m_rect = rect;
    painter.Resize(rect.Width(), rect.Height());
    m_damage = GetClientRect();
}

void FakeWindow::Resize(int width, int height)
{
    const rectangle<int> rect(m_rect.left, m_rect.top, m_rect.left + width, m_rect.top + height);
    if (auto* const frame = dynamic_cast<FakeFrame*>(Parent()))
        frame->Fit(width, height);
    Place(rect);
    CWindowEvent event(Sender(), width, height);
    Deliver([&] { ProcessResize(&event); });
}

// Negative extents come to nothing.
void FakeWindow::SetWindowRect(int left, int top, int right, int bottom, bool update)
{
    asked.Note("SetWindowRect", left, top, right, bottom, update);
    const rectangle<int> rect(left, top, std::max(left, right), std::max(top, bottom));
    const bool resized = rect.Width() != m_rect.Width() || rect.Height() != m_rect.Height();
    const Use use(*this);
    m_rect = rect;
    if (resized) {
        Place(rect);
        CWindowEvent event(Sender(), rect.Width(), rect.Height());
        Deliver([&] { ProcessResize(&event); });
    }
    if (update && use.IsWanted())
        PaintDamage();
}

void FakeWindow::SetWindowRect(const screen_rectangle<int>& r, bool update)
{
    SetWindowRect(r.left, r.top, r.right, r.bottom, update);
}

// Kept by contract: the second corner is (width, height), wherever the window stands.
rectangle<int> FakeWindow::GetWindowRect() const
{
    return {m_rect.left, m_rect.top, m_rect.Width(), m_rect.Height()};
}

void FakeWindow::SetEnabled(bool enabled)
{
    asked.Note("SetEnabled", enabled);
    Enable(enabled);
}

void FakeWindow::SetVisible(bool visible)
{
    asked.Note("SetVisible", visible);
    if (visible && !m_visible)
        m_damage = GetClientRect();
    Show(visible);
}

void FakeWindow::WindowToScreen(point<int>& p) const
{
    const point<int> origin = Origin();
    p = {p.x + origin.x, p.y + origin.y};
}

void FakeWindow::ScreenToWindow(point<int>& p) const
{
    const point<int> origin = Origin();
    p = {p.x - origin.x, p.y - origin.y};
}

void FakeWindow::SetBorderStyle(BorderStyle style)
{
    asked.Note("SetBorderStyle", style);
    if (style >= bsNone && style <= bsSimple)
        m_border = style;
}

bool FakeWindow::HasCapture() const
{
    return !m_desk.captures.empty() && m_desk.captures.back() == this;
}

void FakeWindow::CaptureMouse()
{
    asked.Note("CaptureMouse");
    if (!HasCapture() && !IsDestroyed())
        m_desk.captures.push_back(this);
}

// Also when it is not its turn, since who dies leaves from anywhere.
void FakeWindow::ReleaseMouse()
{
    asked.Note("ReleaseMouse");
    auto& captures = m_desk.captures;
    if (HasCapture() || IsDestroyed())
        captures.erase(std::remove(captures.begin(), captures.end(), this), captures.end());
}

// Knows the standard cursors; registered ones are placeholders, as in the wx back-end.
bool FakeWindow::InternalSetCursor(int id)
{
    asked.Note("ShowCursor", id);
    if (id < crArrow || id > crNoDrop)
        return false;
    shownCursor = id;
    return true;
}

void FakeWindow::Synchronize(IRunnable* runnable)
{
    if (runnable && !IsDestroyed())
        m_desk.Queue(*this, *runnable);
}

void* FakeWindow::GetNativeHandle() const
{
    return const_cast<FakeNative*>(static_cast<const FakeNative*>(this));
}

// ---- painting

void FakeWindow::AddDamage(const rectangle<int>& area)
{
    const rectangle<int> added = area.Intersect(GetClientRect());
    if (m_damage.IsEmpty())
        m_damage = added;
    else if (!added.IsEmpty())
        m_damage = {std::min(m_damage.left, added.left), std::min(m_damage.top, added.top),
                    std::max(m_damage.right, added.right), std::max(m_damage.bottom, added.bottom)};
}

void FakeWindow::Invalidate(int left, int top, int right, int bottom)
{
    asked.Note("Invalidate", left, top, right, bottom);
    AddDamage({left, top, right, bottom});
}

void FakeWindow::Refresh(int left, int top, int right, int bottom, bool erase)
{
    asked.Note("Refresh", left, top, right, bottom, erase);
    AddDamage({left, top, right, bottom});
    PaintDamage();
}

std::vector<std::string> FakeWindow::Paint()
{
    const Use use(*this);
    painter.drawn.Take();
    m_damage = GetClientRect();
    PaintDamage();
    return use.IsWanted() ? painter.drawn.Take() : std::vector<std::string>();
}

// When nobody draws, the window fills itself.
void FakeWindow::PaintDamage()
{
    if (!WantsPaint() || !IsOnScreen() || painter.GetPaintSuppressed())
        return;
    const rectangle<int> area = std::exchange(m_damage, rectangle<int>());
    painter.SetUpdateRect(area);
    painter.SetPaintArea(area);
    const Use use(*this);
    if (IsSubscribed(typeid(IDrawingNotify))) {
        Deliver([&] { ProcessPaint(&painter); });
    } else {
        const CPaintScope paint(painter);
        painter.SetBrush(brush{painter.GetBackgroundColor(), bsSolid});
        painter.FillRect(0, 0, m_rect.Width(), m_rect.Height());
    }
    if (use.IsAlive()) {
        painter.EndAllPaints();
        painter.SetPaintArea(GetClientRect());
    }
}

// With a retained buffer nothing but the buffer moves; whoever scrolls repaints the rest.
void FakeWindow::ScrollContent(int dx, int dy, int left, int top, int right, int bottom)
{
    asked.Note("ScrollContent", dx, dy, left, top, right, bottom);
    if (!painter.GetRetainedBuffer())
        AddDamage(GetClientRect());
}

void FakeWindow::LockDraw(bool lock)
{
    asked.Note("LockDraw", lock);
    m_locks = std::max(0, m_locks + (lock ? 1 : -1));
}

CHandle<IPainter> FakeWindow::CreatePainter()
{
    CHandle<RecordingPainter> made(new RecordingPainter);
    made->SetCanvas(this);
    made->Resize(m_rect.Width(), m_rect.Height());
    return CHandle<IPainter>(made.Get());
}

int FakeWindow::GetCanvasMetrics(CanvasMetrics metric) const
{
    return CanvasMetric(metric, {m_rect.Width(), m_rect.Height()});
}

// ---- factories; what is made belongs to this window, and ends with its last handle

ISysWindow* FakeWindow::CreateChild(WindowType type)
{
    asked.Note("CreateChild", type);
    return new FakeWindow(*this, {0, 0, 20, 20}, type);
}

CHandle<IPopupMenu> FakeWindow::CreateMenu()
{
    return CHandle<IPopupMenu>(new FakeMenu(*this));
}

CHandle<IInplaceEdit> FakeWindow::CreateInplaceEdit(unsigned long style)
{
    return CHandle<IInplaceEdit>(new FakeEdit(*this, style));
}

CHandle<IInplaceComboBox> FakeWindow::CreateInplaceComboBox(bool editable)
{
    return CHandle<IInplaceComboBox>(new FakeComboBox(*this, editable));
}

CHandle<IScrollBar> FakeWindow::CreateScrollBar(ScrollType type)
{
    return CHandle<IScrollBar>(new FakeScrollBar(*this, type == stVertical));
}

CHandle<IPopup> FakeWindow::CreatePopup()
{
    return CHandle<IPopup>(new FakePopup(*this));
}

} // namespace vela7::testkit
