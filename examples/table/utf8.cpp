#include "utf8.h"

#include <algorithm>

namespace table {

namespace {

// Leads, and what may follow them at once; further bytes are 80..BF.
struct Row
{
    unsigned char lead, lastLead;
    std::size_t length;
    unsigned char second, lastSecond;
};

// clang-format off
constexpr Row rows[] = {
    {0x00, 0x7f, 1, 0x00, 0xff},
    {0xc2, 0xdf, 2, 0x80, 0xbf},
    {0xe0, 0xe0, 3, 0xa0, 0xbf}, // less would be overlong
    {0xe1, 0xec, 3, 0x80, 0xbf},
    {0xed, 0xed, 3, 0x80, 0x9f}, // more would be surrogates
    {0xee, 0xef, 3, 0x80, 0xbf},
    {0xf0, 0xf0, 4, 0x90, 0xbf}, // less would be overlong
    {0xf1, 0xf3, 4, 0x80, 0xbf},
    {0xf4, 0xf4, 4, 0x80, 0x8f}, // more would be beyond U+10FFFF
};
// clang-format on

bool IsPlain(unsigned char byte)
{
    return byte >= 0x20 && byte < 0x7f;
}

// Of a well-formed sequence; two bytes long are those from U+0080 on.
bool IsControl(std::string_view character)
{
    const auto last = static_cast<unsigned char>(character.back());
    return character.size() == 1 ? !IsPlain(last)
                                 : character.size() == 2 && character[0] == '\xc2' && last < 0xa0;
}

std::string Latin1(unsigned char byte)
{
    return byte < 0xa0 ? "\xef\xbf\xbd" : std::string{char(0xc0 | byte >> 6), char(0x80 | (byte & 0x3f))};
}

} // namespace

std::size_t SequenceLength(std::string_view text)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto row = std::find_if(std::begin(rows), std::end(rows), [&](const Row& r) {
        return !text.empty() && byte(0) >= r.lead && byte(0) <= r.lastLead;
    });
    if (row == std::end(rows) || row->length > text.size())
        return 0;
    if (row->length > 1 && (byte(1) < row->second || byte(1) > row->lastSecond))
        return 0;
    for (std::size_t i = 2; i < row->length; ++i)
        if (byte(i) < 0x80 || byte(i) > 0xbf)
            return 0;
    return row->length;
}

std::string ShownText(std::string_view bytes, std::size_t first)
{
    if (bytes.size() <= first && std::all_of(bytes.begin(), bytes.end(), IsPlain))
        return std::string(bytes);
    std::string text;
    for (std::size_t at = 0; at < std::min(first, bytes.size());) {
        const std::size_t length = SequenceLength(bytes.substr(at));
        const std::string_view character = bytes.substr(at, length);
        if (length == 0)
            text += Latin1(static_cast<unsigned char>(bytes[at]));
        else if (IsControl(character))
            text += ' ';
        else
            text += character;
        at += std::max<std::size_t>(length, 1);
    }
    return text;
}

} // namespace table
