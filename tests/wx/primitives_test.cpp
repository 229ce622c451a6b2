// What the painter draws, as pixels: on a window straight and through its draw buffer, and on a picture.

#include "drawingtest.h"
#include "scaledcanvas.h"
#include "vela7/xpm.h"

#include <cmath>
#include <limits>

using namespace vela7;
using namespace vela7::test;

const wxRect nothing;
constexpr std::uint32_t black = 0;
constexpr double inf = std::numeric_limits<double>::infinity();

using Drawing = DrawingTest;

const point<double> star[] = {{50, 10}, {74, 84}, {11, 38}, {89, 38}, {26, 84}};
const point<double> across[] = {{-inf, 50}, {100, 50}, {1e9, 50}, {std::nan(""), 50}, {-1e7, 50}};
const point<double> slope[] = {{10, 5}, {65636, 65631}, {65636, 5}};
const point<double> around[] = {{200, 10}, {-1e5, 10}, {-1e5, -1e5}, {1e5, -1e5}, {1e5, 50}, {200, 50}};
const point<double> band[] = {{65636, 20}, {65636, 30}, {-65436, 30}, {-65436, 20}};
const point<double> hook[] = {{0, 0}, {0, 10}, {20, 10}, {40, 10}, {60, 10}};

// clang-format off
struct Probe { int x, y; std::uint32_t colour; };
const struct { const char* name; std::function<void(CwxPainter&)> draw; wxRect box; std::vector<Probe> probes; int tolerance = 0; } rows[] = { // the box holds all that is drawn; curves end where X or Cairo rounds
    {"Rectangle", [](CwxPainter& p) { p.Rectangle(10, 10, 30, 20); }, {10, 10, 20, 10},
        {{10, 10, red}, {29, 19, red}, {11, 11, blue}, {28, 18, blue}}},
    {"ReversedRectangle", [](CwxPainter& p) { p.internalRectangle(30, 20, 10, 12); }, {10, 12, 20, 8}, {{10, 12, red}, {29, 19, red}}},
    {"FillRect",  [](CwxPainter& p) { p.FillRect(50, 10, 70, 20); }, {50, 10, 20, 10}, {{50, 10, blue}, {69, 19, blue}}},
    {"Lines",     [](CwxPainter& p) { p.MoveTo(5, 5); p.LineTo(15, 5); p.LineTo(15, 15); }, {5, 5, 11, 10},
        {{5, 5, red}, {15, 5, red}, {15, 14, red}, {14, 6, ground}}},
    {"Ellipse",   [](CwxPainter& p) { p.Ellipse(10, 10, 90, 60); }, {10, 10, 81, 51},
        {{12, 12, ground}, {50, 10, red}, {10, 35, red}, {50, 35, blue}}},
    {"RoundRect", [](CwxPainter& p) { p.RoundRect(10, 10, 110, 60, 20, 8); }, {10, 10, 100, 50},
        {{10, 10, ground}, {11, 12, ground}, {10, 20, red}, {20, 10, red}, {60, 30, blue}}},
    {"RoundRectOtherRadius", [](CwxPainter& p) { p.RoundRect(10, 10, 110, 60, 5, 30); }, {10, 10, 100, 50}, {{10, 20, red}}},
    {"Arc",       [](CwxPainter& p) { p.Arc(10, 10, 90, 60, 455, 1799); }, {10, 10, 69, 25},
        {{50, 10, red}, {50, 25, ground}, {50, 60, ground}}},
    {"ArcBackwards", [](CwxPainter& p) { p.Arc(10, 10, 90, 60, -455, 459); }, {78, 17, 13, 37}, {{90, 35, red}}, 1},
    {"ArcReversed", [](CwxPainter& p) { p.Arc(10, 10, 90, 60, 1799, 455); }, {10, 10, 69, 25}, {{50, 10, red}, {50, 60, ground}}},
    {"Pie",       [](CwxPainter& p) { p.Pie(10, 10, 90, 60, 455, 1799); }, {10, 10, 69, 25},
        {{50, 10, red}, {50, 25, blue}, {80, 33, ground}}},
    {"PieTurnsLater", [](CwxPainter& p) { p.Pie(10, 10, 90, 60, 360455, 361799); }, {10, 10, 69, 25}, {{50, 25, blue}}},
    {"Chord",     [](CwxPainter& p) { p.Chord(10, 10, 90, 60, 455, 1799); }, {10, 10, 69, 25}, {{50, 32, blue}}},
    {"PolyLine",  [](CwxPainter& p) { p.PolyLine(star, 5); }, {11, 10, 79, 75}, {{50, 10, red}, {50, 38, red}, {50, 50, ground}}},
    {"FromSecond",    [](CwxPainter& p) { p.PolyLine(hook, 5, 1, -1); }, {0, 10, 60, 1}, {}},
    {"BeyondTheEnd",  [](CwxPainter& p) { p.PolyLine(hook, 5, 3, 7); },  {40, 10, 20, 1}, {}},
    {"UpToTheEnd",    [](CwxPainter& p) { p.PolyLine(hook, 5, 0, 5); },  {0, 0, 60, 11}, {}},
    {"FromBelowZero", [](CwxPainter& p) { p.PolyLine(hook, 5, -2, 2); }, {0, 0, 20, 11}, {}},
    {"OnePoint",      [](CwxPainter& p) { p.PolyLine(hook, 5, 2, 2); }, nothing, {}},
    {"NoPoints",  [](CwxPainter& p) { p.PolyLine(nullptr, 5); p.PolyBezier(star, 1); p.PolyBezier(nullptr, 3);
        p.PolyBezier(star, 0); p.Polygon(star, 0); p.Polygon(nullptr, 4); p.PolyLine(star, -3);
        p.PolyLine(hook, 5, 4, 2); p.PolyLine(hook, 5, 9, -1); p.PolyLine(hook, 0); }, nothing, {}},
    {"PolyBezier", [](CwxPainter& p) { p.PolyBezier(star, 5, 1, 3); }, {29, 38, 60, 47}, {{50, 50, ground}}, 1},
    {"ShortestBezier", [](CwxPainter& p) { p.PolyBezier(hook, 2); }, {0, 0, 1, 10}, {}},
    {"Polygon",   [](CwxPainter& p) { p.Polygon(star, 5); }, {11, 10, 79, 75},
        {{50, 20, blue}, {50, 50, ground}, {50, 10, red}}}, // odd-even: the middle stays open
    {"GradientH", [](CwxPainter& p) { p.GradientH(10, 10, 90, 60, clYellow, clBlue, 3); }, {10, 10, 80, 50},
        {{10, 10, 0xfcfc03}, {10, 59, 0xfcfc03}, {89, 30, blue}}},
    {"GradientV", [](CwxPainter& p) { p.GradientV(10, 20, 90, 70, clYellow, clBlue, 0); }, {10, 20, 80, 50},
        {{10, 20, 0xfafa05}, {89, 20, 0xfafa05}, {10, 69, blue}}},
    {"FocusRect", [](CwxPainter& p) { p.FocusRect(10, 10, 90, 60); }, {10, 10, 80, 50},
        {{10, 10, 0xffffff ^ ground}, {11, 10, ground}, {12, 10, ground}, {13, 10, 0xffffff ^ ground}, {50, 30, ground}}},
    {"SetPixel",  [](CwxPainter& p) { EXPECT_EQ(_color(255, 255, 0, 7), p.SetPixel(20, 20, _color(255, 255, 0, 7))); },
        {20, 20, 1, 1}, {{20, 20, yellow}}},
    {"SetPixelWithoutColour", [](CwxPainter& p) { EXPECT_EQ(clRed, p.SetPixel(20, 20, _color::none())); },
        {20, 20, 1, 1}, {{20, 20, red}}},
    {"SemiFillRect", [](CwxPainter& p) { p.SemiFillRect(0, 0, 400, 300, _color(255, 255, 255, 128)); }, nothing, {}},
    // What X cannot hold: 16 bits and more.
    {"FillAll",     [](CwxPainter& p) { p.FillRect(-inf, -inf, inf, inf); }, {0, 0, 400, 300}, {{0, 0, blue}, {399, 299, blue}, {200, 150, blue}}},
    {"FillAcross",  [](CwxPainter& p) { p.FillRect(-40000, 0, 40000, 30); }, {0, 0, 400, 30}, {{0, 0, blue}}},
    {"FillPastTheEnd", [](CwxPainter& p) { p.FillRect(10, 20, 65546, 30); p.FillRect(30, 65566, 40, 10); }, {10, 10, 390, 290}, {{399, 25, blue}, {30, 299, blue}}},
    {"FarRectangles", [](CwxPainter& p) { p.Rectangle(-65536, 10, 65546, 40); p.FocusRect(65536, 65536, 65566, 65566);
        p.Ellipse(65546, 10, 65566, 30); p.RoundRect(65546, 10, 65566, 30, 3, 3); p.Pie(65546, 10, 65566, 30, 0, 900); }, {0, 10, 400, 30},
        {{0, 10, red}, {10, 39, red}, {0, 11, blue}, {10, 38, blue}}},
    {"LineAcross",  [](CwxPainter& p) { p.MoveTo(10, 5); p.LineTo(65636, 65631); }, {10, 5, 295, 295}, {{50, 45, red}, {51, 45, ground}}},
    {"LinesAcross", [](CwxPainter& p) { p.PolyLine(slope, 3); }, {10, 5, 295, 295}, {{50, 45, red}, {51, 45, ground}}},
    {"LinesAround", [](CwxPainter& p) { p.PolyLine(around, 6); }, {0, 10, 400, 41}, {{0, 10, red}, {399, 50, red}, {200, 30, ground}}},
    {"SplineFlat",  [](CwxPainter& p) { const point<double> flat[] = {{-30000, 310}, {200, -90}, {30400, 310}}; p.PolyBezier(flat, 3); }, {0, 10, 400, 1}, {}},
    {"SplineAcross", [](CwxPainter& p) { p.PolyBezier(across, 5); }, {0, 50, 400, 1}, {}},
    {"SplineFar",   [](CwxPainter& p) { const point<double> peak[] = {{100, 300400}, {200, -1e5}, {300, 300400}}; p.PolyBezier(peak, 3); },
        {198, 100, 5, 200}, {{200, 100, red}, {200, 150, ground}}}, // a parabola
    {"PolygonAcross", [](CwxPainter& p) { p.Polygon(band, 4); }, {0, 20, 400, 11}, {{0, 20, red}, {200, 30, red}, {0, 25, blue}, {399, 25, blue}}},
    {"GradientAcross", [](CwxPainter& p) { p.GradientH(-1e6, 10, 1e6 + 400, 60, clYellow, clBlue); }, {0, 10, 400, 50}, {{200, 30, 0x80807f}}},
    {"TwoTurns",    [](CwxPainter& p) { p.Pie(10, 10, 90, 60, 0, 7200); }, {10, 10, 81, 51}, {{80, 26, blue}}},
    {"ElsewhereByFar", [](CwxPainter& p) { const CHandle<CwxRasterPicture> sample = SamplePicture(8, 6);
        for (const double at : {65566.0, 4194334.0, -4294967266.0}) { p.SetPixel(at, 20, clYellow); p.DrawString(at, 20, "x"); p.DrawString(20, at, "x");
        p.DrawRasterPicture(sample.Get(), at, 20, at + 8, 26); p.AlphaBlend(at, 20, 0, 0, sample.Get(), 0); p.ExtractRasterPicture(sample.Get(), at, 0, at + 8, 6);
        p.SetClipRect(0, 0, at + 1e7, 70000); } EXPECT_EQ(ColourOf(0, 0), ReadPixels(sample->GetBitmap()).At(0, 0)); p.CancelClipping(); }, nothing, {}},
    {"ClipsIntersect", [](CwxPainter& p) { p.SetClipRect(10, 10, 30, 30); p.SetClipRect(20, 0, 50, 50); p.FillRect(0, 0, 100, 100); p.CancelClipping(); }, {20, 10, 10, 20}, {}},
    {"ClipEnds",  [](CwxPainter& p) { p.SetClipRect(10, 10, 30, 30); p.CancelClipping(); p.FillRect(60, 60, 61, 61); }, {60, 60, 1, 1}, {}},
    {"ClipOut",   [](CwxPainter& p) { p.SetClipRect(10, 10, 30, 30, true); p.FillRect(0, 0, 400, 300); p.CancelClipping(); }, {0, 0, 400, 300},
        {{9, 9, blue}, {10, 10, ground}, {29, 29, ground}, {30, 29, blue}, {29, 30, blue}}},
    {"ClipOutReversed", [](CwxPainter& p) { p.SetClipRect(30, 30, 10, 10, true); p.FillRect(0, 0, 31, 31); p.CancelClipping(); }, {0, 0, 31, 31}, {{20, 20, ground}, {30, 30, blue}}},
    {"ClipOutAll", [](CwxPainter& p) { for (const int to : {2000, 70000}) { p.SetClipRect(-to, 0, to, to, true); p.FillRect(0, 0, 100, 100); p.CancelClipping(); } }, nothing, {}},
    {"Pixels",    [](CwxPainter& p) { EXPECT_EQ(point<int>(30, 40), p.internalMoveTo(30, 40)); p.LineTo(50, 40); EXPECT_EQ(clRed, p.GetPixel(49, 40));
        EXPECT_EQ(Toolkit(ground), p.GetPixel(50, 40)); EXPECT_EQ(clBlack, p.GetPixel(-5000, 40)); }, {30, 40, 20, 1}, {}}, // nothing to read
    {"EndOfALongPicture", [](CwxPainter& p) { const auto picture = SamplePicture(20000, 2); FillPicture(*picture, clYellow, {19990, 0, 20000, 2});
        p.DrawRasterPicture(picture.Get(), -19990, 20, 10, 22); }, {0, 20, 10, 2}, {{0, 20, yellow}, {9, 21, yellow}}},
    {"NoPictures", [](CwxPainter& p) { unsigned char transparency = 0;
        p.DrawRasterPicture(nullptr, 0, 0, 9, 9); p.DrawRasterPictureEx(nullptr, {0, 0, 5, 5}, {0, 0, 5, 5});
        p.ExtractRasterPicture(nullptr, 0, 0, 9, 9); p.ExtractRasterPictureEx(nullptr, {0, 0, 5, 5}, {0, 0, 5, 5});
        p.AlphaBlend(0, 0, 9, 9, nullptr, 0); p.AlphaBlend(0, 0, 9, 9, nullptr, &transparency);
        p.AlphaBlend(0, 0, 9, 9, SamplePicture(8, 6).Get(), static_cast<unsigned char*>(nullptr)); }, nothing, {}},
};
// clang-format on

TEST_F(Drawing, InsideEdgeAndOutside)
{
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Pixels drawn = Draw(row.draw);
        const wxRect box = BoxOfOthers(drawn, ground), least = wxRect(row.box).Deflate(row.tolerance);
        EXPECT_TRUE(row.box == box || (row.tolerance && box.Contains(least) && wxRect(row.box).Inflate(row.tolerance).Contains(box)))
            << box.x << ',' << box.y << ' ' << box.width << 'x' << box.height;
        for (const auto& [x, y, colour] : row.probes)
            EXPECT_EQ(colour, drawn.At(x, y)) << x << ',' << y;
    }
}

// ---- text

TEST_F(Drawing, TextIsRotatedAndStruckOut)
{
    sameOnAll = frame->GetContentScaleFactor() == 1;
    font f;
    wxSize extent;
    const auto draw = [&](unsigned style, int angle, const char* text = "llll", int length = -1) {
        f.style = style;
        f.angle = angle;
        const auto write = [&](CwxPainter& p) {
            p.SetFont(f);
            const auto before = StateOf(p);
            p.DrawString(100, 100, text, length);
            EXPECT_TRUE(before == StateOf(p));
            extent = p.GetDC()->GetTextExtent("llll");
        };
        return Draw(write, true);
    };
    int odd = 0;
    for (const auto& [size, line] : {std::pair(20, 116), {21, 117}}) { // in the middle, rounded up
        f.size = size;
        Pixels plain = draw(0, 0);
        odd += extent.y % 2;
        EXPECT_TRUE(wxRect(wxPoint(100, 100), extent).Contains(plain.BoxOf(yellow)));
        wxImage struck = plain.ToImage();
        struck.SetRGB(wxRect(99, line, extent.x + 2, 1), 255, 255, 0);
        ExpectSamePixels(Pixels(struck), draw(fsStrikeOut, 0, "llllxx", 4), "struck out");
    }
    EXPECT_EQ(1, odd);
    const Pixels up = draw(0, 900);
    ExpectSamePixels(up, draw(fsStrikeOut, 900), "rotated");
    EXPECT_LT(up.BoxOf(yellow).GetTop(), 100 - extent.x / 2);
}

TEST_F(Drawing, ALeadingCapitalCountsOnePixelLessAtScaleOne)
{
    font large;
    large.size = 30;
    // clang-format off
    const struct { const char* text; double scale; int length, less; } cases[] = {
        {"Abc", 1.0, -1, 1}, {"abc", 1.0, -1, 0}, {"Abc", 1.25, -1, 0}, {"1A", 1.0, -1, 0}, {"Abc", 1.0, 2, 1}, {"Abc", 1.0, 0, 0}};
    // clang-format on
    ScaledCanvas canvas;
    ScaledPainter& p = canvas.painter;
    const CPaintScope scope(p);
    for (const auto& c : cases)
        for (const bool own : {true, false}) {
            SCOPED_TRACE(testing::Message() << &c - cases << own);
            p.scale = c.scale;
            wxFont measuring = own ? p.GetDC()->GetFont() : vela2wx(large);
            const wxString text = wxString(c.text).Left(static_cast<std::size_t>(c.length));
            wxCoord width = 0, height = 0;
            p.GetDC()->GetTextExtent(text, &width, &height, nullptr, nullptr, &measuring);
            const auto before = StateOf(p);
            EXPECT_EQ(point<int>(width - c.less, height),
                      p.internalGetTextSize(c.text, own ? nullptr : &large, c.length));
            EXPECT_TRUE(before == StateOf(p));
        }
}

// ---- pictures

// The part of `sample` from (sx, sy) stands at `target`, and nothing else is there.
void ExpectSampleAt(const Pixels& drawn, const wxRect& target, int sx, int sy)
{
    EXPECT_EQ(target, BoxOfOthers(drawn, ground));
    for (int y = 0; y < target.height; ++y)
        for (int x = 0; x < target.width; ++x)
            EXPECT_EQ(ColourOf(sx + x, sy + y), drawn.At(target.x + x, target.y + y)) << x << ',' << y;
}

// Of 0xcc5533 with the ground.
const struct { RasterOperation op; std::uint32_t result; } operations[] = {
    {roCopy, 0xcc5533}, {roOr, 0xce553f}, {roXor, 0xc6412d}, {roAndInvert, 0x02000c}, {roSrcInvert, 0x33aacc},
    {roOrInvert, 0x3bbede}, {roEquiv, 0x39bed2}, {roAnd, 0x081412}, {roInvert, 0xf5ebe1}, {roClear, 0x000000},
    {roSet, 0xffffff}, {roNoOp, ground}, {roAndReverse, 0xc44121}, {roOrReverse, 0xfdfff3}, {roNand, 0xf7ebed},
    {roNor, 0x31aac0},
};

TEST_F(Drawing, OperationsCombineBitByBit)
{
    const CHandle<CwxRasterPicture> source(new CwxRasterPicture(size<int>(6, 6)));
    FillPicture(*source, Toolkit(0xcc5533), {0, 0, 6, 6});
    const point<double> triangle[] = {{2, 82}, {17, 82}, {2, 97}};
    const Pixels drawn = Draw([&](CwxPainter& p) {
        p.SetClipRect(0, 0, 400, 110, false);
        for (const auto& [op, result] : operations) {
            p.SetPen(pen{Toolkit(0xcc5533), 1, psSolid});
            p.SetBrush(brush{Toolkit(0xcc5533), bsSolid});
            p.SetRasterOperation(op);
            p.FillRect(2, 2, 18, 18);
            p.MoveTo(2, 22), p.LineTo(18, 38);
            p.SetPixel(2, 40, _color::none());
            p.DrawRasterPicture(source.Get(), 2, 50, 8, 56, op);
            p.FillRect(2, 100, 18, 130); // a part of it
            p.SetPen(pen{clBlack, 1, psNone});
            p.Polygon(triangle, 3), p.Ellipse(2, 62, 18, 78);
            p.SetRasterOperation(roXor);
            p.FillRect(10, 40, 18, 60), p.FillRect(10, 40, 18, 60); // twice is nothing
            p.Translate(20, 0);
        }
    }, true);
    for (int i = 0; i < 16; ++i) {
        const auto& [op, result] = operations[i];
        for (const wxPoint& at : {wxPoint(2, 2), {17, 17}, {2, 22}, {17, 37}, {2, 40}, {7, 55}, {10, 70}, {4, 84}, {17, 109}})
            EXPECT_EQ(result, drawn.At(20 * i + at.x, at.y)) << op << " at " << at.x << ',' << at.y;
        for (const wxPoint& at : {wxPoint(18, 2), {18, 38}, {8, 50}, {14, 50}, {16, 94}, {4, 110}})
            EXPECT_EQ(ground, drawn.At(20 * i + at.x, at.y)) << op << " beside " << at.x << ',' << at.y;
    }
}

TEST_F(Drawing, PicturesAreDrawnInPartAndNeverStretched)
{
    const CHandle<CwxRasterPicture> sample = SamplePicture(8, 6), mask = SamplePicture(8, 6);
    const auto draw = [&](int right, int bottom) {
        return Draw([&](CwxPainter& p) { p.DrawRasterPicture(sample.Get(), 20, 30, right, bottom); });
    };
    const auto part = [&](int right, int bottom, RasterOperation op) {
        const rectangle<double> target(40, 50, right, bottom);
        return Draw(
            [&](CwxPainter& p) {
                p.DrawRasterPictureEx(sample.Get(), {2, 1, 3, 2}, target, op);
            },
            true);
    };
    ExpectSampleAt(draw(25, 34), wxRect(20, 30, 5, 4), 0, 0);
    ExpectSampleAt(part(45, 54, roCopy), wxRect(40, 50, 5, 4), 2, 1);
    EXPECT_EQ(ColourOf(2, 1) ^ ground, part(41, 51, roXor).At(40, 50));
    sample->SetSize({4, 9}); // what callers see
    ExpectSampleAt(draw(28, 36), wxRect(20, 30, 4, 6), 0, 0);
    sample->SetSize({8, 6});
    // Black in the mask is transparent; the picture keeps its pixels.
    FillPicture(*mask, clWhite, {0, 0, 8, 6});
    FillPicture(*mask, clBlack, {0, 0, 3, 6});
    sample->SetMask(mask.Get());
    ExpectSampleAt(draw(28, 36), wxRect(23, 30, 5, 6), 3, 0);
}

TEST_F(Drawing, ExtractsItsPixels)
{
    const CHandle<CwxRasterPicture> sample = SamplePicture(8, 6), part = SamplePicture(8, 6);
    const CHandle<CwxRasterPicture> whole(new CwxRasterPicture(size<int>(8, 6)));
    const auto extract = [&](CwxPainter& p) {
        p.DrawRasterPicture(sample.Get(), 20, 30, 28, 36);
        p.ExtractRasterPicture(whole.Get(), 20, 30, 28, 36);
        p.ExtractRasterPictureEx(part.Get(), {3, 2, 4, 3}, {20, 30, 22, 31});
    };
    ExpectSampleAt(Draw(extract), wxRect(20, 30, 8, 6), 0, 0);
    wxImage image = sample->GetBitmap().ConvertToImage();
    ExpectSamePixels(Pixels(image), ReadPixels(whole->GetBitmap()), "whole");
    image.Paste(image.GetSubImage(wxRect(0, 0, 2, 1)), 3, 2);
    ExpectSamePixels(Pixels(image), ReadPixels(part->GetBitmap()), "part");
}

TEST_F(Drawing, BlendsByTransparency)
{
    const CHandle<CwxRasterPicture> sample = SamplePicture(8, 6);
    const auto blend = [&](auto transparency) { // right and bottom do not matter
        return Draw([&](CwxPainter& p) { p.AlphaBlend(20, 30, 21, 31, sample.Get(), transparency); });
    };
    ExpectSampleAt(blend(0), wxRect(20, 30, 8, 6), 0, 0);
    EXPECT_EQ(nothing, BoxOfOthers(blend(255), ground));
    const Pixels half = blend(128);
    for (const int shift : {16, 8, 0})
        EXPECT_NEAR((Byte(ColourOf(7, 5), shift) + Byte(ground, shift)) / 2, Byte(half.At(27, 35), shift), 2);
    // One value for each pixel, row by row; what the picture itself has is overwritten.
    wxImage image = sample->GetBitmap().ConvertToImage();
    image.InitAlpha();
    std::fill_n(image.GetAlpha(), 48, static_cast<unsigned char>(40));
    Bitmap2RasterPicture(wxBitmap(image), sample.Get());
    std::vector<unsigned char> transparencies(100, 255);
    transparencies[2 * 8 + 5] = 0;
    ExpectSampleAt(blend(transparencies.data()), wxRect(25, 32, 1, 1), 5, 2);
    ExpectSampleAt(blend(0), wxRect(20, 30, 8, 6), 0, 0);
    sample->SetSize({10, 3}); // what callers count by
    ExpectSampleAt(blend(transparencies.data()), wxRect(21, 32, 1, 1), 1, 2);
    ExpectSampleAt(blend(0), wxRect(20, 30, 8, 3), 0, 0);
}

TEST_F(Drawing, XPMIsShortenedNeverShifted)
{
    std::vector<const char*> lines = {"16 16 4 1", "r c #FF0000", "y c #FFFF00", "b c #000000", "  c None"};
    lines.insert(lines.end(), 15, "rrrryyyybbbb    ");
    lines.push_back("rbrbrbrbrbrbrbrb");
    const XPMImage xpm(lines.data());
    // clang-format off
    const struct { int cx, cy, w, h; double scale; wxRect box; int x; std::uint32_t colour; } cases[] = { // of the pixel (x, 50)
        {0, 0, -1, -1, 1.0, {100, 50, 16, 16}, 104, yellow},  {4, 0, -1, -1, 1.0, {100, 50, 12, 16}, 103, red},
        {0, 9, -1, -1, 1.0, {100, 50, 12, 7}, 111, black},     {0, 0, 99, 99, 1.0, {100, 50, 16, 16}, 112, ground},
        {6, 2, 12, 3, 0.5, {100, 50, 10, 3}, 108, black},      {0, 0, 17, 17, std::nan(""), {100, 50, 16, 16}, 100, red},
        {4, 0, -1, -1, 1.5, {100, 50, 18, 24}, 105, yellow},  {0, 0, 5, 5, 1.5, {100, 50, 6, 7}, 105, black}, // squeezed
        {16, 0, -1, -1, 1.0, nothing, 100, ground},           {0, 0, -1, -1, 1e9, nothing, 100, ground}, // no such picture
        {2, 2, -1, -1, 1000, {100, 50, 300, 250}, 399, red}}; // of a very large one, what can be seen
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        const auto draw = [&](CwxPainter& p) { p.DrawXPM(xpm, 100, 50, c.cx, c.cy, c.w, c.h, c.scale); };
        const Pixels drawn = Draw(draw);
        EXPECT_EQ(c.box, BoxOfOthers(drawn, ground));
        EXPECT_EQ(c.colour, drawn.At(c.x, 50));
    }
    const Pixels middle = Draw([&](CwxPainter& p) { p.DrawXPM(xpm, -6900, -6400, 2, 9, -1, -1, 1000); });
    EXPECT_TRUE(middle.At(99, 100) == yellow && middle.At(100, 100) == black);
    EXPECT_TRUE(middle.At(99, 200) == black && middle.At(100, 200) == red);
    const Pixels inverted = Draw([&](CwxPainter& p) { p.DrawXPM(xpm, 100, 50, 0, 0, -1, -1, 1.0, roXor); });
    EXPECT_TRUE(inverted.At(100, 50) == (ground ^ red) && inverted.At(115, 50) == ground);
}
