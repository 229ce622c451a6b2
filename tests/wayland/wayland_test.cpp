// Toolkit windows on Wayland, below a compositor that is a window of an X server: its screen is read there
// and its input made there. Nobody tells where a window is, so what it shows is searched for.
#include "support/x11.h"
#include "wx/windowhelpers.h"

#include "vela7/menu.h"
#include "vela7/wxmouse.h"
#include "vela7/wxpopup.h"

#include <wx/timer.h>

using namespace vela7;
using namespace vela7::test;

namespace {

constexpr std::uint32_t drawn = 0xc814e6, later = 0x14c832, content = 0xe6a014; // nobody else's colours
const wxSize screen(1280, 1024);
const wxSize whole(200, 100);

// Where a colour is on the screen; empty: nowhere.
wxRect Find(std::uint32_t colour)
{
    wxRect found;
    const auto pixels = x11::ReadScreen(0, 0, screen.x, screen.y, 0, 0);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        if (pixels[i] == colour)
            found.Union({int(i) % screen.x, int(i) / screen.x, 1, 1});
    return found;
}

// A window that draws itself white, and whoever draws on it from outside.
class Wayland : public WindowTest, CSubscriber<IDrawingNotify>, CSubscriber<IContextMenuNotify>
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(WindowTest::SetUp());
        Subscribe<IDrawingNotify>(*window, this);
        Subscribe<IContextMenuNotify>(*window, this);
        window->Invalidate(0, 0, 200, 100);
        ASSERT_TRUE(WaitFor([this] { return paints > 0; }, "the first paint"));
        Settle();
        paints = 0;
    }
    void OnDraw(CDrawEvent* event) override
    {
        ++paints;
        damage = event->painter->GetUpdateRect();
        event->painter->SetBackgroundColor({255, 255, 255});
        const CPaintScope paint(*event->painter, ssClear);
    }
    static point<int> PointerIn(const ISysWindow& target)
    {
        point<int> place = CwxMouse().GetPos();
        target.ScreenToWindow(place);
        return place;
    }
    // Moves the pointer to a place that is (50,20) in the target.
    static bool PointAt(const wxPoint& place, const ISysWindow& target)
    {
        x11::MovePointer(place.x, place.y);
        const auto arrived = [&] { // the compositor may round to either side
            const point<int> told = PointerIn(target);
            return std::abs(told.x - 50) <= 1 && std::abs(told.y - 20) <= 1;
        };
        return WaitFor(arrived, "the pointer");
    }
    void OnContextMenu(CContextMenuEvent* event) override
    {
        EXPECT_EQ(PointerIn(*window), event->position);
        const CHandle<IPopupMenu> menu = window->CreateMenu();
        menu->InsertItem("item", 0, 0);
        wxTimer end;
        end.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { opened = true, frame->Destroy(); });
        end.StartOnce(300);
        menu->Execute(event->position.x, event->position.y);
    }
    void Draw(std::uint32_t colour, const rectangle<double>& area, StdSettings settings = ssAsIs)
    {
        IPainter& painter = *window->TakeDefPainter();
        const CPaintScope paint(painter, settings);
        painter.SetBrush({Toolkit(colour), bsSolid});
        painter.FillRect(area.left, area.top, area.right, area.bottom);
    }
    static bool Shows(std::uint32_t colour, const wxSize& extent)
    {
        return WaitFor([&] { return Find(colour).GetSize() == extent; }, "a colour on the screen");
    }
    int paints = 0;
    rectangle<int> damage;
    bool opened = false; // the menu
};

} // namespace

TEST_F(Wayland, WhatIsDrawnOutsideOfAPaintIsShown)
{
    for (const StdSettings settings : {ssAsIs, ssClear, ssBuffered}) {
        Draw(drawn, {20, 10, 60, 40}, settings);
        Draw(later, {30, 20, 40, 30}); // on what was drawn before
        EXPECT_EQ(Toolkit(later), window->GetPixel(35, 25));
        EXPECT_TRUE(Shows(drawn, {40, 30}) && Shows(later, {10, 10}));
        EXPECT_EQ(0, paints) << "the listeners have nothing to do with it";
        window->Invalidate(0, 0, 200, 100);
        EXPECT_TRUE(Shows(drawn, {}) && Shows(later, {}));
        EXPECT_EQ(1, std::exchange(paints, 0));
    }
}

TEST_F(Wayland, DamageInTheSameFrame)
{
    Draw(drawn, {20, 10, 60, 40});
    window->Invalidate(100, 50, 110, 60);
    EXPECT_TRUE(Shows(drawn, {40, 30}));
    EXPECT_EQ(1, paints);
    EXPECT_EQ((rectangle<int>{100, 50, 110, 60}), damage);
    Draw(later, {0, 0, 10, 10});
    panel->Refresh(); // with its children
    EXPECT_TRUE(WaitFor([this] { return paints == 2; }, "a paint") && Shows(drawn, {}) && Shows(later, {}));
    native->Hide();
    Draw(drawn, {20, 10, 60, 40}); // is lost as ever
    native->Show();
    EXPECT_TRUE(WaitFor([this] { return paints == 3; }, "a paint") && Shows(drawn, {}));
}

TEST_F(Wayland, PointerPopupAndMenu)
{
    Draw(drawn, {0, 0, 200, 100});
    ASSERT_TRUE(Shows(drawn, whole));
    const wxPoint at = Find(drawn).GetPosition() + wxPoint(50, 20);
    EXPECT_TRUE(PointAt(at, *window));
    const CHandle<IPopup> popup = window->CreatePopup();
    popup->GetContent()->TakeDefPainter()->SetBackgroundColor(Toolkit(content));
    popup->SetSize(60, 30);
    point<int> place{100, 60};
    window->WindowToScreen(place);
    popup->Show(place.x, place.y);
    EXPECT_TRUE(Shows(content, {60, 30}));
    EXPECT_EQ(at + wxPoint(50, 40), Find(content).GetPosition());
    EXPECT_TRUE(PointAt(Find(content).GetPosition() + wxPoint(50, 20), *popup->GetContent()));
    EXPECT_TRUE(PointAt(at, *window));
    x11::Button(1, true), x11::Button(1, false); // beside it
    EXPECT_TRUE(WaitFor([&] { return !popup->IsVisible(); }, "the popup's end") && Shows(content, {}));

    x11::Button(3, true), x11::Button(3, false);
    EXPECT_TRUE(WaitFor([&] { return opened && !frame; }, "the end of the frame while its menu is open"));
}
