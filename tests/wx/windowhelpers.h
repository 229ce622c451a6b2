// What the tests of toolkit windows and pictures share: a window to listen to, a picture to look at.
#pragma once

#include "contract/recorder.h"
#include "support/fixture.h"
#include "support/pixels.h"
#include "vela7/painter.h"
#include "vela7/wxrasterpicture.h"
#include "vela7/wxsyswindow.h"
#include "vela7/wxvelawindow.h"

#include <wx/image.h>
#include <wx/panel.h>

namespace vela7::test {

inline wxWindow* Native(const ISysWindow* window)
{
    return static_cast<wxWindow*>(window->GetNativeHandle());
}

// A toolkit window at (20,10) of 200x100 on a panel that fills the frame's client area, and somebody who can
// hear it.
class WindowTest : public GuiTest
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(GuiTest::SetUp());
        panel = new wxPanel(frame, wxID_ANY, wxPoint(0, 0), wxSize(400, 300));
        window = new CwxSysWindow(panel, true, ISysWindow::wtNormal);
        window->SetWindowRect(20, 10, 220, 110, false);
        native = Native(window);
        heard = std::make_unique<Recorder>(window);
        Settle();
    }

    wxPanel* panel = nullptr;
    CwxSysWindow* window = nullptr;
    wxWindow* native = nullptr;
    std::unique_ptr<Recorder> heard;
};

// ---- pictures; colours as 0xRRGGBB

constexpr unsigned char Byte(std::uint32_t colour, int shift)
{
    return static_cast<unsigned char>(colour >> shift);
}

constexpr _color Toolkit(std::uint32_t colour)
{
    return _color(Byte(colour, 16), Byte(colour, 8), Byte(colour, 0));
}

// Of a pixel of the sample picture.
constexpr std::uint32_t ColourOf(int x, int y)
{
    return static_cast<std::uint32_t>((x * 11 & 0xff) << 16 | (y * 23 & 0xff) << 8 | ((x + y) * 5 & 0xff));
}

// No two pixels alike, unless it is very large.
inline CHandle<CwxRasterPicture> SamplePicture(int width, int height)
{
    wxImage image(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.SetRGB(x, y, Byte(ColourOf(x, y), 16), Byte(ColourOf(x, y), 8), Byte(ColourOf(x, y), 0));
    CHandle<CwxRasterPicture> result(new CwxRasterPicture(size<int>(width, height)));
    Bitmap2RasterPicture(wxBitmap(image), result.Get());
    return result;
}

inline void Fill(IPainter& painter, const _color& color, const rectangle<int>& area,
                 StdSettings settings = ssClear)
{
    const CPaintScope scope(painter, settings);
    painter.SetBrush(brush{color, bsSolid});
    painter.FillRect(area.left, area.top, area.right, area.bottom);
}

inline void FillPicture(CwxRasterPicture& picture, const _color& color, const rectangle<int>& area)
{
    Fill(*picture.TakeDefPainter(), color, area);
}

// The smallest with all pixels of other colours than this.
inline wxRect BoxOfOthers(const Pixels& pixels, std::uint32_t colour)
{
    wxRect box;
    for (int y = 0; y < pixels.Height(); ++y)
        for (int x = 0; x < pixels.Width(); ++x)
            if (pixels.At(x, y) != colour)
                box.Union(wxRect(x, y, 1, 1));
    return box;
}

} // namespace vela7::test
