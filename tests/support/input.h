// Real input through the X server. Each step returns when its effects have arrived.
#pragma once

#include <wx/window.h>

namespace vela7::test {

enum PointerButton
{
    leftButton = 1,
    middleButton = 2,
    rightButton = 3
};

// Moves the pointer to a client position of the window.
void PointAt(const wxWindow* window, int x, int y);
// Moves it to a screen position, where nobody needs to notice.
void MovePointer(int x, int y);

void Press(PointerButton button = leftButton);
void Release(PointerButton button = leftButton);
// However soon after the last one and wherever: never the second half of a double click.
void Click(PointerButton button = leftButton);
// However slow the machine is: press, release, double click, release.
void DoubleClick(PointerButton button = leftButton);
void WheelUp();
void WheelDown();

// Key symbols are the GDK_KEY_... constants of <gdk/gdkkeysyms.h>. The symbol names the key and nothing else:
// a capital letter takes a held Shift.
void KeyDown(unsigned long keysym);
void KeyUp(unsigned long keysym);
void Tap(unsigned long keysym);

// Lets go of every button and key that is still down.
void ReleaseAll();

// For the length of a test: its clicks are told apart by what it asks for, not by the clock, and nothing
// stays pressed after it.
class InputGuard
{
public:
    InputGuard();
    ~InputGuard() { ReleaseAll(); }
    InputGuard(const InputGuard&) = delete;
    InputGuard& operator=(const InputGuard&) = delete;
};

} // namespace vela7::test
