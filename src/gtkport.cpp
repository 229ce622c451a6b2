#include "gtkport.h"

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

void KeepWidgets(wxWindow& window)
{
    const auto keep = [](gpointer object) {
        const auto release = [](gpointer kept) -> gboolean {
            g_object_unref(kept);
            return FALSE;
        };
        if (object)
            g_idle_add(release, g_object_ref(object));
    };
    GtkWidget* const text = window.GetConnectWidget();
    keep(window.m_widget);
    keep(text);
    if (text && GTK_IS_TEXT_VIEW(text))
        keep(gtk_text_view_get_buffer(GTK_TEXT_VIEW(text)));
}

wxBitmap BitmapFromXPM(const char* const* lines)
{
    GdkPixbuf* const pixbuf = gdk_pixbuf_new_from_xpm_data(const_cast<const char**>(lines));
    return pixbuf ? wxBitmap(pixbuf) : wxBitmap(); // takes the reference over
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
