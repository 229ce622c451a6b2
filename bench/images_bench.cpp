// Images: to XPM lines against wx's own XPM writer, icons of an image list against wxImageList, disabled
// images, and animations. What draws is timed together with the X server's work.

#include "scenes.h"

#include "vela7/painter.h"
#include "vela7/wxanimation.h"
#include "vela7/wximagelist.h"
#include "vela7/wxwinpainter.h"
#include "vela7/wxxpm.h"

#include <gtk/gtk.h>
#include <wx/anidecod.h>
#include <wx/dc.h>
#include <wx/frame.h>
#include <wx/imaggif.h>
#include <wx/imaglist.h>
#include <wx/imagxpm.h>
#include <wx/mstream.h>
#include <wx/palette.h>

#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace {

using namespace vela7;
using namespace vela7::bench;

// ---- to XPM

// That many colours, each of them at least once, in no order.
wxImage Colorful(int width, int height, std::uint32_t colors)
{
    std::mt19937 random(7);
    wxImage image(width, height);
    unsigned char* rgb = image.GetData();
    for (std::uint32_t i = 0, end = static_cast<std::uint32_t>(width * height); i < end; ++i) {
        const std::uint32_t color = (i < colors ? i : random() % colors) * 0x9e3779b1u; // no two alike
        for (const int shift : {16, 8, 0})
            *rgb++ = static_cast<unsigned char>(color >> shift);
    }
    return image;
}

// wx's writer gets a stream that drops all: it is timed alone.
void Xpm(benchmark::State& state, bool toolkit, int width, int height, std::uint32_t colors)
{
    wxImage image = Colorful(width, height, colors);
    wxXPMHandler handler;
    wxCountingOutputStream nowhere;
    const AllocationCounter counter(state);
    for (auto _ : state)
        if (toolkit)
            convert::free_xpm_array(convert::wximage_to_xpm(&image));
        else
            handler.SaveFile(&image, nowhere, false);
}

// clang-format off
constexpr std::tuple<const char*, int, int, std::uint32_t> xpmScenes[] = {
    {"xpm 512 16",       512,  512,     16}, {"xpm 512 256",    512, 512, 256}, {"xpm 512 100000", 512, 512, 100000},
    {"xpm 1 MP 256",    1250,  800,    256}, {"xpm 10 MP 256", 3953, 2530, 256},
    {"xpm 1 MP 50000",  1250,  800,  50000}, {"xpm 10 MP 50000", 3953, 2530, 50000},
};
// clang-format on

// ---- icons and animations

constexpr int icons = 1000, side = 16, columns = 40;

wxImage Icon(int number)
{
    wxImage image(side, side);
    image.SetRGB(wxRect(0, 0, side, side), 255, 0, 255);
    image.SetRGB(wxRect(3, 3, 10, 10), 10, 200, static_cast<unsigned char>(number));
    image.SetMaskColour(255, 0, 255);
    return image;
}

// A window in the middle of a paint.
struct Scene
{
    Scene() { stage.Show(window), painter.BeginPaint(ssAsIs); }
    ~Scene() { painter.EndPaint(); }

    Stage stage;
    wxWindow* const window = new wxWindow(stage.Frame(), wxID_ANY);
    CwxWinPainter painter{window};
};

template <class Draw>
void Time(benchmark::State& state, int count, Draw draw)
{
    SyncX();
    const AllocationCounter counter(state);
    for (auto _ : state) {
        for (int i = 0; i < count; ++i)
            draw(i, i % columns * side, i / columns * side);
        SyncX();
    }
}

// wx's list knows no disabled icons: it gets the images that ours makes, as icons of their own.
void Icons(benchmark::State& state, bool toolkit, bool normal)
{
    Scene scene;
    CwxImageList ours;
    wxImageList list(side, side);
    for (int i = 0; i < icons; ++i) {
        wxImage icon = Icon(i);
        ours.AddOriginalImage(icon);
        list.Add(wxBitmap(*ours.GetImage(i, normal)));
    }
    const auto draw = normal ? &CwxImageList::DrawTransparent : &CwxImageList::DrawDisabled;
    if (toolkit)
        Time(state, icons, [&](int i, int x, int y) { (ours.*draw)(&scene.painter, i, x, y, 0, 0); });
    else
        Time(state, icons, [&, dc = scene.painter.GetDC()](int i, int x, int y) {
            list.Draw(i, *dc, x, y, wxIMAGELIST_DRAW_TRANSPARENT);
        });
}

// A GIF of eight frames of 48 x 48, each with a hole.
std::vector<unsigned char> MovingGif()
{
    wxImageArray frames;
    for (int i = 0; i < 8; ++i) {
        const unsigned char red[] = {static_cast<unsigned char>(32 * i), 255}, green[] = {0, 255},
                            blue[] = {255, 0};
        wxImage frame(48, 48);
        frame.SetPalette(wxPalette(2, red, green, blue));
        frame.SetRGB(wxRect(0, 0, 48, 48), red[0], green[0], blue[0]);
        frame.SetRGB(wxRect(12, 12, 24, 24), red[1], green[1], blue[1]);
        frame.SetMaskColour(255, 255, 0);
        frames.Add(frame);
    }
    wxMemoryOutputStream stream;
    wxGIFHandler().SaveAnimation(frames, &stream, false, 10);
    std::vector<unsigned char> bytes(stream.GetSize());
    stream.CopyTo(bytes.data(), bytes.size());
    return bytes;
}

// On the other side, what one does without the toolkit.
void Animate(benchmark::State& state, bool toolkit)
{
    Scene scene;
    const std::vector<unsigned char> gif = MovingGif();
    wxMemoryInputStream stream(gif.data(), gif.size());
    wxAnimation animation;
    animation.Load(stream, wxANIMATION_TYPE_GIF);
    const auto ours = CreateAnimation(animation, false);
    GdkPixbufLoader* const loader = gdk_pixbuf_loader_new();
    gdk_pixbuf_loader_write(loader, gif.data(), gif.size(), nullptr);
    gdk_pixbuf_loader_close(loader, nullptr);
    GdkPixbufAnimationIter* const bare =
        gdk_pixbuf_animation_get_iter(gdk_pixbuf_loader_get_animation(loader), nullptr);
    if (toolkit)
        Time(state, 100, [&](int, int x, int y) { ours->NextFrame(), ours->Draw(&scene.painter, x, y); });
    else
        Time(state, 100, [&, dc = scene.painter.GetDC()](int, int x, int y) {
            gdk_pixbuf_animation_iter_advance(bare, nullptr);
            GdkPixbuf* const frame = gdk_pixbuf_animation_iter_get_pixbuf(bare);
            g_object_ref(frame); // for the bitmap
            dc->DrawBitmap(wxBitmap(frame), x, y, true);
        });
    g_object_unref(bare);
    g_object_unref(loader);
}

void Disabled(benchmark::State& state, bool toolkit)
{
    wxImage icon = Icon(100);
    const AllocationCounter counter(state);
    for (auto _ : state) {
        if (!toolkit) {
            benchmark::DoNotOptimize(icon.ConvertToDisabled());
            continue;
        }
        CwxImageList list;
        list.AddOriginalImage(icon);
        benchmark::DoNotOptimize(list.GetDisabledImage(0));
    }
}

const bool registered = [] {
    for (const auto& [side, toolkit] : {std::pair("/toolkit", true), std::pair("/wx", false)}) {
        const auto name = [end = side](const char* scene) { return std::string(scene) + end; };
        for (const auto& [scene, width, height, colors] : xpmScenes)
            benchmark::RegisterBenchmark(name(scene).c_str(), Xpm, toolkit, width, height, colors);
        benchmark::RegisterBenchmark(name("1000 icons").c_str(), Icons, toolkit, true);
        benchmark::RegisterBenchmark(name("1000 disabled").c_str(), Icons, toolkit, false);
        benchmark::RegisterBenchmark(name("first disabled").c_str(), Disabled, toolkit);
        benchmark::RegisterBenchmark(name("100 frames").c_str(), Animate, toolkit);
    }
    return true;
}();

} // namespace
