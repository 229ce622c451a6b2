// The XPM buffer: any values line, against a reader of its own; the lines it owns and the copies of it.

#include "fuzz.h"
#include "vela7/xpm.h"

#include <climits>
#include <cstring>
#include <optional>

using namespace vela7;
using vela7::fuzz::Demand;

namespace {

using Wide = __int128;

struct Values
{
    Wide width, height, colours, chars;
};

constexpr int mostLines = 1000; // that are really made

// A decimal number after blanks; what is beyond any limit counts as the limit.
std::optional<Wide> Number(const char*& at)
{
    while (*at && std::strchr(" \t\n\v\f\r", *at))
        ++at;
    const bool minus = *at == '-';
    at += minus || *at == '+';
    if (*at < '0' || *at > '9')
        return std::nullopt;
    Wide value = 0;
    for (; *at >= '0' && *at <= '9'; ++at)
        value = value > LLONG_MAX ? value : value * 10 + (*at - '0');
    return minus ? -value : value;
}

std::optional<Values> Read(const char* line)
{
    Wide numbers[4] = {};
    for (Wide& number : numbers) {
        const std::optional<Wide> read = Number(line);
        if (!read || *read < 0 || *read > INT_MAX)
            return std::nullopt;
        number = *read;
    }
    const Values v = {numbers[0], numbers[1], numbers[2], numbers[3]};
    const bool fits = 1 + v.colours + v.height <= INT_MAX && v.width * v.chars <= INT_MAX &&
                      v.width * v.chars * v.height <= INT_MAX;
    return fits ? std::optional<Values>(v) : std::nullopt;
}

void DemandSame(const XPMBuf& buffer, const std::vector<const char*>& lines)
{
    Demand(buffer.GetLineCount() == static_cast<int>(lines.size()), "as many lines");
    for (std::size_t i = 0; i < lines.size(); ++i)
        Demand(std::strcmp(buffer.GetBuffer()[i], lines[i] ? lines[i] : "") == 0, "the same line");
}

void CheckOwned(const std::vector<const char*>& lines)
{
    XPMBuf copy;
    {
        XPMBuf owner;
        owner.SetBuffer(lines.data(), true);
        DemandSame(owner, lines);
        owner.SetBuffer(owner.GetBuffer(), true);
        owner.SetBuffer(owner.GetBuffer(), false);
        DemandSame(owner, lines);
        const XPMBuf& self = owner;
        copy = owner = self;
    }
    DemandSame(copy, lines);
    DemandSame(XPMBuf(copy), lines);
    copy.SetBuffer(nullptr, true);
    Demand(!copy.GetBuffer() && copy.GetLineCount() == 0, "empty again");
}

} // namespace

// Lines of text; the first is the values line, empty ones of the others are null.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::vector<std::string> texts =
        fuzz::Split(std::string(reinterpret_cast<const char*>(data), size), '\n');
    const std::optional<Values> values = Read(texts[0].c_str());
    const int count = values ? static_cast<int>(1 + values->colours + values->height) : 0;
    const char* const only[] = {texts[0].c_str()};
    XPMImage image(only); // borrows, reads this line only
    Demand(image.GetLineCount() == count && (image.GetBuffer() != nullptr) == (count > 0), "the line count");
    Demand(image.width == (values ? values->width : 0) && image.height == (values ? values->height : 0),
           "the size");
    if (count > mostLines)
        return 0;
    std::vector<const char*> lines;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
        lines.push_back(i == 0 || (i < texts.size() && !texts[i].empty()) ? texts[i].c_str() : nullptr);
    CheckOwned(lines);
    return 0;
}
