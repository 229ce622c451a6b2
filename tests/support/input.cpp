#include "support/input.h"

#include "support/waits.h"
#include "support/x11.h"

#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <set>
#include <wx/wx.h>

namespace vela7::test {
namespace {

std::set<int> heldButtons;
std::set<unsigned long> heldKeys;

void SetButton(int button, bool down)
{
    down ? void(heldButtons.insert(button)) : void(heldButtons.erase(button));
    x11::Button(button, down);
    Settle();
}

void SetKey(unsigned long keysym, bool down)
{
    down ? void(heldKeys.insert(keysym)) : void(heldKeys.erase(keysym));
    EXPECT_TRUE(x11::Key(keysym, down)) << "no key gives the symbol " << keysym;
    Settle();
}

void SetDoubleClickTime(int ms)
{
    g_object_set(gtk_settings_get_default(), "gtk-double-click-time", ms, nullptr);
}

} // namespace

void PointAt(const wxWindow* window, int x, int y)
{
    const wxPoint target = window->ClientToScreen(wxPoint(x, y));
    MovePointer(target.x, target.y);
}

void MovePointer(int x, int y)
{
    x11::MovePointer(x, y);
    Settle();
}

void Press(PointerButton button)
{
    SetButton(button, true);
}
void Release(PointerButton button)
{
    SetButton(button, false);
}

void Click(PointerButton button)
{
    Press(button);
    Release(button);
}

void DoubleClick(PointerButton button)
{
    Click(button);
    SetDoubleClickTime(60000);
    Click(button);
    SetDoubleClickTime(0);
}

void WheelUp()
{
    SetButton(4, true);
    SetButton(4, false);
}

void WheelDown()
{
    SetButton(5, true);
    SetButton(5, false);
}

void KeyDown(unsigned long keysym)
{
    SetKey(keysym, true);
}
void KeyUp(unsigned long keysym)
{
    SetKey(keysym, false);
}

void Tap(unsigned long keysym)
{
    KeyDown(keysym);
    KeyUp(keysym);
}

void ReleaseAll()
{
    while (!heldButtons.empty())
        SetButton(*heldButtons.begin(), false);
    while (!heldKeys.empty())
        SetKey(*heldKeys.begin(), false);
}

InputGuard::InputGuard()
{
    SetDoubleClickTime(0);
}

} // namespace vela7::test
