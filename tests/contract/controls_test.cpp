// Native controls, menus and popups on a window: what they report, in which order, and how they end.

#include "contract/stagetest.h"
#include "vela7/inplace.h"
#include "vela7/menu.h"
#include "vela7/popup.h"
#include "vela7/scrollbar.h"

using namespace vela7;
using namespace vela7::contract;
using vela7::test::Lines;

namespace {

// Writes into a list that it shares with others.
struct EditEar : CSubscriber<IEditNotify>
{
    Lines& heard;
    std::function<void(CEditKeyEvent&)> onKey = [](CEditKeyEvent&) {};

    EditEar(IEventSender& sender, Lines& to) : heard(to) { Subscribe<IEditNotify>(sender, this); }
    void OnEditTextChanged(CEditTextEvent* e) override { heard.push_back("text " + e->text); }
    void OnEditChar(CEditKeyEvent* e) override { heard.push_back("char " + std::to_string(e->key)); }
    void OnEditEnter(CEditEnterEvent*) override { heard.push_back("enter"); }
    void OnEditKeyDown(CEditKeyEvent* e) override
    {
        heard.push_back("keydown " + std::to_string(e->key));
        onKey(*e);
    }
};

class Editors : public StageTest, public testing::WithParamInterface<bool>
{
protected:
    void SetUp() override
    {
        StageTest::SetUp();
        edit = GetParam() ? CHandle<IInplaceEdit>(window->CreateInplaceComboBox(true).Get())
                          : window->CreateInplaceEdit(0);
        edit->SetPos(10, 10, 150, 40);
        edit->SetVisible(true);
        ear = std::make_unique<EditEar>(*edit, lines);
        heard->Hear<IKeyboardNotify, IFocusNotify>();
        heard->Do([&](CEvent& event) {
            const std::string line = heard->Take().at(0).substr(0, 9);
            lines.push_back("window " + line);
            if (line == "keydown 9") // where it would go is the platform's affair
                static_cast<CKeyboardEvent&>(event).allowNavigation = false;
        });
    }
    Lines Take() { return std::exchange(lines, {}); }
    Lines Type(std::uint32_t key)
    {
        KeyDown(key);
        KeyUp(key);
        return Take();
    }

    CHandle<IInplaceEdit> edit;
    Lines lines;
    std::unique_ptr<EditEar> ear;
};

INSTANTIATE_TEST_SUITE_P(, Editors, testing::Bool());

} // namespace

TEST_P(Editors, ReportKeysTextAndEnterAndGiveTabToTheWindow)
{
    edit->SetFocus();
    Settle();
    Take();
    EXPECT_EQ(Type('A'), (Lines{"keydown 65", "char 97", "text a"}));
    EXPECT_EQ(Type(kcReturn), (Lines{"keydown 13", "char 13", "enter"}));
    EXPECT_EQ(Type(kcTab), (Lines{"keydown 9", "window keydown 9"}));
    edit->SetText("b");
    EXPECT_EQ(Take(), Lines{"text b"});
    ear->onKey = [](CEditKeyEvent& key) { key.skip = false; };
    EXPECT_EQ(Type('A'), Lines{"keydown 65"});
    ear->onKey = [&](CEditKeyEvent&) { edit.Reset(); }; // silent at once
    EXPECT_EQ(Type('A'), Lines{"keydown 65"});
}

TEST_P(Editors, TellSignalsOfTheFocusThenTheWindow)
{
    ISysWindow* const other = stage->Window().CreateChild(ISysWindow::wtNormal);
    edit->focus_in_signal.connect([&](ICustomControl*) { lines.push_back("in"); });
    edit->focus_out_signal.connect([&](ICustomControl*) { lines.push_back("out"); });
    const auto at = [&](auto act) { return act(), Settle(), Take(); };
    at([&] { other->SetFocus(); });
    EXPECT_EQ(at([&] { edit->SetFocus(); }), (Lines{"in", "window focus"}));
    EXPECT_TRUE(window->GetFocused());
    EXPECT_EQ(at([&] { window->SetFocus(); }), (Lines{"out", "window focus"}));
    EXPECT_EQ(at([&] { edit->SetFocusEx(); }), Lines{});
    EXPECT_EQ(at([&] { other->SetFocus(); }), (Lines{"out", "window unfocus"}));
    edit->focus_out_signal.disconnect_all();
}

using Controls = StageTest;

TEST_F(Controls, ScrollBarsCountInWholeSteps)
{
    const CHandle<IScrollBar> bar = window->CreateScrollBar(ISysWindow::stVertical);
    bar->SetScrollInfo({0, 10, 110, 10, 20, 55, true});
    ScrollInfo info;
    bar->GetScrollInfo(info);
    EXPECT_EQ((std::vector<double>{info.min, info.max, info.line, info.page, info.pos}),
              (std::vector<double>{10, 110, 10, 20, 60}));
    EXPECT_TRUE(info.disableNoScroll && bar->GetScrollVal() == 60);
    for (const auto& [value, found] : {std::pair(29, 20), {-50, 10}, {500, 90}}) {
        bar->SetScrollVal(value);
        EXPECT_EQ(bar->GetScrollVal(), found);
    }
}

TEST_F(Controls, MenusFindTheirItems)
{
    CHandle<IPopupMenu> sub = window->CreateMenu();
    const CHandle<IPopupMenu> menu = window->CreateMenu();
    menu->InsertItem("two", 2, -1);
    menu->InsertSeparator(-1);
    menu->InsertItem("nine", 9, 0);
    sub->InsertItem("one", 1, -1);
    menu->InsertSubMenu("more", sub.Get(), 3, -1);
    EXPECT_TRUE(menu->GetItemCount() == 4 && menu->IdAt(0) == 9 && menu->IndexOf(2) == 1);
    EXPECT_TRUE(menu->IdAt(4) == -1 && menu->IndexOf(7) == -1);
    menu->SetItemEnabled(9, false, IPopupMenu::ptCommand); // not below the number of items
    EXPECT_TRUE(menu->IsItemEnabled(0, IPopupMenu::ptPosition));
    menu->SetItemChecked(1, true, IPopupMenu::ptCommand); // in the sub-menu
    sub.Reset();
    EXPECT_TRUE(menu->IsItemChecked(1, IPopupMenu::ptCommand));
    menu->DeleteItem(0, IPopupMenu::ptPosition);
    EXPECT_EQ(menu->IndexOf(2), 0);
}

TEST_F(Controls, PopupsHideByAClickElsewhereWhichReachesNobody)
{
    const CHandle<IPopup> popup = window->CreatePopup();
    point<int> place(300, 10);
    window->WindowToScreen(place);
    popup->SetSize(60, 40);
    popup->Show(place.x, place.y);
    Settle();
    test::Recorder inside(popup->GetContent());
    inside.Hear<IMouseNotify>();
    EXPECT_EQ(popup->GetContent()->GetClientRect(), rectangle<int>(0, 0, 60, 40));
    PointAt(*popup->GetContent(), 5, 6);
    Click(mbLeft);
    EXPECT_TRUE(inside.Count("press") == 1 && popup->IsVisible());
    heard->Hear<IMouseNotify>();
    PointAt(*window, 50, 40);
    Click(mbLeft);
    EXPECT_FALSE(popup->IsVisible());
    EXPECT_EQ(heard->Count("press"), 0);
    Settle();
    EXPECT_TRUE(window->GetFocused()); // given back
}

TEST_F(Controls, EndWithTheirWindowAndLeaveEmptyHandles)
{
    const CHandle<IInplaceEdit> edit = window->CreateInplaceEdit(0);
    const CHandle<IScrollBar> bar = window->CreateScrollBar(ISysWindow::stHorizontal);
    const CHandle<IPopup> popup = window->CreatePopup();
    const CLifeWatch life = window->WatchLife();
    heard.reset();
    stage->Close(*window);
    ASSERT_TRUE(WaitFor([&] { return !life.IsAlive(); }, "the end of the window"));
    EXPECT_FALSE(edit || bar || popup);
}

TEST_F(Controls, WorkForLaterIsDeletedWhetherItRunsOrNot)
{
    struct Work : IRunnable
    {
        explicit Work(std::string& to) : heard(to) {}
        ~Work() override { heard += "deleted "; }
        bool Run() override { return heard += "ran ", true; }
        std::string& heard;
    };
    std::string done;
    window->Synchronize(new Work(done));
    EXPECT_EQ(done, "");
    Settle();
    EXPECT_EQ(done, "ran deleted ");
    window->Synchronize(new Work(done));
    heard.reset();
    const CLifeWatch life = window->WatchLife();
    stage->Close(*window);
    ASSERT_TRUE(WaitFor([&] { return !life.IsAlive(); }, "the end of the window"));
    EXPECT_EQ(done, "ran deleted deleted ");
}
