// A listener that writes down all it hears. Knows nothing but the toolkit's interfaces.
#pragma once

#include "vela7/painter.h"
#include "vela7/window.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace vela7::test {

using Lines = std::vector<std::string>;

template <class T>
std::string At(const T& x, const T& y)
{
    return std::to_string(x) + ',' + std::to_string(y);
}

// Writes each record down as one line that holds every field; what must be the same in all of them (sender,
// passOn and allowNavigation set) is tested at once. May outlive the window.
class Recorder : public IDrawingNotify,
                 public IMouseNotify,
                 public IKeyboardNotify,
                 public IFocusNotify,
                 public IWindowNotify,
                 public ITabTraversalNotify,
                 public IContextMenuNotify
{
public:
    using Action = std::function<void(CEvent&)>;

    explicit Recorder(ISysWindow* window) : m_window(window), m_life(window->WatchLife()) {}
    ~Recorder() override { Forget(); }

    template <class... Interfaces>
    void Hear()
    {
        (Subscribe<Interfaces>(*m_window, this), ...);
    }
    void HearAll()
    {
        Hear<IDrawingNotify, IMouseNotify, IKeyboardNotify, IFocusNotify, IWindowNotify, ITabTraversalNotify,
             IContextMenuNotify>();
    }
    void Forget()
    {
        if (m_life.IsAlive())
            Quit<IDrawingNotify, IMouseNotify, IKeyboardNotify, IFocusNotify, IWindowNotify,
                 ITabTraversalNotify, IContextMenuNotify>();
    }

    // The lines since the last call.
    Lines Take() { return std::exchange(m_lines, {}); }
    int Count(const std::string& hook) const
    {
        const auto is = [&](const std::string& line) { return line.substr(0, line.find(' ')) == hook; };
        return static_cast<int>(std::count_if(m_lines.begin(), m_lines.end(), is));
    }
    // Has something done inside every notification, or inside those of one hook.
    void Do(Action action) { m_action = std::move(action); }
    void DoIn(const std::string& hook, Action action) { m_hook = hook, m_action = std::move(action); }

    void OnDraw(CDrawEvent* e) override
    {
        EXPECT_EQ(m_window->TakeDefPainter(), e->painter);
        const rectangle<int> damage = e->painter->GetUpdateRect();
        Note("draw", *e, At(damage.left, damage.top) + ' ' + At(damage.right, damage.bottom));
    }
    void OnMousePress(CMouseEvent* e) override { NoteMouse("press", *e); }
    void OnMouseRelease(CMouseEvent* e) override { NoteMouse("release", *e); }
    void OnMouseDoubleClick(CMouseEvent* e) override { NoteMouse("double", *e); }
    void OnMouseMove(CMouseEvent* e) override { NoteMouse("motion", *e); }
    void OnMouseWheel(CMouseWheelEvent* e) override
    {
        NoteMouse("wheel", *e, " delta " + std::to_string(e->delta));
    }
    void OnMouseEnter(CMouseEvent* e) override { NoteMouse("enter", *e); }
    void OnMouseLeave(CMouseEvent* e) override { NoteMouse("leave", *e); }
    void OnKeyPress(CKeyboardEvent* e) override { NoteKey("keydown", *e); }
    void OnKeyRelease(CKeyboardEvent* e) override { NoteKey("keyup", *e); }
    void OnChar(CKeyboardEvent* e) override { NoteKey("char", *e); }
    void OnGetFocus(CEvent* e) override { Note("focus", *e); }
    void OnReleaseFocus(CEvent* e) override { Note("unfocus", *e); }
    void OnMove(CWindowEvent* e) override { Note("move", *e, At(e->x, e->y)); }
    void OnResize(CWindowEvent* e) override { Note("resize", *e, At(e->x, e->y)); }
    void OnSysColorChanged(CEvent* e) override { Note("colours", *e); }
    void OnDestroy(CEvent* e) override { Note("destroy", *e); }
    void OnTabTraversal(CKeyboardEvent* e) override { NoteKey("tab", *e); }
    void OnContextMenu(CContextMenuEvent* e) override { Note("menu", *e, At(e->position.x, e->position.y)); }

private:
    template <class... Interfaces>
    void Quit()
    {
        (m_window->Unsubscribe(static_cast<Interfaces*>(this), typeid(Interfaces), false), ...);
    }

    void NoteMouse(const std::string& hook, CMouseEvent& e, const std::string& more = "")
    {
        std::ostringstream text;
        text << At(e.position.x, e.position.y) << " button " << e.button << " state 0x" << std::hex
             << e.state;
        Note(hook, e, text.str() + more);
    }
    void NoteKey(const std::string& hook, CKeyboardEvent& e)
    {
        EXPECT_TRUE(e.allowNavigation) << hook;
        std::ostringstream text;
        text << e.key << " state 0x" << std::hex << e.state << " char " << std::dec << int{e.character};
        Note(hook, e, text.str());
    }
    void Note(const std::string& hook, CEvent& e, const std::string& text = "")
    {
        EXPECT_EQ(static_cast<IEventSender*>(m_window), e.sender) << hook;
        EXPECT_TRUE(e.passOn) << hook;
        m_lines.push_back(text.empty() ? hook : hook + ' ' + text);
        const Action action = m_action; // which may replace itself
        if (action && (m_hook.empty() || m_hook == hook))
            action(e);
    }

    ISysWindow* m_window;
    CLifeWatch m_life;
    Lines m_lines;
    std::string m_hook;
    Action m_action;
};

} // namespace vela7::test
