// What the tests of toolkit windows share: a window to listen to.
#pragma once

#include "contract/recorder.h"
#include "support/fixture.h"
#include "vela7/painter.h"
#include "vela7/velawxwindow.h"
#include "vela7/wxsyswindow.h"

#include <wx/panel.h>

namespace vela7::test {

inline wxWindow* Native(const ISysWindow* window)
{
    return static_cast<wxWindow*>(window->GetNativeHandle());
}

// Moves the pointer without waiting for motion: GDK turns a motion into another window into crossings only.
inline void PointAt(const wxWindow* window, int x, int y)
{
    const wxPoint target = window->ClientToScreen(wxPoint(x, y));
    MovePointer(target.x, target.y);
}

// A toolkit window at (20,10) of 200x100 on a panel that fills the frame's client area.
class WindowTest : public GuiTest
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(GuiTest::SetUp());
        panel = new wxPanel(frame, wxID_ANY, wxPoint(0, 0), wxSize(400, 300));
        window = new CwxSysWindow(panel, true, ISysWindow::wtNormal);
        window->SetWindowRect(20, 10, 220, 110, false);
        native = Native(window);
        Settle();
    }

    // Counts the events that reach the native window's own handlers, which come after the toolkit's.
    template <class... Types>
    void CountBelow(const Types&... types)
    {
        const auto count = [this](wxEvent& event) {
            ++below;
            event.Skip();
        };
        (native->Bind(types, count), ...);
    }

    wxPanel* panel = nullptr;
    CwxSysWindow* window = nullptr;
    wxWindow* native = nullptr;
    int below = 0;
};

} // namespace vela7::test
