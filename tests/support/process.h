// A second process, for what crosses processes.
#pragma once

#include <string>
#include <vector>

namespace vela7::test {

struct ProgramResult
{
    int exitCode = -1; // 128 + n when signal n ended it; 127 when there is no such program; -1 when it was
                       // not over in time
    std::string output;
};

// Runs a program found in PATH while our loop keeps turning, so that it may ask this process for a selection.
// A program that goes on in the background, as xclip does to serve its text, counts as over; whether it has
// the selection by then is open, and must be waited for.
ProgramResult RunProgram(const std::vector<std::string>& arguments, const std::string& input = "",
                         long ms = 10000, const char* file = __builtin_FILE(), int line = __builtin_LINE());

} // namespace vela7::test
