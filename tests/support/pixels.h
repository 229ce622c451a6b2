// Pictures read back, and what tests ask of them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>
#include <wx/gdicmn.h>

class wxBitmap;
class wxImage;
class wxWindow;

namespace vela7::test {

// Colours are 0xRRGGBB.
class Pixels
{
public:
    Pixels() = default;
    explicit Pixels(const wxImage& image);

    int Width() const { return m_width; }
    int Height() const { return m_height; }
    std::uint32_t At(int x, int y) const; // outside: a failure, and a value that is no colour
    wxRect Bounds() const { return wxRect(0, 0, m_width, m_height); }
    int CountColour(const wxRect& area, std::uint32_t colour) const; // within area and picture
    wxRect BoxOf(std::uint32_t colour) const; // the smallest with all pixels of the colour; empty if none
    wxImage ToImage() const;

private:
    friend Pixels ReadPixels(wxWindow* window);
    int m_width = 0;
    int m_height = 0;
    std::vector<std::uint32_t> m_colours;
};

// The client area as the screen shows it, children and whatever lies above included.
Pixels ReadPixels(wxWindow* window);
Pixels ReadPixels(const wxBitmap& bitmap);

// A difference is a failure that names the first differing pixel, and leaves <test>-<name>-expected.png and
// -actual.png in $VELA7_TEST_OUTPUT (else in test-output in the current directory).
void ExpectSamePixels(const Pixels& expected, const Pixels& actual, const std::string& name,
                      const char* file = __builtin_FILE(), int line = __builtin_LINE());

} // namespace vela7::test
