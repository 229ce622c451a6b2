/// The painter of raster pictures.
#pragma once

#include "vela7/wxexport.h"
#include "vela7/wxpainter.h"

#include <memory>

namespace vela7 {

class CwxRasterPicture;

/// Paints into a raster picture. Belongs to the picture (TakeDefPainter). Thread: GUI.
class VELA7_WX_API CwxRstPainter : public CwxPainter
{
public:
    /// Null: no picture.
    explicit CwxRstPainter(CwxRasterPicture* picture);
    ~CwxRstPainter() override;

    /// The whole picture, in its recorded size.
    rectangle<int> GetDrawRect() override;
    /// The setting is ignored: a picture keeps what is on it. False before wx is initialised only; what is
    /// painted without picture or pixels is lost.
    bool CreatePaintDevice(StdSettings settings) override;
    void internalEndPaint() override;
    /// By the theme when the application has a top window, else by hand.
    void internalDrawControlElement(ControlElement element, int l, int t, int r, int b, int state) override;

private:
    CwxRasterPicture* m_picture; // owns this painter
    std::unique_ptr<wxDC> m_memory;
};

} // namespace vela7
