/// For targets that are wx applications; they run under tests/support/headless.
#pragma once

namespace vela7::fuzz {

/// Makes this program a wx application on the display. From then on whatever the base library, wx, GTK or X
/// complain about ends the process.
void StartApplication();

/// Lets GTK and the X server finish what was asked of them, so that a complaint comes with the input that
/// caused it.
void Settle();

} // namespace vela7::fuzz
