/// What can be painted on: windows and pictures.
///
/// Thread: GUI.
#pragma once

#include "vela7/cbase.h"
#include "vela7/types.h"

#include <string>

namespace vela7 {

class IPainter;
class XPMImage;

class VELA7_BASE_API ICanvas
{
public:
    enum CanvasMetrics
    {
        cmWidth = 0, ///< pixels
        cmHeight = 1,
        cmWidthMM = 2,
        cmHeightMM = 3,
        cmScreenWidth = 4,
        cmScreenHeight = 5,
        cmScreenWidthMM = 6,
        cmScreenHeightMM = 7,
        cmColors = 8,
        cmDepth = 9,     ///< bits
        cmReserved = 10, ///< answers 0
        cmDpiX = 11,
        cmDpiY = 12
    };

    virtual ~ICanvas() = default;
    virtual bool HasMultiPainterSupport() const { return false; }
    /// A painter of its own on this canvas.
    virtual CHandle<IPainter> CreatePainter() = 0;
    /// The canvas' own painter; the canvas keeps it.
    virtual IPainter* TakeDefPainter() = 0;
    /// 0 for unknown codes.
    virtual int GetCanvasMetrics(CanvasMetrics metric) const = 0;
};

class VELA7_BASE_API IPictureCanvas : public ICanvas
{
public:
    /// The recorded size, pixels; the pixel store keeps its own.
    virtual void SetSize(size<int> pixels) = 0;
    virtual void Save(const std::string& fileName) = 0;
    virtual void Load(const std::string& fileName) = 0;
    virtual size<int> GetSize() const { return m_size; }

protected:
    size<int> m_size;
};

/// A picture made of pixels. Created by ISystem::CreateRasterPicture; dies with its last handle.
class VELA7_BASE_API IRasterPicture : public CBase, public IPictureCanvas
{
public:
    virtual void ConvertFromXPM(const XPMImage& image, bool useMask) = 0;
    /// Black is transparent. Null, or a picture without pixels, leaves the mask as it is.
    virtual void SetMask(const IRasterPicture* mask) = 0;
    /// False when nothing could be copied.
    virtual bool CopyFrom(const IRasterPicture* source, const screen_rectangle<int>& area) = 0;
    virtual void Scale(int width, int height) = 0;
    /// An all-zero area means the whole picture.
    virtual void Blur(const size<int>& radius, const screen_rectangle<int>& area) = 0;
};

} // namespace vela7
