// Popups: what hides them, where the focus goes.
#include "support/platform.h"
#include "windowhelpers.h"

#include "vela7/wxpopup.h"

#include <gdk/gdkkeysyms.h>
#include <gtk/gtk.h>
#include <wx/textctrl.h>

using namespace vela7;
using namespace vela7::test;

namespace {

// A popup of 120x80 at (600,200), right of the frame; a text control on the panel has the focus.
class Popups : public WindowTest
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(WindowTest::SetUp());
        heard->Hear<IMouseNotify, IFocusNotify>();
        other = new wxTextCtrl(panel, wxID_ANY, "", wxPoint(20, 200));
        popup = window->CreatePopup();
        content = popup->GetContent();
        popup->SetSize(120, 80);
        inside = std::make_unique<Recorder>(content);
        ShowIt();
    }
    void ShowIt()
    {
        popup->Show(600, 200);
        other->SetFocus();
        Settle();
        heard->Take();
    }
    static void ClickAt(const wxPoint& place) { MovePointer(place.x, place.y), Click(); }
    wxTextCtrl* other = nullptr;
    CHandle<IPopup> popup;
    ISysWindow* content = nullptr;
    std::unique_ptr<Recorder> inside; // the content
};

const wxPoint onOwner{150, 160}, onPopup{650, 250}, onRoot{900, 900};

} // namespace

TEST_F(Popups, ClicksElsewhere)
{
    for (const wxPoint place : {onOwner, onRoot})
        for (const bool autoHide : {true, false}) {
            SCOPED_TRACE(At(place.x, place.y) + (autoHide ? " hides" : " stays"));
            popup->SetAutoHide(autoHide);
            popup->Hide();
            Settle();
            ShowIt();
            ClickAt(place);
            EXPECT_TRUE(popup->IsVisible() == !autoHide && Viewable(Native(content)) == !autoHide);
            EXPECT_TRUE(heard->Count("focus") == 1 && heard->Count("press") == 0);
        }
    popup->SetAutoHide(true); // the click has ended the watch
    ClickAt(onRoot);
    EXPECT_TRUE(popup->IsVisible());
}

TEST_F(Popups, FocusGoesBackOnTheNextPass)
{
    popup->Hide();
    EXPECT_TRUE(other->HasFocus());
    Settle();
    EXPECT_TRUE(window->GetFocused());
    EXPECT_EQ(Lines{"focus"}, heard->Take());
    other->SetFocus();
    popup->Hide(); // hidden: nothing
    Settle();
    EXPECT_TRUE(other->HasFocus());
}

TEST_F(Popups, PlaceAndSize)
{
    popup->Show(620, 230); // wx asserts if it were popped up twice
    popup->SetSize(60, 50);
    int width = -1, height = -1;
    popup->GetSize(nullptr, &height);
    popup->GetSize(&width, nullptr);
    EXPECT_TRUE(width == 60 && height == 50);
    EXPECT_EQ(wxRect(620, 230, 60, 50), Native(content)->GetScreenRect());
}

TEST_F(Popups, GrabComesBack)
{
    inside->Hear<IMouseNotify>();
    inside->DoIn("press", [this](CEvent& e) {
        content->CaptureMouse();
        e.passOn = false; // wx would set the focus
    });
    ClickAt(onPopup);
    content->ReleaseMouse();
    EXPECT_TRUE(other->HasFocus());
    inside->Do({});
    inside->Take();
    ClickAt(onPopup); // what happens in the application still happens there
    EXPECT_EQ(1, inside->Count("press"));
    ClickAt(onRoot);
    content->ReleaseMouse(); // grabs for a popup that is shown only
    EXPECT_FALSE(popup->IsVisible() || PointerIsGrabbed());
}

// What is created on the content of the one, and on a window in the frame, hides with that.
TEST_F(Popups, HideWithWhatTheyHangOn)
{
    const CHandle<IPopup> inner = content->CreatePopup();
    for (wxWindow* const hidden : {Native(content)->GetParent(), Native(content), native,
                                   static_cast<wxWindow*>(panel), static_cast<wxWindow*>(frame.get())}) {
        popup->Show(600, 200);
        inner->Show(800, 300);
        hidden->Hide();
        EXPECT_FALSE(inner->IsVisible());
        EXPECT_EQ(hidden == Native(content), popup->IsVisible());
        hidden->Show();
        popup->Hide();
        Settle();
        EXPECT_FALSE(PointerIsGrabbed());
    }
}
