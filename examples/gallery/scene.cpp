#include "scene.h"

#include "style.h"

#include "vela7/system.h"

#include <cmath>

namespace gallery {

using namespace vela7;

namespace {

// clang-format off
const char* const boatLines[] = {
    "20 20 6 1",
    "  c None",
    ". c #3A3F4A",
    "o c #F4F1E8",
    "s c #D64550",
    "h c #8A5A32",
    "w c #3A7BD5",
    "          .         ",
    "          .ss       ",
    "          .ssss     ",
    "          .ss       ",
    "         o.         ",
    "         o.o        ",
    "        oo.oo       ",
    "       ooo.oo       ",
    "       ooo.ooo      ",
    "      oooo.oooo     ",
    "     ooooo.oooo     ",
    "    oooooo.ooooo    ",
    "   ooooooo.oooooo   ",
    "          .         ",
    "  hhhhhhhhhhhhhhhh  ",
    "   hhhhhhhhhhhhhh   ",
    "    hhhhhhhhhhhh    ",
    "ww  wwww  wwww  wwww",
    "  ww    ww    ww    ",
    "   wwww  wwww  wwww ",
};
// clang-format on

void Hill(IPainter& painter, double left, double right, double foot, double height, const _color& color)
{
    std::vector<point<double>> points{{left, foot}};
    for (int i = 1; i < 24; ++i)
        points.push_back({left + (right - left) * i / 24, foot - height * std::sin(3.14159 * i / 24)});
    points.push_back({right, foot});
    painter.SetPen({color, 1, psSolid});
    painter.SetBrush({color, bsSolid});
    painter.Polygon(points.data(), int(points.size()));
}

} // namespace

Picture MakePicture(int width, int height, const std::function<void(IPainter& painter)>& paint)
{
    ISystem* const system = GetCurrentSystem();
    Picture picture = system->CreateRasterPicture({width, height});
    IPainter& painter = *picture->TakeDefPainter();
    const CPaintScope scope(painter, ssAsIs);
    if (scope.IsOk()) {
        Fill(painter, Box(0, 0, width, height), clWhite); // new pixels hold anything
        if (paint)
            paint(painter);
    }
    return picture;
}

Picture CopyOf(const Picture& source)
{
    const size<int> extent = source->GetSize();
    return MakePicture(extent.width, extent.height, [&](IPainter& painter) {
        painter.DrawRasterPicture(source.Get(), 0, 0, extent.width, extent.height);
    });
}

Picture MakeScene(int width, int height)
{
    const double w = width, h = height, sea = std::floor(h * 0.66);
    return MakePicture(width, height, [&](IPainter& painter) {
        painter.GradientV(0, 0, w, sea, {92, 116, 196}, {252, 196, 132});
        painter.SetPen({{255, 236, 180}, 1, psSolid});
        painter.SetBrush({{255, 236, 180}, bsSolid});
        const double sun = h * 0.13, x = w * 0.68, y = h * 0.42;
        painter.Ellipse(x - sun, y - sun, x + sun, y + sun);
        Hill(painter, -w * 0.25, w * 0.55, sea, h * 0.36, {96, 84, 130});
        Hill(painter, w * 0.45, w * 1.2, sea, h * 0.22, {126, 92, 128});
        painter.GradientV(0, sea, w, h, {232, 150, 120}, {40, 66, 128});
        painter.SetPen({{255, 226, 170}, 1, psSolid});
        for (int i = 0; i < 5; ++i) {
            const double half = sun * (1.1 - 0.2 * i), line = sea + 2 + i * h * 0.055;
            painter.MoveTo(x - half, line);
            painter.LineTo(x + half, line);
        }
        const double scale = std::max(1.0, h / 60);
        painter.DrawXPM(Boat(), std::floor(w * 0.16), std::floor(sea + h * 0.06 - 17 * scale), 0, 0, -1, -1,
                        scale);
    });
}

const XPMImage& Boat()
{
    static const XPMImage image(boatLines);
    return image;
}

} // namespace gallery
