// The gallery's grid under a user's hands.

#include "contract/backend.h"
#include "grid.h"

#include <gtest/gtest.h>

using namespace vela7;
using namespace vela7::contract;
using gallery::Grid;
using gallery::GridCell;
using Keys = std::vector<std::uint32_t>;

namespace {

struct Model : gallery::IGridModel
{
    std::vector<std::string> cells[40];
    std::function<void()> then = [] {};
    Model() { std::fill_n(cells, 40, std::vector<std::string>{"old", "Red", "7"}); }
    int RowCount() const override { return 40; }
    std::string GetCell(const GridCell& cell) const override { return cells[cell.row][cell.column]; }
    void SetCell(const GridCell& c, const std::string& s) override { cells[c.row][c.column] = s, then(); }
};

void Type(const Keys& keys)
{
    for (const std::uint32_t key : keys)
        KeyDown(key), KeyUp(key);
}

// Rows of 28 pixels below a header of the same height.
class GridTest : public testing::Test
{
protected:
    GridTest() : window(*stage->Window().CreateChild(ISysWindow::wtNormal)), grid(MakeIn(window)) {}
    std::unique_ptr<Grid> MakeIn(ISysWindow& parent)
    {
        parent.SetWindowRect(0, 0, 400, 240, true);
        parent.SetFocus();
        Settle();
        return std::make_unique<Grid>(parent, model, columns);
    }
    std::string At(int row, int column) const { return model.cells[row][column]; }
    int Place() const { return grid->Current().row * 10 + grid->Current().column; }
    const std::vector<gallery::GridColumn> columns{
        {"Text", 100}, {"Choice", 120, {"Red", "Green", "Blue"}}, {"Number", 300, {}, true}};
    std::unique_ptr<Stage> stage = OpenStage();
    Model model;
    ISysWindow& window;
    std::unique_ptr<Grid> grid;
};

} // namespace

TEST_F(GridTest, KeysEndTheEditing)
{
    constexpr int text = 0, choice = 1, number = 2;
    // clang-format off
    const struct { int column; Keys keys; std::uint32_t held; const char* expected; int place; } rows[] = {
        {text, {'X', 'Y', kcReturn}, 0, "xy", 60},     {text, {kcReturn, kcEnd, 'Q', kcReturn}, 0, "oldq", 60},
        {text, {'X', kcEscape}, 0, "old", 50},         {text, {'X', kcTab}, 0, "x", 51}, {text, {'X', kcTab}, kcShift, "x", 42},
        {choice, {'B', 'L', kcReturn}, 0, "Blue", 61}, {choice, {kcF2, 'Q', kcReturn}, 0, "Red", 61}, // no choice
        {choice, {'B', kcEscape}, 0, "Red", 51},       {choice, {'B', kcTab}, 0, "Blue", 52}, {number, {'X'}, 0, "7", 52},
        {number, {'4', '2', kcReturn}, 0, "42", 62},   {number, {'4', kcEscape}, 0, "7", 52}, {number, {'4', kcTab}, kcShift, "4", 51}};
    // clang-format on
    for (const auto& row : rows) {
        model = Model();
        grid->SetCurrent(5, row.column);
        Type(Keys(row.keys.begin(), row.keys.end() - 1));
        EXPECT_EQ(row.keys.size() > 1, grid->Editor() != nullptr);
        row.held ? KeyDown(row.held) : void();
        Type({row.keys.back()});
        ReleaseAll();
        EXPECT_EQ(row.expected, At(5, row.column)) << &row - rows;
        EXPECT_EQ(row.place, Place());
        EXPECT_TRUE(!grid->Editor() && window.GetFocused());
    }
}

TEST_F(GridTest, MouseFocusAndScrolling)
{
    PointAt(window, 50, 28 * 3 + 10); // row 2
    DoubleClick(mbLeft);
    Type({'A'});
    PointAt(window, 50, 28 * 5 + 10);
    Click(mbLeft);
    EXPECT_TRUE(At(2, 0) == "a" && Place() == 40);
    Type({'B'});
    stage->Window().CreateChild(ISysWindow::wtNormal)->SetFocus();
    EXPECT_TRUE(WaitFor([&] { return At(4, 0) == "b"; }, "the text typed before the focus was lost"));
    EXPECT_FALSE(grid->Editor() || window.GetFocused());
    window.SetFocus();
    Settle();
    Type({'C'});
    const int before = grid->Editor()->GetPos().top;
    TurnWheel(-1); // over another cell
    ASSERT_TRUE(grid->TopRow() > 0 && grid->Editor());
    EXPECT_EQ(before - 28 * grid->TopRow(), grid->Editor()->GetPos().top); // it moves along
    TurnWheel(-4);
    EXPECT_TRUE(!grid->Editor() && At(4, 0) == "c");
    PointAt(window, 393, 200); // the trough of the scroll bar
    const int top = grid->TopRow();
    Click(mbLeft);
    EXPECT_TRUE(WaitFor([&] { return grid->TopRow() > top; }, "a scrolled grid"));
    grid->SetCurrent(0, 1);
    Type({kcReturn});
    PointAt(window, 208, 28 + 14); // the button; its list keeps the combo box
    Click(mbLeft);
    Type({kcHome, kcDown, kcReturn, kcReturn}); // the last one in the field
    EXPECT_EQ("Green", At(0, 1));
}

TEST_F(GridTest, EndsWhileEditing)
{
    for (const int column : {0, 1, 2}) {
        ISysWindow& other = *stage->Window().CreateChild(ISysWindow::wtNormal);
        auto ended = MakeIn(other);
        const CLifeWatch life = other.WatchLife();
        ended->SetCurrent(3, column);
        Type({kcReturn, '1'});
        ASSERT_NE(nullptr, ended->Editor());
        if (column == 1)
            ended.reset(); // first, else after the window
        model.then = [&] { ended.reset(), stage->Close(other); };
        column == 0 ? Type({kcReturn}) : stage->Close(other);
        EXPECT_TRUE(WaitFor([&] { return !life.IsAlive(); }, "the end of the window"));
    }
    EXPECT_EQ("1Red7", At(3, 0) + At(3, 1) + At(3, 2));
}
