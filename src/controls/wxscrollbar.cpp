#include "vela7/wxscrollbar.h"

#include "controls/controlevents.h"
#include "life/callout.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace vela7 {

namespace {

// Towards zero, within the range of int; 0 for what is not a number.
int Truncated(double value)
{
    using Int = std::numeric_limits<int>;
    return std::isnan(value) ? 0 : static_cast<int>(std::clamp<double>(value, Int::min(), Int::max()));
}

} // namespace

// clang-format off
wxBEGIN_EVENT_TABLE(CwxScrollBar, wxScrollBar)
    EVT_SCROLL_TOP(CwxScrollBar::eventScrollTop)
    EVT_SCROLL_BOTTOM(CwxScrollBar::eventScrollBottom)
    EVT_SCROLL_LINEUP(CwxScrollBar::eventScrollLineUp)
    EVT_SCROLL_LINEDOWN(CwxScrollBar::eventScrollLineDown)
    EVT_SCROLL_PAGEUP(CwxScrollBar::eventScrollPageUp)
    EVT_SCROLL_PAGEDOWN(CwxScrollBar::eventScrollPageDown)
    EVT_SCROLL_THUMBTRACK(CwxScrollBar::eventScrollThumbTrack)
    EVT_SCROLL_THUMBRELEASE(CwxScrollBar::eventScrollThumbRelease)
wxEND_EVENT_TABLE()

CwxScrollBar::CwxScrollBar(wxWindow* parent, bool vertical)
    : wxScrollBar(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                  vertical ? wxSB_VERTICAL : wxSB_HORIZONTAL, wxDefaultValidator, "vela_wx_scroll_bar")
{
    SetSupportedEvent(typeid(IScrollBarNotify));
}
// clang-format on

CwxScrollBar::~CwxScrollBar()
{
    RevokeHandles();
}

void CwxScrollBar::Dispose()
{
    StopEventSending(true); // it may have to wait, and nobody expects to hear of it any more
    Destroy();
}

void CwxScrollBar::OnParentEnds()
{
    if (!m_use.SetAside(*this))
        return;
    RevokeHandles();
    StopAll();
}

bool CwxScrollBar::ProcessEvent(wxEvent& event)
{
    const CEventLife::CHold hold(m_use);
    FollowSize(*this, event);
    return wxScrollBar::ProcessEvent(event);
}

void CwxScrollBar::SetScrollInfo(const ScrollInfo& info)
{
    m_step = std::max(Truncated(info.line), 1);
    m_min = Truncated(info.min);
    m_flag = info.disableNoScroll;
    const auto native = [this](double extent) { return Truncated(extent / m_step + 0.5); };
    const int thumb = std::max(native(info.page), 0);
    SetScrollbar(native(info.pos - info.min), thumb, native(info.max - info.min), thumb, true);
}

void CwxScrollBar::GetScrollInfo(ScrollInfo& info) const
{
    const std::int64_t step = m_step; // products of two ints
    info.min = m_min;
    info.max = static_cast<double>(GetRange() * step + m_min);
    info.line = m_step;
    info.page = static_cast<double>(GetPageSize() * step);
    info.pos = static_cast<double>(GetThumbPosition() * step + m_min);
    info.disableNoScroll = m_flag;
}

void CwxScrollBar::SetScrollVal(int value)
{
    // Kept by contract: the division has cut off the fraction already, so that the half rounds nothing and
    // moves a negative quotient one step towards zero.
    const std::int64_t quotient = (std::int64_t(value) - m_min) / m_step;
    SetThumbPosition(Truncated(static_cast<double>(quotient) + 0.5));
}

int CwxScrollBar::GetScrollVal() const
{
    return Truncated(RecalculatedScrollVal(GetThumbPosition()));
}

void CwxScrollBar::SetPos(int left, int top, int right, int bottom)
{
    const wxSize least(std::max(GetSize().x, 6), std::max(GetSize().y, 6));
    if (HasFlag(wxSB_VERTICAL))
        SetSize(left, top, least.x, bottom - top, wxSIZE_AUTO);
    else
        SetSize(left, top, right - left, least.y, wxSIZE_AUTO);
}

rectangle<int> CwxScrollBar::GetPos() const
{
    const wxRect rect = GetRect();
    return {rect.x, rect.y, rect.x + rect.width, rect.y + rect.height};
}

void CwxScrollBar::Report(double value, ScrollAction action)
{
    const CLifeWatch alive = WatchLife();
    if (GetEnabled()) {
        CScrollEvent record(this);
        record.value = value;
        record.action = action;
        const NotifyHandler handler = handler_cast(&IScrollBarNotify::OnScroll);
        CallOut([&] { FireEvent(typeid(IScrollBarNotify), handler, &record, true); });
    }
    // Kept by contract: also when only its parent is disabled, which makes that the bar's own state.
    if (alive.IsAlive())
        SetEnabled(GetEnabled());
}

} // namespace vela7
