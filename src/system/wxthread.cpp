#include "vela7/wxthread.h"

#include <wx/app.h>

#include <cxxabi.h>
#include <exception>

namespace vela7 {

namespace {

/// Holds a mutex. With one that cannot be unlocked any more both threads would wait forever.
class Holding
{
public:
    explicit Holding(wxMutex& mutex) : m_mutex(mutex), m_locked(mutex.Lock() == wxMUTEX_NO_ERROR) {}
    ~Holding()
    {
        if (m_locked && m_mutex.Unlock() != wxMUTEX_NO_ERROR)
            std::terminate();
    }
    Holding(const Holding&) = delete;
    Holding& operator=(const Holding&) = delete;

private:
    wxMutex& m_mutex;
    const bool m_locked;
};

/// Inside a catch clause.
void ReportUnhandled() noexcept
{
    try {
        if (wxAppConsole* const application = wxApp::GetInstance()) // perhaps one without a GUI
            application->OnUnhandledException();
    } catch (...) {
        // the application was asked, and there is nobody else
    }
}

} // namespace

void CLock::Enter()
{
    m_mutex.Lock();
}

void CLock::Leave()
{
    m_mutex.Unlock();
}

CThreadRunner::CThreadRunner() : wxThread(wxTHREAD_JOINABLE) {}

void CThreadRunner::Run(IRunnable* runnable)
{
    if (m_started)
        return; // the worker reads the runnable
    m_runnable = runnable;
    if (!runnable || wxThread::Create(0) != wxTHREAD_NO_ERROR)
        return;
    m_started = true;
    wxThread::Run();
}

void CThreadRunner::Join()
{
    {
        const Holding lock(m_mutex);
        m_stop = true;
    }
    if (m_started) {
        if (wxThread::This() == this)
            return;
        wxThread::Delete(nullptr, wxTHREAD_WAIT_YIELD);
        // Delete does not wait for a thread that has left Entry already, though it may still use this object.
        wxThread::Wait(wxTHREAD_WAIT_YIELD);
    }
    delete this;
}

void CThreadRunner::Sleep(unsigned long milliseconds)
{
    wxThread::Sleep(milliseconds);
}

bool CThreadRunner::IsRunning() const
{
    return wxThread::IsRunning();
}

wxThread::ExitCode CThreadRunner::Entry()
{
    try {
        CallRunnable();
    } catch (abi::__forced_unwind&) {
        throw; // not an error: the thread ends itself, and must be let go
    } catch (...) {
        ReportUnhandled();
    }
    return nullptr;
}

void CThreadRunner::CallRunnable()
{
    while (m_runnable && !TestDestroy()) {
        const bool again = m_runnable->Run();
        const Holding lock(m_mutex);
        if (m_stop || !again)
            return;
    }
}

// wx keeps a list of its threads, from its initialisation to its end.
IRunner* CreateRunner()
{
    return wxApp::GetInstance() && wxThread::GetMainId() != 0 ? new CThreadRunner : nullptr;
}

} // namespace vela7
