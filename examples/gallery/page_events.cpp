/// Lists every record that the page receives, with all its fields; painting alone is left out, because
/// listing a paint would cause the next one. Two buttons save what was received to a file and replay that
/// file into the page.

#include "page.h"
#include "record_text.h"
#include "recording.h"
#include "style.h"

#include <cmath>
#include <deque>

namespace gallery {

using namespace vela7;

namespace {

constexpr double kMargin = 16, kColumnGap = 14;
constexpr double kFontScale = 0.9;
constexpr std::size_t kMaxRows = 2000;
constexpr char kFile[] = "vela7-events.txt"; // in the current directory

/// One line of the list.
struct Row
{
    int number;
    const char* event;
    _color color; // of the family of events
    Fields head;  // its names stand above the list, not in each line
    Fields fields;
};

/// Where the columns of the list begin.
struct Columns
{
    double event;
    std::vector<double> head, fields;
};

class EventsPage : public Page,
                   CSubscriber<IDrawingNotify>,
                   CSubscriber<IMouseNotify>,
                   CSubscriber<IKeyboardNotify>,
                   CSubscriber<IFocusNotify>,
                   CSubscriber<IWindowNotify>,
                   CSubscriber<ITabTraversalNotify>,
                   CSubscriber<IContextMenuNotify>
{
public:
    explicit EventsPage(ISysWindow& window) : m_window(window), m_recorder(window)
    {
        Subscribe<IDrawingNotify>(window, this);
        Subscribe<IMouseNotify>(window, this);
        Subscribe<IKeyboardNotify>(window, this);
        Subscribe<IFocusNotify>(window, this);
        Subscribe<IWindowNotify>(window, this);
        Subscribe<ITabTraversalNotify>(window, this);
        Subscribe<IContextMenuNotify>(window, this);
    }

    bool WantsSampleInput() const override { return true; }

    void OnDraw(CDrawEvent* event) override;

    void OnMousePress(CMouseEvent* e) override
    {
        Add("OnMousePress", clSea, *e);
        PressButton(e->position);
    }
    void OnMouseRelease(CMouseEvent* e) override { Add("OnMouseRelease", clSea, *e); }
    void OnMouseDoubleClick(CMouseEvent* e) override { Add("OnMouseDoubleClick", clSea, *e); }
    void OnMouseMove(CMouseEvent* e) override { Add("OnMouseMove", clSea, *e); }
    void OnMouseEnter(CMouseEvent* e) override { Add("OnMouseEnter", clSea, *e); }
    void OnMouseLeave(CMouseEvent* e) override { Add("OnMouseLeave", clSea, *e); }
    void OnMouseWheel(CMouseWheelEvent* e) override
    {
        Add("OnMouseWheel", clSea, *e);
        m_scroll.By(-m_lineHeight * e->delta);
    }
    void OnKeyPress(CKeyboardEvent* e) override { Add("OnKeyPress", clLeaf, *e); }
    void OnKeyRelease(CKeyboardEvent* e) override { Add("OnKeyRelease", clLeaf, *e); }
    void OnChar(CKeyboardEvent* e) override { Add("OnChar", clLeaf, *e); }
    void OnTabTraversal(CKeyboardEvent* e) override { Add("OnTabTraversal", clLeaf, *e); }
    void OnGetFocus(CEvent* e) override { Add("OnGetFocus", clAmber, *e); }
    void OnReleaseFocus(CEvent* e) override { Add("OnReleaseFocus", clAmber, *e); }
    void OnMove(CWindowEvent* e) override { Add("OnMove", clPlum, *e); }
    void OnResize(CWindowEvent* e) override { Add("OnResize", clPlum, *e); }
    void OnSysColorChanged(CEvent* e) override { Add("OnSysColorChanged", clPlum, *e); }
    void OnContextMenu(CContextMenuEvent* e) override { Add("OnContextMenu", clRose, *e); }

private:
    template <class E>
    void Add(const char* name, const _color& color, const E& event)
    {
        m_rows.push_back({++m_count, name, color, DescribeHead(event, m_window), Describe(event)});
        if (m_rows.size() > kMaxRows)
            m_rows.pop_front();
        InvalidateAll(m_window);
    }
    struct Button
    {
        const char* text;
        void (EventsPage::*action)();
        Box box; // of the last paint
    };

    void PressButton(const point<int>& at);
    void Save();
    void ReplaySaved();
    double DrawTitle(IPainter& painter, const Box& client, const Style& style);
    void DrawButtons(IPainter& painter, const Box& bar, const Style& style);
    void DrawList(IPainter& painter, const Box& area, const Style& style);

    /// Rows first..end-1 are those that show.
    Columns MeasureColumns(IPainter& painter, double left, std::size_t first, std::size_t end) const;
    void DrawColumnTitles(IPainter& painter, const Columns& columns, double top, const Style& style) const;
    void DrawRow(IPainter& painter, const Row& row, const Columns& columns, double top,
                 const Style& style) const;

    ISysWindow& m_window;
    Recorder m_recorder;
    bool m_replaying = false;
    std::string m_message = "Click, type, scroll, resize: the newest is at the bottom.";
    Button m_buttons[2] = {{"Replay", &EventsPage::ReplaySaved, {}},
                           {"Save", &EventsPage::Save, {}}}; // from the right
    std::deque<Row> m_rows;
    int m_count = 0;
    Scroll m_scroll{true};
    double m_lineHeight = 16; // of the last paint
};

constexpr double kNameGap = 5; // between the name of a field and its value

double Width(IPainter& painter, const std::string& text)
{
    return painter.GetTextSize(text).width;
}

/// Turns widths into positions; answers what follows the last one.
double Place(std::vector<double>& columns, double x)
{
    for (double& column : columns) {
        const double width = column;
        column = x;
        x += width + kColumnGap;
    }
    return x;
}

void Widen(std::vector<double>& widths, std::size_t index, double width)
{
    widths.resize(std::max(widths.size(), index + 1));
    widths[index] = std::max(widths[index], width);
}

/// The columns are as wide as what shows needs.
Columns EventsPage::MeasureColumns(IPainter& painter, double left, std::size_t first, std::size_t end) const
{
    Columns columns;
    double event = 0;
    for (std::size_t i = first; i < end; ++i) {
        const Row& row = m_rows[i];
        event = std::max(event, Width(painter, row.event));
        for (std::size_t f = 0; f < row.head.size(); ++f) {
            Widen(columns.head, f, Width(painter, row.head[f].name));
            Widen(columns.head, f, Width(painter, row.head[f].value));
        }
        for (std::size_t f = 0; f < row.fields.size(); ++f)
            Widen(columns.fields, f,
                  Width(painter, row.fields[f].name) + kNameGap + Width(painter, row.fields[f].value));
    }
    columns.event = left + Width(painter, "00000") + kColumnGap;
    const double head = columns.event + kColumnGap + event + kColumnGap;
    Place(columns.fields, Place(columns.head, head));
    return columns;
}

void EventsPage::DrawColumnTitles(IPainter& painter, const Columns& columns, double top,
                                  const Style& style) const
{
    const double right = columns.event - kColumnGap;
    Text(painter, right - Width(painter, "No."), top, "No.", style.muted);
    Text(painter, columns.event + kColumnGap, top, "Event", style.muted);
    for (std::size_t f = 0; f < columns.head.size(); ++f)
        Text(painter, columns.head[f], top, m_rows.back().head[f].name, style.muted);
    if (!columns.fields.empty())
        Text(painter, columns.fields.front(), top, "Record", style.muted);
}

void EventsPage::DrawRow(IPainter& painter, const Row& row, const Columns& columns, double top,
                         const Style& style) const
{
    const std::string number = std::to_string(row.number);
    const double right = columns.event - kColumnGap;
    Text(painter, right - Width(painter, number), top, number, style.muted);

    const double middle = top + LineHeight(painter) / 2;
    painter.SetPen({row.color, 1, psSolid});
    painter.SetBrush({row.color, bsSolid});
    painter.Ellipse(columns.event, middle - 4, columns.event + 8, middle + 4);
    Text(painter, columns.event + kColumnGap, top, row.event, style.text);

    for (std::size_t f = 0; f < row.head.size(); ++f)
        Text(painter, columns.head[f], top, row.head[f].value, style.text);
    for (std::size_t f = 0; f < row.fields.size(); ++f) {
        const Field& field = row.fields[f];
        Text(painter, columns.fields[f], top, field.name, style.muted);
        const double value = columns.fields[f] + Width(painter, field.name) + kNameGap;
        Text(painter, value, top, field.value, style.text);
    }
}

void EventsPage::DrawList(IPainter& painter, const Box& area, const Style& style)
{
    painter.SetFont(UiFont(0, kFontScale));
    m_lineHeight = LineHeight(painter) + 7;
    const double titles = area.top + 8, top = area.top + m_lineHeight + 8;
    if (m_rows.empty() || top >= area.bottom)
        return;
    const double rows = std::max(1.0, std::floor((area.bottom - top) / m_lineHeight)); // whole ones only
    const Box view{area.left, top, area.right, top + rows * m_lineHeight};
    m_scroll.SetExtent(double(m_rows.size()) * m_lineHeight, view.Height());
    const auto first = std::size_t(m_scroll.Top() / m_lineHeight);
    const std::size_t end = std::min(m_rows.size(), first + std::size_t(rows) + 1);
    const Columns columns = MeasureColumns(painter, area.left + kMargin, first, end);
    DrawColumnTitles(painter, columns, titles, style);

    painter.SetClipRect(view.left, view.top, view.right, view.bottom);
    for (std::size_t i = first; i < end; ++i) {
        const double y = view.top + double(i) * m_lineHeight - m_scroll.Top();
        if (m_rows[i].number % 2 == 0)
            Fill(painter, {view.left, y, view.right, y + m_lineHeight}, style.shade);
        DrawRow(painter, m_rows[i], columns, y + 3, style);
    }
    painter.CancelClipping();
    m_scroll.Draw(painter, view, style.muted);
}

// The recording holds the presses of the buttons as well; replayed, they are mere records.
void EventsPage::PressButton(const point<int>& at)
{
    for (const Button& button : m_buttons)
        if (!m_replaying && at.x >= button.box.left && at.x < button.box.right && at.y >= button.box.top &&
            at.y < button.box.bottom)
            return (this->*button.action)(); // the page may be gone with it
}

void EventsPage::Save()
{
    m_message = std::string(m_recorder.SaveAs(kFile) ? "Saved as " : "Cannot write ") + kFile + ".";
}

void EventsPage::ReplaySaved()
{
    auto* const window = dynamic_cast<CSysWindow*>(&m_window);
    if (!window)
        return;
    const CLifeWatch alive = window->WatchLife();
    m_replaying = true;
    m_recorder.Pause(true);
    const std::string wrong = ReplayFile(kFile, *window);
    if (!alive.IsAlive())
        return; // and the page may be gone with it
    m_recorder.Pause(false);
    m_replaying = false;
    m_message = wrong.empty() ? std::string("Replayed ") + kFile + "." : wrong;
}

void EventsPage::DrawButtons(IPainter& painter, const Box& bar, const Style& style)
{
    double right = bar.right - kMargin;
    for (Button& button : m_buttons) {
        button.box = {right - Width(painter, button.text) - 20, bar.top + 4, right, bar.bottom - 5};
        painter.SetPen({style.line, 1, psSolid});
        painter.SetBrush({style.window, bsSolid});
        painter.RoundRect(button.box.left, button.box.top, button.box.right, button.box.bottom, 4, 4);
        Text(painter, button.box.left + 10, bar.top + 8, button.text, style.text);
        right = button.box.left - 8;
    }
}

/// Answers its lower edge.
double EventsPage::DrawTitle(IPainter& painter, const Box& client, const Style& style)
{
    const Box bar{client.left, client.top, client.right, client.top + LineHeight(painter) + 16};
    Fill(painter, bar, style.face);
    HLine(painter, bar.left, bar.right, bar.bottom - 1, style.line);
    const std::string counted = std::to_string(m_count) + (m_count == 1 ? " record" : " records");
    painter.SetFont(UiFont(fsBold));
    Text(painter, bar.left + kMargin, bar.top + 8, counted, style.text);
    const double next = bar.left + kMargin + Width(painter, counted) + 12;
    painter.SetFont(UiFont());
    Text(painter, next, bar.top + 8, m_message, style.muted);
    DrawButtons(painter, bar, style);
    return bar.bottom;
}

void EventsPage::OnDraw(CDrawEvent* event)
{
    IPainter& painter = *event->painter;
    const Style style = CurrentStyle();
    painter.SetBackgroundColor(style.window);
    const CPaintScope paint(painter, ssBuffered);
    if (!paint.IsOk())
        return;

    const Box client = ClientBox(m_window);
    const double top = DrawTitle(painter, client, style);
    if (top < client.bottom)
        DrawList(painter, {client.left, top, client.right, client.bottom}, style);
}

} // namespace

std::unique_ptr<Page> CreateEventsPage(ISysWindow& window)
{
    return std::make_unique<EventsPage>(window);
}

} // namespace gallery
