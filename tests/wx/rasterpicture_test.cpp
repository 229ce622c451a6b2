// Raster pictures: copying, changing, painting into them, files from and for other programs, hostile input.

#include "vela7/wxrasterpicture.h"

#include "support/faults.h"
#include "support/pixels.h"
#include "support/process.h"
#include "vela7/painter.h"
#include "vela7/wxconvert.h"
#include "vela7/wxrstpainter.h"
#include "vela7/xpm.h"

#include <climits>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
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

std::uint32_t ColourOf(int x, int y)
{
    return static_cast<std::uint32_t>((x * 11 & 0xff) << 16 | (y * 23 & 0xff) << 8 | ((x + y) * 5 & 0xff));
}

// No two pixels alike, unless it is very large.
Picture Sample(int width = 20, int height = 10)
{
    wxImage image(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const std::uint32_t c = ColourOf(x, y);
            image.SetRGB(x, y, static_cast<unsigned char>(c >> 16), static_cast<unsigned char>(c >> 8),
                         static_cast<unsigned char>(c));
        }
    Picture result = Make(width, height);
    Bitmap2RasterPicture(wxBitmap(image), result.Get());
    return result;
}

Pixels Read(const Picture& picture)
{
    return ReadPixels(picture->GetBitmap());
}

Pixels SampleAt(const wxRect& part)
{
    return Pixels(Sample()->GetBitmap().ConvertToImage().GetSubImage(part));
}

void Fill(const Picture& picture, const _color& color, const rectangle<double>& area)
{
    IPainter& painter = *picture->TakeDefPainter();
    const CPaintScope scope(painter);
    painter.SetBrush(brush{color, bsSolid});
    painter.FillRect(area.left, area.top, area.right, area.bottom);
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
        {Area(19, 9, 20, 10), {19, 9, 1, 1}},
        {Area(15, 8, 40, 40), {15, 8, 5, 2}}, // beyond
        {Area(15, 2, 40, 4), {15, 2, 5, 3}},
        {Area(-5, -4, 3, 3), {0, 0, 9, 8}}, // moved inside, the extent stays
        {Area(-1000000000, 0, 1000000000, 5), {0, 0, 20, 6}},
        {Area(5, 5, 5, 5), {5, 5, 1, 1}},
        {Area(25, 3, 30, 7), {}}, // nothing there
        {Area(9, 7, 2, 5), {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.area.left << ' ' << row.area.top << ' ' << row.area.right
                                        << ' ' << row.area.bottom);
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
    ExpectSamePixels(SampleAt({0, 0, 20, 10}), Read(kept), "kept");
}

TEST(RasterPicture, ChangesOfACopyStayInTheCopy)
{
    const Picture canvas = Make(20, 10);
    using Change = void (*)(const Picture&, const Picture&);
    const Change changes[] = {
        [](const Picture& p, const Picture&) {
            Fill(p, clRed, {0, 0, 20, 10});
        },
        [](const Picture& p, const Picture&) {
            p->Blur({3, 3}, Area(2, 2, 18, 8));
        },
        [](const Picture& p, const Picture&) { p->Scale(5, 5); },
        [](const Picture& p, const Picture&) { p->SetMask(Make(20, 10).Get()); },
        [](const Picture& p, const Picture& from) {
            Fill(from, clBlue, {0, 0, 20, 10});
            const CPaintScope scope(*from->TakeDefPainter());
            from->TakeDefPainter()->ExtractRasterPicture(p.Get(), 0, 0, 20, 10);
        },
    };
    for (const Change& change : changes)
        for (const bool changeCopy : {true, false}) {
            const Picture source = Sample(), copy = Make(1, 1);
            copy->CopyFrom(source.Get(), Area(0, 0, 0, 0));
            EXPECT_EQ(size<int>(20, 10), copy->GetSize());
            IPainter* const painter = copy->TakeDefPainter();
            change(changeCopy ? copy : source, canvas);
            const Picture& other = changeCopy ? source : copy;
            ExpectSamePixels(SampleAt({0, 0, 20, 10}), Read(other), "other");
            EXPECT_EQ(nullptr, other->GetBitmap().GetMask());
            EXPECT_EQ(painter, copy->TakeDefPainter());
        }
}

// ---- painters

TEST(RasterPicture, OffersItsDefaultPainterOnly)
{
    const Picture picture = Sample(32, 16);
    EXPECT_FALSE(picture->CreatePainter());
    EXPECT_FALSE(picture->HasMultiPainterSupport());
    IPainter* const painter = picture->TakeDefPainter();
    ASSERT_NE(nullptr, painter);
    EXPECT_EQ(painter, picture->TakeDefPainter());
    EXPECT_EQ(picture.Get(), painter->GetCanvas());
    EXPECT_EQ(rectangle<int>(0, 0, 32, 16), painter->GetDrawRect());
    EXPECT_EQ(nullptr, painter->GetDC());
    for (const StdSettings settings : {ssClear, ssBuffered, ssAsIs}) {
        const CPaintScope scope(*painter, settings);
        EXPECT_TRUE(scope.IsOk() && painter->IsFullRepaint() && painter->GetDC());
    }
    ExpectSamePixels(Read(Sample(32, 16)), Read(picture), "nothing is cleared");
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
    // Onto itself.
    const Picture own = Sample();
    {
        const CPaintScope scope(*own->TakeDefPainter());
        own->TakeDefPainter()->DrawRasterPicture(own.Get(), 10, 0, 20, 10);
    }
    EXPECT_EQ(ColourOf(3, 4), Read(own).At(13, 4));
    const CPaintScope dying(*picture->TakeDefPainter());
    picture.Reset();
}

// ---- metrics

TEST(RasterPicture, Metrics)
{
    const Picture picture = Sample(32, 16);
    picture->SetSize({50, 60});
    const wxSize screenMM = wxScreenDC().GetSizeMM();
    const auto metric = [&](int code) {
        return picture->GetCanvasMetrics(static_cast<ICanvas::CanvasMetrics>(code));
    };
    const auto check = [&] {
        const int expected[][2] = {{0, 50},         {1, 60}, {4, 1280},    {5, 1024}, {6, screenMM.x},
                                   {7, screenMM.y}, {9, 24}, {8, 1 << 24}, {10, 0},   {11, 96},
                                   {12, 96},        {13, 0}, {-1, 0},      {1000, 0}};
        for (const auto& row : expected)
            EXPECT_EQ(row[1], metric(row[0])) << row[0];
        EXPECT_EQ(8, metric(2)); // 32 pixels at 96 dpi
        EXPECT_EQ(8, metric(3)); // the width again
    };
    check();
    {
        const CPaintScope scope(*picture->TakeDefPainter());
        check();
    }
    const Picture empty = Make(0, 0);
    for (int code = 0; code < 14; ++code)
        empty->GetCanvasMetrics(static_cast<ICanvas::CanvasMetrics>(code));
    EXPECT_EQ(1280, empty->GetCanvasMetrics(ICanvas::cmScreenWidth));
}

// ---- changes

TEST(RasterPicture, BlursByWx)
{
    struct Row
    {
        size<int> radius;
        screen_rectangle<int> area;
        bool changes;
    };
    const Row rows[] = {
        {{0, 0}, Area(0, 0, 0, 0), false},  {{-1, 0}, Area(0, 0, 0, 0), false},
        {{3, 0}, Area(0, 0, 0, 0), true},   {{0, 2}, Area(0, 0, 0, 0), true},
        {{3, 2}, Area(0, 0, 0, 0), true},   {{2, 3}, Area(4, 2, 14, 9), true},
        {{3, 0}, Area(4, 2, 14, 9), true},  {{0, 0}, Area(4, 2, 14, 9), false},
        {{3, 0}, Area(4, 2, 24, 9), false}, {{3, 0}, Area(9, 2, 4, 9), false},
        {{3, 0}, Area(-1, 0, 5, 5), false}, {{900, 900}, Area(0, 0, 0, 0), true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message()
                     << row.radius.width << ' ' << row.radius.height << ' ' << row.area.left);
        const Picture picture = Sample();
        const wxImage before = picture->GetBitmap().ConvertToImage();
        wxImage expected = before;
        if (row.changes) {
            const wxRect part = row.area.IsNull() ? wxRect(0, 0, 20, 10)
                                                  : wxRect(wxPoint(row.area.left, row.area.top),
                                                           wxPoint(row.area.right - 1, row.area.bottom - 1));
            wxImage blurred = before.GetSubImage(part);
            if (row.radius.width > 0)
                blurred =
                    blurred.BlurHorizontal(std::min(row.radius.width, 19)); // wider ones mean the whole row
            if (row.radius.height > 0)
                blurred = blurred.BlurVertical(std::min(row.radius.height, 9));
            expected = before.Copy();
            expected.Paste(blurred, part.x, part.y);
        }
        picture->Blur(row.radius, row.area);
        ExpectSamePixels(Pixels(expected), Read(picture), "blur");
        EXPECT_EQ(size<int>(20, 10), picture->GetSize());
    }
}

TEST(RasterPicture, ScalesByWx)
{
    const wxImage before = Sample()->GetBitmap().ConvertToImage();
    for (const wxSize& wanted : {wxSize(40, 20), wxSize(7, 31), wxSize(1, 1)}) {
        const Picture picture = Sample();
        picture->Scale(wanted.x, wanted.y);
        EXPECT_EQ(size<int>(wanted.x, wanted.y), picture->GetSize());
        ExpectSamePixels(Pixels(before.Scale(wanted.x, wanted.y, wxIMAGE_QUALITY_HIGH)), Read(picture),
                         "scaled");
    }
    for (const wxSize& impossible : {wxSize(0, 5), wxSize(5, -1), wxSize(40000, 1), wxSize(100000, 100000)}) {
        const Picture picture = Sample();
        picture->Scale(impossible.x, impossible.y);
        ExpectSamePixels(Pixels(before), Read(picture), "kept");
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
            for (int x = 0; x < 20; ++x)
                EXPECT_EQ(!wxRect(5, 2, 4, 3).Contains(x, y),
                          IsSolid(picture, x, y) || (depth == 1 && x == 15))
                    << x << ',' << y << " depth " << depth;
    }
    EXPECT_EQ(ColourOf(0, 9), Read(picture).At(0, 9));
    for (const wxSize& other : {wxSize(5, 3), wxSize(50, 30)}) { // than the picture
        picture->SetMask(Sample(other.x, other.y).Get());
        const Picture canvas = Make(30, 30);
        const CPaintScope scope(*canvas->TakeDefPainter());
        canvas->TakeDefPainter()->DrawRasterPicture(picture.Get(), 0, 0, 20, 10);
    }
    Make(0, 0)->SetMask(mask.Get());
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
    Picture picture = Sample();
    picture->SetSize({20, 10});
    picture->SetSize({100, 90});
    EXPECT_EQ(size<int>(100, 90), picture->GetSize());
    EXPECT_EQ(rectangle<int>(0, 0, 100, 90), picture->TakeDefPainter()->GetDrawRect());
    ExpectSamePixels(SampleAt({0, 0, 20, 10}), Read(picture), "pixels");
    DoEverything(picture);
    for (const size<int>& odd :
         {size<int>(5, 3), size<int>(0, 0), size<int>(-7, 4), size<int>(INT_MAX, INT_MAX)}) {
        picture = Sample();
        picture->SetSize(odd);
        EXPECT_EQ(odd, picture->GetSize());
        DoEverything(picture);
    }
}

TEST(RasterPicture, WithoutPixels)
{
    for (const size<int>& none : {size<int>(0, 0), size<int>(0, 7), size<int>(-5, 3), size<int>(40000, 1),
                                  size<int>(INT_MAX, INT_MAX)}) {
        SCOPED_TRACE(testing::Message() << none.width << " x " << none.height);
        const Picture picture = Make(none.width, none.height);
        EXPECT_EQ(none, picture->GetSize());
        EXPECT_FALSE(picture->GetBitmap().IsOk());
        DoEverything(picture);
        EXPECT_FALSE(picture->GetBitmap().IsOk());
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
    const Picture picture = Sample();
    for (const bool useMask : {true, false}) { // wx gives the bitmap the transparency of the image anyway
        picture->ConvertFromXPM(XPMImage(lines), useMask);
        EXPECT_EQ(size<int>(3, 2), picture->GetSize());
        EXPECT_EQ(0xff0000u, Read(picture).At(0, 0));
        EXPECT_EQ(0xffffffu, Read(picture).At(1, 0));
        EXPECT_EQ(0xff0000u, Read(picture).At(2, 1));
        for (int i = 0; i < 6; ++i)
            EXPECT_EQ("110001"[i] == '1', IsSolid(picture, i % 3, i / 3)) << i;
    }
    // Without transparency the mask lets everything through.
    const char* const opaque[] = {"2 1 2 1", "r c #FF0000", "b c #000000", "rb"};
    for (const bool useMask : {true, false}) {
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

    static std::string ReadText(const std::string& path)
    {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    // What ImageMagick sees in the file, and what is in the picture.
    static void ExpectSame(const std::string& path, const Picture& picture)
    {
        ASSERT_TRUE(picture->GetBitmap().IsOk());
        const wxImage image = picture->GetBitmap().ConvertToImage();
        EXPECT_EQ(std::to_string(image.GetWidth()) + ' ' + std::to_string(image.GetHeight()),
                  RunProgram({"identify", "-format", "%w %h", path}).output);
        const ProgramResult seen = RunProgram({"convert", path, "-depth", "8", "rgba:-"});
        ASSERT_EQ(0, seen.exitCode);
        ASSERT_EQ(static_cast<std::size_t>(image.GetWidth() * image.GetHeight() * 4), seen.output.size());
        int different = 0;
        for (int i = 0; i < image.GetWidth() * image.GetHeight(); ++i) {
            const int x = i % image.GetWidth(), y = i / image.GetWidth();
            const auto byte = [&](int k) {
                return static_cast<unsigned char>(seen.output[static_cast<std::size_t>(i * 4 + k)]);
            };
            const bool solid = byte(3) != 0;
            different += solid == image.IsTransparent(x, y) ||
                         (solid && (byte(0) != image.GetRed(x, y) || byte(1) != image.GetGreen(x, y) ||
                                    byte(2) != image.GetBlue(x, y)));
        }
        EXPECT_EQ(0, different) << path;
    }

    std::filesystem::path m_directory;
};

TEST_F(Files, AnotherProgramReadsWhatIsSaved)
{
    for (const wxSize& extent :
         {wxSize(1, 1), wxSize(20, 10), wxSize(37, 100)}) { // one and two characters a pixel
        const Picture picture = Sample(extent.x, extent.y);
        picture->Save(Path("saved.png"));
        EXPECT_EQ("/* XPM */", ReadText(Path("saved.png")).substr(0, 9));
        std::filesystem::rename(Path("saved.png"), Path("saved.xpm"));
        ExpectSame(Path("saved.xpm"), picture);
        const Picture loaded = Make(1, 1);
        loaded->Load(Path("saved.xpm"));
        EXPECT_EQ(size<int>(extent.x, extent.y), loaded->GetSize());
        ExpectSamePixels(Read(picture), Read(loaded), "loaded");
    }
    const Picture masked = Sample();
    const Picture mask = Make(20, 10);
    Fill(mask, clWhite, {0, 0, 20, 10});
    Fill(mask, clBlack, {3, 3, 9, 9});
    masked->SetMask(mask.Get());
    for (const char* const name : {"masked.xpm", "again.xpm"}) { // also once it has been read back
        masked->Save(Path(name));
        ExpectSame(Path(name), masked);
        EXPECT_FALSE(IsSolid(masked, 3, 3));
        EXPECT_TRUE(IsSolid(masked, 2, 3));
        masked->Load(Path(name));
    }
    const Picture empty = Make(0, 0);
    empty->Save(Path("empty.xpm"));
    EXPECT_FALSE(std::filesystem::exists(Path("empty.xpm")));
    masked->Save(Path("missing/directory.xpm"));
    EXPECT_FALSE(TakeFaults(Fault::wxLog).empty());
}

TEST_F(Files, LoadsWhatAnotherProgramMade)
{
    const std::vector<std::string> made[] = {
        {"-size", "1x1", "xc:red"},
        {"-size", "16x16", "gradient:red-blue"},
        {"-size", "7x5", "xc:none"},
        {"-size", "33x65", "xc:none", "-fill", "orange", "-draw", "circle 16,30 16,12", "+antialias"},
        {"-size", "300x2", "gradient:black-white", "-rotate", "90"},
        {"-size", "64x64", "-seed", "7", "plasma:fractal", "-depth", "8", "-colors", "250"},
    };
    const Picture picture = Make(1, 1);
    for (std::vector<std::string> arguments : made) {
        arguments.insert(arguments.begin(), "convert");
        arguments.push_back(Path("made.xpm"));
        ASSERT_EQ(0, RunProgram(arguments).exitCode);
        picture->Load(Path("made.xpm"));
        ExpectSame(Path("made.xpm"), picture);
        const wxSize extent = picture->GetBitmap().GetSize();
        EXPECT_EQ(size<int>(extent.x, extent.y), picture->GetSize());
    }
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
    const Pixels before = SampleAt({0, 0, 20, 10});
    std::vector<std::vector<std::string>> all = HostileLines();
    for (const std::vector<std::string>& lines : all) {
        SCOPED_TRACE(lines[0]);
        int width = 0, height = 0, colours = 0;
        std::sscanf(lines[0].c_str(), "%d %d %d", &width, &height, &colours);
        if (height > 70000 || colours > 70000)
            continue; // as lines they would have to be there
        std::vector<const char*> pointers;
        for (const std::string& line : lines)
            pointers.push_back(line.c_str());
        pointers.resize(std::max<std::size_t>(
            pointers.size(), static_cast<std::size_t>(2 + std::abs(height) + std::abs(colours))));
        const XPMImage image(pointers.data());
        const Picture picture = Sample();
        picture->ConvertFromXPM(image, true);
        ExpectSamePixels(before, Read(picture), "converted");
        const CPaintScope scope(*picture->TakeDefPainter());
        picture->TakeDefPainter()->DrawXPM(image, 0, 0);
        picture->TakeDefPainter()->EndPaint();
        ExpectSamePixels(before, Read(picture), "drawn");
    }
    // A picture of 4 GB and some bytes, from a handful of lines.
    const std::string line(37838, 'a');
    std::vector<const char*> many = {"37838 37837 1 1", "a c red"};
    many.resize(2 + 37837, line.c_str());
    const Picture picture = Sample();
    picture->ConvertFromXPM(XPMImage(many.data()), true);
    ExpectSamePixels(before, Read(picture), "large");
    // The same key twice is odd, not hostile.
    const char* const twice[] = {"1 1 2 1", "a c red", "a c blue", "a"};
    picture->ConvertFromXPM(XPMImage(twice), true);
    EXPECT_EQ(size<int>(1, 1), picture->GetSize());
}

TEST_F(Files, HostileFilesGiveAnEmptyPicture)
{
    std::vector<std::string> texts = {"",
                                      "/* XPM */",
                                      "/* XPM */ /* ",
                                      "/* XPM */ /*",
                                      "/* XPM */ \"",
                                      "GIF89a",
                                      "/* XPM */ \"1 1 1 1\", \"a c red\", \"a",
                                      "/* XPM */ 'x",
                                      "/* XPM *//* a *//* \" */ \"1 1 1 1\", \"a c re",
                                      std::string(3000, '"'),
                                      "/* XPM */\n" + std::string(3000, '\0')};
    for (const std::vector<std::string>& lines : HostileLines())
        texts.push_back(Quoted(lines));
    const std::string whole =
        Quoted({"9 4 2 1", "a c red", "b c None", "ababababa", "aaaaaaaaa", "bbbbbbbbb", "aaaabbbbb"});
    for (std::size_t length = 0; length < whole.size() - 8;
         ++length) // cut anywhere before its last line ends
        texts.push_back(whole.substr(0, length));
    for (const std::string& text : texts) {
        SCOPED_TRACE(text.substr(0, 200));
        const Picture picture = Sample();
        picture->Load(Write(text));
        ExpectSamePixels(SampleAt({0, 0, 20, 10}), Read(picture), "kept");
        EXPECT_EQ(size<int>(20, 10), picture->GetSize());
        const Picture empty = Make(0, 5);
        empty->Load(Path("written.xpm"));
        EXPECT_EQ(size<int>(0, 0), empty->GetSize());
        TakeFaults(Fault::wxLog); // wx may say what it thinks of the file, the host decides how that is shown
    }
    const Picture picture = Sample();
    picture->Load(Path("missing.xpm"));
    picture->Load(m_directory.string());
    EXPECT_FALSE(TakeFaults(Fault::wxLog).empty());
    EXPECT_EQ(size<int>(20, 10), picture->GetSize());
    picture->Load(Write(whole));
    EXPECT_EQ(size<int>(9, 4), picture->GetSize());
    EXPECT_FALSE(IsSolid(picture, 0, 2));
    // Other kinds of picture that are too large for the screen.
    ASSERT_TRUE(wxImage(40000, 1).SaveFile(Path("wide.png"), wxBITMAP_TYPE_PNG));
    picture->Load(Path("wide.png"));
    EXPECT_EQ(size<int>(9, 4), picture->GetSize());
}

} // namespace
} // namespace vela7
