// A picture to draw on, and DPI scales of the test's choice.
#pragma once

#include "support/pixels.h"
#include "vela7/testing/fakesystem.h"
#include "vela7/wxrasterpicture.h"
#include "vela7/wxrstpainter.h"

namespace vela7::test {

struct ScaledSystem : testkit::FakeSystem
{
    double GetDPIScale() const override { return scale; }
    double scale = 1.0;
};

struct ScaledPainter : CwxRstPainter
{
    using CwxRstPainter::CwxRstPainter;
    double internalGetDPIScale() const override { return scale; }
    double scale = 1.0;
};

struct ScaledCanvas : CwxRasterPicture
{
    ScaledCanvas() : CwxRasterPicture(size<int>(100, 100)), painter(this) {}

    // On a ground of 0x0a141e.
    template <class F>
    Pixels Draw(F draw)
    {
        const CPaintScope scope(painter);
        painter.SetBrush(brush{_color(0x0a, 0x14, 0x1e), bsSolid});
        painter.FillRect(0, 0, 100, 100);
        draw(painter);
        painter.EndPaint();
        return ReadPixels(GetBitmap());
    }

    ScaledPainter painter;
};

} // namespace vela7::test
