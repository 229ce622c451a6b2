#include "gui.h"

#include "fuzz.h"
#include "tarn/assert.h"

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#pragma GCC diagnostic ignored "-Wpedantic"
#include <gtk/gtk.h>
#pragma GCC diagnostic pop
#include <sanitizer/lsan_interface.h>
#include <wx/app.h>
#include <wx/init.h>
#include <wx/log.h>

#include <clocale>
#include <cstdlib>

namespace vela7::fuzz {
namespace {

void Complain(const std::string& what)
{
    Demand(false, what.c_str());
}

void OnWxAssert(const wxString& file, int line, const wxString& function, const wxString& condition,
                const wxString&)
{
    Complain(std::string(wxString::Format("%s:%d %s: %s", file, line, function, condition).utf8_str()));
}

void OnToolkitAssert(const char* expression, const char*, int)
{
    Complain(expression);
}

void OnGLibMessage(const gchar* domain, GLogLevelFlags level, const gchar* message, gpointer)
{
    if (level & (G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING))
        Complain(std::string(domain ? domain : "") + ": " + message);
}

// wxLogError opens a dialog in an application.
class CComplainingLog : public wxLog
{
    void DoLogRecord(wxLogLevel level, const wxString& text, const wxLogRecordInfo&) override
    {
        if (level <= wxLOG_Warning)
            Complain(std::string(text.utf8_str()));
    }
};

class CApplication : public wxApp
{
    bool OnInit() override { return true; }
};

} // namespace

void StartApplication()
{
    static wchar_t name[] = L"fuzz";
    static wchar_t sync[] = L"--sync"; // each X request by itself, so that an error shows who asked
    static wchar_t* arguments[] = {name, sync, nullptr};
    int count = std::getenv("VELA7_FUZZ_SYNC") ? 2 : 1;
    const __lsan::ScopedDisabler leaksOfTheStart; // wx loses the argument
    std::setlocale(LC_ALL, "");
    wxApp::SetInstance(new CApplication);
    Demand(wxEntryStart(count, arguments) && wxTheApp->CallOnInit(), "a wx application");
    wxSetAssertHandler(OnWxAssert);
    delete wxLog::SetActiveTarget(new CComplainingLog);
    g_log_set_default_handler(OnGLibMessage, nullptr);
    TARN::set_assert_handler(OnToolkitAssert);
}

void Settle()
{
    gdk_display_sync(gdk_display_get_default());
    while (gtk_events_pending())
        gtk_main_iteration();
}

} // namespace vela7::fuzz
