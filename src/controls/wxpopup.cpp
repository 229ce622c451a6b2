// Popups.
//
// How one ends. Releasing the last handle and Destroy only hide it and put it on wx's list; the destructor
// runs from that list or from the parent's. By then nothing may be left that outlives a window badly: the
// pointer grab, wx's handlers on the content, handles. The focus is given back when the popup is hidden, not
// when it is destroyed while it is shown: then it vanishes with the content.

#include "vela7/wxpopup.h"

#include "life/capture.h"
#include "life/hanging.h"
#include "life/leavingparent.h"
#include "port/wayland.h"

namespace vela7 {

// ---- content

CwxSysWindow4Popup::CwxSysWindow4Popup(CwxTransientPopup& host)
    : CwxSysWindow(&host, false, wtNormal), popup(&host)
{
    SetPopup(1);
}

void CwxSysWindow4Popup::ProcessDestroy()
{
    CwxSysWindow::ProcessDestroy();
    if (popup)
        popup->LoseContent();
}

void CwxSysWindow4Popup::ReleaseMouse()
{
    CwxSysWindow::ReleaseMouse();
    if (!wxWindow::GetCapture())
        hanging::RestoreGrab();
}

// ---- popup

CwxTransientPopup::CwxTransientPopup(CwxSysWindow& creator)
    : wxPopupTransientWindow(static_cast<wxWindow*>(creator.GetNativeHandle()), wxBORDER_NONE),
      parent(&creator)
{
    content = new CwxSysWindow4Popup(*this); // belongs to its native window, and that to this one
}

CwxTransientPopup::~CwxTransientPopup()
{
    RevokeHandles();
    wxPendingDelete.DeleteObject(this);
    const CLeavingParent above(*this, m_parent);
    if (IsShown())
        Show(false);
    PopHandlers();
    DestroyChildren();
}

void CwxTransientPopup::Show(int x, int y)
{
    wxWindow::SetSize(x, y, -1, -1, 0);
    if (IsShown())
        return;
    // wx lays the content out while it shows the popup and could not bear that a listener destroys it then.
    const CLifeWatch alive = WatchLife();
    SendSizeEvent();
    if (alive.IsAlive() && !wxPendingDelete.Member(this))
        Popup();
}

// wx's way, on which every showing and hiding goes. Hiding ends whatever pointer grab there is.
bool CwxTransientPopup::Show(bool show)
{
    if (!show) {
        hanging::Hidden(*this);
        capture::LeaveAllIn(*this);
    }
    const bool changed =
        show && gtkport::IsOnWayland() ? gtkport::ShowWithoutGrab(*this) : wxPopupTransientWindow::Show(show);
    if (show)
        hanging::Shown(*this, true, [this] { Hide(); });
    else
        hanging::RestoreGrab(); // by then listeners may have deleted this window
    return changed;
}

void CwxTransientPopup::Hide()
{
    if (!IsShown())
        return;
    wxPopupTransientWindow::Dismiss();
    OnDismiss();
}

bool CwxTransientPopup::IsVisible() const
{
    return IsShown();
}

void CwxTransientPopup::SetSize(int width, int height)
{
    wxWindow::SetSize(-1, -1, width, height, 0);
}

void CwxTransientPopup::GetSize(int* width, int* height)
{
    const wxSize size = wxWindow::GetSize();
    if (width)
        *width = size.GetWidth();
    if (height)
        *height = size.GetHeight();
}

void CwxTransientPopup::Dispose()
{
    Destroy();
}

bool CwxTransientPopup::Destroy()
{
    if (!WatchLife().IsAlive() || wxPendingDelete.Member(this))
        return true; // under way
    Hide();
    return wxPopupTransientWindow::Destroy();
}

void CwxTransientPopup::Dismiss()
{
    if (autoHide)
        wxPopupTransientWindow::Dismiss();
    else
        PopHandlers();
}

// Kept by contract: called also when auto-hide is off and the popup stays.
void CwxTransientPopup::OnDismiss()
{
    if (parent->IsDestroyed())
        return; // would neither run nor delete what it is given
    parent->Synchronize(new CFocusRunnable(parent));
}

// The content is being destroyed, together with this popup or on its own.
void CwxTransientPopup::LoseContent()
{
    content = nullptr;
    Hide();
    PopHandlers();
}

} // namespace vela7
