#include "textlayout.h"

#include <algorithm>
#include <cwchar>
#include <string_view>

namespace vela7 {

namespace {

bool IsBlank(char c)
{
    return static_cast<unsigned char>(c) <= ' ';
}

std::string WithoutTrailingBlanks(std::string text)
{
    while (!text.empty() && IsBlank(text.back()))
        text.pop_back();
    return text;
}

// Where each character of the text ends, in the encoding of the current locale; a byte that is none counts as
// one.
std::vector<std::size_t> CharacterEnds(const std::string& text)
{
    std::vector<std::size_t> ends;
    std::mbstate_t state{};
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = std::mbrlen(text.data() + at, text.size() - at, &state);
        const bool valid = length > 0 && length <= text.size() - at;
        if (!valid)
            state = std::mbstate_t{};
        at += valid ? length : 1;
        ends.push_back(at);
    }
    return ends;
}

// Where each piece of a paragraph ends: behind every character of the break set, and at the end. Compared by
// whole characters: a byte of one may be a part of another.
std::vector<std::size_t> PieceEnds(const std::string& paragraph, const std::string& breakSet)
{
    const auto each = [](const std::string& text, auto use) {
        std::size_t from = 0;
        for (const std::size_t end : CharacterEnds(text)) {
            use(std::string_view(text).substr(from, end - from), end);
            from = end;
        }
    };
    std::vector<std::string_view> breakers;
    each(breakSet, [&](std::string_view character, std::size_t) { breakers.push_back(character); });
    std::vector<std::size_t> ends;
    each(paragraph, [&](std::string_view character, std::size_t end) {
        if (std::find(breakers.begin(), breakers.end(), character) != breakers.end())
            ends.push_back(end);
    });
    if (ends.empty() || ends.back() != paragraph.size())
        ends.push_back(paragraph.size());
    return ends;
}

} // namespace

TextLine TextLayout::Line(std::string text) const
{
    TextLine line;
    line.width = m_measure(text);
    line.text = std::move(text);
    return line;
}

// The index in ends, from first on, of the last one up to which the text fits; first itself even when it does
// not. Gallops and then bisects, so that a long line costs few measurements.
std::size_t TextLayout::LastFitting(const std::string& text, std::size_t from,
                                    const std::vector<std::size_t>& ends, std::size_t first, int width,
                                    bool trim) const
{
    const auto fits = [&](std::size_t i) {
        std::string piece = text.substr(from, ends[i] - from);
        return m_measure(trim ? WithoutTrailingBlanks(std::move(piece)) : piece) <= width;
    };
    std::size_t good = first;
    std::size_t step = 1;
    while (good + step < ends.size() && fits(good + step)) {
        good += step;
        step *= 2;
    }
    std::size_t bad = std::min(good + step, ends.size());
    while (bad - good > 1) {
        const std::size_t middle = good + (bad - good) / 2;
        (fits(middle) ? good : bad) = middle;
    }
    return good;
}

std::vector<TextLine> TextLayout::Single(const std::string& text, int width, bool ellipsis) const
{
    TextLine whole = Line(text);
    if (!ellipsis || text.empty() || whole.width <= width)
        return {std::move(whole)};
    const std::string dots = "...";
    const std::vector<std::size_t> ends = CharacterEnds(text);
    const int room = width - m_measure(dots);
    const std::size_t last = LastFitting(text, 0, ends, 0, room, false);
    const bool one = m_measure(text.substr(0, ends[last])) <= room;
    return {Line((one ? text.substr(0, ends[last]) : std::string()) + dots)};
}

std::vector<TextLine> TextLayout::Wrap(const std::string& text, int width) const
{
    std::vector<TextLine> lines;
    std::size_t from = 0;
    while (from <= text.size()) {
        const std::size_t end = std::min(text.find_first_of("\r\n", from), text.size());
        WrapParagraph(text.substr(from, end - from), width, lines);
        const bool pair = text.compare(end, 2, "\r\n") == 0;
        from = end + (pair ? 2 : 1);
    }
    return lines;
}

void TextLayout::WrapParagraph(const std::string& paragraph, int width, std::vector<TextLine>& lines) const
{
    const std::vector<std::size_t> pieces = PieceEnds(paragraph, m_breakSet);
    std::size_t from = 0;
    for (std::size_t piece = 0; piece < pieces.size();) {
        const std::size_t last = LastFitting(paragraph, from, pieces, piece, width, true);
        TextLine line = Line(WithoutTrailingBlanks(paragraph.substr(from, pieces[last] - from)));
        std::size_t next = pieces[last];
        if (line.width > width) { // one piece alone is too wide: its rest begins the next line
            const std::vector<std::size_t> ends = CharacterEnds(line.text);
            const std::size_t end = ends.empty() ? 0 : ends[LastFitting(line.text, 0, ends, 0, width, false)];
            if (end < line.text.size()) {
                next = from + end;
                line = Line(line.text.substr(0, end));
            }
        }
        lines.push_back(std::move(line));
        from = next;
        if (from == pieces[last])
            piece = last + 1;
    }
}

} // namespace vela7
