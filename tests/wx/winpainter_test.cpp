// The window painter: state on the device, draw buffers.

#include "vela7/wxwinpainter.h"

#include "support/fixture.h"
#include "support/pixels.h"
#include "vela7/wxdrawbuffer.h"

#include <wx/brush.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/dcmirror.h>
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

// A device that counts what is copied to it.
class CountingImpl : public wxMirrorDCImpl
{
public:
    CountingImpl(wxDC* owner, wxDC& real) : wxMirrorDCImpl(owner, *real.GetImpl(), false) {}

    bool DoBlit(wxCoord x, wxCoord y, wxCoord width, wxCoord height, wxDC* source, wxCoord sx, wxCoord sy,
                wxRasterOperationMode op, bool useMask, wxCoord mx, wxCoord my) override
    {
        copied.emplace_back(x, y, width, height);
        return wxMirrorDCImpl::DoBlit(x, y, width, height, source, sx, sy, op, useMask, mx, my);
    }

    std::vector<wxRect> copied;
};

class CountingDC : public wxDC
{
public:
    explicit CountingDC(wxDC& real) : wxDC(new CountingImpl(this, real)) {}
    const std::vector<wxRect>& Copied() const { return static_cast<CountingImpl*>(m_pimpl)->copied; }
};

TEST_F(Painter, BufferedPaintEndsInOneCopyOfTheClientArea)
{
    wxBitmap target(400, 300);
    wxMemoryDC real(target);
    CountingDC dc(real);
    painter->SetDC(&dc);
    painter->BeginPaint(ssBuffered);
    for (int i = 0; i < 10; ++i)
        painter->Rectangle(i, i, 50, 50);
    EXPECT_TRUE(dc.Copied().empty());
    painter->EndPaint();
    EXPECT_EQ(std::vector<wxRect>{wxRect(0, 0, 400, 300)}, dc.Copied());
    painter->SetDC(nullptr);
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
