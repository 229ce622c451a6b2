/// Off-screen pictures.
#pragma once

#include "vela7/canvas.h"
#include "vela7/wxexport.h"

#include <wx/bitmap.h>

#include <memory>

namespace vela7 {

/// A picture made of pixels, on a wxBitmap of the screen's depth.
///
/// Made by ISystem::CreateRasterPicture, without pixels before wx is initialised; dies with its last handle.
/// Its default painter is its own. Thread: GUI. Nothing is reported: what cannot be done leaves the picture
/// as it was.
class VELA7_WX_API CwxRasterPicture : public IRasterPicture
{
public:
    /// Pixels; a size without area, or beyond what the screen can hold, gives an invalid bitmap with the size
    /// recorded.
    explicit CwxRasterPicture(size<int> pixels);
    ~CwxRasterPicture() override;

    void ConvertFromXPM(const XPMImage& image, bool useMask) override;
    /// Black is transparent. Null and an invalid mask change nothing.
    void SetMask(const IRasterPicture* mask) override;
    /// An all-zero area shares the whole source; else right and bottom of an area inside the source are
    /// included.
    bool CopyFrom(const IRasterPicture* source, const screen_rectangle<int>& area) override;
    void Scale(int width, int height) override;
    void Blur(const size<int>& radius, const screen_rectangle<int>& area) override;

    /// Empty: a picture offers its default painter only.
    CHandle<IPainter> CreatePainter() override;
    IPainter* TakeDefPainter() override;
    /// Records a size; the pixels stay what they are.
    void SetSize(size<int> pixels) override;
    /// Always XPM, whatever the name ends in.
    void Save(const std::string& fileName) override;
    /// What cannot be read as a picture leaves the pixels; the recorded size follows them in any case.
    void Load(const std::string& fileName) override;
    int GetCanvasMetrics(CanvasMetrics metric) const override;

    /// What callers see: the pixels within the recorded size, shared when that is all of them; invalid when
    /// there are none.
    wxBitmap GetShown() const;
    /// The pixels, in their real size.
    wxBitmap& GetBitmap();
    const wxBitmap& GetBitmap() const;
    /// Takes a bitmap, shared, and its size.
    void SetBitmap(const wxBitmap& value);

private:
    friend class CwxRstPainter;
    /// As it is now, while it is painted on.
    void NoticePainting() const;

    wxBitmap bitmap;
    int m_paints = 0; // under way
    std::unique_ptr<IPainter> defPainter;
};

/// Puts a bitmap into a picture, shared; a null or foreign picture is left alone.
VELA7_WX_API void Bitmap2RasterPicture(const wxBitmap& bitmap, IRasterPicture* picture);

} // namespace vela7
