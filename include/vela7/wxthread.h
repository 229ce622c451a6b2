/// Lock and worker thread of the wx back-end.
#pragma once

#include "vela7/system.h"
#include "vela7/wxexport.h"

#include <wx/thread.h>

namespace vela7 {

/// Not recursive. Enter and Leave on any thread; the handles on it, as all handles, on one at a time.
class VELA7_WX_API CLock final : public ILock
{
public:
    void Enter() override;
    void Leave() override;

private:
    wxMutex m_mutex{wxMUTEX_DEFAULT};
};

/// A joinable thread that calls one runnable until it answers false or the runner is joined.
///
/// It runs once: when a runnable was started, later calls of Run do nothing, also after its work has ended.
/// The runnable is never deleted; it must live until Join returns. An exception that it throws ends the work
/// and is reported, on the worker, to wxApp::OnUnhandledException when there is an application.
/// wx must be initialised from construction to Join. Thread: any, but Run and Join one at a time; Join waits
/// without dispatching events, so a runnable must not wait for the thread that joins it.
class VELA7_WX_API CThreadRunner final : public IRunner, private wxThread
{
public:
    CThreadRunner();

    void Run(IRunnable* runnable) override;
    /// Also ends a runner that never ran. From its own runnable it only asks the work to stop: a thread
    /// cannot wait for itself, so somebody else must join the runner after that.
    void Join() override;
    void Sleep(unsigned long milliseconds) override;
    bool IsRunning() const override;

private:
    ~CThreadRunner() override = default; // Join does it

    ExitCode Entry() override;
    void CallRunnable();

    IRunnable* m_runnable = nullptr;
    wxMutex m_mutex{wxMUTEX_DEFAULT}; // of the stop flag
    bool m_stop = false;
    bool m_started = false; // there is a thread to wait for
};

/// What ISystem::CreateRunner answers: a runner that its own Join deletes; null while wx is not initialised.
/// Any thread.
VELA7_WX_API IRunner* CreateRunner();

} // namespace vela7
