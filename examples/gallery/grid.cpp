#include "grid.h"

#include "cards.h"

#include <cstdlib>
#include <map>
#include <strings.h>

namespace gallery {

using namespace vela7;

constexpr double kRowHeight = 28, kPadding = 6, kColumnStep = 16; // the last: of a line of scrolling

Grid::Grid(ISysWindow& window, IGridModel& model, std::vector<GridColumn> all)
    : columns(std::move(all)), m_window(window), m_model(model),
      m_horizontal(window.CreateScrollBar(ISysWindow::stHorizontal)),
      m_vertical(window.CreateScrollBar(ISysWindow::stVertical))
{
    Subscribe<IDrawingNotify>(window, this);
    Subscribe<IMouseNotify>(window, this);
    Subscribe<IKeyboardNotify>(window, this);
    Subscribe<IFocusNotify>(window, this);
    Subscribe<IWindowNotify>(window, this);
    Subscribe<IScrollBarNotify>(*m_horizontal, this);
    Subscribe<IScrollBarNotify>(*m_vertical, this);
    Update();
}

void Grid::Update()
{
    m_width = 0;
    for (const GridColumn& column : columns)
        m_width += column.visible ? column.width : 0;
    const rectangle<int> client = m_window.GetClientRect();
    // The bars keep their thickness whatever they are told.
    const int right = std::max(1, client.right - m_vertical->GetPos().Width());
    const int bottom = std::max(1, client.bottom - m_horizontal->GetPos().Height());
    m_vertical->SetPos(right, 0, client.right, bottom);
    m_horizontal->SetPos(0, bottom, right, client.bottom);
    m_view = Box(0, kRowHeight, right, std::max<double>(kRowHeight, bottom));
    m_pageRows = std::max(1, int(m_view.Height() / kRowHeight));
    m_vertical->SetScrollInfo({0, 0, double(m_model.RowCount()), 1, double(m_pageRows), 0, false});
    // One step more, since the bar rounds to whole ones and the end must be within reach.
    m_horizontal->SetScrollInfo({0, 0, m_width + kColumnStep, kColumnStep, m_view.right, 0, false});
    SetCurrent(m_current.row, m_current.column);
}

int Grid::NextColumn(int column, int by) const
{
    do
        column += by;
    while (column >= 0 && column < int(columns.size()) && !columns[column].visible);
    return column < int(columns.size()) ? column : -1;
}

Box Grid::CellBox(const GridCell& cell) const
{
    double left = -m_left;
    for (int i = 0; i < cell.column; ++i)
        left += columns[i].visible ? columns[i].width : 0;
    const double top = cell.row < 0 ? 0 : (cell.row - m_top + 1) * kRowHeight;
    return {left, top, left + columns[cell.column].width, top + kRowHeight};
}

std::optional<GridCell> Grid::CellAt(const point<int>& place) const
{
    const point<double> spot(place.x, place.y);
    GridCell cell{m_top + int(spot.y / kRowHeight) - 1, NextColumn(-1, 1)};
    if (!m_view.Contains(spot) || cell.row >= m_model.RowCount())
        return {};
    while (cell.column >= 0 && !CellBox(cell).Contains(spot))
        cell.column = NextColumn(cell.column, 1);
    return cell.column < 0 ? std::nullopt : std::optional(cell);
}

void Grid::ScrollTo(double left, int top)
{
    m_left = std::clamp(left, 0.0, std::max(0.0, m_width - m_view.right));
    m_top = std::clamp(top, 0, std::max(0, m_model.RowCount() - m_pageRows));
    m_vertical->SetScrollVal(m_top);
    m_horizontal->SetScrollVal(int(m_left));
    InvalidateAll(m_window);
    PlaceEditor(); // last: it may end the editing, and more
}

void Grid::SetCurrent(int row, int column)
{
    if (!EndEdit(true))
        return;
    m_current.row = std::clamp(row, 0, std::max(0, m_model.RowCount() - 1));
    m_current.column = column < 0 ? m_current.column : column;
    const Box cell = CellBox(m_current);
    const int top = std::clamp(m_top, m_current.row - m_pageRows + 1, m_current.row);
    ScrollTo(m_left + std::min(cell.left, std::max(0.0, cell.right - m_view.right)), top);
}

void Grid::OnMousePress(CMouseEvent* event)
{
    const auto cell = CellAt(event->position);
    if (EndEdit(true) && cell)
        SetCurrent(cell->row, cell->column);
}

bool Grid::MoveByKey(std::uint32_t key)
{
    const auto [row, column] = m_current;
    const std::map<std::uint32_t, GridCell> targets{{kcUp, {row - 1, -1}},
                                                    {kcPageUp, {row - m_pageRows, -1}},
                                                    {kcLeft, {row, NextColumn(column, -1)}},
                                                    {kcHome, {row, NextColumn(-1, 1)}},
                                                    {kcDown, {row + 1, -1}},
                                                    {kcPageDown, {row + m_pageRows, -1}},
                                                    {kcRight, {row, NextColumn(column, 1)}},
                                                    {kcEnd, {row, NextColumn(int(columns.size()), -1)}}};
    const auto target = targets.find(key);
    if (target != targets.end())
        SetCurrent(target->second.row, target->second.column);
    return target != targets.end();
}

void Grid::OnDraw(CDrawEvent* event)
{
    IPainter& painter = *event->painter;
    const Style style = CurrentStyle();
    painter.SetBackgroundColor(style.face);
    const CPaintScope paint(painter, ssBuffered);
    if (!paint.IsOk())
        return;
    Fill(painter, m_view, style.window);
    for (int row : {-1, m_top}) {
        const ClipScope clip(painter, row < 0 ? Box(0, 0, m_view.right, kRowHeight) : m_view);
        const int end = row < 0 ? 0 : std::min(m_model.RowCount(), m_top + m_pageRows + 1);
        for (; row < end; ++row)
            for (int column = NextColumn(-1, 1); column >= 0; column = NextColumn(column, 1))
                DrawCell(painter, {row, column}, style);
    }
}

void Grid::DrawCell(IPainter& painter, const GridCell& cell, const Style& style) const
{
    const Box box = CellBox(cell);
    const GridColumn& column = columns[cell.column];
    const bool current = cell.row == m_current.row && cell.column == m_current.column;
    const bool selected = current && m_window.GetFocused();
    if (selected || (shades && cell.row % 2 == 1))
        Fill(painter, box, selected ? style.accent : style.shade);
    if (cell.row < 0)
        painter.DrawControlElement(ceHeaderButton, box.left, box.top, box.right, box.bottom, 0);
    else if (current || lines)
        Frame(painter, {box.left - 1, box.top - 1, box.right, box.bottom},
              current ? style.accent : style.line);
    painter.SetTextColor(selected ? style.accentText : style.text);
    painter.SetFont(UiFont(cell.row < 0 ? unsigned{fsBold} : 0));
    const unsigned format = tfSingleLine | tfVCenter | tfEndEllipsis | (column.number ? tfRight : tfLeft);
    painter.DrawStringEx(cell.row < 0 ? column.title : m_model.GetCell(cell), Shrunk(box, kPadding), format);
}

// Here and below: after calls to the model, and to those who hear of the focus, m_life says whether there
// still are a grid and its window.
void Grid::BeginEdit(const std::string& typed)
{
    if (!EndEdit(true) || m_model.RowCount() == 0 || !columns[m_current.column].visible)
        return;
    SetCurrent(m_current.row, m_current.column);
    const std::string text = typed.empty() ? m_model.GetCell(m_current) : typed;
    const GridColumn& column = columns[m_current.column];
    m_spinning = column.number;
    if (m_spinning && !m_spin.control) {
        m_spin = MakeSpinControl(m_window, 0, 9999, [this](int value) { m_number = value; });
        m_spin.control->focus_out_signal.connect([this](ICustomControl*) { EndEdit(true, false); });
    } else if (!m_spinning) {
        CHandle<IInplaceComboBox> combo;
        if (!column.choices.empty())
            combo = m_window.CreateInplaceComboBox(true);
        for (const std::string& choice : column.choices)
            combo->SetString(choice, -1);
        m_edit = combo ? CHandle<IInplaceEdit>(combo.Get()) : m_window.CreateInplaceEdit(0);
        Subscribe<IEditNotify>(*m_edit, this);
        // A combo box loses the focus to its own button, too: it stays until a key or a press on the grid
        // ends it.
        if (combo)
            Subscribe<IComboBoxNotify>(*m_edit, this);
        else
            m_edit->focus_out_signal.connect([this](ICustomControl*) { EndEdit(true, false); });
    }
    const CLifeWatch alive = m_life.Watch();
    PlaceEditor();
    if (alive.IsAlive() && Editor())
        Editor()->SetVisible(true);
    if (alive.IsAlive() && Editor())
        Editor()->SetFocus();
    if (!alive.IsAlive() || !Editor())
        return;
    // Behind the focus, which selects all.
    if (m_spinning)
        return m_spin.setValue(m_number = std::atoi(text.c_str()));
    m_edit->SetText(text);
    typed.empty() ? m_edit->SelectAll() : m_edit->SetCursorPos(int(text.size()));
}

bool Grid::EndEdit(bool accept, bool takeFocus)
{
    if (!Editor())
        return true;
    const CLifeWatch alive = m_life.Watch();
    const GridCell cell = m_current;
    const std::vector<std::string>& choices = columns[cell.column].choices;
    std::string text = m_spinning ? std::to_string(m_number) : m_edit->GetText();
    const auto chosen = std::find_if(choices.begin(), choices.end(), [&](const std::string& choice) {
        return !text.empty() && strncasecmp(choice.c_str(), text.c_str(), text.size()) == 0;
    });
    if (!choices.empty()) // the beginning of one is enough
        text = chosen != choices.end() ? *chosen : m_model.GetCell(cell);
    // From here on nothing is edited: what the editor reports now, as the focus leaves it, is of no interest.
    const bool spinning = std::exchange(m_spinning, false);
    m_edit.Reset(); // in its own notification, too: then it dies when that is over
    if (takeFocus)
        m_window.SetFocus();
    if (alive.IsAlive() && spinning)
        m_spin.control->SetVisible(false);
    if (alive.IsAlive())
        InvalidateAll(m_window);
    if (alive.IsAlive() && accept && text != m_model.GetCell(cell))
        m_model.SetCell(cell, text);
    return alive.IsAlive();
}

// Over its cell; when that is scrolled out of view, the editing ends.
void Grid::PlaceEditor()
{
    ICustomControl* const editor = Editor();
    const Box cell = CellBox(m_current), seen = cell.Intersect(m_view);
    if (editor && !seen.IsEmpty() && seen.Height() == cell.Height())
        editor->SetPos(int(seen.left) - 1, int(seen.top) - 1, int(seen.right), int(seen.bottom));
    else
        EndEdit(true);
}

// Chosen with the button, which has the focus now: the field is to get the keys again.
void Grid::OnComboItemSelected(CComboEvent*)
{
    struct Refocus : IRunnable
    {
        explicit Refocus(IInplaceEdit* edit) : m_edit(edit), m_life(edit->WatchLife()) {}
        bool Run() override { return m_life.IsAlive() ? m_edit->SetFocus(), false : false; }
        IInplaceEdit* m_edit;
        CLifeWatch m_life;
    };
    if (m_edit)
        m_window.Synchronize(new Refocus(m_edit.Get()));
}

void Grid::OnEditKeyDown(CEditKeyEvent* event)
{
    if (event->keyCode() != kcEscape)
        return;
    event->defaultProcessing() = false;
    EndEdit(false);
}

// From the editors too: Tab from all of them, Enter and Escape from the spin control.
void Grid::OnKeyPress(CKeyboardEvent* event)
{
    bool used = true;
    if (event->key == kcTab)
        used = event->state != ksControl && MoveByTab(event->state != ksShift);
    else if (event->key == kcReturn && Editor())
        SetCurrent(m_current.row + 1, -1);
    else if (event->key == kcReturn || event->key == kcF2)
        BeginEdit();
    else if (event->key == kcEscape)
        EndEdit(false);
    else
        used = MoveByKey(event->key);
    if (used)
        event->passOn = event->allowNavigation = false;
}

// False at the ends of the grid: there Tab leaves it.
bool Grid::MoveByTab(bool forward)
{
    const int by = forward ? 1 : -1, beside = NextColumn(m_current.column, by);
    const int row = beside < 0 ? m_current.row + by : m_current.row;
    if (row < 0 || row >= m_model.RowCount())
        return !EndEdit(true);
    SetCurrent(row, beside < 0 ? NextColumn(forward ? -1 : int(columns.size()), by) : beside);
    return true;
}

void Grid::OnChar(CKeyboardEvent* event)
{
    const unsigned char typed = event->character;
    const bool fits =
        columns[m_current.column].number ? typed >= '0' && typed <= '9' : typed >= ' ' && typed <= '~';
    if (fits && event->key == typed)
        BeginEdit(std::string(1, char(typed)));
}

} // namespace gallery
