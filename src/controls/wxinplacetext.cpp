#include "vela7/wxinplacetext.h"

#include "port/gtkport.h"
#include "vela7/system.h"
#include "vela7/wxvelawindow.h"

#include <wx/utils.h>

namespace vela7 {

CEditKeyEvent MakeEditKeyRecord(const wxKeyEvent& event)
{
    CEditKeyEvent record;
    record.keyState() = wx2velaKeyState(event);
    record.keyCode() = static_cast<std::uint32_t>(wx2velaKeyCode(event.GetKeyCode()));
    record.ch() = static_cast<unsigned char>(wx2velaChar(event.GetKeyCode()));
    return record;
}

point<int> ContextMenuPosition(const wxWindow& control, const wxContextMenuEvent& event)
{
    const wxPoint asked = event.GetPosition();
    const bool fromKeyboard = asked.x < 0 && asked.y < 0;
    const wxPoint client = control.ScreenToClient(fromKeyboard ? wxGetMousePosition() : asked);
    return {client.x, client.y};
}

void ForwardMotion(const wxWindow& control, wxMouseEvent& event)
{
    wxWindow* const parent = control.GetParent();
    if (!parent || event.LeftIsDown() || event.MiddleIsDown() || event.RightIsDown() || event.Aux1IsDown() ||
        event.Aux2IsDown())
        return;
    event.SetPosition(parent->ScreenToClient(control.ClientToScreen(event.GetPosition())));
    const ISystem* const system = GetCurrentSystem();
    if (system && system->IsAppActive())
        parent->GetEventHandler()->ProcessEvent(event);
}

CEventLife& HostLife(const wxWindow& control, CEventLife& own)
{
    auto* const host = dynamic_cast<CVELAwxWindow*>(control.GetParent());
    return host ? host->life : own;
}

void DismissList(wxWindow& control)
{
    gtkport::DismissList(control);
}

void ShowControl(ICustomControl& control, wxWindow& native)
{
    const CLifeWatch alive = control.WatchLife();
    control.UpdateState();
    native.Show(true);
    if (alive.IsAlive())
        native.Update();
}

namespace {

void Create(wxTextCtrl& edit, wxWindow* parent, long style)
{
    edit.Create(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, style);
}

void Create(wxComboBox& combo, wxWindow* parent, long style)
{
    combo.Create(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, 0, nullptr, style);
}

} // namespace

template <class W, class T>
CInplaceText<W, T>::CInplaceText(wxWindow* parent, long wxStyle, IChildFocusNotify* notify)
    : CFocusReporter<T>(this, notify)
{
    Create(static_cast<W&>(*this), parent, wxStyle);
    AdoptLayoutDirection(this);
}

template class CInplaceText<wxTextCtrl, CInplaceEdit>;
template class CInplaceText<wxComboBox, CInplaceComboBoxInt>;

} // namespace vela7
