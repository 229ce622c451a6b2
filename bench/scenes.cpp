#include "scenes.h"

#include <gtk/gtk.h>
#include <wx/frame.h>
#include <wx/sizer.h>
#include <wx/stopwatch.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::uint64_t> allocations{0};

} // namespace

// Counts every allocation of the process, the libraries' included.
void* operator new(std::size_t size)
{
    allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* const storage = std::malloc(size ? size : 1))
        return storage;
    throw std::bad_alloc();
}

void operator delete(void* storage) noexcept
{
    std::free(storage);
}

void operator delete(void* storage, std::size_t) noexcept
{
    std::free(storage);
}

namespace vela7::bench {

std::uint64_t Allocations()
{
    return allocations.load(std::memory_order_relaxed);
}

void SyncX()
{
    gdk_display_sync(gdk_display_get_default());
}

Stage::Stage() : m_frame(new wxFrame(nullptr, wxID_ANY, "bench", wxPoint(50, 50)))
{
    m_frame->SetClientSize(800, 600);
}

Stage::~Stage()
{
    delete m_frame;
    SyncX();
}

void Stage::Show(wxWindow* content)
{
    m_frame->Show();
    m_frame->SetClientSize(800, 600);
    content->SetSize(0, 0, 800, 600);
    GdkWindow* drawable = nullptr;
    while (!drawable || !gdk_window_is_viewable(drawable) || gtk_events_pending()) {
        gtk_main_iteration_do(FALSE);
        SyncX();
        drawable = gtk_widget_get_window(content->GetHandle());
    }
    // GTK 3 paints with the next frame: the first ones must not fall into what is timed.
    for (const wxStopWatch clock; clock.Time() < 100;) {
        gtk_events_pending() ? void(gtk_main_iteration()) : g_usleep(1000);
        SyncX();
    }
}

} // namespace vela7::bench
