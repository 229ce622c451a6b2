#include "port/gtkport.h"

#include <wx/animate.h>
#include <wx/app.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/menu.h>
#include <wx/renderer.h>
#include <wx/sizer.h>
#include <wx/version.h>
#include <wx/window.h>

// The deprecations of GTK's own headers are not ours to mend.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#pragma GCC diagnostic ignored "-Wpedantic"
#include <gtk/gtk.h>
#pragma GCC diagnostic pop

#include <vector>

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

// A widget that leaves its top-level window while GTK gives it the focus becomes that window's focus all the
// same, also when it has no more to do with it.
void ForgetStrayFocus()
{
    GList* const tops = gtk_window_list_toplevels();
    for (const GList* entry = tops; entry; entry = entry->next) {
        auto* const top = static_cast<GtkWidget*>(entry->data);
        GtkWidget* const focus = gtk_window_get_focus(GTK_WINDOW(top));
        if (focus && gtk_widget_get_toplevel(focus) != top)
            gtk_window_set_focus(GTK_WINDOW(top), nullptr);
    }
    g_list_free(tops);
}

class CKeptWidgets : public wxObject
{
public:
    explicit CKeptWidgets(const wxWindow& window) { Keep(window); }
    CKeptWidgets(const CKeptWidgets&) = delete;
    CKeptWidgets& operator=(const CKeptWidgets&) = delete;
    ~CKeptWidgets() override
    {
        ForgetStrayFocus();
        for (const gpointer object : m_objects)
            g_object_unref(object);
    }

private:
    void Keep(gpointer object)
    {
        if (object)
            m_objects.push_back(g_object_ref(object));
    }
    void Keep(const wxWindow& window)
    {
        GtkWidget* const text = const_cast<wxWindow&>(window).GetConnectWidget();
        Keep(window.m_widget);
        Keep(text);
        if (text && GTK_IS_TEXT_VIEW(text))
            Keep(gtk_text_view_get_buffer(GTK_TEXT_VIEW(text)));
        if (window.m_widget && GTK_IS_RANGE(window.m_widget))
            Keep(gtk_range_get_adjustment(GTK_RANGE(window.m_widget)));
        for (const wxWindow* const child : window.GetChildren())
            Keep(*child);
    }

    std::vector<gpointer> m_objects;
};

} // namespace

std::unique_ptr<wxObject> KeepWidgets(wxWindow& window)
{
    return std::make_unique<CKeptWidgets>(window);
}

namespace {

// Never shown, but realized: a widget that comes here keeps its own windows, which GTK's code may be using.
GtkWidget* Aside()
{
    static GtkWidget* place = nullptr; // to the end of the process
    if (!place) {
        GtkWidget* const top = gtk_window_new(GTK_WINDOW_POPUP);
        place = gtk_fixed_new();
        gtk_container_add(GTK_CONTAINER(top), place);
        gtk_widget_realize(place);
    }
    return place;
}

} // namespace

void TakeFromParent(wxWindow& window)
{
    if (wxSizer* const sizer = window.GetContainingSizer())
        sizer->Detach(&window);
    if (window.GetParent())
        window.GetParent()->RemoveChild(&window);
    GtkWidget* const container = window.m_widget ? gtk_widget_get_parent(window.m_widget) : nullptr;
    if (!container)
        return;
    GtkWidget* grab = gtk_grab_get_current();
    while (grab && (grab == window.m_widget || gtk_widget_is_ancestor(grab, window.m_widget))) {
        gtk_grab_remove(grab); // GTK would go on sending it all input
        grab = gtk_grab_get_current();
    }
    G_GNUC_BEGIN_IGNORE_DEPRECATIONS // taking it out and putting it in would unrealize it in between
        gtk_widget_reparent(window.m_widget, Aside());
    G_GNUC_END_IGNORE_DEPRECATIONS
}

wxBitmap BitmapFromXPM(const char* const* lines)
{
    GdkPixbuf* const pixbuf = gdk_pixbuf_new_from_xpm_data(const_cast<const char**>(lines));
    return pixbuf ? wxBitmap(pixbuf) : wxBitmap(); // takes the reference over
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

void DismissList(wxWindow& control)
{
    if (control.m_widget && GTK_IS_COMBO_BOX(control.m_widget))
        gtk_combo_box_popdown(GTK_COMBO_BOX(control.m_widget));
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

void CloseMenu(wxMenu& menu)
{
    if (gtk_widget_get_visible(menu.m_menu))
        gtk_menu_shell_cancel(GTK_MENU_SHELL(menu.m_menu));
}

void CloseSubMenu(wxMenuItem& item)
{
    wxMenu* const sub = item.GetSubMenu();
    if (sub && item.GetMenu() && gtk_widget_get_visible(sub->m_menu))
        gtk_menu_shell_deselect(GTK_MENU_SHELL(item.GetMenu()->m_menu));
}

bool MenuCommandsReachParents()
{
    return wxCHECK_VERSION(3, 2, 0);
}

} // namespace gtkport
} // namespace vela7
