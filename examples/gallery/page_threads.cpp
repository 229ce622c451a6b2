/// Four runners compute a quarter of a picture each; every row comes to the GUI thread through Synchronize.
/// A wheel turned by a timer shows that the page stays responsive.

#include "buttons.h"
#include "cards.h"
#include "fractal.h"
#include "scene.h"

#include <chrono>
#include <cmath>

namespace gallery {

using namespace vela7;

namespace {

constexpr double kMargin = 16, kSide = 310;
constexpr int kRunners = 4, kRowsEach = kFractalRows / kRunners;
constexpr _color kColors[kRunners] = {clSea, clLeaf, clAmber, clPlum};
using Clock = std::chrono::steady_clock;

class ThreadsPage : public Page,
                    CSubscriber<IDrawingNotify>,
                    CSubscriber<IMouseNotify>,
                    CSubscriber<IWindowNotify>,
                    CSubscriber<ITimerNotify>
{
public:
    explicit ThreadsPage(ISysWindow& window) : m_window(window), m_buttons({"Start", "Cancel"})
    {
        Subscribe<IDrawingNotify>(window, this);
        Subscribe<IMouseNotify>(window, this);
        Subscribe<IWindowNotify>(window, this);
        m_timer = GetCurrentSystem()->CreateTimer(40, false);
        Subscribe<ITimerNotify>(*m_timer, this);
    }
    ~ThreadsPage() override { Stop("Stopped"); }

    bool IsWorthAPicture() const override { return RowsDone() > kFractalRows * 2 / 3; }

    void OnDraw(CDrawEvent* event) override;
    void OnMouseMove(CMouseEvent* event) override { m_buttons.Move(event->position), Repaint(); }
    void OnMouseLeave(CMouseEvent*) override { m_buttons.Move({-1, -1}), Repaint(); }
    void OnMousePress(CMouseEvent* event) override { m_buttons.Press(event->position), Repaint(); }
    void OnMouseRelease(CMouseEvent* event) override
    {
        const int clicked = m_buttons.Release(event->position);
        if (clicked == 0)
            Start();
        else if (clicked == 1)
            Stop("Cancelled");
        Repaint();
    }
    void OnSysColorChanged(CEvent*) override { Repaint(); }
    // The workers call the window: they have to end before it does.
    void OnDestroy(CEvent*) override { Stop("Stopped"); }
    void OnTimer(CTimerEvent*) override { ++m_ticks, Repaint(); }

private:
    void Repaint() { InvalidateAll(m_window); }
    int RowsDone() const { return m_done[0] + m_done[1] + m_done[2] + m_done[3]; }
    void Add(int row, const std::vector<int>& steps);
    void Start();
    void Stop(const char* state);
    void DrawPicture(IPainter& painter, const Box& area, const Style& style) const;
    void DrawRunners(IPainter& painter, const Box& area, const Style& style);
    void DrawWheel(IPainter& painter, const Box& area, const Style& style) const;

    ISysWindow& m_window;
    Buttons m_buttons;
    CHandle<ISysTimer> m_timer;
    std::shared_ptr<const RowTaker> m_taker; // while rows are wanted
    std::vector<FractalRows> m_work;
    std::vector<IRunner*> m_runners; // each ends in Join
    Picture m_picture;
    int m_done[kRunners] = {};
    int m_ticks = 0;
    const char* m_state = nullptr;
    Clock::time_point m_began;
    long m_milliseconds = 0;
};

void ThreadsPage::Start()
{
    Stop("Stopped");
    m_picture = MakePicture(kFractalColumns, kFractalRows);
    std::fill(std::begin(m_done), std::end(m_done), 0);
    m_taker = std::make_shared<RowTaker>([this](int row, const std::vector<int>& steps) { Add(row, steps); });
    for (int i = 0; i < kRunners; ++i)
        m_work.emplace_back(m_window, m_taker, i * kRowsEach, (i + 1) * kRowsEach);
    m_state = "Computing";
    m_began = Clock::now();
    m_timer->SetEnabled(true);
    for (FractalRows& rows : m_work) {
        m_runners.push_back(GetCurrentSystem()->CreateRunner());
        m_runners.back()->Run(&rows);
    }
}

void ThreadsPage::Stop(const char* state)
{
    m_timer->SetEnabled(false);
    for (IRunner* const runner : m_runners)
        runner->Join();
    m_runners.clear();
    m_work.clear();
    m_taker.reset(); // rows that are still on their way are nobody's now
    if (m_state)
        m_state = state;
}

void ThreadsPage::Add(int row, const std::vector<int>& steps)
{
    IPainter& painter = *m_picture->TakeDefPainter();
    if (const CPaintScope scope(painter, ssAsIs); scope.IsOk())
        for (int x = 0, end; x < kFractalColumns; x = end) {
            for (end = x; end < kFractalColumns && steps[end] == steps[x];)
                ++end;
            Fill(painter, Box(x, row, end, row + 1), FractalColor(steps[x], kColors[row / kRowsEach]));
        }
    ++m_done[row / kRowsEach];
    m_milliseconds = long((Clock::now() - m_began) / std::chrono::milliseconds(1));
    if (RowsDone() == kFractalRows)
        Stop("Done");
    Repaint();
}

void ThreadsPage::DrawPicture(IPainter& painter, const Box& area, const Style& style) const
{
    const double scale = std::min(area.Width() / kFractalColumns, area.Height() / kFractalRows);
    const double width = std::floor(kFractalColumns * scale), height = std::floor(kFractalRows * scale);
    const Box box{area.left, area.top, area.left + width, area.top + height};
    if (m_picture)
        painter.DrawRasterPicture(m_picture.Get(), box.left, box.top, box.right, box.bottom, roCopy);
    Frame(painter, box, style.line);
}

void ThreadsPage::DrawWheel(IPainter& painter, const Box& area, const Style& style) const
{
    constexpr int spokes = 12;
    const Box box = Square(area);
    const double x = (box.left + box.right) / 2, y = (box.top + box.bottom) / 2, radius = box.Width() / 2 - 4;
    for (int i = 0; i < spokes; ++i) {
        const int age = ((m_ticks - i) % spokes + spokes) % spokes;
        const _color color = m_timer->GetEnabled() ? Mix(style.accent, style.line, age / 11.0) : style.line;
        painter.SetPen({color, 1, psSolid});
        painter.SetBrush({color, bsSolid});
        const double angle = 2 * 3.14159265 * i / spokes;
        const double cx = std::round(x + radius * std::sin(angle)),
                     cy = std::round(y - radius * std::cos(angle));
        painter.Ellipse(cx - 4, cy - 4, cx + 5, cy + 5);
    }
}

void ThreadsPage::DrawRunners(IPainter& painter, const Box& area, const Style& style)
{
    const double line = LineHeight(painter), step = line + 34;
    double y = area.top;
    for (int i = 0; i < kRunners; ++i, y += step) {
        const std::string percent = std::to_string(100 * m_done[i] / kRowsEach) + " %";
        Text(painter, area.left, y, "Runner " + std::to_string(i + 1), style.text);
        Text(painter, area.right - painter.GetTextSize(percent).width, y, percent, style.muted);
        const Box bar{area.left, y + line + 5, area.right, y + line + 15};
        Fill(painter, bar, style.line);
        const double done = std::floor(bar.Width() * m_done[i] / kRowsEach);
        Fill(painter, {bar.left, bar.top, bar.left + done, bar.bottom}, kColors[i]);
    }
    m_buttons.SetEnabled(1, !m_runners.empty());
    m_buttons.Draw(painter, area.left, y + 4, style);
    y += 4 + Buttons::Height(painter) + 20;
    DrawWheel(painter, {area.left, y, area.left + 84, y + 84}, style);
    const std::string ticks = std::to_string(m_ticks) + " timer ticks";
    const std::string seconds =
        std::to_string(m_milliseconds / 1000) + "." + std::to_string(m_milliseconds / 100 % 10) + " s";
    Text(painter, area.left + 104, y + 42 - 1.5 * line, m_state ? m_state : "Not started", style.text);
    Text(painter, area.left + 104, y + 42 - 0.5 * line, seconds, style.muted);
    Text(painter, area.left + 104, y + 42 + 0.5 * line, std::to_string(m_ticks) + " timer ticks",
         style.muted);
}

void ThreadsPage::OnDraw(CDrawEvent* event)
{
    if (!m_state) // shown for the first time
        Start();
    IPainter& painter = *event->painter;
    const Style style = CurrentStyle();
    painter.SetBackgroundColor(style.window);
    const CPaintScope paint(painter, ssBuffered);
    if (!paint.IsOk())
        return;
    const Box client = ClientBox(m_window);
    const Box bar{client.left, client.bottom - StatusBarHeight(painter), client.right, client.bottom};
    const Box cards{client.left + kMargin, client.top + kMargin, client.right - kMargin, bar.top - kMargin};
    const Card picture{"A picture in four parts",
                       [this](IPainter& p, const Box& area, const Style& s) { DrawPicture(p, area, s); }};
    const Card runners{"Runners",
                       [this](IPainter& p, const Box& area, const Style& s) { DrawRunners(p, area, s); }};
    const double split = std::max(cards.left, cards.right - kSide);
    DrawCard(painter, {cards.left, cards.top, split - 12, cards.bottom}, picture, style);
    DrawCard(painter, {split, cards.top, cards.right, cards.bottom}, runners, style);
    DrawStatusBar(painter, bar,
                  {m_state, "Four threads compute, a row at a time; this page goes on turning the wheel."},
                  style);
}

} // namespace

std::unique_ptr<Page> CreateThreadsPage(ISysWindow& window)
{
    return std::make_unique<ThreadsPage>(window);
}

} // namespace gallery
