/// Tooltips on wx.
#pragma once

#include "vela7/cbase.h"
#include "vela7/tooltip.h"
#include "vela7/wxconvert.h"
#include "vela7/wxeventlife.h"
#include "vela7/wxexport.h"

#include <wx/display.h>
#include <wx/popupwin.h>
#include <wx/utils.h>

#include <memory>

namespace vela7 {

namespace gtkport {
class CPastGrab;
}

/// The wx window that a tip is shown in. It never takes the focus. Thread: GUI.
class VELA7_WX_API CVELAwxTipWindow : public wxPopupWindow
{
public:
    using wxPopupWindow::wxPopupWindow;
    bool AcceptsFocus() const override { return false; }
    /// Does nothing: wx gives any window the focus that is pressed.
    void SetFocus() override {}
    /// Deletes the tip: at once, or, while it is in use, on the first idle pass after the event. Nothing when
    /// it is being deleted: a listener of the layer wants what it is being told of.
    bool Destroy() override
    {
        return IsBeingDeleted() || m_use.PutOffDestruction(*this) || wxPopupWindow::Destroy();
    }

protected:
    CEventLife& GetUse(); // by mouse events

private:
    CEventLife m_use;
};

/// The tip of a toolkit window: a framed box of text, or a custom layer.
///
/// Made by the toolkit window (ISysWindow::TakeTooltip), a wx child of its native window, deleted with it.
/// Mouse events on the tip go on to the owner, in the owner's coordinates. It hides with the owner and with
/// anything that the owner is in. Thread: GUI.
class VELA7_WX_API CwxTooltip final : public CVELAwxTipWindow, public ITooltip, public IEndsWithParent
{
public:
    /// 200 x 200 at (0, 0), hidden.
    explicit CwxTooltip(wxWindow* owner);
    ~CwxTooltip() override;

    void SetText(const std::string& value) override { text = value; }
    void SetColor(const _color& background) override { SetBackgroundColour(vela2wx(background)); }
    void SetTextColor(const _color& color) override { SetForegroundColour(vela2wx(color)); }
    using CVELAwxTipWindow::SetFont;
    void SetFont(const font& value) override { SetFont(vela2wx(value)); }
    /// What is shown is moved from there onto the pointer's monitor.
    void SetPos(const point<int>& screen) override { x = screen.x, y = screen.y; }
    void SetHeight(int height) override { fixedHeight = height; }
    /// Text is wrapped at this width; narrower text makes a narrower tip.
    void SetWidth(int width) override { fixedWidth = width; }
    void Track(int x, int y, const std::string& text) override;
    /// The tip's right and bottom edges count as inside.
    bool IsUnderMouse() const override;
    /// Of the pointer, not of the tip.
    int GetMonitorIndex() const override { return wxDisplay::GetFromPoint(wxGetMousePosition()); }
    void Clear() override { fixedWidth = fixedHeight = 0; }
    screen_rectangle<int> GetScreenRect() const override;
    ISysWindow* GetCustomLayer() override { return m_layerLife.IsAlive() ? customLayer : nullptr; }
    /// Only hiding the tip hides the layer; going back to lmNormal by this call leaves it there.
    void SetLayerMode(LayerMode mode, bool hideLayerOnHide) override;
    LayerMode GetLayerMode() const override { return layerMode; }
    bool IsVisible() const override { return IsShown(); }
    void ShowInt() override;
    void HideInt() override;

private:
    void OnParentEnds() override;
    void CalcRect();
    wxPoint PlaceOnMonitor(const wxSize& extent) const;
    wxSize MeasureText();
    int MaxWidth() const;
    template <class Reaction>
    void React(wxMouseEvent& event, Reaction reaction);
    bool Forward(wxMouseEvent& event);
    void Dismiss();
    void mouseDblClickEvent(wxMouseEvent& event);
    void mouseEvent(wxMouseEvent& event);
    void leaveEvent(wxMouseEvent& event);
    void wheelEvent(wxMouseEvent& event) { mouseDblClickEvent(event); } // the same
    void paintEvent(wxPaintEvent& event);
    void contextMenuEvent(wxContextMenuEvent& event);

    wxWindow* owner; // null once it is gone
    std::string text;
    int x = 0, y = 0, fixedWidth = 0, fixedHeight = 0; // fixed: for the next showing, 0 = by the text
    bool singleLine = true, hideLayerOnHide = true;
    LayerMode layerMode = lmNormal;
    ISysWindow* customLayer = nullptr;              // on the tip; made when first asked for
    std::unique_ptr<gtkport::CPastGrab> m_pastGrab; // while it is shown
    CLifeWatch m_layerLife;
    CLifeFlag m_life;
    wxDECLARE_EVENT_TABLE();
};

} // namespace vela7
