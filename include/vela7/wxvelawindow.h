/// The native half of a toolkit window.
#pragma once

#include "vela7/wxeventlife.h"
#include "vela7/wxexport.h"

#include <wx/window.h>

#include <cstddef>

namespace vela7 {

class CwxSysWindow;

/// The wx window that a toolkit window lives in, and the owner of that toolkit window.
///
/// Made by CwxSysWindow's constructor; wx deletes it like any child window, and with it the toolkit window.
/// Thread: GUI.
class VELA7_WX_API CVELAwxWindow final : public wxWindow
{
public:
    CVELAwxWindow() = default;
    ~CVELAwxWindow() override;

    /// Deletes the window: at once, or, while it is in use, on the first idle pass after the event. Until
    /// then its toolkit window hears of nothing more.
    bool Destroy() override;
    /// A toolkit window that fills its parent fills the new one.
    bool Reparent(wxWindowBase* newParent) override;

    /// While the parent lays out its children, a resize is put off, and reported once when that is through.
    void HoldResize();
    void ReleaseResize();
    /// Whether a resize that came just now waits.
    bool PutOffResize();

    /// The storage of a window that is deleted while it is in use becomes a window that was never created,
    /// for wx to go on with.
    static void* operator new(std::size_t size);
    static void operator delete(void* storage);

    /// The toolkit window; null before it is complete and for windows made by class name.
    CwxSysWindow* owner = nullptr;

    /// Held while the toolkit window, or a control on it, has an event.
    CEventLife life;

protected:
    void DoCaptureMouse() override;

private:
    enum class Resize
    {
        free,
        held,
        waiting,
    };

    void EndControls();
    // wx's own ones assert that there is a native window.
    void DoClientToScreen(int* x, int* y) const override;
    bool IsTransparentBackgroundSupported(wxString* reason) const override;

    Resize m_resize = Resize::free;
    bool m_hasCaptured = false; // at any time

    wxDECLARE_DYNAMIC_CLASS(CVELAwxWindow);
};

/// The toolkit window of a CVELAwxWindow; null for other windows and for null.
VELA7_WX_API CwxSysWindow* GetWrapper(wxWindow* window);

} // namespace vela7
