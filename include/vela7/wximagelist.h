/// Lists of icons on wx images.
#pragma once

#include "vela7/imagelist.h"
#include "vela7/wxexport.h"

#include <wx/bitmap.h>
#include <wx/image.h>

#include <deque>

class wxDC;

namespace vela7 {

/// Icons, each with a normal and a disabled image.
///
/// Made by ISystem::CreateImageList; dies with its last handle. Thread: GUI. An added image that is twice as
/// wide as high holds both: normal on the left, disabled on the right. Where no disabled image was given, a
/// grey half transparent one is made on first use and kept. Lines that are no XPM add an invalid image, which
/// an assertion reports and nothing draws. Bitmaps for the device are kept as long as the image stays as it
/// is.
class VELA7_WX_API CwxImageList final : public IImageList
{
public:
    int AddXPM(const XPMImage& image) override;
    /// -1 for null, foreign and empty pictures.
    int AddRasterPicture(IRasterPicture* picture, const _color& mask) override;
    /// 0 x 0 for an index out of range.
    size<int> GetSize(int index) override;
    void Draw(IPainter* painter, int index, int x, int y, int width, int height) override
    {
        DrawImp(painter, index, x, y, width, height, false, true);
    }
    void DrawTransparent(IPainter* painter, int index, int x, int y, int width, int height) override
    {
        DrawImp(painter, index, x, y, width, height, true, true);
    }
    void DrawDisabled(IPainter* painter, int index, int x, int y, int width, int height) override
    {
        DrawImp(painter, index, x, y, width, height, true, false);
    }
    int GetImageCount() const override { return static_cast<int>(m_Elements.size()); }
    bool AddDisabledXPM(int index, const XPMImage& image) override;
    bool AddDisabledRasterPicture(int index, IRasterPicture* picture, const _color& mask) override;

    void AddOriginalImage(wxImage& image);
    /// The pixels of a picture of this back-end, shared unless they get a mask; else invalid.
    wxBitmap CreateBitmap(IRasterPicture* picture, const _color& transparent);
    /// The list's own images. These do not check the index.
    wxImage* GetImage(int index, bool normal);
    wxImage* GetDisabledImage(int index);

    /// Logical coordinates. An index out of range and painters without wx device draw nothing.
    void DrawImp(IPainter* painter, int index, int x, int y, int width, int height, bool transparent,
                 bool normal);
    /// Device coordinates; 0 x 0 is the natural size. These do not check the index.
    void DrawImage(IPainter* painter, int index, int x, int y, bool transparent, bool normal);
    void StretchImage(IPainter* painter, int index, int x, int y, int width, int height, bool transparent,
                      bool normal);
    /// normal: as a memory DC does, which may take the bitmap's alpha for a mask; else with its alpha.
    static void DrawBitmap(wxDC* dc, wxBitmap& bitmap, int x, int y, bool transparent, bool normal);

private:
    struct Look
    {
        wxImage image;
        // What the bitmaps were made of, a copy that nobody else knows, and the bitmaps.
        wxImage shown;
        wxBitmap natural, stretched;
    };
    struct Element
    {
        Look first, second; // normal, disabled
    };

    bool IsIndex(int index) const { return index >= 0 && index < GetImageCount(); }
    Element& At(int index) { return m_Elements[static_cast<std::size_t>(index)]; }
    static bool Prepare(Look& look);

    std::deque<Element> m_Elements; // images that were handed out stay where they are
};

/// Multiplies by the system's DPI scale, truncating, when images are to be scaled (asImages).
VELA7_WX_API void ApplyDPIScale(size<int>& extent);

} // namespace vela7
