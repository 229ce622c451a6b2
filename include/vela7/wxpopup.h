/// Popups on wx.
#pragma once

#include "vela7/popup.h"
#include "vela7/wxexport.h"
#include "vela7/wxsyswindow.h"

#include <wx/popupwin.h>

namespace vela7 {

class CwxTransientPopup;

/// The toolkit window that fills a popup.
///
/// Made by the popup; belongs to its native window. Thread: GUI.
class VELA7_WX_API CwxSysWindow4Popup final : public CwxSysWindow
{
public:
    explicit CwxSysWindow4Popup(CwxTransientPopup& host);

    /// Afterwards a click elsewhere still ends the popup on top: that takes a grab, which the capture has
    /// displaced.
    void ReleaseMouse() override;
    /// The popup hides, unless it is gone itself.
    void ProcessDestroy() override;

private:
    wxWeakRef<CwxTransientPopup> popup; // a listener may destroy it while this window ends
};

/// A popup: a borderless window with one toolkit window in it, which takes all mouse and keyboard input of
/// the application while it is shown.
///
/// Of several, the one that was shown last has the pointer grab, until it hides. A popup hides with the
/// window that created it, or anything that is in.
///
/// Made by CwxSysWindow::CreatePopup. It is a wx child of the creating window's native one and dies with it,
/// or after its last handle was released: it is hidden at once then and destroyed on the next idle pass, so
/// that its content may do that in any of its notifications. Thread: GUI.
class VELA7_WX_API CwxTransientPopup final : public wxPopupTransientWindow, public IPopup
{
public:
    explicit CwxTransientPopup(CwxSysWindow& creator);
    ~CwxTransientPopup() override;

    void Show(int x, int y) override;
    bool Show(bool show = true) override;
    void Hide() override;
    bool IsVisible() const override;
    /// Takes effect at the next click elsewhere. One that found the popup without auto-hide has ended the
    /// watch for clicks; the next showing begins it anew.
    void SetAutoHide(bool hide) override { autoHide = hide; }
    void SetSize(int width, int height) override;
    void GetSize(int* width, int* height) override;
    /// Null when the content was destroyed on its own, which also hides the popup.
    ISysWindow* GetContent() override { return content; }
    ISysWindow* GetParent() override { return parent; }

    /// What the last release of a handle does: Destroy.
    void Dispose() override;

    /// Hides the popup and leaves it to wx to delete on the next idle pass. A second call does nothing.
    bool Destroy() override;
    /// wx's answer to a click elsewhere.
    void Dismiss() override;

protected:
    /// Has the creating window focused on the next pass of the event loop.
    void OnDismiss() override;

private:
    friend class CwxSysWindow4Popup;
    void LoseContent();

    bool autoHide = true;
    ISysWindow* parent; // outlives the popup
    CwxSysWindow4Popup* content = nullptr;
};

} // namespace vela7
