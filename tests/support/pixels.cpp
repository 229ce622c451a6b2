#include "support/pixels.h"

#include "support/platform.h"
#include "support/waits.h"
#include "support/x11.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#include <wx/wx.h>

namespace vela7::test {
namespace {

void Save(const Pixels& picture, const std::string& name, const char* role)
{
    const char* const wish = std::getenv("VELA7_TEST_OUTPUT");
    const std::filesystem::path directory = wish && *wish ? wish : "test-output";
    std::filesystem::create_directories(directory);
    std::string path = name + "-" + role + ".png";
    std::replace(path.begin(), path.end(), '/', '_');
    path = (directory / path).string();
    if (picture.Bounds().IsEmpty() ||
        !picture.ToImage().SaveFile(wxString::FromUTF8(path.c_str()), wxBITMAP_TYPE_PNG))
        ADD_FAILURE() << "cannot write " << path;
}

} // namespace

Pixels::Pixels(const wxImage& image) : m_width(image.GetWidth()), m_height(image.GetHeight())
{
    m_colours.reserve(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height));
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x)
            m_colours.push_back(static_cast<std::uint32_t>(image.GetRed(x, y)) << 16 |
                                static_cast<std::uint32_t>(image.GetGreen(x, y)) << 8 | image.GetBlue(x, y));
}

std::uint32_t Pixels::At(int x, int y) const
{
    if (Bounds().Contains(x, y))
        return m_colours[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) +
                         static_cast<std::size_t>(x)];
    ADD_FAILURE() << x << ',' << y << " is outside of the picture of " << m_width << 'x' << m_height;
    return 0xFFFFFFFF;
}

int Pixels::CountColour(const wxRect& area, std::uint32_t colour) const
{
    const wxRect part = area.Intersect(Bounds());
    int count = 0;
    for (int y = part.y; y < part.y + part.height; ++y)
        for (int x = part.x; x < part.x + part.width; ++x)
            count += At(x, y) == colour;
    return count;
}

wxRect Pixels::BoxOf(std::uint32_t colour) const
{
    wxRect box;
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x)
            if (At(x, y) == colour)
                box.Union(wxRect(x, y, 1, 1));
    return box;
}

wxImage Pixels::ToImage() const
{
    wxImage image(m_width, m_height);
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x) {
            const std::uint32_t colour = At(x, y);
            image.SetRGB(x, y, static_cast<unsigned char>(colour >> 16),
                         static_cast<unsigned char>(colour >> 8), static_cast<unsigned char>(colour));
        }
    return image;
}

Pixels ReadPixels(wxWindow* window)
{
    Settle();
    Pixels result;
    const wxSize size = window->GetClientSize();
    // From both corners, since right-to-left windows count from the right.
    const wxPoint first = window->ClientToScreen(wxPoint(0, 0));
    const wxPoint last = window->ClientToScreen(wxPoint(size.x, size.y));
    const wxPoint fraction = Fraction(*window);
    result.m_colours =
        x11::ReadScreen(std::min(first.x, last.x), first.y, size.x, size.y, fraction.x, fraction.y);
    if (result.m_colours.empty()) {
        ADD_FAILURE() << "the window's client area is empty or not wholly on the screen";
        return {};
    }
    result.m_width = size.x;
    result.m_height = size.y;
    return result;
}

Pixels ReadPixels(const wxBitmap& bitmap)
{
    const wxSize size(static_cast<int>(bitmap.GetScaledWidth()), static_cast<int>(bitmap.GetScaledHeight()));
    const wxImage image = bitmap.ConvertToImage(); // the first of several pixels counts, as on the screen
    return Pixels(image.GetSize() == size ? image : image.Scale(size.x, size.y, wxIMAGE_QUALITY_NEAREST));
}

void ExpectSamePixels(const Pixels& expected, const Pixels& actual, const std::string& name, const char* file,
                      int line)
{
    const testing::TestInfo* const test = testing::UnitTest::GetInstance()->current_test_info();
    const std::string prefix = std::string(test->test_suite_name()) + "." + test->name() + "-" + name;
    wxString difference;
    if (expected.Bounds() != actual.Bounds())
        difference.Printf("size %dx%d, expected %dx%d", actual.Width(), actual.Height(), expected.Width(),
                          expected.Height());
    for (int i = 0; i < expected.Width() * expected.Height() && difference.empty(); ++i) {
        const int x = i % expected.Width(), y = i / expected.Width();
        if (expected.At(x, y) != actual.At(x, y))
            difference.Printf("first difference at %d,%d: expected #%06X, is #%06X", x, y, expected.At(x, y),
                              actual.At(x, y));
    }
    if (difference.empty())
        return;
    Save(expected, prefix, "expected");
    Save(actual, prefix, "actual");
    ADD_FAILURE_AT(file, line) << prefix << ": " << difference;
}

} // namespace vela7::test
