/// Popups: borderless windows that go away when the user clicks elsewhere.
///
/// Created by ISysWindow::CreatePopup; dies with its last handle or with the window that created it.
/// Thread: GUI.
#pragma once

#include "vela7/cbase.h"

namespace vela7 {

class ISysWindow;

class VELA7_BASE_API IPopup : public CBase
{
public:
    /// Screen coordinates; moves a popup that is shown.
    virtual void Show(int x, int y) = 0;
    virtual void Hide() = 0;
    virtual bool IsVisible() const = 0;
    /// Whether a click elsewhere hides it (the default).
    virtual void SetAutoHide(bool autoHide) = 0;
    virtual void SetSize(int width, int height) = 0;
    /// Null pointers are not written.
    virtual void GetSize(int* width, int* height) = 0;
    /// The toolkit window that fills the popup; belongs to it.
    virtual ISysWindow* GetContent() = 0;
    virtual ISysWindow* GetParent() = 0;
};

} // namespace vela7
