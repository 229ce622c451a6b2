/// Breaks a text into lines that fit a width.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vela7 {

struct TextLine
{
    std::string text; ///< as drawn: without the break and the blanks before it
    int width = 0;
};

class TextLayout
{
public:
    /// Width of a text in device pixels.
    using Measure = std::function<int(const std::string&)>;

    /// breakSet: the characters after which a line may end.
    TextLayout(Measure measure, std::string breakSet)
        : m_measure(std::move(measure)), m_breakSet(std::move(breakSet))
    {
    }

    /// One line, cut and ended by "..." when it is wider and an ellipsis is wanted.
    std::vector<TextLine> Single(const std::string& text, int width, bool ellipsis) const;
    /// Ends lines at \n, \r and \r\n and where the next piece would not fit; a piece wider than the width is
    /// broken between characters, at least one a line.
    std::vector<TextLine> Wrap(const std::string& text, int width) const;

private:
    TextLine Line(std::string text) const;
    void WrapParagraph(const std::string& paragraph, int width, std::vector<TextLine>& lines) const;
    std::size_t LastFitting(const std::string& text, std::size_t from, const std::vector<std::size_t>& ends,
                            std::size_t first, int width, bool trim) const;

    Measure m_measure;
    std::string m_breakSet;
};

} // namespace vela7
