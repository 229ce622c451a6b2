// Focus: Tab through toolkit windows and native controls, clicks, the parent's share, what is reported of it.
#include "windowhelpers.h"

#include <gdk/gdkkeysyms.h>
#include <stdexcept>
#include <wx/button.h>
#include <wx/textctrl.h>

using namespace vela7;
using namespace vela7::test;

// Four places in a column of the frame: a toolkit window that fills its panel, an entry, another toolkit
// window, a button.
class Walk : public GuiTest
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(GuiTest::SetUp());
        auto* const all = new wxPanel(frame, wxID_ANY, wxPoint(0, 0), wxSize(400, 300));
        const auto fill = [all](int top) {
            auto* const panel = new wxPanel(all, wxID_ANY, wxPoint(0, top), wxSize(400, 50));
            return new CwxSysWindow(panel, false, ISysWindow::wtNormal);
        };
        auto* const first = fill(0);
        auto* const entry = new wxTextCtrl(all, wxID_ANY, "", wxPoint(0, 60), wxSize(400, 40));
        auto* const second = fill(120);
        auto* const button = new wxButton(all, wxID_ANY, "press", wxPoint(0, 180), wxSize(400, 40));
        stations = {Native(first), entry, Native(second), button};
        heard = std::make_unique<Recorder>(second);
        Settle();
    }
    // The numbers of the places that get the focus.
    std::string Tabs(int count, bool backward)
    {
        std::string way;
        if (backward)
            KeyDown(GDK_KEY_Shift_L);
        for (int i = 0; i < count; ++i) {
            Tap(GDK_KEY_Tab);
            const auto at = std::find(stations.begin(), stations.end(), wxWindow::FindFocus());
            way += std::to_string(at - stations.begin());
        }
        ReleaseAll();
        return way;
    }

    std::vector<wxWindow*> stations;
    std::unique_ptr<Recorder> heard;
};

TEST_F(Walk, BothWaysInOrder)
{
    int below = 0; // of the keys that have navigated
    stations[2]->Bind(wxEVT_KEY_DOWN, [&](wxKeyEvent& e) { below += e.GetKeyCode() == WXK_TAB; });
    heard->Hear<IFocusNotify, ITabTraversalNotify>();
    stations[0]->SetFocus();
    EXPECT_EQ("123012", Tabs(6, false));
    EXPECT_EQ("focus unfocus focus", heard->TakeNames());
    EXPECT_EQ("103210", Tabs(6, true));
    EXPECT_EQ("unfocus focus unfocus", heard->TakeNames());
    EXPECT_EQ(0, below);
}

TEST_F(WindowTest, ChildrenReportTheirFocus)
{
    heard->Hear<IFocusNotify>();
    wxWindow* const inside = new wxPanel(native);
    wxWindow* const deeper = new wxPanel(Native(window->CreateChild(ISysWindow::wtNormal)));
    const std::pair<wxWindow*, bool> rows[] = {
        {nullptr, true}, {native, false}, {inside, false}, {deeper, true}, {panel, true}};
    IChildFocusNotify& notify = window->GetChildFocusNotify();
    wxFocusEvent event;
    const auto tell = [&](wxWindow* other) {
        event.SetWindow(other);
        notify.OnChildFocusIn(event);
        notify.OnChildFocusOut(event);
    };
    for (const auto& [other, external] : rows) {
        tell(other);
        EXPECT_EQ(external ? "focus unfocus" : "", heard->TakeNames());
    }
    // The control goes on using its event, whatever a listener does.
    heard->Do([](CEvent&) { throw std::runtime_error("no focus wanted"); });
    tell(panel);
    ExpectFaults(Fault::loop, 2, "no focus wanted");
}
