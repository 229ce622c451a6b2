#include "support/platform.h"

#include <algorithm>
#include <gdk/gdkx.h>
#include <gtk/gtk.h>
#include <list>
#include <wx/animate.h>
#include <wx/stopwatch.h>
#include <wx/window.h>

namespace vela7::test {

#if GTK_CHECK_VERSION(3, 0, 0)

namespace {

GdkDevice* Pointer()
{
    return gdk_seat_get_pointer(gdk_display_get_default_seat(gdk_display_get_default()));
}

// A frame of one window, asked for and waited for.
class CFrame
{
public:
    explicit CFrame(GdkFrameClock* frames)
        : m_frames(static_cast<GdkFrameClock*>(g_object_ref(frames))),
          m_handler(g_signal_connect(frames, "after-paint", G_CALLBACK(OnPainted), this))
    {
        gdk_frame_clock_request_phase(frames, GDK_FRAME_CLOCK_PHASE_AFTER_PAINT);
    }
    ~CFrame()
    {
        if (g_signal_handler_is_connected(m_frames, m_handler)) // they go with the clock's window
            g_signal_handler_disconnect(m_frames, m_handler);
        g_object_unref(m_frames);
    }
    CFrame(const CFrame&) = delete;
    CFrame& operator=(const CFrame&) = delete;

    bool painted = false;

private:
    static void OnPainted(GdkFrameClock*, gpointer self) { static_cast<CFrame*>(self)->painted = true; }

    GdkFrameClock* const m_frames;
    const gulong m_handler;
};

struct PixbufReader : wxAnimationCtrl
{
    GdkPixbufAnimation* Read(const wxAnimation& animation)
    {
        m_animation = animation;
        return AnimationImplGetPixbuf();
    }
};

} // namespace

void AwaitFrames()
{
    std::list<CFrame> frames;
    GList* const all = gtk_window_list_toplevels();
    for (const GList* one = all; one; one = one->next) {
        auto* const widget = static_cast<GtkWidget*>(one->data);
        GdkFrameClock* const clock =
            gtk_widget_get_mapped(widget) ? gtk_widget_get_frame_clock(widget) : nullptr;
        if (clock)
            frames.emplace_back(clock);
    }
    g_list_free(all);
    const auto isPainted = [](const CFrame& frame) { return frame.painted; };
    // The clock of a window that goes meanwhile stands still.
    for (const wxStopWatch clock;
         !std::all_of(frames.begin(), frames.end(), isPainted) && clock.Time() < 200;)
        gtk_events_pending() ? void(gtk_main_iteration()) : g_usleep(200);
}

wxPoint Fraction(const wxWindow& window)
{
    GdkWindow* const top = gdk_window_get_toplevel(gtk_widget_get_window(window.GetHandle()));
    wxPoint whole, exact;
    gdk_window_get_origin(top, &whole.x, &whole.y);
    Window child = None;
    XTranslateCoordinates(GDK_WINDOW_XDISPLAY(top), GDK_WINDOW_XID(top), GDK_ROOT_WINDOW(), 0, 0, &exact.x,
                          &exact.y, &child);
    return exact - whole * gdk_window_get_scale_factor(top);
}

bool PointerIsGrabbed()
{
    return gdk_display_device_is_grabbed(gdk_display_get_default(), Pointer()) || gtk_grab_get_current();
}

void GrabPointer(const wxWindow& window)
{
    gdk_seat_grab(gdk_display_get_default_seat(gdk_display_get_default()),
                  gtk_widget_get_window(window.GetHandle()), GDK_SEAT_CAPABILITY_ALL_POINTING, FALSE, nullptr,
                  nullptr, nullptr, nullptr);
}

void UngrabPointer()
{
    gdk_seat_ungrab(gdk_display_get_default_seat(gdk_display_get_default()));
}

bool IsPrelit(GtkWidget* widget)
{
    return (gtk_widget_get_state_flags(widget) & GTK_STATE_FLAG_PRELIGHT) != 0;
}

GdkPixbufAnimation* PixbufOf(const wxAnimation& animation)
{
    return PixbufReader().Read(animation);
}

#else

void AwaitFrames() {}

wxPoint Fraction(const wxWindow&)
{
    return {};
}

bool PointerIsGrabbed()
{
    return gdk_pointer_is_grabbed() || gtk_grab_get_current();
}

void GrabPointer(const wxWindow& window)
{
    gdk_pointer_grab(gtk_widget_get_window(window.GetHandle()), FALSE, GDK_BUTTON_PRESS_MASK, nullptr,
                     nullptr, GDK_CURRENT_TIME);
}

void UngrabPointer()
{
    gdk_pointer_ungrab(GDK_CURRENT_TIME);
}

bool IsPrelit(GtkWidget* widget)
{
    return gtk_widget_get_state(widget) == GTK_STATE_PRELIGHT;
}

GdkPixbufAnimation* PixbufOf(const wxAnimation& animation)
{
    return animation.GetPixbuf();
}

#endif

} // namespace vela7::test
