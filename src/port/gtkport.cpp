#include "port/gtkport.h"

#include "port/gtk.h"

#include <wx/app.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/display.h>
#include <wx/renderer.h>
#include <wx/version.h>
#include <wx/window.h>

#include <algorithm>

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

namespace {

class CDrawableWatch
{
public:
    CDrawableWatch(GtkWidget* widget, std::function<void()> call)
        : m_widget(g_object_ref(widget)), m_call(std::move(call)),
          m_handler(g_signal_connect(widget, "unrealize", G_CALLBACK(&OnUnrealize), this))
    {
    }
    ~CDrawableWatch()
    {
        g_signal_handler_disconnect(m_widget, m_handler);
        g_object_unref(m_widget);
    }
    CDrawableWatch(const CDrawableWatch&) = delete;
    CDrawableWatch& operator=(const CDrawableWatch&) = delete;

private:
    static void OnUnrealize(GtkWidget*, gpointer self)
    {
        const std::function<void()> call = static_cast<CDrawableWatch*>(self)->m_call; // may end the watch
        call();
    }

    gpointer m_widget;
    std::function<void()> m_call;
    gulong m_handler;
};

} // namespace

std::shared_ptr<void> WatchDrawable(const wxWindow& window, std::function<void()> call)
{
    GtkWidget* const widget = window.m_wxwindow ? window.m_wxwindow : window.m_widget;
    return widget ? std::make_shared<CDrawableWatch>(widget, std::move(call)) : nullptr;
}

wxRect VisibleArea(const wxDC& dc)
{
#if !GTK_CHECK_VERSION(3, 0, 0)
    if (dynamic_cast<const wxMemoryDC*>(&dc) || dynamic_cast<const wxWindowDC*>(&dc)) {
        auto* const drawable = static_cast<GdkDrawable*>(dc.GetHandle());
        if (!drawable || (GDK_IS_WINDOW(drawable) && gdk_window_is_destroyed(drawable)))
            return {};
        GdkRegion* const region = gdk_drawable_get_visible_region(drawable);
        GdkRectangle box;
        gdk_region_get_clipbox(region, &box);
        gdk_region_destroy(region);
        return wxRect(box.x, box.y, box.width, box.height);
    }
#endif
    return wxRect(dc.GetSize());
}

int Depth(const wxDC& dc)
{
#if wxCHECK_VERSION(3, 2, 0)
    return std::min(dc.GetDepth(), 24); // what is beyond is opacity
#else
    return dc.GetDepth();
#endif
}

wxSize Millimetres(const wxDC& dc)
{
#if wxCHECK_VERSION(3, 2, 0)
    GdkScreen* const screen = gdk_screen_get_default(); // wx reckons with 72 points to an inch
    const wxSize pixels = dc.GetSize();
    G_GNUC_BEGIN_IGNORE_DEPRECATIONS // of monitors much is known today, of the whole screen only this
        const double perX = double(gdk_screen_get_width(screen)) / gdk_screen_get_width_mm(screen);
    const double perY = double(gdk_screen_get_height(screen)) / gdk_screen_get_height_mm(screen);
    G_GNUC_END_IGNORE_DEPRECATIONS
    return wxSize(static_cast<int>(pixels.x / perX), static_cast<int>(pixels.y / perY));
#else
    return dc.GetSizeMM();
#endif
}

int MonitorOf(const wxWindow& window)
{
    const int monitor = wxDisplay::GetFromWindow(&window);
#if wxCHECK_VERSION(3, 2, 0)
    const wxRect where(window.GetScreenPosition(),
                       window.GetSize()); // wx names the nearest when it is on none
    if (monitor >= 0 && !wxDisplay(static_cast<unsigned>(monitor)).GetGeometry().Intersects(where))
        return -1;
#endif
    return monitor;
}

bool DevicesFollowWindows()
{
    return !wxCHECK_VERSION(3, 2, 0);
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
    const auto* const app = dynamic_cast<const wxApp*>(wxApp::GetInstance()); // perhaps one without a GUI
    window = app ? app->GetTopWindow() : nullptr;                             // required there
    if (!window)
        return wxSize(0, 0);
#endif
    return wxRendererNative::Get().GetCheckBoxSize(window);
}

} // namespace gtkport
} // namespace vela7
