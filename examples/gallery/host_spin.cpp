// The host's part of the grid: its spin control is wx's.

#include "page.h"

#include "vela7/wxcustomcontrol.h"

#include <wx/spinctrl.h>
#include <wx/weakref.h>

gallery::SpinControl gallery::MakeSpinControl(vela7::ISysWindow& parent, int min, int max,
                                              const std::function<void(int)>& changed)
{
    auto* const spin = new wxSpinCtrl(static_cast<wxWindow*>(parent.GetNativeHandle()), wxID_ANY);
    spin->SetRange(min, max);
    spin->Hide();
    auto control = vela7::CreateCustomControl(spin, &parent, false);
    const vela7::CLifeWatch used = control->WatchLife();
    spin->Bind(wxEVT_TEXT, [=](wxCommandEvent& event) {
        if (used.IsAlive())
            changed(event.GetInt());
    });
    spin->Bind(wxEVT_KEY_DOWN, [spin](wxKeyEvent& event) {
        const int key = event.GetKeyCode();
        if (key == WXK_RETURN || key == WXK_NUMPAD_ENTER || key == WXK_ESCAPE)
            spin->GetParent()->GetEventHandler()->ProcessEvent(event);
        else
            event.Skip();
    });
    const wxWeakRef<wxWindow> watched(spin);
    return {control, [watched, spin](int value) {
                if (!watched)
                    return;
                spin->SetValue(value);
                const long end = static_cast<long>(std::to_string(value).size());
                spin->SetSelection(end, end);
            }};
}
