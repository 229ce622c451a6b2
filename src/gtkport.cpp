#include "gtkport.h"

#include <wx/animate.h>
#include <wx/app.h>
#include <wx/renderer.h>
#include <wx/version.h>
#include <wx/window.h>

// The deprecations of GTK's own headers are not ours to mend.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#pragma GCC diagnostic ignored "-Wpedantic"
#include <gtk/gtk.h>
#pragma GCC diagnostic pop

namespace vela7 {
namespace gtkport {

bool DisplayIsOpen()
{
    return gdk_display_get_default() != nullptr;
}

std::optional<double> ScreenResolution()
{
    GdkScreen* const screen = DisplayIsOpen() ? gdk_screen_get_default() : nullptr;
    if (!screen)
        return std::nullopt;
    return gdk_screen_get_resolution(screen);
}

const void* Drawable(const wxWindow& window)
{
    GtkWidget* const widget = window.m_wxwindow ? window.m_wxwindow : window.m_widget;
    return widget ? gtk_widget_get_window(widget) : nullptr;
}

wxBitmap BitmapFromXPM(const char* const* lines)
{
    GdkPixbuf* const pixbuf = gdk_pixbuf_new_from_xpm_data(const_cast<const char**>(lines));
    return pixbuf ? wxBitmap(pixbuf) : wxBitmap(); // takes the reference over
}

namespace {

#if wxCHECK_VERSION(3, 2, 0)
// Only controls know what their animations are made of; this one is never created as a window.
struct PixbufReader : wxAnimationCtrl
{
    GdkPixbufAnimation* Read(const wxAnimation& animation)
    {
        m_animation = animation;
        return animation.IsCompatibleWith(wxCLASSINFO(wxAnimationCtrl)) ? AnimationImplGetPixbuf() : nullptr;
    }
};
#endif

GdkPixbufAnimation* PixbufOf(const wxAnimation& animation)
{
#if wxCHECK_VERSION(3, 2, 0)
    return animation.IsOk() ? PixbufReader().Read(animation) : nullptr;
#else
    return animation.GetPixbuf();
#endif
}

} // namespace

GdkPixbufAnimationIter* StartAnimation(const wxAnimation& animation)
{
    GdkPixbufAnimation* const pixbuf = PixbufOf(animation);
    return pixbuf ? gdk_pixbuf_animation_get_iter(pixbuf, nullptr) : nullptr;
}

void EndAnimation(GdkPixbufAnimationIter* iterator)
{
    g_object_unref(iterator);
}

int FrameDelay(GdkPixbufAnimationIter* iterator)
{
    return gdk_pixbuf_animation_iter_get_delay_time(iterator);
}

void AdvanceFrame(GdkPixbufAnimationIter* iterator)
{
    gdk_pixbuf_animation_iter_advance(iterator, nullptr);
}

wxBitmap CurrentFrame(GdkPixbufAnimationIter* iterator)
{
    GdkPixbuf* const pixbuf = gdk_pixbuf_animation_iter_get_pixbuf(iterator);
    if (pixbuf)
        g_object_ref(pixbuf); // the bitmap takes a reference over, the iterator keeps its own
    return pixbuf ? wxBitmap(pixbuf) : wxBitmap();
}

wxSize CheckBoxSize()
{
    wxWindow* window = nullptr;
#if wxCHECK_VERSION(3, 2, 0)
    window = wxTheApp ? wxTheApp->GetTopWindow() : nullptr; // required there
    if (!window)
        return wxSize(0, 0);
#endif
    return wxRendererNative::Get().GetCheckBoxSize(window);
}

} // namespace gtkport
} // namespace vela7
