/// The in-place edit.
#pragma once

#include "vela7/wxconvert.h"
#include "vela7/wxinplacetext.h"

namespace vela7 {

/// A text field over a toolkit window. Comes from ISysWindow::CreateInplaceEdit; see CInplaceText for its
/// life.
class VELA7_WX_API CwxInplaceEdit final : public CInplaceText<wxTextCtrl, CInplaceEdit>
{
public:
    /// style: EditStyle bits. notify: may be null.
    CwxInplaceEdit(wxWindow* parent, unsigned long style, IChildFocusNotify* notify);

    /// Not reported when a listener calls it from inside OnEditTextChanged.
    void SetText(const std::string& text) override;
    int GetTextLen() const override { return GetLineLength(0); }
    std::string GetSelectedText() const override { return wx2vela(GetStringSelection()); }
    void SetFramed(bool framed) override;
    bool GetFramed() const override { return (GetWindowStyleFlag() & wxBORDER_SUNKEN) != 0; }
    /// Single-line edits only.
    void SetTextMaxLen(int length) override;

private:
    wxDECLARE_EVENT_TABLE();
};

/// The wx style of EditStyle bits.
VELA7_WX_API long GetEditStyle(unsigned long style);

} // namespace vela7
