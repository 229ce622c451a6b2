#include "support/waits.h"

#include "support/platform.h"
#include "support/x11.h"

#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <wx/evtloop.h>
#include <wx/stopwatch.h>
#include <wx/wx.h>

namespace vela7::test {
namespace {

// Bounded: an idle handler that keeps asking for more would otherwise hold a wait beyond its limit.
void Drain()
{
    const wxStopWatch clock;
    wxWakeUpIdle(); // without it, destroyed windows and deferred work may never be reached
    // The second question is for GTK 3, which holds input back in its own queue until the next frame.
    while ((gtk_events_pending() || gdk_events_pending()) && clock.Time() < 500)
        gtk_main_iteration();
}

} // namespace

void Turn(unsigned ms)
{
    Drain();
    if (wxEventLoopBase* loop = wxEventLoopBase::GetActive())
        loop->DispatchTimeout(ms);
}

void Settle()
{
    // Twice, since what the first round brings may have asked the server or the window manager for more.
    for (int round = 0; round < 2; ++round) {
        gdk_display_sync(gdk_display_get_default());
        EXPECT_TRUE(x11::SyncWithWindowManager()) << "the window manager does not answer";
        gdk_display_sync(gdk_display_get_default());
        Drain();
        AwaitFrames();
    }
}

bool WaitFor(const std::function<bool()>& condition, const std::string& what, long ms, const char* file,
             int line)
{
    const wxStopWatch clock;
    while (!condition()) {
        if (clock.Time() > ms) {
            ADD_FAILURE_AT(file, line) << "waited " << ms << " ms in vain for: " << what;
            return false;
        }
        Turn();
    }
    return true;
}

} // namespace vela7::test
