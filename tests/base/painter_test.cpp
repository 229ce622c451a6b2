#include "common.h"
#include "vela7/system.h"

#include <limits>
#include <tuple>

using namespace vela7;
using testkit::RecordingPainter;

namespace {

struct Operation
{
    void (*call)(RecordingPainter& p);
    const char* line; ///< under X = 2x + 10, Y = 3y + 30
};

const point<double> points[] = {{0, 0}, {1, 2}, {3, 4}, {5, 6}};
unsigned char transparencies[] = {0};

// clang-format off
const Operation operations[] = {
    {[](auto& p) { p.SetPixel(1, 2, clRed); },                  "Pixel 12 36 #ff0000"},
    {[](auto& p) { p.LineTo(1, 2); },                           "Line (0,0) (12,36)"},
    {[](auto& p) { p.FillRect(1, 2, 3, 4); },                   "FillRect 12 36 16 42"},
    {[](auto& p) { p.Rectangle(1, 2, 3, 4); },                  "Rectangle 12 36 16 42"},
    {[](auto& p) { p.FocusRect(1, 2, 3, 4); },                  "FocusRect 12 36 16 42"},
    {[](auto& p) { p.Ellipse(1, 2, 3, 4); },                    "Ellipse 12 36 16 42"},
    {[](auto& p) { p.RoundRect(1, 2, 3, 4, 5, 6); },            "RoundRect 12 36 16 42 10 18"},
    {[](auto& p) { p.Arc(1, 2, 3, 4, 50, 60); },                "Arc 12 36 16 42 50 60"},
    {[](auto& p) { p.Chord(1, 2, 3, 4, 50, 60); },              "Chord 12 36 16 42 50 60"},
    {[](auto& p) { p.Pie(1, 2, 3, 4, 50, 60); },                "Pie 12 36 16 42 50 60"},
    {[](auto& p) { p.PolyLine(points, 4, 1, 2); },              "PolyLine (12,36)(16,42)"},
    {[](auto& p) { p.PolyBezier(points, 4); },                  "PolyBezier (10,30)(12,36)(16,42)(20,48)"},
    {[](auto& p) { p.Polygon(points, 3); },                     "Polygon (10,30)(12,36)(16,42)"},
    {[](auto& p) { p.GradientH(1, 2, 3, 4, clRed, clBlue); },   "GradientH 12 36 16 42 #ff0000 #0000ff"},
    {[](auto& p) { p.GradientV(1, 2, 3, 4, clRed, clBlue); },   "GradientV 12 36 16 42 #ff0000 #0000ff"},
    {[](auto& p) { p.SemiFillRect(1, 2, 3, 4, {1, 2, 3, 4}); }, "SemiFillRect 12 36 16 42 #01020304"},
    {[](auto& p) { p.DrawString(1, 2, "text", 2); },            "Text 12 36 \"te\""},
    {[](auto& p) { p.DrawXPM(XPMImage(), 1, 2, 3, 4); },        "XPM 0 0 at 12 36 from 3 4 size -1 -1 scale 1 op 0"},
    {[](auto& p) { p.DrawRasterPicture(nullptr, 1, 2, 3, 4, roXor); }, "Picture 12 36 16 42 op 2"},
    {[](auto& p) { p.DrawRasterPictureEx(nullptr, {5, 6, 7, 8}, {1, 2, 3, 4}); }, "Picture from 5 6 7 8 to 12 36 16 42 op 0"},
    {[](auto& p) { p.ExtractRasterPicture(nullptr, 1, 2, 3, 4); },     "Extract 12 36 16 42"},
    {[](auto& p) { p.ExtractRasterPictureEx(nullptr, {5, 6, 7, 8}, {1, 2, 3, 4}); }, "Extract to 5 6 7 8 from 12 36 16 42"},
    {[](auto& p) { p.AlphaBlend(1, 2, 3, 4, nullptr, 99); },    "AlphaBlend 12 36 16 42 transparency 99"},
    {[](auto& p) { p.AlphaBlend(1, 2, 3, 4, nullptr, transparencies); }, "AlphaBlend 12 36 16 42 by pixel"},
    {[](auto& p) { p.DrawControlElement(cePushButton, 1, 2, 3, 4, csPressed); }, "ControlElement 7 12 36 16 42 state 8"},
    {[](auto& p) { p.SetClipRect(1, 2, 3, 4); },                "Clip 12 36 16 42"},
    {[](auto& p) { p.SetClipRect(1, 2, 3, 4, true); },          "ExcludeClip 12 36 16 42"},
    {[](auto& p) { p.CancelClipping(); },                       "CancelClip"},
    {[](auto& p) { p.SetPen({clRed, 3, psDot}); },              "Pen #ff0000 width 6 style 3"},
    {[](auto& p) { p.SetBrush({clRed, bsCross}); },             "Brush #ff0000 style 4"},
    {[](auto& p) { p.SetTextColor(clRed); },                    "TextColor #ff0000"},
    {[](auto& p) { p.SetBkColor(_color::none()); },             "BkColor none"},
};
// clang-format on

TEST(PainterOperations, ReachTheDeviceInsideABracketInDeviceCoordinates)
{
    for (const Operation& operation : operations) {
        RecordingPainter p;
        operation.call(p);
        p.failToBegin = true;
        EXPECT_FALSE(p.BeginPaint());
        EXPECT_FALSE(p.BeginPaint()); // asks no second time
        operation.call(p);
        p.EndPaint();
        p.EndPaint();
        EXPECT_EQ(p.drawn.Take(), (Lines{"Begin clear", "End"}));
        EXPECT_EQ(p.GetPen(), pen());

        p.failToBegin = false;
        const CPaintScope paint(p);
        p.Translate(10, 30);
        p.Scale(2, 3);
        operation.call(p);
        EXPECT_EQ(p.drawn.Take(), (Lines{"Begin clear", operation.line}));
    }
}

TEST(PainterOperations, NeedPoints)
{
    RecordingPainter p;
    const CPaintScope paint(p);
    p.drawn.Take();
    for (const point<double>* from : {points, static_cast<const point<double>*>(nullptr)}) {
        const int count = from ? -1 : 3;
        p.PolyLine(from, count), p.PolyBezier(from, count), p.Polygon(from, count);
    }
    EXPECT_EQ(p.drawn.Take(), Lines{});
}

// ---- the bracket

TEST(PaintBracket, NestsAndForgivesExtraEnds)
{
    RecordingPainter p;
    p.EndPaint();
    EXPECT_TRUE(p.BeginPaint(ssBuffered));
    EXPECT_TRUE(p.BeginPaint(ssClear));
    p.EndPaint();
    p.Rectangle(0, 0, 1, 1);
    EXPECT_TRUE(p.GetRetainedBuffer());
    p.EndPaint();
    p.EndPaint();
    EXPECT_EQ(p.drawn.Take(), (Lines{"Begin buffered", "Rectangle 0 0 1 1", "End"}));
    EXPECT_TRUE(p.BeginPaint(ssAsIs));
    EXPECT_FALSE(p.GetRetainedBuffer());
    EXPECT_TRUE(p.BeginPaint());
    p.EndAllPaints();
    EXPECT_EQ(p.drawn.Take(), (Lines{"Begin as-is", "End"}));
    fontmetrics metrics;
    metrics.height = 7;
    p.GetFontMetrics(&metrics);
    EXPECT_TRUE(!p.IsEnabled() && metrics.height == 0);
    p.SetRetainedBuffer(p.failToBegin = true);
    EXPECT_FALSE(p.BeginPaint(ssBuffered) || p.GetRetainedBuffer());

    auto* const dying = new RecordingPainter;
    const CPaintScope paint(*dying); // outlives it
    dying->Release();
}

TEST_F(Painting, EachPaintBeginsWithTheSameState)
{
    CodePalette palette;
    p.SetPen({clRed, 5, psDash});
    p.SetBrush({clRed, bsSolid});
    p.SetFont(font{"Face", ffSwiss, 20});
    p.SetClipRect(1, 2, 3, 4);
    p.Scale(2, 2);
    p.SetPalette(&palette);
    Begin();
    EXPECT_EQ(p.GetPen(), (pen{{0, 0, 0}, 1, 1}));
    EXPECT_EQ(p.GetBrush(), (brush{{3, 0, 0}, 0}));
    EXPECT_EQ(p.GetFont(), font()); // the device's own
    EXPECT_EQ(p.GetClipRect(), rectangle<double>());
    p.FillRect(1, 2, 3, 4);
    EXPECT_EQ(Line(), "FillRect 1 2 3 4");
}

// ---- coordinates

TEST_F(Painting, RoundsHalfUp)
{
    using limits = std::numeric_limits<double>;
    constexpr double huge = limits::max(), inf = limits::infinity();
    // clang-format off
    const std::pair<double, double> table[] = {
        { 0.49, 0}, { 0.5,   1}, { 1.5,  2}, { 2.5,  3}, { huge,  536870911}, { inf,  536870911}, {limits::quiet_NaN(), 0},
        {-0.5,  0}, {-0.51, -1}, {-1.5, -1}, {-2.5, -2}, {-huge, -536870911}, {-inf, -536870911},
    };
    // clang-format on
    p.keepLastCoord = false; // asks the device
    for (const auto& [x, device] : table) {
        p.MoveTo(x, 0);
        EXPECT_EQ(p.GetCurrentPos().x, device) << x;
    }
    rectangle<double> reversed;
    reversed.left = inf;
    reversed.right = -inf;
    p.drawn.Take();
    p.DrawStringEx("four", reversed, tfHCenter | tfSingleLine);
    EXPECT_EQ(Line(), "Text -16 0 \"four\"");
    p.Scale(2, 2);
    p.LineTo(4.25, 5);
    EXPECT_EQ(p.GetCurrentPos(), point<double>(4.5, 5));
    p.keepLastCoord = true;
    p.LineTo(4.25, 5);
    EXPECT_EQ(p.GetCurrentPos(), point<double>(4.25, 5)); // as it was given
}

TEST_F(Painting, ConvertsPointsThereAndBack)
{
    const auto convert = [&](point<double> q, bool toLogical) { return p.ConvertCoord1(&q, toLogical), q; };
    p.Scale(2, 4);
    p.Translate(10, 20);                                           // in scaled units
    EXPECT_EQ(convert({0.25, 2}, false), point<double>(20.5, 88)); // not rounded
    EXPECT_EQ(convert({22, 88}, true), point<double>(1, 2));
    p.SetCoordConversion(false);
    EXPECT_EQ(convert({22, 88}, true), point<double>(22, 88));
    p.SetPen({clBlack, 3, psSolid});
    p.Rectangle(1, 2, 3, 4);
    EXPECT_EQ(p.drawn.Take(), (Lines{"Pen #000000 width 3 style 1", "Rectangle 1 2 3 4"}));
    p.SetCoordConversion(true);
    p.Scale(0, 1);
    EXPECT_EQ(convert({22, 88}, true), point<double>(22, 88)); // nothing to divide by
}

TEST_F(Painting, StartsScaledWhenBit1IsSet)
{
    p.dpiScale = 2.0;
    for (const unsigned bits : {1, 2}) {
        SetDPIAutoScale(bits);
        EXPECT_EQ(GetDPIAutoScale(), bits);
        Begin();
        p.Scale(5, 5);
        p.ResetTransform(); // keeps the DPI part
        p.FillRect(0, 0, 10, 10);
        EXPECT_EQ(Line(), bits == 1 ? "FillRect 0 0 20 20" : "FillRect 0 0 10 10");
        p.SetFont(font{"F", ffSwiss, 9}); // follows the DPI by its points
        EXPECT_EQ(Line(), "Font \"F\" 9 style 0 angle 0 scale 1");
    }
    SetDPIAutoScale(0);
}

// ---- state

TEST_F(Painting, PenWidthFollowsTheScale)
{
    const std::tuple<int, double, const char*> table[] = {{2, 2, "4"},   {1, 0.25, "1"}, {3, -2, "6"},
                                                          {3, 0.5, "2"}, {0, 3, "0"},    {2, 0, "1"}};
    for (const auto& [width, sx, device] : table) {
        Begin();
        p.Scale(sx, 1);
        p.SetPen({clBlue, width, psDash});
        EXPECT_EQ(Line(), std::string("Pen #0000ff width ") + device + " style 2");
        EXPECT_EQ(p.GetPen(), (pen{clBlue, width, psDash}));
    }
}

TEST_F(Painting, FontsZoomAndReadBackAsTheyWereSet)
{
    const font value{"Face", ffRoman, 10, fsBold | fsStrikeOut, 450, 1.5};
    p.Scale(3, -2);
    p.SetFont(value);
    EXPECT_EQ(Line(), "Font \"Face\" 10 style 17 angle 450 scale 3");
    EXPECT_EQ(p.GetFont(), value);
    EXPECT_EQ(p.GetTextSize("four"), size<double>(32 / 3.0, 8)); // in logical units
}

TEST_F(Painting, GrayScale)
{
    p.SetGrayScale(true);
    p.SetPen({clRed, 1, psSolid});
    p.SetBrush({{1, 2, 3, 40}, bsSolid});
    p.SetTextColor(clGreen);
    p.SetBkColor(clWhite);
    p.GradientH(0, 0, 1, 1, clRed, clBlue);
    p.GradientV(0, 0, 1, 1, clRed, clBlue);
    p.SemiFillRect(0, 0, 1, 1, {255, 0, 0, 7});
    p.SetPixel(0, 0, clRed);
    EXPECT_EQ(p.drawn.Take(), (Lines{"Pen #4c4c4c width 1 style 1", "Brush #01010128 style 1",
                                     "TextColor #4b4b4b", "BkColor #ffffff",
                                     "GradientH 0 0 1 1 #4c4c4c #1c1c1c", "GradientV 0 0 1 1 #4c4c4c #1c1c1c",
                                     "SemiFillRect 0 0 1 1 #4c4c4c07", "Pixel 0 0 #4c4c4c"}));
    EXPECT_EQ(p.GetPen().color, clRed);
}

TEST_F(Painting, KeepsBooksOfTheClip)
{
    const rectangle<double> nothing(-1, -1, -1, -1);
    p.Scale(2, 2);
    p.SetClipRect(1, 1, 2, 2);
    p.CancelClipping();
    p.SetClipRect(10, 10, 30, 30);
    p.SetClipRect(20, 0, 50, 20);
    EXPECT_EQ(p.GetClipRect(), rectangle<double>(20, 10, 30, 20));
    p.SetClipRect(20, 10, 25, 20, true);
    EXPECT_EQ(p.GetClipRect(), rectangle<double>(20, 10, 30, 20)); // what is excluded is not kept
    p.Translate(20, 10);
    EXPECT_EQ(p.GetClipRect(), rectangle<double>(0, 0, 10, 10)); // logical
    p.SetClipRect(90, 90, 99, 99);
    EXPECT_EQ(p.GetClipRect(), nothing);
    p.SetClipRect(0, 0, 10, 10); // nothing stays nothing
    EXPECT_EQ(p.GetClipRect(), nothing);
    for (const bool exclude : {true, false}) { // reversed, by its corners and by the painter
        Begin();
        p.Scale(-1, 1);
        p.RoundRect(0, 0, 1, 1, 5, 6); // extents are not
        EXPECT_EQ(Line(), "RoundRect 0 0 -1 1 5 6");
        p.SetClipRect(10, 40, 30, 20, exclude);
        EXPECT_EQ(Line(), exclude ? "ExcludeClip -30 20 -10 40" : "Clip -30 20 -10 40");
        EXPECT_EQ(p.GetClipRect(), exclude ? rectangle<double>() : rectangle<double>(10, 20, 30, 40));
    }
    p.EndPaint();
    EXPECT_EQ(p.GetClipRect(), rectangle<double>());
}

} // namespace
