// A label that is edited in place, and its tests: no display, no back-end, some milliseconds.

#include "vela7/inplace.h"
#include "vela7/menu.h"
#include "vela7/painter.h"
#include "vela7/testing/fakecontrols.h"
#include "vela7/testing/fakemenu.h"
#include "vela7/testing/fakesystem.h"
#include "vela7/testing/fakewindow.h"

#include <gtest/gtest.h>

#include <functional>

using namespace vela7;
using namespace vela7::testkit;

// ---- the control; it would have files of its own

class Label : CSubscriber<IDrawingNotify>,
              CSubscriber<IMouseNotify>,
              CSubscriber<IContextMenuNotify>,
              CSubscriber<IEditNotify>,
              CSubscriber<IWindowNotify>
{
public:
    std::string text = "label";
    std::function<void()> onChange = [] {}; // may end the window

    explicit Label(ISysWindow& window) : m_window(window)
    {
        Subscribe<IDrawingNotify>(window, this);
        Subscribe<IMouseNotify>(window, this);
        Subscribe<IContextMenuNotify>(window, this);
        Subscribe<IWindowNotify>(window, this);
    }

private:
    void OnDraw(CDrawEvent* event) override
    {
        const CPaintScope paint(*event->painter);
        event->painter->DrawString(4, 2, text);
    }

    void OnMouseDoubleClick(CMouseEvent*) override
    {
        const rectangle<int> all = m_window.GetClientRect();
        m_edit = m_window.CreateInplaceEdit(0);
        Subscribe<IEditNotify>(*m_edit, this);
        m_edit->SetText(text);
        m_edit->SetPos(all.left, all.top, all.right, all.bottom);
        m_edit->SetFocusEx();
    }

    void OnEditKeyDown(CEditKeyEvent* event) override
    {
        if (event->key != kcReturn && event->key != kcEscape)
            return;
        const std::string typed = m_edit->GetText();
        m_edit.Reset(); // inside its own notification
        m_window.SetFocus();
        if (event->key == kcReturn)
            Set(typed);
    }

    void OnContextMenu(CContextMenuEvent* event) override
    {
        const CLifeWatch alive = m_window.WatchLife();
        const CHandle<IPopupMenu> menu = m_window.CreateMenu();
        menu->InsertItem("Clear", 0, -1);
        if (menu->Execute(event->position.x, event->position.y) == 0 && alive.IsAlive())
            Set("");
    }

    void OnDestroy(CEvent*) override { m_edit.Reset(); }

    void Set(const std::string& value)
    {
        text = value;
        const rectangle<int> all = m_window.GetClientRect();
        m_window.Invalidate(all.left, all.top, all.right, all.bottom);
        onChange();
    }

    ISysWindow& m_window;
    CHandle<IInplaceEdit> m_edit; // while the text is edited
};

// ---- the tests

class LabelTest : public testing::Test
{
protected:
    LabelTest() { system.Settle(); } // the first paint

    FakeSystem system;
    FakeWindow& window = system.OpenWindow(100, 20);
    Label label{window};
};

TEST_F(LabelTest, ShowsItsText)
{
    EXPECT_EQ(window.Paint(), (Lines{"Begin clear", "Text 4 2 \"label\"", "End"}));
}

TEST_F(LabelTest, IsEditedInPlace)
{
    system.user.DoubleClick(window, 5, 5);
    ASSERT_NE(window.Find<FakeEdit>(), nullptr);
    window.Find<FakeEdit>()->SelectAll();
    system.user.Type("New 1");
    EXPECT_EQ(label.text, "label"); // not yet
    system.user.Key(kcReturn);
    system.Settle();
    EXPECT_EQ(label.text, "New 1");
    EXPECT_EQ(window.Find<FakeEdit>(), nullptr);
    EXPECT_TRUE(window.GetFocused());
}

TEST_F(LabelTest, EscapeKeepsTheText)
{
    system.user.DoubleClick(window, 5, 5);
    system.user.Type("x");
    system.user.Key(kcEscape);
    EXPECT_EQ(label.text, "label");
    EXPECT_TRUE(window.Damage().IsEmpty());
}

TEST_F(LabelTest, TheMenuClearsIt)
{
    system.user.onMenu = [](FakeMenu& menu) { EXPECT_TRUE(menu.Pick("Clear")); };
    system.user.Click(window, 7, 3, mbRight);
    EXPECT_EQ(label.text, "");
    EXPECT_EQ(window.Damage(), rectangle<int>(0, 0, 100, 20));
}

TEST_F(LabelTest, ItsOwnerMayCloseTheWindowWhenItChanges)
{
    const CLifeWatch alive = window.WatchLife();
    label.onChange = [&] { window.Close(); };
    system.user.DoubleClick(window, 5, 5);
    system.user.Key(kcReturn);
    system.Settle();
    EXPECT_FALSE(alive.IsAlive());
}
