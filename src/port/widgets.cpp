#include "port/widgets.h"

#include "port/gtk.h"

#include <wx/sizer.h>
#include <wx/window.h>

#include <array>
#include <bitset>
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

#if GTK_CHECK_VERSION(3, 0, 0)

namespace {

// After wx's handler and before GTK's. True, for nobody else, when a listener has ended the control.
gboolean TakeFocus(GtkWidget* widget, GdkEventButton*, gpointer)
{
    if (gtk_widget_has_focus(widget))
        return FALSE;
    GtkWidget* const place = gtk_widget_get_toplevel(widget);
    if (GTK_IS_ENTRY(widget))
        gtk_entry_grab_focus_without_selecting(GTK_ENTRY(widget)); // as a click does
    else
        gtk_widget_grab_focus(widget);
    return gtk_widget_get_toplevel(widget) != place;
}

} // namespace

void FocusBeforePress(wxWindow& control)
{
    GtkWidget* const text = control.GetConnectWidget();
    if (!GTK_IS_ENTRY(text) && !GTK_IS_TEXT_VIEW(text))
        return;
    g_signal_handlers_disconnect_by_func(text, gpointer(TakeFocus), nullptr); // once, whoever asks
    g_signal_connect(text, "button-press-event", G_CALLBACK(TakeFocus), nullptr);
}

namespace {

// What a control does without, for each dimension: at first its least size, at last all around its contents.
constexpr const char* kThrift[] = {
    "* { min-width: 0; }",
    "* { margin-left: 0; border-left-width: 0; padding-left: 0;"
    "    margin-right: 0; border-right-width: 0; padding-right: 0; }",
    "* { min-height: 0; }",
    "* { margin-top: 0; border-top-width: 0; padding-top: 0;"
    "    margin-bottom: 0; border-bottom-width: 0; padding-bottom: 0; }",
};
constexpr std::size_t kSteps = 4;

GtkStyleProvider* Thrift(std::size_t step)
{
    static std::array<GtkCssProvider*, kSteps> providers{}; // to the end of the process
    GtkCssProvider*& provider = providers.at(step);
    if (!provider) {
        provider = gtk_css_provider_new();
        gtk_css_provider_load_from_data(provider, kThrift[step], -1, nullptr);
    }
    return GTK_STYLE_PROVIDER(provider);
}

using Thrifts = std::bitset<kSteps>;

void SetThrifts(GtkWidget* widget, gpointer thrifts)
{
    GtkStyleContext* const style = gtk_widget_get_style_context(widget);
    for (std::size_t step = 0; step < kSteps; ++step) {
        gtk_style_context_remove_provider(style, Thrift(step));
        if (static_cast<const Thrifts*>(thrifts)->test(step))
            gtk_style_context_add_provider(style, Thrift(step), GTK_STYLE_PROVIDER_PRIORITY_USER);
    }
    if (GTK_IS_CONTAINER(widget))
        gtk_container_forall(GTK_CONTAINER(widget), SetThrifts, thrifts);
}

struct ThemeSize // of a widget
{
    GtkRequisition least{}; // as the theme alone wants it
    Thrifts thrifts;
};

} // namespace

void FitTheme(wxWindow& control)
{
    static constexpr char known[] = "vela7-theme-size";
    GtkWidget* const widget = control.m_widget;
    if (!widget || !gtk_widget_get_visible(widget)) // while hidden it wants nothing
        return;
    auto* theme = static_cast<ThemeSize*>(g_object_get_data(G_OBJECT(widget), known));
    if (!theme)
        g_object_set_data_full(G_OBJECT(widget), known, theme = new ThemeSize,
                               [](gpointer size) { delete static_cast<ThemeSize*>(size); });
    if (theme->thrifts.none())
        gtk_widget_get_preferred_size(widget, &theme->least, nullptr);
    const wxSize size = control.GetSize();
    Thrifts thrifts;
    thrifts[0] = size.x < theme->least.width;
    thrifts[1] = size.x < theme->least.width / 2;
    thrifts[2] = size.y < theme->least.height;
    thrifts[3] = size.y < theme->least.height / 2;
    if (thrifts == theme->thrifts)
        return;
    theme->thrifts = thrifts;
    SetThrifts(widget, &thrifts);
}

namespace {

// As GTK's own, but over a list of its own, of what is there when its turn comes.
gboolean DrawChildren(GtkWidget* widget, cairo_t* cr)
{
    GList* const children = gtk_container_get_children(GTK_CONTAINER(widget));
    g_list_foreach(
        children, [](gpointer child, gpointer) { g_object_ref(child); }, nullptr);
    for (const GList* entry = children; entry; entry = entry->next) {
        auto* const child = static_cast<GtkWidget*>(entry->data);
        if (gtk_widget_get_parent(child) == widget)
            gtk_container_propagate_draw(GTK_CONTAINER(widget), child, cr);
    }
    g_list_free_full(children, g_object_unref);
    return FALSE;
}

} // namespace

// For the class, since the windows around may be anybody's.
void BearChangesWhileDrawing(const wxWindow& window)
{
    if (window.m_wxwindow && GTK_IS_FIXED(window.m_wxwindow))
        GTK_WIDGET_GET_CLASS(window.m_wxwindow)->draw = DrawChildren;
}

#else

void FocusBeforePress(wxWindow&) {}

void FitTheme(wxWindow&) {}

void BearChangesWhileDrawing(const wxWindow&) {} // each window is drawn by itself

#endif

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
