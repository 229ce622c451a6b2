// The in-place combo box: what it does not share with the edit.
#include "controlhelpers.h"
#include "vela7/wxinplacecombo.h"

#include <gmock/gmock.h>
#include <gtk/gtk.h>

using namespace vela7;
using namespace vela7::test;

class InplaceCombo : public EditAndCombo
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(EditAndCombo::SetUp());
        combo = static_cast<IInplaceComboBox*>(text.Get());
        for (const char* item : {"one", "two", "three"})
            combo->SetString(item, -1);
    }

    IInplaceComboBox* combo = nullptr;
};

INSTANTIATE_TEST_SUITE_P(, InplaceCombo, testing::Values(true), [](const auto&) { return "Real"; });

TEST_P(InplaceCombo, PositionItemsAndText)
{
    int sizes = 0;
    control->Bind(wxEVT_SIZE, [&](wxSizeEvent& e) { ++sizes, e.Skip(); });
    combo->SetPos(20, 20, 100, 27); // 7 high
    combo->SetPos(10, 10, 150, 40); // where it is
    EXPECT_EQ(0, sizes);
    combo->SetPos(20, 20, 100, 28);
    EXPECT_EQ(1, sizes);
    EXPECT_EQ(rectangle<int>(20, 20, 100, 28), combo->GetPos());

    combo->SetString("ONE", 0);
    combo->DeleteString(1);
    EXPECT_EQ("ONEthree", combo->GetString(0) + combo->GetString(1));
    combo->SetCurrentItem(1);
    EXPECT_EQ(1, combo->GetCurrentItem());
    combo->SelectAll();
    Tap(GDK_KEY_x);
    EXPECT_EQ("x", combo->GetText());
    combo->SetText("some text");
    static_cast<CwxInplaceCombo*>(combo)->wxTextEntry::SetSelection(2, 4);
    EXPECT_EQ("some text", combo->GetSelectedText());
    combo->SetEditable(false);
    Tap(GDK_KEY_y);
    EXPECT_EQ("some text", combo->GetText());
    combo->Clear();
    combo->DeleteString(0); // indexes out of range are wx's to complain of
    combo->SetString("none", 7);
    EXPECT_EQ("", combo->GetString(7) + combo->GetText());
    EXPECT_EQ(0, combo->GetCount());
    ExpectAsserts(2);
}

TEST_P(InplaceCombo, OnlyChoosing)
{
    const CHandle<IInplaceComboBox> list = window->CreateInplaceComboBox(false);
    EXPECT_FALSE(list->GetEditable());
    list->SetString("one", -1);
    list->SetText("one");
    list->SetText("unknown");
    list->SetFocus();
    Tap(GDK_KEY_x);
    EXPECT_EQ("one", list->GetText());
    list->Clear();
    EXPECT_EQ("", list->GetText());
}

TEST_P(InplaceCombo, ChoosingIsReported)
{
    edits->Take();
    PointAt(control, 130, 15); // the button
    Click();
    ASSERT_TRUE(WaitFor([] { return gtk_grab_get_current() != nullptr; }, "an open list"));
    Tap(GDK_KEY_Down);
    Tap(GDK_KEY_Return);
    ASSERT_TRUE(WaitFor([&] { return combo->GetCurrentItem() >= 0 && !gtk_grab_get_current(); }, "a choice"));
    EXPECT_THAT(edits->Take(), testing::Contains("item " + std::to_string(combo->GetCurrentItem())).Times(1));
}

TEST_P(InplaceCombo, ShowDropDownShowsNothing)
{
    int shown = 0;
    control->Bind(wxEVT_COMBOBOX_DROPDOWN, [&](wxCommandEvent&) { ++shown; });
    CPopupTimer& timer = CPopupTimer::Get();
    combo->ShowDropDown(true);
    EXPECT_TRUE(timer.IsRunning() && timer.GetInterval() == 50);
    text.Reset();
    EXPECT_TRUE(WaitFor([&] { return !timer.IsRunning(); }, "the timer's only tick"));
    EXPECT_EQ(0, shown);
}
