// Control elements: what the theme is asked for, what clipping does to it, and the look drawn by hand.

#include "drawingtest.h"
#include "vela7/palette.h"

#include <map>
#include <wx/app.h>
#include <wx/renderer.h>

using namespace vela7;
using namespace vela7::test;

constexpr std::uint32_t ink = 0xff00ff; // of the recording renderer

constexpr ControlElement Element(int code)
{
    return static_cast<ControlElement>(code);
}

// ---- by the theme

// Stands in for the theme while it lives. Fills the left half of the element and overshoots it: like the
// theme it does not care for the clipping of the device.
class ThemeRecorder : public wxDelegateRendererNative
{
public:
    ThemeRecorder()
    {
        wxRendererNative::Get(); // makes the theme's, which must not end ours when it is made later
        m_before = wxRendererNative::Set(this);
    }
    ~ThemeRecorder() override { wxRendererNative::Set(m_before); }

    // clang-format off
    struct Call { std::string name; wxWindow* window; wxDC* dc; wxRect rect; int flags; };
    std::vector<Call> Take() { return std::exchange(m_calls, {}); }
    int DrawHeaderButton(wxWindow* w, wxDC& d, const wxRect& r, int f, wxHeaderSortIconType sort, wxHeaderButtonParams* params) override
        { return Add(sort == wxHDR_SORT_ICON_NONE && !params ? "header" : "sorted header", w, d, r, f), 0; }
    void DrawCheckBox(wxWindow* w, wxDC& d, const wxRect& r, int f) override { Add("check", w, d, r, f); }
    void DrawTreeItemButton(wxWindow* w, wxDC& d, const wxRect& r, int f) override { Add("tree", w, d, r, f); }
    void DrawPushButton(wxWindow* w, wxDC& d, const wxRect& r, int f) override { Add("push", w, d, r, f); }
    void DrawComboBoxDropButton(wxWindow* w, wxDC& d, const wxRect& r, int f) override { Add("combo", w, d, r, f); }
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

struct Themed : DrawingTest
{
    void SetUp() override
    {
        DrawingTest::SetUp();
        sameOnPictures = frame->GetContentScaleFactor() == 1;
    }
};

TEST_F(Themed, TellsTheRendererElementAndState)
{
    // clang-format off
    const struct { int code, state; const char* name; int flags; } rows[] = {
        {0,  0x01, "header", wxCONTROL_DISABLED},
        {1,  0x03, "check",  wxCONTROL_CHECKED | wxCONTROL_DISABLED | wxCONTROL_FOCUSED | wxCONTROL_SELECTED},
        {2,  0x10, "check",  0},
        {3,  0x04, "check",  wxCONTROL_UNDETERMINED | wxCONTROL_CURRENT},
        {4,  0x08, "tree",   wxCONTROL_PRESSED},
        {5,  0x02, "tree",   wxCONTROL_EXPANDED | wxCONTROL_FOCUSED | wxCONTROL_SELECTED},
        {7,  0x00, "push",   0}, {8, 0x00, "combo", 0}, {9, 0x00, "arrow", 0},
        {10, 0x00, "radio",  wxCONTROL_CHECKED}, {11, 0x00, "radio", 0},
    };
    // clang-format on
    ThemeRecorder recorder;
    Draw([&](CwxPainter& painter) {
        for (const auto& row : rows) {
            painter.DrawControlElement(Element(row.code), 20, 30, 60, 50, row.state);
            const auto calls = recorder.Take();
            ASSERT_EQ(1u, calls.size()) << row.code;
            EXPECT_EQ(row.name, calls[0].name);
            EXPECT_EQ(frame, calls[0].window);
            EXPECT_EQ(wxRect(20, 30, 40, 20), calls[0].rect);
            EXPECT_EQ(row.flags, calls[0].flags) << row.code;
        }
    });
    const auto dotted = [&](CwxPainter& p) { p.DrawControlElement(ceFocusRect, 20, 30, 60, 50, 0); };
    EXPECT_EQ(wxRect(20, 30, 40, 20), Draw(dotted).BoxOf(0xffffff ^ ground));
    const auto unknown = [&](CwxPainter& p) {
        p.SetClipRect(30, 40, 300, 200);
        for (const int code : {12, 13, 1000, -1})
            p.DrawControlElement(Element(code), 20, 30, 60, 50, 0);
    };
    EXPECT_EQ(wxRect(), BoxOfDrawn(unknown, true));
    EXPECT_TRUE(recorder.Take().empty());
}

TEST_F(Themed, HeedsTheClipRectangle)
{
    // The element stands at 20..59 x 30..49, its ink at 20..39. Off the screen it stands on what the brush
    // fills.
    // clang-format off
    const struct { rectangle<double> clip; wxRect inked, drawn; } cases[] = {
        {{0, 0, 0, 0},         {20, 30, 20, 20}, {20, 30, 20, 20}}, // all zeros: not clipped
        {{20, 30, 60, 50},     {20, 30, 20, 20}, {20, 30, 20, 20}}, // just inside
        {{21, 30, 60, 50},     {21, 30, 19, 20}, {21, 30, 39, 20}},
        {{30, 40, 300, 200},   {30, 40, 10, 10}, {30, 40, 30, 10}},
        {{0, 49, 21, 200},     {20, 49, 1, 1},   {20, 49, 1, 1}},   // one pixel
        {{45, 0, 300, 200},    {},               {45, 30, 15, 20}}, // the half without ink
        {{60, 30, 300, 200},   {}, {}}, {{0, 50, 300, 200}, {}, {}}, {{100, 100, 100, 100}, {}, {}},
    };
    // clang-format on
    ThemeRecorder recorder;
    for (const auto& c : cases)
        for (const double scale : {1.0, 1.1}) {
            SCOPED_TRACE(testing::Message() << &c - cases << " at " << scale);
            const auto draw = [&](CwxPainter& p) {
                // The same pixels in other coordinates.
                p.Translate(-20, -10);
                p.Scale(scale, scale);
                const auto x = [&](double v) { return (v + 20) / scale; };
                const auto y = [&](double v) { return (v + 10) / scale; };
                if (!c.clip.IsNull())
                    p.SetClipRect(x(c.clip.left), y(c.clip.top), x(c.clip.right), y(c.clip.bottom));
                p.DrawControlElement(cePushButton, x(20), y(30), x(60), y(50), 0);
                const auto calls = recorder.Take();
                ASSERT_EQ(c.drawn.IsEmpty() ? 0u : 1u, calls.size());
                const bool direct = c.inked == c.drawn && c.inked.width > 1;
                EXPECT_TRUE(calls.empty() || direct == (calls[0].dc == p.GetDC()));
            };
            const Pixels drawn = Draw(draw, true);
            EXPECT_EQ(c.inked, drawn.BoxOf(ink));
            EXPECT_EQ(c.drawn, BoxOfOthers(drawn, ground));
        }
    // Where the brush does not fill all, the element stands on what is there, as if beside it. All of it
    // mirrored.
    const auto expected = [](CwxPainter& p) {
        p.SetBrush(brush{clYellow, bsCross});
        p.FillRect(40, 40, 60, 50);
        p.SetBrush(brush{Toolkit(ink), bsSolid});
        p.FillRect(30, 40, 40, 50);
    };
    const auto hatched = [](CwxPainter& p) {
        p.SetBrush(brush{clYellow, bsCross});
        p.Scale(-1, 1);
        p.SetClipRect(-30, 40, -300, 200);
        p.DrawControlElement(cePushButton, -20, 30, -60, 50, 0);
    };
    ExpectSamePixels(Draw(expected, true), Draw(hatched, true), "hatched");
}

TEST_F(Themed, DrawsWhatIsLargerThanAnyPicture)
{
    const auto clipped = [](CwxPainter& p) {
        p.SetClipRect(30, 40, 60, 45);
        p.DrawControlElement(cePushButton, -20000, 30, 20000, 50, 0);
    };
    const auto whole = [](CwxPainter& p) { p.DrawControlElement(cePushButton, -1e9, 99, 1e9, 119, 0); };
    EXPECT_EQ(wxRect(30, 40, 30, 5), BoxOfDrawn(clipped, true));
    EXPECT_EQ(400, BoxOfDrawn(whole).width);
}

// ---- by hand

// Every code another colour.
struct Palette : ISysPalette
{
    explicit Palette(_color color) : window(color) {}
    _color GetSystemColor(SysColor code) const override
    {
        return code == scWindow ? window : _color(0, static_cast<unsigned char>(code * 10), 0);
    }
    const _color window;
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
    "#############", "#...........#", "#...........#", "#........x..#", "#.......xx..#", "#..x...xxx..#", "#..xx.xxx...#",
    "#..xxxxx....#", "#...xxx.....#", "#....x......#", "#...........#", "#...........#", "#############"};
const Map plusOdd = {
    "#########", "#.......#", "#...x...#", "#...x...#", "#.xxxxx.#", "#...x...#", "#...x...#", "#.......#", "#########"};
const Map plusEven = {
    "##########", "#........#", "#....x...#", "#....x...#", "#....x...#", "#.xxxxxxx#", "#....x...#", "#....x...#", "#....x...#", "##########"};
// clang-format on

// No window anywhere: pictures have no theme to ask.
class ByHand : public testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(nullptr, wxTheApp->GetTopWindow()); }

    // At (20, 10); with the scale, the same pixels in other coordinates.
    static Pixels Draw(int code, const wxSize& extent, int state, const _color& window = clWhite,
                       double scale = 1.0)
    {
        Palette palette(window);
        const CHandle<CwxRasterPicture> picture(new CwxRasterPicture(size<int>(60, 50)));
        IPainter& painter = *picture->TakeDefPainter();
        painter.SetPalette(&palette);
        const CPaintScope scope(painter);
        painter.SetBrush(brush{Toolkit(ground), bsSolid});
        painter.FillRect(0, 0, 60, 50);
        painter.Scale(scale, scale);
        painter.SetPen(pen{clCyan, 2, psDot});
        const wxPen pen = painter.GetDC()->GetPen();
        const wxBrush brush = painter.GetDC()->GetBrush();
        painter.DrawControlElement(Element(code), 20 / scale, 10 / scale, (20 + extent.x) / scale,
                                   (10 + extent.y) / scale, state);
        EXPECT_TRUE(pen == painter.GetDC()->GetPen() && brush == painter.GetDC()->GetBrush());
        EXPECT_TRUE(painter.GetPen().color == clCyan && painter.GetBrush().color == Toolkit(ground));
        EXPECT_TRUE(painter.GetCoordConversion());
        painter.EndPaint();
        return ReadPixels(picture->GetBitmap());
    }
};

TEST_F(ByHand, BoxesAndExpanders)
{
    // clang-format off
    const struct { int code; wxSize size; Map map; } rows[] = {
        {1, {13, 13}, tick},  {1, {30, 20}, tick},      {2, {4, 4}, Framed(tick)},
        {4, {9, 9}, plusOdd}, {4, {10, 10}, plusEven},  {5, {9, 9}, Framed(plusOdd, 4)}, {5, {10, 10}, Framed(plusEven, 5)}};
    // clang-format on
    for (const auto& row : rows)
        for (const int state : {0, 0x1, 0xe, 0xf})
            for (const bool white : {true, false}) {
                SCOPED_TRACE(testing::Message()
                             << &row - rows << " state " << state << " on white " << white);
                const Pixels drawn = Draw(row.code, row.size, state, white ? clWhite : _color(212, 208, 200));
                std::map<std::uint32_t, char> letters{{state & 1 ? 0x7f7f7f : 0x001400, 'x'},
                                                      {state & 1 ? 0xcccccc
                                                       : white   ? 0xffffff
                                                                 : 0xd4d0c8,
                                                       '.'},
                                                      {white ? 0x003c00 : 0x004600, '#'}};
                const wxRect box = BoxOfOthers(drawn, ground);
                Map shown(static_cast<std::size_t>(box.height));
                for (int i = 0; i < box.width * box.height; ++i)
                    shown[static_cast<std::size_t>(i / box.width)] +=
                        letters[drawn.At(box.x + i % box.width, box.y + i / box.width)];
                EXPECT_EQ(row.map, shown);
                EXPECT_EQ(wxPoint(20, 10), box.GetTopLeft());
            }
}

TEST_F(ByHand, ButtonsAreBorders)
{
    constexpr std::uint32_t face = 0x001e00, light = 0x003200, highlight = 0x002800, shadow = 0x003c00,
                            dark = 0x004600;
    // clang-format off
    const struct { int code, state; std::uint32_t first, second, last; } rows[] = {
        {0, 1, highlight, face, shadow}, {0, 8, shadow, face, highlight}, {7, 6, highlight, light, dark}, {7, 9, dark, shadow, highlight}};
    // clang-format on
    for (const auto& row : rows)
        for (const double scale : {1.0, 2.0}) {
            const Pixels drawn = Draw(row.code, {7, 5}, row.state, clWhite, scale);
            EXPECT_EQ(wxRect(20, 10, 7, 5), BoxOfOthers(drawn, ground)) << row.code << ' ' << scale;
            EXPECT_TRUE(row.first == drawn.At(20, 10) && row.second == drawn.At(21, 11) &&
                        row.last == drawn.At(26, 14));
            EXPECT_EQ(face, drawn.At(23, 12));
        }
}

TEST_F(ByHand, RadioButtonsAreRound)
{
    for (const int code : {10, 11})
        for (const int state : {0, 1}) {
            const Pixels drawn = Draw(code, {30, 30}, state);
            EXPECT_EQ(wxRect(20, 10, 14, 14), drawn.BoxOf(0x003c00));
            EXPECT_EQ(ground, drawn.At(20, 10));
            EXPECT_EQ(code == 10 ? wxRect(24, 14, 6, 6) : wxRect(), drawn.BoxOf(state ? 0x7f7f7f : 0x001400));
            EXPECT_TRUE(drawn.At(26, 12) == (state ? 0xcccccc : 0xffffff) &&
                        drawn.At(26, 16) == drawn.At(26, 12));
        }
}

TEST_F(ByHand, OthersDrawNothingAndTheFocusInverts)
{
    for (const int code : {3, 8, 9, 12, 1000, -1})
        EXPECT_EQ(wxRect(), BoxOfOthers(Draw(code, {30, 30}, 0), ground)) << code;
    EXPECT_EQ(wxRect(20, 10, 30, 30), Draw(ceFocusRect, {30, 30}, 1).BoxOf(0xffffff ^ ground));
}
