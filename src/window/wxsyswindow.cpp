// Toolkit windows: construction, operations, factories.
//
// Who owns whom. The native window (CVELAwxWindow) owns the toolkit window: its destructor tells the
// listeners, then deletes the CwxSysWindow. The toolkit window is pushed onto the native window's stack of
// event handlers, so every event passes it first. A window that fills its parent also keeps a handler on the
// parent's stack. Handlers are taken off by identity, never "whatever is on top": others push handlers as
// well.
//
// What may happen meanwhile. Every call that leaves this class (a hook, wx moving the focus, a repaint at
// once) can end in a listener that destroys this window, its parent or the whole frame. So each such call is
// the last thing an operation does, or is followed by a test of the life watch before a member is touched.

#include "vela7/wxsyswindow.h"

#include "life/capture.h"
#include "port/drawing.h"
#include "port/gtkport.h"
#include "port/wayland.h"
#include "port/widgets.h"
#include "vela7/palette.h"
#include "vela7/wxconvert.h"
#include "vela7/wxmouse.h"
#include "vela7/wxvelawindow.h"

#include <wx/app.h>
#include <wx/dcclient.h>
#include <wx/dcscreen.h>
#include <wx/settings.h>
#include <wx/sizer.h>

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace vela7 {

namespace {

// The rectangle between two corners as given: reversed ones stay reversed and give wx a negative extent.
wxRect Between(int left, int top, int right, int bottom)
{
    rectangle<int> rect;
    rect.left = left;
    rect.top = top;
    rect.right = right;
    rect.bottom = bottom;
    return vela2wx(rect);
}

rectangle<int> Normalised(const wxPoint& a, const wxPoint& b)
{
    return {a.x, a.y, b.x, b.y};
}

struct BorderRow
{
    ISysWindow::BorderStyle style;
    int wx;
};

// clang-format off
// Read back from the end: of several flags simple counts before theme, and theme before none.
constexpr BorderRow borders[] = {
    {ISysWindow::bsNone,   wxBORDER_NONE},
    {ISysWindow::bsTheme,  wxBORDER_THEME},
    {ISysWindow::bsSimple, wxBORDER_SIMPLE},
};
// clang-format on

constexpr long anyBorder = wxBORDER_NONE | wxBORDER_THEME | wxBORDER_SIMPLE;

} // namespace

// ---- construction and destruction

CwxSysWindow::CwxSysWindow(wxWindow* parent, bool isChild_, WindowType type) : isChild(isChild_)
{
    if (!parent)
        throw std::invalid_argument("CwxSysWindow: a toolkit window needs a parent");
    CreateNative(parent);
    try {
        defPainter = std::make_unique<CwxWinPainter>(window);
        defPainter->SetCanvas(this);
        defPainter->SetCounted(false); // the window's own, whatever handles are made of it
        m_kept = gtkport::CKeptPicture::Make(*window);
        SetColors(type);
        Init();
        CreateTooltip();
        if (!isChild)
            FillParent(*parent); // the last that can fail: what it replaces does not come back
    } catch (...) {
        window->Destroy(); // has no owner yet, so this object is left alone
        throw;
    }
    window->owner = this;
    window->PushEventHandler(this);
}

void CwxSysWindow::CreateNative(wxWindow* parent)
{
    auto native = std::make_unique<CVELAwxWindow>();
    native->Create(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                   wxCLIP_CHILDREN | wxBORDER_NONE | wxWANTS_CHARS | wxFULL_REPAINT_ON_RESIZE,
                   "vela_wx_control");
    window = native.release(); // now its parent's
    gtkport::BearChangesWhileDrawing(*window);
    if (window->GetLayoutDirection() == wxLayout_RightToLeft)
        window->SetLayoutDirection(wxLayout_LeftToRight);
}

void CwxSysWindow::FillParent(wxWindow& parent)
{
    m_parentHandler.reset(new CParentResizeHandler(window));
    auto sizer = std::make_unique<wxBoxSizer>(wxVERTICAL);
    sizer->Add(window, 1, wxEXPAND | wxALL, 0);
    m_parentHandler->PushOnto(parent);
    parent.SetSizer(sizer.release());
    parent.Layout();
}

void CwxSysWindow::FollowParent()
{
    if (isChild)
        return;
    m_parentHandler.reset();
    if (wxSizer* const old = window->GetContainingSizer())
        old->Detach(window);
    if (wxWindow* const parent = window->GetParent())
        FillParent(*parent);
}

// At the beginning of the end: the parent may go before this window is through.
void CwxSysWindow::LeaveParent()
{
    m_parentHandler.reset();
}

void CwxSysWindow::SetColors(WindowType type)
{
    const bool panel = type == wtPanel;
    const _color color =
        GetDefaultPalette()->GetSystemColor(panel ? ISysPalette::scButtonFace : ISysPalette::scWindow);
    _color background = color;
    if (defPainter->GetGrayScale()) {
        background = IPainter::ToGray(color);
        background.alpha = 255;
    }
    defPainter->SetBackgroundColor(background);
    window->SetBackgroundColour(
        wxSystemSettings::GetColour(panel ? wxSYS_COLOUR_BTNFACE : wxSYS_COLOUR_WINDOW));
}

CwxSysWindow::~CwxSysWindow()
{
    LeaveNative();
}

// Nobody reaches this window any more, nor it the native one. It may have to wait for wx all the same, in
// whose hands it is when it dies inside its own event.
void CwxSysWindow::End()
{
    CEventLife& life = static_cast<CVELAwxWindow*>(window)->life;
    LeaveNative();
    life.Outlive(std::unique_ptr<wxObject>(this));
}

void CwxSysWindow::LeaveNative()
{
    if (!window)
        return;
    RevokeHandles();
    StopAll();
    if (wxAppConsole* const application = wxApp::GetInstance())
        application->RemovePendingEventHandler(this);
    DeletePendingEvents();
    defPainter.reset();
    m_kept.reset();
    clientDC.reset();
    m_parentHandler.reset();
    TakeOff(*window, *this);
    window = nullptr;
}

// ---- geometry and state

void CwxSysWindow::SetWindowRect(int left, int top, int right, int bottom, bool update)
{
    const CLifeWatch alive = WatchLife();
    const wxRect target = Between(left, top, right, bottom);
    window->SetSize(target.x, target.y, target.width, target.height, wxSIZE_AUTO);
    if (update && alive.IsAlive())
        window->Update();
}

void CwxSysWindow::SetWindowRect(const screen_rectangle<int>& rect, bool update)
{
    SetWindowRect(rect.left, rect.top, rect.right, rect.bottom, update);
}

rectangle<int> CwxSysWindow::GetWindowRect() const
{
    // Kept by contract: the far corner is (width, height), not x + width; toolkit code expects the pair.
    const wxSize extent = window->GetSize();
    return Normalised(window->GetPosition(), wxPoint(extent.GetWidth(), extent.GetHeight()));
}

rectangle<int> CwxSysWindow::GetClientRect() const
{
    const wxSize client = window->GetClientSize();
    return Normalised(wxPoint(0, 0), wxPoint(client.GetWidth(), client.GetHeight()));
}

void CwxSysWindow::SetEnabled(bool enabled)
{
    window->Enable(enabled);
}

bool CwxSysWindow::GetEnabled() const
{
    return window->IsEnabled();
}

void CwxSysWindow::SetVisible(bool visible)
{
    window->Show(visible);
}

bool CwxSysWindow::GetVisible() const
{
    return window->IsShown();
}

void CwxSysWindow::WindowToScreen(point<int>& p) const
{
    window->ClientToScreen(&p.x, &p.y);
}

void CwxSysWindow::ScreenToWindow(point<int>& p) const
{
    window->ScreenToClient(&p.x, &p.y);
}

void CwxSysWindow::SetBorderStyle(BorderStyle style)
{
    for (const BorderRow& row : borders)
        if (row.style == style)
            window->SetWindowStyleFlag((window->GetWindowStyleFlag() & ~anyBorder) | row.wx);
}

ISysWindow::BorderStyle CwxSysWindow::GetBorderStyle() const
{
    const auto row = std::find_if(std::rbegin(borders), std::rend(borders),
                                  [this](const BorderRow& border) { return window->HasFlag(border.wx); });
    return row != std::rend(borders) ? row->style : bsNone;
}

void CwxSysWindow::SetText(const std::string& text)
{
    window->SetLabel(vela2wx(text));
}

bool CwxSysWindow::InternalSetCursor(int id)
{
    const wxCursor cursor = GetCursorById(id);
    if (!cursor.IsOk())
        return false;
    window->SetCursor(cursor);
    wxSetCursor(cursor);
    return true;
}

void CwxSysWindow::CaptureMouse()
{
    if (!IsDestroyed()) // what it is told of its end is no time for it
        capture::Take(*window);
}

void CwxSysWindow::ReleaseMouse()
{
    capture::Release(*window);
}

int CwxSysWindow::GetMonitorIndex() const
{
    return gtkport::MonitorOf(*window);
}

void* CwxSysWindow::GetNativeHandle() const
{
    return static_cast<wxWindow*>(window);
}

// ---- painting

void CwxSysWindow::Invalidate(int left, int top, int right, int bottom)
{
    const wxRect rect = Between(left, top, right, bottom);
    window->Refresh(false, &rect);
}

void CwxSysWindow::Refresh(int left, int top, int right, int bottom, bool erase)
{
    const wxRect rect = Between(left, top, right, bottom);
    window->Refresh(erase, &rect);
    window->Update();
}

void CwxSysWindow::LockDraw(bool lock)
{
    if (lock)
        window->Freeze();
    else
        window->Thaw();
}

void CwxSysWindow::ScrollContent(int dx, int dy, int left, int top, int right, int bottom)
{
    // Kept by contract: with a retained buffer nothing but the buffer moves; whoever scrolls repaints the
    // rest.
    if (defPainter->GetRetainedBuffer()) {
        defPainter->ScrollContent(dx, dy, left, top, right, bottom);
        return;
    }
    const wxRect area = Between(left, top, right, bottom);
    window->ScrollWindow(dx, dy, &area);
    const wxRect client(window->GetClientAreaOrigin(), window->GetClientSize());
    window->Refresh(false, &client);
}

_color CwxSysWindow::GetPixel(int x, int y) const
{
    const wxColour read = m_kept ? m_kept->GetPixel({x, y}) : gtkport::GetPixel(GetClientDC(), {x, y});
    return wx2vela(read.IsOk() ? read : *wxBLACK);
}

// A DC made before the window was realised never draws: it is made anew when the drawable has changed.
wxClientDC& CwxSysWindow::GetClientDC() const
{
    const void* const drawable = gtkport::Drawable(*window);
    if (!clientDC || drawable != m_clientDrawable || !gtkport::DevicesFollowWindows()) {
        clientDC = std::make_unique<wxClientDC>(window);
        m_clientDrawable = drawable;
    }
    return *clientDC;
}

wxScreenDC& CwxSysWindow::GetScreenDC() const
{
    if (!screenDC)
        screenDC = std::make_unique<wxScreenDC>();
    return *screenDC;
}

int CwxSysWindow::GetCanvasMetrics(CanvasMetrics metric) const
{
    const wxClientDC& client = GetClientDC();
    const wxScreenDC& screen = GetScreenDC();
    // Before the window is realised its DC has nothing to measure, and asserts when it is asked to.
    if (!m_clientDrawable && (metric <= cmHeightMM || metric == cmColors))
        return metric == cmColors ? 1 : 0;
    switch (metric) {
    case cmWidth:
        return client.GetSize().GetWidth();
    case cmHeight:
        return client.GetSize().GetHeight();
    case cmWidthMM:
        return gtkport::Millimetres(client).GetWidth();
    case cmHeightMM:
        return gtkport::Millimetres(client).GetHeight();
    case cmScreenWidth:
        return screen.GetSize().GetWidth();
    case cmScreenHeight:
        return screen.GetSize().GetHeight();
    case cmScreenWidthMM:
        return gtkport::Millimetres(screen).GetWidth();
    case cmScreenHeightMM:
        return gtkport::Millimetres(screen).GetHeight();
    case cmColors:
        return static_cast<int>(1u << (static_cast<unsigned>(gtkport::Depth(client)) % 32));
    case cmDepth:
        return gtkport::Depth(screen);
    case cmDpiX:
        return screen.GetPPI().GetWidth();
    case cmDpiY:
        return screen.GetPPI().GetHeight();
    default:
        return 0;
    }
}

} // namespace vela7
