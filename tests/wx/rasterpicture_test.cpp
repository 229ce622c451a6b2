// Raster pictures: copying, changing, painting into them, files from and for other programs, hostile input.

#include "support/process.h"
#include "vela7/painter.h"
#include "vela7/wxconvert.h"
#include "vela7/wxrstpainter.h"
#include "vela7/xpm.h"
#include "windowhelpers.h"

#include <climits>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>
#include <wx/brush.h>
#include <wx/dcscreen.h>
#include <wx/image.h>

namespace vela7 {
namespace {

using namespace test;
using Picture = CHandle<CwxRasterPicture>;

Picture Make(int width, int height)
{
    return Picture(new CwxRasterPicture(size<int>(width, height)));
}

Picture Sample(int width = 20, int height = 10)
{
    return SamplePicture(width, height);
}

Pixels Read(const Picture& picture)
{
    return ReadPixels(picture->GetBitmap());
}

Pixels SampleAt(const wxRect& part)
{
    return Pixels(Sample()->GetBitmap().ConvertToImage().GetSubImage(part));
}

void ExpectSample(const Picture& picture)
{
    EXPECT_EQ(size<int>(20, 10), picture->GetSize());
    ExpectSamePixels(SampleAt({0, 0, 20, 10}), Read(picture), "sample");
}

// Fields as given: the constructors would normalise them.
screen_rectangle<int> Area(int l, int t, int r, int b)
{
    screen_rectangle<int> area;
    area.left = l;
    area.top = t;
    area.right = r;
    area.bottom = b;
    return area;
}

bool IsSolid(const Picture& picture, int x, int y)
{
    return !picture->GetBitmap().ConvertToImage().IsTransparent(x, y);
}

// ---- copies

TEST(RasterPicture, CopiesAreas)
{
    struct Row
    {
        screen_rectangle<int> area;
        wxRect copied; // of the 20 x 10 pixels
    };
    const Row rows[] = {
        {Area(0, 0, 0, 0), {0, 0, 20, 10}},
        {Area(2, 3, 8, 7), {2, 3, 7, 5}}, // inside: with its right and bottom edges
        {Area(0, 0, 19, 9), {0, 0, 20, 10}},
        {Area(10, 5, 20, 10), {10, 5, 10, 5}}, // up to the edge
        {Area(15, 2, 40, 40), {15, 2, 5, 8}},  // beyond
        {Area(-5, -4, 3, 3), {0, 0, 9, 8}},    // moved inside, the extent stays
        {Area(-1000000000, 0, 1000000000, 5), {0, 0, 20, 6}},
        {Area(5, 5, 5, 5), {5, 5, 1, 1}},
        {Area(25, 3, 30, 7), {}}, // nothing there
        {Area(9, 7, 2, 5), {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.area.left << ' ' << row.area.top);
        const Picture source = Sample();
        for (const Picture& copy : {Make(3, 3), source}) { // also onto itself
            EXPECT_TRUE(copy->CopyFrom(source.Get(), row.area));
            EXPECT_EQ(size<int>(row.copied.width, row.copied.height), copy->GetSize());
            ASSERT_EQ(!row.copied.IsEmpty(), copy->GetBitmap().IsOk());
            if (!row.copied.IsEmpty())
                ExpectSamePixels(SampleAt(row.copied), Read(copy), "copy");
        }
    }
    const Picture kept = Sample();
    EXPECT_FALSE(kept->CopyFrom(nullptr, Area(0, 0, 0, 0)));
    ExpectSample(kept);
}

TEST(RasterPicture, ChangesOfACopyStayInTheCopy)
{
    using Change = void (*)(const Picture&);
    const Change changes[] = {
        [](const Picture& p) {
            FillPicture(*p, clRed, {0, 0, 20, 10});
        },
        [](const Picture& p) {
            p->Blur({3, 3}, Area(2, 2, 18, 8));
        },
        [](const Picture& p) { p->Scale(5, 5); },
        [](const Picture& p) { p->SetMask(Make(20, 10).Get()); },
        [](const Picture& p) {
            const Picture from = Make(20, 10);
            FillPicture(*from, clBlue, {0, 0, 20, 10});
            const CPaintScope scope(*from->TakeDefPainter());
            from->TakeDefPainter()->ExtractRasterPicture(p.Get(), 0, 0, 20, 10);
        },
    };
    for (const Change& change : changes)
        for (const bool changeCopy : {true, false}) {
            const Picture source = Sample(), copy = Make(1, 1);
            copy->CopyFrom(source.Get(), Area(0, 0, 0, 0));
            change(changeCopy ? copy : source);
            const Picture& other = changeCopy ? source : copy;
            ExpectSample(other);
            EXPECT_EQ(nullptr, other->GetBitmap().GetMask());
        }
}

// ---- painters

TEST(RasterPicture, OffersItsDefaultPainterOnly)
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
    picture->CopyFrom(Make(5, 5).Get(), Area(0, 0, 0, 0));
    EXPECT_EQ(painter, picture->TakeDefPainter());
}

TEST(RasterPicture, IsExtractedThroughItsMask)
{
    const Picture source = Sample(), mask = Make(20, 10), target = Make(20, 10);
    FillPicture(*mask, clWhite, {0, 0, 20, 10});
    FillPicture(*mask, clBlack, {0, 0, 3, 10});
    source->SetMask(mask.Get());
    FillPicture(*target, clRed, {0, 0, 20, 10});
    const CPaintScope scope(*source->TakeDefPainter());
    source->TakeDefPainter()->ExtractRasterPicture(target.Get(), 0, 0, 20, 10);
    EXPECT_EQ(0xff0000u, Read(target).At(2, 5));
    EXPECT_EQ(ColourOf(3, 5), Read(target).At(3, 5));
}

TEST(RasterPicture, MayBeNone)
{
    CwxRstPainter painter(nullptr);
    const CPaintScope scope(painter);
    EXPECT_TRUE(scope.IsOk());
    painter.FillRect(0, 0, 10, 10);
    EXPECT_TRUE(painter.GetDrawRect().IsNull());
}

TEST(RasterPicture, MayChangeInTheMiddleOfAPaint)
{
    const Picture source = Sample();
    Picture picture = Make(30, 30);
    {
        IPainter& painter = *picture->TakeDefPainter();
        const CPaintScope scope(painter);
        painter.SetBrush(brush{clRed, bsSolid});
        picture->CopyFrom(source.Get(), Area(0, 0, 0, 0));
        painter.FillRect(0, 0, 30, 30);
        picture->Scale(20, 10);
        painter.FillRect(0, 0, 30, 30);
        painter.DrawRasterPicture(picture.Get(), 0, 0, 20, 10);
        painter.AlphaBlend(0, 0, 20, 10, picture.Get(), 100);
        painter.ExtractRasterPicture(source.Get(), 0, 0, 5, 5);
    }
    EXPECT_EQ(size<int>(20, 10), picture->GetSize());
    EXPECT_EQ(ColourOf(19, 9), Read(source).At(19, 9));
    const Picture own = Sample();
    {
        const CPaintScope scope(*own->TakeDefPainter());
        own->TakeDefPainter()->DrawRasterPicture(own.Get(), 10, 0, 20, 10);
    }
    EXPECT_EQ(ColourOf(3, 4), Read(own).At(13, 4));
    const CPaintScope dying(*picture->TakeDefPainter());
    picture.Reset();
}

TEST(RasterPicture, Metrics)
{
    const Picture picture = Sample(32, 16);
    picture->SetSize({50, 60});
    const wxSize screenMM = wxScreenDC().GetSizeMM();
    const auto check = [&] {
        const int expected[][2] = {{0, 50},   {1, 60},      {2, 8},          {3, 8}, // the width again
                                   {4, 1280}, {5, 1024},    {6, screenMM.x}, {7, screenMM.y},
                                   {9, 24},   {8, 1 << 24}, {10, 0},         {11, 96},
                                   {12, 96},  {13, 0},      {-1, 0},         {1000, 0}};
        for (const auto& row : expected)
            EXPECT_EQ(row[1], picture->GetCanvasMetrics(static_cast<ICanvas::CanvasMetrics>(row[0])))
                << row[0];
    };
    check();
    const CPaintScope scope(*picture->TakeDefPainter());
    check();
}

// ---- changes

TEST(RasterPicture, Blurs)
{
    struct Row
    {
        size<int> radius;
        screen_rectangle<int> area;
        wxRect box; // where there is anything of the one white pixel at (9, 4)
    };
    const screen_rectangle<int> all = Area(0, 0, 0, 0);
    const wxRect still(9, 4, 1, 1);
    const Row rows[] = {
        {{0, 0}, all, still},
        {{-1, 0}, all, still},
        {{3, 0}, all, {6, 4, 7, 1}},
        {{0, 2}, all, {9, 2, 1, 5}},
        {{3, 2}, all, {6, 2, 7, 5}},
        {{900, 0}, all, {0, 4, 20, 1}},
        {{0, 900}, all, {9, 0, 1, 10}},
        {{3, 3}, Area(8, 2, 11, 6), {8, 2, 3, 4}}, // inside the area only
        {{3, 0}, Area(10, 2, 14, 9), still},
        {{3, 0}, Area(4, 2, 24, 9), still}, // no such part
        {{3, 0}, Area(9, 2, 4, 9), still},
        {{3, 0}, Area(-1, 0, 10, 5), still},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message()
                     << row.radius.width << ' ' << row.radius.height << ' ' << row.area.left);
        const Picture picture = Make(20, 10);
        FillPicture(*picture, clBlack, {0, 0, 20, 10});
        FillPicture(*picture, clWhite, {9, 4, 10, 5});
        picture->Blur(row.radius, row.area);
        EXPECT_EQ(row.box, BoxOfOthers(Read(picture), 0));
        EXPECT_EQ(size<int>(20, 10), picture->GetSize());
    }
}

TEST(RasterPicture, ScalesSmoothly)
{
    const wxImage before = Sample()->GetBitmap().ConvertToImage();
    for (const wxSize& wanted : {wxSize(40, 20), wxSize(7, 31), wxSize(1, 1), wxSize(0, 5), wxSize(5, -1),
                                 wxSize(40000, 1), wxSize(100000, 100000)}) {
        const bool possible = wanted.x >= 1 && wanted.y >= 1 && wanted.x < 40000;
        const Picture picture = Sample();
        picture->Scale(wanted.x, wanted.y);
        const wxSize is = possible ? wanted : wxSize(20, 10);
        ExpectSamePixels(Pixels(before.Scale(is.x, is.y, wxIMAGE_QUALITY_HIGH)), Read(picture), "scaled");
        EXPECT_EQ(size<int>(is.x, is.y), picture->GetSize());
    }
}

TEST(RasterPicture, MasksWithBlackAsTransparent)
{
    wxImage image(20, 10);
    image.SetRGB(wxRect(0, 0, 20, 10), 255, 255, 255);
    image.SetRGB(wxRect(5, 2, 4, 3), 0, 0, 0);
    image.SetRGB(wxRect(15, 2, 1, 1), 0, 0, 1); // nearly black
    const Picture mask = Make(1, 1);
    const Picture picture = Sample();
    picture->SetMask(nullptr);
    picture->SetMask(Make(0, 0).Get());
    EXPECT_EQ(nullptr, picture->GetBitmap().GetMask());
    for (const int depth : {-1, 1}) {
        Bitmap2RasterPicture(wxBitmap(image, depth), mask.Get());
        picture->SetMask(mask.Get());
        for (int y = 0; y < 10; ++y)
            for (int x = 0; x < 20; ++x) {
                const bool solid = !wxRect(5, 2, 4, 3).Contains(x, y);
                EXPECT_EQ(solid, IsSolid(picture, x, y) || (depth == 1 && x == 15)) << x << ',' << y;
            }
    }
    EXPECT_EQ(ColourOf(0, 9), Read(picture).At(0, 9));
    for (const wxSize& other : {wxSize(5, 3), wxSize(50, 30)}) { // than the picture
        picture->SetMask(Sample(other.x, other.y).Get());
        const Picture canvas = Make(30, 30);
        const CPaintScope scope(*canvas->TakeDefPainter());
        canvas->TakeDefPainter()->DrawRasterPicture(picture.Get(), 0, 0, 20, 10);
    }
}

// All that a picture can do, for pictures that are not what they say.
void DoEverything(const Picture& picture)
{
    const Picture other = Sample();
    const std::string file = (std::filesystem::temp_directory_path() / "vela7-picture.xpm").string();
    std::vector<unsigned char> transparencies(static_cast<std::size_t>(200 * 200), 100);
    const auto draw = [&](IPainter& painter) {
        const CPaintScope scope(painter);
        painter.Rectangle(0, 0, 90, 90);
        painter.DrawString(1, 1, "text");
        painter.DrawRasterPicture(picture.Get(), 0, 0, 90, 90);
        painter.DrawRasterPictureEx(picture.Get(), {30, 30, 90, 90}, {0, 0, 60, 60});
        painter.ExtractRasterPicture(picture.Get(), 0, 0, 90, 90);
        painter.ExtractRasterPictureEx(picture.Get(), {30, 30, 90, 90}, {0, 0, 60, 60});
        painter.AlphaBlend(0, 0, 90, 90, picture.Get(), 100);
        if (picture->GetSize().width <= 200) // the length of the caller's rows
            painter.AlphaBlend(0, 0, 90, 90, picture.Get(), transparencies.data());
        painter.GetPixel(80, 80);
        painter.DrawControlElement(ceCheckBoxChecked, 0, 0, 90, 90, 0);
        painter.GetTextSize("text");
        fontmetrics metrics;
        painter.GetFontMetrics(&metrics);
    };
    const Picture canvas = Make(100, 100);
    draw(*canvas->TakeDefPainter());
    draw(*picture->TakeDefPainter());
    other->CopyFrom(picture.Get(), Area(0, 0, 80, 80));
    other->CopyFrom(picture.Get(), Area(40, 40, 80, 80));
    other->SetMask(picture.Get());
    other->CopyFrom(picture.Get(), Area(0, 0, 0, 0));
    other->Save(file);
    for (int code = 0; code < 14; ++code)
        picture->GetCanvasMetrics(static_cast<ICanvas::CanvasMetrics>(code));
    picture->SetMask(canvas.Get());
    picture->Blur({2, 2}, Area(20, 5, 80, 80));
    picture->Save(file);
    picture->Blur({2, 2}, Area(0, 0, 0, 0));
    picture->Scale(70, 70);
    std::filesystem::remove(file);
}

TEST(RasterPicture, RecordedSizeNeedNotBeThatOfThePixels)
{
    for (const size<int>& odd : {size<int>(100, 90), size<int>(5, 3), size<int>(0, 0), size<int>(-7, 4),
                                 size<int>(INT_MAX, INT_MAX)}) {
        const Picture picture = Sample();
        picture->SetSize(odd);
        EXPECT_EQ(odd, picture->GetSize());
        EXPECT_EQ(rectangle<int>(0, 0, odd.width, odd.height), picture->TakeDefPainter()->GetDrawRect());
        ExpectSamePixels(SampleAt({0, 0, 20, 10}), Read(picture), "pixels");
        const Picture copy = Make(1, 1);
        copy->CopyFrom(picture.Get(), Area(0, 0, 90, 80));
        const bool any = odd.width > 0 && odd.height > 0;
        EXPECT_EQ(any ? size<int>(std::min(odd.width, 20), std::min(odd.height, 10)) : size<int>(),
                  copy->GetSize());
        DoEverything(picture);
    }
    for (const size<int>& none : {size<int>(0, 0), size<int>(0, 7), size<int>(-5, 3), size<int>(40000, 1),
                                  size<int>(INT_MAX, INT_MAX)}) {
        const Picture picture = Make(none.width, none.height);
        EXPECT_EQ(none, picture->GetSize());
        DoEverything(picture);
        EXPECT_FALSE(picture->GetBitmap().IsOk()) << none.width;
    }
    const Picture picture = Sample();
    Bitmap2RasterPicture(wxBitmap(), picture.Get());
    EXPECT_EQ(size<int>(0, 0), picture->GetSize());
    Bitmap2RasterPicture(wxBitmap(3, 3), nullptr);
}

// ---- XPM lines and files

TEST(RasterPicture, FromXPM)
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
        EXPECT_EQ(0xffffffu, Read(picture).At(1, 0));
        EXPECT_EQ(0xff0000u, Read(picture).At(2, 1));
        picture->ConvertFromXPM(XPMImage(opaque), useMask);
        EXPECT_EQ(useMask, picture->GetBitmap().GetMask() != nullptr);
        EXPECT_TRUE(IsSolid(picture, 0, 0) && IsSolid(picture, 1, 0));
    }
}

class Files : public testing::Test
{
protected:
    void SetUp() override
    {
        char name[] = "/tmp/vela7-pictures.XXXXXX";
        ASSERT_NE(nullptr, mkdtemp(name));
        m_directory = name;
    }
    void TearDown() override { std::filesystem::remove_all(m_directory); }

    std::string Path(const std::string& name) const { return (m_directory / name).string(); }

    std::string Write(const std::string& text) const
    {
        std::ofstream(Path("written.xpm"), std::ios::binary) << text;
        return Path("written.xpm");
    }

    // What ImageMagick sees in the file, and what is in the picture; what is transparent is white.
    static void ExpectSame(const std::string& path, const Picture& picture)
    {
        ASSERT_TRUE(picture->GetBitmap().IsOk());
        const wxImage image = picture->GetBitmap().ConvertToImage();
        std::string expected = std::to_string(image.GetWidth()) + ' ' + std::to_string(image.GetHeight());
        EXPECT_EQ(expected, RunProgram({"identify", "-format", "%w %h", path}).output);
        expected.clear();
        for (int y = 0; y < image.GetHeight(); ++y)
            for (int x = 0; x < image.GetWidth(); ++x)
                for (const unsigned char c : {image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y)})
                    expected += image.IsTransparent(x, y) ? '\xff' : static_cast<char>(c);
        const std::vector<std::string> flattened = {"convert", path,     "-background", "white", "-alpha",
                                                    "remove",  "-depth", "8",           "rgb:-"};
        EXPECT_TRUE(expected == RunProgram(flattened).output) << path;
    }

    std::filesystem::path m_directory;
};

TEST_F(Files, AreThoseOfOtherPrograms)
{
    const Picture circle = Make(1, 1);
    const std::string made = Path("made.xpm");
    ASSERT_EQ(0, RunProgram({"convert", "-size", "33x65", "xc:none", "-fill", "orange", "-draw",
                             "circle 16,30 16,12", "+antialias", made})
                     .exitCode);
    circle->Load(made);
    EXPECT_EQ(size<int>(33, 65), circle->GetSize());
    ExpectSame(made, circle);
    for (const wxSize& extent : {wxSize(1, 1), wxSize(37, 100)}) { // one and two characters a pixel
        const Picture picture = Sample(extent.x, extent.y), loaded = Make(1, 1);
        picture->Save(Path("saved.png")); // as XPM all the same
        std::filesystem::rename(Path("saved.png"), Path("saved.xpm"));
        ExpectSame(Path("saved.xpm"), picture);
        loaded->Load(Path("saved.xpm"));
        EXPECT_EQ(size<int>(extent.x, extent.y), loaded->GetSize());
        ExpectSamePixels(Read(picture), Read(loaded), "loaded");
    }
    const Picture masked = Sample(), mask = Make(20, 10);
    FillPicture(*mask, clWhite, {0, 0, 20, 10});
    FillPicture(*mask, clBlack, {3, 3, 9, 9});
    masked->SetMask(mask.Get());
    for (const char* const name : {"masked.xpm", "again.xpm"}) { // also once it has been read back
        masked->Save(Path(name));
        ExpectSame(Path(name), masked);
        EXPECT_FALSE(IsSolid(masked, 3, 3));
        EXPECT_TRUE(IsSolid(masked, 2, 3));
        masked->Load(Path(name));
    }
    Make(0, 0)->Save(Path("empty.xpm"));
    EXPECT_FALSE(std::filesystem::exists(Path("empty.xpm")));
    masked->Save(Path("missing/directory.xpm"));
    EXPECT_FALSE(TakeFaults(Fault::wxLog).empty());
}

std::string Quoted(const std::vector<std::string>& lines)
{
    std::string text = "/* XPM */\nstatic const char *x[] = {\n";
    for (const std::string& line : lines)
        text += '"' + line + "\",\n";
    return text + "};\n";
}

// Lines that are no picture, or none that the screen can hold.
std::vector<std::vector<std::string>> HostileLines()
{
    return {
        {""},
        {"x"},
        {"1 1 1"},
        {"0 0 0 0"},
        {"0 1 1 1", "a c red", ""},
        {"-1 -1 1 1", "a c red", "a"},
        {"1 1 -1 1", "a c red", "a"},
        {"99999999999999999999 1 1 1", "a c red", "a"},
        {"2147483647 2147483647 1 1", "a c red", "a"},
        {"65537 65536 1 1", "a c red", std::string(65537, 'a'), std::string(65537, 'a')},
        {"40000 1 1 1", "a c red", std::string(40000, 'a')},
        {"1 1 2147483647 1", "a c red", "a"},
        {"1 1 1 64", std::string(64, 'a') + " c red", std::string(64, 'a')},
        {"1 1 1 2147483647", "a c red", "a"},
        {"1 1 1 1", "a", "a"},
        {"1 1 1 1", "a c nocolour", "a"},
        {"1 1 1 1", "a c #12", "a"},
        {"1 1 1 1", "a c red", "b"},
        {"3 1 1 1", "a c red", "aa"},
    };
}

TEST(RasterPicture, HostileLinesChangeNothing)
{
    for (const std::vector<std::string>& lines : HostileLines()) {
        SCOPED_TRACE(lines[0]);
        int width = 0, height = 0, colours = 0;
        std::sscanf(lines[0].c_str(), "%d %d %d", &width, &height, &colours);
        if (height > 70000 || colours > 70000)
            continue; // as lines they would have to be there
        std::vector<const char*> pointers(static_cast<std::size_t>(4 + std::abs(height) + std::abs(colours)));
        std::transform(lines.begin(), lines.end(), pointers.begin(),
                       [](const auto& line) { return line.c_str(); });
        const XPMImage image(pointers.data());
        const Picture picture = Sample();
        picture->ConvertFromXPM(image, true);
        ExpectSample(picture);
        {
            const CPaintScope scope(*picture->TakeDefPainter());
            picture->TakeDefPainter()->DrawXPM(image, 0, 0);
        }
        ExpectSample(picture);
    }
    // A picture of 4 GB and some bytes, from a handful of lines.
    const std::string line(37838, 'a');
    std::vector<const char*> many = {"37838 37837 1 1", "a c red"};
    many.resize(2 + 37837, line.c_str());
    const Picture picture = Sample();
    picture->ConvertFromXPM(XPMImage(many.data()), true);
    ExpectSample(picture);
    // The same key twice is odd, not hostile.
    const char* const twice[] = {"1 1 2 1", "a c red", "a c blue", "a"};
    picture->ConvertFromXPM(XPMImage(twice), true);
    EXPECT_EQ(size<int>(1, 1), picture->GetSize());
}

TEST_F(Files, HostileFilesChangeNothing)
{
    std::vector<std::string> texts = {"",
                                      "GIF89a",
                                      "/* XPM */",
                                      "/* XPM */ /* ",
                                      "/* XPM */ /*",
                                      "/* XPM */ \"",
                                      "/* XPM */ \"1 1 1 1\", \"a c red\", \"a",
                                      "/* XPM */ 'x",
                                      "/* XPM *//* a *//* \" */ \"1 1 1 1\", \"a c re",
                                      std::string(3000, '"'),
                                      "/* XPM */\n" + std::string(3000, '\0')};
    for (const std::vector<std::string>& lines : HostileLines())
        texts.push_back(Quoted(lines));
    const std::string whole =
        Quoted({"9 4 2 1", "a c red", "b c None", "ababababa", "aaaaaaaaa", "bbbbbbbbb", "aaaabbbbb"});
    for (std::size_t length = 0; length < whole.size() - 8; ++length) // cut before its last line ends
        texts.push_back(whole.substr(0, length));
    const Picture picture = Sample();
    for (const std::string& text : texts) {
        SCOPED_TRACE(text.substr(0, 200));
        picture->Load(Write(text));
        ExpectSample(picture);
        TakeFaults(Fault::wxLog); // wx may say what it thinks of the file, the host decides how that is shown
    }
    picture->Load(Path("missing.xpm"));
    picture->Load(m_directory.string());
    EXPECT_FALSE(TakeFaults(Fault::wxLog).empty());
    ASSERT_TRUE(wxImage(40000, 1).SaveFile(Path("wide.png"), wxBITMAP_TYPE_PNG)); // too large for the screen
    picture->Load(Path("wide.png"));
    ExpectSample(picture);
    const Picture empty = Make(0, 5);
    empty->Load(Write("GIF89a"));
    EXPECT_EQ(size<int>(0, 0), empty->GetSize()); // the size follows the pixels in any case
    TakeFaults(Fault::wxLog);
    picture->Load(Write(whole));
    EXPECT_EQ(size<int>(9, 4), picture->GetSize());
    EXPECT_FALSE(IsSolid(picture, 0, 2));
}

} // namespace
} // namespace vela7
