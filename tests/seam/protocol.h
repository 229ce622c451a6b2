/// What a recording object was asked to do: one readable line each, in order.
#pragma once

#include "vela7/types.h"

#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace vela7::seam {

// How values stand in a line. Strings are quoted; colours read #rrggbb, with alpha #rrggbbaa, or none.
void Write(std::ostream& line, const std::string& text);
void Write(std::ostream& line, const _color& color);
void Write(std::ostream& line, const pen& value);
void Write(std::ostream& line, const brush& value);
void Write(std::ostream& line, const font& value);
void Write(std::ostream& line, const point<int>& p);
template <class Plain>
void Write(std::ostream& line, Plain value)
{
    line << value;
}

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

    /// The lines so far; starts anew.
    std::vector<std::string> Take() { return std::exchange(m_lines, {}); }

private:
    std::vector<std::string> m_lines;
};

} // namespace vela7::seam
