#include "life/callout.h"

#include <wx/app.h>
#include <wx/evtloop.h>

namespace vela7 {

namespace {

// False when the event loop is to be left.
bool AskApplication()
{
    wxAppConsole* const application = wxApp::GetInstance(); // perhaps one without a GUI
    try {
        return application && application->OnExceptionInMainLoop();
    } catch (...) {
        application->OnUnhandledException();
        return false;
    }
}

} // namespace

void ReportException() noexcept
{
    if (AskApplication())
        return;
    if (wxEventLoopBase* const loop = wxEventLoopBase::GetActive())
        loop->Exit();
}

} // namespace vela7
