#include "vela7/wxinplaceedit.h"

namespace vela7 {

// clang-format off
wxBEGIN_EVENT_TABLE(CwxInplaceEdit, wxTextCtrl)
    EVT_KEY_DOWN(CwxInplaceEdit::OnKeyDown)
    EVT_CHAR(CwxInplaceEdit::OnChar)
    EVT_TEXT(wxID_ANY, CwxInplaceEdit::OnText)
    EVT_TEXT_ENTER(wxID_ANY, CwxInplaceEdit::OnTextEnter)
    EVT_KILL_FOCUS(CwxInplaceEdit::focusOutEvent)
    EVT_SET_FOCUS(CwxInplaceEdit::focusInEvent)
    EVT_MOTION(CwxInplaceEdit::mouseEvent)
    EVT_CONTEXT_MENU(CwxInplaceEdit::contextMenuEvent)
    EVT_ERASE_BACKGROUND(CwxInplaceEdit::OnEraseBackground)
wxEND_EVENT_TABLE()

long GetEditStyle(unsigned long style)
{
    return (style & esMultiLine ? wxTE_MULTILINE : 0L) |
           (style & esReadOnly  ? wxTE_READONLY  : 0L);
}
// clang-format on

CwxInplaceEdit::CwxInplaceEdit(wxWindow* parent, unsigned long style, IChildFocusNotify* notify)
    : CInplaceText(parent, GetEditStyle(style) | wxTE_PROCESS_TAB | wxTE_PROCESS_ENTER, notify)
{
    SetSupportedEvent(typeid(IEditNotify));
    SetSupportedEvent(typeid(IContextMenuNotify));
}

void CwxInplaceEdit::SetText(const std::string& text)
{
    const wxString value = vela2wx(text);
    if (IsProcessingText())
        ChangeValue(value);
    else
        SetValue(value);
}

void CwxInplaceEdit::SetFramed(bool framed)
{
    const long rest = GetWindowStyleFlag() & ~(wxBORDER_SUNKEN | wxBORDER_NONE);
    SetWindowStyleFlag(rest + (framed ? wxBORDER_SUNKEN : wxBORDER_NONE));
}

void CwxInplaceEdit::SetTextMaxLen(int length)
{
    if (IsSingleLine()) // wx asserts for others, and has no limit for them
        SetMaxLength(static_cast<unsigned long>(length));
}

} // namespace vela7
