/// The one place that knows UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace table {

constexpr std::size_t longestSequence = 4;

/// The length of the well-formed sequence that a text begins with; 0 when it begins with none. Overlong
/// forms, surrogates, what is beyond U+10FFFF and what ends too early are none.
std::size_t SequenceLength(std::string_view text);

/// Valid UTF-8 without control characters: what is well-formed stays, control characters become blanks, bytes
/// that are not well-formed become what Latin-1 has for them, or U+FFFD where that would be a control
/// character. Takes the characters that begin within the first bytes.
std::string ShownText(std::string_view bytes, std::size_t first);

} // namespace table
