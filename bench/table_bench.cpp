// The table viewer against the native grid: the same text in 40 x 12 visible cells of the same size,
// repainted as a whole and scrolled by one row.

#include "scenes.h"
#include "tableview.h"
#include "vela7/wxsyswindow.h"

#include <gtk/gtk.h>
#include <wx/app.h>
#include <wx/frame.h>
#include <wx/grid.h>

#include <cstdio>
#include <unistd.h>

namespace {

using namespace vela7;
using namespace vela7::bench;
constexpr int rows = 2000, visibleRows = 40, columns = 12;

std::string CellText(int row, int column)
{
    return "r" + std::to_string(row * 37 % 9973) + " c" + std::to_string(column * row % 97);
}

void Turn()
{
    while (gtk_events_pending())
        gtk_main_iteration_do(FALSE);
    wxTheApp->ProcessPendingEvents();
    SyncX();
}

struct OurTable : CSubscriber<IDrawingNotify>
{
    OurTable() : window(new CwxSysWindow(stage.Frame(), false, ISysWindow::wtNormal)), view(*window)
    {
        Subscribe<IDrawingNotify>(*window, this);
        stage.Show(&Window());
        char path[] = "/tmp/table_bench_XXXXXX";
        std::FILE* const file = fdopen(mkstemp(path), "w");
        for (int row = 0; row <= rows; ++row)
            for (int column = 0; column < columns; ++column)
                std::fprintf(file, "%s%c", CellText(row, column).c_str(), column + 1 < columns ? ',' : '\n');
        std::fclose(file);
        view.Open(path);
        while (view.IsBusy())
            Turn();
        unlink(path);
        for (int column = 0; column < columns; ++column)
            wanted.x += view.ColumnWidth(column);
        wanted.y = visibleRows * view.RowHeight();
    }
    void OnDraw(CDrawEvent*) override { ++paints; }
    wxWindow& Window() { return *static_cast<wxWindow*>(window->GetNativeHandle()); }
    wxSize CellsSize() { return {view.Cells().Width(), view.Cells().Height()}; }
    void Repaint() { view.OnSysColorChanged(nullptr), Window().Update(); }
    void ScrollTo(int row) { view.ScrollTo(row, 0), paints += view.IsDrawn(); } // without a paint event
    int TopRow() { return int(view.TopRow()); }

    long paints = 0;
    wxSize wanted;
    Stage stage;
    CwxSysWindow* window;
    table::TableView view;
};

struct NativeGrid
{
    NativeGrid() : grid(new wxGrid(stage.Frame(), wxID_ANY))
    {
        const auto ours = std::make_unique<OurTable>(); // for its sizes
        wanted = ours->wanted;
        grid->CreateGrid(rows, columns);
        grid->SetRowLabelSize(0);
        grid->SetColLabelSize(ours->view.RowHeight());
        grid->SetDefaultRowSize(ours->view.RowHeight());
        grid->SetScrollLineY(ours->view.RowHeight());
        for (int column = 0; column < columns; ++column) {
            grid->SetColLabelValue(column, CellText(0, column));
            grid->SetColSize(column, ours->view.ColumnWidth(column));
            for (int row = 0; row < rows; ++row)
                grid->SetCellValue(row, column, CellText(row + 1, column));
        }
        grid->GetGridWindow()->Bind(wxEVT_PAINT, [this](wxPaintEvent& event) {
            ++paints;
            event.Skip();
        });
        stage.Show(grid);
    }
    wxWindow& Window() { return *grid; }
    wxSize CellsSize() { return grid->GetGridWindow()->GetClientSize(); }
    void Repaint() { grid->Refresh(false), Update(); }
    void ScrollTo(int row) { grid->Scroll(-1, row), Update(); }
    int TopRow() { return grid->GetViewStart().y; }

    long paints = 0;
    wxSize wanted;
    Stage stage;
    wxGrid* grid;
    void Update() { grid->GetGridColLabelWindow()->Update(), grid->GetGridWindow()->Update(); }
};

// Gives the window the size that shows the cells wanted, and waits until a repaint is one: GTK holds them
// back until the window manager has answered.
template <class Table>
bool Fit(Table& table)
{
    for (int i = 0; i < 10000 && (table.CellsSize() != table.wanted || table.paints < 3); ++i) {
        const wxSize all = table.Window().GetSize() + table.wanted - table.CellsSize();
        if (table.CellsSize() != table.wanted) {
            table.stage.Frame()->SetClientSize(all);
            table.Window().SetSize(all), table.paints = 0;
        }
        Turn();
        table.Repaint();
    }
    return table.CellsSize() == table.wanted && table.paints >= 3;
}

template <class Table>
void Run(benchmark::State& state, bool scroll)
{
    Table table;
    bool arrived = Fit(table);
    int row = 0, step = 1;
    const long before = table.paints;
    const AllocationCounter counter(state);
    for (auto _ : state) {
        if (scroll) {
            step = row == rows - visibleRows ? -1 : row == 0 ? 1 : step;
            table.ScrollTo(row += step);
            arrived = arrived && table.TopRow() == row;
        } else
            table.Repaint();
        SyncX();
    }
    if (!arrived || table.paints - before != static_cast<long>(state.iterations()))
        state.SkipWithError("not 40 x 12 cells, or not one paint event for each step");
}

const auto ours = Run<OurTable>;
const auto grid = Run<NativeGrid>;
BENCHMARK_CAPTURE(ours, repaint, false)->Name("table_repaint/toolkit")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(grid, repaint, false)->Name("table_repaint/wx")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ours, scroll, true)->Name("table_scroll/toolkit")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(grid, scroll, true)->Name("table_scroll/wx")->Unit(benchmark::kMicrosecond);

} // namespace
