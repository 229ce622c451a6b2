/// What the page of pictures shows, apart from what follows the mouse.
#pragma once

#include "cards.h"
#include "scene.h"

namespace gallery {

/// Pictures in their changed forms, made once.
class PictureSet
{
public:
    PictureSet();

    void DrawXPMs(vela7::IPainter& painter, const Box& area, const Style& style);
    void DrawMasks(vela7::IPainter& painter, const Box& area, const Style& style);
    void DrawConstantAlpha(vela7::IPainter& painter, const Box& area, const Style& style);
    void DrawPixelAlpha(vela7::IPainter& painter, const Box& area, const Style& style);
    void DrawBlurs(vela7::IPainter& painter, const Box& area, const Style& style);
    void DrawScaled(vela7::IPainter& painter, const Box& area, const Style& style);
    void DrawPieces(vela7::IPainter& painter, const Box& area, const Style& style);
    void DrawOperations(vela7::IPainter& painter, const Box& area, const Style& style);

private:
    Picture m_scene;
    Picture m_plain, m_mask, m_masked;
    std::vector<Picture> m_blurred, m_scaled, m_pieces;
    std::vector<unsigned char> m_fade, m_vignette; // transparencies of the scene's pixels
};

/// At its own size, with its upper left corner at a point.
void DrawPicture(vela7::IPainter& painter, const Picture& picture, double x, double y,
                 vela7::RasterOperation op = vela7::roCopy);

} // namespace gallery
