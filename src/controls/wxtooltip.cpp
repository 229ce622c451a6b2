// Tips. All lengths are device pixels, so the painters' own conversion of coordinates is off.
//
// Showing, hiding and resizing a tip may reach listeners of its custom layer, a forwarded event those of the
// owner; either may destroy the owner, and with it the tip. A tip that is delivering an event is then kept
// for wx until the next idle pass, and has no owner any more.

#include "vela7/wxtooltip.h"

#include "life/hanging.h"
#include "port/pointer.h"
#include "vela7/system.h"
#include "vela7/wxsyswindow.h"
#include "vela7/wxvelawindow.h"

#include <wx/dcclient.h>
#include <wx/utils.h>

#include <algorithm>

namespace vela7 {

namespace {

constexpr const char* breakSet = ", <>:._\n\r";
constexpr unsigned measureFormat = tfMeasureOnly | tfTop | tfLeft, paintFormat = tfVCenter | tfLeft;
constexpr int widthOnUnknownMonitor = 600;
// About the text is a margin, on its right also a gap for each started hundred pixels of it.
constexpr double marginUnit = 3.0, gapUnit = 2.0;

int DevicePixels(double length, const IPainter& painter)
{
    return static_cast<int>(length * painter.GetDPIScale());
}

bool Holds(const wxSize& extent, const wxPoint& p) // Kept by contract: inclusive at both ends
{
    return p.x >= 0 && p.x <= extent.GetWidth() && p.y >= 0 && p.y <= extent.GetHeight();
}

} // namespace

// clang-format off
wxBEGIN_EVENT_TABLE(CwxTooltip, CVELAwxTipWindow)
    EVT_LEFT_DCLICK(CwxTooltip::mouseDblClickEvent)
    EVT_RIGHT_DCLICK(CwxTooltip::mouseDblClickEvent)
    EVT_LEFT_DOWN(CwxTooltip::mouseEvent)
    EVT_RIGHT_DOWN(CwxTooltip::mouseEvent)
    EVT_LEFT_UP(CwxTooltip::mouseEvent)
    EVT_RIGHT_UP(CwxTooltip::mouseEvent)
    EVT_MOTION(CwxTooltip::mouseEvent)
    EVT_LEAVE_WINDOW(CwxTooltip::leaveEvent)
    EVT_MOUSEWHEEL(CwxTooltip::wheelEvent)
    EVT_PAINT(CwxTooltip::paintEvent)
    EVT_CONTEXT_MENU(CwxTooltip::contextMenuEvent)
wxEND_EVENT_TABLE()
// clang-format on

// Not inline: the compiler takes the address of a hold that is kept elsewhere for a mistake.
CEventLife& CVELAwxTipWindow::GetUse()
{
    return m_use;
}

CwxTooltip::CwxTooltip(wxWindow* owner_) : CVELAwxTipWindow(owner_, wxBORDER_NONE), owner(owner_)
{
    gtkport::SetTransient(*this, false); // most tips are never shown
    SetSize(0, 0, 200, 200);
}

CwxTooltip::~CwxTooltip()
{
    m_life.Revoke();
    hanging::Hidden(*this);
    CwxSysWindow* const window = GetWrapper(owner);
    if (window && window->TakeTooltip() == this)
        window->SetTooltip(nullptr);
    DestroyChildren(); // the layer has a handler on this window
}

void CwxTooltip::OnParentEnds()
{
    if (!GetUse().SetAside(*this))
        return;
    owner = nullptr;
    CVELAwxTipWindow::Show(false);
}

void CwxTooltip::Track(int x_, int y_, const std::string& text_)
{
    ITooltip::Track(x_, y_, text_);
    Refresh(); // of a shown one: the text may be another one of the same size
    CalcRect();
}

bool CwxTooltip::IsUnderMouse() const
{
    return IsShown() && Holds(GetSize(), ScreenToClient(wxGetMousePosition()));
}

screen_rectangle<int> CwxTooltip::GetScreenRect() const
{
    const_cast<CwxTooltip*>(this)->CalcRect();
    return {x, y, x + GetSize().GetWidth(), y + GetSize().GetHeight()};
}

void CwxTooltip::CalcRect()
{
    wxSize extent = layerMode == lmNormal ? MeasureText() : wxSize(fixedWidth, fixedHeight);
    extent.IncTo(wxSize(0, 0));
    const wxPoint place = IsShown() ? PlaceOnMonitor(extent) : wxPoint(x, y);
    SetSize(place.x, place.y, extent.GetWidth(), extent.GetHeight(), wxSIZE_AUTO);
}

// Where the tip is as a whole on the monitor of the pointer, or its beginning when it is too large.
wxPoint CwxTooltip::PlaceOnMonitor(const wxSize& extent) const
{
    const int monitor = GetMonitorIndex();
    if (monitor < 0 || monitor >= static_cast<int>(wxDisplay::GetCount()))
        return {x, y};
    const wxRect area = wxDisplay(static_cast<unsigned>(monitor)).GetGeometry();
    return {std::max(area.x, std::min(x, area.x + area.width - extent.GetWidth())),
            std::max(area.y, std::min(y, area.y + area.height - extent.GetHeight()))};
}

wxSize CwxTooltip::MeasureText()
{
    singleLine = fixedHeight == 0 && text.find_first_of("\n\r") == std::string::npos;
    wxClientDC dc(this);
    CwxWinPainter painter(this);
    painter.SetDC(&dc);
    painter.SetCoordConversion(false);
    const CPaintScope paint(painter, ssAsIs);
    painter.SetFont(wx2vela(GetFont()));
    const int margin = DevicePixels(marginUnit, painter);
    const auto wrapped = [&](double width, double height) {
        return painter.DrawStringEx(text, {0.0, 0.0, width, height}, measureFormat, -1, breakSet);
    };
    const size<double> extent = singleLine ? painter.GetTextSize(text) : wrapped(10000, 10000);
    const int textWidth = static_cast<int>(extent.width), textHeight = static_cast<int>(extent.height);
    const int width = textWidth + (textWidth / 100 + 1) * DevicePixels(gapUnit, painter) + 2 * margin;
    const int maxWidth = MaxWidth();
    if (width <= maxWidth)
        return wxSize(width, fixedHeight != 0 ? fixedHeight : textHeight + 2 * margin);
    singleLine = false;
    // Kept by contract: the height that the text needs, even when another one was set.
    const double height =
        wrapped(maxWidth - (2.0 * margin + DevicePixels(gapUnit, painter)), 1000.0 * maxWidth).height;
    const int verticalMargin = fixedHeight != 0 ? (fixedHeight - textHeight) / 2 : margin;
    return wxSize(maxWidth, static_cast<int>(height) + 2 * std::max(1, verticalMargin));
}

int CwxTooltip::MaxWidth() const
{
    if (fixedWidth != 0)
        return fixedWidth;
    const int monitor = GetMonitorIndex();
    if (monitor < 0 || monitor >= static_cast<int>(wxDisplay::GetCount()))
        return widthOnUnknownMonitor;
    const int available = wxDisplay(static_cast<unsigned>(monitor)).GetClientArea().width;
    const int ownerWidth = owner ? owner->GetSize().x : 0;
    return std::max(available / 2, ownerWidth <= available ? ownerWidth : 0);
}

void CwxTooltip::ShowInt()
{
    const CLifeWatch self = m_life.Watch();
    const wxSize extent(fixedWidth, fixedHeight);
    gtkport::SetTransient(*this, true);
    CalcRect();
    if (!self.IsAlive())
        return;
    if (!owner || !owner->IsShownOnScreen()) { // it was hidden while the tip was waiting
        Clear();
        return;
    }
    Move(PlaceOnMonitor(GetSize()), wxSIZE_ALLOW_MINUS_ONE);
    hanging::Shown(*this, false, [this] { Dismiss(); });
    m_pastGrab = std::make_unique<gtkport::CPastGrab>(*this);
    CVELAwxTipWindow::Show(true);
    if (!self.IsAlive())
        return;
    Clear();
    ISysWindow* const layer = layerMode == lmCustom ? GetCustomLayer() : nullptr;
    if (layer)
        layer->SetVisible(true);
    if (layer && self.IsAlive() && GetCustomLayer())
        layer->SetWindowRect(0, 0, extent.GetWidth(), extent.GetHeight(), true);
}

void CwxTooltip::HideInt()
{
    const CLifeWatch self = m_life.Watch();
    hanging::Hidden(*this);
    m_pastGrab.reset();
    ISysWindow* const layer = layerMode == lmCustom && hideLayerOnHide ? GetCustomLayer() : nullptr;
    if (layer) {
        layerMode = lmNormal;
        layer->SetVisible(false);
    }
    if (self.IsAlive())
        CVELAwxTipWindow::Show(false);
}

void CwxTooltip::SetLayerMode(LayerMode mode, bool hideOnHide)
{
    layerMode = mode;
    hideLayerOnHide = hideOnHide;
    if (mode == lmCustom && !GetCustomLayer()) {
        customLayer = CreateWrapperForWx(this);
        m_layerLife = customLayer->WatchLife();
    }
    if (mode == lmCustom && IsShown())
        customLayer->SetVisible(true);
}

void CwxTooltip::paintEvent(wxPaintEvent&)
{
    wxPaintDC dc(this);
    CwxWinPainter painter(this);
    painter.SetDC(&dc);
    painter.SetCoordConversion(false);
    const CPaintScope paint(painter);
    const rectangle<int> r = wx2vela(GetClientRect());
    const _color foreground = wx2vela(GetForegroundColour());
    painter.SetFont(wx2vela(GetFont()));
    painter.SetBrush(brush{wx2vela(GetBackgroundColour()), bsSolid});
    painter.SetPen(pen{foreground, 1, psSolid});
    painter.SetTextColor(foreground);
    // Kept by contract: the far edges are inclusive ones, so the frame leaves the last row and column free.
    painter.Rectangle(r.left, r.top, r.right, r.bottom);
    const int margin = DevicePixels(marginUnit, painter);
    // As wide as it was measured with; the inclusive edge takes one pixel of that from the left.
    const rectangle<double> area(margin - 1, r.top, r.right - (DevicePixels(gapUnit, painter) + margin),
                                 r.bottom);
    if (singleLine)
        painter.DrawString(margin, r.top + margin, text);
    else
        painter.DrawStringEx(text, area, paintFormat, -1, breakSet);
}

// Every event goes on to wx, unless somebody has deleted the tip itself: then wx must not look at it.
template <class Reaction>
void CwxTooltip::React(wxMouseEvent& event, Reaction reaction)
{
    const CLifeWatch self = m_life.Watch();
    const CEventLife::CHold hold(GetUse());
    if (owner)
        reaction();
    event.Skip(self.IsAlive());
}

// To the toolkit window itself, past what others have pushed: wx's handler on a popup's content dismisses the
// popup when a click lies outside the content. False when the owner did not survive it.
bool CwxTooltip::Forward(wxMouseEvent& event)
{
    const CLifeWatch self = m_life.Watch();
    const wxPoint position = owner->ScreenToClient(ClientToScreen(event.GetPosition()));
    event.SetPosition(position);
    CwxSysWindow* const window = GetWrapper(owner);
    (window ? window : owner->GetEventHandler())->ProcessEvent(event);
    return self.IsAlive() && owner;
}

// Hides the tip and ends the owner's tracking.
void CwxTooltip::Dismiss()
{
    const CLifeWatch self = m_life.Watch();
    ITooltip::Hide();
    if (CwxSysWindow* const window = self.IsAlive() ? GetWrapper(owner) : nullptr)
        window->HideTooltipEx();
}

void CwxTooltip::mouseEvent(wxMouseEvent& event)
{
    React(event, [&] {
        const ISystem* const system = GetCurrentSystem();
        const bool motion = event.GetEventType() == wxEVT_MOTION;
        if (!system || !system->IsAppActive())
            Dismiss();
        else if (Forward(event) && !motion && wxWindow::FindFocus() != owner)
            owner->SetFocus();
    });
}

void CwxTooltip::mouseDblClickEvent(wxMouseEvent& event)
{
    React(event, [&] {
        if (Forward(event))
            Dismiss();
    });
}

void CwxTooltip::leaveEvent(wxMouseEvent& event)
{
    React(event, [&] {
        const wxPoint position = owner->ScreenToClient(ClientToScreen(event.GetPosition()));
        if (Holds(owner->GetClientSize(), position) || Forward(event))
            Dismiss();
    });
}

void CwxTooltip::contextMenuEvent(wxContextMenuEvent& event)
{
    const CEventLife::CHold hold(GetUse());
    if (owner)
        owner->GetEventHandler()->ProcessEvent(event);
    event.Skip(false);
}

} // namespace vela7
