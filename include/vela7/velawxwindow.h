/// The native half of a toolkit window.
#pragma once

#include "vela7/deliverycount.h"
#include "vela7/wxexport.h"

#include <wx/window.h>

#include <cstddef>

namespace vela7 {

class CwxSysWindow;

/// The wx window that a toolkit window lives in, and the owner of that toolkit window.
///
/// Made by CwxSysWindow's constructor; wx deletes it like any child window, and with it the toolkit window.
/// Thread: GUI.
class VELA7_WX_API CVELAwxWindow : public wxWindow
{
public:
    CVELAwxWindow() = default;
    ~CVELAwxWindow() override;

    /// Deletes the window: at once, or, while it is delivering an event, on the next idle pass.
    bool Destroy() override;

    /// While a window is delivering, its storage outlives a deletion by its parent until the next idle pass:
    /// wx goes on using a window after the event that destroyed it.
    static void* operator new(std::size_t size);
    static void operator delete(void* storage);

    /// The toolkit window; null before it is complete and for windows made by class name.
    CwxSysWindow* owner = nullptr;

    /// Of the toolkit window's events.
    CDeliveryCount deliveries;

private:
    wxDECLARE_DYNAMIC_CLASS(CVELAwxWindow);
};

/// The toolkit window of a CVELAwxWindow; null for other windows and for null.
VELA7_WX_API CwxSysWindow* GetWrapper(wxWindow* window);

} // namespace vela7
