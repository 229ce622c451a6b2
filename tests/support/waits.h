// Turning the event loop from inside a test.
#pragma once

#include <functional>
#include <string>

namespace vela7::test {

// One turn of the loop: everything that is pending, idle work, then at most `ms` of waiting for more.
void Turn(unsigned ms = 5);

// Until the effects of all that was done so far have arrived: window manager, X server, queue, idle work.
void Settle();

// Turns the loop until the condition holds. False, with a failure that says what was waited for, after `ms`.
bool WaitFor(const std::function<bool()>& condition, const std::string& what, long ms = 5000,
             const char* file = __builtin_FILE(), int line = __builtin_LINE());

} // namespace vela7::test
