/// Bytes in the C library's locale as wx text. Internal.
#pragma once

#include <wx/string.h>

#include <cstddef>

namespace vela7 {

/// Empty when the bytes are not valid in the locale.
wxString DecodeText(const char* text, std::size_t length);

} // namespace vela7
