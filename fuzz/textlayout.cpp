// Text layout: any text, width and break set, against a slow layout of its own; and with measures no font
// would have.

#include "textlayout.h"

#include "fuzz.h"

#include <algorithm>
#include <clocale>
#include <cwchar>

using vela7::TextLayout;
using vela7::TextLine;
using vela7::fuzz::Demand;

namespace {

using Characters = std::vector<std::string>;
using Lines = std::vector<std::string>;

constexpr int widest = 0x3fffffff; // in device pixels, painters see to it

// By the C library, one at a time from the front; a byte that is none stands alone.
Characters CharactersOf(const std::string& text)
{
    Characters characters;
    for (std::size_t at = 0; at < text.size(); at += characters.back().size()) {
        wchar_t ignored;
        std::mbstate_t state{};
        const std::size_t length = std::mbrtowc(&ignored, text.data() + at, text.size() - at, &state);
        characters.push_back(text.substr(at, length > text.size() - at || length == 0 ? 1 : length));
    }
    return characters;
}

bool IsBlank(const std::string& character)
{
    return static_cast<unsigned char>(character[0]) <= ' ';
}

// Letters are as wide as their place in the code table says, blanks and all others 7.
int Width(const Characters& characters)
{
    int width = 0;
    for (const std::string& c : characters)
        width += c.size() == 1 && c[0] > ' ' ? c[0] % 16 : 7;
    return width;
}

Characters Trimmed(Characters characters)
{
    while (!characters.empty() && IsBlank(characters.back()))
        characters.pop_back();
    return characters;
}

std::string Joined(const Characters& characters)
{
    std::string text;
    for (const std::string& c : characters)
        text += c;
    return text;
}

// One line off the front of a paragraph that is not empty.
std::string TakeLine(Characters& paragraph, const Characters& breakers, int room)
{
    const auto piece = [&](std::size_t from) { // behind the next breaker
        while (from < paragraph.size() &&
               std::find(breakers.begin(), breakers.end(), paragraph[from]) == breakers.end())
            ++from;
        return std::min(from + 1, paragraph.size());
    };
    const auto upTo = [&](std::size_t end) {
        return Trimmed(Characters(paragraph.begin(), paragraph.begin() + static_cast<std::ptrdiff_t>(end)));
    };
    std::size_t end = piece(0);
    while (end < paragraph.size() && Width(upTo(piece(end))) <= room)
        end = piece(end);
    Characters line = upTo(end);
    if (Width(line) > room && line.size() > 1) {
        while (line.size() > 1 && Width(line) > room)
            line.pop_back();
        end = line.size();
    }
    paragraph.erase(paragraph.begin(), paragraph.begin() + static_cast<std::ptrdiff_t>(end));
    return Joined(line);
}

Lines SlowWrap(const std::string& text, const std::string& breakSet, int room)
{
    const Characters breakers = CharactersOf(breakSet);
    Lines lines;
    std::string rest = text;
    for (bool more = true; more;) {
        const std::size_t end = rest.find_first_of("\r\n");
        Characters paragraph = CharactersOf(rest.substr(0, end));
        do
            lines.push_back(paragraph.empty() ? "" : TakeLine(paragraph, breakers, room));
        while (!paragraph.empty());
        more = end != std::string::npos;
        if (more)
            rest = rest.substr(end + (rest.compare(end, 2, "\r\n") == 0 ? 2 : 1));
    }
    return lines;
}

std::string SlowSingle(const std::string& text, int room, bool ellipsis)
{
    Characters characters = CharactersOf(text);
    if (!ellipsis || text.empty() || Width(characters) <= room)
        return text;
    room -= Width(CharactersOf("..."));
    while (!characters.empty() && Width(characters) > room)
        characters.pop_back();
    return Joined(characters) + "...";
}

Lines TextsOf(const std::vector<TextLine>& lines)
{
    Lines texts;
    for (const TextLine& line : lines)
        texts.push_back(line.text);
    return texts;
}

// Whatever widths are: nothing is lost but blanks, and each line knows its own.
void CheckOddMeasure(const std::string& text, const std::string& breakSet, int room, unsigned salt)
{
    const auto measure = [&](const std::string& piece) {
        unsigned sum = salt;
        for (const char c : piece)
            sum = sum * 31 + static_cast<unsigned char>(c);
        return static_cast<int>(sum % (salt % 2 ? widest : 256));
    };
    const TextLayout layout(measure, breakSet);
    const auto solid = [](std::string all) {
        all.erase(std::remove_if(all.begin(), all.end(), [](char c) { return IsBlank({c}); }), all.end());
        return all;
    };
    std::string all;
    for (const TextLine& line : layout.Wrap(text, room)) {
        Demand(line.width == measure(line.text), "the width of the line");
        all += line.text;
    }
    Demand(solid(all) == solid(text), "all of the text");
    Demand(layout.Single(text, room, true).size() == 1, "one line");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    Demand(std::setlocale(LC_ALL, "C.UTF-8") != nullptr, "the locale");
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider in(data, size);
    const int room = in.ConsumeIntegralInRange(0, 7) > 0 ? in.ConsumeIntegralInRange(-5, 300)
                                                         : in.ConsumeIntegralInRange(-widest, widest);
    const unsigned salt = in.ConsumeIntegral<unsigned char>();
    const std::string breakSet = in.ConsumeBool() ? " \t\n\r" : in.ConsumeRandomLengthString(8);
    const std::string text = in.ConsumeRemainingBytesAsString();

    const TextLayout layout([](const std::string& piece) { return Width(CharactersOf(piece)); }, breakSet);
    Demand(TextsOf(layout.Wrap(text, room)) == SlowWrap(text, breakSet, room), "the wrapped lines");
    for (const bool ellipsis : {false, true}) {
        const Lines single = TextsOf(layout.Single(text, room, ellipsis));
        Demand(single == Lines{SlowSingle(text, room, ellipsis)}, "the single line");
    }
    CheckOddMeasure(text, breakSet, room, salt);
    return 0;
}
