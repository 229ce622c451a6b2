#include "capture.h"

#include <wx/dcmemory.h>
#include <wx/dcscreen.h>
#include <wx/frame.h>
#include <wx/version.h>
#include <wx/wfstream.h>

#if wxCHECK_VERSION(3, 2, 0)
#include <cairo.h>
#include <wx/graphics.h>
#endif

namespace examples {

namespace {

// Cairo takes for unchanged what others have drawn on the screen since it read it, unless it is told.
void NoticeChanges(wxScreenDC& screen)
{
#if wxCHECK_VERSION(3, 2, 0)
    if (wxGraphicsContext* const context = screen.GetGraphicsContext())
        cairo_surface_mark_dirty(cairo_get_target(static_cast<cairo_t*>(context->GetNativeContext())));
#else
    (void)screen; // without Cairo
#endif
}

} // namespace

wxImage Capture(const wxFrame& frame)
{
    const wxSize size = frame.GetClientSize();
    wxBitmap bitmap;
    bitmap.CreateScaled(size.x, size.y, -1, frame.GetContentScaleFactor());
    wxScreenDC screen;
    NoticeChanges(screen);
    wxMemoryDC memory(bitmap);
    memory.Blit(wxPoint(0, 0), size, &screen, frame.ClientToScreen(wxPoint(0, 0)));
    memory.SelectObject(wxNullBitmap);
    return bitmap.ConvertToImage();
}

bool WritePicture(const wxImage& picture, const wxString& file)
{
    wxFFileOutputStream out(file);
    return out.IsOk() && picture.SaveFile(out, wxBITMAP_TYPE_PNG) && out.GetFile()->Flush();
}

} // namespace examples
