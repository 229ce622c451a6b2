/// The hands of the user: input as a platform gets it from its devices, delivered at once.
///
/// The pointer acts where it is: on the window that has the mouse captured, else on the one on which a button
/// was pressed and is still held, else on what lies under it. A click elsewhere hides a popup and reaches
/// nobody. Keys go to who has the focus. As on the reference platform, a movement into a window is reported
/// as entering it only, and a press that nobody has dealt with takes the focus whatever SetFocusOnClick says.
/// Not imitated: repeated keys, input methods, keys without a character in OnChar, the keyboard's context
/// menu. A part of its FakeSystem. Whatever is called may end windows.
#pragma once

#include "vela7/testing/export.h"
#include "vela7/window.h"

#include <functional>
#include <string>

namespace vela7::testkit {

class FakeMenu;
class FakeSystem;
class FakeWindow;

class VELA7_TESTING_API User
{
public:
    explicit User(FakeSystem& system) : m_system(system) {}
    User(const User&) = delete;
    User& operator=(const User&) = delete;

    /// What is held: MouseState and KeyState bits.
    std::uint32_t held = 0;
    /// What the user does with a menu that opens; it closes when this returns. Nothing: looks at it only.
    std::function<void(FakeMenu&)> onMenu;

    /// Client coordinates, which may be outside.
    void PointAt(const ISysWindow& window, int x, int y);
    void Press(MouseButton button = mbLeft);
    void Release(MouseButton button = mbLeft);
    /// Never the second half of a double click.
    void Click(MouseButton button = mbLeft);
    void Click(const ISysWindow& window, int x, int y, MouseButton button = mbLeft);
    void DoubleClick(MouseButton button = mbLeft);
    void DoubleClick(const ISysWindow& window, int x, int y, MouseButton button = mbLeft);
    /// With the left button.
    void Drag(const ISysWindow& window, const point<int>& from, const point<int>& to);
    /// Notches of three lines; positive = away from the user.
    void TurnWheel(int notches);

    /// KeyCode values; letters 'A'..'Z' take a held Shift.
    void KeyDown(std::uint32_t key);
    void KeyUp(std::uint32_t key);
    /// Down and up; modifiers: KeyState bits that are held meanwhile without a record of their own.
    void Key(std::uint32_t key, std::uint32_t modifiers = 0);
    /// Key by key.
    void Type(const std::string& text);
    /// Lets go of everything.
    void ReleaseAll();

private:
    friend class Desk;

    void Move();
    void Cross(FakeWindow* to);
    FakeWindow* Target() const;
    FakeWindow* UnderPointer() const;
    bool DismissPopup();
    void Down(MouseButton button, bool twice);

    FakeSystem& m_system;
    CHandle<FakeWindow> m_entered;
    CHandle<FakeWindow> m_pressed; // while a button is held
    bool m_swallowed = false;      // the press has hidden a popup
};

} // namespace vela7::testkit
