#include "fakewindow.h"

namespace vela7::seam {

namespace {

constexpr std::uint32_t stateBits[] = {0, msLeft, msMiddle, msRight}; // by button

} // namespace

FakeWindow::FakeWindow()
{
    Init();
    SetTooltip(&tooltip);
    painter.SetCounted(false); // a part of this window
    painter.SetCanvas(this);
    painter.drawRect = GetClientRect();
}

FakeWindow::~FakeWindow()
{
    ProcessDestroy();
    children.clear();
}

// ---- input

bool FakeWindow::Mouse(void (CSysWindow::*hook)(CMouseEvent*), int x, int y, MouseButton button)
{
    CMouseEvent event(Sender());
    event.state = held;
    event.position = {x, y};
    event.button = button;
    (this->*hook)(&event);
    return event.passOn;
}

// The middle button shows in the state only, as in the real back-end.
bool FakeWindow::MousePress(int x, int y, MouseButton button)
{
    held |= stateBits[button];
    return button == mbMiddle || Mouse(&CSysWindow::ProcessMousePress, x, y, button);
}

bool FakeWindow::MouseRelease(int x, int y, MouseButton button)
{
    held &= ~stateBits[button];
    return button == mbMiddle || Mouse(&CSysWindow::ProcessMouseRelease, x, y, button);
}

// Of several buttons a move names one.
bool FakeWindow::MouseMove(int x, int y)
{
    MouseButton named = mbNone;
    for (const MouseButton button : {mbMiddle, mbRight, mbLeft})
        if (held & stateBits[button])
            named = button;
    return Mouse(&CSysWindow::ProcessMouseMove, x, y, named);
}

bool FakeWindow::MouseWheel(int x, int y, int lines)
{
    CMouseWheelEvent event(Sender());
    event.state = held;
    event.position = {x, y};
    event.delta = lines;
    ProcessWheel(&event);
    return event.passOn;
}

// Of several modifiers a key record carries one.
bool FakeWindow::Key(void (CSysWindow::*hook)(CKeyboardEvent*), std::uint32_t key, unsigned char character)
{
    CKeyboardEvent event(Sender());
    event.key = key;
    event.character = character;
    for (const std::uint32_t bit : {ksControl, ksAlt, ksShift})
        if (held & bit)
            event.state = bit;
    (this->*hook)(&event);
    return event.passOn;
}

void FakeWindow::Resize(int width, int height)
{
    rect.right = rect.left + width;
    rect.bottom = rect.top + height;
    painter.drawRect = GetClientRect();
    CWindowEvent event(Sender(), width, height);
    ProcessResize(&event);
}

std::vector<std::string> FakeWindow::Paint()
{
    const CLifeWatch alive = WatchLife();
    painter.drawn.Take();
    ProcessPaint(&painter);
    return alive.IsAlive() ? painter.drawn.Take() : std::vector<std::string>();
}

// ---- ISysWindow

void FakeWindow::SetWindowRect(int left, int top, int right, int bottom, bool update)
{
    asked.Note("SetWindowRect", left, top, right, bottom, update);
    rect = {left, top, right, bottom};
    painter.drawRect = GetClientRect();
}

void FakeWindow::SetFocus()
{
    asked.Note("SetFocus");
    if (!std::exchange(focused, true))
        ProcessGetFocus(); // may destroy this window
}

ISysWindow* FakeWindow::CreateChild(WindowType type)
{
    asked.Note("CreateChild", type);
    children.push_back(std::make_unique<FakeWindow>());
    return children.back().get();
}

// Knows the standard cursors.
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
    if (!runnable || IsDestroyed())
        return;
    runnable->Run(); // may destroy this window
    if (runnable->IsDynamicRunnable())
        delete runnable;
}

// ---- ICanvas

CHandle<IPainter> FakeWindow::CreatePainter()
{
    CHandle<RecordingPainter> made(new RecordingPainter);
    made->SetCanvas(this);
    made->drawRect = GetClientRect();
    return CHandle<IPainter>(made.Get());
}

} // namespace vela7::seam
