/// The native half of a toolkit window.
#pragma once

#include "vela7/wxexport.h"

#include <wx/window.h>

#include <type_traits> // wx/weakref.h needs it and does not include it
#include <wx/weakref.h>

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

    /// Counts the events that the window is delivering. The window may die meanwhile.
    class VELA7_WX_API CDelivery
    {
    public:
        explicit CDelivery(CVELAwxWindow& window);
        ~CDelivery();
        CDelivery(const CDelivery&) = delete;
        CDelivery& operator=(const CDelivery&) = delete;
        /// The window still exists, and so does the toolkit window in it.
        bool IsAlive() const { return m_window.get() != nullptr; }

    private:
        wxWeakRef<CVELAwxWindow> m_window;
    };

private:
    int m_deliveries = 0;

    wxDECLARE_DYNAMIC_CLASS(CVELAwxWindow);
};

/// The toolkit window of a CVELAwxWindow; null for other windows and for null.
VELA7_WX_API CwxSysWindow* GetWrapper(wxWindow* window);

} // namespace vela7
