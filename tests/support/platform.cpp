#include "support/platform.h"

#include <gtk/gtk.h>
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

// Turns the loop until a frame of the clock is through.
void AwaitFrame(GdkFrameClock* frames)
{
    bool done = false;
    const auto notice = [](GdkFrameClock*, gpointer painted) { *static_cast<bool*>(painted) = true; };
    const gulong handler = g_signal_connect(
        frames, "after-paint", G_CALLBACK(+static_cast<void (*)(GdkFrameClock*, gpointer)>(notice)), &done);
    gdk_frame_clock_request_phase(frames, GDK_FRAME_CLOCK_PHASE_AFTER_PAINT);
    for (const wxStopWatch clock; !done && clock.Time() < 200;) // a clock whose window has gone stands still
        gtk_events_pending() ? void(gtk_main_iteration()) : g_usleep(200);
    if (g_signal_handler_is_connected(frames, handler)) // it goes with the clock's window
        g_signal_handler_disconnect(frames, handler);
}

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
    GList* const all = gtk_window_list_toplevels();
    g_list_foreach(
        all, [](gpointer window, gpointer) { g_object_ref(window); }, nullptr);
    for (const GList* one = all; one; one = one->next) {
        auto* const widget = static_cast<GtkWidget*>(one->data);
        GdkFrameClock* const frames =
            gtk_widget_get_mapped(widget) ? gtk_widget_get_frame_clock(widget) : nullptr;
        if (!frames)
            continue;
        g_object_ref(frames);
        AwaitFrame(frames);
        g_object_unref(frames);
    }
    g_list_free_full(all, g_object_unref);
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
