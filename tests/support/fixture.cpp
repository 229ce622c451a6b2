#include "support/fixture.h"

#include "support/x11.h"

#include <gtk/gtk.h>
#include <wx/wx.h>

namespace vela7::test {

bool Viewable(const wxWindow* window)
{
    GdkWindow* const shown = gtk_widget_get_window(window->GetHandle());
    return shown && gdk_window_is_viewable(shown);
}

bool ShowActive(wxTopLevelWindow* window, const char* file, int line)
{
    window->Show();
    Settle();
    if (!window->IsActive())
        window->Raise();
    const auto ready = [window] { return Viewable(window) && window->IsActive(); };
    const bool shown = WaitFor(ready, "'" + std::string(window->GetTitle().utf8_str()) + "' shown and active",
                               5000, file, line);
    Settle();
    return shown;
}

void GuiTest::SetUp()
{
    m_input = std::make_unique<InputGuard>();
    MovePointer(1, 1);
    frame = new wxFrame(nullptr, wxID_ANY, "test frame", wxPoint(100, 100));
    frame->SetClientSize(400, 300);
    ASSERT_TRUE(ShowActive(frame));
}

void GuiTest::TearDown()
{
    m_input.reset();
    if (frame)
        frame->Destroy();
    if (WaitFor([] { return wxTopLevelWindows.empty(); }, "the end of all top-level windows", 2000))
        return;
    for (wxWindow* const left : wxTopLevelWindows) {
        ADD_FAILURE() << "left behind: " << left->GetClassInfo()->GetClassName() << " '" << left->GetLabel()
                      << '\'';
        left->Destroy(); // so that the next test starts on an empty screen
    }
}

} // namespace vela7::test
