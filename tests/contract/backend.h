// What the contract tests need of a back-end: a stage to play on, hands and eyes.
//
// The tests of this directory speak to the toolkit's interfaces only. To run them against another back-end,
// implement these functions for it, compile them together with the tests and GoogleTest, link the back-end,
// and call RUN_ALL_TESTS from inside its event loop. wx/backend.cpp does it for the wx back-end.
#pragma once

#include "vela7/types.h"
#include "vela7/window.h"

#include <functional>
#include <memory>
#include <string>

namespace vela7::contract {

// A top-level window of the platform, shown and active, with a client area of 400 x 300 pixels that one
// toolkit window fills. The pointer is somewhere else. Ends with everything on it.
class Stage
{
public:
    virtual ~Stage() = default;
    virtual ISysWindow& Window() = 0;
    // Ends a window the way the platform does when the user closes it.
    virtual void Close(ISysWindow& window) = 0;
};
std::unique_ptr<Stage> OpenStage();

// ---- time

// Until the effects of all that was done so far have arrived.
void Settle();
// Turns the event loop until the condition holds. False, with a failure that says what was waited for, when
// that takes more than some seconds.
bool WaitFor(const std::function<bool()>& condition, const std::string& what);

// ---- hands: real input, as the platform gets it from its devices. Each step returns when it has arrived.

// Client coordinates of the window. Buttons and the wheel act where the pointer is.
void PointAt(const ISysWindow& window, int x, int y);
void Press(MouseButton button);
void Release(MouseButton button);
// Never the second half of a double click.
void Click(MouseButton button);
void DoubleClick(MouseButton button);
// Notches; positive = away from the user.
void TurnWheel(int notches);
// Letters, digits and the KeyCode values of named keys; a letter takes a held Shift.
void KeyDown(std::uint32_t key);
void KeyUp(std::uint32_t key);
// Lets go of everything that is still held.
void ReleaseAll();

} // namespace vela7::contract
