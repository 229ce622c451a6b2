#include "port/wayland.h"

#include "port/drawing.h"
#include "port/gtk.h"

#include <wx/bitmap.h>
#include <wx/brush.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/popupwin.h>
#include <wx/window.h>

#include <map>

#if GTK_CHECK_VERSION(3, 0, 0) && defined(GDK_WINDOWING_WAYLAND)
#include <gdk/gdkwayland.h>
#endif

namespace vela7 {
namespace gtkport {

#if GTK_CHECK_VERSION(3, 0, 0) && defined(GDK_WINDOWING_WAYLAND)

bool IsOnWayland()
{
    return GDK_IS_WAYLAND_DISPLAY(gdk_display_get_default());
}

namespace {

class CPicture;

// Never destroyed: windows may die after other statics. Empty on other displays.
std::map<const wxWindow*, CPicture*>& Pictures()
{
    static auto* const pictures = new std::map<const wxWindow*, CPicture*>;
    return *pictures;
}

class CPicture : public CKeptPicture
{
public:
    explicit CPicture(wxWindow& window) : m_window(window) { Pictures()[&window] = this; }
    ~CPicture() override
    {
        Pictures().erase(&m_window);
        StopWaiting();
    }
    CPicture(const CPicture&) = delete;
    CPicture& operator=(const CPicture&) = delete;

    wxRect TakeDamage() override;
    std::unique_ptr<wxDC> BeginPaint(const wxRect& damage) override;
    void CopyTo(wxDC& dc) override;
    wxColour GetPixel(const wxPoint& point) override;
    std::unique_ptr<wxDC> MakeDC();
    void ShowInNextFrame();

private:
    static void OnLaidOut(GdkFrameClock*, gpointer self) { static_cast<CPicture*>(self)->Invalidate(); }
    GdkWindow* ShownWindow() const;
    bool Fit();
    void StopWaiting();
    void Invalidate();

    wxWindow& m_window;
    wxBitmap m_bitmap;
    GdkFrameClock* m_clock = nullptr; // while it waits for its next frame
    gulong m_handler = 0;
    bool m_copies = false; // the coming paint is of the whole window, for the copy
    wxRect m_damage;       // of that paint
};

// Null for one that cannot be seen: what is drawn on it is lost, and it is painted when it is shown.
GdkWindow* CPicture::ShownWindow() const
{
    GtkWidget* const widget = m_window.m_wxwindow;
    return widget && gtk_widget_get_mapped(widget) ? gtk_widget_get_window(widget) : nullptr;
}

// Makes the picture as large as the window. True when it has been so already.
bool CPicture::Fit()
{
    wxSize extent = m_window.GetClientSize();
    extent.IncTo(wxSize(1, 1));
    const double scale = m_window.GetContentScaleFactor();
    if (m_bitmap.IsOk() && m_bitmap.GetLogicalSize() == extent && m_bitmap.GetScaleFactor() == scale)
        return true;
    wxBitmap fitting;
    fitting.CreateScaled(extent.x, extent.y, -1, scale);
    wxMemoryDC dc;
    dc.SelectObjectAsSource(fitting);
    dc.SetBackground(m_window.GetBackgroundColour());
    dc.Clear();
    if (m_bitmap.IsOk())
        dc.DrawBitmap(m_bitmap, 0, 0);
    m_bitmap = fitting;
    return false;
}

// Several devices draw on the same picture: selected as a source it is not copied for each of them.
std::unique_ptr<wxDC> CPicture::MakeDC()
{
    if (!ShownWindow())
        return nullptr;
    Fit();
    auto dc = std::make_unique<wxMemoryDC>();
    dc->SelectObjectAsSource(m_bitmap);
    return dc;
}

wxRect CPicture::TakeDamage()
{
    const bool fits = Fit();
    const bool copies = std::exchange(m_copies, false);
    if (!fits)
        return wxRect(m_window.GetClientSize());
    return copies ? m_damage : m_window.GetUpdateRegion().GetBox();
}

std::unique_ptr<wxDC> CPicture::BeginPaint(const wxRect& damage)
{
    auto dc = std::make_unique<wxMemoryDC>();
    dc->SelectObjectAsSource(m_bitmap);
    dc->SetClippingRegion(damage);
    Erase(*dc, m_window);
    return dc;
}

void CPicture::CopyTo(wxDC& dc)
{
    wxMemoryDC source;
    source.SelectObjectAsSource(m_bitmap);
    Blit(dc, wxRect(m_bitmap.GetLogicalSize()), source, wxPoint(), wxCOPY, false);
}

wxColour CPicture::GetPixel(const wxPoint& point)
{
    const std::unique_ptr<wxDC> dc = MakeDC();
    return dc ? gtkport::GetPixel(*dc, point) : wxColour();
}

// The last moment before the paint: by then all that is damaged in this frame is known.
void CPicture::ShowInNextFrame()
{
    GdkWindow* const window = ShownWindow();
    if (!window || m_clock)
        return;
    m_clock = GDK_FRAME_CLOCK(g_object_ref(gdk_window_get_frame_clock(window)));
    m_handler = g_signal_connect_after(m_clock, "layout", G_CALLBACK(OnLaidOut), this);
    gdk_frame_clock_request_phase(m_clock, GDK_FRAME_CLOCK_PHASE_LAYOUT);
}

void CPicture::StopWaiting()
{
    if (!m_clock)
        return;
    g_signal_handler_disconnect(m_clock, m_handler);
    g_object_unref(std::exchange(m_clock, nullptr));
}

void CPicture::Invalidate()
{
    StopWaiting();
    GdkWindow* const window = ShownWindow();
    if (!window)
        return;
    m_copies = true;
    m_damage = {};
    if (cairo_region_t* const damage = gdk_window_get_update_area(window)) {
        cairo_rectangle_int_t box;
        cairo_region_get_extents(damage, &box);
        m_damage = wxRect(box.x, box.y, box.width, box.height);
        cairo_region_destroy(damage);
    }
    gdk_window_invalidate_rect(window, nullptr, TRUE);
}

CPicture* PictureOf(const wxWindow& window)
{
    const auto found = Pictures().find(&window);
    return found != Pictures().end() ? found->second : nullptr;
}

} // namespace

std::shared_ptr<CKeptPicture> CKeptPicture::Make(wxWindow& window)
{
    return IsOnWayland() ? std::make_shared<CPicture>(window) : nullptr;
}

std::unique_ptr<wxDC> MakeWindowDC(wxWindow& window)
{
    CPicture* const picture = PictureOf(window);
    std::unique_ptr<wxDC> dc = picture ? picture->MakeDC() : nullptr;
    return dc ? std::move(dc) : std::make_unique<wxClientDC>(&window);
}

void ShowDrawn(const wxWindow& window)
{
    if (CPicture* const picture = PictureOf(window))
        picture->ShowInNextFrame();
}

#else

bool IsOnWayland()
{
    return false;
}

std::shared_ptr<CKeptPicture> CKeptPicture::Make(wxWindow&)
{
    return nullptr;
}

std::unique_ptr<wxDC> MakeWindowDC(wxWindow& window)
{
    return std::make_unique<wxClientDC>(&window);
}

void ShowDrawn(const wxWindow&) {}

#endif

bool ShowWithoutGrab(wxPopupWindow& popup)
{
    const bool changed = popup.wxPopupWindow::Show(true);
    gtk_grab_add(popup.m_widget); // wx takes it off when it hides the popup
    return changed;
}

} // namespace gtkport
} // namespace vela7
