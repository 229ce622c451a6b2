// A GTK module: GTK loads what GTK_MODULES names into any program, so that the programs under test stay as
// they are. A failed wx assertion goes to the standard error instead of into a dialog, and like each message
// of GLib, GDK and GTK it comes with its stack. SIGQUIT, which the monkey sends to a program that does not
// answer, prints where it hangs; without sanitizers crashes print their stacks as well. The witness also
// answers the monkey's pings, when the input before them has been dealt with.
#include <csignal>
#include <cstdio>
#include <execinfo.h>
#include <gdk/gdkx.h>
#include <gtk/gtk.h>
#include <iterator>
#include <unistd.h>
#include <wx/debug.h>
#include <wx/string.h>

extern "C" __attribute__((weak)) void __sanitizer_print_stack_trace();
extern "C" __attribute__((visibility("default"))) void gtk_module_init(int*, char***);

namespace {

void PrintStack()
{
    if (__sanitizer_print_stack_trace)
        return __sanitizer_print_stack_trace();
    void* frames[60];
    backtrace_symbols_fd(frames, backtrace(frames, std::size(frames)), STDERR_FILENO);
}

void OnAssert(const wxString& file, int line, const wxString& function, const wxString& condition,
              const wxString& message)
{
    std::fprintf(stderr, "wx assertion: %s:%d %s: %s / %s\n", static_cast<const char*>(file.utf8_str()), line,
                 static_cast<const char*>(function.utf8_str()),
                 static_cast<const char*>(condition.utf8_str()),
                 static_cast<const char*>(message.utf8_str()));
    PrintStack();
}

void OnMessage(const gchar* domain, GLogLevelFlags level, const gchar* message, gpointer)
{
    if (!(level & (G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING)))
        return g_log_default_handler(domain, level, message, nullptr);
    std::fprintf(stderr, "%s: %s\n", domain ? domain : "GLib", message);
    PrintStack();
}

void OnSignal(int signal)
{
    static const char text[] = "ended by a signal at\n";
    std::signal(signal, SIG_DFL);
    if (write(STDERR_FILENO, text, sizeof text - 1) > 0)
        PrintStack();
    raise(signal);
}

void Answer(XEvent ping)
{
    ping.xclient.window = gdk_x11_get_default_root_xwindow();
    XSendEvent(ping.xclient.display, ping.xclient.window, False, SubstructureNotifyMask, &ping);
    XFlush(ping.xclient.display);
}

#if GTK_CHECK_VERSION(3, 0, 0)

void AnswerHeld(GdkFrameClock* frames, const XEvent* ping)
{
    Answer(*ping);
    g_signal_handlers_disconnect_by_data(frames, gpointer(ping));
}

// GTK 3 keeps motion for its next frame.
void AnswerInTime(const XEvent& ping)
{
    GdkWindow* const window =
        gdk_x11_window_lookup_for_display(gdk_display_get_default(), ping.xclient.window);
    if (!window || !gdk_window_is_viewable(window))
        return Answer(ping);
    GdkFrameClock* const frames = gdk_window_get_frame_clock(window);
    const auto forget = [](gpointer held, GClosure*) { delete static_cast<XEvent*>(held); };
    g_signal_connect_data(frames, "after-paint", G_CALLBACK(AnswerHeld), new XEvent(ping), forget,
                          GConnectFlags(0));
    gdk_frame_clock_request_phase(frames, GDK_FRAME_CLOCK_PHASE_AFTER_PAINT);
}

#else

void AnswerInTime(const XEvent& ping)
{
    Answer(ping);
}

#endif

// The monkey's own question whether all earlier input has been dealt with.
GdkFilterReturn OnPing(GdkXEvent* received, GdkEvent*, gpointer)
{
    const XEvent& event = *static_cast<const XEvent*>(received);
    if (event.type != ClientMessage ||
        event.xclient.message_type != gdk_x11_get_xatom_by_name("_MONKEY_PING"))
        return GDK_FILTER_CONTINUE;
    AnswerInTime(event);
    return GDK_FILTER_REMOVE;
}

} // namespace

void gtk_module_init(int*, char***)
{
    gdk_window_add_filter(nullptr, OnPing, nullptr);
    wxSetAssertHandler(OnAssert);
    g_log_set_default_handler(OnMessage, nullptr);
    std::signal(SIGQUIT, OnSignal);
    if (!__sanitizer_print_stack_trace)
        for (const int signal : {SIGSEGV, SIGBUS, SIGABRT, SIGFPE, SIGILL})
            std::signal(signal, OnSignal);
}
