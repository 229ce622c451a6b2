// The painter's pictures.

#include "vela7/wxpainter.h"

#include "vela7/xpm.h"

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

} // namespace

void CwxPainter::internalDrawXPM(const XPMImage& image, int x, int y, int cx, int cy, int w, int h,
                                 double scale, RasterOperation op)
{
    int width = Shorten(image.width, cx, w);
    int height = Shorten(image.height, cy, h);
    if (!image.GetBuffer() || width <= 0 || height <= 0)
        return;
    wxImage picture(image.GetBuffer());
    if (!picture.IsOk())
        return;
    if (scale > 1.0) {
        // Kept by contract: the whole image is squeezed into the shortened size.
        width = static_cast<int>(width * scale);
        height = static_cast<int>(height * scale);
        picture = picture.Scale(width, height, wxIMAGE_QUALITY_NORMAL);
    }
    wxBitmap bitmap(picture);
    unsigned char red = 0, green = 0, blue = 0;
    picture.GetOrFindMaskColour(&red, &green, &blue);
    bitmap.SetMask(new wxMask(bitmap, wxColour(red, green, blue)));
    wxMemoryDC memory(bitmap);
    device->Blit(x, y, width, height, &memory, 0, 0, vela2wx(op), true);
}

// No class implements IRasterPicture yet, so none can arrive here: there is nothing to draw or to fill.

void CwxPainter::internalDrawRasterPicture(IRasterPicture*, int, int, int, int, RasterOperation) {}
void CwxPainter::internalExtractRasterPicture(IRasterPicture*, int, int, int, int) {}
void CwxPainter::internalDrawRasterPictureEx(IRasterPicture*, int, int, int, int, int, int, int, int,
                                             RasterOperation)
{
}
void CwxPainter::internalExtractRasterPictureEx(IRasterPicture*, int, int, int, int, int, int, int, int) {}
void CwxPainter::internalAlphaBlend(int, int, int, int, IRasterPicture*, int) {}
void CwxPainter::internalAlphaBlend(int, int, int, int, IRasterPicture*, unsigned char*) {}

// Of the control elements only the focus rectangle is drawn so far.
void CwxPainter::internalDrawControlElement(ControlElement element, int l, int t, int r, int b, int)
{
    if (element == ceFocusRect)
        internalFocusRect(l, t, r, b);
}

} // namespace vela7
