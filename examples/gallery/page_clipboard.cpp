/// Text that goes to the clipboard and comes from there, and timers that can be stopped and sped up.

#include "buttons.h"
#include "cards.h"

#include "vela7/system.h"

#include <cmath>

namespace gallery {

using namespace vela7;

namespace {

constexpr double kMargin = 16;

/// A timer with a dial that moves on at each tick.
class Dial : CSubscriber<ITimerNotify>
{
public:
    Dial(ISysWindow& window, int interval, const _color& color)
        : m_window(window), m_color(color), m_timer(GetCurrentSystem()->CreateTimer(interval, true))
    {
        Subscribe<ITimerNotify>(*m_timer, this);
    }
    void OnTimer(CTimerEvent*) override
    {
        ++m_ticks;
        InvalidateAll(m_window);
    }

    int Ticks() const { return m_ticks; }
    bool Contains(const point<int>& mouse) const { return m_box.Contains(point<double>(mouse.x, mouse.y)); }
    void Toggle() { m_timer->SetEnabled(!m_timer->GetEnabled()); }
    void SpeedUp(int delta)
    {
        m_timer->SetInterval(std::clamp(m_timer->GetInterval() - 20 * delta, 20, 5000));
    }
    void Draw(IPainter& painter, const Box& box, const Style& style);

private:
    ISysWindow& m_window;
    const _color m_color;
    const CHandle<ISysTimer> m_timer;
    int m_ticks = 0;
    Box m_box{};
};

void Dial::Draw(IPainter& painter, const Box& box, const Style& style)
{
    m_box = box;
    const double line = LineHeight(painter), side = 90, x = box.left + side / 2 + 4,
                 y = (box.top + box.bottom) / 2;
    const bool runs = m_timer->GetEnabled();
    painter.SetPen({runs ? m_color : style.line, 3, psSolid});
    painter.SetBrush({style.window, bsSolid});
    painter.Ellipse(x - side / 2, y - side / 2, x + side / 2, y + side / 2);
    const double angle = 2 * 3.14159265 * (m_ticks % 12) / 12;
    Line(painter, x, y, std::round(x + 34 * std::sin(angle)), std::round(y - 34 * std::cos(angle)));
    const std::string lines[] = {std::to_string(m_timer->GetInterval()) + " ms",
                                 std::to_string(m_ticks) + " ticks", runs ? "running" : "stopped"};
    for (int i = 0; i < 3; ++i)
        Text(painter, box.left + side + 24, y + (i - 1.5) * line, lines[i], i ? style.muted : style.text);
}

class ClipboardPage : public Page,
                      CSubscriber<IDrawingNotify>,
                      CSubscriber<IMouseNotify>,
                      CSubscriber<IKeyboardNotify>,
                      CSubscriber<IFocusNotify>,
                      CSubscriber<IWindowNotify>,
                      CSubscriber<IClipboardChangeNotify>
{
public:
    explicit ClipboardPage(ISysWindow& window)
        : m_window(window), m_clipboard(*GetCurrentSystem()->TakeClipboard()),
          m_buttons({"Copy", "Paste", "Clear"})
    {
        Subscribe<IDrawingNotify>(window, this);
        Subscribe<IMouseNotify>(window, this);
        Subscribe<IKeyboardNotify>(window, this);
        Subscribe<IFocusNotify>(window, this);
        Subscribe<IWindowNotify>(window, this);
        Subscribe<IClipboardChangeNotify>(m_clipboard, this);
        const std::pair<int, _color> dials[] = {{100, clSea}, {250, clLeaf}, {500, clAmber}, {1000, clPlum}};
        for (const auto& [interval, color] : dials)
            m_dials.push_back(std::make_unique<Dial>(window, interval, color));
    }

    bool IsWorthAPicture() const override { return m_dials.front()->Ticks() > 15; }

    void OnDraw(CDrawEvent* event) override;
    void OnMouseMove(CMouseEvent* event) override { m_buttons.Move(event->position), Repaint(); }
    void OnMouseLeave(CMouseEvent*) override { m_buttons.Move({-1, -1}), Repaint(); }
    void OnMousePress(CMouseEvent* event) override;
    void OnMouseRelease(CMouseEvent* event) override { Do(m_buttons.Release(event->position)), Repaint(); }
    void OnMouseWheel(CMouseWheelEvent* event) override
    {
        if (Dial* const dial = DialAt(event->position))
            dial->SpeedUp(event->delta);
    }
    void OnChar(CKeyboardEvent* event) override;
    void OnSysColorChanged(CEvent*) override { Repaint(); }
    void OnDestroy(CEvent*) override // what follows would repaint the window
    {
        m_dials.clear();
        Unsubscribe<IClipboardChangeNotify>(m_clipboard, this);
    }
    // Another program may have changed it meanwhile, and nobody reports that.
    void OnGetFocus(CEvent*) override { Read(); }
    void OnClipboardChange(CEvent*) override { ++m_changes, Read(); }

private:
    void Repaint() { InvalidateAll(m_window); }
    void Read() { m_seen = m_clipboard.GetText(), Repaint(); }
    Dial* DialAt(const point<int>& mouse) const
    {
        for (const auto& dial : m_dials)
            if (dial->Contains(mouse))
                return dial.get();
        return nullptr;
    }
    void Do(int button);
    void DrawText(IPainter& painter, const Box& area, const Style& style);

    ISysWindow& m_window;
    IClipboard& m_clipboard;
    Buttons m_buttons;
    std::vector<std::unique_ptr<Dial>> m_dials;
    std::string m_typed = "Type here", m_seen;
    int m_changes = 0;
};

void ClipboardPage::Do(int button)
{
    if (button < 0)
        return;
    if (button == 1) {
        m_typed = m_clipboard.GetText();
        return Read();
    }
    button == 0 ? m_clipboard.SetText(m_typed) : m_clipboard.Clear();
    // Nothing watches the clipboard: whoever changes it tells the others.
    CEvent event(&m_clipboard);
    m_clipboard.FireEvent(typeid(IClipboardChangeNotify),
                          handler_cast(&IClipboardChangeNotify::OnClipboardChange), &event, true);
}

void ClipboardPage::OnMousePress(CMouseEvent* event)
{
    m_buttons.Press(event->position);
    if (Dial* const dial = DialAt(event->position))
        dial->Toggle();
    Repaint();
}

void ClipboardPage::OnChar(CKeyboardEvent* event)
{
    if (event->character == kcBack && !m_typed.empty())
        m_typed.pop_back();
    else if (event->character >= ' ' && event->character < 127)
        m_typed += char(event->character);
    Repaint();
}

void ClipboardPage::DrawText(IPainter& painter, const Box& area, const Style& style)
{
    const double line = LineHeight(painter);
    double y = area.top;
    const std::pair<const char*, std::string> boxes[] = {{"Typed", m_typed + "|"},
                                                         {"On the clipboard", m_seen}};
    for (const auto& [title, text] : boxes) {
        Text(painter, area.left, y, title, style.muted);
        const Box box{area.left, y + line + 6, area.right, y + 8 * line + 18};
        Fill(painter, box, style.window);
        Frame(painter, box, style.line);
        const ClipScope clip(painter, Shrunk(box, 1));
        painter.SetTextColor(text.empty() ? style.muted : style.text);
        painter.DrawStringEx(text.empty() ? "no text" : text, Shrunk(box, 6), 0);
        y = box.bottom + 14;
    }
    m_buttons.Draw(painter, area.left, y, style);
    y += Buttons::Height(painter) + 14;
    Text(painter, area.left, y,
         std::to_string(m_changes) + (m_changes == 1 ? " change reported" : " changes reported"),
         style.muted);
}

void ClipboardPage::OnDraw(CDrawEvent* event)
{
    IPainter& painter = *event->painter;
    const Style style = CurrentStyle();
    painter.SetBackgroundColor(style.window);
    const CPaintScope paint(painter, ssBuffered);
    if (!paint.IsOk())
        return;
    const Box client = ClientBox(m_window);
    const Box bar{client.left, client.bottom - StatusBarHeight(painter), client.right, client.bottom};
    const Box cards{client.left + kMargin, client.top + kMargin, client.right - kMargin, bar.top - kMargin};
    const auto drawText = [this](IPainter& p, const Box& area, const Style& s) { DrawText(p, area, s); };
    const auto drawDials = [this](IPainter& p, const Box& area, const Style& s) {
        for (std::size_t i = 0; i < m_dials.size(); ++i)
            m_dials[i]->Draw(p, Row(area, int(i), 4), s);
    };
    DrawCard(painter, Column(cards, 0, 2, 12), {"Clipboard", drawText}, style);
    DrawCard(painter, Column(cards, 1, 2, 12), {"Timers", drawDials}, style);
    DrawStatusBar(painter, bar,
                  {"", "Type and copy; a click on a dial stops its timer, the wheel changes its pace."},
                  style);
}

} // namespace

std::unique_ptr<Page> CreateClipboardAndTimersPage(ISysWindow& window)
{
    return std::make_unique<ClipboardPage>(window);
}

} // namespace gallery
