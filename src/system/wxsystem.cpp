#include "vela7/wxsystem.h"

#include "port/gtkport.h"
#include "vela7/canvas.h"
#include "vela7/palette.h"
#include "vela7/wxconvert.h"
#include "vela7/wxsyspalette.h"

#include <wx/app.h>
#include <wx/dcscreen.h>
#include <wx/display.h>
#include <wx/settings.h>
#include <wx/thread.h>

/// What consumers refer to so that the linker keeps the library.
extern "C" VELA7_WX_API const int vela7_wx_is_linked;
const int vela7_wx_is_linked = 1;

namespace vela7 {

// After the cursor table of wxmouse.cpp, so that it is destroyed before it.
[[gnu::init_priority(300)]] CSystemCreator SystemCreator;

namespace {

// Registers the global object; another one that somebody makes takes nothing over.
struct Registration
{
    Registration() { SetCurrentSystem(&SystemCreator); }
};
[[gnu::init_priority(301)]] const Registration registration;

} // namespace

CwxSystem::CwxSystem()
{
    if (!GetSysPalette())
        SetSysPalette(new CwxSysPalette);
}

// Kept by contract: the current system is not reset; toolkit code may still compare it late in process exit.
CwxSystem::~CwxSystem()
{
    delete GetSysPalette();
    SetSysPalette(nullptr);
}

CSystemCreator::CSystemCreator() = default;
CSystemCreator::~CSystemCreator() = default;

IMouse* CwxSystem::TakeMouse() const
{
    return const_cast<CwxSystem*>(this);
}

int CwxSystem::GetSystemMetrics(SystemMetrics metric)
{
    const int code = metric; // any integer may arrive
    if (code < smVScrollWidth || code > smDoubleClickX || !gtkport::DisplayIsOpen())
        return 0;
    switch (code) {
    case smVScrollWidth:
        return wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, nullptr);
    case smCheckBoxWidth:
        return gtkport::CheckBoxSize().GetWidth();
    case smCheckBoxHeight:
        return gtkport::CheckBoxSize().GetHeight();
    default:
        return wxSystemSettings::GetMetric(wxSYS_DCLICK_X, nullptr);
    }
}

screen_rectangle<int> CwxSystem::GetDesktopRect(int monitor) const
{
    if (!gtkport::DisplayIsOpen())
        return {};
    const rectangle<int> area = wx2vela(wxDisplay(static_cast<unsigned>(monitor)).GetClientArea());
    return {area.left, area.top, area.right, area.bottom};
}

double CwxSystem::GetDPIScale() const
{
    if (!gtkport::DisplayIsOpen())
        return 1.0;
    return correctScaleWithDefaultFontSize(wxScreenDC().GetPPI().GetWidth() / 96.0);
}

bool CwxSystem::IsXpStylesSupported() const
{
    return false;
}

void CwxSystem::SetXpStylesSupport(bool) {}

int CwxSystem::GetMonitorsCount() const
{
    return gtkport::DisplayIsOpen() ? static_cast<int>(wxDisplay::GetCount()) : 0;
}

font CwxSystem::GetDefaultFont() const
{
    return gtkport::DisplayIsOpen() ? wx2vela(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT)) : font();
}

bool CwxSystem::IsAppActive() const
{
    const auto* const app = dynamic_cast<const wxApp*>(wxApp::GetInstance());
    return app && app->IsActive();
}

bool CwxSystem::IsMainThread() const
{
    const wxThreadIdType main = wxThread::GetMainId();
    return main == 0 || main == wxThread::GetCurrentId();
}

} // namespace vela7
