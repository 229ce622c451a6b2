// What wx, GTK and the loop complain about while tests run. The GUI main records it all; whatever a test has
// not taken by its end fails that test.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vela7::test {

enum class Fault
{
    wxAssert,    // a failed wx assertion; the text holds function, condition and message
    glibMessage, // a GLib, GDK or GTK warning or critical
    wxLog,       // wxLogError, wxLogWarning and the like, which would open a dialog in an application
    loop,        // somebody wanted to end the main loop, or an exception reached it
};

// Any thread.
void RecordFault(Fault kind, std::string text);

// Hands out and forgets what was recorded, oldest first.
std::vector<std::string> TakeFaults(Fault kind);
std::vector<std::string> TakeAllFaults();
inline std::vector<std::string> TakeCriticals()
{
    return TakeFaults(Fault::glibMessage);
}

// Takes the faults of a kind and fails the test unless there are exactly `count`, each containing `text`.
void ExpectFaults(Fault kind, std::size_t count, const std::string& text = "",
                  const char* file = __builtin_FILE(), int line = __builtin_LINE());
inline void ExpectAsserts(std::size_t count, const std::string& text = "",
                          const char* file = __builtin_FILE(), int line = __builtin_LINE())
{
    ExpectFaults(Fault::wxAssert, count, text, file, line);
}

} // namespace vela7::test
