#include "vela7/wxinplacecombo.h"

namespace vela7 {

// clang-format off
wxBEGIN_EVENT_TABLE(CwxInplaceCombo, wxComboBox)
    EVT_KEY_DOWN(CwxInplaceCombo::OnKeyDown)
    EVT_CHAR(CwxInplaceCombo::OnChar)
    EVT_KILL_FOCUS(CwxInplaceCombo::focusOutEvent)
    EVT_SET_FOCUS(CwxInplaceCombo::focusInEvent)
    EVT_TEXT(wxID_ANY, CwxInplaceCombo::OnText)
    EVT_TEXT_ENTER(wxID_ANY, CwxInplaceCombo::OnTextEnter)
    EVT_COMBOBOX(wxID_ANY, CwxInplaceCombo::OnItemSelected)
    EVT_MOTION(CwxInplaceCombo::mouseEvent)
    EVT_ERASE_BACKGROUND(CwxInplaceCombo::OnEraseBackground)
    EVT_CONTEXT_MENU(CwxInplaceCombo::contextMenuEvent)
wxEND_EVENT_TABLE()
// clang-format on

namespace {

constexpr int minimumHeight = 8; // the native control cannot be smaller
constexpr int popupDelay = 50;   // ms
constexpr long comboStyle = wxTAB_TRAVERSAL | wxTE_PROCESS_ENTER | wxTE_PROCESS_TAB;

} // namespace

CwxInplaceCombo::CwxInplaceCombo(wxWindow* parent, bool editable, IChildFocusNotify* notify)
    : CInplaceText(parent, comboStyle | (editable ? 0 : wxCB_READONLY), notify), m_editable(editable)
{
    for (const std::type_info* type :
         {&typeid(IEditNotify), &typeid(IComboBoxNotify), &typeid(IContextMenuNotify)})
        SetSupportedEvent(*type);
}

void CwxInplaceCombo::SetPos(int left, int top, int right, int bottom)
{
    if (bottom - top < minimumHeight || rectangle<int>(left, top, right, bottom) == GetPos())
        return;
    CInplaceText::SetPos(left, top, right, bottom);
}

void CwxInplaceCombo::SetString(const std::string& text, int index)
{
    if (index == -1)
        Append(vela2wx(text));
    else
        wxComboBox::SetString(static_cast<unsigned>(index), vela2wx(text));
}

std::string CwxInplaceCombo::GetString(int index) const
{
    const auto item = static_cast<unsigned>(index);
    return IsValid(item) ? wx2vela(wxComboBox::GetString(item))
                         : std::string(); // wx 3.2 asserts, 3.0 does not
}

void CwxInplaceCombo::Clear()
{
    const CLifeWatch alive = WatchLife();
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    wxTextEntry::SetValue(wxString()); // wx's own Clear leaves the text when only items may be chosen
    if (alive.IsAlive())
        wxItemContainer::Clear();
}

void CwxInplaceCombo::SetEditable(bool editable)
{
    wxComboBox::SetEditable(editable);
    m_editable = editable;
}

void CwxInplaceCombo::OnItemSelected(wxCommandEvent& event)
{
    CComboEvent record;
    record.index = event.GetInt();
    Fire(event, &IComboBoxNotify::OnComboItemSelected, record);
}

// ---- the drop-down list

void CwxInplaceCombo::ShowDropDown(bool show)
{
    CPopupTimer::Get().StartFor(GetHandle(), show);
}

CPopupTimer& CPopupTimer::Get()
{
    static CPopupTimer timer;
    return timer;
}

void CPopupTimer::StartFor(WXWidget widget, bool show)
{
    Stop();
    m_widget = widget;
    m_show = show;
    Start(popupDelay, wxTIMER_CONTINUOUS);
}

void CPopupTimer::Notify()
{
    Stop(); // Kept by contract: the list is neither opened nor closed
}

} // namespace vela7
