#include "port/drawing.h"

#include <wx/version.h>

#if wxCHECK_VERSION(3, 2, 0)

#include "port/cairo.h"

#include <wx/brush.h>
#include <wx/dcmemory.h>
#include <wx/image.h>
#include <wx/window.h>

#include <cstdint>

namespace vela7 {
namespace gtkport {

// That of wx's own Cairo DC is smooth.
void DrawGradient(wxDC& dc, const wxRect& rect, const wxColour& from, const wxColour& to,
                  wxDirection direction)
{
    if (cairo_t* const cr = CairoOf(dc)) {
        const CSharp sharp(cr);
        dc.GetImpl()->wxDCImpl::DoGradientFillLinear(rect, from, to, direction);
    }
}

namespace {

// What mirrored windows mirror is places, not pictures.
void DrawUpright(cairo_t* cr, const wxDC& dc, const wxBitmap& bitmap, const wxRect& place, bool useMask)
{
    cairo_save(cr);
    const bool mirrored = dc.GetLayoutDirection() == wxLayout_RightToLeft;
    if (mirrored)
        cairo_scale(cr, -1, 1);
    bitmap.Draw(cr, mirrored ? -place.x - place.width : place.x, place.y, useMask);
    cairo_restore(cr);
}

} // namespace

void DrawPicture(wxDC& dc, const wxBitmap& bitmap, const wxPoint& at, bool useMask)
{
    const wxRect place(at, bitmap.GetSize());
    const wxRasterOperationMode op = bitmap.HasAlpha() ? wxCOPY : dc.GetLogicalFunction(); // as on GTK 2
    Draw(dc, place, op, [&](cairo_t* cr) { DrawUpright(cr, dc, bitmap, place, useMask); });
}

namespace {

// A picture without opacity: with a mask of what is mostly opaque, or without.
wxBitmap Decided(const wxBitmap& bitmap, bool useMask)
{
    wxImage image = bitmap.ConvertToImage();
    if (useMask)
        image.ConvertAlphaToMask(128);
    else
        image.ClearAlpha();
    return wxBitmap(image);
}

} // namespace

void Blit(wxDC& dc, const wxRect& place, wxDC& source, const wxPoint& from, wxRasterOperationMode op,
          bool useMask)
{
    auto* const memory = dynamic_cast<wxMemoryDC*>(&source);
    if (memory && memory->GetSelectedBitmap().HasAlpha()) {
        wxBitmap solid = Decided(memory->GetSelectedBitmap(), useMask);
        wxMemoryDC other;
        other.SelectObjectAsSource(solid);
        return Blit(dc, place, other, from, op, useMask);
    }
    if (op == wxNO_OP)
        return;
    wxRect target = place;
    if (dc.GetLayoutDirection() == wxLayout_RightToLeft) // it begins at the mirrored place, as on GTK 2
        target.x -= target.width;
    if (op == wxCOPY) {
        dc.Blit(target.GetPosition(), target.GetSize(), &source, from, wxCOPY, useMask);
        return;
    }
    wxBitmap copy; // as transparent as the mask
    copy.CreateScaled(target.width, target.height, 32, dc.GetContentScaleFactor());
    wxMemoryDC onCopy(copy);
    onCopy.Blit(wxPoint(0, 0), target.GetSize(), &source, from, wxCOPY, useMask);
    onCopy.SelectObject(wxNullBitmap);
    Draw(dc, target, op, [&](cairo_t* cr) { DrawUpright(cr, dc, copy, target, false); });
}

wxColour GetPixel(wxDC& dc, const wxPoint& point)
{
    cairo_t* const cr = CairoOf(dc);
    const wxPoint place(dc.LogicalToDeviceX(point.x), dc.LogicalToDeviceY(point.y));
    if (!cr || !wxRect(dc.GetSize()).Contains(place))
        return {};
    double x = point.x, y = point.y;
    cairo_user_to_device(cr, &x, &y);
    std::uint32_t pixel = 0;
    cairo_surface_t* const image = cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(&pixel), CAIRO_FORMAT_RGB24, 1, 1, sizeof pixel);
    cairo_t* const copy = cairo_create(image);
    cairo_set_source_surface(copy, cairo_get_group_target(cr), -x, -y);
    cairo_pattern_set_filter(cairo_get_source(copy), CAIRO_FILTER_NEAREST);
    cairo_paint(copy);
    cairo_destroy(copy);
    cairo_surface_finish(image); // writes the pixel
    cairo_surface_destroy(image);
    return wxColour(pixel >> 16 & 255, pixel >> 8 & 255, pixel & 255);
}

void Erase(wxDC& dc, const wxWindow& window)
{
    dc.SetBackground(window.GetBackgroundColour());
    dc.Clear();
}

void Refresh(const wxBitmap& bitmap)
{
    if (bitmap.IsOk())
        cairo_destroy(bitmap.CairoCreate());
}

} // namespace gtkport
} // namespace vela7

#endif
