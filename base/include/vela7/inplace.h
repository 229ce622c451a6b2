/// In-place editors: text fields and combo boxes inside toolkit windows.
///
/// Created by ISysWindow; dies with its last handle or with its window. Thread: GUI.
#pragma once

#include "vela7/customcontrol.h"

#include <string>

namespace vela7 {

/// Bits for ISysWindow::CreateInplaceEdit.
enum EditStyle : unsigned long
{
    esMultiLine = 0x1,
    esPassword = 0x2, ///< ignored by the wx back-end
    esReadOnly = 0x4
};

/// Reports IEditNotify and IContextMenuNotify. Positions count characters from 0.
class VELA7_BASE_API IInplaceEdit : public ITextControl
{
public:
    enum TextAlign
    {
        taLeft = 0,
        taCenter = 1,
        taRight = 2
    };

    /// Of the first line.
    virtual int GetTextLen() const = 0;
    virtual void SetCursorPos(int position) = 0;
    virtual int GetCursorPos() const = 0;
    virtual void SetFont(const font& value) = 0;
    virtual void SelectAll() = 0;
    virtual void Deselect() = 0;
    virtual std::string GetSelectedText() const = 0;
    virtual void SetAlignment(TextAlign alignment) = 0;
    virtual void SetFramed(bool framed) = 0;
    virtual bool GetFramed() const = 0;
    virtual void SetTextMaxLen(int) {}
};

class VELA7_BASE_API CInplaceEdit : public CImplEventSender<IInplaceEdit>
{
};

/// Reports IComboBoxNotify besides what an edit reports. Indexes count items from 0; -1 = none.
class VELA7_BASE_API IInplaceComboBox : public IInplaceEdit
{
public:
    virtual void SetString(const std::string& text, int index) = 0;
    virtual std::string GetString(int index) const = 0;
    virtual void DeleteString(int index) = 0;
    virtual void Clear() = 0;
    virtual void SetEditable(bool editable) = 0;
    virtual bool GetEditable() const = 0;
    virtual void SetCurrentItem(int index) = 0;
    virtual int GetCurrentItem() const = 0;
    virtual int GetCount() const = 0;
    virtual void ShowDropDown(bool show) = 0;
};

class VELA7_BASE_API CInplaceComboBoxInt : public CImplEventSender<IInplaceComboBox>
{
public:
    int GetCount() const override { return GetCountInt(); }
    bool GetEditable() const override { return GetEditableInt(); }

protected:
    virtual int GetCountInt() const = 0;
    virtual bool GetEditableInt() const = 0;
};

} // namespace vela7
