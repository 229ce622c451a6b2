#include "port/pointer.h"

#include "port/gtk.h"

#include <wx/window.h>

namespace vela7 {
namespace gtkport {

void SetTransient(wxWindow& popup, bool transient)
{
    GtkWidget* const parent = transient && popup.GetParent() ? popup.GetParent()->GetHandle() : nullptr;
    GtkWidget* const top = parent ? gtk_widget_get_toplevel(parent) : nullptr;
    gtk_window_set_transient_for(GTK_WINDOW(popup.GetHandle()),
                                 GTK_IS_WINDOW(top) ? GTK_WINDOW(top) : nullptr);
}

namespace {

// An event that the grab has brought to a top-level window goes on to the popup that it happened on.
gboolean PassToPopup(GtkWidget*, GdkEvent* event, gpointer popup)
{
    GtkWidget* const target = gtk_get_event_widget(event);
    if (!target || gtk_widget_get_toplevel(target) != popup)
        return FALSE;
    const bool crossing = event->type == GDK_ENTER_NOTIFY || event->type == GDK_LEAVE_NOTIFY;
    if (crossing)
        gtk_widget_event(target, event);
    else
        gtk_propagate_event(target, event);
    return TRUE;
}

} // namespace

CPastGrab::CPastGrab(const wxWindow& popup)
    : m_top(gtk_widget_get_toplevel(popup.GetParent()->GetHandle())),
      m_handler(g_signal_connect(m_top, "event", G_CALLBACK(PassToPopup), popup.GetHandle()))
{
    g_object_add_weak_pointer(G_OBJECT(m_top), &m_top);
}

CPastGrab::~CPastGrab()
{
    if (!m_top)
        return;
    g_signal_handler_disconnect(m_top, m_handler);
    g_object_remove_weak_pointer(G_OBJECT(m_top), &m_top);
}

namespace {

GdkWindow* WindowWithPointerGrab(GdkDisplay* display)
{
    GdkWindow* window = nullptr;
    gboolean ownerEvents = FALSE;
#if GTK_CHECK_VERSION(3, 0, 0)
    GdkDevice* const pointer = gdk_seat_get_pointer(gdk_display_get_default_seat(display));
    G_GNUC_BEGIN_IGNORE_DEPRECATIONS // and nothing else to ask
        gdk_device_grab_info_libgtk_only(display, pointer, &window, &ownerEvents);
    G_GNUC_END_IGNORE_DEPRECATIONS
#else
    gdk_pointer_grab_info_libgtk_only(display, &window, &ownerEvents);
#endif
    return window;
}

gboolean DropPastGrab(GtkWidget* widget, GdkEvent* event, gpointer)
{
    return event->type == GDK_GRAB_BROKEN && !event->grab_broken.keyboard &&
           WindowWithPointerGrab(gtk_widget_get_display(widget)) == event->grab_broken.window;
}

} // namespace

void IgnorePastGrabs(const wxWindow& window)
{
    static constexpr char known[] = "vela7-ignores-past-grabs";
    GtkWidget* const widget = window.m_wxwindow ? window.m_wxwindow : window.m_widget;
    if (!widget || g_object_get_data(G_OBJECT(widget), known))
        return;
    g_object_set_data(G_OBJECT(widget), known, widget);
    g_signal_connect(widget, "event", G_CALLBACK(DropPastGrab), nullptr); // before wx's own handler
}

void GrabPointer(const wxWindow& window)
{
    GdkWindow* const target = window.m_widget ? gtk_widget_get_window(window.m_widget) : nullptr;
    if (!target)
        return;
    const auto mask = GdkEventMask(GDK_POINTER_MOTION_MASK | GDK_POINTER_MOTION_HINT_MASK |
                                   GDK_BUTTON_PRESS_MASK | GDK_BUTTON_RELEASE_MASK);
#if GTK_CHECK_VERSION(3, 0, 0)
    // A grab of the device and not of the seat: wx ends it as one.
    GdkDevice* const pointer =
        gdk_seat_get_pointer(gdk_display_get_default_seat(gdk_window_get_display(target)));
    G_GNUC_BEGIN_IGNORE_DEPRECATIONS
    gdk_device_grab(pointer, target, GDK_OWNERSHIP_NONE, TRUE, mask, nullptr, GDK_CURRENT_TIME);
    G_GNUC_END_IGNORE_DEPRECATIONS
#else
    gdk_pointer_grab(target, TRUE, mask, nullptr, nullptr, GDK_CURRENT_TIME);
#endif
}

} // namespace gtkport
} // namespace vela7
