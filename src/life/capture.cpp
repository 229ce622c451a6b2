#include "life/capture.h"

#include "life/hanging.h"

#include <wx/window.h>

#include <vector>

namespace vela7 {
namespace capture {

namespace {

// wx's own stack without one window. Nothing is called here that could end another one meanwhile.
void TakeOffStack(wxWindow& window)
{
    std::vector<wxWindow*> above;
    for (wxWindow* top = wxWindow::GetCapture(); top; top = wxWindow::GetCapture()) {
        top->ReleaseMouse(); // wx goes on with the next one
        if (top == &window)
            break;
        above.push_back(top);
    }
    for (; !above.empty(); above.pop_back())
        above.back()->CaptureMouse();
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
    window.CaptureMouse();
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
