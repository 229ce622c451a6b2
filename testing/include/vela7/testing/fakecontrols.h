/// Native controls that a test works like a user: editors, combo boxes, scroll bars, and those that a host
/// provides.
///
///     auto* const edit = window.Find<FakeEdit>();
///     edit->SetFocus();
///     system.user.Type("new text");
///     system.user.Key(kcReturn);
///     window.Find<FakeComboBox>()->Pick(3);
///     window.Find<FakeScrollBar>()->DragTo(40);
///
/// What works: the notifications, in the order of the reference platform, their three flags included (passOn,
/// defaultProcessing, skip); text, insertion point and selection; items; the numbers of scroll bars; focus
/// with its signals and what the window hears of it; Tab, which goes to the window. What the user does
/// answers false when the user could not do it: the control cannot be seen or is disabled. What deliberately
/// does not: keys without a character send no OnEditChar; Delete, Home, End, Left and Right are all that move
/// or delete beside typing; characters are bytes; the mouse does nothing but give the focus. Windows make
/// them (CreateInplaceEdit, ...). One ends with its last handle or with its window, inside its own
/// notifications too: then it is silent at once.
#pragma once

#include "vela7/inplace.h"
#include "vela7/scrollbar.h"
#include "vela7/testing/export.h"
#include "vela7/testing/fakenative.h"

#include <string>
#include <vector>

namespace vela7::testkit {

class FakeWindow;

/// What all of them share. T: the toolkit's interface.
template <class T>
class VELA7_TESTING_API FakeControl : public T, public FakeNative
{
public:
    ~FakeControl() override;
    void Dispose() override { Close(); }

    void SetPos(int left, int top, int right, int bottom) override { m_rect = {left, top, right, bottom}; }
    rectangle<int> GetPos() const override { return m_rect; }
    void SetVisible(bool visible) override { Show(visible); }
    bool GetVisible() const override { return m_visible; }
    void SetEnabled(bool enabled) override { Enable(enabled); }
    bool GetEnabled() const override { return m_enabled; }
    void SetFocus() override { TakeFocus(); }
    bool GetFocused() const override { return HasFocus(); }
    void SetFocusEx() override;
    /// Its FakeNative.
    void* GetNativeHandle() const override;

protected:
    explicit FakeControl(FakeWindow& window);

    /// Fires a record. False: the control is gone, or will be.
    template <class N, class E>
    bool Fire(void (N::*notification)(E*), E& record)
    {
        const Use use(*this);
        record.sender = this;
        if (use.IsWanted())
            this->FireEvent(typeid(N), handler_cast(notification), &record, true);
        return use.IsWanted();
    }
    void Silence() override;
    bool AcceptsFocus() const override { return true; }
    void FocusIn() override;
    void FocusOut(const FakeNative* to) override;
    bool KeyDown(std::uint32_t key, std::uint32_t state) override;

    FakeWindow& m_window; // its parent

private:
    bool m_inSetFocusEx = false;
};

/// A control of the host's, which does nothing.
class VELA7_TESTING_API FakeCustomControl final : public FakeControl<CImplEventSender<ICustomControl>>
{
public:
    explicit FakeCustomControl(FakeWindow& window) : FakeControl(window) {}
};

/// What an edit and a combo box share.
template <class T>
class VELA7_TESTING_API FakeText : public FakeControl<T>
{
public:
    /// The user asks for the context menu, client coordinates of the control.
    bool AskForMenu(int x, int y);

    void SetText(const std::string& text) override;
    std::string GetText() const override { return m_text; }
    int GetTextLen() const override;
    void SetCursorPos(int position) override;
    int GetCursorPos() const override { return static_cast<int>(m_to); }
    // Kept by contract: font and alignment stay the native ones.
    void SetFont(const font&) override {}
    void SetAlignment(IInplaceEdit::TextAlign) override {}
    void SelectAll() override;
    void Deselect() override { m_from = m_to = 0; }
    std::string GetSelectedText() const override { return m_text.substr(m_from, m_to - m_from); }
    void SetFramed(bool framed) override { m_framed = framed; }
    bool GetFramed() const override { return m_framed; }
    void SetTextMaxLen(int length) override { m_most = length; }

protected:
    explicit FakeText(FakeWindow& window) : FakeControl<T>(window) {}

    virtual bool CanType() const = 0;
    /// A new text, which is reported; false when the control is gone afterwards.
    bool Change(const std::string& text, std::size_t cursor);
    void FocusIn() override;
    bool KeyDown(std::uint32_t key, std::uint32_t state) override;
    void Char(unsigned char byte, std::uint32_t state) override;

    std::string m_text;
    std::size_t m_from = 0, m_to = 0; // the selection, or twice the insertion point
    int m_reporting = 0;              // text notifications that are being delivered

private:
    void Move(std::uint32_t key);
    void Replace(std::size_t from, std::size_t to, const std::string& by);

    int m_most = 0; // bytes; 0: any number
    bool m_framed = false;
};

class VELA7_TESTING_API FakeEdit final : public FakeText<CInplaceEdit>
{
public:
    FakeEdit(FakeWindow& window, unsigned long style);

    const unsigned long style; ///< EditStyle bits

    void SetText(const std::string& text) override;

private:
    bool CanType() const override { return !(style & esReadOnly); }
};

class VELA7_TESTING_API FakeComboBox final : public FakeText<CInplaceComboBoxInt>
{
public:
    FakeComboBox(FakeWindow& window, bool editable);

    /// The user opens the list, which takes the focus from the field, and chooses.
    bool Pick(int index);

    void SetPos(int left, int top, int right, int bottom) override;
    // Kept by contract: the whole text, whatever is selected.
    std::string GetSelectedText() const override { return m_text; }
    void SetFramed(bool) override {}
    bool GetFramed() const override { return false; }
    void SetTextMaxLen(int) override {}
    void SetString(const std::string& text, int index) override;
    std::string GetString(int index) const override;
    void DeleteString(int index) override;
    void Clear() override;
    void SetEditable(bool editable) override { m_editable = editable; }
    void SetCurrentItem(int index) override;
    int GetCurrentItem() const override { return m_current; }
    // Kept by contract: opening the list is the user's.
    void ShowDropDown(bool) override {}

protected:
    int GetCountInt() const override { return static_cast<int>(m_items.size()); }
    bool GetEditableInt() const override { return m_editable; }

private:
    bool Has(int index) const { return index >= 0 && index < GetCountInt(); }
    bool CanType() const override { return m_editable; }

    std::vector<std::string> m_items;
    int m_current = -1;
    bool m_editable;
};

/// Counts in the toolkit's units, which it rounds to whole steps, as the wx back-end does.
class VELA7_TESTING_API FakeScrollBar final : public FakeControl<CScrollBar>
{
public:
    FakeScrollBar(FakeWindow& window, bool vertical);

    const bool vertical;

    // ---- the user; at the ends of the bar nothing is reported, and the answer is false
    bool Line(int steps) { return MoveBy(steps, saLineUp, saLineDown); } ///< negative: up or left
    bool Page(int pages) { return MoveBy(pages * m_thumb, saPageUp, saPageDown); }
    /// Drags the thumb there and lets go of it: two reports.
    bool DragTo(double value);
    /// Or to the beginning. The end reports the full extent, not where the thumb stops.
    bool ToEnd(bool last = true);

    /// The thickness stays.
    void SetPos(int left, int top, int right, int bottom) override;
    void SetFocus() override {}
    bool GetFocused() const override { return false; }
    void SetScrollInfo(const ScrollInfo& info) override;
    void GetScrollInfo(ScrollInfo& info) const override;
    void SetScrollVal(int value) override;
    int GetScrollVal() const override { return m_min + m_step * m_position; }

private:
    bool AcceptsFocus() const override { return false; }
    void Move(int position);
    bool Report(double value, ScrollAction action);
    bool MoveBy(int steps, ScrollAction back, ScrollAction on);

    int m_min = 0, m_step = 1;                    // toolkit units
    int m_position = 0, m_range = 1, m_thumb = 1; // steps
    bool m_flag = false;
};

} // namespace vela7::testkit
