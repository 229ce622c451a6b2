// Windows: geometry, focus, life, and what they show.

#include "contract/stagetest.h"

using namespace vela7;
using namespace vela7::contract;
using vela7::test::Lines;

namespace {

constexpr _color clBack{0x10, 0x20, 0x30};

} // namespace

using Windows = StageTest;

TEST_F(Windows, GeometryKeepsItsAsymmetry)
{
    EXPECT_EQ(rectangle<int>(0, 0, 200, 100), window->GetClientRect());
    EXPECT_EQ(rectangle<int>(20, 10, 200, 100), window->GetWindowRect()); // the far corner is the size
    heard->Hear<IWindowNotify>();
    window->SetWindowRect({30, 20, 180, 90}, false);
    Settle();
    EXPECT_EQ(Lines{"resize 150,70"}, heard->Take());
    window->SetWindowRect(60, 20, 210, 90, false); // moved only
    Settle();
    EXPECT_EQ(Lines{}, heard->Take());
    point<int> p{3, 4}, origin{0, 0};
    stage->Window().WindowToScreen(origin);
    window->WindowToScreen(p);
    EXPECT_EQ(point<int>(origin.x + 63, origin.y + 24), p);
    window->ScreenToWindow(p);
    EXPECT_EQ(point<int>(3, 4), p);
}

TEST_F(Windows, StateIsReadBack)
{
    window->SetVisible(false);
    window->SetEnabled(false);
    EXPECT_FALSE(window->GetVisible() || window->GetEnabled());
    window->SetVisible(true);
    window->SetEnabled(true);
    EXPECT_TRUE(window->GetVisible() && window->GetEnabled());
    for (const auto style : {ISysWindow::bsSimple, ISysWindow::bsTheme, ISysWindow::bsNone}) {
        window->SetBorderStyle(style);
        EXPECT_EQ(style, window->GetBorderStyle());
    }
    window->SetCursor(crHand);
    EXPECT_EQ(int{crHand}, window->GetCursor());
    EXPECT_FALSE(window->InternalSetCursor(4711));
    EXPECT_EQ(0, window->GetMonitorIndex());
    EXPECT_EQ(200, dynamic_cast<ICanvas&>(*window).GetCanvasMetrics(ICanvas::cmWidth));
}

TEST_F(Windows, FocusComesAndGoes)
{
    heard->Hear<IFocusNotify>();
    ISysWindow* const inside = window->CreateChild(ISysWindow::wtNormal);
    ISysWindow* const deeper = inside->CreateChild(ISysWindow::wtNormal);
    ISysWindow* const other = stage->Window().CreateChild(ISysWindow::wtNormal);
    other->SetFocus();
    Settle();
    heard->Take();
    // One level of children counts as focused, all of them as active.
    const std::tuple<ISysWindow*, bool, bool, Lines> rows[] = {
        {window, true, true, {"focus"}}, {inside, true, true, {}},           {deeper, false, true, {}},
        {window, true, true, {"focus"}}, {other, false, false, {"unfocus"}},
    };
    for (const auto& [target, focused, active, expected] : rows) {
        target->SetFocus();
        Settle();
        EXPECT_EQ(expected, heard->Take());
        EXPECT_EQ(focused, window->GetFocused());
        EXPECT_EQ(active, window->IsActive());
    }
}

TEST_F(Windows, EndsOnceWithItsChildren)
{
    heard->Hear<IWindowNotify>();
    test::Recorder child(window->CreateChild(ISysWindow::wtNormal));
    child.Hear<IWindowNotify>();
    const CLifeWatch life = window->WatchLife();
    const CHandle<ISysWindow> handle(window);
    heard->DoIn("destroy", [&](CEvent&) {
        EXPECT_TRUE(window->IsDestroyed() && life.IsAlive());
        stage->Close(*window); // under way
    });
    stage->Close(*window);
    ASSERT_TRUE(WaitFor([&] { return !life.IsAlive(); }, "the end of the window"));
    EXPECT_EQ(Lines{"destroy"}, heard->Take());
    EXPECT_EQ(Lines{"destroy"}, child.Take());
    EXPECT_EQ(nullptr, handle.Get());
}

// On the stage's window itself: platforms may read the pixels of windows inside others inexactly.
class Painting : public OnStage
{
protected:
    void SetUp() override
    {
        OnStage::SetUp();
        window->TakeDefPainter()->SetBackgroundColor(clBack);
        Repaint();
    }
    void Repaint() { window->Refresh(0, 0, 400, 300, false); }
    void ExpectPixel(const _color& expected, int x, int y)
    {
        EXPECT_EQ(expected, window->GetPixel(x, y)) << x << ',' << y;
    }
    void Draw(const _color& color, StdSettings settings, const rectangle<int>& area)
    {
        heard->DoIn("draw", [=](CEvent& event) {
            IPainter& painter = *static_cast<CDrawEvent&>(event).painter;
            const CPaintScope scope(painter, settings);
            EXPECT_TRUE(scope.IsOk());
            painter.SetBrush(brush{color, bsSolid});
            painter.FillRect(area.left, area.top, area.right, area.bottom);
        });
    }
};

TEST_F(Painting, UnheardFillsWithTheBackground)
{
    ExpectPixel(clBack, 0, 0);
    ExpectPixel(clBack, 100, 50);
}

TEST_F(Painting, ListenerGetsTheDamage)
{
    heard->Hear<IDrawingNotify>();
    window->Invalidate(10, 20, 40, 60);
    window->Invalidate(100, 5, 130, 50);
    EXPECT_EQ(Lines{}, heard->Take());
    Settle();
    EXPECT_EQ(Lines{"draw 10,5 130,60"}, heard->Take());
    window->Refresh(1, 2, 3, 4, true); // at once
    EXPECT_EQ(Lines{"draw 1,2 3,4"}, heard->Take());
}

TEST_F(Painting, DirectAndBuffered)
{
    heard->Hear<IDrawingNotify>();
    for (const StdSettings settings : {ssClear, ssBuffered}) {
        SCOPED_TRACE(settings);
        Draw(clYellow, ssClear, {0, 0, 400, 300});
        Repaint();
        Draw(clRed, settings, {20, 30, 80, 90});
        window->Refresh(10, 20, 50, 60, false);
        ExpectPixel(clRed, 20, 30);
        ExpectPixel(clRed, 49, 59);
        ExpectPixel(clBack, 10, 20); // within the damage
        ExpectPixel(clBack, 49, 29);
        ExpectPixel(clYellow, 9, 20); // outside
        ExpectPixel(clYellow, 50, 60);
        EXPECT_FALSE(window->TakeDefPainter()->IsEnabled());
    }
}

TEST_F(Painting, SuppressedPaintsNothing)
{
    heard->Hear<IDrawingNotify>();
    Draw(clRed, ssClear, {0, 0, 200, 100});
    window->TakeDefPainter()->SetPaintSuppressed(true);
    Repaint();
    EXPECT_EQ(Lines{}, heard->Take());
    window->TakeDefPainter()->SetPaintSuppressed(false);
    Repaint();
    ExpectPixel(clRed, 100, 50);
}
