/// The in-place combo box.
#pragma once

#include "vela7/wxconvert.h"
#include "vela7/wxinplacetext.h"

#include <wx/timer.h>

namespace vela7 {

/// A drop-down list with an edit field over a toolkit window. Comes from ISysWindow::CreateInplaceComboBox;
/// see CInplaceText for its life. Indexes out of range go to wx, which asserts and does nothing.
class VELA7_WX_API CwxInplaceCombo final : public CInplaceText<wxComboBox, CInplaceComboBoxInt>
{
public:
    /// editable false: the user can only choose. notify: may be null.
    CwxInplaceCombo(wxWindow* parent, bool editable, IChildFocusNotify* notify);

    /// Ignored below a height of 8 and when nothing changes.
    void SetPos(int left, int top, int right, int bottom) override;
    /// Reported also from inside OnEditTextChanged, unlike the edit's. Of a combo box that was made not
    /// editable: selects the item with the text, if there is one, which is not reported.
    void SetText(const std::string& text) override { SetValue(vela2wx(text)); }
    int GetTextLen() const override { return static_cast<int>(GetLastPosition()); }
    // Kept by contract: the whole text, not only the selected part.
    std::string GetSelectedText() const override { return GetText(); }
    void SetFramed(bool) override {}
    bool GetFramed() const override { return false; }

    /// Index -1 appends.
    void SetString(const std::string& text, int index) override;
    /// Empty for an index out of range.
    std::string GetString(int index) const override;
    void DeleteString(int index) override { Delete(static_cast<unsigned>(index)); }
    void Clear() override;
    /// Of the edit field; what was fixed at creation stays.
    void SetEditable(bool editable) override;
    void SetCurrentItem(int index) override { SetSelection(index); }
    int GetCurrentItem() const override { return GetSelection(); }
    /// Shows nothing: opening the list is the user's.
    void ShowDropDown(bool show) override;

    using wxComboBox::GetString;
    using wxComboBox::SetString;

protected:
    int GetCountInt() const override { return static_cast<int>(wxComboBox::GetCount()); }
    bool GetEditableInt() const override { return m_editable; }

private:
    void OnItemSelected(wxCommandEvent& event);

    bool m_editable;

    wxDECLARE_EVENT_TABLE();
};

/// The timer behind ShowDropDown, one for the process: made when first needed, destroyed at exit.
class VELA7_WX_API CPopupTimer final : public wxTimer
{
public:
    static CPopupTimer& Get();

    /// Anew, whether it runs or not.
    void StartFor(WXWidget widget, bool show);
    void Notify() override;

private:
    CPopupTimer() = default;

    WXWidget m_widget = nullptr; // of the last combo box; maybe gone, never used
    bool m_show = false;
};

} // namespace vela7
