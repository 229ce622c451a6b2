#include "vela7/wximagelist.h"

#include "convert/devicebounds.h"
#include "convert/xpmread.h"
#include "pictures/imagehelpers.h"
#include "port/drawing.h"
#include "vela7/system.h"
#include "vela7/wxconvert.h"
#include "vela7/wxpainter.h"
#include "vela7/wxrasterpicture.h"
#include "vela7/wxxpm.h"

#include <wx/dcmemory.h>
#include <wx/window.h>

#include <cstring>

namespace vela7 {

namespace {

std::size_t PixelCount(const wxImage& image)
{
    return static_cast<std::size_t>(image.GetWidth()) * static_cast<std::size_t>(image.GetHeight());
}

// Whoever has a pointer to an image may write into its data; nothing but the data tells.
bool LooksLike(const wxImage& a, const wxImage& b)
{
    const std::size_t count = PixelCount(a);
    return a.GetSize() == b.GetSize() && a.HasAlpha() == b.HasAlpha() && a.HasMask() == b.HasMask() &&
           a.GetMaskRed() == b.GetMaskRed() && a.GetMaskGreen() == b.GetMaskGreen() &&
           a.GetMaskBlue() == b.GetMaskBlue() && std::memcmp(a.GetData(), b.GetData(), 3 * count) == 0 &&
           (!a.HasAlpha() || std::memcmp(a.GetAlpha(), b.GetAlpha(), count) == 0);
}

bool ScalesImages()
{
    return (GetDPIAutoScale() & asImages) != 0;
}

} // namespace

void ApplyDPIScale(size<int>& extent)
{
    const ISystem* const system = ScalesImages() ? GetCurrentSystem() : nullptr;
    if (system)
        extent = ScaledUp(extent, system->GetDPIScale());
}

void CwxImageList::AddOriginalImage(wxImage& image)
{
    Element& added = m_Elements.emplace_back();
    const int height = image.IsOk() ? image.GetHeight() : 0;
    if (image.IsOk() && image.GetWidth() == 2LL * height) {
        // Kept by contract: whatever it is and wherever it comes from.
        added.first.image = image.GetSubImage(wxRect(0, 0, height, height));
        added.second.image = image.GetSubImage(wxRect(height, 0, height, height));
    } else {
        added.first.image = image;
    }
}

int CwxImageList::AddXPM(const XPMImage& image)
{
    wxImage added = create_paletteless_image(ReadXPM(image));
    AddOriginalImage(added); // Kept by contract: an invalid one as well
    return GetImageCount() - 1;
}

wxBitmap CwxImageList::CreateBitmap(IRasterPicture* picture, const _color& transparent)
{
    const auto* const ours = dynamic_cast<const CwxRasterPicture*>(picture);
    wxBitmap bitmap = ours ? ours->GetShown() : wxBitmap();
    if (!transparent.flag && bitmap.IsOk())
        bitmap.SetMask(new wxMask(bitmap, vela2wx(transparent))); // not the picture's: wx makes a copy for it
    return bitmap;
}

int CwxImageList::AddRasterPicture(IRasterPicture* picture, const _color& mask)
{
    const wxBitmap bitmap = CreateBitmap(picture, mask);
    if (!bitmap.IsOk())
        return -1;
    wxImage image = bitmap.ConvertToImage();
    AddOriginalImage(image);
    return GetImageCount() - 1;
}

bool CwxImageList::AddDisabledXPM(int index, const XPMImage& image)
{
    if (!IsIndex(index))
        return false;
    At(index).second.image = create_paletteless_image(ReadXPM(image));
    return true;
}

bool CwxImageList::AddDisabledRasterPicture(int index, IRasterPicture* picture, const _color& mask)
{
    const wxBitmap bitmap = IsIndex(index) ? CreateBitmap(picture, mask) : wxBitmap();
    if (bitmap.IsOk())
        At(index).second.image = bitmap.ConvertToImage();
    return bitmap.IsOk();
}

size<int> CwxImageList::GetSize(int index)
{
    if (!IsIndex(index) || !At(index).first.image.IsOk())
        return {};
    const wxSize natural = At(index).first.image.GetSize();
    size<int> extent(natural.x, natural.y);
    ApplyDPIScale(extent);
    return extent;
}

wxImage* CwxImageList::GetImage(int index, bool normal)
{
    return normal ? &At(index).first.image : GetDisabledImage(index);
}

wxImage* CwxImageList::GetDisabledImage(int index)
{
    const wxImage& normal = At(index).first.image;
    wxImage& disabled = At(index).second.image;
    AssertImage(normal.IsOk(), 314, "GetDisabledImage", "m_Elements[index].first.IsOk()");
    if (disabled.IsOk() || !normal.IsOk())
        return &disabled;
    disabled = normal.ConvertToGreyscale();
    if (!disabled.HasAlpha())
        disabled.InitAlpha();
    const std::size_t count = PixelCount(normal);
    const unsigned char* const rgb = normal.GetData();
    const unsigned char mask[] = {normal.GetMaskRed(), normal.GetMaskGreen(), normal.GetMaskBlue()};
    const unsigned char* const bottomLeft = rgb + 3 * (count - static_cast<std::size_t>(normal.GetWidth()));
    const unsigned char* const key = normal.HasMask() ? mask : bottomLeft;
    for (std::size_t i = 0; i < count; ++i) // Kept by contract: the alpha it had is lost
        disabled.GetAlpha()[i] = std::memcmp(rgb + 3 * i, key, 3) == 0 ? 0 : 127;
    return &disabled;
}

void CwxImageList::DrawImp(IPainter* painter, int index, int x, int y, int width, int height,
                           bool transparent, bool normal)
{
    if (!dynamic_cast<CwxPainter*>(painter) || !IsIndex(index))
        return;
    point<double> at(x, y);
    painter->ConvertCoord1(&at, false);
    if ((width == 0 || height == 0) && ScalesImages() && painter->GetDPIScale() > 1.0) {
        const size<int> scaled = GetSize(index);
        width = width ? width : scaled.width;
        height = height ? height : scaled.height;
    }
    if (width != 0 && height != 0)
        StretchImage(painter, index, Truncated(at.x), Truncated(at.y), width, height, transparent, normal);
    else
        DrawImage(painter, index, Truncated(at.x), Truncated(at.y), transparent, normal);
}

// Shows a look anew where the image is not what its bitmaps were made of. False when there is nothing to
// draw.
bool CwxImageList::Prepare(Look& look)
{
    if (!look.image.IsOk() || !IsPictureSize(look.image.GetWidth(), look.image.GetHeight()))
        return false;
    if (!look.natural.IsOk() || !LooksLike(look.image, look.shown))
        look = {look.image, look.image.Copy(), wxBitmap(look.image), wxBitmap()};
    return true;
}

void CwxImageList::DrawImage(IPainter* painter, int index, int x, int y, bool transparent, bool normal)
{
    StretchImage(painter, index, x, y, 0, 0, transparent, normal);
}

void CwxImageList::StretchImage(IPainter* painter, int index, int x, int y, int width, int height,
                                bool transparent, bool normal)
{
    wxDC* const dc = GetWxDC(painter);
    if (dc && !normal)
        GetDisabledImage(index);
    Look& look = normal ? At(index).first : At(index).second;
    const bool natural = width == 0 && height == 0;
    if (!dc || !Prepare(look) || !(natural || IsPictureSize(width, height)))
        return;
    if (!natural && (!look.stretched.IsOk() || look.stretched.GetSize() != wxSize(width, height))) {
        const wxBitmap whole(look.image); // the one that is kept may have lost its alpha
        const wxImage scaled = Scaled(*dc, whole.ConvertToImage(), wxSize(width, height), x, y);
        if (scaled.IsOk() && scaled.GetSize() != wxSize(width, height)) { // the part that can be seen
            wxBitmap part(scaled);
            DrawBitmap(dc, part, x, y, transparent, normal);
            return;
        }
        look.stretched = scaled.IsOk() ? wxBitmap(scaled) : wxBitmap();
    }
    // Not selected into a memory DC meanwhile: that would take the alpha of disabled icons for a mask.
    DrawBitmap(dc, natural ? look.natural : look.stretched, x, y, transparent, normal);
}

void CwxImageList::DrawBitmap(wxDC* dc, wxBitmap& bitmap, int x, int y, bool transparent, bool normal)
{
    if (!dc || !bitmap.IsOk() || !CanBeSeen(*dc, x, y, bitmap.GetWidth(), bitmap.GetHeight()))
        return;
    const wxWindow* const window = dc->GetWindow();
    if (!normal) {
        gtkport::DrawPicture(*dc, bitmap, {x, y}, transparent);
    } else if (bitmap.HasAlpha() || (window && window->GetLayoutDirection() == wxLayout_RightToLeft)) {
        // wx mirrors what DrawBitmap draws in such windows, but not what is blitted.
        wxMemoryDC memory(bitmap);
        gtkport::Blit(*dc, wxRect(wxPoint(x, y), bitmap.GetSize()), memory, wxPoint(), wxCOPY, transparent);
    } else { // the same pixels without the costs of a memory DC
        const wxRasterOperationMode before = dc->GetLogicalFunction();
        dc->SetLogicalFunction(wxCOPY);
        gtkport::DrawPicture(*dc, bitmap, {x, y}, transparent);
        dc->SetLogicalFunction(before);
    }
}

} // namespace vela7
