// The painter's pictures.

#include "vela7/wxpainter.h"

#include "convert/devicebounds.h"
#include "convert/xpmread.h"
#include "port/drawing.h"
#include "vela7/wxrasterpicture.h"
#include "vela7/xpm.h"

#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/image.h>

#include <algorithm>
#include <climits>

namespace vela7 {

namespace {

// What is left of an extent after a cut, at most the wanted part; -1 wants all.
long long Shorten(int extent, int cut, int wanted)
{
    const long long rest = 0LL + extent - cut;
    return wanted != -1 && wanted < rest ? wanted : rest;
}

// What callers see of a picture; invalid when there is nothing.
wxBitmap ShownOf(IRasterPicture* picture)
{
    auto* const ours = dynamic_cast<CwxRasterPicture*>(picture);
    return ours ? ours->GetShown() : wxBitmap();
}

int End(int begin, long long extent)
{
    return static_cast<int>(std::clamp<long long>(begin + extent, INT_MIN, INT_MAX));
}

rectangle<int> Corners(int l, int t, int r, int b)
{
    rectangle<int> corners; // as given: a reversed one stays reversed
    corners.left = l;
    corners.top = t;
    corners.right = r;
    corners.bottom = b;
    return corners;
}

} // namespace

void CwxPainter::internalDrawXPM(const XPMImage& image, int x, int y, int cx, int cy, int w, int h,
                                 double scale, RasterOperation op)
{
    const long long cutWidth = Shorten(image.width, cx, w), cutHeight = Shorten(image.height, cy, h);
    if (cutWidth <= 0 || cutHeight <= 0)
        return;
    wxImage picture = ReadXPM(image);
    if (!picture.IsOk())
        return;
    // Truncated, and never more than X holds.
    const auto scaled = [scale](long long extent) {
        return static_cast<int>(std::min(extent * (scale > 1.0 ? scale : 1.0), SHRT_MAX + 1.0));
    };
    int width = scaled(cutWidth), height = scaled(cutHeight);
    if (scale > 1.0) {
        if (!CanMakePicture(width, height))
            return;
        // Kept by contract: the whole image is squeezed into the shortened size instead of being cut; toolkit
        // icons are made for it.
        picture = Scaled(*device, picture, wxSize(width, height), x, y);
        if (!picture.IsOk())
            return;
        width = picture.GetWidth();
        height = picture.GetHeight();
    }
    wxBitmap bitmap(picture);
    unsigned char red = 0, green = 0, blue = 0;
    picture.GetOrFindMaskColour(&red, &green, &blue);
    bitmap.SetMask(new wxMask(bitmap, wxColour(red, green, blue)));
    wxMemoryDC memory;
    memory.SelectObjectAsSource(bitmap);
    Copy(*device, Corners(x, y, End(x, width), End(y, height)), memory, {}, vela2wx(op), true);
}

void CwxPainter::internalDrawRasterPicture(IRasterPicture* picture, int l, int t, int r, int b,
                                           RasterOperation op)
{
    internalDrawRasterPictureEx(picture, 0, 0, 0, 0, l, t, r, b, op);
}

void CwxPainter::internalDrawRasterPictureEx(IRasterPicture* picture, int sl, int st, int, int, int dl,
                                             int dt, int dr, int db, RasterOperation op)
{
    const wxBitmap shown = ShownOf(picture);
    if (!shown.IsOk())
        return;
    wxMemoryDC memory;
    memory.SelectObjectAsSource(shown);
    // Kept by contract: the target's size counts and nothing is stretched, whatever the size of the source.
    Copy(*device, Corners(dl, dt, dr, db), memory, {sl, st}, vela2wx(op), true);
}

void CwxPainter::internalExtractRasterPicture(IRasterPicture* picture, int l, int t, int r, int b)
{
    internalExtractRasterPictureEx(picture, 0, 0, 0, 0, l, t, r, b);
}

void CwxPainter::internalExtractRasterPictureEx(IRasterPicture* picture, int pl, int pt, int, int, int sl,
                                                int st, int sr, int sb)
{
    auto* const ours = dynamic_cast<CwxRasterPicture*>(picture);
    if (!ours || !ours->GetBitmap().IsOk())
        return;
    wxMemoryDC memory(ours->GetBitmap()); // the picture's own bitmap: a copy would be filled instead
    const rectangle<int> target = Corners(pl, pt, End(pl, 0LL + sr - sl), End(pt, 0LL + sb - st));
    Copy(memory, target, *device, {sl, st}, wxCOPY, true);
}

namespace {

// Draws a picture's pixels with the opacity that transparency(x, y) leaves.
template <class Transparency>
void Blend(wxDC& dc, const wxBitmap& pixels, int x, int y, Transparency transparency)
{
    if (!CanBeSeen(dc, x, y, pixels.GetWidth(), pixels.GetHeight()))
        return;
    wxImage image = pixels.ConvertToImage();
    if (!image.HasAlpha())
        image.InitAlpha();
    unsigned char* alpha = image.GetAlpha();
    for (int row = 0; row < image.GetHeight(); ++row)
        for (int column = 0; column < image.GetWidth(); ++column)
            *alpha++ = static_cast<unsigned char>(~transparency(column, row)); // 255 - transparency
    gtkport::DrawPicture(dc, wxBitmap(image), {x, y}, true);
}

} // namespace

void CwxPainter::internalAlphaBlend(int l, int t, int, int, IRasterPicture* picture, int transparency)
{
    const wxBitmap shown = ShownOf(picture);
    if (shown.IsOk())
        Blend(*device, shown, l, t, [transparency](int, int) { return transparency; });
}

void CwxPainter::internalAlphaBlend(int l, int t, int, int, IRasterPicture* picture,
                                    unsigned char* transparencies)
{
    const wxBitmap shown = ShownOf(picture);
    if (!shown.IsOk() || !transparencies)
        return;
    const auto width = static_cast<std::size_t>(picture->GetSize().width); // of the caller's rows
    Blend(*device, shown, l, t, [=](int x, int y) {
        return transparencies[width * static_cast<std::size_t>(y) + static_cast<std::size_t>(x)];
    });
}

} // namespace vela7
