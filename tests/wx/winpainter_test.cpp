// The window painter: state on the device, shapes as pixels, draw buffers.

#include "vela7/wxwinpainter.h"

#include "support/fixture.h"
#include "support/pixels.h"
#include "vela7/wxdrawbuffer.h"

#include <wx/brush.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/pen.h>
#include <wx/settings.h>

#include <algorithm>
#include <vector>

namespace vela7 {
namespace {

using namespace test;

class Painter : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        painter = std::make_unique<CwxWinPainter>(frame);
        painter->SetBackgroundColor(_color(10, 20, 30));
    }

    void TearDown() override
    {
        painter.reset();
        GuiTest::TearDown();
    }

    wxDC& Dc() { return *painter->GetDC(); }

    std::unique_ptr<CwxWinPainter> painter;
};

// ---- state

TEST_F(Painter, RasterOperationsBothWays)
{
    const CPaintScope scope(*painter, ssAsIs);
    // clang-format off
    const wxRasterOperationMode table[] = {
        wxCOPY, wxOR, wxXOR, wxAND_INVERT, wxSRC_INVERT, wxOR_INVERT, wxEQUIV, wxAND, wxINVERT, wxCLEAR, wxSET,
        wxNO_OP, wxAND_REVERSE, wxOR_REVERSE, wxNAND, wxNOR,
    };
    // clang-format on
    for (int code = 0; code < 16; ++code) {
        painter->SetRasterOperation(static_cast<RasterOperation>(code));
        EXPECT_EQ(table[code], Dc().GetLogicalFunction()) << code;
        EXPECT_EQ(code, painter->GetRasterOperation());
    }
    for (const int code : {16, -1}) {
        painter->SetRasterOperation(static_cast<RasterOperation>(code));
        EXPECT_EQ(wxCOPY, Dc().GetLogicalFunction()) << code;
    }
}

TEST_F(Painter, PensByStyleAndWidth)
{
    const CPaintScope scope(*painter, ssAsIs);
    const wxPenStyle styles[] = {wxPENSTYLE_TRANSPARENT, wxPENSTYLE_SOLID,    wxPENSTYLE_SHORT_DASH,
                                 wxPENSTYLE_DOT,         wxPENSTYLE_DOT_DASH, wxPENSTYLE_SOLID,
                                 wxPENSTYLE_USER_DASH,   wxPENSTYLE_SOLID,    wxPENSTYLE_SOLID};
    for (int style = 0; style < 9; ++style)
        for (int width = 1; width <= 4; ++width) {
            painter->SetPen(pen{_color(1, 2, 3), width, style});
            const wxPen& wx = Dc().GetPen();
            EXPECT_EQ(styles[style], wx.GetStyle()) << style;
            EXPECT_EQ(width, wx.GetWidth());
            EXPECT_EQ(wxColour(1, 2, 3), wx.GetColour());
            EXPECT_EQ(width >= 3 ? wxCAP_BUTT : wxCAP_ROUND, wx.GetCap()) << width;
            EXPECT_EQ(width >= 3 ? wxJOIN_MITER : wxJOIN_ROUND, wx.GetJoin()) << width;
            wxDash* dashes = nullptr;
            const int count = wx.GetDashes(&dashes);
            ASSERT_EQ(style == 6 ? 2 : 0, count) << style;
            if (count == 2) {
                EXPECT_EQ(1, dashes[0]);
                EXPECT_EQ(2, dashes[1]);
            }
        }
}

TEST_F(Painter, BrushesByStyle)
{
    const CPaintScope scope(*painter, ssAsIs);
    const wxBrushStyle styles[] = {
        wxBRUSHSTYLE_TRANSPARENT,     wxBRUSHSTYLE_SOLID,           wxBRUSHSTYLE_HORIZONTAL_HATCH,
        wxBRUSHSTYLE_VERTICAL_HATCH,  wxBRUSHSTYLE_CROSS_HATCH,     wxBRUSHSTYLE_BDIAGONAL_HATCH,
        wxBRUSHSTYLE_FDIAGONAL_HATCH, wxBRUSHSTYLE_CROSSDIAG_HATCH, wxBRUSHSTYLE_TRANSPARENT,
        wxBRUSHSTYLE_TRANSPARENT,
    };
    for (int style = 0; style < 10; ++style) {
        painter->SetBrush(brush{_color(9, 8, 7), style});
        EXPECT_EQ(styles[style], Dc().GetBrush().GetStyle()) << style;
        EXPECT_EQ(wxColour(9, 8, 7), Dc().GetBrush().GetColour());
    }
}

TEST_F(Painter, StartsFromTheSystemSettings)
{
    const CPaintScope scope(*painter, ssAsIs);
    EXPECT_EQ(wxBRUSHSTYLE_TRANSPARENT, Dc().GetBrush().GetStyle());
    EXPECT_EQ(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE), Dc().GetBrush().GetColour());
    EXPECT_EQ(*wxBLACK, Dc().GetPen().GetColour());
    EXPECT_EQ(1, Dc().GetPen().GetWidth());
    EXPECT_EQ(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT), Dc().GetFont());
    EXPECT_EQ("DejaVu Sans", painter->GetFont().face);
}

TEST_F(Painter, ColoursAndBackgroundMode)
{
    const CPaintScope scope(*painter, ssAsIs);
    painter->SetTextColor(_color(1, 2, 3));
    painter->SetBkColor(_color(4, 5, 6));
    EXPECT_EQ(_color(1, 2, 3), painter->GetTextColor());
    EXPECT_EQ(_color(4, 5, 6), painter->GetBkColor());
    EXPECT_EQ(wxColour(4, 5, 6), Dc().GetTextBackground());
    for (const int mode : {1, 2}) {
        painter->SetBkMode(static_cast<BkMode>(mode));
        EXPECT_EQ(bkOpaque, painter->GetBkMode()) << mode;
    }
    painter->SetBkMode(bkTransparent);
    EXPECT_EQ(bkTransparent, painter->GetBkMode());
}

TEST_F(Painter, FontKeepsAngleAndStrikeOutAndMetricsLeaveThreeFieldsOpen)
{
    const CPaintScope scope(*painter, ssAsIs);
    font f;
    f.size = 12;
    f.style = fsBold | fsStrikeOut;
    f.angle = 450;
    painter->SetFont(f);
    EXPECT_EQ(f, painter->GetFont());
    fontmetrics m;
    painter->GetFontMetrics(&m);
    EXPECT_EQ(Dc().GetCharHeight(), m.height);
    EXPECT_EQ(Dc().GetCharWidth(), m.averageWidth);
    EXPECT_GT(m.descent, 0);
    EXPECT_EQ(0, m.ascent);
    EXPECT_EQ(0, m.maxWidth);
    EXPECT_TRUE(m.bold);
    EXPECT_FALSE(m.struckOut);
    painter->GetFontMetrics(nullptr);
}

// ---- drawing; colours as 0xRRGGBB

constexpr std::uint32_t background = 0x0a141e;
constexpr std::uint32_t red = 0xff0000;
constexpr std::uint32_t blue = 0x0000ff;

class Drawing : public Painter
{
protected:
    // Draws on a cleared window, straight and buffered; the screen must look the same.
    template <class F>
    Pixels Draw(F draw)
    {
        Pixels pictures[2];
        for (const StdSettings settings : {ssClear, ssBuffered}) {
            const CPaintScope scope(*painter, settings);
            EXPECT_TRUE(scope.IsOk());
            painter->SetPen(pen{clRed, 1, psSolid});
            painter->SetBrush(brush{clBlue, bsSolid});
            draw(*painter);
            painter->EndPaint();
            pictures[settings == ssBuffered] = ReadPixels(frame);
        }
        ExpectSamePixels(pictures[0], pictures[1], "buffered");
        return pictures[1];
    }
};

TEST_F(Drawing, RectanglesAreExclusiveAtTheFarEdges)
{
    const Pixels p = Draw([](IPainter& painter) {
        painter.Rectangle(10, 10, 30, 20);
        painter.FillRect(50, 10, 70, 20);
    });
    EXPECT_EQ(wxRect(10, 10, 20, 10), p.BoxOf(red));
    EXPECT_EQ(20u * 10u - 18u * 8u, static_cast<unsigned>(p.CountColour(p.Bounds(), red)));
    EXPECT_EQ(200, p.CountColour(wxRect(50, 10, 20, 10), blue)); // no outline
    EXPECT_EQ(background, p.At(49, 10));
    EXPECT_EQ(background, p.At(70, 19));
    EXPECT_EQ(background, p.At(0, 0));
}

TEST_F(Drawing, LinesLeaveOutTheirLastPoint)
{
    const Pixels p = Draw([](IPainter& painter) {
        painter.MoveTo(5, 5);
        painter.LineTo(15, 5);
        painter.LineTo(15, 15);
        EXPECT_EQ(point<double>(15, 15), painter.GetCurrentPos());
    });
    EXPECT_EQ(20, p.CountColour(p.Bounds(), red));
    EXPECT_EQ(red, p.At(15, 5));
    EXPECT_EQ(background, p.At(15, 15));
}

TEST_F(Drawing, PolyLineRanges)
{
    const point<double> points[] = {{0, 0}, {0, 10}, {20, 10}, {40, 10}, {60, 10}};
    struct Row
    {
        int count, first, last;
        wxRect box;
    };
    const Row rows[] = {
        {5, 1, -1, wxRect(0, 10, 61, 1)},
        {5, 3, 7, wxRect(40, 10, 21, 1)},
        {5, 4, 2, wxRect()},
        {5, -2, 2, wxRect(0, 0, 21, 11)},
        {0, 0, -1, wxRect()},
        {-3, 0, -1, wxRect()},
    };
    for (const Row& row : rows) {
        const Pixels p = Draw([&](IPainter& painter) {
            painter.PolyLine(points, row.count, row.first, row.last);
            painter.PolyLine(nullptr, 5);
            painter.PolyBezier(points, 1);
        });
        const wxRect box = p.BoxOf(red);
        EXPECT_LE(std::abs(row.box.width - box.width), 1)
            << row.first; // whether the last point counts is wx's
        EXPECT_EQ(row.box.GetTopLeft(), row.box.IsEmpty() ? row.box.GetTopLeft() : box.GetTopLeft());
        EXPECT_EQ(row.box.IsEmpty(), box.IsEmpty()) << row.first;
    }
}

TEST_F(Drawing, FocusRectTwiceRestoresAndChordIsPie)
{
    const auto scene = [](IPainter& painter) { painter.GradientH(0, 0, 100, 100, clYellow, clGreen); };
    const Pixels before = Draw(scene);
    const Pixels once = Draw([&](IPainter& painter) {
        scene(painter);
        painter.FocusRect(10, 10, 90, 90);
    });
    const Pixels twice = Draw([&](IPainter& painter) {
        scene(painter);
        painter.FocusRect(10, 10, 90, 90);
        painter.FocusRect(10, 10, 90, 90);
    });
    EXPECT_NE(before.At(10, 10), once.At(10, 10));
    EXPECT_EQ(before.At(50, 50), once.At(50, 50));
    ExpectSamePixels(before, twice, "focus");
    ExpectSamePixels(Draw([](IPainter& painter) { painter.Pie(10, 10, 90, 60, 455, 1799); }),
                     Draw([](IPainter& painter) { painter.Chord(10, 10, 90, 60, 450, 1790); }), "chord");
}

TEST_F(Drawing, OperationsPutBackWhatTheySelect)
{
    font struck;
    struck.style = fsStrikeOut;
    Draw([&](CwxWinPainter& painter) {
        painter.SetFont(struck);
        painter.SetTextColor(clYellow); // the DCs differ in what they start with
        const wxPen pen = painter.GetDC()->GetPen();
        const wxBrush brush = painter.GetDC()->GetBrush();
        painter.FillRect(0, 0, 5, 5);
        painter.Arc(0, 0, 50, 50, 0, 900);
        painter.FocusRect(0, 0, 20, 20);
        painter.SetPixel(3, 3, clYellow);
        painter.DrawString(10, 50, "struck");
        painter.GetTextSize("Measured", &struck);
        EXPECT_EQ(pen, painter.GetDC()->GetPen());
        EXPECT_EQ(brush, painter.GetDC()->GetBrush());
        EXPECT_EQ(wxCOPY, painter.GetDC()->GetLogicalFunction());
        EXPECT_EQ(struck, painter.GetFont());
        EXPECT_EQ(clYellow, painter.GetPixel(3, 3));
    });
}

TEST_F(Drawing, ClipsInsideOrOutside)
{
    const Pixels in = Draw([](IPainter& painter) {
        painter.SetClipRect(10, 10, 30, 30);
        painter.SetClipRect(20, 0, 50, 50);
        painter.FillRect(0, 0, 100, 100);
        painter.CancelClipping();
        painter.FillRect(60, 60, 61, 61);
    });
    EXPECT_EQ(10 * 20 + 1, in.CountColour(in.Bounds(), blue));
    EXPECT_EQ(blue, in.At(20, 10));
    const Pixels out = Draw([](IPainter& painter) {
        painter.SetClipRect(10, 10, 30, 30, true);
        painter.FillRect(0, 0, 100, 100);
    });
    EXPECT_EQ(100 * 100 - 20 * 20, out.CountColour(out.Bounds(), blue));
    const Pixels none = Draw([](IPainter& painter) {
        painter.SetClipRect(0, 0, 2000, 2000, true);
        painter.FillRect(0, 0, 100, 100);
    });
    EXPECT_EQ(0, none.CountColour(none.Bounds(), blue));
}

TEST_F(Drawing, TextIsDrawnRotatedAndStruckOut)
{
    font f;
    f.size = 20;
    int width = 0, height = 0;
    const auto draw = [&](unsigned style, int angle) {
        return Draw([&, style, angle](IPainter& painter) {
            f.style = style;
            f.angle = angle;
            painter.SetFont(f);
            painter.SetTextColor(clRed);
            painter.DrawString(100, 100, "llll");
            const size<double> extent = painter.GetTextSize("llll");
            width = static_cast<int>(extent.width);
            height = static_cast<int>(extent.height);
        });
    };
    const Pixels plain = draw(0, 0);
    const Pixels struck = draw(fsStrikeOut, 0);
    const int line = 100 + static_cast<int>(height * 0.5 + 0.5);
    EXPECT_EQ(width + 2, struck.CountColour(wxRect(0, line, 400, 1), red)); // from x - 1 to x + width
    EXPECT_LT(plain.CountColour(wxRect(0, line, 400, 1), red), width);
    ExpectSamePixels(draw(0, 900), draw(fsStrikeOut, 900), "rotated");
    EXPECT_LT(draw(0, 900).BoxOf(red).GetTop(), 100 - width / 2); // upwards
}

// ---- buffers

TEST_F(Painter, BufferedPaintKeepsItsPictureWhenNothingIsCleared)
{
    painter->SetBackgroundColor(_color::none());
    for (const bool fresh : {true, false, false}) {
        const CPaintScope scope(*painter, ssBuffered);
        EXPECT_EQ(fresh, painter->IsFullRepaint());
        painter->SetBrush(brush{fresh ? clRed : clBlue, bsSolid});
        if (fresh)
            painter->FillRect(0, 0, 400, 300);
        else
            painter->FillRect(0, 0, 10, 10);
    }
    EXPECT_TRUE(painter->IsFullRepaint());
    EXPECT_TRUE(painter->GetRetainedBuffer());
    const Pixels p = ReadPixels(frame);
    EXPECT_EQ(blue, p.At(5, 5));
    EXPECT_EQ(red, p.At(200, 200));
}

TEST_F(Painter, NinthPainterTakesTheBufferOfTheLeastRecent)
{
    std::vector<std::unique_ptr<CwxWinPainter>> others;
    const auto full = [](CwxWinPainter& p) {
        const CPaintScope scope(p, ssBuffered);
        return p.IsFullRepaint();
    };
    EXPECT_TRUE(full(*painter));
    for (int i = 0; i < 7; ++i) {
        others.push_back(std::make_unique<CwxWinPainter>(frame));
        EXPECT_TRUE(full(*others.back())) << i;
    }
    EXPECT_EQ(8u, CDrawBufferManager::Get().GetCount());
    EXPECT_FALSE(full(*painter)); // now the most recent; others[0] is the oldest
    CwxWinPainter ninth(frame);
    EXPECT_TRUE(full(ninth));
    EXPECT_EQ(8u, CDrawBufferManager::Get().GetCount());
    EXPECT_FALSE(full(*painter));
    EXPECT_TRUE(full(*others[0])); // takes others[1]'s
    EXPECT_FALSE(full(*others[2]));
    EXPECT_TRUE(full(*others[1]));
}

TEST_F(Painter, GrowthKeepsContentAndNeverShrinks)
{
    CDrawBufferManager manager;
    bool fresh = false;
    const CwxWinPainter* const key = painter.get();
    wxBitmap* bitmap = manager.GetBuffer(key, 100, 100, 1.0, &fresh);
    ASSERT_NE(nullptr, bitmap);
    EXPECT_TRUE(fresh);
    {
        wxMemoryDC dc(*bitmap);
        dc.SetBackground(*wxRED_BRUSH);
        dc.Clear();
    }
    bitmap = manager.GetBuffer(key, 150, 80, 1.0, &fresh, wxColour(0, 0, 255));
    EXPECT_FALSE(fresh);
    ASSERT_EQ(wxSize(150, 100), bitmap->GetSize());
    const Pixels grown = ReadPixels(*bitmap);
    EXPECT_EQ(100 * 100, grown.CountColour(wxRect(0, 0, 100, 100), red));
    EXPECT_EQ(50 * 100, grown.CountColour(wxRect(100, 0, 50, 100), blue));
    EXPECT_EQ(bitmap, manager.GetBuffer(key, 10, 10, 1.0, &fresh));
    // At scale 2.0 the 150 x 100 pixels count as 75 x 50.
    EXPECT_EQ(bitmap, manager.GetBuffer(key, 75, 50, 2.0, &fresh));
    EXPECT_NE(wxSize(150, 100), manager.GetBuffer(key, 76, 50, 2.0, &fresh)->GetSize());
    EXPECT_EQ(nullptr, manager.GetExistingBuffer(nullptr, 10, 10, 1.0));
}

TEST_F(Painter, EndedPainterLeavesNoPictureToItsSuccessor)
{
    alignas(CwxWinPainter) unsigned char place[sizeof(CwxWinPainter)];
    for (int i = 0; i < 2; ++i) { // the same address both times
        auto* const p = new (place) CwxWinPainter(frame);
        EXPECT_TRUE(p->BeginPaint(ssBuffered));
        EXPECT_TRUE(p->IsFullRepaint()) << i;
        if (i == 0)
            p->EndPaint(); // the second time it ends in the middle of the paint
        p->~CwxWinPainter();
    }
    CPaintScope scope(*painter, ssBuffered);
    EXPECT_TRUE(scope.IsOk());
}

TEST_F(Painter, ScrollMovesTheInclusiveRectangleOfTheBuffer)
{
    painter->SetBackgroundColor(_color::none());
    painter->ScrollContent(5, 5, 0, 0, 10, 10); // no buffer yet
    {
        const CPaintScope scope(*painter, ssBuffered);
        painter->SetBrush(brush{clRed, bsSolid});
        painter->FillRect(0, 0, 400, 300);
        painter->SetBrush(brush{clBlue, bsSolid});
        painter->FillRect(10, 10, 14, 14);
        painter->ScrollContent(100, 0, 10, 10, 13, 13); // not during a paint
    }
    painter->ScrollContent(20, 5, 10, 10, 13, 13);
    {
        const CPaintScope scope(*painter, ssBuffered);
        EXPECT_FALSE(painter->IsFullRepaint());
    }
    const Pixels p = ReadPixels(frame);
    EXPECT_EQ(16, p.CountColour(wxRect(30, 15, 4, 4), blue));
    EXPECT_EQ(32, p.CountColour(p.Bounds(), blue)); // the source stays
}

TEST_F(Painter, OutlivesItsWindow)
{
    auto* const child = new wxWindow(frame, wxID_ANY);
    CwxWinPainter orphan(child);
    EXPECT_TRUE(orphan.BeginPaint(ssBuffered));
    child->Destroy();
    orphan.FillRect(0, 0, 10, 10);
    orphan.EndPaint();
    EXPECT_FALSE(orphan.BeginPaint(ssClear));
    orphan.FillRect(0, 0, 10, 10);
    orphan.EndPaint();
    EXPECT_TRUE(orphan.GetDrawRect().IsNull());
    orphan.ScrollContent(1, 1, 0, 0, 5, 5);
}

TEST_F(Painter, WindowWithoutClientAreaPaintsBuffered)
{
    auto* const child = new wxWindow(frame, wxID_ANY, wxDefaultPosition, wxSize(0, 0));
    child->SetSize(0, 0, 0, 0);
    CwxWinPainter small(child);
    const CPaintScope scope(small, ssBuffered);
    EXPECT_TRUE(scope.IsOk());
    small.FillRect(0, 0, 10, 10);
}

} // namespace
} // namespace vela7
