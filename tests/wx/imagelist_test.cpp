// Image lists: what is added, the disabled looks, and what is drawn.

#include "vela7/wximagelist.h"

#include "scaledcanvas.h"
#include "support/fixture.h"
#include "vela7/testing/recordingpainter.h"
#include "vela7/wxwinpainter.h"
#include "vela7/wxxpm.h"

#include <gtest/gtest.h>
#include <wx/dcmemory.h>

using namespace vela7;
using namespace vela7::test;

constexpr std::uint32_t red = 0xff0000, magenta = 0xff00ff, ground = 0x0a141e;
const _color key(255, 0, 255);

// Red, with the left part in magenta.
wxImage Icon(int width, int height, int left, bool mask = false)
{
    wxImage image(width, height);
    for (int i = 0; i < width * height; ++i)
        image.SetRGB(i % width, i / width, 255, 0, i % width < left ? 255 : 0);
    if (mask)
        image.SetMaskColour(255, 0, 255);
    return image;
}

class ImageList : public testing::Test
{
protected:
    using DrawCall = void (IImageList::*)(IPainter*, int, int, int, int, int);
    static constexpr DrawCall looks[] = {&IImageList::Draw, &IImageList::DrawTransparent,
                                         &IImageList::DrawDisabled};

    int Add(wxImage image) { return list.AddOriginalImage(image), list.GetImageCount() - 1; }
    Pixels Shown(DrawCall draw, int index, int x, int y, int width, int height)
    {
        return canvas.Draw([&](IPainter& p) { (list.*draw)(&p, index, x, y, width, height); });
    }

    CwxImageList list;
    ScaledCanvas canvas;
    CwxRasterPicture picture{size<int>(0, 0)};
};

TEST_F(ImageList, SplitsWhatIsTwiceAsWideAsHigh)
{
    for (const wxSize& whole : {wxSize(32, 16), {2, 1}, {16, 16}, {33, 16}, {31, 16}}) {
        SCOPED_TRACE(whole.x);
        const bool splits = whole.x == 2 * whole.y;
        const wxImage image = Icon(whole.x, whole.y, std::min(whole.x, whole.y));
        picture.SetBitmap(wxBitmap(image));
        XPMImage xpm;
        convert::fill_xpm_from_wximage(&xpm, &image);
        const int count = list.GetImageCount();
        EXPECT_EQ(count, list.AddXPM(xpm));
        EXPECT_EQ(count + 1, list.AddRasterPicture(&picture, _color::none()));
        EXPECT_EQ(count + 2, Add(image));
        for (int i = count; i < count + 3; ++i) {
            EXPECT_EQ(size<int>(splits ? whole.y : whole.x, whole.y), list.GetSize(i));
            const wxImage &normal = *list.GetImage(i, true), &disabled = *list.GetImage(i, false);
            EXPECT_EQ(normal.GetSize(), disabled.GetSize());
            EXPECT_EQ(!splits, disabled.HasAlpha()) << "made on demand";
            EXPECT_TRUE(normal.GetBlue(0, 0) == 255 && (!splits || disabled.GetBlue(0, 0) == 0));
        }
    }
}

TEST_F(ImageList, MakesDisabledImagesOnce)
{
    for (const bool mask : {false, true}) {
        wxImage image(2, 2);
        std::copy_n("\x0a\xc8\x1e\x01\x02\x03\x0a\xc8\x1f\x0a\xc8\x1f", 12, image.GetData());
        if (mask)
            image.SetMaskColour(1, 2, 3);
        else
            image.SetAlpha(), std::fill_n(image.GetAlpha(), 4, static_cast<unsigned char>(90));
        const int icon = Add(image);
        const wxImage* const disabled = list.GetDisabledImage(icon);
        for (const int i : {0, 1, 2, 3}) // the mask's pixel, or those like the one at the bottom left
            EXPECT_EQ((mask ? i == 1 : i >= 2) ? 0 : 127, disabled->GetAlpha()[i]) << i << mask;
        const unsigned char* const data = disabled->GetData();
        EXPECT_TRUE(data[0] == 124 && data[1] == 124 && data[2] == 124); // 0.299, 0.587, 0.114 of 10, 200, 30
        list.GetImage(icon, true)->SetRGB(0, 0, 255, 255, 255);
        EXPECT_TRUE(disabled == list.GetImage(icon, false) && data == disabled->GetData() && data[0] == 124);
    }
}

TEST_F(ImageList, SizesOfWhatIsDrawn)
{
    // clang-format off
    const struct { unsigned flags; double painter, system; int width, height; wxSize drawn; } rows[] = {
        {0, 1.0, 1.0,  0,  0, {15,  9}}, {0, 1.5, 1.5,  0,  0, {15,  9}}, {2, 1.5, 1.5,  0,  0, {22, 13}},
        {2, 2.0, 2.0,  0,  0, {30, 18}}, {2, 2.0, 1.0,  0,  0, {15,  9}}, {2, 1.0, 2.0,  0,  0, {15,  9}},
        {0, 1.5, 1.5,  0, 20, {15,  9}}, {2, 1.5, 1.5,  0, 20, {22, 20}}, {2, 1.5, 1.5, 20,  0, {20, 13}},
        {2, 1.0, 1.0, 20,  0, {15,  9}}, {2, 1.5, 1.5, 40,  8, {40,  8}}, {0, 1.0, 1.0,  1,  1, { 1,  1}},
        {0, 1.0, 1.0, -3,  8, { 0,  0}}, {2, 1.5, 1.5,  0, -9, { 0,  0}}, {0, 1.0, 1.0, 1 << 30, 1 << 30, {0, 0}},
    };
    // clang-format on
    ScaledSystem system;
    Add(Icon(15, 9, 0));
    *list.GetDisabledImage(0) = Icon(15, 9, 0);
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        SetDPIAutoScale(row.flags);
        canvas.painter.scale = row.painter;
        system.scale = row.system;
        for (const DrawCall draw : looks)
            EXPECT_EQ(row.drawn.x ? wxRect({10, 20}, row.drawn) : wxRect(),
                      Shown(draw, 0, 10, 20, row.width, row.height).BoxOf(red));
        const double scale = row.flags ? row.system : 1.0;
        EXPECT_EQ(scale == 1.0   ? size<int>(15, 9)
                  : scale == 1.5 ? size<int>(22, 13)
                                 : size<int>(30, 18),
                  list.GetSize(0));
    }
    SetDPIAutoScale(0);
}

TEST_F(ImageList, PixelsOfTheLooks)
{
    wxImage image = Icon(16, 16, 2);
    image.SetAlpha();
    for (int i = 0; i < 256; ++i)
        image.GetAlpha()[i] = static_cast<unsigned char>(i % 16 < 2 ? 127 : 128);
    const int masked = Add(Icon(16, 16, 2, true)), alpha = Add(image);
    for (const int side : {0, 32, 0})
        for (const int icon : {masked, alpha}) {
            SCOPED_TRACE(testing::Message() << side << ' ' << icon);
            const Pixels whole = canvas.Draw([&](IPainter& p) {
                p.SetRasterOperation(roXor); // no matter
                list.Draw(&p, icon, 10, 10, side, side);
                EXPECT_EQ(roXor, p.GetRasterOperation());
            });
            EXPECT_EQ(red, whole.At(18, 18));
            EXPECT_EQ(icon == masked && side ? 0x010203 : magenta,
                      whole.At(11, 18)); // scaled: wx's mask colour
            const Pixels cut = canvas.Draw([&](IPainter& p) {
                p.SetClipRect(0, 0, 100, 19);
                list.DrawTransparent(&p, icon, 10, 10, side, side);
            });
            EXPECT_TRUE(cut.At(18, 18) == red && cut.At(18, 19) == ground && cut.At(11, 18) == ground);
            const Pixels disabled = Shown(&IImageList::DrawDisabled, icon, 10, 10, side, side);
            EXPECT_NEAR(53, disabled.At(18, 18) & 0xff,
                        2); // 127 of 255 of red's grey on 30; it may be rounded
            EXPECT_EQ(ground, disabled.At(11, 18));
        }
    const Pixels moved = canvas.Draw([&](IPainter& p) {
        p.Scale(1.5, 1.5);
        list.DrawTransparent(&p, masked, 5, 3, 0, 0); // 7.5, 4.5, without the two on the left
    });
    EXPECT_EQ(wxRect(9, 4, 14, 16), moved.BoxOf(red));
}

TEST_F(ImageList, DrawsImagesAsTheyAreNow)
{
    wxImage& image = *list.GetImage(Add(Icon(16, 16, 0)), true);
    const std::pair<void (*)(wxImage&), std::uint32_t> steps[] = {
        {[](wxImage&) {}, red},
        {[](wxImage& i) { std::fill_n(i.GetData(), 768, static_cast<unsigned char>(128)); }, 0x808080},
        {[](wxImage& i) { i.SetMaskColour(128, 128, 128); }, ground},
        {[](wxImage& i) { i.SetMask(false); }, 0x808080},
        {[](wxImage& i) { i = Icon(20, 16, 2); }, red}};
    for (const auto& [change, expected] : steps) {
        change(image);
        for (const int side : {0, 32, 4096}) // of the last one, what can be seen
            EXPECT_EQ(expected,
                      Shown(&IImageList::DrawTransparent, 0, -side / 2, -side / 2, side, side).At(8, 8));
    }
}

using Mirrored = GuiTest;

TEST_F(Mirrored, WindowsKeepTheIconsAsTheyAre)
{
    frame->SetLayoutDirection(wxLayout_RightToLeft);
    Settle(); // it is painted anew
    CwxImageList list;
    wxImage image = Icon(16, 16, 2);
    list.AddOriginalImage(image);
    CwxWinPainter painter(frame);
    const CPaintScope scope(painter, ssAsIs);
    list.Draw(&painter, 0, 10, 10, 0, 0);
    EXPECT_EQ(wxRect(390, 10, 2, 16),
              ReadPixels(frame).BoxOf(magenta)); // and begin where the mirrored place is
}

TEST_F(ImageList, RasterPicturesAndIndexes)
{
    EXPECT_TRUE(list.AddRasterPicture(&picture, key) == -1 &&
                list.AddRasterPicture(nullptr, key) == -1); // no pixels
    picture.SetBitmap(wxBitmap(Icon(16, 16, 2)));
    EXPECT_EQ(0, list.AddRasterPicture(&picture, key));
    _color none = key;
    none.flag = 1;
    EXPECT_EQ(1, list.AddRasterPicture(&picture, none));
    EXPECT_TRUE(list.GetImage(0, true)->IsTransparent(0, 0) && !list.GetImage(1, true)->IsTransparent(0, 0));
    const char* const lines[] = {"1 1 1 1", "a c #0000ff", "a"};
    const XPMImage xpm(lines);
    EXPECT_TRUE(list.AddDisabledRasterPicture(1, &picture, key) && list.AddDisabledXPM(0, xpm));
    EXPECT_TRUE(list.GetImage(1, false)->IsTransparent(0, 0) &&
                list.GetImage(0, false)->GetBlue(0, 0) == 255);
    for (const int index : {-1, 2, 1 << 30}) {
        EXPECT_FALSE(list.AddDisabledXPM(index, xpm) || list.AddDisabledRasterPicture(index, &picture, key));
        EXPECT_EQ(size<int>(), list.GetSize(index));
    }
}

TEST_F(ImageList, DrawsNothingWhereItCannot)
{
    Add(Icon(16, 16, 0));
    EXPECT_EQ(1, list.AddXPM(XPMImage())); // added all the same
    ExpectAsserts(1, "src/wximagelist:31 create_paletteless_image: image.IsOk() / ");
    struct Foreign : testkit::RecordingPainter
    {
        wxDC* GetDC() override { return &dc; }
        wxMemoryDC dc;
    } foreign;
    const Pixels seen = canvas.Draw([&](IPainter& p) {
        foreign.dc.SelectObjectAsSource(canvas.GetBitmap());
        const CPaintScope scope(foreign);
        for (const DrawCall draw : looks) {
            (list.*draw)(&foreign, 0, 0, 0, 0, 0);
            (list.*draw)(nullptr, 0, 0, 0, 0, 0);
            for (const int index : {-1, 1, 2, 1 << 30})
                (list.*draw)(&p, index, 0, 0, 20, 20);
            (list.*draw)(&p, 0, 1 << 24, -(1 << 16), 0, 0); // out of sight
        }
    });
    ExpectAsserts(1, "src/wximagelist:314 GetDisabledImage: m_Elements[index].first.IsOk() / ");
    EXPECT_EQ(100 * 100, seen.CountColour(seen.Bounds(), ground));
    list.Draw(&canvas.painter, 0, 0, 0, 0, 20); // outside of a paint
    ExpectSamePixels(seen, ReadPixels(canvas.GetBitmap()), "outside");
}
