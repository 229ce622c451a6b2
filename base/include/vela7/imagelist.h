/// Image lists: icons of one family, each with a normal and a disabled form.
///
/// Created by ISystem::CreateImageList; dies with its last handle. Thread: GUI. Indexes count from 0.
#pragma once

#include "vela7/cbase.h"
#include "vela7/types.h"

namespace vela7 {

class IPainter;
class IRasterPicture;
class XPMImage;

class VELA7_BASE_API IImageList : public CBase
{
public:
    /// The index of the new image.
    virtual int AddXPM(const XPMImage& image) = 0;
    /// mask: the transparent colour; a flagged colour adds the picture unmasked.
    virtual int AddRasterPicture(IRasterPicture* picture, const _color& mask) = 0;
    virtual size<int> GetSize(int index) = 0;
    /// Logical coordinates; width or height 0 draws at the natural size.
    virtual void Draw(IPainter* painter, int index, int x, int y, int width, int height) = 0;
    virtual void DrawTransparent(IPainter* painter, int index, int x, int y, int width, int height) = 0;
    virtual void DrawDisabled(IPainter* painter, int index, int x, int y, int width, int height) = 0;
    virtual int GetImageCount() const = 0;
    virtual bool AddDisabledXPM(int index, const XPMImage& image) = 0;
    virtual bool AddDisabledRasterPicture(int index, IRasterPicture* picture, const _color& mask) = 0;
};

} // namespace vela7
