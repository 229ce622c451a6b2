#include "controls/controlevents.h"

#include "port/widgets.h"

#include <wx/app.h>
#include <wx/event.h>
#include <wx/window.h>

#include <type_traits> // wx/weakref.h needs it and does not include it
#include <wx/weakref.h>

namespace vela7 {

bool IsTabPress(const wxEvent& event)
{
    return event.GetEventType() == wxEVT_KEY_DOWN &&
           static_cast<const wxKeyEvent&>(event).GetKeyCode() == WXK_TAB;
}

void ForwardNavigation(wxWindow& control, wxNavigationKeyEvent& event)
{
    const wxWeakRef<wxWindow> parent(control.GetParent());
    if (!parent)
        return;
    const bool backward = !event.GetDirection();
    const wxWindow* const self = &control; // maybe gone when the parent is through; then it has no focus
    parent->GetEventHandler()->ProcessEvent(event);
    if (!parent || wxWindow::FindFocus() != self)
        return;
    wxKeyEvent tab(wxEVT_KEY_DOWN);
    tab.SetId(parent->GetId());
    tab.SetEventObject(parent);
    tab.m_keyCode = WXK_TAB;
    tab.SetShiftDown(backward);
    parent->GetEventHandler()->ProcessEvent(tab);
}

void FollowSize(wxWindow& control, const wxEvent& event)
{
    if (event.GetEventType() == wxEVT_SIZE || event.GetEventType() == wxEVT_SHOW)
        gtkport::FitTheme(control);
}

void AdoptLayoutDirection(wxWindow* control)
{
    const auto* const app = dynamic_cast<const wxApp*>(wxApp::GetInstance());
    if (control && app && app->GetLayoutDirection() == wxLayout_RightToLeft)
        control->SetLayoutDirection(wxLayout_RightToLeft);
}

} // namespace vela7
