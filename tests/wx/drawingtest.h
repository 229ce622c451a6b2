// What the tests of the painters' operations share: all that can be drawn on.
#pragma once

#include "vela7/wxconvert.h"
#include "vela7/wxrstpainter.h"
#include "vela7/wxwinpainter.h"
#include "windowhelpers.h"

#include <functional>
#include <tuple>
#include <wx/brush.h>
#include <wx/pen.h>

namespace vela7::test {

constexpr std::uint32_t ground = 0x0a141e, red = 0xff0000, blue = 0x0000ff, yellow = 0xffff00; // 0xRRGGBB

// All that an operation may select for itself, as device and painter know it.
inline auto StateOf(CwxPainter& p)
{
    wxDC& dc = *p.GetDC();
    return std::make_tuple(dc.GetPen(), dc.GetBrush(), dc.GetFont(), dc.GetLogicalFunction(),
                           p.GetTextColor(), p.GetBkColor(), p.GetBkMode(), p.GetPen(), p.GetBrush(),
                           p.GetFont(), p.GetClipRect());
}

class DrawingTest : public GuiTest
{
protected:
    // On a ground of 400 x 300, with a red pen, a blue brush and yellow text: on a window, through its draw
    // buffer, and on a picture; it looks the same on all. Or else `changesState`, what is selected is the
    // same afterwards.
    Pixels Draw(const std::function<void(CwxPainter&)>& draw, bool changesState = false)
    {
        const CHandle<CwxRasterPicture> picture(new CwxRasterPicture(size<int>(400, 300)));
        FillPicture(*picture, Toolkit(ground), {0, 0, 400, 300}); // clearing is for windows
        CwxWinPainter onWindow(frame);
        CwxRstPainter onPicture(picture.Get());
        std::vector<Pixels> drawn;
        for (const StdSettings settings : {ssClear, ssBuffered, ssAsIs}) {
            const bool isWindow = settings != ssAsIs;
            CwxPainter& painter = isWindow ? static_cast<CwxPainter&>(onWindow) : onPicture;
            painter.SetBackgroundColor(Toolkit(ground));
            const CPaintScope scope(painter, settings);
            EXPECT_TRUE(scope.IsOk());
            painter.SetPen(pen{clRed, 1, psSolid});
            painter.SetBrush(brush{clBlue, bsSolid});
            painter.SetTextColor(clYellow);
            const auto before = StateOf(painter);
            draw(painter);
            EXPECT_TRUE(changesState || before == StateOf(painter));
            painter.EndPaint();
            drawn.push_back(isWindow ? ReadPixels(frame) : ReadPixels(picture->GetBitmap()));
            if (sameOnAll && (isWindow || sameOnPictures))
                ExpectSamePixels(drawn[0], drawn.back(), "surface");
        }
        return drawn[0];
    }
    // Themes and text use all the pixels that a device has, finer on a window of a factor than on a picture;
    // and of a draw buffer's, Pango does not know.
    bool sameOnPictures = true, sameOnAll = true;

    wxRect BoxOfDrawn(const std::function<void(CwxPainter&)>& draw, bool changesState = false)
    {
        return BoxOfOthers(Draw(draw, changesState), ground);
    }
};

} // namespace vela7::test
