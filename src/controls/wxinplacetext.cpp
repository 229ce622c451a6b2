#include "vela7/wxinplacetext.h"

#include "controls/controlevents.h"
#include "port/widgets.h"
#include "vela7/system.h"
#include "vela7/wxconvert.h"
#include "vela7/wxnativewindows.h"
#include "vela7/wxvelawindow.h"

#include <wx/utils.h>

namespace vela7 {

namespace {

CEditKeyEvent MakeEditKeyRecord(const wxKeyEvent& event)
{
    CEditKeyEvent record;
    record.keyState() = wx2velaKeyState(event);
    record.keyCode() = static_cast<std::uint32_t>(wx2velaKeyCode(event.GetKeyCode()));
    record.ch() = static_cast<unsigned char>(wx2velaChar(event.GetKeyCode()));
    return record;
}

// In client coordinates: at the mouse when the keyboard asks for the menu.
point<int> ContextMenuPosition(const wxWindow& control, const wxContextMenuEvent& event)
{
    const wxPoint asked = event.GetPosition();
    const bool fromKeyboard = asked.x < 0 && asked.y < 0;
    const wxPoint client = control.ScreenToClient(fromKeyboard ? wxGetMousePosition() : asked);
    return {client.x, client.y};
}

// Lets the parent keep track of the mouse over the control: motion without buttons, in an active application.
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

// That of the toolkit window that hosts the control; own when it is hosted by another window.
CEventLife& HostLife(const wxWindow& control, CEventLife& own)
{
    auto* const host = dynamic_cast<CVELAwxWindow*>(control.GetParent());
    return host ? host->life : own;
}

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
    gtkport::FocusBeforePress(*this);
}

template <class W, class T>
CInplaceText<W, T>::~CInplaceText()
{
    this->RevokeHandles();
    gtkport::DismissList(*this);
}

template <class W, class T>
bool CInplaceText<W, T>::Destroy()
{
    gtkport::DismissList(*this); // GTK's grab for it must not outlive the control
    return m_use.PutOffDestruction(*this) || W::Destroy();
}

template <class W, class T>
void CInplaceText<W, T>::Dispose()
{
    const CLifeWatch alive = this->WatchLife();
    if (m_use.IsHeld())
        this->Silence();
    if (alive.IsAlive())
        Destroy();
}

template <class W, class T>
void CInplaceText<W, T>::OnParentEnds()
{
    gtkport::DismissList(*this);
    if (!m_use.SetAside(*this))
        return;
    this->RevokeHandles();
    this->Silence();
}

template <class W, class T>
bool CInplaceText<W, T>::ProcessEvent(wxEvent& event)
{
    // The window waits too, so that all is as usual when GTK is back in its own code.
    const CEventLife::CHold hold(m_use), above(HostLife(*this, m_use));
    FollowSize(*this, event);
    if (event.GetEventType() == wxEVT_NAVIGATION_KEY)
        ForwardNavigation(*this, static_cast<wxNavigationKeyEvent&>(event));
    else if (IsTabPress(event))
        OnKeyDown(static_cast<wxKeyEvent&>(event));
    else
        return W::ProcessEvent(event);
    return true;
}

template <class W, class T>
void CInplaceText<W, T>::SetVisible(bool visible)
{
    if (!visible) {
        W::Show(false);
        return;
    }
    const CLifeWatch alive = this->WatchLife();
    this->UpdateState();
    W::Show(true);
    if (alive.IsAlive())
        W::Update();
}

template <class W, class T>
void CInplaceText<W, T>::UpdateState()
{
    UpdateWindowState(this);
}

template <class W, class T>
std::string CInplaceText<W, T>::GetText() const
{
    return wx2vela(W::GetValue());
}

// ---- events: keys and texts

template <class W, class T>
void CInplaceText<W, T>::OnKeyDown(wxKeyEvent& event)
{
    CEditKeyEvent record = MakeEditKeyRecord(event);
    if (!Fire(event, &IEditNotify::OnEditKeyDown, record))
        return;
    if (event.GetKeyCode() == WXK_TAB) {
        // Kept by contract: whatever the listeners did, and the text never gets a tab.
        if (wxWindow* const parent = W::GetParent())
            parent->GetEventHandler()->ProcessEvent(event);
        event.Skip(false);
    } else if (record.defaultProcessing()) {
        event.Skip(record.skip);
    }
}

template <class W, class T>
void CInplaceText<W, T>::OnChar(wxKeyEvent& event)
{
    CEditKeyEvent record = MakeEditKeyRecord(event);
    if (Fire(event, &IEditNotify::OnEditChar, record) && record.defaultProcessing() &&
        event.GetKeyCode() != WXK_TAB)
        event.Skip(record.skip);
}

template <class W, class T>
void CInplaceText<W, T>::OnText(wxCommandEvent& event)
{
    CEditTextEvent record;
    record.text = GetText();
    this->RaiseCount();
    if (!Fire(event, &IEditNotify::OnEditTextChanged, record)) // lets no exception through
        return;
    this->LowerCount();
    event.Skip();
}

template <class W, class T>
void CInplaceText<W, T>::OnTextEnter(wxCommandEvent& event)
{
    CEditEnterEvent record;
    Fire(event, &IEditNotify::OnEditEnter, record);
}

// ---- events: the mouse

template <class W, class T>
void CInplaceText<W, T>::contextMenuEvent(wxContextMenuEvent& event)
{
    CContextMenuEvent record;
    record.position = ContextMenuPosition(*this, event);
    Fire(event, &IContextMenuNotify::OnContextMenu, record);
    event.Skip(false); // Kept by contract: the native menu never opens
}

template <class W, class T>
void CInplaceText<W, T>::mouseEvent(wxMouseEvent& event)
{
    const CLifeWatch alive = this->WatchLife();
    ForwardMotion(*this, event);
    event.Skip(alive.IsAlive());
}

template class CInplaceText<wxTextCtrl, CInplaceEdit>;
template class CInplaceText<wxComboBox, CInplaceComboBoxInt>;

} // namespace vela7
