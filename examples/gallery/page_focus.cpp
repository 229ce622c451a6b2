/// Several toolkit windows on the page that Tab walks through, by the page's tab stops, and a log of who had
/// the focus when. At either end of the stops the walk goes on among the native controls beside the page.

#include "cards.h"

#include "vela7/customcontrol.h"

#include <deque>

namespace gallery {

using namespace vela7;

namespace {

constexpr int kCells = 6, kColumns = 2;
constexpr std::size_t kLogLines = 200;

class FocusPage;

/// A child window as a tab stop. Space takes it out of the walk and puts it back.
class Cell : public CImplEventSender<ICustomControl>,
             CSubscriber<IDrawingNotify>,
             CSubscriber<IKeyboardNotify>,
             CSubscriber<IFocusNotify>
{
public:
    Cell(FocusPage& page, ISysWindow& window, int number);

    void SetPos(int l, int t, int r, int b) override { m_window.SetWindowRect(l, t, r, b, false); }
    rectangle<int> GetPos() const override { return m_window.GetWindowRect(); }
    void SetVisible(bool visible) override { m_window.SetVisible(visible); }
    bool GetVisible() const override { return m_window.GetVisible(); }
    void SetEnabled(bool enabled) override { m_enabled = enabled; }
    bool GetEnabled() const override { return m_enabled; }
    void SetFocus() override { m_window.SetFocus(); }
    bool GetFocused() const override { return m_window.GetFocused(); }
    void* GetNativeHandle() const override { return m_window.GetNativeHandle(); }

private:
    void OnDraw(CDrawEvent* event) override;
    void OnKeyPress(CKeyboardEvent* event) override;
    void OnGetFocus(CEvent*) override { Report(true); }
    void OnReleaseFocus(CEvent*) override { Report(false); }
    void Report(bool got);

    FocusPage& m_page;
    ISysWindow& m_window;
    const int m_number;
    bool m_enabled = true;
    bool m_focused = false;
};

class FocusPage : public Page,
                  CSubscriber<IDrawingNotify>,
                  CSubscriber<IMouseNotify>,
                  CSubscriber<IKeyboardNotify>,
                  CSubscriber<IFocusNotify>,
                  CSubscriber<IWindowNotify>
{
public:
    explicit FocusPage(ISysWindow& window) : m_window(window)
    {
        Subscribe<IDrawingNotify>(window, this);
        Subscribe<IMouseNotify>(window, this);
        Subscribe<IKeyboardNotify>(window, this);
        Subscribe<IFocusNotify>(window, this);
        Subscribe<IWindowNotify>(window, this);
        for (int i = 0; i < kCells; ++i)
            m_cells.push_back(
                std::make_unique<Cell>(*this, *window.CreateChild(ISysWindow::wtNormal), i + 1));
        for (const auto& cell : m_cells)
            Stops().AddTabStop(cell.get());
        OnResize(nullptr);
    }

    bool WantsNativeNeighbours() const override { return true; }
    bool WantsSampleInput() const override { return true; }

    void Enter() { m_leaving = false; }
    void Log(const std::string& line)
    {
        m_log.push_front(std::to_string(++m_count) + "  " + line);
        if (m_log.size() > kLogLines)
            m_log.pop_back();
        InvalidateAll(m_window);
    }

    /// Moves among the stops, unless the walk is at their end: then the Tab is the platform's.
    void OnTab(CKeyboardEvent& event)
    {
        const bool forward = !(event.state & ksShift);
        const Cell* last = nullptr; // where the walk ends
        for (const auto& cell : m_cells)
            if (cell->GetEnabled() && (forward || !last))
                last = cell.get();
        m_leaving = m_leaving || !last || last->GetFocused();
        if (m_leaving)
            return;
        event.allowNavigation = event.passOn = false;
        Stops().CircuitTabTraversal(forward);
    }

private:
    CSysWindow& Stops() { return dynamic_cast<CSysWindow&>(m_window); }
    double LogLeft() const { return ClientBox(m_window).right * 0.62; }

    void OnMouseMove(CMouseEvent*) override { InvalidateAll(m_window); }
    void OnMousePress(CMouseEvent* event) override // beside the windows: to the first one
    {
        event->passOn = false;
        Stops().CircuitTabTraversal(true);
    }
    void OnKeyPress(CKeyboardEvent* event) override
    {
        if (event->key == kcTab)
            OnTab(*event);
    }
    void OnGetFocus(CEvent*) override { Log("the page  got it"); }
    void OnReleaseFocus(CEvent*) override
    {
        m_leaving = false;
        Log("the page  lost it");
    }
    void OnResize(CWindowEvent*) override
    {
        const Box client = ClientBox(m_window);
        const Box area{16, 48, LogLeft() - 16, client.bottom - 16};
        for (int i = 0; i < kCells; ++i) {
            const Box at = gallery::Cell(area, i, kColumns, kCells / kColumns, 16);
            m_cells[i]->SetPos(int(at.left), int(at.top), int(at.right), int(at.bottom));
        }
        InvalidateAll(m_window);
    }
    void OnDraw(CDrawEvent* event) override;

    ISysWindow& m_window;
    std::vector<std::unique_ptr<Cell>> m_cells;
    std::deque<std::string> m_log; // the latest first
    int m_count = 0;
    bool m_leaving = false; // the next Tab on the page itself goes to its neighbours
};

Cell::Cell(FocusPage& page, ISysWindow& window, int number) : m_page(page), m_window(window), m_number(number)
{
    SetCounted(false); // the page's
    vela7::Subscribe<IDrawingNotify>(window, this);
    vela7::Subscribe<IKeyboardNotify>(window, this);
    vela7::Subscribe<IFocusNotify>(window, this);
}

void Cell::Report(bool got)
{
    m_focused = got;
    if (got)
        m_page.Enter();
    InvalidateAll(m_window);
    m_page.Log("window " + std::to_string(m_number) + (got ? "  got it" : "  lost it"));
}

void Cell::OnKeyPress(CKeyboardEvent* event)
{
    if (event->key == kcTab) {
        m_page.OnTab(*event);
    } else if (event->key == ' ') {
        m_enabled = !m_enabled;
        InvalidateAll(m_window);
    }
}

void Cell::OnDraw(CDrawEvent* event)
{
    IPainter& painter = *event->painter;
    const Style style = CurrentStyle();
    painter.SetBackgroundColor(m_focused ? style.accent : style.shade);
    const CPaintScope paint(painter, ssBuffered);
    if (!paint.IsOk())
        return;
    const Box box = ClientBox(m_window);
    const _color color = m_focused ? style.accentText : m_enabled ? style.text : style.muted;
    Frame(painter, box, m_focused ? style.text : style.line);
    painter.SetFont(UiFont(fsBold, 2.0));
    CenteredText(painter, {box.left, box.top, box.right, box.bottom - 24}, std::to_string(m_number), color);
    painter.SetFont(UiFont());
    CenteredText(painter, {box.left, box.top + 48, box.right, box.bottom},
                 !m_enabled  ? "left out"
                 : m_focused ? "has the focus"
                             : "",
                 color);
}

void FocusPage::OnDraw(CDrawEvent* event)
{
    IPainter& painter = *event->painter;
    const Style style = CurrentStyle();
    painter.SetBackgroundColor(style.window);
    const CPaintScope paint(painter, ssBuffered);
    if (!paint.IsOk())
        return;
    painter.SetFont(UiFont());
    Text(painter, 16, 16, "Tab and Shift+Tab walk; Space leaves a window out.", style.text);
    const double left = LogLeft(), step = LineHeight(painter) + 5;
    painter.SetFont(UiFont(fsBold));
    Text(painter, left, 16, "Focus changes, the latest first", style.text);
    painter.SetFont(UiFont());
    double y = 48;
    for (const std::string& line : m_log) {
        Text(painter, left, y, line, y == 48 ? style.text : style.muted);
        y += step;
    }
}

} // namespace

std::unique_ptr<Page> CreateFocusPage(ISysWindow& window)
{
    return std::make_unique<FocusPage>(window);
}

} // namespace gallery
