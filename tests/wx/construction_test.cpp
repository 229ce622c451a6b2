// How toolkit windows come into a wx application, in which surroundings, and how they leave it.
#include "windowhelpers.h"

#include "vela7/palette.h"
#include "vela7/wxparentresizehandler.h"

#include <stdexcept>
#include <wx/app.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

using namespace vela7;
using namespace vela7::test;

namespace {

class Construction : public GuiTest
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(GuiTest::SetUp());
        panel = new wxPanel(frame, wxID_ANY, wxPoint(0, 0), wxSize(400, 300));
        Settle();
    }
    CwxSysWindow* Fill() { return new CwxSysWindow(panel, false, ISysWindow::wtNormal); }
    // No toolkit window and no trace of one is left on the panel.
    void ExpectBare()
    {
        EXPECT_TRUE(panel->GetChildren().empty());
        EXPECT_EQ(panel, panel->GetEventHandler());
    }

    wxPanel* panel = nullptr;
};

// Fails to answer as long as it is installed.
class ThrowingPalette : public ISysPalette
{
public:
    ThrowingPalette() { SetSysPalette(this); }
    ~ThrowingPalette() override { SetSysPalette(m_before); }
    _color GetSystemColor(SysColor) const override { throw std::runtime_error("out of colours"); }

private:
    ISysPalette* const m_before = GetSysPalette();
};

} // namespace

TEST_F(Construction, FillingWindowFollowsItsParent)
{
    panel->SetSizer(new wxBoxSizer(wxHORIZONTAL)); // is replaced
    int seen = 0; // by the parent's own handlers, which come after the toolkit's
    const auto count = [&](wxEvent& event) { ++seen, event.Skip(); };
    panel->Bind(wxEVT_SIZE, count), panel->Bind(wxEVT_SET_FOCUS, count);
    CwxSysWindow* const window = Fill();
    wxWindow* const native = Native(window);
    EXPECT_EQ("vela_wx_control", native->GetName());
    EXPECT_EQ(wxRect(0, 0, 400, 300), native->GetRect());
    EXPECT_EQ(wxVERTICAL, dynamic_cast<wxBoxSizer&>(*panel->GetSizer()).GetOrientation());
    Native(new CwxSysWindow(panel, true, ISysWindow::wtPanel))->Destroy(); // a child leaves its parent alone
    EXPECT_NE(nullptr, panel->GetSizer()->GetItem(native));
    Recorder heard(window);
    heard.Hear<IWindowNotify, IFocusNotify>();
    frame->SetClientSize(300, 200);
    EXPECT_TRUE(WaitFor([&] { return native->GetSize() == wxSize(300, 200); }, "the window resized"));
    EXPECT_EQ(Lines{"resize 300,200"}, heard.Take());
    window->SetVisible(false);
    panel->SendSizeEvent(); // lays nothing out
    EXPECT_EQ(Lines{}, heard.Take());
    window->SetWindowRect(0, 0, 200, 100, false);
    EXPECT_EQ(Lines{"resize 200,100"}, heard.Take());
    window->SetVisible(true);
    panel->SetFocus(); // is handed on
    EXPECT_TRUE(native->HasFocus());
    EXPECT_EQ(Lines{"focus"}, heard.Take());
    EXPECT_EQ(0, seen);
    auto* const other = new wxPanel(frame, wxID_ANY, wxPoint(0, 0), wxSize(150, 120));
    native->Reparent(other); // and is filled
    EXPECT_EQ(wxSize(150, 120), native->GetSize());
    ExpectBare();
    native->Destroy();
    ExpectBare();
}

TEST_F(Construction, HandlersThatSomebodyTookOffAreNotTakenOffTwice)
{
    wxWindow* const native = Native(Fill());
    EXPECT_NE(nullptr, dynamic_cast<CParentResizeHandler*>(panel->PopEventHandler()));
    EXPECT_EQ(GetWrapper(native), native->PopEventHandler());
    native->Destroy();
    ExpectBare();
}

TEST_F(Construction, FailureLeavesNothingBehind)
{
    EXPECT_THROW(new CwxSysWindow(nullptr, true, ISysWindow::wtNormal), std::invalid_argument);
    for (const bool isChild : {true, false}) {
        auto* const sizer = new wxBoxSizer(wxHORIZONTAL);
        panel->SetSizer(sizer);
        {
            const ThrowingPalette palette;
            EXPECT_THROW(new CwxSysWindow(panel, isChild, ISysWindow::wtNormal), std::runtime_error);
        }
        Settle();
        ExpectBare();
        EXPECT_EQ(sizer, panel->GetSizer());
        wxWindow* const native = Native(new CwxSysWindow(panel, isChild, ISysWindow::wtNormal));
        EXPECT_EQ(isChild, native->GetSize() != wxSize(400, 300));
        native->Destroy();
    }
}

TEST_F(Construction, AlwaysLeftToRight)
{
    panel->SetLayoutDirection(wxLayout_RightToLeft);
    CwxSysWindow* const window = Fill();
    EXPECT_EQ(wxLayout_LeftToRight, Native(window)->GetLayoutDirection());
    EXPECT_EQ(wxLayout_LeftToRight, Native(window->CreateChild(ISysWindow::wtNormal))->GetLayoutDirection());
}

TEST_F(Construction, MadeByClassName)
{
    const auto native = wxCreateDynamicObject("vela7::CVELAwxWindow");
    dynamic_cast<CVELAwxWindow&>(*native).Create(panel, wxID_ANY);
    EXPECT_EQ(nullptr, GetWrapper(dynamic_cast<wxWindow*>(native)));
    Settle();
    delete wxCreateDynamicObject("vela7::CVELAwxWindow");
    const std::unique_ptr<wxObject> handler(wxCreateDynamicObject("vela7::CParentResizeHandler"));
    EXPECT_NE(nullptr, dynamic_cast<CParentResizeHandler*>(handler.get()));
}
