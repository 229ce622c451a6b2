#include "vela7/testing/user.h"

#include "desk.h"
#include "vela7/testing/fakepopup.h"
#include "vela7/testing/fakesystem.h"
#include "vela7/testing/fakewindow.h"

#include <cctype>

namespace vela7::testkit {

namespace {

constexpr std::uint32_t anyButton = msLeft | msRight | msMiddle;
constexpr std::uint32_t anyModifier = ksShift | ksControl | ksAlt;

std::uint32_t StateBit(MouseButton button)
{
    constexpr std::uint32_t bits[] = {0, msLeft, msMiddle, msRight};
    return bits[button];
}

std::uint32_t ModifierBit(std::uint32_t key)
{
    return key == kcShift ? ksShift : key == kcControl ? ksControl : key == kcAlt ? ksAlt : 0u;
}

// Of several buttons a move names one.
MouseButton Named(std::uint32_t held)
{
    for (const MouseButton button : {mbLeft, mbRight, mbMiddle})
        if (held & StateBit(button))
            return button;
    return mbNone;
}

// What a key types; 0 for nothing.
unsigned char Character(std::uint32_t key, std::uint32_t held)
{
    if (key >= 'A' && key <= 'Z')
        return static_cast<unsigned char>(held & ksControl ? key - 'A' + 1 : held & ksShift ? key : key + 32);
    const bool typed = key == kcBack || key == kcTab || key == kcReturn || key == kcEscape || key == ' ' ||
                       (key >= '0' && key <= '9');
    return typed ? static_cast<unsigned char>(key) : '\0';
}

} // namespace

// ---- the pointer

FakeWindow* User::UnderPointer() const
{
    FakeNative* at = m_system.m_desk->At(m_system.mouse.position);
    while (at && !dynamic_cast<FakeWindow*>(at))
        at = at->Parent();
    return dynamic_cast<FakeWindow*>(at);
}

FakeWindow* User::Target() const
{
    const auto& captures = m_system.m_desk->captures;
    if (!captures.empty())
        return captures.back();
    return m_pressed ? m_pressed.Get() : UnderPointer();
}

void User::PointAt(const ISysWindow& window, int x, int y)
{
    point<int> place(x, y);
    window.WindowToScreen(place);
    m_system.mouse.position = place;
    Move();
}

void User::Move()
{
    FakeWindow* const target = Target();
    FakeWindow* const inside = target == UnderPointer() ? target : nullptr;
    if (m_entered.Get() != inside) {
        Cross(inside);
        return;
    }
    if (target)
        target->Mouse(&CSysWindow::ProcessMouseMove, Named(held));
}

void User::Cross(FakeWindow* to)
{
    const CHandle<FakeWindow> left = std::exchange(m_entered, CHandle<FakeWindow>(to));
    if (left)
        left->Mouse(&CSysWindow::ProcessLeave, mbNone);
    if (m_entered)
        m_entered->Mouse(&CSysWindow::ProcessEnter, mbNone);
}

// A press outside of the topmost popup that watches for it is the popup's.
bool User::DismissPopup()
{
    Desk& desk = *m_system.m_desk;
    const FakeNative* const hit = desk.At(m_system.mouse.position);
    for (auto popup = desk.popups.rbegin(); popup != desk.popups.rend(); ++popup)
        if ((*popup)->IsWatching())
            return (*popup)->Holds(hit) ? false : ((*popup)->ClickedElsewhere(), true);
    return false;
}

void User::Press(MouseButton button)
{
    Down(button, false);
}

void User::Down(MouseButton button, bool twice)
{
    held |= StateBit(button);
    m_swallowed = m_system.m_desk->captures.empty() && !m_pressed && DismissPopup();
    if (m_swallowed)
        return;
    FakeNative* const under = m_system.m_desk->At(m_system.mouse.position);
    if (m_system.m_desk->captures.empty() && !m_pressed && under && !dynamic_cast<FakeWindow*>(under)) {
        under->TakeFocus(); // a control; what it does with the mouse is its own affair
        m_swallowed = true;
        return;
    }
    const CHandle<FakeWindow> target(Target());
    if (!target || !target->IsUsable())
        return;
    m_pressed = target;
    // Kept by contract: presses of the middle button are not reported.
    if (button == mbMiddle)
        return;
    const auto hook = twice ? &CSysWindow::ProcessMouseDoubleClick : &CSysWindow::ProcessMousePress;
    if (!target->Mouse(hook, button))
        return;
    if (button == mbLeft && !target->GetFocused())
        target->TakeFocus();
    else if (button == mbRight && !twice)
        target->ContextMenu();
}

void User::Release(MouseButton button)
{
    held &= ~StateBit(button);
    const CHandle<FakeWindow> target(Target());
    if (!(held & anyButton))
        m_pressed.Reset();
    if (!std::exchange(m_swallowed, false) && target && target->IsUsable() && button != mbMiddle)
        target->Mouse(&CSysWindow::ProcessMouseRelease, button);
}

void User::Click(MouseButton button)
{
    Press(button);
    Release(button);
}

void User::Click(const ISysWindow& window, int x, int y, MouseButton button)
{
    PointAt(window, x, y);
    Click(button);
}

void User::DoubleClick(MouseButton button)
{
    Click(button);
    Down(button, true);
    Release(button);
}

void User::DoubleClick(const ISysWindow& window, int x, int y, MouseButton button)
{
    PointAt(window, x, y);
    DoubleClick(button);
}

void User::Drag(const ISysWindow& window, const point<int>& from, const point<int>& to)
{
    point<int> end = to; // on the screen: the window may be gone by then
    window.WindowToScreen(end);
    PointAt(window, from.x, from.y);
    Press();
    m_system.mouse.position = end;
    Move();
    Release();
}

void User::TurnWheel(int notches)
{
    constexpr int lines = 3;
    for (int left = notches; left != 0; left += left > 0 ? -1 : 1)
        if (FakeWindow* const target = Target(); target && target->IsUsable())
            target->Wheel(left > 0 ? lines : -lines);
}

// ---- the keyboard

void User::KeyDown(std::uint32_t key)
{
    held |= ModifierBit(key);
    FakeNative* const focus = m_system.m_desk->Focus();
    if (!focus)
        return;
    const CLifeWatch alive = focus->m_life.Watch();
    const std::uint32_t state = held & anyModifier;
    const unsigned char character = Character(key, held);
    if (focus->KeyDown(key, state) && character && alive.IsAlive())
        focus->Char(character, state);
}

void User::KeyUp(std::uint32_t key)
{
    held &= ~ModifierBit(key);
    if (FakeNative* const focus = m_system.m_desk->Focus())
        focus->KeyUp(key, held & anyModifier);
}

void User::Key(std::uint32_t key, std::uint32_t modifiers)
{
    held |= modifiers;
    KeyDown(key);
    KeyUp(key);
    held &= ~modifiers;
}

void User::Type(const std::string& text)
{
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool upper = byte >= 'A' && byte <= 'Z', lower = byte >= 'a' && byte <= 'z';
        const auto key = static_cast<std::uint32_t>(lower ? byte - 32 : byte);
        if (Character(key, 0)) {
            Key(key, upper ? std::uint32_t{ksShift} : 0u);
        } else if (FakeNative* const focus = m_system.m_desk->Focus()) { // its key is the keyboard's affair
            focus->Char(byte, 0);
        }
    }
}

void User::ReleaseAll()
{
    for (const MouseButton button : {mbLeft, mbRight, mbMiddle})
        if (held & StateBit(button))
            Release(button);
    for (const std::uint32_t key : {kcShift, kcControl, kcAlt})
        if (held & ModifierBit(key))
            KeyUp(key);
}

} // namespace vela7::testkit
