// The table's control on a window without display.

#include "tableview.h"
#include "tempfile.h"
#include "vela7/testing/fakecontrols.h"
#include "vela7/testing/fakesystem.h"
#include "vela7/testing/fakewindow.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace vela7;
using namespace vela7::testkit;
using table::CellPos;

namespace {

class TableViewTest : public testing::Test
{
protected:
    // 100 pixels each for up to 11 characters; 8 rows of 20 pixels and a header.
    TableViewTest()
    {
        window.SetFocus();
        std::string text = "number,name,ten chars.\n";
        for (int i = 0; i < 50; ++i)
            text += std::to_string(i * 7 % 50) + ",\"n, " + std::to_string(i % 3) + "\",row " +
                    std::to_string(i) + "\n";
        content = std::make_unique<TempFile>(text);
        view.Open(content->path);
        system.WorkToTheEnd();
        Paint();
    }

    Lines Paint()
    {
        window.asked.Take();
        return window.Paint();
    }
    static Lines Texts(Lines lines)
    {
        const auto other = [](const std::string& line) { return line.rfind("Text ", 0) != 0; };
        lines.erase(std::remove_if(lines.begin(), lines.end(), other), lines.end());
        return lines;
    }
    void Press(std::uint32_t key, std::uint32_t held = 0)
    {
        system.user.Key(key, held);
        system.WorkToTheEnd();
    }
    void SortBy(int x)
    {
        system.user.Click(window, x, 5);
        system.WorkToTheEnd();
    }
    std::string At(std::uint32_t row, int column)
    {
        view.Select({row, column}, false);
        return view.SelectedText();
    }

    FakeSystem system;
    FakeWindow& window = system.OpenWindow(416, 216); // bars of 16 pixels
    std::unique_ptr<TempFile> content;
    table::TableView view{window};
};

TEST_F(TableViewTest, KeysMoveTheCell)
{
    const struct
    {
        std::uint32_t key, held;
        CellPos cell;
        std::int64_t top;
    } steps[] = {
        {kcDown, 0, {1, 0}, 0},     {kcRight, 0, {1, 1}, 0},         {kcEnd, 0, {1, 2}, 0},
        {kcRight, 0, {1, 2}, 0},    {kcPageDown, 0, {8, 2}, 1},      {kcHome, 0, {8, 0}, 1},
        {kcLeft, 0, {8, 0}, 1},     {kcEnd, ksControl, {49, 2}, 42}, {kcDown, 0, {49, 2}, 42},
        {kcPageUp, 0, {42, 2}, 42}, {kcUp, 0, {41, 2}, 41},          {kcHome, ksControl, {0, 0}, 0},
    };
    for (const auto& step : steps) {
        Press(step.key, step.held);
        EXPECT_EQ(view.Current(), step.cell) << step.key;
        EXPECT_EQ(view.TopRow(), step.top) << step.key;
    }
}

TEST_F(TableViewTest, SelectsAndCopies)
{
    system.user.Drag(window, {5, 25}, {60, 45}); // over the edge of the first column
    Press('C', ksControl);
    EXPECT_EQ(system.clipboard.text, "0\tn, 0\n7\tn, 1");
    EXPECT_FALSE(window.HasCapture());
    Press(kcDown, ksShift);
    Press(kcLeft, ksShift);
    Press('C', ksControl);
    EXPECT_EQ(system.clipboard.text, "0\n7\n14");
    Press('A', ksControl);
    EXPECT_EQ(view.SelectedText().substr(0, 28), "0\tn, 0\trow 0\n7\tn, 1\trow 1\n14");
}

TEST_F(TableViewTest, ScrollingDrawsWhatComesIntoSight)
{
    const int third = view.ColumnWidth(0) + view.ColumnWidth(1);
    view.ScrollTo(2, 0);
    EXPECT_EQ(window.asked.Take(), Lines{"ScrollContent 0 -40 0 60 399 179"});
    const Lines drawn = window.painter.drawn.Take();
    EXPECT_EQ(drawn[1], "Clip 0 140 400 180");
    const Lines texts = Texts(drawn); // of two rows
    ASSERT_EQ(texts.size(), 6u);
    EXPECT_EQ(texts[0], "Text 4 142 \"6\"");
    EXPECT_EQ(texts[5], "Text " + std::to_string(third + 4) + " 162 \"row 9\"");
    window.Find<FakeScrollBar>(1)->Line(-1);
    EXPECT_EQ(window.asked.Take(), Lines{"ScrollContent 0 20 0 20 399 159"});
    EXPECT_EQ(Texts(window.painter.drawn.Take()).size(), 3u);
    system.user.PointAt(window, 50, 50);
    system.user.TurnWheel(-1);
    EXPECT_EQ(view.TopRow(), 4);
    Press(kcDown); // from above the first row shown
    Paint();
    Press(kcDown);
    EXPECT_EQ(Texts(Paint()).size(), 2 * 3 + 1u) << "the row before, the row now, the last line";
    view.ScrollTo(40, 0); // nothing stays
    EXPECT_EQ(window.asked.Take(), Lines());
    EXPECT_EQ(Texts(window.painter.drawn.Take()).size(), 24u);
    window.painter.fullRepaint = true;
    EXPECT_EQ(Texts(Paint()).size(), 3 + 24 + 1u) << "a lost picture is drawn again";
}

TEST_F(TableViewTest, SortsByHeader)
{
    const int name = view.ColumnWidth(0) + 8;
    system.user.Click(window, 8, 5);
    EXPECT_EQ(At(1, 0), "7") << "not before the work is done";
    system.WorkToTheEnd();
    EXPECT_EQ(At(9, 0), "9") << "by value";
    SortBy(8);
    EXPECT_EQ(At(0, 0), "49");
    SortBy(8);
    EXPECT_EQ(At(1, 0), "7") << "as in the file";
    for (const Lines& expected : {Lines{"row 0", "row 3"}, Lines{"row 2", "row 5"}}) {
        SortBy(name);
        EXPECT_EQ((Lines{At(0, 2), At(1, 2)}), expected) << "equal ones as in the file";
    }
    system.user.Click(window, 8, 5);
    system.Work();
    system.user.Key(kcEscape);
    EXPECT_TRUE(system.Runners().empty()) << "cancelled";
    EXPECT_EQ(At(0, 1), "n, 0");
}

TEST_F(TableViewTest, FindsWhatIsTyped)
{
    const auto type = [&](const std::string& text) {
        system.user.Type(text);
        system.WorkToTheEnd();
    };
    type("ROW 1");
    EXPECT_EQ(view.Current(), (CellPos{1, 2}));
    Press(kcReturn);
    EXPECT_EQ(view.Current(), (CellPos{10, 2}));
    type("9");
    Press(kcF3);
    EXPECT_EQ(view.Current(), (CellPos{19, 2})) << "once round";
    type("x");
    EXPECT_EQ(view.Status(), "There is no \"ROW 19x\"");
    Press(kcEscape);
    EXPECT_EQ(view.Status(), "Row 20 of 50, column 3 of 3");
}

TEST_F(TableViewTest, SaysWhatBecameOfTheFile)
{
    view.SortBy(0, false);
    ASSERT_EQ(truncate(content->path, 30), 0);
    system.WorkToTheEnd();
    EXPECT_EQ(At(49, 0), "") << "not sorted, and the file has two rows left";
    EXPECT_EQ(Texts(Paint()).back(), "Text 4 198 \"The file was shortened since it was read, 30 of 853 "
                                     "bytes are left. Row 50 of 50, column 1 of 3\"");
    EXPECT_EQ(At(0, 0), "0");
    content = std::make_unique<TempFile>("a\n1\n");
    view.Open(content->path);
    system.WorkToTheEnd();
    unlink(content->path);
    Paint();
    EXPECT_EQ(view.Status(), "The file was replaced or deleted since it was read. Row 1 of 1, column 1 of 1");
    view.Open(content->path);
    EXPECT_EQ(view.Status(), "Reading"); // in the background
    system.WorkToTheEnd();
    EXPECT_EQ(view.Status(), content->path + std::string(": No such file or directory"));
}

// Rows agree in their first 70 bytes and come in pairs that differ later, so that most levels have short runs
// only. A tick is due each millisecond or so, even if all is read in one go.
TEST(SortTask, TicksAtEveryLevel)
{
    std::string text = "name\n";
    for (int i = 0; i < 4000; ++i)
        text += std::string(70, 'x') + std::to_string(100000 + i / 2) + std::string(70, 'y') +
                std::to_string(i % 2) + "\n";
    const auto file = std::make_shared<table::CsvFile>();
    ASSERT_TRUE(file->Open(std::make_unique<table::MemoryBytes>(text, 1 << 20)));
    while (file->IndexSome())
        continue;
    table::SortTask sort(file, 0, false);
    int ticks = 0;
    sort.onTick = [&] { ++ticks; };
    while (sort.Step())
        continue;
    EXPECT_GT(ticks, 50);
    EXPECT_EQ(sort.Result()->back(), 3999u);

    table::SortTask cancelled(file, 0, false);
    ticks = 0;
    cancelled.onTick = [&] {
        if (++ticks == 40)
            cancelled.Cancel();
    };
    EXPECT_THROW(while (cancelled.Step()) continue, table::Task::Cancelled);
    EXPECT_EQ(ticks, 40);
}

TEST_F(TableViewTest, TinyWindowsGiveNoNegativeSizes)
{
    for (const int size : {0, 1, 5, 11, 21, 40}) {
        window.Resize(size, size);
        for (const std::size_t bar : {0, 1}) {
            const rectangle<int> place = window.Find<FakeScrollBar>(bar)->GetPos();
            EXPECT_TRUE(place.left >= 0 && place.top >= 0) << size;
        }
        window.Paint();
    }
}

TEST_F(TableViewTest, DiesWithItsWindowWhileItWorks)
{
    view.SortBy(0, false);
    window.ProcessDestroy();
    EXPECT_TRUE(system.Runners().empty());
}

} // namespace
