/// The stock of a workshop in a grid with a context menu.

#include "cards.h"
#include "grid.h"

#include "vela7/menu.h"

namespace gallery {

using namespace vela7;

namespace {

constexpr int kHint = 28; // its height
// clang-format off
const std::vector<std::string> materials{"Brass", "Nylon", "Spring steel", "Stainless steel", "Zinc-plated steel"};
const std::vector<std::string> suppliers{"Alder & Finch", "Harbour Tools", "Kestrel Fixings", "Northgate Supply"};
const char* const things[] = {"Hex bolt", "Carriage bolt", "Machine screw", "Wood screw", "Threaded rod", "Lock nut",
                              "Wing nut", "Flat washer", "Split pin", "Compression spring", "Hinge", "Angle bracket"};
const char* const notes[] = {"", "", "Shelf is almost empty", "", "Order by the hundred", "", "", "Keep dry", ""};
const char* const hint = "Typing, Enter, F2 and a double click edit a cell; the right button opens a menu.";
const std::vector<GridColumn> stockColumns{
    {"Part", 90}, {"Name", 200}, {"Material", 160, materials}, {"In stock", 90, {}, true}, {"Supplier", 180, suppliers},
    {"Note", 240}};
// clang-format on

std::vector<std::vector<std::string>> MakeRows()
{
    std::vector<std::vector<std::string>> rows;
    for (int i = 0; i < 200; ++i) {
        const std::string size = " M" + std::to_string(3 + i * 7 % 10) + " x " + std::to_string(8 + i % 60);
        rows.push_back({"W-" + std::to_string(1000 + i * 37), things[i % std::size(things)] + size,
                        materials[std::size_t(i) * 3 % materials.size()], std::to_string(i * 389 % 1200),
                        suppliers[std::size_t(i) * 5 % 7 % suppliers.size()], notes[i % std::size(notes)]});
    }
    return rows;
}

/// Commands of the menu; the last two: of the first column, and so on.
constexpr int cmdLines = 1, cmdShades = 2, cmdColumns = 3, cmdOrder = 4, cmdShow = 100, cmdSort = 200;

class GridPage : public Page,
                 CSubscriber<IDrawingNotify>,
                 CSubscriber<IFocusNotify>,
                 CSubscriber<IWindowNotify>,
                 CSubscriber<IContextMenuNotify>,
                 IGridModel
{
public:
    explicit GridPage(ISysWindow& window)
        : m_window(window), m_inside(*window.CreateChild(ISysWindow::wtNormal)),
          m_grid(m_inside, *this, stockColumns)
    {
        Subscribe<IDrawingNotify>(window, this);
        Subscribe<IFocusNotify>(window, this);
        Subscribe<IWindowNotify>(window, this);
        Subscribe<IContextMenuNotify>(m_inside, this);
    }
    void ShowSample(bool show) override;

private:
    int RowCount() const override { return int(m_rows.size()); }
    std::string GetCell(const GridCell& cell) const override { return m_rows[cell.row][cell.column]; }
    void SetCell(const GridCell& c, const std::string& text) override { m_rows[c.row][c.column] = text; }
    void OnDraw(CDrawEvent* event) override;
    void OnGetFocus(CEvent*) override { m_inside.SetFocus(); }
    void OnResize(CWindowEvent* e) override
    {
        m_inside.SetWindowRect(0, 0, e->x, std::max(0, e->y - kHint), false);
    }
    void OnDestroy(CEvent*) override { m_life.Revoke(); }
    void OnContextMenu(CContextMenuEvent* event) override;
    void Do(int command);

    ISysWindow& m_window;
    ISysWindow& m_inside; // the grid's, on the page's
    std::vector<std::vector<std::string>> m_rows = MakeRows();
    Grid m_grid;
    CLifeFlag m_life; // of the page together with its window
};

void GridPage::OnDraw(CDrawEvent* event)
{
    const CPaintScope paint(*event->painter, ssBuffered);
    const Box client = ClientBox(m_window), bar(0, client.bottom - kHint, client.right, client.bottom);
    if (paint.IsOk())
        DrawStatusBar(*event->painter, bar, {std::to_string(RowCount()) + " parts", hint}, CurrentStyle());
}

void GridPage::OnContextMenu(CContextMenuEvent* event)
{
    const auto menu = m_inside.CreateMenu(), show = m_inside.CreateMenu(), sort = m_inside.CreateMenu();
    const auto addCheck = [](IPopupMenu& to, const std::string& text, int id, bool checked) {
        const int place = to.GetItemCount(); // as names go only ids below the number of items
        to.InsertItem(text, id, place);
        to.SetItemChecked(place, checked, IPopupMenu::ptPosition);
    };
    addCheck(*menu, "Grid lines", cmdLines, m_grid.lines);
    addCheck(*menu, "Shade odd rows", cmdShades, m_grid.shades);
    menu->InsertSeparator(2);
    menu->InsertSubMenu("Columns", show.Get(), cmdColumns, 3);
    menu->InsertSubMenu("Sort by", sort.Get(), cmdOrder, 4);
    for (int i = 0; i < int(m_grid.columns.size()); ++i) {
        addCheck(*show, m_grid.columns[i].title, cmdShow + i, m_grid.columns[i].visible);
        sort->InsertItem(m_grid.columns[i].title, cmdSort + i, i);
    }
    const CLifeWatch alive = m_life.Watch(); // the program goes on while the menu is open
    const int chosen = menu->Execute(event->position.x, event->position.y);
    if (alive.IsAlive())
        Do(chosen);
}

// By what the page knows: the item's own mark has turned over already.
void GridPage::Do(int command)
{
    if (command == cmdLines)
        m_grid.lines = !m_grid.lines;
    else if (command == cmdShades)
        m_grid.shades = !m_grid.shades;
    else if (command >= cmdSort)
        std::stable_sort(
            m_rows.begin(), m_rows.end(), [this, i = command - cmdSort](const auto& a, const auto& b) {
                return m_grid.columns[i].number ? std::stoi(a[i]) < std::stoi(b[i]) : a[i] < b[i];
            });
    else if (command >= cmdShow)
        m_grid.columns[command - cmdShow].visible ^= true;
    m_grid.Update();
}

void GridPage::ShowSample(bool show)
{
    InvalidateAll(m_window);
    m_grid.SetCurrent(6, 1);
    show ? m_grid.BeginEdit() : void(m_grid.EndEdit(false));
}

} // namespace

std::unique_ptr<Page> CreateGridPage(ISysWindow& window)
{
    return std::make_unique<GridPage>(window);
}

} // namespace gallery
