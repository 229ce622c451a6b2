// XPM: files and lines of other people are read or refused without a word, what was read or made comes back
// from the writer and from a saved file as it was.

#include "vela7/xpm.h"

#include "fuzz.h"
#include "gui.h"
#include "vela7/wxrasterpicture.h"
#include "vela7/wxxpm.h"

#include <wx/image.h>

#include <memory>
#include <random>
#include <set>

using namespace vela7;
using vela7::fuzz::Demand;
using vela7::fuzz::MemoryFile;

namespace {

// The colour at a pixel, 0xRRGGBB; -1 for what is transparent.
int At(const wxImage& image, int x, int y)
{
    if (image.HasAlpha() && image.GetAlpha(x, y) < 128)
        return -1;
    const int red = image.GetRed(x, y), green = image.GetGreen(x, y), blue = image.GetBlue(x, y);
    const bool masked = image.HasMask() && red == image.GetMaskRed() && green == image.GetMaskGreen() &&
                        blue == image.GetMaskBlue();
    return masked ? -1 : red << 16 | green << 8 | blue;
}

void DemandSame(const wxImage& a, const wxImage& b, const char* what)
{
    Demand(a.IsOk() && b.IsOk() && a.GetSize() == b.GetSize(), what);
    for (int y = 0; y < a.GetHeight(); ++y)
        for (int x = 0; x < a.GetWidth(); ++x)
            Demand(At(a, x, y) == At(b, x, y), what);
}

wxImage ImageOf(const CwxRasterPicture& picture)
{
    return picture.GetBitmap().IsOk() ? picture.GetBitmap().ConvertToImage() : wxImage();
}

// Through the writer and the reader of lines.
void CheckLines(const wxImage& image)
{
    const std::unique_ptr<char*, void (*)(char**)> lines(convert::wximage_to_xpm(&image),
                                                         &convert::free_xpm_array);
    XPMImage xpm;
    convert::fill_xpm_from_wximage(&xpm, &image);
    std::set<unsigned long> colours;
    for (int y = 0; y < image.GetHeight(); ++y)
        for (int x = 0; x < image.GetWidth(); ++x)
            colours.insert(static_cast<unsigned long>(image.GetRed(x, y) << 16 | image.GetGreen(x, y) << 8 |
                                                      image.GetBlue(x, y)));
    Demand(convert::scan_colors_count(&image) == colours.size(), "the number of colours");
    Demand(xpm.GetLineCount() == static_cast<int>(2 + colours.size()) + image.GetHeight(), "the lines");
    for (int i = 0; i < xpm.GetLineCount(); ++i)
        Demand(std::string(xpm.GetBuffer()[i]) == lines.get()[i], "the line");
    CwxRasterPicture picture{size<int>(1, 1)};
    picture.ConvertFromXPM(xpm, true);
    Demand(picture.GetSize() == size<int>(image.GetWidth(), image.GetHeight()), "the size");
    DemandSame(image, wxImage(lines.get()), "the image from the lines");
}

// Through a saved file.
void CheckFile(CwxRasterPicture& picture)
{
    static MemoryFile memory;
    const wxImage before = ImageOf(picture);
    if (!before.IsOk())
        return;
    memory.Write("");
    picture.Save(memory.Path());
    CwxRasterPicture loaded{size<int>(1, 1)};
    loaded.Load(memory.Path());
    DemandSame(before, ImageOf(loaded), "the picture from the file");
}

void CheckReading(FuzzedDataProvider& in)
{
    static MemoryFile memory;
    memory.Write("/* XPM */\n" + in.ConsumeRemainingBytesAsString()); // others are not read by us
    CwxRasterPicture picture{size<int>(2, 3)};
    picture.Load(memory.Path());
    CheckFile(picture);
    if (const wxImage image = ImageOf(picture); image.IsOk())
        CheckLines(image);
}

// As many lines as the first of them says, which is what the one who hands lines in owes.
void CheckLinesOfOthers(FuzzedDataProvider& in)
{
    const std::vector<std::string> texts = fuzz::Split(in.ConsumeRemainingBytesAsString(), '\n');
    std::vector<const char*> lines;
    for (const std::string& text : texts)
        lines.push_back(text.c_str());
    const XPMImage image(lines.data());
    if (image.GetLineCount() > static_cast<int>(lines.size()))
        return;
    for (const bool useMask : {false, true}) {
        CwxRasterPicture picture{size<int>(2, 3)};
        picture.ConvertFromXPM(image, useMask);
        CheckFile(picture);
    }
}

void CheckWriting(FuzzedDataProvider& in)
{
    const bool many = in.ConsumeBool(); // colours
    const int width = in.ConsumeIntegralInRange(1, many ? 100 : 20);
    const int height = in.ConsumeIntegralInRange(1, many ? 100 : 20);
    wxImage image(width, height);
    if (in.ConsumeBool())
        image.SetMaskColour(in.ConsumeIntegral<unsigned char>(), 0, in.ConsumeIntegral<unsigned char>());
    if (in.ConsumeBool())
        image.InitAlpha();
    const auto spread = in.ConsumeIntegralInRange<std::uint32_t>(1, 1 << 24);
    std::minstd_rand random(in.ConsumeIntegral<unsigned char>());
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const std::uint32_t value =
                many || in.remaining_bytes() == 0 ? random() % spread : in.ConsumeIntegral<unsigned char>();
            const auto part = [value](int shift) { return static_cast<unsigned char>(value >> shift); };
            image.SetRGB(x, y, part(0), part(8), part(16));
            if (image.HasAlpha())
                image.SetAlpha(x, y, part(4));
        }
    CheckLines(image);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz::StartApplication();
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    FuzzedDataProvider in(data + 1,
                          size - 1); // the first byte says what is tried; seeds are readable this way
    if (data[0] == 'l')
        CheckLinesOfOthers(in);
    else if (data[0] == 'w')
        CheckWriting(in);
    else
        CheckReading(in);
    fuzz::Settle();
    return 0;
}
