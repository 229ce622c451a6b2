// Control elements: what the theme is asked for, what clipping does to it, and the look drawn by hand.

#include "support/fixture.h"
#include "support/pixels.h"
#include "vela7/palette.h"
#include "vela7/wxconvert.h"
#include "vela7/wxrasterpicture.h"
#include "vela7/wxrstpainter.h"
#include "vela7/wxwinpainter.h"

#include <functional>
#include <map>
#include <wx/app.h>
#include <wx/renderer.h>

namespace vela7 {
namespace {

using namespace test;

constexpr std::uint32_t background = 0x0a141e;
constexpr std::uint32_t ink = 0xff00ff; // of the recording renderer
constexpr _color backgroundColor{0x0a, 0x14, 0x1e};

constexpr ControlElement Element(int code)
{
    return static_cast<ControlElement>(code);
}

// ---- by the theme

struct Call
{
    std::string name;
    wxWindow* window;
    wxDC* dc;
    wxRect rect;
    int flags;
};

// Stands in for the theme while it lives. Fills the left half of the element and overshoots it: like the
// theme it does not care for the clipping of the device.
class Recorder : public wxDelegateRendererNative
{
public:
    Recorder()
    {
        wxRendererNative::Get(); // makes the theme's, which must not end ours when it is made later
        m_before = wxRendererNative::Set(this);
    }
    ~Recorder() override { wxRendererNative::Set(m_before); }

    std::vector<Call> Take() { return std::exchange(m_calls, {}); }

    int DrawHeaderButton(wxWindow* w, wxDC& dc, const wxRect& r, int flags, wxHeaderSortIconType sort,
                         wxHeaderButtonParams* params) override
    {
        EXPECT_TRUE(sort == wxHDR_SORT_ICON_NONE && !params);
        Add("header", w, dc, r, flags);
        return 0;
    }
    // clang-format off
    void DrawCheckBox(wxWindow* w, wxDC& d, const wxRect& r, int f) override { Add("check", w, d, r, f); }
    void DrawTreeItemButton(wxWindow* w, wxDC& d, const wxRect& r, int f) override
    { Add("tree", w, d, r, f); }
    void DrawPushButton(wxWindow* w, wxDC& d, const wxRect& r, int f) override { Add("push", w, d, r, f); }
    void DrawComboBoxDropButton(wxWindow* w, wxDC& d, const wxRect& r, int f) override
    { Add("combo", w, d, r, f); }
    void DrawDropArrow(wxWindow* w, wxDC& d, const wxRect& r, int f) override { Add("arrow", w, d, r, f); }
    void DrawRadioBitmap(wxWindow* w, wxDC& d, const wxRect& r, int f) override { Add("radio", w, d, r, f); }
    void DrawFocusRect(wxWindow* w, wxDC& d, const wxRect& r, int f) override { Add("focus", w, d, r, f); }
    // clang-format on

private:
    void Add(const char* name, wxWindow* window, wxDC& dc, const wxRect& rect, int flags)
    {
        m_calls.push_back({name, window, &dc, rect, flags});
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.SetBrush(wxBrush(wxColour(255, 0, 255)));
        dc.DrawRectangle(rect.x, rect.y, rect.width / 2, rect.height);
    }

    wxRendererNative* m_before = nullptr;
    std::vector<Call> m_calls;
};

class Themed : public GuiTest
{
protected:
    // On the window and on a picture, which borrows the top window; the pixels are the window's.
    Pixels Draw(const std::function<void(CwxPainter&)>& draw)
    {
        const CHandle<CwxRasterPicture> picture(new CwxRasterPicture(size<int>(400, 300)));
        CwxWinPainter onWindow(frame);
        CwxPainter& onPicture = static_cast<CwxPainter&>(*picture->TakeDefPainter());
        for (CwxPainter* const painter : {static_cast<CwxPainter*>(&onWindow), &onPicture}) {
            const CPaintScope scope(*painter, ssAsIs);
            painter->SetBrush(brush{backgroundColor, bsSolid});
            painter->FillRect(0, 0, 400, 300);
            painter->SetBrush(brush{});
            draw(*painter);
        }
        const Pixels shown = ReadPixels(frame);
        ExpectSamePixels(shown, ReadPixels(picture->GetBitmap()), "picture");
        return shown;
    }
};

TEST_F(Themed, TellsTheRendererElementAndState)
{
    struct Row
    {
        int code;
        const char* name;
        int flags;
    };
    // clang-format off
    const Row rows[] = {
        {0, "header", 0},
        {1, "check", wxCONTROL_CHECKED}, {2, "check", 0}, {3, "check", wxCONTROL_UNDETERMINED},
        {4, "tree", 0}, {5, "tree", wxCONTROL_EXPANDED},
        {7, "push", 0}, {8, "combo", 0}, {9, "arrow", 0},
        {10, "radio", wxCONTROL_CHECKED}, {11, "radio", 0},
    };
    // clang-format on
    const int states[][2] = {{0, 0},
                             {0x1, wxCONTROL_DISABLED},
                             {0x2, wxCONTROL_FOCUSED | wxCONTROL_SELECTED},
                             {0x4, wxCONTROL_CURRENT},
                             {0x8, wxCONTROL_PRESSED},
                             {0x13, wxCONTROL_DISABLED | wxCONTROL_FOCUSED | wxCONTROL_SELECTED}};
    Recorder recorder;
    Draw([&](CwxPainter& painter) {
        painter.SetBrush(brush{clYellow, bsSolid});
        const wxPen pen = painter.GetDC()->GetPen();
        const wxBrush before = painter.GetDC()->GetBrush();
        for (const Row& row : rows)
            for (const auto& state : states) {
                painter.DrawControlElement(Element(row.code), 20, 30, 60, 50, state[0]);
                const std::vector<Call> calls = recorder.Take();
                ASSERT_EQ(1u, calls.size()) << row.code;
                EXPECT_EQ(row.name, calls[0].name);
                EXPECT_EQ(frame, calls[0].window);
                EXPECT_EQ(painter.GetDC(), calls[0].dc);
                EXPECT_EQ(wxRect(20, 30, 40, 20), calls[0].rect);
                EXPECT_EQ(row.flags | state[1], calls[0].flags) << row.code << " in state " << state[0];
                EXPECT_TRUE(pen == painter.GetDC()->GetPen() && before == painter.GetDC()->GetBrush());
            }
    });
    const Pixels dotted = Draw([](CwxPainter& painter) {
        for (const int code : {6, 12, 13, 1000, -1}) // the focus, then codes that there are not
            painter.DrawControlElement(Element(code), 20, 30, 60, 50, 0);
        painter.SetBrush(brush{clYellow, bsSolid});
        painter.SetClipRect(30, 40, 300, 200);
        for (const int code : {12, 13, 99, -1})
            painter.DrawControlElement(Element(code), 20, 30, 60, 50, 0);
    });
    EXPECT_TRUE(recorder.Take().empty());
    EXPECT_EQ(wxRect(), dotted.BoxOf(0xffff00));
    EXPECT_EQ(wxRect(20, 30, 40, 20), dotted.BoxOf(0xffffff ^ background));
}

TEST_F(Themed, HeedsTheClipRectangle)
{
    struct Case
    {
        rectangle<double> clip;
        bool called, direct;
        wxRect inked; // of the element's left half, which is 20..39 x 30..49
    };
    const Case cases[] = {
        {{0, 0, 400, 300}, true, true, wxRect(20, 30, 20, 20)},
        {{20, 30, 60, 50}, true, true, wxRect(20, 30, 20, 20)}, // just inside
        {{21, 30, 60, 50}, true, false, wxRect(21, 30, 19, 20)},
        {{30, 40, 300, 200}, true, false, wxRect(30, 40, 10, 10)},
        {{0, 0, 30, 40}, true, false, wxRect(20, 30, 10, 10)},
        {{45, 0, 300, 200}, true, false, wxRect()},   // the half without ink
        {{60, 30, 300, 200}, false, false, wxRect()}, // wholly outside
        {{0, 0, 20, 200}, false, false, wxRect()},
        {{0, 50, 300, 200}, false, false, wxRect()},
        {{0, 0, 21, 200}, true, false, wxRect(20, 30, 1, 20)}, // one column
        {{0, 49, 400, 300}, true, false, wxRect(20, 49, 20, 1)},
        {{100, 100, 100, 100}, false, false, wxRect()},
        {{0, 0, 0, 0}, true, true, wxRect(20, 30, 20, 20)}, // all zeros: not clipped
    };
    Recorder recorder;
    for (const Case& c : cases)
        for (const double scale : {1.0, 2.0}) {
            SCOPED_TRACE(testing::Message() << c.clip.left << ' ' << c.clip.top << ' ' << c.clip.right << ' '
                                            << c.clip.bottom << " at " << scale);
            const Pixels drawn = Draw([&](CwxPainter& painter) {
                // The same pixels in other coordinates.
                painter.Translate(-20, -10);
                painter.Scale(scale, scale);
                const auto logical = [&](double v, double shift) { return (v + shift) / scale; };
                if (!c.clip.IsNull())
                    painter.SetClipRect(logical(c.clip.left, 20), logical(c.clip.top, 10),
                                        logical(c.clip.right, 20), logical(c.clip.bottom, 10));
                painter.DrawControlElement(cePushButton, logical(20, 20), logical(30, 10), logical(60, 20),
                                           logical(50, 10), 0);
                const std::vector<Call> calls = recorder.Take();
                ASSERT_EQ(c.called ? 1u : 0u, calls.size());
                EXPECT_EQ(c.direct, c.called && calls[0].dc == painter.GetDC());
            });
            EXPECT_EQ(c.inked, drawn.BoxOf(ink));
            EXPECT_EQ(400 * 300 - c.inked.width * c.inked.height,
                      drawn.CountColour(drawn.Bounds(), background));
        }
    // Off the screen an element stands on what the brush fills.
    const Pixels filled = Draw([&](CwxPainter& painter) {
        painter.SetBrush(brush{clYellow, bsSolid});
        painter.SetClipRect(30, 40, 300, 200);
        painter.DrawControlElement(cePushButton, 20, 30, 60, 50, 0);
    });
    EXPECT_EQ(wxRect(40, 40, 20, 10), filled.BoxOf(0xffff00));
    // Where it does not fill, on what is there; and as if beside the element. All of it mirrored.
    const Pixels hatched = Draw([&](CwxPainter& painter) {
        painter.SetBrush(brush{clYellow, bsCross});
        painter.Scale(-1, 1);
        painter.SetClipRect(-30, 40, -300, 200);
        painter.DrawControlElement(cePushButton, -20, 30, -60, 50, 0);
    });
    EXPECT_EQ(wxRect(30, 40, 10, 10), hatched.BoxOf(ink));
    const Pixels hatch = Draw([](CwxPainter& painter) {
        painter.SetBrush(brush{clYellow, bsCross});
        painter.FillRect(40, 40, 60, 50);
    });
    EXPECT_EQ(100 + hatch.CountColour(hatch.Bounds(), 0xffff00),
              hatched.CountColour(hatched.Bounds(), ink) + hatched.CountColour(hatched.Bounds(), 0xffff00));
    EXPECT_EQ(hatch.BoxOf(0xffff00), hatched.BoxOf(0xffff00));
    EXPECT_EQ(0, hatched.CountColour(hatched.Bounds(), 0x000000));
}

TEST_F(Themed, DrawsWhatIsLargerThanAnyPicture)
{
    const Pixels drawn = Draw([](CwxPainter& painter) {
        painter.SetClipRect(30, 40, 60, 45);
        painter.DrawControlElement(cePushButton, -20000, 30, 20000, 50, 0);
        painter.CancelClipping();
        painter.DrawControlElement(cePushButton, -1e9, 100, 1e9, 120, 0);
    });
    EXPECT_EQ(background, drawn.At(29, 40));
    EXPECT_NE(background, drawn.At(30, 40));
    EXPECT_NE(background, drawn.At(59, 44));
    EXPECT_EQ(background, drawn.At(60, 44));
    EXPECT_NE(background, drawn.At(399, 110));
}

// ---- by hand

// Every code another colour.
class Palette : public ISysPalette
{
public:
    explicit Palette(_color window) : m_window(window) {}
    _color GetSystemColor(SysColor code) const override
    {
        return code == scWindow ? m_window : _color(0, static_cast<unsigned char>(code * 10), 0);
    }

private:
    _color m_window;
};

using Map = std::vector<std::string>;

// The frame alone, or with one line left.
Map Framed(Map map, std::size_t line = 0)
{
    for (std::size_t y = 1; y + 1 < map.size(); ++y)
        if (y != line)
            map[y] = '#' + std::string(map[y].size() - 2, '.') + '#';
    return map;
}

// clang-format off
// '#' frame, '.' face, 'x' foreground
const Map tick = {
    "#############", "#...........#", "#...........#", "#........x..#", "#.......xx..#",
    "#..x...xxx..#", "#..xx.xxx...#", "#..xxxxx....#", "#...xxx.....#", "#....x......#",
    "#...........#", "#...........#", "#############"};
const Map plusOdd = {
    "#########", "#.......#", "#...x...#", "#...x...#", "#.xxxxx.#",
    "#...x...#", "#...x...#", "#.......#", "#########"};
const Map plusEven = {
    "##########", "#........#", "#....x...#", "#....x...#", "#....x...#",
    "#.xxxxxxx#", "#....x...#", "#....x...#", "#....x...#", "##########"};
// 'H' highlight, 'l' 3D light, 's' shadow, 'D' dark shadow, 'f' button face
const Map thinRaised  = {"HHHHHs", "Hffffs", "Hffffs", "ssssss"};
const Map thinSunken  = {"sssssH", "sffffH", "sffffH", "HHHHHH"};
const Map thickRaised = {"HHHHHHD", "HllllsD", "HlfffsD", "HsssssD", "DDDDDDD"};
const Map thickSunken = {"DDDDDDH", "DsssslH", "DsffflH", "DlllllH", "HHHHHHH"};
// clang-format on

// No window anywhere: pictures have no theme to ask.
class ByHand : public testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(nullptr, wxTheApp->GetTopWindow()); }

    static Pixels Draw(ISysPalette& palette, const std::function<void(IPainter&)>& draw)
    {
        const CHandle<CwxRasterPicture> picture(new CwxRasterPicture(size<int>(60, 50)));
        IPainter& painter = *picture->TakeDefPainter();
        painter.SetPalette(&palette);
        {
            const CPaintScope scope(painter);
            painter.SetBrush(brush{backgroundColor, bsSolid});
            painter.FillRect(0, 0, 60, 50);
            const pen before{clCyan, 2, psDot};
            painter.SetPen(before);
            draw(painter);
            EXPECT_EQ(before, painter.GetPen());
            EXPECT_EQ(wxPENSTYLE_DOT, painter.GetDC()->GetPen().GetStyle());
            EXPECT_EQ((brush{backgroundColor, bsSolid}), painter.GetBrush());
            EXPECT_EQ(vela2wx(backgroundColor), painter.GetDC()->GetBrush().GetColour());
            EXPECT_TRUE(painter.GetCoordConversion());
        }
        painter.SetPalette(nullptr);
        return ReadPixels(picture->GetBitmap());
    }

    static std::uint32_t Rgb(const _color& c)
    {
        return static_cast<std::uint32_t>(c.red << 16 | c.green << 8 | c.blue);
    }

    // The map stands at (20, 10) and nothing is drawn outside.
    static void ExpectMap(const Map& map, const std::map<char, _color>& legend, const Pixels& drawn)
    {
        const int height = static_cast<int>(map.size()),
                  width = map.empty() ? 0 : static_cast<int>(map[0].size());
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const char c = map[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
                EXPECT_EQ(Rgb(legend.at(c)), drawn.At(20 + x, 10 + y)) << c << " at " << x << ',' << y;
            }
        EXPECT_EQ(60 * 50 - width * height, drawn.CountColour(drawn.Bounds(), background));
    }
};

TEST_F(ByHand, PixelByPixel)
{
    struct Row
    {
        int code;
        std::vector<int> states;
        wxSize size;
        Map map;
    };
    const std::vector<int> all{0, 0x1, 0xe, 0xf};
    // clang-format off
    const Row rows[] = {
        {0, {0, 1}, {6, 4}, thinRaised},  {0, {8}, {6, 4}, thinSunken},
        {7, {0, 6}, {7, 5}, thickRaised}, {7, {9}, {7, 5}, thickSunken},
        {1, all, {13, 13}, tick},         {1, all, {30, 20}, tick},
        {2, all, {13, 13}, Framed(tick)},          {2, all, {4, 4}, Framed(tick)},
        {4, all, {9, 9}, plusOdd},        {4, all, {10, 10}, plusEven},
        {5, all, {9, 9}, Framed(plusOdd, 4)},       {5, all, {10, 10}, Framed(plusEven, 5)},
    };
    // clang-format on
    for (const _color& window : {clWhite, _color(212, 208, 200)}) {
        Palette palette(window);
        std::map<char, _color> legend{
            {'f', {0, 30, 0}}, {'H', {0, 40, 0}}, {'l', {0, 50, 0}}, {'s', {0, 60, 0}}, {'D', {0, 70, 0}}};
        legend['#'] = legend[window == clWhite ? 's' : 'D'];
        for (const Row& row : rows)
            for (const int state : row.states) {
                SCOPED_TRACE(testing::Message() << row.code << ' ' << row.size.x << " state " << state);
                legend['.'] = state & 1 ? _color(204, 204, 204) : window;
                legend['x'] = state & 1 ? _color(127, 127, 127) : _color(0, 20, 0);
                const bool isButton = row.code == 0 || row.code == 7;
                for (const double scale : {1.0, isButton ? 2.0 : 1.0}) // buttons: device pixels at any scale
                    ExpectMap(row.map, legend, Draw(palette, [&](IPainter& painter) {
                                  painter.Scale(scale, scale);
                                  painter.DrawControlElement(Element(row.code), 20 / scale, 10 / scale,
                                                             (20 + row.size.x) / scale,
                                                             (10 + row.size.y) / scale, state);
                                  painter.ResetTransform();
                              }));
            }
    }
}

TEST_F(ByHand, RadioButtonsAreRound)
{
    Palette palette(clWhite);
    for (const int code : {10, 11})
        for (const int state : {0, 1}) {
            const Pixels drawn = Draw(palette, [&](IPainter& painter) {
                painter.DrawControlElement(Element(code), 20, 10, 50, 40, state);
            });
            EXPECT_EQ(wxRect(20, 10, 14, 14), drawn.BoxOf(0x003c00));
            EXPECT_EQ(background, drawn.At(20, 10));
            const std::uint32_t face = state ? 0xcccccc : 0xffffff, text = state ? 0x7f7f7f : 0x001400;
            EXPECT_EQ(face, drawn.At(26, 12));
            EXPECT_EQ(code == 10 ? wxRect(24, 14, 6, 6) : wxRect(), drawn.BoxOf(text));
            EXPECT_EQ(face, drawn.At(26, 16));
        }
}

TEST_F(ByHand, OthersDrawNothingAndTheFocusInverts)
{
    Palette palette(clWhite);
    for (const int code : {3, 8, 9, 12, 1000, -1})
        ExpectMap({}, {}, Draw(palette, [&](IPainter& painter) {
                      painter.DrawControlElement(Element(code), 20, 10, 50, 40, 0);
                  }));
    const Pixels drawn = Draw(palette, [](IPainter& painter) {
        painter.DrawControlElement(ceFocusRect, 20, 10, 50, 40, 0x1);
        painter.DrawControlElement(ceFocusRect, 0, 0, 10, 10, 0);
        painter.FocusRect(0, 0, 10, 10);
    });
    EXPECT_EQ(wxRect(20, 10, 30, 30), drawn.BoxOf(0xffffff ^ background));
}

} // namespace
} // namespace vela7
