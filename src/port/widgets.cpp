#include "port/widgets.h"

#include "port/gtk.h"

#include <wx/sizer.h>
#include <wx/window.h>

#include <vector>

namespace vela7 {
namespace gtkport {

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

void DismissList(wxWindow& control)
{
    if (control.m_widget && GTK_IS_COMBO_BOX(control.m_widget))
        gtk_combo_box_popdown(GTK_COMBO_BOX(control.m_widget));
}

} // namespace gtkport
} // namespace vela7
