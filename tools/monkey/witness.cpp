// A GTK module: GTK loads what GTK_MODULES names into any program, so that the programs under test stay as
// they are. A failed wx assertion goes to the standard error instead of into a dialog, and like each message
// of GLib, GDK and GTK it comes with its stack. SIGQUIT, which the monkey sends to a program that does not
// answer, prints where it hangs; without sanitizers crashes print their stacks as well.
#include <csignal>
#include <cstdio>
#include <execinfo.h>
#include <glib.h>
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

} // namespace

void gtk_module_init(int*, char***)
{
    wxSetAssertHandler(OnAssert);
    g_log_set_default_handler(OnMessage, nullptr);
    std::signal(SIGQUIT, OnSignal);
    if (!__sanitizer_print_stack_trace)
        for (const int signal : {SIGSEGV, SIGBUS, SIGABRT, SIGFPE, SIGILL})
            std::signal(signal, OnSignal);
}
