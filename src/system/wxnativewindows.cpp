#include "vela7/wxnativewindows.h"

#include "vela7/system.h"
#include "vela7/wxconvert.h"

#include <wx/app.h>
#include <wx/settings.h>
#include <wx/window.h>

namespace vela7 {

bool IsWindowExternal(const wxWindow* window, const wxWindow* owner)
{
    return !window || (window != owner && window->GetParent() != owner);
}

wxWindow* GetTopWindow()
{
    const auto* const app = dynamic_cast<const wxApp*>(wxApp::GetInstance());
    return app ? app->GetTopWindow() : nullptr;
}

void UpdateWindowState(wxWindow* window)
{
    if (!window)
        return;
    const font gui = GetDefaultGUIFont();
    if (gui.size > 0)
        window->SetFont(vela2wx(gui));
    window->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
    window->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
}

} // namespace vela7
