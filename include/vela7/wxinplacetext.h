/// What the in-place edit and the in-place combo box have in common.
#pragma once

#include "vela7/inplace.h"
#include "vela7/wxcustomcontrol.h"
#include "vela7/wxeventlife.h"

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
    ~CInplaceText() override;

    /// Deletes the control: at once, or, while it is in use, on the first idle pass after the event.
    bool Destroy() override;
    void Dispose() override;
    bool ProcessEvent(wxEvent& event) override;

    /// Fonts and colours first.
    void SetVisible(bool visible) override;
    void UpdateState() override;
    std::string GetText() const override;
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
        return this->FireAny(event, typeid(N), handler_cast(notification), record);
    }

    void OnKeyDown(wxKeyEvent& event);
    void OnChar(wxKeyEvent& event);
    void OnText(wxCommandEvent& event);
    void OnTextEnter(wxCommandEvent& event);
    void contextMenuEvent(wxContextMenuEvent& event);
    void mouseEvent(wxMouseEvent& event);
    void focusInEvent(wxFocusEvent& event) { this->ReportFocusIn(event); }
    void focusOutEvent(wxFocusEvent& event) { this->ReportFocusOut(event); }
    // Kept by contract: not skipped, so nothing erases the background and nothing flickers.
    void OnEraseBackground(wxEraseEvent&) {}

private:
    void OnParentEnds() override;

    CEventLife m_use;
};

extern template class CInplaceText<wxTextCtrl, CInplaceEdit>;
extern template class CInplaceText<wxComboBox, CInplaceComboBoxInt>;

} // namespace vela7
