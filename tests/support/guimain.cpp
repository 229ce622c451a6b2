// The main function of GUI tests: all of them run from a one-shot timer inside the main loop of a real wx
// application, so that nested loops, timers and deferred calls work as they do for a user.
#include "support/faults.h"
#include "support/fixture.h"
#include "support/runtests.h"

#include <clocale>
#include <glib.h>
#include <unistd.h>
#include <wx/log.h>
#include <wx/timer.h>
#include <wx/wx.h>

namespace vela7::test {

wxLayoutDirection applicationDirection = wxLayout_Default;

namespace {

std::string Utf8(const wxString& text)
{
    return std::string(text.utf8_str());
}

void RecordAssert(const wxString& file, int line, const wxString& func, const wxString& cond,
                  const wxString& msg)
{
    RecordFault(Fault::wxAssert, Utf8(wxString::Format("%s:%d %s: %s / %s", file, line, func, cond, msg)));
}

void RecordGLibMessage(const gchar* domain, GLogLevelFlags level, const gchar* message, gpointer)
{
    if (level & (G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING))
        RecordFault(Fault::glibMessage, std::string(domain ? domain : "") + ": " + message);
    if (!(level & (G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING)) || (level & G_LOG_FLAG_FATAL))
        g_log_default_handler(domain, level, message, nullptr);
}

// What is logged in GLib's newer way, as GTK 3 does, does not come to the handler.
GLogWriterOutput RecordGLibFields(GLogLevelFlags level, const GLogField* fields, gsize count, gpointer)
{
    if (!(level & (G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING)))
        return g_log_writer_default(level, fields, count, nullptr);
    std::string domain, message;
    for (const GLogField* field = fields; field != fields + count; ++field)
        for (auto* const part : {&domain, &message})
            if (std::string(part == &domain ? "GLIB_DOMAIN" : "MESSAGE") == field->key)
                *part = static_cast<const char*>(field->value);
    RecordGLibMessage(domain.c_str(), level, message.c_str(), nullptr);
    return G_LOG_WRITER_HANDLED;
}

class RecordingLog : public wxLog
{
    void DoLogRecord(wxLogLevel level, const wxString& text, const wxLogRecordInfo& info) override
    {
        if (level <= wxLOG_Warning)
            RecordFault(Fault::wxLog, Utf8(text));
        else
            wxLog::DoLogRecord(level, text, info);
    }
};

class FaultListener : public testing::EmptyTestEventListener
{
    void OnTestEnd(const testing::TestInfo&) override
    {
        for (const std::string& fault : TakeAllFaults())
            ADD_FAILURE() << "not expected by the test: " << fault;
    }
};

class TestApp : public wxApp
{
    class Runner : public wxTimer
    {
    public:
        int result = EXIT_FAILURE;
        bool done = false;
        void Notify() override
        {
            result = RunTests();
            done = true;
            wxTheApp->ExitMainLoop();
        }
    } m_runner;

public:
    bool OnInit() override
    {
        SetExitOnFrameDelete(false);
        wxSetAssertHandler(RecordAssert);
        delete wxLog::SetActiveTarget(new RecordingLog);
        g_log_set_default_handler(RecordGLibMessage, nullptr);
        g_log_set_writer_func(RecordGLibFields, nullptr, nullptr);
        wxInitAllImageHandlers();
        return true;
    }
    wxLayoutDirection GetLayoutDirection() const override { return applicationDirection; }
    int OnRun() override
    {
        m_runner.StartOnce(1);
        wxApp::OnRun();
        return m_runner.done ? m_runner.result : EXIT_FAILURE;
    }
    void ExitMainLoop() override
    {
        if (m_runner.done)
            wxApp::ExitMainLoop();
        else
            RecordFault(Fault::loop, "the main loop was told to end");
    }
    bool OnExceptionInMainLoop() override
    {
        try {
            throw;
        } catch (const std::exception& error) {
            RecordFault(Fault::loop, std::string("an exception reached the main loop: ") + error.what());
        } catch (...) {
            RecordFault(Fault::loop, "an exception of unknown type reached the main loop");
        }
        return true;
    }
};

pid_t running = 0; // this process while its tests are not through; a forked child may exit as it likes

void CatchEarlyExit()
{
    if (running != getpid())
        return;
    std::fputs("error: the program ended before its tests did\n", stderr);
    _exit(EXIT_FAILURE);
}

} // namespace
} // namespace vela7::test

wxIMPLEMENT_APP_NO_MAIN(vela7::test::TestApp);

int main(int argc, char** argv)
{
    using namespace vela7::test;
    std::setlocale(LC_ALL, "");
    testing::InitGoogleMock(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new FaultListener);
    running = getpid();
    std::atexit(CatchEarlyExit);
    int result = wxEntry(argc, argv);
    running = 0;
    for (const std::string& fault : TakeAllFaults()) {
        std::fprintf(stderr, "error: outside of any test: %s\n", fault.c_str());
        result = EXIT_FAILURE;
    }
    return result;
}
