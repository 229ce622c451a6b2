#include "vela7/wxrasterpicture.h"

#include "convert/devicebounds.h"
#include "convert/xpmread.h"
#include "port/drawing.h"
#include "port/gtkport.h"
#include "vela7/painter.h"
#include "vela7/wxconvert.h"
#include "vela7/xpm.h"

#include <wx/dcmemory.h>
#include <wx/dcscreen.h>
#include <wx/image.h>

#include <algorithm>

namespace vela7 {

namespace {

// Every raster picture of the process is of this class; anything else counts as none.
const CwxRasterPicture* Ours(const IRasterPicture* picture)
{
    return dynamic_cast<const CwxRasterPicture*>(picture);
}

// wx registers no handlers by itself, and a host need not either.
void NeedXPMHandler()
{
    if (!wxImage::FindHandler(wxBITMAP_TYPE_XPM))
        wxImage::AddHandler(new wxXPMHandler);
}

// A length fitted to a source: one more when it ends inside, cut when it reaches beyond.
int FitExtent(int from, int extent, int source)
{
    const long long end = static_cast<long long>(from) + extent;
    if (end < source)
        return extent + 1; // Kept by contract: an area includes its right and bottom edges
    return end > source ? source - from : extent;
}

} // namespace

CwxRasterPicture::CwxRasterPicture(size<int> pixels)
{
    if (CanMakePicture(pixels.width, pixels.height))
        bitmap.Create(pixels.width, pixels.height, -1);
    m_size = pixels;
}

CwxRasterPicture::~CwxRasterPicture()
{
    RevokeHandles();
}

void CwxRasterPicture::SetBitmap(const wxBitmap& value)
{
    bitmap = value;
    m_size = bitmap.IsOk() ? size<int>(bitmap.GetWidth(), bitmap.GetHeight()) : size<int>();
}

// Only then, since it may cost what transparent pixels have of colour.
void CwxRasterPicture::NoticePainting() const
{
    if (m_paints > 0)
        gtkport::Refresh(bitmap);
}

wxBitmap& CwxRasterPicture::GetBitmap()
{
    NoticePainting();
    return bitmap;
}

const wxBitmap& CwxRasterPicture::GetBitmap() const
{
    NoticePainting();
    return bitmap;
}

wxBitmap CwxRasterPicture::GetShown() const
{
    NoticePainting();
    if (!bitmap.IsOk() || (m_size.width >= bitmap.GetWidth() && m_size.height >= bitmap.GetHeight()))
        return bitmap;
    const wxRect part(0, 0, std::min(m_size.width, bitmap.GetWidth()),
                      std::min(m_size.height, bitmap.GetHeight()));
    return part.IsEmpty() ? wxBitmap() : bitmap.GetSubBitmap(part);
}

void CwxRasterPicture::ConvertFromXPM(const XPMImage& image, bool useMask)
{
    const wxImage picture = ReadXPM(image);
    if (!picture.IsOk() || !CanMakePicture(picture.GetWidth(), picture.GetHeight()))
        return;
    wxBitmap made(picture);
    if (useMask) {
        unsigned char red = 0, green = 0, blue = 0;
        picture.GetOrFindMaskColour(&red, &green, &blue);
        made.SetMask(new wxMask(made, wxColour(red, green, blue)));
    }
    SetBitmap(made);
}

void CwxRasterPicture::SetMask(const IRasterPicture* mask)
{
    const CwxRasterPicture* const source = Ours(mask);
    const wxBitmap shown = source ? source->GetShown() : wxBitmap();
    if (!shown.IsOk() || !bitmap.IsOk())
        return;
    // wx makes masks of monochrome bitmaps only; pictures have the screen's depth. Black is transparent, and
    // ConvertToMono turns the colour it is given white.
    wxImage image = shown.ConvertToImage();
    // wx asks the X server for as many pixels of a mask as the bitmap has, which ends the process when there
    // are fewer: what a mask does not reach is transparent.
    image.Resize(bitmap.GetSize(), wxPoint(0, 0), 0, 0, 0);
    bitmap.SetMask(new wxMask(wxBitmap(image.ConvertToMono(0, 0, 0), 1), *wxWHITE));
}

bool CwxRasterPicture::CopyFrom(const IRasterPicture* source, const screen_rectangle<int>& area)
{
    if (!source)
        return false;
    const CwxRasterPicture* const from = Ours(source);
    if (!from)
        return true;
    if (area.IsNull() || !from->bitmap.IsOk()) {
        const size<int> recorded = from->GetSize();
        SetBitmap(wxBitmap(from->bitmap));
        m_size = recorded;
        return true;
    }
    const wxBitmap shown = from->GetShown();
    wxRect rect = vela2wx(area);
    rect.x = std::max(rect.x, 0); // the extent stays
    rect.y = std::max(rect.y, 0);
    rect.width = shown.IsOk() ? FitExtent(rect.x, rect.width, shown.GetWidth()) : 0;
    rect.height = shown.IsOk() ? FitExtent(rect.y, rect.height, shown.GetHeight()) : 0;
    const bool any = rect.width > 0 && rect.height > 0;
    SetBitmap(any ? shown.GetSubBitmap(rect) : wxBitmap());
    return true;
}

void CwxRasterPicture::Scale(int width, int height)
{
    const wxBitmap shown = GetShown();
    if (!shown.IsOk() || !CanMakePicture(width, height))
        return;
    SetBitmap(wxBitmap(shown.ConvertToImage().Scale(width, height, wxIMAGE_QUALITY_HIGH)));
}

void CwxRasterPicture::Blur(const size<int>& radius, const screen_rectangle<int>& area)
{
    const wxBitmap shown = GetShown();
    if (!shown.IsOk() || (radius.width < 1 && radius.height < 1))
        return;
    wxImage image = shown.ConvertToImage();
    const wxRect rect = vela2wx(area);
    if (!area.IsNull()) {
        const bool inside = wxRect(shown.GetSize()).Contains(rect);
        if (rect.IsEmpty() || !inside)
            return;
        image = image.GetSubImage(rect);
    }
    // wx reads beyond the image when the radius does.
    const int horizontal = std::min(radius.width, image.GetWidth() - 1);
    const int vertical = std::min(radius.height, image.GetHeight() - 1);
    if (horizontal > 0)
        image = image.BlurHorizontal(horizontal);
    if (vertical > 0)
        image = image.BlurVertical(vertical);
    if (area.IsNull()) {
        SetBitmap(wxBitmap(image));
        return;
    }
    wxMemoryDC memory(bitmap);
    gtkport::DrawPicture(memory, wxBitmap(image), {area.left, area.top}, false);
}

CHandle<IPainter> CwxRasterPicture::CreatePainter()
{
    return {};
}

void CwxRasterPicture::SetSize(size<int> pixels)
{
    // Kept by contract: only the recorded size changes, no pixel is made. wx's own record stays with the
    // pixels, so that nothing reads beyond them.
    m_size = pixels;
}

void CwxRasterPicture::Save(const std::string& fileName)
{
    const wxBitmap shown = GetShown();
    if (!shown.IsOk())
        return;
    NeedXPMHandler();
    wxImage image = shown.ConvertToImage();
    if (image.HasAlpha())
        image.ConvertAlphaToMask(); // else wx saves what is transparent as solid
    image.SaveFile(vela2wx(fileName), wxBITMAP_TYPE_XPM);
}

void CwxRasterPicture::Load(const std::string& fileName)
{
    if (!gtkport::DisplayIsOpen())
        return;
    NeedXPMHandler();
    wxBitmap loaded;
    if (const std::optional<wxBitmap> xpm = ReadXPMFile(fileName))
        loaded = *xpm;
    else
        loaded.LoadFile(vela2wx(fileName), wxBITMAP_TYPE_XPM);
    const bool fits = loaded.IsOk() && IsPictureSize(loaded.GetWidth(), loaded.GetHeight());
    SetBitmap(fits ? loaded : wxBitmap(bitmap)); // the size follows the pixels in any case
}

int CwxRasterPicture::GetCanvasMetrics(CanvasMetrics metric) const
{
    if (metric == cmWidth)
        return m_size.width;
    if (metric == cmHeight)
        return m_size.height;
    if (!gtkport::DisplayIsOpen())
        return 0;
    wxMemoryDC memory;
    wxDC* dc = defPainter ? defPainter->GetDC() : nullptr;
    if (!dc) {
        if (bitmap.IsOk())
            memory.SelectObjectAsSource(bitmap);
        dc = &memory;
    }
    const bool pixels = dc->IsOk(); // wx asks the bitmap for its depth
    switch (metric) {
    case cmWidthMM:
    case cmHeightMM: // Kept by contract: the height in millimetres answers the width
        return gtkport::Millimetres(*dc).GetWidth();
    case cmScreenWidth:
        return wxScreenDC().GetSize().GetWidth();
    case cmScreenHeight:
        return wxScreenDC().GetSize().GetHeight();
    case cmScreenWidthMM:
        return gtkport::Millimetres(wxScreenDC()).GetWidth();
    case cmScreenHeightMM:
        return gtkport::Millimetres(wxScreenDC()).GetHeight();
    case cmColors:
        return pixels ? static_cast<int>(1u << (static_cast<unsigned>(gtkport::Depth(*dc)) % 32)) : 0;
    case cmDepth:
        return pixels ? gtkport::Depth(*dc) : 0;
    case cmDpiX:
        return dc->GetPPI().GetWidth();
    case cmDpiY:
        return dc->GetPPI().GetHeight();
    default:
        return 0;
    }
}

void Bitmap2RasterPicture(const wxBitmap& bitmap, IRasterPicture* picture)
{
    if (auto* const ours = dynamic_cast<CwxRasterPicture*>(picture))
        ours->SetBitmap(bitmap);
}

} // namespace vela7
