/// The painter of windows.
#pragma once

#include "vela7/wxexport.h"
#include "vela7/wxpainter.h"

#include <wx/window.h>

#include <type_traits> // wx/weakref.h needs it and does not include it
#include <wx/weakref.h>

#include <memory>

class wxBitmap;

namespace vela7 {

/// Paints a wx window, straight or through an off-screen buffer that is shown in one go at the end.
///
/// A toolkit window owns its default painter; CreatePainter hands out others in handles, which may outlive
/// the window: a paint that is open then ends, and BeginPaint answers false. Outside a paint event it draws
/// through a client DC of its own. Thread: GUI.
class VELA7_WX_API CwxWinPainter : public CwxPainter
{
public:
    explicit CwxWinPainter(wxWindow* window);
    ~CwxWinPainter() override;

    /// Makes a client DC when there is no device.
    void InitDC();
    /// The device of the coming paint, not owned; null takes it back. Ends a paint that is still open.
    void SetDC(wxDC* dc);

    /// The client area.
    rectangle<int> GetDrawRect() override;
    /// False in a buffered paint whose buffer still holds this window's last picture.
    bool IsFullRepaint() const override { return m_fullRepaint; }
    bool CreatePaintDevice(StdSettings settings) override;
    void internalEndPaint() override;
    /// By the desktop's theme.
    void internalDrawControlElement(ControlElement element, int l, int t, int r, int b, int state) override;

    /// Moves the inclusive rectangle of the retained buffer by (dx, dy). Does nothing during a buffered paint
    /// and without a buffer.
    virtual void ScrollContent(int dx, int dy, int left, int top, int right, int bottom);

private:
    // Tells the painter when the window goes.
    class CWatchedWindow : public wxWeakRef<wxWindow>
    {
    public:
        CWatchedWindow(wxWindow* window, CwxWinPainter& painter);
        void OnObjectDestroy() override;

    private:
        CwxWinPainter& m_painter;
    };

    bool StartBuffered();
    void ClearDevice();
    void LoseWindow();
    void DropDevices();
    wxColour FillColor() const;

    CWatchedWindow m_window;
    wxDC* m_target = nullptr;      // the window's DC while the device is m_memory
    std::unique_ptr<wxDC> m_own;   // the client DC made by this painter
    std::shared_ptr<void> m_watch; // over what m_own draws on
    std::unique_ptr<wxDC> m_memory;
    bool m_fullRepaint = true;
    double m_scale = 1.0; // the window's content scale
};

} // namespace vela7
