// What the painter draws, as pixels: on a window straight and through its draw buffer, and on a picture.

#include "support/fixture.h"
#include "support/pixels.h"
#include "vela7/wxconvert.h"
#include "vela7/wxrasterpicture.h"
#include "vela7/wxrstpainter.h"
#include "vela7/wxwinpainter.h"
#include "vela7/xpm.h"

#include <cmath>
#include <functional>
#include <wx/brush.h>
#include <wx/dcmemory.h>
#include <wx/image.h>
#include <wx/pen.h>
#include <wx/settings.h>

namespace vela7 {
namespace {

using namespace test;

constexpr std::uint32_t ground = 0x0a141e; // colours as 0xRRGGBB
constexpr std::uint32_t red = 0xff0000;
constexpr std::uint32_t blue = 0x0000ff;
constexpr std::uint32_t yellow = 0xffff00;

constexpr _color Toolkit(std::uint32_t c)
{
    return _color(static_cast<unsigned char>(c >> 16), static_cast<unsigned char>(c >> 8),
                  static_cast<unsigned char>(c));
}

enum Surface
{
    window,
    buffered,
    picture
};

double dpiScale = 1.0; // what the painters say

template <class Base>
class Scaled : public Base
{
public:
    using Base::Base;
    double internalGetDPIScale() const override { return dpiScale; }
};

// All that an operation may select for itself, as device and painter know it.
struct State
{
    explicit State(CwxPainter& p)
        : devicePen(p.GetDC()->GetPen()), deviceBrush(p.GetDC()->GetBrush()),
          deviceFont(p.GetDC()->GetFont()), text(p.GetTextColor()), back(p.GetBkColor()), mode(p.GetBkMode()),
          op(p.GetDC()->GetLogicalFunction()), ownPen(p.GetPen()), ownBrush(p.GetBrush()),
          ownFont(p.GetFont()), clip(p.GetClipRect())
    {
    }
    void ExpectKeptBy(CwxPainter& painter) const
    {
        const State now(painter);
        EXPECT_EQ(devicePen, now.devicePen);
        EXPECT_EQ(deviceBrush, now.deviceBrush);
        EXPECT_EQ(deviceFont, now.deviceFont);
        EXPECT_TRUE(text == now.text && back == now.back && mode == now.mode);
        EXPECT_EQ(op, now.op);
        EXPECT_TRUE(ownPen == now.ownPen && ownBrush == now.ownBrush && clip == now.clip);
        EXPECT_EQ(ownFont, now.ownFont);
    }

    wxPen devicePen;
    wxBrush deviceBrush;
    wxFont deviceFont;
    _color text, back;
    BkMode mode;
    wxRasterOperationMode op;
    pen ownPen;
    brush ownBrush;
    font ownFont;
    rectangle<double> clip;
};

using Operation = std::function<void(CwxPainter&)>;
using WxOperation = std::function<void(wxDC&)>;

class Drawing : public GuiTest, public testing::WithParamInterface<Surface>
{
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        dpiScale = 1.0;
        m_canvas = CHandle<CwxRasterPicture>(new CwxRasterPicture(size<int>(400, 300)));
        if (GetParam() == picture)
            m_painter = std::make_unique<Scaled<CwxRstPainter>>(m_canvas.Get());
        else
            m_painter = std::make_unique<Scaled<CwxWinPainter>>(frame);
        m_painter->SetBackgroundColor(Toolkit(ground));
    }

    void TearDown() override
    {
        m_painter.reset();
        GuiTest::TearDown();
    }

    // On a cleared surface of 400 x 300, with a red pen, a blue brush and yellow text.
    Pixels Draw(const Operation& draw)
    {
        {
            const CPaintScope scope(*m_painter, GetParam() == buffered ? ssBuffered : ssClear);
            EXPECT_TRUE(scope.IsOk());
            if (GetParam() == picture) {
                m_painter->SetBrush(brush{Toolkit(ground), bsSolid});
                m_painter->FillRect(0, 0, 400, 300);
            }
            m_painter->SetPen(pen{clRed, 1, psSolid});
            m_painter->SetBrush(brush{clBlue, bsSolid});
            m_painter->SetTextColor(clYellow);
            draw(*m_painter);
        }
        return GetParam() == picture ? ReadPixels(m_canvas->GetBitmap()) : ReadPixels(frame);
    }

    // The same on a bare device.
    static Pixels DrawBare(const WxOperation& draw)
    {
        wxBitmap bitmap(400, 300);
        {
            wxMemoryDC dc(bitmap);
            dc.SetBackground(wxBrush(vela2wx(Toolkit(ground))));
            dc.Clear();
            dc.SetPen(wxPen(*wxRED, 1));
            dc.SetBrush(*wxBLUE_BRUSH);
            dc.SetFont(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT));
            dc.SetTextForeground(vela2wx(clYellow));
            draw(dc);
        }
        return ReadPixels(bitmap);
    }

    CHandle<CwxRasterPicture> m_canvas;
    std::unique_ptr<CwxPainter> m_painter;
};

INSTANTIATE_TEST_SUITE_P(On, Drawing, testing::Values(window, buffered, picture), [](const auto& info) {
    return std::string(info.param == window ? "Window" : info.param == buffered ? "Buffer" : "Picture");
});

struct Probe
{
    int x, y;
    std::uint32_t colour;
};

struct Row
{
    const char* name;
    Operation draw;
    WxOperation bare; // the call on the device that it is, with its arguments
    std::vector<Probe> probes;
};

const point<double> star[] = {{50, 10}, {74, 84}, {11, 38}, {89, 38}, {26, 84}};
const wxPoint wxStar[] = {{50, 10}, {74, 84}, {11, 38}, {89, 38}, {26, 84}};

void DrawBareFocus(wxDC& dc)
{
    static const wxDash dashes[] = {1, 2};
    wxPen dotted(*wxWHITE, 1, wxPENSTYLE_USER_DASH);
    dotted.SetDashes(2, dashes);
    dc.SetLogicalFunction(wxXOR);
    dc.SetPen(dotted);
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    dc.DrawRectangle(10, 10, 80, 50);
}

// clang-format off
const Row rows[] = {
    {"Rectangle", [](CwxPainter& p) { p.Rectangle(10, 10, 30, 20); },
          [](wxDC& dc) { dc.DrawRectangle(10, 10, 20, 10); },
          {{9, 10, ground}, {10, 10, red}, {29, 19, red}, {30, 19, ground}, {29, 20, ground},
          {11, 11, blue}, {28, 18, blue}}},
    {"ReversedRectangle", [](CwxPainter& p) { p.internalRectangle(30, 20, 10, 12); },
          [](wxDC& dc) { dc.DrawRectangle(30, 20, -20, -8); }, {}},
    {"FillRect",  [](CwxPainter& p) { p.FillRect(50, 10, 70, 20); },
          [](wxDC& dc) { dc.SetPen(*wxTRANSPARENT_PEN); dc.DrawRectangle(50, 10, 20, 10); },
          {{49, 10, ground}, {50, 10, blue}, {69, 19, blue}, {70, 19, ground}, {69, 20, ground}}},
    {"Lines",     [](CwxPainter& p) { p.MoveTo(5, 5); p.LineTo(15, 5); p.LineTo(15, 15); },
          [](wxDC& dc) { dc.DrawLine(5, 5, 15, 5); dc.DrawLine(15, 5, 15, 15); },
          {{4, 5, ground}, {5, 5, red}, {15, 5, red}, {15, 14, red}, {15, 15, ground}}},
    {"Ellipse",   [](CwxPainter& p) { p.Ellipse(10, 10, 90, 60); },
          [](wxDC& dc) { dc.DrawEllipse(10, 10, 80, 50); },
          {{12, 12, ground}, {50, 10, red}, {10, 35, red}, {50, 35, blue}, {9, 35, ground}}},
    {"RoundRect", [](CwxPainter& p) { p.RoundRect(10, 10, 110, 60, 20, 8); },
          [](wxDC& dc) { dc.DrawRoundedRectangle(10, 10, 100, 50, 8.0); },
          {{10, 10, ground}, {11, 12, ground}, {10, 20, red}, {20, 10, red}, {60, 30, blue}}},
    {"RoundRectOtherRadius", [](CwxPainter& p) { p.RoundRect(10, 10, 110, 60, 5, 30); },
          [](wxDC& dc) { dc.DrawRoundedRectangle(10, 10, 100, 50, 5.0); }, {{10, 20, red}}},
    {"Arc",       [](CwxPainter& p) { p.Arc(10, 10, 90, 60, 455, 1799); },
        [](wxDC& dc) { dc.SetBrush(*wxTRANSPARENT_BRUSH); dc.DrawEllipticArc(10, 10, 80, 50, 45.0, 179.0); },
          {{50, 10, red}, {50, 25, ground}, {50, 60, ground}}},
    {"ArcBackwards", [](CwxPainter& p) { p.Arc(10, 10, 90, 60, -455, 459); },
        [](wxDC& dc) { dc.SetBrush(*wxTRANSPARENT_BRUSH); dc.DrawEllipticArc(10, 10, 80, 50, -45.0, 45.0); },
          {{90, 35, red}, {10, 35, ground}}},
    {"Pie",       [](CwxPainter& p) { p.Pie(10, 10, 90, 60, 455, 1799); },
          [](wxDC& dc) { dc.DrawEllipticArc(10, 10, 80, 50, 45.0, 179.0); },
          {{50, 10, red}, {50, 25, blue}, {80, 33, ground}, {50, 50, ground}}},
    {"Chord",     [](CwxPainter& p) { p.Chord(10, 10, 90, 60, 455, 1799); },
          [](wxDC& dc) { dc.DrawEllipticArc(10, 10, 80, 50, 45.0, 179.0); },
          {{50, 32, blue}, {80, 30, ground}}},
    {"PolyLine",  [](CwxPainter& p) { p.PolyLine(star, 5); },
          [](wxDC& dc) { dc.DrawLines(5, wxStar); }, {{50, 10, red}, {50, 38, red}, {50, 50, ground}}},
    {"PolyBezier", [](CwxPainter& p) { p.PolyBezier(star, 5, 1, 3); },
          [](wxDC& dc) { dc.DrawSpline(3, wxStar + 1); }, {{50, 10, ground}, {50, 50, ground}}},
    {"Polygon",   [](CwxPainter& p) { p.Polygon(star, 5); },
          [](wxDC& dc) { dc.DrawPolygon(5, wxStar, 0, 0, wxODDEVEN_RULE); },
          {{50, 20, blue}, {50, 50, ground}, {50, 10, red}}}, // odd-even: the middle stays open
    {"GradientH", [](CwxPainter& p) { p.GradientH(10, 10, 90, 60, clYellow, clBlue, 3); },
          [](wxDC& dc) { dc.GradientFillLinear(wxRect(10, 10, 80, 50), *wxYELLOW, *wxBLUE, wxRIGHT); },
          {{9, 10, ground}, {10, 10, 0xfcfc03}, {10, 59, 0xfcfc03}, {89, 30, blue}, {90, 30, ground}}},
    {"GradientV", [](CwxPainter& p) { p.GradientV(10, 10, 90, 60, clYellow, clBlue, 0); },
          [](wxDC& dc) { dc.GradientFillLinear(wxRect(10, 10, 80, 50), *wxYELLOW, *wxBLUE, wxDOWN); },
          {{10, 9, ground}, {10, 10, 0xfafa05}, {89, 10, 0xfafa05}, {10, 59, blue}, {10, 60, ground}}},
    {"FocusRect", [](CwxPainter& p) { p.FocusRect(10, 10, 90, 60); }, DrawBareFocus,
          {{10, 10, 0xffffff ^ ground}, {11, 10, ground}, {50, 30, ground}}},
    {"SetPixel",
        [](CwxPainter& p) { EXPECT_EQ(_color(255, 255, 0, 7), p.SetPixel(20, 20, _color(255, 255, 0, 7))); },
          [](wxDC& dc) { dc.SetPen(*wxYELLOW_PEN); dc.DrawPoint(20, 20); },
          {{20, 20, yellow}, {21, 20, ground}}},
    {"SetPixelWithoutColour", [](CwxPainter& p) { EXPECT_EQ(clRed, p.SetPixel(20, 20, _color::none())); },
          [](wxDC& dc) { dc.DrawPoint(20, 20); }, {{20, 20, red}}},
    {"SemiFillRect", [](CwxPainter& p) { p.SemiFillRect(0, 0, 400, 300, _color(255, 255, 255, 128)); },
          [](wxDC&) {}, {{200, 150, ground}}},
    {"DrawString", [](CwxPainter& p) { p.DrawString(20, 20, "Text"); p.DrawString(20, 60, "Text", 2); },
          [](wxDC& dc) { dc.DrawRotatedText("Text", 20, 20, 0.0); dc.DrawRotatedText("Te", 20, 60, 0.0); },
          {{19, 19, ground}}},
    {"Measuring", [](CwxPainter& p) { font f; f.size = 30; p.GetTextSize("Abc", &f); p.GetTextSize("");
          fontmetrics m; p.GetFontMetrics(&m); },
          [](wxDC&) {}, {{0, 0, ground}}},
    {"NoPoints",  [](CwxPainter& p) { p.PolyLine(nullptr, 5); p.PolyBezier(star, 1); p.PolyBezier(nullptr, 3);
          p.Polygon(star, 0); p.Polygon(nullptr, 4); p.PolyLine(star, -3); },
          [](wxDC&) {}, {{50, 10, ground}}},
};
// clang-format on

TEST_P(Drawing, IsTheDevicesOwnAndLeavesTheStateAlone)
{
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const Pixels drawn = Draw([&](CwxPainter& painter) {
            const State before(painter);
            row.draw(painter);
            before.ExpectKeptBy(painter);
        });
        ExpectSamePixels(DrawBare(row.bare), drawn, row.name);
        for (const Probe& probe : row.probes)
            EXPECT_EQ(probe.colour, drawn.At(probe.x, probe.y)) << probe.x << ',' << probe.y;
    }
}

TEST_P(Drawing, PolyLineRanges)
{
    const point<double> points[] = {{0, 0}, {0, 10}, {20, 10}, {40, 10}, {60, 10}};
    const wxPoint bare[] = {{0, 0}, {0, 10}, {20, 10}, {40, 10}, {60, 10}};
    struct Range
    {
        int count, first, last;
        int from, shown; // points
    };
    const Range ranges[] = {{5, 1, -1, 1, 4}, {5, 3, 7, 3, 2},   {5, 4, 2, 0, 0},
                            {5, -2, 2, 0, 3}, {5, -2, -1, 0, 5}, {5, 0, 5, 0, 5},
                            {0, 0, -1, 0, 0}, {5, 9, -1, 0, 0},  {5, 2, 2, 2, 1}};
    for (const Range& range : ranges) {
        SCOPED_TRACE(testing::Message() << range.count << ' ' << range.first << ' ' << range.last);
        ExpectSamePixels(
            DrawBare([&](wxDC& dc) {
                if (range.shown > 0)
                    dc.DrawLines(range.shown, bare + range.from);
            }),
            Draw([&](CwxPainter& p) { p.PolyLine(points, range.count, range.first, range.last); }), "range");
    }
}

TEST_P(Drawing, KeepsTheCurrentPositionAndReadsPixels)
{
    Draw([](CwxPainter& p) {
        EXPECT_EQ(point<int>(30, 40), p.internalMoveTo(30, 40));
        EXPECT_EQ(point<int>(30, 40), p.internalGetCurrentPos());
        p.LineTo(50, 40);
        EXPECT_EQ(point<int>(50, 40), p.internalGetCurrentPos());
        EXPECT_EQ(clRed, p.GetPixel(49, 40));
        EXPECT_EQ(Toolkit(ground), p.GetPixel(50, 40));
        EXPECT_EQ(clBlack, p.GetPixel(-5000, 40)); // nothing to read
    });
    EXPECT_EQ(point<int>(50, 40), m_painter->internalGetCurrentPos()); // outlives the paint
}

TEST_P(Drawing, FocusRectTwiceRestores)
{
    const auto scene = [](CwxPainter& p) { p.GradientH(0, 0, 100, 100, clYellow, clGreen); };
    const Pixels before = Draw(scene);
    ExpectSamePixels(before, Draw([&](CwxPainter& p) {
                         scene(p);
                         p.FocusRect(10, 10, 90, 90);
                         EXPECT_NE(Toolkit(before.At(10, 10)), p.GetPixel(10, 10));
                         p.FocusRect(10, 10, 90, 90);
                     }),
                     "focus");
}

TEST_P(Drawing, ClipsInsideOrOutside)
{
    const Pixels in = Draw([](CwxPainter& p) {
        p.SetClipRect(10, 10, 30, 30);
        p.SetClipRect(20, 0, 50, 50);
        p.FillRect(0, 0, 100, 100);
        p.CancelClipping();
        p.FillRect(60, 60, 61, 61);
    });
    EXPECT_EQ(10 * 20 + 1, in.CountColour(in.Bounds(), blue));
    EXPECT_EQ(blue, in.At(20, 10));
    const Pixels out = Draw([](CwxPainter& p) {
        p.SetClipRect(10, 10, 30, 30, true);
        p.FillRect(0, 0, 100, 100);
    });
    EXPECT_EQ(100 * 100 - 20 * 20, out.CountColour(out.Bounds(), blue));
    const Pixels none = Draw([](CwxPainter& p) {
        p.SetClipRect(0, 0, 2000, 2000, true);
        p.FillRect(0, 0, 100, 100);
    });
    EXPECT_EQ(0, none.CountColour(none.Bounds(), blue));
}

// ---- text

TEST_P(Drawing, TextIsRotatedAndStruckOut)
{
    font f;
    f.size = 20;
    int width = 0, height = 0;
    const auto draw = [&](unsigned style, int angle) {
        return Draw([&, style, angle](CwxPainter& p) {
            f.style = style;
            f.angle = angle;
            p.SetFont(f);
            const State before(p);
            p.DrawString(100, 100, "llll");
            before.ExpectKeptBy(p);
            p.GetDC()->GetTextExtent("llll", &width, &height);
        });
    };
    const Pixels plain = draw(0, 0);
    const Pixels struck = draw(fsStrikeOut, 0);
    const int line = 100 + static_cast<int>(height * 0.5 + 0.5);
    EXPECT_EQ(width + 2, struck.CountColour(wxRect(99, line, width + 2, 1), yellow)); // x - 1 to x + width
    EXPECT_EQ(width + 2, struck.CountColour(wxRect(0, line, 400, 1), yellow));
    EXPECT_LT(plain.CountColour(wxRect(0, line, 400, 1), yellow), width);
    EXPECT_EQ(plain.CountColour(wxRect(0, 0, 400, line), yellow),
              struck.CountColour(wxRect(0, 0, 400, line), yellow));
    const Pixels up = draw(0, 900);
    ExpectSamePixels(up, draw(fsStrikeOut, 900), "rotated");
    EXPECT_LT(up.BoxOf(yellow).GetTop(), 100 - width / 2);
}

TEST_P(Drawing, ALeadingCapitalCountsOnePixelLessAtScaleOne)
{
    font large;
    large.size = 30;
    struct Case
    {
        const char* text;
        double scale;
        int length, less;
    };
    const Case cases[] = {{"Abc", 1.0, -1, 1}, {"abc", 1.0, -1, 0}, {"Abc", 1.25, -1, 0},
                          {"1A", 1.0, -1, 0},  {"Abc", 1.0, 2, 1},  {"Abc", 1.0, 0, 0}};
    Draw([&](CwxPainter& p) {
        const wxFont own = p.GetDC()->GetFont();
        for (const Case& c : cases)
            for (const font* const with :
                 {static_cast<const font*>(nullptr), static_cast<const font*>(&large)}) {
                SCOPED_TRACE(testing::Message()
                             << c.text << ' ' << c.scale << ' ' << c.length << ' ' << (with != nullptr));
                dpiScale = c.scale;
                const point<int> measured = p.internalGetTextSize(c.text, with, c.length);
                EXPECT_EQ(own, p.GetDC()->GetFont());
                wxFont measuring = with ? vela2wx(large) : own;
                const wxString text =
                    wxString(c.text).Left(c.length < 0 ? 100 : static_cast<std::size_t>(c.length));
                wxCoord width = 0, height = 0;
                p.GetDC()->GetTextExtent(text, &width, &height, nullptr, nullptr, &measuring);
                EXPECT_EQ(point<int>(width - c.less, height), measured);
            }
        dpiScale = 1.0;
    });
}

// ---- raster operations

TEST_P(Drawing, RasterOperationsOnEveryPairOfBits)
{
    using Formula = std::uint32_t (*)(std::uint32_t source, std::uint32_t target);
    // clang-format off
    const Formula formulas[16] = {
        [](auto s, auto)   { return s; },        [](auto s, auto t) { return s | t; },
        [](auto s, auto t) { return s ^ t; },    [](auto s, auto t) { return ~s & t; },
        [](auto s, auto)   { return ~s; },       [](auto s, auto t) { return ~s | t; },
        [](auto s, auto t) { return ~s ^ t; },   [](auto s, auto t) { return s & t; },
        [](auto, auto t)   { return ~t; },       [](auto, auto)     { return 0u; },
        [](auto, auto)     { return ~0u; },      [](auto, auto t)   { return t; },
        [](auto s, auto t) { return s & ~t; },   [](auto s, auto t) { return s | ~t; },
        [](auto s, auto t) { return ~s | ~t; },  [](auto s, auto t) { return ~s & ~t; },
    };
    // clang-format on
    const std::uint32_t colours[] = {0x000000, 0xffffff, 0x0f3355, 0xaa5500};
    CHandle<CwxRasterPicture> sources[4];
    for (int i = 0; i < 4; ++i) {
        sources[i] = CHandle<CwxRasterPicture>(new CwxRasterPicture(size<int>(4, 4)));
        const CPaintScope scope(*sources[i]->TakeDefPainter());
        sources[i]->TakeDefPainter()->SetBrush(brush{Toolkit(colours[i]), bsSolid});
        sources[i]->TakeDefPainter()->FillRect(0, 0, 4, 4);
    }
    // Columns: the pairs, once filled, once as lines, once as pictures. Rows: the codes, then two unknown
    // ones.
    const Pixels drawn = Draw([&](CwxPainter& p) {
        for (int code = 0; code < 18; ++code)
            for (int pair = 0; pair < 16; ++pair) {
                const auto op = static_cast<RasterOperation>(code == 17 ? -1 : code);
                const _color source = Toolkit(colours[pair % 4]);
                const int x = pair * 6, y = code * 6;
                p.SetRasterOperation(roCopy);
                p.SetBrush(brush{Toolkit(colours[pair / 4]), bsSolid});
                for (int way = 0; way < 3; ++way)
                    p.FillRect(x + way * 100, y, x + way * 100 + 4, y + 4);
                p.DrawRasterPicture(sources[pair % 4].Get(), x + 200, y, x + 204, y + 4, op);
                EXPECT_EQ(roCopy, p.GetRasterOperation());
                p.SetRasterOperation(op);
                p.SetBrush(brush{source, bsSolid});
                p.FillRect(x, y, x + 4, y + 4);
                p.SetPen(pen{source, 1, psSolid});
                for (int row = 0; row < 4; ++row) {
                    p.MoveTo(x + 100, y + row);
                    p.LineTo(x + 104, y + row);
                }
            }
        p.SetRasterOperation(roCopy);
    });
    for (int code = 0; code < 18; ++code)
        for (int pair = 0; pair < 16; ++pair)
            for (int way = 0; way < 3; ++way) {
                const std::uint32_t expected =
                    formulas[code % 16 * (code < 16)](colours[pair % 4], colours[pair / 4]) & 0xffffff;
                const wxRect cell(pair * 6 + way * 100, code * 6, 4, 4);
                EXPECT_EQ(16, drawn.CountColour(cell, expected))
                    << "code " << code << " pair " << pair << " way " << way << " is "
                    << drawn.At(cell.x, cell.y);
                EXPECT_EQ(ground, drawn.At(cell.x + 4, cell.y + 4));
            }
}

// ---- pictures

std::uint32_t ColourOf(int x, int y)
{
    return static_cast<std::uint32_t>(x * 30 << 16 | y * 40 << 8 | 0x64);
}

// 8 x 6 pixels, no two alike.
CHandle<CwxRasterPicture> Sample()
{
    wxImage image(8, 6);
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 8; ++x)
            image.SetRGB(x, y, static_cast<unsigned char>(x * 30), static_cast<unsigned char>(y * 40), 0x64);
    CHandle<CwxRasterPicture> result(new CwxRasterPicture(size<int>(8, 6)));
    Bitmap2RasterPicture(wxBitmap(image), result.Get());
    return result;
}

// The part of `sample` from (sx, sy) stands at `target`, and nothing else is there.
void ExpectSampleAt(const Pixels& drawn, const wxRect& target, int sx, int sy)
{
    for (int y = 0; y < target.height; ++y)
        for (int x = 0; x < target.width; ++x)
            EXPECT_EQ(ColourOf(sx + x, sy + y), drawn.At(target.x + x, target.y + y)) << x << ',' << y;
    EXPECT_EQ(drawn.Width() * drawn.Height() - target.width * target.height,
              drawn.CountColour(drawn.Bounds(), ground));
}

TEST_P(Drawing, PicturesAreDrawnInPartAndNeverStretched)
{
    const CHandle<CwxRasterPicture> sample = Sample();
    ExpectSampleAt(Draw([&](CwxPainter& p) { p.DrawRasterPicture(sample.Get(), 20, 30, 25, 34); }),
                   wxRect(20, 30, 5, 4), 0, 0);
    ExpectSampleAt(Draw([&](CwxPainter& p) {
                       p.DrawRasterPictureEx(sample.Get(), {2, 1, 3, 2}, {40, 50, 45, 54});
                   }),
                   wxRect(40, 50, 5, 4), 2, 1);
    const Pixels inverted = Draw([&](CwxPainter& p) {
        p.DrawRasterPictureEx(sample.Get(), {2, 1, 3, 2}, {40, 50, 41, 51}, roXor);
    });
    EXPECT_EQ(ColourOf(2, 1) ^ ground, inverted.At(40, 50));
    // Black in the mask is transparent; the picture keeps its pixels.
    const CHandle<CwxRasterPicture> mask(new CwxRasterPicture(size<int>(8, 6)));
    {
        const CPaintScope scope(*mask->TakeDefPainter());
        mask->TakeDefPainter()->SetBrush(brush{clWhite, bsSolid});
        mask->TakeDefPainter()->FillRect(0, 0, 8, 6);
        mask->TakeDefPainter()->SetBrush(brush{clBlack, bsSolid});
        mask->TakeDefPainter()->FillRect(0, 0, 3, 6);
    }
    sample->SetMask(mask.Get());
    ExpectSampleAt(Draw([&](CwxPainter& p) { p.DrawRasterPicture(sample.Get(), 20, 30, 28, 36); }),
                   wxRect(23, 30, 5, 6), 3, 0);
}

TEST_P(Drawing, ExtractsItsPixels)
{
    const CHandle<CwxRasterPicture> sample = Sample();
    const CHandle<CwxRasterPicture> whole(new CwxRasterPicture(size<int>(8, 6)));
    const CHandle<CwxRasterPicture> part = Sample();
    const Pixels drawn = Draw([&](CwxPainter& p) {
        p.DrawRasterPicture(sample.Get(), 20, 30, 28, 36);
        const State before(p);
        p.ExtractRasterPicture(whole.Get(), 20, 30, 28, 36);
        p.ExtractRasterPictureEx(part.Get(), {3, 2, 4, 3}, {20, 30, 22, 31});
        before.ExpectKeptBy(p);
        p.DrawRasterPicture(whole.Get(), 120, 130, 128, 136);
    });
    ExpectSamePixels(ReadPixels(sample->GetBitmap()), ReadPixels(whole->GetBitmap()), "whole");
    EXPECT_EQ(ColourOf(7, 5), drawn.At(127, 135));
    const Pixels changed = ReadPixels(part->GetBitmap());
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 8; ++x) {
            const bool inside = x >= 3 && x < 5 && y == 2;
            EXPECT_EQ(inside ? ColourOf(x - 3, y - 2) : ColourOf(x, y), changed.At(x, y)) << x << ',' << y;
        }
}

TEST_P(Drawing, BlendsByTransparency)
{
    const CHandle<CwxRasterPicture> sample = Sample();
    const auto blend = [&](int transparency) {
        return Draw([&](CwxPainter& p) { p.AlphaBlend(20, 30, 21, 31, sample.Get(), transparency); });
    };
    ExpectSampleAt(blend(0), wxRect(20, 30, 8, 6), 0, 0); // right and bottom do not matter
    const Pixels none = blend(255);
    EXPECT_EQ(400 * 300, none.CountColour(none.Bounds(), ground));
    const Pixels half = blend(128);
    const auto channel = [](std::uint32_t c, int shift) { return static_cast<int>(c >> shift & 0xff); };
    for (const int shift : {16, 8, 0})
        EXPECT_NEAR((channel(ColourOf(7, 5), shift) * 127 + channel(ground, shift) * 128) / 255,
                    channel(half.At(27, 35), shift), 2);
    // One value for each pixel, row by row; what the picture itself has is overwritten.
    wxImage image = sample->GetBitmap().ConvertToImage();
    image.InitAlpha();
    std::fill_n(image.GetAlpha(), 48, static_cast<unsigned char>(40));
    Bitmap2RasterPicture(wxBitmap(image), sample.Get());
    std::vector<unsigned char> transparencies(48, 255);
    transparencies[2 * 8 + 5] = 0;
    ExpectSampleAt(
        Draw([&](CwxPainter& p) { p.AlphaBlend(20, 30, 28, 36, sample.Get(), transparencies.data()); }),
        wxRect(25, 32, 1, 1), 5, 2);
    ExpectSampleAt(blend(0), wxRect(20, 30, 8, 6), 0, 0);
}

TEST_P(Drawing, PicturesWithoutPixelsDrawNothing)
{
    const CHandle<CwxRasterPicture> empty(new CwxRasterPicture(size<int>(0, 0)));
    unsigned char transparency = 0;
    const Pixels drawn = Draw([&](CwxPainter& p) {
        const State before(p);
        for (IRasterPicture* const none :
             {static_cast<IRasterPicture*>(nullptr), static_cast<IRasterPicture*>(empty.Get())}) {
            p.DrawRasterPicture(none, 0, 0, 10, 10);
            p.DrawRasterPictureEx(none, {0, 0, 5, 5}, {0, 0, 5, 5});
            p.ExtractRasterPicture(none, 0, 0, 10, 10);
            p.ExtractRasterPictureEx(none, {0, 0, 5, 5}, {0, 0, 5, 5});
            p.AlphaBlend(0, 0, 10, 10, none, 0);
            p.AlphaBlend(0, 0, 10, 10, none, &transparency);
        }
        p.AlphaBlend(0, 0, 10, 10, Sample().Get(), static_cast<unsigned char*>(nullptr));
        before.ExpectKeptBy(p);
    });
    EXPECT_EQ(400 * 300, drawn.CountColour(drawn.Bounds(), ground));
}

TEST_P(Drawing, XPMIsShortenedNeverShifted)
{
    std::vector<const char*> lines = {"16 16 4 1", "r c #FF0000", "y c #FFFF00", "b c #0000FF", "  c None"};
    lines.insert(lines.end(), 15, "rrrryyyybbbb    ");
    lines.push_back("rbrbrbrbrbrbrbrb");
    const XPMImage xpm(lines.data());
    struct Case
    {
        int cx, cy, w, h;
        double scale;
        wxSize drawn, image; // how much is seen, of the image in which size
    };
    const wxSize natural(16, 16);
    const Case cases[] = {
        {0, 0, -1, -1, 1.0, natural, natural},
        {4, 0, -1, -1, 1.0, {12, 16}, natural},
        {0, 9, -1, -1, 1.0, {16, 7}, natural},
        {0, 0, 6, 5, 1.0, {6, 5}, natural},
        {0, 0, 99, 99, 1.0, natural, natural},
        {6, 2, 12, 3, 0.5, {10, 3}, natural},
        {0, 0, -1, -1, 1.5, {24, 24}, {24, 24}},
        {4, 0, -1, -1, 1.5, {18, 24}, {18, 24}},
        {0, 0, 5, 5, 1.5, {7, 7}, {7, 7}},
        {16, 0, -1, -1, 1.0, {0, 0}, natural},
        {0, 0, -1, -1, std::nan(""), natural, natural},
        {0, 0, -1, -1, 1e9, {0, 0}, natural}, // no such picture
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.cx << ' ' << c.cy << ' ' << c.w << ' ' << c.h << ' ' << c.scale);
        const wxImage image = wxImage(lines.data()).Scale(c.image.x, c.image.y, wxIMAGE_QUALITY_NORMAL);
        const Pixels bare = DrawBare([&](wxDC& dc) {
            for (int y = 0; y < c.drawn.y; ++y)
                for (int x = 0; x < c.drawn.x; ++x) {
                    dc.SetPen(wxPen(wxColour(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y))));
                    if (!image.IsTransparent(x, y))
                        dc.DrawPoint(100 + x, 50 + y);
                }
        });
        ExpectSamePixels(bare, Draw([&](CwxPainter& p) {
                             const State before(p);
                             p.DrawXPM(xpm, 100, 50, c.cx, c.cy, c.w, c.h, c.scale);
                             before.ExpectKeptBy(p);
                         }),
                         "xpm");
    }
    const Pixels inverted = Draw([&](CwxPainter& p) { p.DrawXPM(xpm, 100, 50, 0, 0, -1, -1, 1.0, roXor); });
    EXPECT_EQ(ground ^ red, inverted.At(100, 50));
    EXPECT_EQ(ground, inverted.At(115, 50));
}

} // namespace
} // namespace vela7
