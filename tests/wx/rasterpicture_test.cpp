// Raster pictures: copying, changing, painting into them, files, hostile input.

#include "support/process.h"
#include "vela7/wxrstpainter.h"
#include "vela7/xpm.h"
#include "windowhelpers.h"

#include <climits>
#include <filesystem>
#include <fstream>
#include <unistd.h>
#include <wx/dcscreen.h>

using namespace vela7;
using namespace vela7::test;
using Picture = CHandle<CwxRasterPicture>;
using Strings = std::vector<std::string>;

const screen_rectangle<int> all;

// Fields as given: the constructors would normalise them.
screen_rectangle<int> Area(int l, int t, int r, int b)
{
    screen_rectangle<int> area;
    area.left = l, area.top = t, area.right = r, area.bottom = b;
    return area;
}

class RasterPicture : public testing::Test
{
protected:
    ~RasterPicture() override { std::filesystem::remove_all(directory); }

    static Picture Make(int width, int height)
    {
        return Picture(new CwxRasterPicture(size<int>(width, height)));
    }
    static Picture Sample() { return SamplePicture(20, 10); }
    static wxImage Image(const Picture& picture) { return picture->GetBitmap().ConvertToImage(); }
    static Pixels Read(const Picture& picture) { return ReadPixels(picture->GetBitmap()); }
    static bool IsSolid(const Picture& picture, int x, int y) { return !Image(picture).IsTransparent(x, y); }

    // White, with a black part.
    static Picture MakeMask(int width, int height, const rectangle<int>& black)
    {
        Picture mask = Make(width, height);
        FillPicture(*mask, clWhite, {0, 0, width, height});
        FillPicture(*mask, clBlack, black);
        return mask;
    }
    static void ExpectSample(const Picture& picture, const wxRect& part = {0, 0, 20, 10})
    {
        EXPECT_EQ(size<int>(part.width, part.height), picture->GetSize());
        ASSERT_EQ(!part.IsEmpty(), picture->GetBitmap().IsOk());
        if (!part.IsEmpty())
            ExpectSamePixels(Pixels(Image(Sample()).GetSubImage(part)), Read(picture), "sample");
    }
    // Through a file with this text.
    void Load(const Picture& picture, const std::string& text) const
    {
        std::ofstream(directory / "written.xpm", std::ios::binary) << text;
        picture->Load(directory / "written.xpm");
    }
    static void DoEverything(const Picture& picture);

    const std::filesystem::path directory =
        std::filesystem::temp_directory_path() / ("vela7-pictures-" + std::to_string(getpid()));
    const bool made = std::filesystem::create_directory(directory);
};

// ---- copies

TEST_F(RasterPicture, CopiesAreas)
{
    // clang-format off
    const std::pair<screen_rectangle<int>, wxRect> rows[] = { // area, and what is copied of the 20 x 10 pixels
        {all, {0, 0, 20, 10}},
        {Area(2, 3, 8, 7), {2, 3, 7, 5}}, // inside: with its right and bottom edges
        {Area(0, 0, 19, 9), {0, 0, 20, 10}},  {Area(10, 5, 20, 10), {10, 5, 10, 5}}, // up to the edge
        {Area(15, 2, 40, 40), {15, 2, 5, 8}}, // beyond
        {Area(-5, -4, 3, 3), {0, 0, 9, 8}},   // moved inside, the extent stays
        {Area(-1000000000, 0, 1000000000, 5), {0, 0, 20, 6}},
        {Area(5, 5, 5, 5), {5, 5, 1, 1}},
        {Area(25, 3, 30, 7), {}}, {Area(9, 7, 2, 5), {}}, // nothing there
    };
    // clang-format on
    for (const auto& [area, copied] : rows) {
        SCOPED_TRACE(testing::Message() << area.left << ' ' << area.top);
        const Picture source = Sample();
        for (const Picture& copy : {Make(3, 3), source}) { // also onto itself
            EXPECT_TRUE(copy->CopyFrom(source.Get(), area));
            ExpectSample(copy, copied);
        }
    }
    const Picture kept = Sample();
    EXPECT_FALSE(kept->CopyFrom(nullptr, all));
    ExpectSample(kept);
}

TEST_F(RasterPicture, ChangesOfACopyStayInTheCopy)
{
    const Picture from = MakeMask(20, 10, {0, 0, 20, 5});
    IPainter& painter = *from->TakeDefPainter();
    const CPaintScope scope(painter);
    // clang-format off
    const std::function<void(CwxRasterPicture&)> changes[] = {
        [](CwxRasterPicture& p) { FillPicture(p, clRed, {0, 0, 20, 10}); },
        [](CwxRasterPicture& p) { p.Blur({3, 3}, Area(2, 2, 18, 8)); },
        [&](CwxRasterPicture& p) { p.SetMask(from.Get()); },
        [&](CwxRasterPicture& p) { painter.ExtractRasterPicture(&p, 0, 0, 20, 10); }};
    // clang-format on
    for (const auto& change : changes)
        for (const bool changeCopy : {true, false}) {
            const Picture source = Sample(), copy = Make(1, 1);
            copy->CopyFrom(source.Get(), all);
            change(changeCopy ? *copy : *source);
            const Picture& other = changeCopy ? source : copy;
            ExpectSample(other);
            EXPECT_EQ(nullptr, other->GetBitmap().GetMask());
        }
}

// ---- painters

TEST_F(RasterPicture, OffersItsDefaultPainterOnly)
{
    const Picture picture = Sample();
    EXPECT_FALSE(picture->CreatePainter() || picture->HasMultiPainterSupport());
    IPainter* const painter = picture->TakeDefPainter();
    EXPECT_EQ(picture.Get(), painter->GetCanvas());
    for (const StdSettings settings : {ssClear, ssBuffered, ssAsIs}) {
        const CPaintScope scope(*painter, settings);
        EXPECT_TRUE(scope.IsOk() && painter->IsFullRepaint() && painter->GetDC());
    }
    EXPECT_EQ(nullptr, painter->GetDC());
    ExpectSample(picture); // nothing is cleared
    picture->CopyFrom(Make(5, 5).Get(), all);
    EXPECT_EQ(painter, picture->TakeDefPainter());
    CwxRstPainter ofNone(nullptr);
    EXPECT_TRUE(ofNone.BeginPaint() && ofNone.GetDrawRect().IsNull());
    ofNone.FillRect(0, 0, 10, 10);
}

TEST_F(RasterPicture, MayChangeInTheMiddleOfAPaint)
{
    const Picture source = Sample(), own = Sample();
    Picture picture = Make(30, 30);
    IPainter& painter = *picture->TakeDefPainter();
    const CPaintScope scope(painter), self(*own->TakeDefPainter());
    painter.SetBrush(brush{clRed, bsSolid});
    picture->CopyFrom(source.Get(), all);
    painter.FillRect(0, 0, 30, 30);
    picture->Scale(20, 10);
    painter.FillRect(0, 0, 30, 30);
    painter.DrawRasterPicture(picture.Get(), 0, 0, 20, 10);
    painter.AlphaBlend(0, 0, 20, 10, picture.Get(), 100);
    painter.ExtractRasterPicture(source.Get(), 0, 0, 5, 5);
    EXPECT_EQ(size<int>(20, 10), picture->GetSize());
    EXPECT_EQ(ColourOf(19, 9), Read(source).At(19, 9));
    own->TakeDefPainter()->DrawRasterPicture(own.Get(), 10, 0, 20, 10);
    own->TakeDefPainter()->EndPaint();
    EXPECT_EQ(ColourOf(3, 4), Read(own).At(13, 4));
    picture.Reset(); // and die
}

TEST_F(RasterPicture, IsReadAsItIsWhilePaintedOn)
{
    const Picture picture = SamplePicture(8, 6), other = SamplePicture(8, 6);
    IPainter& painter = *picture->TakeDefPainter();
    const CPaintScope scope(painter), otherScope(*other->TakeDefPainter());
    for (const auto& [colour, pixel] : {std::pair(clRed, 0xFF0000u), std::pair(clBlue, 0x0000FFu)}) {
        painter.SetBrush(brush{colour, bsSolid});
        painter.FillRect(0, 0, 8, 6);
        EXPECT_EQ(pixel, ReadPixels(picture->GetBitmap()).At(7, 5));
        other->TakeDefPainter()->DrawRasterPicture(picture.Get(), 0, 0, 8, 6);
        EXPECT_EQ(pixel, ReadPixels(other->GetBitmap()).At(7, 5));
    }
}

TEST_F(RasterPicture, Metrics)
{
    const Picture picture = SamplePicture(32, 16);
    picture->SetSize({50, 60});
    // clang-format off
    const int expected[][2] = {
        {0, 50}, {1, 60}, {2, 8}, {3, 8}, // the width again
        {4, 1280}, {5, 1024}, {6, 339}, {7, 271}, {9, 24}, {8, 1 << 24}, {10, 0}, {11, 96}, {12, 96}, {13, 0}, {-1, 0}};
    // clang-format on
    for (const bool paints : {false, true}) {
        EXPECT_TRUE(!paints || picture->TakeDefPainter()->BeginPaint());
        for (const auto& [metric, value] : expected)
            EXPECT_EQ(value, picture->GetCanvasMetrics(static_cast<ICanvas::CanvasMetrics>(metric)))
                << metric;
    }
}

// ---- changes

TEST_F(RasterPicture, Blurs)
{
    // clang-format off
    const struct { size<int> radius; screen_rectangle<int> area; wxRect box; } rows[] = { // of the one white pixel at (9, 4)
        {{0, 0}, all, {9, 4, 1, 1}},  {{-1, 0}, all, {9, 4, 1, 1}}, {{3, 0}, all, {6, 4, 7, 1}}, {{0, 2}, all, {9, 2, 1, 5}}, {{0, 1}, all, {9, 3, 1, 3}},
        {{3, 2}, all, {6, 2, 7, 5}},  {{900, 0}, all, {0, 4, 20, 1}}, {{0, 900}, all, {9, 0, 1, 10}},
        {{3, 3}, Area(8, 2, 11, 6), {8, 2, 3, 4}}, // inside the area only
        {{3, 0}, Area(10, 2, 14, 9), {9, 4, 1, 1}},
        {{3, 0}, Area(4, 2, 24, 9), {9, 4, 1, 1}}, {{3, 0}, Area(9, 2, 4, 9), {9, 4, 1, 1}}, // no such part
        {{3, 0}, Area(-1, 0, 10, 5), {9, 4, 1, 1}},
    };
    // clang-format on
    for (const auto& row : rows) {
        const Picture picture = MakeMask(20, 10, {0, 0, 20, 10});
        FillPicture(*picture, clWhite, {9, 4, 10, 5});
        picture->Blur(row.radius, row.area);
        EXPECT_EQ(row.box, BoxOfOthers(Read(picture), 0)) << &row - rows;
        EXPECT_EQ(size<int>(20, 10), picture->GetSize());
    }
}

TEST_F(RasterPicture, ScalesSmoothly)
{
    const Picture picture = MakeMask(2, 1, {0, 0, 1, 1});
    picture->Scale(40, 7);
    const Pixels scaled = Read(picture);
    EXPECT_EQ(wxSize(40, 7), scaled.Bounds().GetSize());
    EXPECT_GT(40 * 7, scaled.CountColour(scaled.Bounds(), 0) + scaled.CountColour(scaled.Bounds(), 0xffffff));
    for (const wxSize& impossible : {wxSize(0, 5), wxSize(5, -1), wxSize(40000, 1), wxSize(100000, 100000)})
        picture->Scale(impossible.x, impossible.y);
    EXPECT_EQ(size<int>(40, 7), picture->GetSize());
}

TEST_F(RasterPicture, MasksWithBlackAsTransparent)
{
    const Picture mask = MakeMask(20, 10, {5, 2, 9, 5}), picture = Sample();
    FillPicture(*mask, _color(0, 0, 1), {15, 2, 16, 3}); // nearly black
    picture->SetMask(nullptr);
    picture->SetMask(Make(0, 0).Get());
    EXPECT_EQ(nullptr, picture->GetBitmap().GetMask());
    for (const int depth : {-1, 1}) {
        Bitmap2RasterPicture(wxBitmap(Image(mask), depth), mask.Get());
        picture->SetMask(mask.Get());
        for (int y = 0; y < 10; ++y)
            for (int x = 0; x < 20; ++x)
                EXPECT_EQ(!wxRect(5, 2, 4, 3).Contains(x, y),
                          IsSolid(picture, x, y) || (depth == 1 && x == 15));
    }
    EXPECT_EQ(ColourOf(0, 9), Read(picture).At(0, 9));
    const Picture target = MakeMask(30, 30, {0, 0, 30, 30});
    {
        const CPaintScope scope(*picture->TakeDefPainter());
        picture->TakeDefPainter()->ExtractRasterPicture(target.Get(), 0, 0, 20, 10);
    }
    EXPECT_TRUE(Read(target).At(8, 4) == 0 && Read(target).At(9, 4) == ColourOf(9, 4)) << "through the mask";
    for (const wxSize& other :
         {wxSize(5, 3), wxSize(50, 30)}) { // than the picture: what it does not reach is transparent
        picture->SetMask(SamplePicture(other.x, other.y).Get());
        EXPECT_EQ(other.x > 20, IsSolid(picture, 19, 9));
    }
}

// All that a picture can do, for pictures that are not what they say.
void RasterPicture::DoEverything(const Picture& picture)
{
    const Picture other = Sample(), canvas = Make(100, 100);
    std::vector<unsigned char> transparencies(200 * 200, 100);
    for (IPainter* const painter : {canvas->TakeDefPainter(), picture->TakeDefPainter()}) {
        const CPaintScope scope(*painter);
        painter->Rectangle(0, 0, 90, 90);
        painter->DrawString(1, 1, "text");
        painter->DrawRasterPictureEx(picture.Get(), {30, 30, 90, 90}, {0, 0, 60, 60});
        painter->ExtractRasterPictureEx(picture.Get(), {30, 30, 90, 90}, {0, 0, 60, 60});
        painter->AlphaBlend(0, 0, 90, 90, picture.Get(), 100);
        if (picture->GetSize().width <= 200) // the length of the caller's rows
            painter->AlphaBlend(0, 0, 90, 90, picture.Get(), transparencies.data());
        painter->GetPixel(80, 80);
    }
    for (const auto& area : {Area(40, 40, 80, 80), all})
        other->CopyFrom(picture.Get(), area);
    other->Save("/dev/null");
    other->SetMask(picture.Get());
    for (int code = 0; code < 14; ++code)
        picture->GetCanvasMetrics(static_cast<ICanvas::CanvasMetrics>(code));
    picture->SetMask(canvas.Get());
    for (const auto& area : {Area(20, 5, 80, 80), all})
        picture->Blur({2, 2}, area);
    picture->Scale(70, 70);
}

TEST_F(RasterPicture, RecordedSizeNeedNotBeThatOfThePixels)
{
    // clang-format off
    const std::pair<size<int>, size<int>> rows[] = { // recorded, and what a copy gets
        {{100, 90}, {20, 10}}, {{5, 3}, {5, 3}}, {{0, 0}, {}}, {{-7, 4}, {}}, {{INT_MAX, INT_MAX}, {20, 10}}};
    // clang-format on
    for (const auto& [odd, copied] : rows) {
        const Picture picture = Sample(), copy = Make(1, 1);
        picture->SetSize(odd);
        EXPECT_EQ(odd, picture->GetSize());
        EXPECT_EQ(rectangle<int>(0, 0, odd.width, odd.height), picture->TakeDefPainter()->GetDrawRect());
        EXPECT_EQ(wxSize(20, 10), picture->GetBitmap().GetSize());
        copy->CopyFrom(picture.Get(), Area(0, 0, 90, 80));
        EXPECT_EQ(copied, copy->GetSize());
        copy->CopyFrom(picture.Get(), all);
        EXPECT_EQ(odd, copy->GetSize());
        DoEverything(picture);
    }
    const size<int> none[] = {{0, 0},     {0, 7},         {-5, 3},           {32768, 1},
                              {1, 32768}, {30000, 30000}, {INT_MAX, INT_MAX}};
    for (const size<int>& extent : none) {
        const Picture picture = Make(extent.width, extent.height);
        EXPECT_EQ(extent, picture->GetSize());
        DoEverything(picture);
        EXPECT_FALSE(picture->GetBitmap().IsOk()) << extent.width;
    }
    EXPECT_TRUE(Make(32767, 1)->GetBitmap().IsOk() && Make(1, 32767)->GetBitmap().IsOk());
    const Picture picture = Sample();
    Bitmap2RasterPicture(wxBitmap(), picture.Get());
    EXPECT_EQ(size<int>(0, 0), picture->GetSize());
    Bitmap2RasterPicture(wxBitmap(3, 3), nullptr);
}

// ---- XPM lines and files

TEST_F(RasterPicture, FromXPM)
{
    const char* const lines[] = {"3 2 3 1", "r c #FF0000", "w c white", "n c None", "rwn", "nnr"};
    // Without transparency the mask lets everything through.
    const char* const opaque[] = {"2 1 2 1", "r c #FF0000", "b c #000000", "rb"};
    for (const bool useMask : {true, false}) { // wx gives the bitmap the transparency of the image anyway
        const Picture picture = Sample();
        picture->ConvertFromXPM(XPMImage(lines), useMask);
        EXPECT_EQ(size<int>(3, 2), picture->GetSize());
        for (int i = 0; i < 6; ++i)
            EXPECT_EQ("110001"[i] == '1', IsSolid(picture, i % 3, i / 3)) << i;
        EXPECT_TRUE(Read(picture).At(1, 0) == 0xffffff && Read(picture).At(2, 1) == 0xff0000);
        picture->ConvertFromXPM(XPMImage(opaque), useMask);
        EXPECT_EQ(useMask, picture->GetBitmap().GetMask() != nullptr);
        EXPECT_TRUE(IsSolid(picture, 0, 0) && IsSolid(picture, 1, 0));
    }
}

TEST_F(RasterPicture, IsSavedForOtherPrograms)
{
    const Picture picture = Make(1, 1);
    const std::string saved = directory / "saved.png";   // as XPM all the same
    picture->CopyFrom(SamplePicture(37, 10).Get(), all); // two characters a pixel
    const std::string solid = "\x16\x45\x19\xff\x21\x45\x1e\xff",
                      masked = solid.substr(0, 4) + std::string(4, '\0');
    for (const std::string& seen : {solid, masked, masked}) { // at last also once it has been read back
        picture->Save(saved);
        const Strings bytes{"convert", "xpm:" + saved, "-crop", "2x1+2+3", "-depth", "8", "rgba:-"};
        EXPECT_EQ(seen, RunProgram(bytes).output);
        picture->Load(saved);
        EXPECT_TRUE(Read(picture).At(2, 3) == ColourOf(2, 3) && Read(picture).At(36, 9) == ColourOf(36, 9));
        if (!picture->GetBitmap().GetMask())
            picture->SetMask(MakeMask(37, 10, {3, 3, 9, 9}).Get());
    }
    Make(0, 0)->Save(directory / "empty.xpm");
    EXPECT_FALSE(std::filesystem::exists(directory / "empty.xpm"));
    picture->Save(directory / "missing/directory.xpm");
    EXPECT_FALSE(TakeFaults(Fault::wxLog).empty());
}

std::string Quoted(const Strings& lines)
{
    std::string text =
        "/* XPM */ /* a \" */\nstatic const char *x[] = {\n/* columns rows */\n"; // as others write it
    for (const std::string& line : lines)
        text += '"' + line + "\",\n";
    return text + "};\n";
}

TEST_F(RasterPicture, HostileInputChangesNothing)
{
    // No picture, or none that the screen can hold.
    // clang-format off
    const Strings rows[] = {
        {""}, {"0 0 0 0"}, {"0 1 1 1", "a c red", ""}, {"1 1 -1 1", "a c red", "a"}, {"32768 1 1 1", "a c red", std::string(32768, 'a')},
        {"1 1 1 64", std::string(64, 'a') + " c red", std::string(64, 'a')}, {"1 1 1 1", "a", "a"}, {"1 1 1 1", "a c nocolour", "a"},
        {"1 1 1 1", "a c #12", "a"}, {"1 1 1 1", "a c red", "b"}, {"3 1 1 1", "a c red", "aa"}};
    Strings texts = {"", "GIF89a", "/* XPM */", "/* XPM */ /* ", "/* XPM */ \"", "/* XPM */ 'x", std::string(3000, '"'),
        "/* XPM *//* a *//* \" */ \"1 1 1 1\", \"a c re", "/* XPM */\n" + std::string(3000, '\0')};
    // clang-format on
    const Picture picture = Sample(), empty = Make(0, 5);
    const auto expectNothing = [&](const XPMImage& image) {
        const CPaintScope scope(*picture->TakeDefPainter());
        picture->TakeDefPainter()->DrawXPM(image, 0, 0);
        picture->ConvertFromXPM(image, true);
        ExpectSample(picture);
    };
    std::vector<const char*> high(2 + 32768, "a");
    high[0] = "1 32768 1 1", high[1] = "a c red";
    expectNothing(XPMImage(high.data()));
    for (const Strings& lines : rows) {
        std::vector<const char*> pointers;
        for (const std::string& line : lines)
            pointers.push_back(line.c_str());
        expectNothing(XPMImage(pointers.data()));
        texts.push_back(Quoted(lines));
    }
    const std::string whole =
        Quoted({"9 3 2 1", "/ c red", "* c None", "/*/*/*/*/", "/////////", "////*****"});
    for (std::size_t length = 0; length < whole.size() - 8; ++length) // cut before its last line ends
        texts.push_back(whole.substr(0, length));
    texts.push_back(whole + "/*");
    for (const std::string& text : texts) {
        Load(picture, text);
        SCOPED_TRACE(text.substr(0, 200));
        ExpectSample(picture);
        TakeFaults(Fault::wxLog); // wx may say what it thinks of the file, the host decides how that is shown
    }
    ASSERT_TRUE(wxImage(40000, 1).SaveFile((directory / "wide.png").string(), wxBITMAP_TYPE_PNG));
    for (const char* const name :
         {"missing.xpm", "", "wide.png"}) // the directory, and too large for the screen
        picture->Load(directory / name);
    ExpectSample(picture);
    Load(empty, "GIF89a");
    EXPECT_EQ(size<int>(0, 0), empty->GetSize()); // the size follows the pixels in any case
    EXPECT_FALSE(TakeFaults(Fault::wxLog).empty());
    Load(picture, whole);
    EXPECT_EQ(size<int>(9, 3), picture->GetSize());
    EXPECT_TRUE(IsSolid(picture, 8, 0) && !IsSolid(picture, 1, 0) && IsSolid(picture, 3, 2));
}
