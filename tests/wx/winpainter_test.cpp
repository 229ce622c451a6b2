// The window painter: state on the device, draw buffers.

#include "drawingtest.h"
#include "vela7/wxdrawbuffer.h"

#include <climits>
#include <wx/dcmemory.h>
#include <wx/dcmirror.h>
#include <wx/settings.h>

using namespace vela7;
using namespace vela7::test;

class Painter : public GuiTest
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        painter = std::make_unique<CwxWinPainter>(frame);
        painter->SetBackgroundColor(Toolkit(ground));
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
    EXPECT_EQ(wxBrush(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE), wxBRUSHSTYLE_TRANSPARENT),
              Dc().GetBrush());
    EXPECT_EQ(wxPen(*wxBLACK, 1), Dc().GetPen());
    // X holds dashes of 255 pixels at most, in the longest of a pattern.
    // clang-format off
    const struct { int style, width; wxPenStyle expected; } pens[] = {
        {0, 1, wxPENSTYLE_TRANSPARENT}, {1, 2, wxPENSTYLE_SOLID},        {1, 3, wxPENSTYLE_SOLID},
        {2, 1, wxPENSTYLE_SHORT_DASH},  {2, 127, wxPENSTYLE_SHORT_DASH}, {2, 128, wxPENSTYLE_SOLID},
        {3, 1, wxPENSTYLE_DOT},         {3, 255, wxPENSTYLE_DOT},        {3, 256, wxPENSTYLE_SOLID},
        {4, 1, wxPENSTYLE_DOT_DASH},    {4, 85, wxPENSTYLE_DOT_DASH},    {4, 86, wxPENSTYLE_SOLID},
        {5, 1, wxPENSTYLE_SOLID},       {7, 1, wxPENSTYLE_SOLID},        {8, 1, wxPENSTYLE_SOLID},
        {6, 2, wxPENSTYLE_USER_DASH},   {6, 3, wxPENSTYLE_USER_DASH},    {6, 1 << 14, wxPENSTYLE_SOLID}};
    const wxBrushStyle brushes[] = {
        wxBRUSHSTYLE_TRANSPARENT,     wxBRUSHSTYLE_SOLID,           wxBRUSHSTYLE_HORIZONTAL_HATCH,
        wxBRUSHSTYLE_VERTICAL_HATCH,  wxBRUSHSTYLE_CROSS_HATCH,     wxBRUSHSTYLE_BDIAGONAL_HATCH,
        wxBRUSHSTYLE_FDIAGONAL_HATCH, wxBRUSHSTYLE_CROSSDIAG_HATCH, wxBRUSHSTYLE_TRANSPARENT};
    // clang-format on
    for (const auto& [style, width, expected] : pens) {
        SCOPED_TRACE(testing::Message() << style << " width " << width);
        painter->SetPen(pen{_color(1, 2, 3), width, style});
        const wxPen selected = Dc().GetPen();
        EXPECT_TRUE(selected.GetStyle() == expected && selected.GetWidth() == width);
        EXPECT_EQ(wxColour(1, 2, 3), selected.GetColour());
        EXPECT_EQ(width >= 3 ? wxCAP_BUTT : wxCAP_ROUND, selected.GetCap());
        EXPECT_EQ(width >= 3 ? wxJOIN_MITER : wxJOIN_ROUND, selected.GetJoin());
        wxDash* dashes = nullptr;
        ASSERT_EQ(expected == wxPENSTYLE_USER_DASH ? 2 : 0, selected.GetDashes(&dashes));
        EXPECT_TRUE(!dashes || (dashes[0] == 1 && dashes[1] == 2));
        painter->LineTo(50, 50);
    }
    painter->SetPen(pen{clRed, 1 << 30, psAlternate});
    EXPECT_EQ(1 << 14, Dc().GetPen().GetWidth());
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
    EXPECT_TRUE(painter->GetTextColor() == _color(1, 2, 3) && painter->GetBkColor() == _color(4, 5, 6));
    EXPECT_EQ(wxColour(4, 5, 6), Dc().GetTextBackground());
    for (const int mode : {1, 2, 0}) {
        painter->SetBkMode(static_cast<BkMode>(mode));
        EXPECT_EQ(mode == 0 ? bkTransparent : bkOpaque, painter->GetBkMode()) << mode;
    }
    for (const unsigned style : {fsBold | fsStrikeOut, fsItalic | fsUnderline}) {
        const font f{"", ffDefault, 12, style, 450};
        painter->SetFont(f);
        EXPECT_EQ(f, painter->GetFont());
        fontmetrics m;
        painter->GetFontMetrics(&m);
        EXPECT_TRUE(m.height == Dc().GetCharHeight() && m.averageWidth == Dc().GetTextExtent("H").x &&
                    m.descent > 0);
        EXPECT_TRUE(m.ascent == 0 && m.maxWidth == 0 && !m.struckOut); // three fields stay open
        const bool bold = (style & fsBold) != 0;
        EXPECT_TRUE(m.bold == bold && m.italic != bold && m.underlined != bold);
    }
    painter->GetFontMetrics(nullptr);
}

// ---- buffers

// Whether a buffered paint begins without the last picture.
bool IsFresh(CwxWinPainter& painter)
{
    const CPaintScope scope(painter, ssBuffered);
    return painter.IsFullRepaint();
}

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
    painter->SetBackgroundColor(Toolkit(ground));
    EXPECT_TRUE(CPaintScope(*painter, ssAsIs).IsOk());
    ExpectSamePixels(p, ReadPixels(frame), "as it is");
    EXPECT_FALSE(IsFresh(*painter));
    EXPECT_EQ(wxRect(), BoxOfOthers(ReadPixels(frame), ground));
}

TEST_F(Painter, NinthPainterTakesTheBufferOfTheLeastRecent)
{
    EXPECT_TRUE(IsFresh(*painter));
    std::vector<std::unique_ptr<CwxWinPainter>> others;
    for (int i = 0; i < 7; ++i)
        EXPECT_TRUE(IsFresh(*others.emplace_back(std::make_unique<CwxWinPainter>(frame)))) << i;
    EXPECT_FALSE(IsFresh(*painter)); // now the most recent; others[0] is the oldest
    CwxWinPainter ninth(frame);
    EXPECT_TRUE(IsFresh(ninth));
    EXPECT_EQ(8u, CDrawBufferManager::Get().GetCount());
    EXPECT_FALSE(IsFresh(*painter));
    EXPECT_TRUE(IsFresh(*others[0])); // takes others[1]'s
    EXPECT_FALSE(IsFresh(*others[2]));
    EXPECT_TRUE(IsFresh(*others[1]));
}

TEST_F(Painter, GrowthKeepsContentAndNeverShrinks)
{
    CDrawBufferManager manager;
    bool fresh = false;
    const CwxWinPainter* const key = painter.get();
    wxBitmap* bitmap = manager.GetBuffer(key, 100, 90, 1.0, &fresh, *wxRED);
    ASSERT_TRUE(bitmap && fresh);
    bitmap = manager.GetBuffer(key, 150, 80, 1.0, &fresh, *wxBLUE);
    EXPECT_FALSE(fresh);
    ASSERT_EQ(wxSize(150, 90), bitmap->GetSize());
    const Pixels grown = ReadPixels(*bitmap);
    EXPECT_EQ(100 * 90, grown.CountColour(wxRect(0, 0, 100, 90), red));
    EXPECT_EQ(50 * 90, grown.CountColour(wxRect(100, 0, 50, 90), blue));
    EXPECT_EQ(bitmap, manager.GetBuffer(key, 10, 10, 1.0, &fresh));
    // At scale 2.0 the 150 x 90 pixels count as 75 x 45.
    EXPECT_EQ(bitmap, manager.GetBuffer(key, 75, 45, 2.0, &fresh));
    EXPECT_EQ(wxSize(150, 92), manager.GetBuffer(key, 75, 46, 2.0, &fresh)->GetSize());
    EXPECT_EQ(wxSize(152, 92), manager.GetBuffer(key, 76, 10, 2.0, &fresh)->GetSize());
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
    EXPECT_TRUE(CPaintScope(*painter, ssBuffered).IsOk());
    painter.reset();
    EXPECT_EQ(0u, CDrawBufferManager::Get().GetCount());
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
        painter->FillRect(399, 299, 400, 300);
        painter->FillRect(20, 12, 21, 13); // beside what scrolls
        painter->FillRect(50, 0, 51, 1), painter->FillRect(0, 50, 1, 51);
        painter->ScrollContent(100, 0, 10, 10, 13, 13); // not during a paint
    }
    painter->ScrollContent(20, 5, 10, 10, 13, 13);
    painter->ScrollContent(0, 3, 50, 0, 50, 0), painter->ScrollContent(3, 0, 0, 50, 0, 50);
    EXPECT_FALSE(IsFresh(*painter)); // and shows it
    const Pixels p = ReadPixels(frame);
    EXPECT_EQ(16, p.CountColour(wxRect(30, 15, 4, 4), blue));
    EXPECT_TRUE(p.At(50, 3) == blue && p.At(3, 50) == blue);
    EXPECT_EQ(38, p.CountColour(p.Bounds(), blue));         // the source stays
    painter->ScrollContent(-100, -100, 399, 299, 450, 350); // beyond the edge
    for (const int far : {INT_MIN, -40000, 40000, INT_MAX})
        painter->ScrollContent(0, far, INT_MIN, 0, 400, 300);
    painter->ScrollContent(-30, -15, INT_MIN, INT_MIN, INT_MAX, INT_MAX);
    const wxBitmap* const buffer = CDrawBufferManager::Get().GetExistingBuffer(painter.get(), 1, 1, 1.0);
    EXPECT_EQ(wxSize(400, 300), buffer->GetScaledSize());
    EXPECT_EQ(16, ReadPixels(*buffer).CountColour(wxRect(0, 0, 4, 4), blue));
    EXPECT_EQ(blue, ReadPixels(*buffer).At(299 - 30, 199 - 15));
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
    child->SetSize(0, 0, 100, 10);
    EXPECT_TRUE(IsFresh(wide));
}

TEST_F(Painter, OutlivesItsWindow)
{
    auto* const child = new wxWindow(frame, wxID_ANY);
    child->SetSize(0, 0, 0, 0); // paints buffered all the same
    CwxWinPainter orphan(child);
    EXPECT_TRUE(CPaintScope(orphan, ssBuffered).IsOk());
    EXPECT_TRUE(orphan.BeginPaint(ssAsIs));
    child->Reparent(new wxWindow(frame, wxID_ANY)); // takes from it what it was drawn on
    EXPECT_EQ(nullptr, orphan.GetDC());
    EXPECT_TRUE(orphan.BeginPaint(ssAsIs));
    child->Destroy();
    EXPECT_EQ(nullptr, orphan.GetDC());
    for (const bool again : {false, true}) {
        orphan.FillRect(0, 0, 10, 10);
        orphan.SetFont(font());
        orphan.DrawString(1, 1, "text");
        orphan.DrawControlElement(cePushButton, 0, 0, 10, 10, 0);
        EXPECT_EQ(size<double>(), orphan.GetTextSize("text"));
        orphan.EndPaint();
        EXPECT_FALSE(!again && orphan.BeginPaint(ssClear));
    }
    EXPECT_TRUE(orphan.GetDrawRect().IsNull());
    orphan.ScrollContent(1, 1, 0, 0, 5, 5);
}

// A device that counts what is copied to it.
struct CountingDC : wxDC
{
    struct Impl : wxMirrorDCImpl
    {
        using wxMirrorDCImpl::wxMirrorDCImpl;
        bool DoBlit(int x, int y, int w, int h, wxDC* from, int sx, int sy, wxRasterOperationMode op,
                    bool mask, int mx, int my) override
        {
            ++copies;
            return wxMirrorDCImpl::DoBlit(x, y, w, h, from, sx, sy, op, mask, mx, my);
        }
        int copies = 0;
    };
    explicit CountingDC(wxDC& target) : wxDC(new Impl(this, *target.GetImpl(), false)) {}
    int Copies() { return static_cast<Impl*>(GetImpl())->copies; }
};

TEST_F(Painter, BufferedPaintReachesTheDeviceOnceAtItsEnd)
{
    wxBitmap target(400, 300);
    wxMemoryDC memory(target);
    CountingDC dc(memory);
    painter->SetDC(&dc);
    painter->BeginPaint(ssBuffered);
    painter->SetBrush(brush{clRed, bsSolid});
    painter->FillRect(0, 0, 50, 50);
    EXPECT_EQ(0, dc.Copies());
    painter->EndPaint();
    EXPECT_EQ(1, dc.Copies());
    EXPECT_EQ(wxRect(0, 0, 50, 50), ReadPixels(target).BoxOf(red));
    EXPECT_EQ(400 * 300 - 50 * 50, ReadPixels(target).CountColour(wxRect(0, 0, 400, 300), ground));
    painter->SetDC(nullptr);
}

TEST_F(Painter, KnowsItsCanvas)
{
    auto* const window = new CwxSysWindow(frame, false, ISysWindow::wtNormal);
    EXPECT_EQ(window, window->CreatePainter()->GetCanvas());
}
