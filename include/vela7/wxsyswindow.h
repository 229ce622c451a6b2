/// Toolkit windows on wx.
#pragma once

#include "vela7/window.h"
#include "vela7/wxchildfocusnotify.h"
#include "vela7/wxexport.h"
#include "vela7/wxnativewindows.h"
#include "vela7/wxparentresizehandler.h"
#include "vela7/wxsyncevent.h"
#include "vela7/wxwinpainter.h"

#include <wx/event.h>
#include <wx/window.h>

#include <type_traits> // wx/weakref.h needs it and does not include it
#include <wx/weakref.h>

#include <memory>

class wxClientDC;
class wxScreenDC;

namespace vela7 {

namespace gtkport {
class CKeptPicture;
}

class CVELAwxWindow;

/// A toolkit window in a wx application.
///
/// `new CwxSysWindow(parent, false, type)` puts a toolkit window into a wx window and fills it; further ones
/// come from CreateChild. Never delete one: it belongs to its native window (a CVELAwxWindow,
/// GetNativeHandle), which belongs to its wx parent. Destroying the native window, or closing it, ends the
/// toolkit window, also from inside any of its notifications. Thread: GUI; Synchronize any.
///
/// Not reported: presses, releases and double clicks of the middle button.
class VELA7_WX_API CwxSysWindow : public wxEvtHandler, public CSysWindow, private IChildFocusNotify
{
public:
    /// isChild false: the window fills its parent, whose sizer is replaced. A null parent throws
    /// std::invalid_argument. When construction fails, what was made is undone and the exception propagates.
    CwxSysWindow(wxWindow* parent, bool isChild, WindowType type);

    void SetWindowRect(int left, int top, int right, int bottom, bool update) override;
    void SetWindowRect(const screen_rectangle<int>& rect, bool update) override;
    rectangle<int> GetWindowRect() const override;
    rectangle<int> GetClientRect() const override;
    void SetEnabled(bool enabled) override;
    bool GetEnabled() const override;
    void SetVisible(bool visible) override;
    bool GetVisible() const override;
    void SetFocus() override;
    bool GetFocused() const override;
    void WindowToScreen(point<int>& p) const override;
    void ScreenToWindow(point<int>& p) const override;
    void SetBorderStyle(BorderStyle style) override;
    BorderStyle GetBorderStyle() const override;
    _color GetPixel(int x, int y) const override;
    void SetText(const std::string& text) override;
    /// Does nothing when the window has the capture already.
    void CaptureMouse() override;
    /// Does nothing when another window has the capture.
    void ReleaseMouse() override;
    void ScrollContent(int dx, int dy, int left, int top, int right, int bottom) override;
    void Invalidate(int left, int top, int right, int bottom) override;
    void Refresh(int left, int top, int right, int bottom, bool erase) override;
    int GetMonitorIndex() const override;
    void LockDraw(bool lock) override;
    /// The native wxWindow.
    void* GetNativeHandle() const override;
    bool IsActive() const override;
    bool InternalSetCursor(int id) override;
    void Synchronize(IRunnable* runnable) override;

    CHandle<IPainter> CreatePainter() override;
    IPainter* TakeDefPainter() override;
    int GetCanvasMetrics(CanvasMetrics metric) const override;

    CHandle<IPopupMenu> CreateMenu() override;
    CHandle<IInplaceEdit> CreateInplaceEdit(unsigned long style) override;
    CHandle<IInplaceComboBox> CreateInplaceComboBox(bool editable) override;
    CHandle<IScrollBar> CreateScrollBar(ScrollType type) override;
    CHandle<IPopup> CreatePopup() override;
    ISysWindow* CreateChild(WindowType type) override;

    /// The test of IsActive for a given window; false for null.
    bool IsActiveImp(const wxWindow* candidate) const;

    /// What the native controls on the window report their focus to; a cast does not find a private base.
    IChildFocusNotify& GetChildFocusNotify() { return *this; }
    void OnChildFocusIn(wxFocusEvent& event) override;
    void OnChildFocusOut(wxFocusEvent& event) override;

    /// The window is in use until wx is through with the event.
    bool ProcessEvent(wxEvent& event) override;

protected:
    friend class CVELAwxWindow; // deletes the toolkit window
    ~CwxSysWindow() override;

    /// Moves the focus on: among the siblings of the parent, then within this window if it is still there.
    void doNavigation(bool forward, bool windowChange);

    CVELAwxWindow* window = nullptr; // owns this object
    std::unique_ptr<CwxWinPainter> defPainter;
    mutable std::unique_ptr<wxClientDC> clientDC; // made when first needed
    mutable std::unique_ptr<wxScreenDC> screenDC;
    int pressedButton = mbNone; // of the last press, until the release
    bool isChild;

private:
    void CreateNative(wxWindow* parent);
    void CreateTooltip();
    void FillParent(wxWindow& parent);
    void FollowParent();
    void LeaveParent();
    void LeaveNative();
    void End();
    void SetColors(WindowType type);
    wxClientDC& GetClientDC() const;
    wxScreenDC& GetScreenDC() const;

    template <class Hook>
    bool Deliver(wxEvent& event, Hook hook);
    template <class Record>
    void Deliver(wxEvent& event, Record& record, void (CSysWindow::*hook)(Record*));
    CMouseEvent MakeMouseRecord(const wxMouseEvent& event, std::uint32_t button);

    void mousePressEvent(wxMouseEvent& event);
    void mouseReleaseEvent(wxMouseEvent& event);
    void mouseDoubleClickEvent(wxMouseEvent& event);
    void mouseMoveEvent(wxMouseEvent& event);
    void wheelEvent(wxMouseEvent& event);
    void enterEvent(wxMouseEvent& event);
    void leaveEvent(wxMouseEvent& event);
    void keyPressEvent(wxKeyEvent& event);
    void keyReleaseEvent(wxKeyEvent& event);
    void OnChar(wxKeyEvent& event);
    void focusInEvent(wxFocusEvent& event);
    void focusOutEvent(wxFocusEvent& event);
    void moveEvent(wxMoveEvent& event);
    void sizeEvent(wxSizeEvent& event);
    void paintEvent(wxPaintEvent& event);
    bool Paint(wxPaintEvent& event, wxDC& dc, const wxRect& damage);
    void eraseEvent(wxEraseEvent& event);
    void closeEvent(wxCloseEvent& event);
    void captureLostEvent(wxMouseCaptureLostEvent& event);
    void contextMenuEvent(wxContextMenuEvent& event);
    void sysColorChangedEvent(wxSysColourChangedEvent& event);
    void syncEvent(wxSyncEvent& event);
    void navigationEvent(wxNavigationKeyEvent& event);

    std::unique_ptr<CParentResizeHandler, CPushedHandler::CDeleter>
        m_parentHandler;                            // of one that fills its parent
    std::shared_ptr<gtkport::CKeptPicture> m_kept;  // on Wayland only
    mutable const void* m_clientDrawable = nullptr; // what clientDC was made for

    wxDECLARE_EVENT_TABLE();
};

/// A toolkit window that fills an existing wx window; belongs to it. Null for null.
VELA7_WX_API ISysWindow* CreateWrapperForWx(wxWindow* window);

} // namespace vela7
