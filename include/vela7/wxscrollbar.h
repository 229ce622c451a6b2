/// Scroll bars on wx.
#pragma once

#include "vela7/scrollbar.h"
#include "vela7/wxeventlife.h"
#include "vela7/wxexport.h"

#include <wx/scrolbar.h>

namespace vela7 {

/// A stand-alone native scroll bar that counts in the units of whoever scrolls.
///
/// Made by ISysWindow::CreateScrollBar. Dies with its last handle or with its wx parent, also inside its own
/// notification. Never takes the focus. Thread: GUI. Minimum and step are whole numbers: fractions of
/// ScrollInfo::min and line are cut off, a step is at least 1. What is not a number counts as 0, what an int
/// cannot hold as the nearest that it can; an empty or reversed range leaves nothing to scroll.
class VELA7_WX_API CwxScrollBar : public wxScrollBar, public CScrollBar, public IEndsWithParent
{
public:
    CwxScrollBar(wxWindow* parent, bool vertical);
    ~CwxScrollBar() override;

    void SetScrollInfo(const ScrollInfo& info) override;
    void GetScrollInfo(ScrollInfo& info) const override;
    /// Without notification. A value between two thumb positions goes to the one nearer to the minimum.
    void SetScrollVal(int value) override;
    int GetScrollVal() const override;
    /// The value at a native thumb position.
    double RecalculatedScrollVal(double native) const { return native * m_step + m_min; }

    /// The bar keeps its thickness whatever the rectangle says.
    void SetPos(int left, int top, int right, int bottom) override;
    rectangle<int> GetPos() const override;
    void SetVisible(bool visible) override { Show(visible); }
    bool GetVisible() const override { return IsShown(); }
    void SetEnabled(bool enabled) override { Enable(enabled); }
    bool GetEnabled() const override { return IsEnabled(); }
    /// The bar itself, as a wxWindow.
    void* GetNativeHandle() const override
    {
        return const_cast<wxWindow*>(static_cast<const wxWindow*>(this));
    }

    bool AcceptsFocus() const override { return false; }
    bool ProcessEvent(wxEvent& event) override;
    /// Deletes the bar: at once, or, while it is in use, on the first idle pass after the event.
    bool Destroy() override { return m_use.PutOffDestruction(*this) || wxScrollBar::Destroy(); }

protected:
    void Dispose() override;

private:
    void OnParentEnds() override;
    void Report(double value, ScrollAction action);
    void Report(const wxScrollEvent& e, ScrollAction a) { Report(RecalculatedScrollVal(e.GetPosition()), a); }
    void eventScrollTop(wxScrollEvent&) { Report(m_min, saAbsolute); }
    // Kept by contract: the end of the range, although no thumb gets there with its top.
    void eventScrollBottom(wxScrollEvent&) { Report(RecalculatedScrollVal(GetRange()), saAbsolute); }
    void eventScrollLineUp(wxScrollEvent& event) { Report(event, saLineUp); }
    void eventScrollLineDown(wxScrollEvent& event) { Report(event, saLineDown); }
    void eventScrollPageUp(wxScrollEvent& event) { Report(event, saPageUp); }
    void eventScrollPageDown(wxScrollEvent& event) { Report(event, saPageDown); }
    void eventScrollThumbTrack(wxScrollEvent& event) { Report(event, saAbsolute); }
    void eventScrollThumbRelease(wxScrollEvent& event) { Report(event, saAbsolute); }

    int m_step = 1; // units per thumb position, never below 1
    int m_min = 0;  // the value at thumb position 0
    bool m_flag = false;
    CEventLife m_use;

    wxDECLARE_EVENT_TABLE();
};

} // namespace vela7
