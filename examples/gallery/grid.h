/// A grid: rows and columns of text on a toolkit window, edited in place. How one makes a control of
/// painting, input, scroll bars, in-place editors and a native control that the host provides.
#pragma once

#include "page.h"
#include "style.h"

#include "vela7/inplace.h"
#include "vela7/scrollbar.h"

#include <optional>

namespace gallery {

struct GridColumn
{
    std::string title;
    double width;                       ///< pixels
    std::vector<std::string> choices{}; ///< none: any text
    bool number = false;                ///< 0 .. 9999
    bool visible = true;
};

struct GridCell
{
    int row = 0, column = 0;
};

/// What a grid shows; it outlives the grid.
class IGridModel
{
public:
    virtual ~IGridModel() = default;
    virtual int RowCount() const = 0;
    virtual std::string GetCell(const GridCell& cell) const = 0;
    /// The user has changed a cell. The grid and its window may be gone when it returns.
    virtual void SetCell(const GridCell& cell, const std::string& text) = 0;
};

/// Takes a whole window; either may die first.
class Grid : vela7::CSubscriber<vela7::IDrawingNotify>,
             vela7::CSubscriber<vela7::IMouseNotify>,
             vela7::CSubscriber<vela7::IKeyboardNotify>,
             vela7::CSubscriber<vela7::IFocusNotify>,
             vela7::CSubscriber<vela7::IWindowNotify>,
             vela7::CSubscriber<vela7::IScrollBarNotify>,
             vela7::CSubscriber<vela7::IEditNotify>,
             vela7::CSubscriber<vela7::IComboBoxNotify>
{
public:
    Grid(vela7::ISysWindow& window, IGridModel& model, std::vector<GridColumn> columns);

    /// After changes to these, and to the model: Update.
    bool lines = true, shades = true;
    std::vector<GridColumn> columns;
    void Update();

    const GridCell& Current() const { return m_current; }
    /// Ends the editing, scrolls to the cell. A negative column: the present one.
    void SetCurrent(int row, int column);
    int TopRow() const { return m_top; }
    /// Null when nothing is edited.
    vela7::ICustomControl* Editor() const { return m_spinning ? m_spin.control.Get() : m_edit.Get(); }
    /// typed: what the editor begins with instead of the cell's text. The grid may be gone afterwards.
    void BeginEdit(const std::string& typed = {});
    /// False when the grid is gone afterwards.
    bool EndEdit(bool accept, bool takeFocus = true);

private:
    void OnDraw(vela7::CDrawEvent* event) override;
    void OnMousePress(vela7::CMouseEvent* event) override;
    void OnMouseDoubleClick(vela7::CMouseEvent* event) override
    {
        if (event->button == vela7::mbLeft && CellAt(event->position))
            BeginEdit();
    }
    void OnMouseWheel(vela7::CMouseWheelEvent* event) override { ScrollTo(m_left, m_top - event->delta); }
    void OnKeyPress(vela7::CKeyboardEvent* event) override;
    void OnChar(vela7::CKeyboardEvent* event) override;
    void OnGetFocus(vela7::CEvent*) override { InvalidateAll(m_window); }
    void OnReleaseFocus(vela7::CEvent*) override { InvalidateAll(m_window); }
    void OnResize(vela7::CWindowEvent*) override { Update(); }
    void OnSysColorChanged(vela7::CEvent*) override { InvalidateAll(m_window); }
    void OnDestroy(vela7::CEvent*) override { m_life.Revoke(), m_edit.Reset(), m_spin = {}; }
    void OnScroll(vela7::CScrollEvent* event) override
    {
        const bool vertical = event->sender == m_vertical.Get();
        ScrollTo(vertical ? m_left : event->value, vertical ? int(event->value) : m_top);
    }
    void OnEditKeyDown(vela7::CEditKeyEvent* event) override;
    void OnEditEnter(vela7::CEditEnterEvent*) override { SetCurrent(m_current.row + 1, -1); }

    bool MoveByKey(std::uint32_t key);
    bool MoveByTab(bool forward);
    void OnComboItemSelected(vela7::CComboEvent* event) override;
    void PlaceEditor();
    void DrawCell(vela7::IPainter& painter, const GridCell& cell, const Style& style) const;
    void ScrollTo(double left, int top);
    int NextColumn(int column, int by) const; // the next visible one; -1 when there is none
    Box CellBox(const GridCell& cell) const;  // row -1: the header
    std::optional<GridCell> CellAt(const vela7::point<int>& place) const;

    vela7::ISysWindow& m_window;
    IGridModel& m_model;
    vela7::CHandle<vela7::IScrollBar> m_horizontal, m_vertical;
    vela7::CHandle<vela7::IInplaceEdit> m_edit; // while a text or a choice is edited
    SpinControl m_spin;                         // made when first needed, and kept
    bool m_spinning = false;                    // while a number is edited
    int m_number = 0;                           // in the spin control
    GridCell m_current;
    double m_left = 0, m_width = 0; // scrolled by; all columns together
    int m_top = 0, m_pageRows = 1;  // scrolled by; those that are seen whole
    Box m_view;                     // of the cells on the window
    vela7::CLifeFlag m_life;        // of the grid together with its window
};

} // namespace gallery
