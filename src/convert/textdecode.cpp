#include "convert/textdecode.h"

#include <wx/convauto.h>

#include <algorithm>
#include <string>

namespace vela7 {

// ASCII is the same in every locale and needs no conversion; most of the toolkit's texts are.
wxString DecodeText(const char* text, std::size_t length)
{
    const char* const end = text + length;
    if (std::any_of(text, end, [](char c) { return (c & 0x80) != 0; })) {
        const wxString decoded(text, wxConvLibc, length);
        // The C library reads numbers beyond the last character, wx raises assertions when it draws them.
        const auto none = [](const wxUniChar& c) { return c.GetValue() > 0x10ffff; };
        return std::any_of(decoded.begin(), decoded.end(), none) ? wxString() : decoded;
    }
    const std::wstring wide(text, end);
    return wxString(wide.data(), wide.size());
}

} // namespace vela7
