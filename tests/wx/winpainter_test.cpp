// The window painter: state on the device, draw buffers.

#include "vela7/wxwinpainter.h"

#include "support/fixture.h"
#include "support/pixels.h"
#include "vela7/wxdrawbuffer.h"

#include <wx/brush.h>
#include <wx/dcmemory.h>
#include <wx/pen.h>
#include <wx/settings.h>

#include <climits>
#include <tuple>
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
    for (int code = -1; code <= 16; ++code) {
        const bool known = code >= 0 && code < 16; // others copy
        painter->SetRasterOperation(static_cast<RasterOperation>(code));
        EXPECT_EQ(known ? table[code] : wxCOPY, Dc().GetLogicalFunction()) << code;
        EXPECT_EQ(known ? code : 0, painter->GetRasterOperation());
    }
}

TEST_F(Painter, PensAndBrushesByStyle)
{
    const CPaintScope scope(*painter, ssAsIs);
    EXPECT_EQ(wxBRUSHSTYLE_TRANSPARENT, Dc().GetBrush().GetStyle());
    EXPECT_EQ(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE), Dc().GetBrush().GetColour());
    EXPECT_EQ(wxPen(*wxBLACK, 1), Dc().GetPen());
    const wxPenStyle pens[] = {wxPENSTYLE_TRANSPARENT, wxPENSTYLE_SOLID,    wxPENSTYLE_SHORT_DASH,
                               wxPENSTYLE_DOT,         wxPENSTYLE_DOT_DASH, wxPENSTYLE_SOLID,
                               wxPENSTYLE_USER_DASH,   wxPENSTYLE_SOLID,    wxPENSTYLE_SOLID};
    for (int style = 0; style < 9; ++style)
        for (const int width : {1, 2, 3, 4}) {
            wxPen expected(wxColour(1, 2, 3), width, pens[style]);
            expected.SetCap(width >= 3 ? wxCAP_BUTT : wxCAP_ROUND);
            expected.SetJoin(width >= 3 ? wxJOIN_MITER : wxJOIN_ROUND);
            painter->SetPen(pen{_color(1, 2, 3), width, style});
            wxDash* dashes = nullptr;
            ASSERT_EQ(style == 6 ? 2 : 0, Dc().GetPen().GetDashes(&dashes)) << style;
            if (style == 6) {
                EXPECT_TRUE(dashes[0] == 1 && dashes[1] == 2);
                expected.SetDashes(2, dashes);
            }
            EXPECT_EQ(expected, Dc().GetPen()) << style << " width " << width;
        }
    // X holds dashes of 255 pixels at most, in the longest of a pattern.
    const std::tuple<int, int, wxPenStyle> wide[] = {{psDot, 255, wxPENSTYLE_DOT},
                                                     {psDot, 256, wxPENSTYLE_SOLID},
                                                     {psDash, 127, wxPENSTYLE_SHORT_DASH},
                                                     {psDash, 128, wxPENSTYLE_SOLID},
                                                     {psDashDot, 85, wxPENSTYLE_DOT_DASH},
                                                     {psDashDot, 86, wxPENSTYLE_SOLID},
                                                     {psAlternate, 1 << 30, wxPENSTYLE_SOLID}};
    for (const auto& [style, width, expected] : wide) {
        painter->SetPen(pen{clRed, width, style});
        EXPECT_EQ(expected, Dc().GetPen().GetStyle()) << style << " width " << width;
        painter->LineTo(50, 50);
    }
    const wxBrushStyle brushes[] = {
        wxBRUSHSTYLE_TRANSPARENT,     wxBRUSHSTYLE_SOLID,           wxBRUSHSTYLE_HORIZONTAL_HATCH,
        wxBRUSHSTYLE_VERTICAL_HATCH,  wxBRUSHSTYLE_CROSS_HATCH,     wxBRUSHSTYLE_BDIAGONAL_HATCH,
        wxBRUSHSTYLE_FDIAGONAL_HATCH, wxBRUSHSTYLE_CROSSDIAG_HATCH, wxBRUSHSTYLE_TRANSPARENT,
    };
    for (int style = 0; style < 9; ++style) {
        painter->SetBrush(brush{_color(9, 8, 7), style});
        EXPECT_EQ(wxBrush(wxColour(9, 8, 7), brushes[style]), Dc().GetBrush()) << style;
    }
}

TEST_F(Painter, TextSettings)
{
    const CPaintScope scope(*painter, ssAsIs);
    EXPECT_EQ(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT), Dc().GetFont());
    EXPECT_EQ("DejaVu Sans", painter->GetFont().face);
    painter->SetTextColor(_color(1, 2, 3));
    painter->SetBkColor(_color(4, 5, 6));
    EXPECT_EQ(_color(1, 2, 3), painter->GetTextColor());
    EXPECT_EQ(_color(4, 5, 6), painter->GetBkColor());
    EXPECT_EQ(wxColour(4, 5, 6), Dc().GetTextBackground());
    for (const int mode : {1, 2, 0}) {
        painter->SetBkMode(static_cast<BkMode>(mode));
        EXPECT_EQ(mode == 0 ? bkTransparent : bkOpaque, painter->GetBkMode()) << mode;
    }
    const font f{"", ffDefault, 12, fsBold | fsStrikeOut, 450};
    painter->SetFont(f);
    EXPECT_EQ(f, painter->GetFont());
    fontmetrics m;
    painter->GetFontMetrics(&m);
    EXPECT_EQ(Dc().GetCharHeight(), m.height);
    EXPECT_EQ(Dc().GetCharWidth(), m.averageWidth);
    EXPECT_GT(m.descent, 0);
    EXPECT_TRUE(m.ascent == 0 && m.maxWidth == 0 && m.bold && !m.struckOut); // three fields stay open
    painter->GetFontMetrics(nullptr);
}

// ---- buffers; colours as 0xRRGGBB

constexpr std::uint32_t red = 0xff0000;
constexpr std::uint32_t blue = 0x0000ff;

TEST_F(Painter, BufferedPaintKeepsItsPictureWhenNothingIsCleared)
{
    painter->SetBackgroundColor(_color::none());
    for (const bool fresh : {true, false, false}) {
        const CPaintScope scope(*painter, ssBuffered);
        EXPECT_EQ(fresh, painter->IsFullRepaint());
        painter->SetBrush(brush{fresh ? clRed : clBlue, bsSolid});
        painter->FillRect(0, 0, fresh ? 400 : 10, fresh ? 300 : 10);
    }
    EXPECT_TRUE(painter->IsFullRepaint());
    const Pixels p = ReadPixels(frame);
    EXPECT_EQ(10 * 10, p.CountColour(p.Bounds(), blue));
    EXPECT_EQ(400 * 300 - 10 * 10, p.CountColour(p.Bounds(), red));
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
    for (const int far : {INT_MIN, -40000, 40000, INT_MAX})
        painter->ScrollContent(0, far, INT_MIN, 0, 400, 300);
    painter->ScrollContent(-30, -15, INT_MIN, INT_MIN, INT_MAX, INT_MAX);
    const wxBitmap* const buffer = CDrawBufferManager::Get().GetExistingBuffer(painter.get(), 1, 1, 1.0);
    EXPECT_EQ(wxSize(400, 300), buffer->GetSize());
    EXPECT_EQ(16, ReadPixels(*buffer).CountColour(wxRect(0, 0, 4, 4), blue));
}

TEST_F(Painter, NoBufferIsLargerThanAPixmap)
{
    auto* const child = new wxWindow(frame, wxID_ANY, wxPoint(0, 0), wxSize(40000, 10));
    CwxWinPainter wide(child);
    for (const StdSettings settings : {ssBuffered, ssAsIs}) {
        const CPaintScope scope(wide, settings);
        EXPECT_EQ(settings == ssAsIs, scope.IsOk());
        wide.FillRect(0, 0, 40000, 10);
    }
}

TEST_F(Painter, OutlivesItsWindow)
{
    auto* const child = new wxWindow(frame, wxID_ANY);
    child->SetSize(0, 0, 0, 0); // paints buffered all the same
    CwxWinPainter orphan(child);
    EXPECT_TRUE(orphan.BeginPaint(ssBuffered));
    orphan.EndPaint();
    EXPECT_TRUE(orphan.BeginPaint(ssAsIs));
    child->Reparent(new wxWindow(frame, wxID_ANY)); // takes from it what it was drawn on
    EXPECT_EQ(nullptr, orphan.GetDC());
    orphan.EndPaint();
    EXPECT_TRUE(orphan.BeginPaint(ssAsIs));
    child->Destroy();
    EXPECT_EQ(nullptr, orphan.GetDC());
    orphan.FillRect(0, 0, 10, 10);
    orphan.SetFont(font());
    orphan.DrawString(1, 1, "text");
    orphan.DrawControlElement(cePushButton, 0, 0, 10, 10, 0);
    EXPECT_EQ(size<double>(), orphan.GetTextSize("text"));
    orphan.EndPaint();
    EXPECT_FALSE(orphan.BeginPaint(ssClear));
    orphan.FillRect(0, 0, 10, 10);
    orphan.EndPaint();
    EXPECT_TRUE(orphan.GetDrawRect().IsNull());
    orphan.ScrollContent(1, 1, 0, 0, 5, 5);
}

TEST_F(Painter, BufferedPaintReachesTheDeviceAtItsEnd)
{
    wxBitmap target(400, 300);
    wxMemoryDC dc(target);
    dc.SetBackground(*wxWHITE_BRUSH);
    dc.Clear();
    painter->SetDC(&dc);
    painter->BeginPaint(ssBuffered);
    painter->SetBrush(brush{clRed, bsSolid});
    painter->FillRect(0, 0, 50, 50);
    EXPECT_EQ(400 * 300, ReadPixels(target).CountColour(wxRect(0, 0, 400, 300), 0xffffff));
    painter->EndPaint();
    EXPECT_EQ(50 * 50, ReadPixels(target).CountColour(wxRect(0, 0, 400, 300), red));
    EXPECT_EQ(0, ReadPixels(target).CountColour(wxRect(0, 0, 400, 300), 0xffffff));
    painter->SetDC(nullptr);
}

} // namespace
} // namespace vela7
