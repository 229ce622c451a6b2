#include "vela7/testing/fakecontrols.h"

#include "desk.h"
#include "vela7/testing/fakewindow.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace vela7::testkit {

// ---- all of them

template <class T>
FakeControl<T>::FakeControl(FakeWindow& window) : FakeNative(window, {0, 0, 80, 22}), m_window(window)
{
}

template <class T>
FakeControl<T>::~FakeControl()
{
    this->RevokeHandles();
}

template <class T>
void* FakeControl<T>::GetNativeHandle() const
{
    return const_cast<FakeNative*>(static_cast<const FakeNative*>(this));
}

template <class T>
void FakeControl<T>::Silence()
{
    this->focus_in_signal.disconnect_all();
    this->focus_out_signal.disconnect_all();
    this->StopAll();
}

template <class T>
void FakeControl<T>::SetFocusEx()
{
    const Use use(*this);
    m_inSetFocusEx = true;
    this->SetFocus();
    if (use.IsAlive())
        m_inSetFocusEx = false;
}

// The signal first, then the window. Kept by contract: what SetFocusEx brings about is not reported.
template <class T>
void FakeControl<T>::FocusIn()
{
    const Use use(*this);
    if (m_inSetFocusEx || IsEnding())
        return;
    this->focus_in_signal.emit(this);
    if (use.IsWanted())
        m_window.ChildFocus(true, nullptr);
}

template <class T>
void FakeControl<T>::FocusOut(const FakeNative* to)
{
    const Use use(*this);
    if (m_inSetFocusEx || IsEnding())
        return;
    this->focus_out_signal.emit(this);
    if (use.IsWanted())
        m_window.ChildFocus(false, to);
}

// Tab is the window's, other keys the native control's.
template <class T>
bool FakeControl<T>::KeyDown(std::uint32_t key, std::uint32_t state)
{
    const Use use(*this);
    if (key == kcTab)
        m_window.KeyDown(key, state);
    return false;
}

template class FakeControl<CImplEventSender<ICustomControl>>;
template class FakeControl<CInplaceEdit>;
template class FakeControl<CInplaceComboBoxInt>;
template class FakeControl<CScrollBar>;

// ---- texts

namespace {

CEditKeyEvent KeyRecord(std::uint32_t key, std::uint32_t state)
{
    CEditKeyEvent record;
    record.key = key;
    record.state = OneModifier(state);
    record.character = static_cast<unsigned char>(key);
    return record;
}

} // namespace

template <class T>
int FakeText<T>::GetTextLen() const
{
    return static_cast<int>(std::min(m_text.find('\n'), m_text.size()));
}

template <class T>
void FakeText<T>::SetCursorPos(int position)
{
    m_from = m_to = static_cast<std::size_t>(std::clamp(position, 0, static_cast<int>(m_text.size())));
}

template <class T>
void FakeText<T>::SelectAll()
{
    m_from = 0;
    m_to = m_text.size();
}

template <class T>
void FakeText<T>::SetText(const std::string& text)
{
    Change(text, 0);
}

template <class T>
bool FakeText<T>::Change(const std::string& text, std::size_t cursor)
{
    m_text = text;
    m_from = m_to = cursor;
    CEditTextEvent record;
    record.text = text;
    const FakeNative::Use use(*this);
    struct Reporting
    {
        FakeText& text;
        const FakeNative::Use& use;
        ~Reporting()
        {
            if (use.IsAlive())
                --text.m_reporting;
        }
    } const reporting{*this, use};
    ++m_reporting;
    return this->Fire(&IEditNotify::OnEditTextChanged, record);
}

// The field that gets the focus selects its text.
template <class T>
void FakeText<T>::FocusIn()
{
    SelectAll();
    FakeControl<T>::FocusIn();
}

template <class T>
bool FakeText<T>::KeyDown(std::uint32_t key, std::uint32_t state)
{
    CEditKeyEvent record = KeyRecord(key, state);
    if (!this->Fire(&IEditNotify::OnEditKeyDown, record))
        return false;
    // Kept by contract: whatever the listeners did, and the text never gets a tab.
    if (key == kcTab)
        return FakeControl<T>::KeyDown(key, state);
    const bool wanted = record.defaultProcessing() && record.skip;
    if (wanted)
        Move(key);
    return wanted;
}

template <class T>
void FakeText<T>::Char(unsigned char byte, std::uint32_t state)
{
    CEditKeyEvent record = KeyRecord(byte, state);
    if (!this->Fire(&IEditNotify::OnEditChar, record) || !record.defaultProcessing() || !record.skip)
        return;
    if (byte == kcReturn) {
        CEditEnterEvent enter;
        this->Fire(&IEditNotify::OnEditEnter, enter);
    } else if (byte == kcBack) {
        Replace(m_from == m_to && m_from > 0 ? m_from - 1 : m_from, m_to, "");
    } else if (byte >= ' ') {
        Replace(m_from, m_to, std::string(1, static_cast<char>(byte)));
    }
}

template <class T>
void FakeText<T>::Move(std::uint32_t key)
{
    if (key == kcHome || key == kcEnd)
        m_from = m_to = key == kcHome ? 0 : m_text.size();
    else if (key == kcLeft && m_to > 0)
        m_from = --m_to;
    else if (key == kcRight && m_to < m_text.size())
        m_from = ++m_to;
    else if (key == kcDelete)
        Replace(m_from, std::min(m_from == m_to ? m_to + 1 : m_to, m_text.size()), "");
}

template <class T>
void FakeText<T>::Replace(std::size_t from, std::size_t to, const std::string& by)
{
    std::string text = m_text;
    text.replace(from, to - from, by);
    const bool fits = m_most <= 0 || by.empty() || text.size() <= static_cast<std::size_t>(m_most);
    if (CanType() && fits && text != m_text)
        Change(text, from + by.size());
}

template <class T>
bool FakeText<T>::AskForMenu(int x, int y)
{
    CContextMenuEvent record;
    record.position = {x, y};
    if (!this->IsUsable())
        return false;
    this->Fire(&IContextMenuNotify::OnContextMenu, record);
    return true;
}

template class FakeText<CInplaceEdit>;
template class FakeText<CInplaceComboBoxInt>;

// ---- edit

FakeEdit::FakeEdit(FakeWindow& window, unsigned long style_) : FakeText(window), style(style_)
{
    SetSupportedEvent(typeid(IEditNotify));
    SetSupportedEvent(typeid(IContextMenuNotify));
}

// From inside a report of the text: not reported again.
void FakeEdit::SetText(const std::string& text)
{
    if (m_reporting == 0) {
        Change(text, 0);
        return;
    }
    m_text = text;
    m_from = m_to = 0;
}

// ---- combo box

FakeComboBox::FakeComboBox(FakeWindow& window, bool editable) : FakeText(window), m_editable(editable)
{
    for (const std::type_info* type :
         {&typeid(IEditNotify), &typeid(IComboBoxNotify), &typeid(IContextMenuNotify)})
        SetSupportedEvent(*type);
}

void FakeComboBox::SetPos(int left, int top, int right, int bottom)
{
    constexpr int minimumHeight = 8; // the native control cannot be smaller
    if (bottom - top >= minimumHeight)
        FakeText::SetPos(left, top, right, bottom);
}

bool FakeComboBox::Pick(int index)
{
    if (!IsUsable() || !Has(index))
        return false;
    const Use use(*this);
    if (HasFocus())
        m_desk.SetFocus(nullptr);
    if (!use.IsWanted())
        return true;
    m_current = index;
    if (!Change(m_items[static_cast<std::size_t>(index)], 0))
        return true;
    CComboEvent record;
    record.index = index;
    Fire(&IComboBoxNotify::OnComboItemSelected, record);
    return true;
}

void FakeComboBox::SetString(const std::string& text, int index)
{
    if (index == -1)
        m_items.push_back(text);
    else if (Has(index))
        m_items[static_cast<std::size_t>(index)] = text;
}

std::string FakeComboBox::GetString(int index) const
{
    return Has(index) ? m_items[static_cast<std::size_t>(index)] : std::string();
}

void FakeComboBox::DeleteString(int index)
{
    if (!Has(index))
        return;
    m_items.erase(m_items.begin() + index);
    m_current = m_current == index ? -1 : m_current > index ? m_current - 1 : m_current;
}

void FakeComboBox::Clear()
{
    if (!Change("", 0))
        return;
    m_items.clear();
    m_current = -1;
}

void FakeComboBox::SetCurrentItem(int index)
{
    m_current = Has(index) ? index : -1;
    m_text = GetString(m_current);
}

// ---- scroll bar

FakeScrollBar::FakeScrollBar(FakeWindow& window, bool vertical_) : FakeControl(window), vertical(vertical_)
{
    constexpr int thickness = 16, length = 100;
    SetSupportedEvent(typeid(IScrollBarNotify));
    m_rect = vertical ? rectangle<int>(0, 0, thickness, length) : rectangle<int>(0, 0, length, thickness);
}

void FakeScrollBar::SetPos(int left, int top, int right, int bottom)
{
    if (vertical)
        m_rect = {left, top, left + m_rect.Width(), bottom};
    else
        m_rect = {left, top, right, top + m_rect.Height()};
}

void FakeScrollBar::SetScrollInfo(const ScrollInfo& info)
{
    m_step = std::max(static_cast<int>(info.line), 1);
    m_min = static_cast<int>(info.min);
    m_flag = info.disableNoScroll;
    const auto steps = [this](double extent) { return static_cast<int>(extent / m_step + 0.5); };
    m_range = std::max(steps(info.max - info.min), 1);
    m_thumb = std::clamp(steps(info.page), 1, m_range);
    Move(steps(info.pos - info.min));
}

void FakeScrollBar::GetScrollInfo(ScrollInfo& info) const
{
    info.min = m_min;
    info.max = m_range * m_step + m_min;
    info.line = m_step;
    info.page = m_thumb * m_step;
    info.pos = GetScrollVal();
    info.disableNoScroll = m_flag;
}

// Kept by contract: the division has cut off the fraction already.
void FakeScrollBar::SetScrollVal(int value)
{
    Move((value - m_min) / m_step);
}

void FakeScrollBar::Move(int position)
{
    m_position = std::clamp(position, 0, m_range - m_thumb);
}

bool FakeScrollBar::Report(double value, ScrollAction action)
{
    CScrollEvent record;
    record.value = value;
    record.action = action;
    return Fire(&IScrollBarNotify::OnScroll, record);
}

bool FakeScrollBar::MoveBy(int steps, ScrollAction back, ScrollAction on)
{
    const int before = m_position;
    if (IsUsable())
        Move(m_position + steps);
    if (m_position == before)
        return false;
    Report(GetScrollVal(), steps < 0 ? back : on);
    return true;
}

bool FakeScrollBar::DragTo(double value)
{
    if (!IsUsable())
        return false;
    Move(static_cast<int>(std::lround((value - m_min) / m_step)));
    if (Report(GetScrollVal(), saAbsolute))
        Report(GetScrollVal(), saAbsolute);
    return true;
}

bool FakeScrollBar::ToEnd(bool last)
{
    if (!IsUsable())
        return false;
    Move(last ? m_range : 0);
    Report(last ? m_min + m_step * m_range : m_min, saAbsolute);
    return true;
}

} // namespace vela7::testkit
