// The painter's pictures.

#include "vela7/wxpainter.h"

#include "vela7/wxrasterpicture.h"
#include "vela7/xpm.h"
#include "xpmread.h"

#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/image.h>

#include <algorithm>

namespace vela7 {

namespace {

// What is left of an extent after a cut, at most the wanted part; -1 wants all.
int Shorten(int extent, int cut, int wanted)
{
    const int rest = extent - cut;
    return wanted != -1 && wanted < rest ? wanted : rest;
}

// The pixels of a picture; null when there are none.
wxBitmap* PixelsOf(IRasterPicture* picture)
{
    auto* const ours = dynamic_cast<CwxRasterPicture*>(picture);
    return ours && ours->GetBitmap().IsOk() ? &ours->GetBitmap() : nullptr;
}

} // namespace

void CwxPainter::internalDrawXPM(const XPMImage& image, int x, int y, int cx, int cy, int w, int h,
                                 double scale, RasterOperation op)
{
    int width = Shorten(image.width, cx, w);
    int height = Shorten(image.height, cy, h);
    if (width <= 0 || height <= 0)
        return;
    wxImage picture = ReadXPM(image);
    if (!picture.IsOk())
        return;
    if (scale > 1.0) {
        if (!IsPictureSize(width * scale, height * scale))
            return;
        // Kept by contract: the whole image is squeezed into the shortened size instead of being cut; toolkit
        // icons are made for it.
        width = static_cast<int>(width * scale);
        height = static_cast<int>(height * scale);
        picture = picture.Scale(width, height, wxIMAGE_QUALITY_NORMAL);
    }
    wxBitmap bitmap(picture);
    unsigned char red = 0, green = 0, blue = 0;
    picture.GetOrFindMaskColour(&red, &green, &blue);
    bitmap.SetMask(new wxMask(bitmap, wxColour(red, green, blue)));
    wxMemoryDC memory;
    memory.SelectObjectAsSource(bitmap);
    device->Blit(x, y, width, height, &memory, 0, 0, vela2wx(op), true);
}

void CwxPainter::internalDrawRasterPicture(IRasterPicture* picture, int l, int t, int r, int b,
                                           RasterOperation op)
{
    internalDrawRasterPictureEx(picture, 0, 0, 0, 0, l, t, r, b, op);
}

void CwxPainter::internalDrawRasterPictureEx(IRasterPicture* picture, int sl, int st, int, int, int dl,
                                             int dt, int dr, int db, RasterOperation op)
{
    const wxBitmap* const pixels = PixelsOf(picture);
    if (!pixels)
        return;
    wxMemoryDC memory;
    memory.SelectObjectAsSource(*pixels);
    // Kept by contract: the target's size counts and nothing is stretched, whatever the size of the source.
    device->Blit(dl, dt, dr - dl, db - dt, &memory, sl, st, vela2wx(op), true);
}

void CwxPainter::internalExtractRasterPicture(IRasterPicture* picture, int l, int t, int r, int b)
{
    internalExtractRasterPictureEx(picture, 0, 0, 0, 0, l, t, r, b);
}

void CwxPainter::internalExtractRasterPictureEx(IRasterPicture* picture, int pl, int pt, int, int, int sl,
                                                int st, int sr, int sb)
{
    wxBitmap* const pixels = PixelsOf(picture);
    if (!pixels)
        return;
    wxMemoryDC memory(*pixels); // the picture's own bitmap: a copy would be filled instead
    memory.Blit(pl, pt, sr - sl, sb - st, device, sl, st, wxCOPY);
}

namespace {

// Draws a picture's pixels with the opacity that transparency(index) leaves; rows from the top.
template <class Transparency>
void Blend(wxDC& dc, const wxBitmap& pixels, int x, int y, Transparency transparency)
{
    wxImage image = pixels.ConvertToImage();
    if (!image.HasAlpha())
        image.InitAlpha();
    unsigned char* const alpha = image.GetAlpha();
    const std::size_t count =
        static_cast<std::size_t>(image.GetWidth()) * static_cast<std::size_t>(image.GetHeight());
    for (std::size_t i = 0; i < count; ++i)
        alpha[i] = static_cast<unsigned char>(~transparency(i)); // 255 - transparency
    dc.DrawBitmap(wxBitmap(image), x, y, true);
}

} // namespace

void CwxPainter::internalAlphaBlend(int l, int t, int, int, IRasterPicture* picture, int transparency)
{
    if (const wxBitmap* const pixels = PixelsOf(picture))
        Blend(*device, *pixels, l, t, [transparency](std::size_t) { return transparency; });
}

void CwxPainter::internalAlphaBlend(int l, int t, int, int, IRasterPicture* picture,
                                    unsigned char* transparencies)
{
    const wxBitmap* const pixels = PixelsOf(picture);
    if (pixels && transparencies)
        Blend(*device, *pixels, l, t, [transparencies](std::size_t i) { return transparencies[i]; });
}

} // namespace vela7
