/// What a recording object was asked to do: one readable line each, in order.
///
/// A value: copy freely. Thread: one.
#pragma once

#include "vela7/testing/export.h"
#include "vela7/types.h"

#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace vela7::testkit {

// How values stand in a line. Strings are quoted; colours read #rrggbb, with alpha #rrggbbaa, or none.
VELA7_TESTING_API void Write(std::ostream& line, const std::string& text);
VELA7_TESTING_API void Write(std::ostream& line, const _color& color);
VELA7_TESTING_API void Write(std::ostream& line, const pen& value);
VELA7_TESTING_API void Write(std::ostream& line, const brush& value);
VELA7_TESTING_API void Write(std::ostream& line, const font& value);
VELA7_TESTING_API void Write(std::ostream& line, const point<int>& p);
template <class Plain>
void Write(std::ostream& line, Plain value)
{
    line << value;
}

using Lines = std::vector<std::string>;

class Protocol
{
public:
    /// Adds a line: the words and values with one space between them.
    template <class... Values>
    void Note(const char* what, const Values&... values)
    {
        std::ostringstream line;
        line << std::boolalpha << what;
        ((line << ' ', Write(line, values)), ...);
        m_lines.push_back(line.str());
    }

    /// The lines so far.
    const Lines& Peek() const { return m_lines; }
    /// The lines so far; starts anew.
    Lines Take() { return std::exchange(m_lines, {}); }

private:
    Lines m_lines;
};

} // namespace vela7::testkit
