// The back-end without a display: what the contract tests cannot ask of it, since their hands are anybody's.

#include "contract/recorder.h"
#include "vela7/painter.h"
#include "vela7/testing/fakecontrols.h"
#include "vela7/testing/fakemenu.h"
#include "vela7/testing/fakepicture.h"
#include "vela7/testing/fakepopup.h"
#include "vela7/testing/fakesystem.h"
#include "vela7/testing/fakewindow.h"

using namespace vela7;
using namespace vela7::testkit;

namespace {

struct TestKit : testing::Test,
                 CSubscriber<IEditNotify>,
                 CSubscriber<IComboBoxNotify>,
                 CSubscriber<IScrollBarNotify>,
                 CSubscriber<IMenuNotify>
{
    void OnEditTextChanged(CEditTextEvent* e) override { heard += "text:" + e->text + ' '; }
    void OnComboItemSelected(CComboEvent* e) override { heard += "item:" + std::to_string(e->index) + ' '; }
    void OnScroll(CScrollEvent* e) override
    {
        heard += std::to_string(e->action) + ':' + std::to_string(int(e->value)) + ' ';
    }
    void OnMenuCommand(CMenuEvent* e) override
    {
        heard += "chose:" + std::to_string(e->id) + ' ', onCommand();
    }
    std::string Take() { return std::exchange(heard, {}); }

    std::string heard;
    std::function<void()> onCommand = [] {};
    FakeSystem system;
    FakeWindow& window = system.OpenWindow(200, 100);
};

TEST_F(TestKit, TextsTakeWhatIsTyped)
{
    const auto edit = window.CreateInplaceEdit(0), fixed = window.CreateInplaceEdit(esReadOnly);
    Subscribe<IEditNotify>(*edit, this);
    edit->SetText("one two");
    Take();
    edit->SetTextMaxLen(8);
    system.user.Click(window, 5, 5); // the later one lies on top
    EXPECT_TRUE(fixed->GetFocused());
    system.user.Type("x");
    EXPECT_EQ(fixed->GetText(), "");
    edit->SetFocus(); // selects all
    edit->SetCursorPos(3);
    system.user.Type("ab"); // the second one is too much
    EXPECT_EQ(Take() + edit->GetText(), "text:onea two onea two");
    for (const std::uint32_t key : {kcBack, kcDelete, kcHome, kcDelete, kcEnd, kcLeft, kcBack})
        system.user.Key(key);
    EXPECT_EQ(edit->GetText() + std::to_string(edit->GetCursorPos()), "neto3");
    edit->SelectAll();
    system.user.Key('A');
    EXPECT_EQ(edit->GetText(), "a");
}

TEST_F(TestKit, ComboBoxesAndScrollBarsDoWhatTheUserCan)
{
    const auto combo = window.CreateInplaceComboBox(true);
    Subscribe<IEditNotify>(*combo, this);
    Subscribe<IComboBoxNotify>(*combo, this);
    combo->SetString("first", -1);
    combo->SetString("second", -1);
    combo->focus_out_signal.connect([this](ICustomControl*) { heard += "out "; });
    combo->SetFocus();
    auto* const list = window.Find<FakeComboBox>();
    EXPECT_FALSE(list->Pick(2));
    EXPECT_TRUE(list->Pick(1));
    EXPECT_EQ(Take(), "out text:second item:1 ");
    combo->SetEnabled(false);
    EXPECT_FALSE(list->Pick(0));

    const auto bar = window.CreateScrollBar(ISysWindow::stVertical);
    Subscribe<IScrollBarNotify>(*bar, this);
    bar->SetScrollInfo({0, 0, 100, 5, 20, 0, false});
    auto* const thumb = window.Find<FakeScrollBar>();
    EXPECT_TRUE(thumb->Line(1) && thumb->Page(1) && thumb->DragTo(41) && thumb->ToEnd());
    EXPECT_FALSE(thumb->Line(1));
    EXPECT_TRUE(thumb->Page(-1) && thumb->ToEnd(false));
    EXPECT_FALSE(thumb->Line(-1));
    EXPECT_EQ(Take(), "1:5 3:25 5:40 5:40 5:100 2:60 5:0 ");
    window.SetVisible(false);
    EXPECT_FALSE(thumb->DragTo(3));
}

TEST_F(TestKit, MenusLetTheUserPickWhatCanBeSeen)
{
    CHandle<IPopupMenu> menu = window.CreateMenu();
    const auto sub = window.CreateMenu();
    menu->InsertItem("plain", 0, -1);
    menu->InsertItem("off", 1, -1);
    menu->InsertSubMenu("more", sub.Get(), 2, -1);
    sub->InsertItem("deep", 7, -1);
    menu->SetItemEnabled(1, false, IPopupMenu::ptPosition);
    menu->SetItemChecked(0, true, IPopupMenu::ptPosition);
    menu->SetItemStyle(1, 5, IPopupMenu::ptPosition);
    EXPECT_EQ(menu->GetItemStyle(1, IPopupMenu::ptPosition) + menu->GetItemStyle(1, IPopupMenu::ptCommand),
              5u);
    Subscribe<IMenuNotify>(*menu, this);
    Subscribe<IMenuNotify>(*sub, this);
    EXPECT_EQ(menu->Execute(1, 2), -1); // looked at only
    system.user.onMenu = [](FakeMenu& m) {
        EXPECT_FALSE(m.Pick("off") || m.Pick("more") || !m.Pick(7) || m.Pick(0));
    };
    EXPECT_EQ(menu->Execute(1, 2), 7);
    EXPECT_EQ(Take(), "chose:7 chose:7 ");
    system.user.onMenu = [](FakeMenu& m) { m.Pick("plain"); };
    EXPECT_TRUE(menu->Popup(1, 2));
    EXPECT_FALSE(menu->IsItemChecked(0, IPopupMenu::ptPosition)); // turned over
    onCommand = [&] { menu.Reset(), delete &window; };
    IPopupMenu* const dying = menu.Get();
    EXPECT_EQ(dying->Execute(1, 2), 0);
}

TEST_F(TestKit, PopupsWatchForClicksElsewhere)
{
    test::Recorder ear(&window);
    ear.Hear<IMouseNotify>();
    CHandle<IPopup> popup = window.CreatePopup(), inner;
    popup->SetSize(50, 50);
    popup->SetAutoHide(false);
    popup->Show(300, 300);
    EXPECT_TRUE(popup->GetContent()->GetFocused() && window.IsActive());
    inner = popup->GetContent()->CreatePopup();
    inner->Show(500, 500);
    system.user.Click(window, 5, 5);
    EXPECT_FALSE(inner->IsVisible());
    system.user.Click(window, 5, 5);
    EXPECT_TRUE(popup->IsVisible() && ear.Count("press") == 0);
    system.user.Click(window, 5, 5); // nobody watches any more
    EXPECT_EQ(ear.Count("press"), 1);
    popup.Reset();
    system.Settle();
    EXPECT_FALSE(inner);
}

TEST_F(TestKit, ThePointerStaysWithWhomItWasPressedOn)
{
    FakeWindow& other = *static_cast<FakeWindow*>(window.CreateChild(ISysWindow::wtNormal));
    other.SetWindowRect(100, 0, 200, 100, false);
    test::Recorder left(&window), right(&other);
    left.Hear<IMouseNotify>();
    right.Hear<IMouseNotify>();
    system.user.Drag(window, {10, 10}, {150, 10});
    EXPECT_EQ(left.Count("leave") + left.Count("release"), 2);
    EXPECT_EQ(right.Take(), test::Lines{});
    other.SetEnabled(false);
    system.user.Click(other, 5, 5);
    EXPECT_EQ(right.Count("press"), 0);
    EXPECT_TRUE(window.HasFocus()); // took it when it was pressed
}

// By the user, by the host, with the parent; then everything goes on that the user was about to do.
TEST_F(TestKit, WindowsAndControlsMayEndInAnyNotification)
{
    void (*const ends[])(FakeWindow&) = {[](FakeWindow& w) { w.Close(); }, [](FakeWindow& w) { delete &w; },
                                         [](FakeWindow& w) { delete w.Parent(); }};
    for (const auto& end : ends)
        for (const char* hook : {"enter", "motion", "press", "focus", "menu", "release", "double", "wheel",
                                 "leave", "keydown", "char", "keyup", "unfocus", "draw", "resize"}) {
            FakeWindow& host = system.OpenWindow(300, 300);
            auto* const victim = new FakeWindow(host, {0, 0, 100, 100});
            FakeWindow& other = *new FakeWindow(host, {100, 0, 200, 100});
            const CHandle<FakeWindow> dying(victim), left(&other);
            CHandle<IInplaceEdit> edit = victim->CreateInplaceEdit(0);
            edit->SetPos(50, 50, 100, 100);
            const CHandle<IPopup> popup = victim->CreatePopup();
            test::Recorder ear(victim);
            ear.HearAll();
            bool heard = false;
            ear.DoIn(hook, [&](CEvent&) { ear.Do({}), heard = true, end(*victim); });
            // clang-format off
            const std::function<void()> steps[] = {
                [&] { system.user.PointAt(*victim, 1, 1); },  [&] { system.user.PointAt(*victim, 2, 2); },
                [&] { system.user.Click(mbRight); },          [&] { system.user.DoubleClick(); },
                [&] { system.user.TurnWheel(1); },            [&] { system.user.Type("a"); },
                [&] { system.user.PointAt(other, 5, 5); },    [&] { other.SetFocus(); },
                [&] { edit->SetFocus(); },                    [&] { system.user.Type("b"); },
                [&] { edit->SetVisible(false); },             [&] { victim->Resize(90, 90); },
                [&] { popup->Show(500, 500); },               [&] { popup->Hide(); },
                [&] { victim->Refresh(0, 0, 9, 9, false); },  [&] { victim->Close(); }};
            // clang-format on
            for (const auto& step : steps)
                if (dying && left)
                    step();
            system.Settle();
            EXPECT_TRUE(heard && !dying && !edit && !popup) << hook;
            EXPECT_EQ(ear.Count("destroy"), 1) << hook;
            system.user.ReleaseAll();
        }
}

TEST_F(TestKit, ThreadsWorkWhenToldTo)
{
    struct Work : IRunnable
    {
        int left = 3;
        bool inMain = true;
        bool Run() override { return inMain = GetCurrentSystem()->IsMainThread(), --left > 0; }
    } work;
    IRunner* const runner = system.CreateRunner();
    EXPECT_FALSE(system.Work());
    runner->Run(&work);
    EXPECT_TRUE(system.Work() && runner->IsRunning() && system.IsMainThread());
    EXPECT_TRUE(system.WorkToTheEnd() && !runner->IsRunning());
    EXPECT_TRUE(work.left == 0 && !work.inMain);
    runner->Join();
    EXPECT_TRUE(system.Runners().empty());
}

TEST_F(TestKit, ThePainterShowsClipStateAndPictures)
{
    const auto icons = system.CreateImageList();
    const auto picture = system.CreateRasterPicture({16, 8});
    EXPECT_EQ(icons->AddRasterPicture(picture.Get(), _color::none()), 0);
    RecordingPainter& p = window.painter;
    const CPaintScope paint(p);
    p.Translate(10, 0);
    icons->DrawDisabled(&p, 0, 1, 2, 0, 0);
    p.SetClipRect(0, 0, 30, 20);
    p.SetClipRect(5, 5, 10, 10, true);
    p.SetBrush({clRed, bsSolid});
    p.FillRect(0, 0, 100, 100);
    EXPECT_EQ(p.Clip(), rectangle<int>(10, 0, 40, 20));
    EXPECT_TRUE(p.PixelAt(10, 19) == clRed && p.PixelAt(9, 0) == clWhite && p.PixelAt(15, 5) == clWhite);
    EXPECT_EQ(p.drawn.Peek()[1], "Icon 0 at 11 2 size 16 8 disabled");
}

} // namespace
