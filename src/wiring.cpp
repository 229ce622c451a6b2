// Who makes what: every factory of the system, of windows and of pictures. This file alone knows all classes,
// and no file includes it.

#include "vela7/wxclipboard.h"
#include "vela7/wximagelist.h"
#include "vela7/wxinplacecombo.h"
#include "vela7/wxinplaceedit.h"
#include "vela7/wxpopup.h"
#include "vela7/wxpopupmenu.h"
#include "vela7/wxrasterpicture.h"
#include "vela7/wxrstpainter.h"
#include "vela7/wxscrollbar.h"
#include "vela7/wxsystem.h"
#include "vela7/wxsyswindow.h"
#include "vela7/wxthread.h"
#include "vela7/wxtimer.h"
#include "vela7/wxtooltip.h"
#include "vela7/wxvelawindow.h"

#include <wx/app.h>

namespace vela7 {

// ---- the system

CHandle<ISysTimer> CwxSystem::CreateTimer(int milliseconds, bool start) const
{
    return CHandle<ISysTimer>(wxApp::GetInstance() ? new CwxSysTimer(milliseconds, start) : nullptr);
}

CHandle<IImageList> CwxSystem::CreateImageList() const
{
    return CHandle<IImageList>(new CwxImageList);
}

IClipboard* CwxSystem::TakeClipboard() const
{
    static CwxClipboard clipboard; // one for all threads and system objects; what existed before outlives it
    return &clipboard;
}

CHandle<IRasterPicture> CwxSystem::CreateRasterPicture(size<int> pixels) const
{
    return CHandle<IRasterPicture>(new CwxRasterPicture(pixels));
}

IRunner* CwxSystem::CreateRunner()
{
    return vela7::CreateRunner();
}

CHandle<ILock> CwxSystem::CreateLock()
{
    return CHandle<ILock>(new CLock);
}

// ---- pictures

IPainter* CwxRasterPicture::TakeDefPainter()
{
    if (!defPainter) {
        defPainter = std::make_unique<CwxRstPainter>(this);
        defPainter->SetCounted(false); // the picture's own
    }
    return defPainter.get();
}

// ---- windows

ISysWindow* CreateWrapperForWx(wxWindow* window)
{
    return window ? new CwxSysWindow(window, false, ISysWindow::wtNormal) : nullptr;
}

void CwxSysWindow::CreateTooltip()
{
    SetTooltip(new CwxTooltip(window));
}

IPainter* CwxSysWindow::TakeDefPainter()
{
    return defPainter.get();
}

CHandle<IPainter> CwxSysWindow::CreatePainter()
{
    auto* const painter = new CwxWinPainter(window);
    painter->SetCanvas(this);
    return CHandle<IPainter>(painter);
}

ISysWindow* CwxSysWindow::CreateChild(WindowType type)
{
    return new CwxSysWindow(window, true, type);
}

CHandle<IPopup> CwxSysWindow::CreatePopup()
{
    return CHandle<IPopup>(new CwxTransientPopup(*this));
}

CHandle<IPopupMenu> CwxSysWindow::CreateMenu()
{
    return CHandle<IPopupMenu>(new CwxPopupMenu(this, window));
}

CHandle<IInplaceEdit> CwxSysWindow::CreateInplaceEdit(unsigned long style)
{
    auto* const edit = new CwxInplaceEdit(window, style, &GetChildFocusNotify());
    edit->SetNotifyLife(WatchLife());
    return CHandle<IInplaceEdit>(edit);
}

CHandle<IInplaceComboBox> CwxSysWindow::CreateInplaceComboBox(bool editable)
{
    auto* const combo = new CwxInplaceCombo(window, editable, &GetChildFocusNotify());
    combo->SetNotifyLife(WatchLife());
    return CHandle<IInplaceComboBox>(combo);
}

CHandle<IScrollBar> CwxSysWindow::CreateScrollBar(ScrollType type)
{
    return CHandle<IScrollBar>(new CwxScrollBar(window, type == stVertical));
}

} // namespace vela7
