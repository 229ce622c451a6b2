/// What the in-place edit and the in-place combo box have in common.
#pragma once

#include "vela7/inplace.h"
#include "vela7/wxconvert.h"
#include "vela7/wxcustomcontrol.h"
#include "vela7/wxeventlife.h"
#include "vela7/wxnativewindows.h"

#include <wx/combobox.h>
#include <wx/textctrl.h>

#include <string>

namespace vela7 {

/// Counts the text-changed notifications that are being delivered.
class VELA7_WX_API CTextProcessingFlag
{
public:
    void RaiseCount() { ++m_count; }
    void LowerCount() { --m_count; }
    bool IsRaised() const { return m_count >= 1; }

private:
    int m_count = 0;
};

/// The key record of a key press or a character.
VELA7_WX_API CEditKeyEvent MakeEditKeyRecord(const wxKeyEvent& event);
/// Where a context menu is wanted, in client coordinates: at the mouse when the keyboard asks for it.
VELA7_WX_API point<int> ContextMenuPosition(const wxWindow& control, const wxContextMenuEvent& event);
/// Lets the parent keep track of the mouse over the control: motion without buttons, in an active
/// application.
VELA7_WX_API void ForwardMotion(const wxWindow& control, wxMouseEvent& event);
/// That of the toolkit window that hosts the control; own when it is hosted by another window.
VELA7_WX_API CEventLife& HostLife(const wxWindow& control, CEventLife& own);
/// Closes the list of a combo box: GTK's grab for it must not outlive the control.
VELA7_WX_API void DismissList(wxWindow& control);
/// Fonts, colours, then on the screen.
VELA7_WX_API void ShowControl(ICustomControl& control, wxWindow& native);

/// A wx text control W as the toolkit's T: typing, focus, navigation and context menu.
///
/// Keys and texts go to IEditNotify first, then to wx. The last handle or the wx parent deletes it, both at
/// any time: when the handle goes inside one of its own notifications, the control falls silent at once and
/// disappears when the event is over. Thread: GUI.
template <class W, class T>
class VELA7_WX_API CInplaceText : public W,
                                  public CFocusReporter<T>,
                                  private CTextProcessingFlag,
                                  public IEndsWithParent
{
public:
    ~CInplaceText() override
    {
        this->RevokeHandles();
        DismissList(*this);
    }

    /// Deletes the control: at once, or, while it is in use, on the first idle pass after the event.
    bool Destroy() override
    {
        DismissList(*this);
        return m_use.PutOffDestruction(*this) || W::Destroy();
    }
    void Dispose() override
    {
        const CLifeWatch alive = this->WatchLife();
        if (m_use.IsHeld())
            this->Silence();
        if (alive.IsAlive())
            Destroy();
    }

    bool ProcessEvent(wxEvent& event) override
    {
        // The window waits too, so that all is as usual when GTK is back in its own code.
        const CEventLife::CHold hold(m_use), above(HostLife(*this, m_use));
        if (event.GetEventType() == wxEVT_NAVIGATION_KEY)
            ForwardNavigation(*this, static_cast<wxNavigationKeyEvent&>(event));
        else if (IsTabPress(event))
            OnKeyDown(static_cast<wxKeyEvent&>(event));
        else
            return W::ProcessEvent(event);
        return true;
    }

    void SetVisible(bool visible) override
    {
        if (visible)
            ShowControl(*this, *this);
        else
            W::Show(false);
    }
    void UpdateState() override { UpdateWindowState(this); }
    std::string GetText() const override { return wx2vela(W::GetValue()); }
    void SetCursorPos(int position) override { W::SetInsertionPoint(position); }
    int GetCursorPos() const override { return static_cast<int>(W::GetInsertionPoint()); }
    void SelectAll() override { W::SetSelection(-1L, -1L); }
    void Deselect() override { W::SetSelection(0L, 0L); }
    // Kept by contract: font and alignment stay the native ones.
    void SetFont(const font&) override {}
    using W::SetFont;
    void SetAlignment(IInplaceEdit::TextAlign) override {}

protected:
    CInplaceText(wxWindow* parent, long wxStyle, IChildFocusNotify* notify);

    bool IsProcessingText() const { return this->IsRaised(); }

    template <class N, class E>
    bool Fire(wxEvent& event, void (N::*notification)(E*), E& record)
    {
        return FireFrom(*this, event, typeid(N), handler_cast(notification), record);
    }

    void OnKeyDown(wxKeyEvent& event)
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

    void OnChar(wxKeyEvent& event)
    {
        CEditKeyEvent record = MakeEditKeyRecord(event);
        if (Fire(event, &IEditNotify::OnEditChar, record) && record.defaultProcessing() &&
            event.GetKeyCode() != WXK_TAB)
            event.Skip(record.skip);
    }

    void OnText(wxCommandEvent& event)
    {
        CEditTextEvent record;
        record.text = GetText();
        this->RaiseCount();
        if (!Fire(event, &IEditNotify::OnEditTextChanged, record)) // lets no exception through
            return;
        this->LowerCount();
        event.Skip();
    }

    void OnTextEnter(wxCommandEvent& event)
    {
        CEditEnterEvent record;
        Fire(event, &IEditNotify::OnEditEnter, record);
    }

    void contextMenuEvent(wxContextMenuEvent& event)
    {
        CContextMenuEvent record;
        record.position = ContextMenuPosition(*this, event);
        Fire(event, &IContextMenuNotify::OnContextMenu, record);
        event.Skip(false); // Kept by contract: the native menu never opens
    }

    void mouseEvent(wxMouseEvent& event)
    {
        const CLifeWatch alive = this->WatchLife();
        ForwardMotion(*this, event);
        event.Skip(alive.IsAlive());
    }

    void focusInEvent(wxFocusEvent& event) { this->ReportFocusIn(event); }
    void focusOutEvent(wxFocusEvent& event) { this->ReportFocusOut(event); }
    // Kept by contract: not skipped, so nothing erases the background and nothing flickers.
    void OnEraseBackground(wxEraseEvent&) {}

private:
    void OnParentEnds() override
    {
        DismissList(*this);
        if (!m_use.SetAside(*this))
            return;
        this->RevokeHandles();
        this->Silence();
    }

    CEventLife m_use;
};

extern template class CInplaceText<wxTextCtrl, CInplaceEdit>;
extern template class CInplaceText<wxComboBox, CInplaceComboBoxInt>;

} // namespace vela7
