#include "life/capture.h"

#include "life/hanging.h"
#include "port/pointer.h"

#include <wx/window.h>

#include <vector>

namespace vela7 {
namespace capture {

namespace {

void CaptureAnew(wxWindow& window)
{
    gtkport::IgnorePastGrabs(window);
    window.CaptureMouse();
}

// wx's own stack without one window. Nothing is called here that could end another one meanwhile.
void TakeOffStack(wxWindow& window)
{
    std::vector<wxWindow*> above;
    for (wxWindow* top = wxWindow::GetCapture(); top; top = wxWindow::GetCapture()) {
        top->ReleaseMouse();
        if (const wxWindow* const next = wxWindow::GetCapture()) // with which wx goes on
            gtkport::IgnorePastGrabs(*next);
        if (top == &window)
            break;
        above.push_back(top);
    }
    for (; !above.empty(); above.pop_back())
        CaptureAnew(*above.back());
}

bool IsIn(const wxWindow* window, const wxWindow& container)
{
    while (window && window != &container)
        window = window->GetParent();
    return window != nullptr;
}

} // namespace

void Take(wxWindow& window)
{
    if (window.HasCapture())
        return;
    TakeOffStack(window);
    CaptureAnew(window);
}

void Release(wxWindow& window)
{
    if (window.HasCapture())
        Leave(window);
}

void Leave(wxWindow& window)
{
    if (!wxWindow::GetCapture())
        return;
    TakeOffStack(window);
    if (!wxWindow::GetCapture())
        hanging::RestoreGrab();
}

void LeaveAllIn(const wxWindow& window)
{
    for (wxWindow* top = wxWindow::GetCapture(); top && IsIn(top, window); top = wxWindow::GetCapture())
        top->ReleaseMouse();
}

} // namespace capture
} // namespace vela7
