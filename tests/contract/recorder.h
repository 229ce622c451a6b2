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

template <class... Interfaces>
class Ears : public Interfaces...
{
protected:
    void SubscribeAll(IEventSender& sender) { (Subscribe<Interfaces>(sender, this), ...); }
    void UnsubscribeAll(IEventSender& sender)
    {
        (sender.Unsubscribe(static_cast<Interfaces*>(this), typeid(Interfaces), false), ...);
    }
};

// Writes each record down as one line that holds every field; what must be the same in all of them (sender,
// passOn and allowNavigation set) is tested at once. May outlive the sender: a window, a control, a timer.
class Recorder : public Ears<IDrawingNotify, IMouseNotify, IKeyboardNotify, IFocusNotify, IWindowNotify,
                             ITabTraversalNotify, IContextMenuNotify, IEditNotify, IComboBoxNotify,
                             IScrollBarNotify, IMenuNotify, ITimerNotify>
{
public:
    using Action = std::function<void(CEvent&)>;

    template <class Sender>
    explicit Recorder(Sender* sender) : m_sender(sender), m_life(sender->WatchLife())
    {
    }
    ~Recorder() override { Forget(); }

    template <class... Interfaces>
    void Hear()
    {
        (Subscribe<Interfaces>(*m_sender, this), ...);
    }
    void HearAll() { SubscribeAll(*m_sender); }
    void Forget()
    {
        if (m_life.IsAlive())
            UnsubscribeAll(*m_sender);
    }

    // The lines since the last call.
    Lines Take() { return std::exchange(m_lines, {}); }
    // The first words of them only.
    std::string TakeNames()
    {
        std::string names;
        for (const std::string& line : Take())
            names += (names.empty() ? "" : " ") + line.substr(0, line.find(' '));
        return names;
    }
    int Count(const std::string& hook) const
    {
        const auto is = [&](const std::string& line) { return line.substr(0, line.find(' ')) == hook; };
        return static_cast<int>(std::count_if(m_lines.begin(), m_lines.end(), is));
    }
    // Has something done inside every notification, or inside those of one hook.
    void Do(Action action) { m_hook.clear(), m_action = std::move(action); }
    void DoIn(const std::string& hook, Action action) { m_hook = hook, m_action = std::move(action); }

    void OnDraw(CDrawEvent* e) override
    {
        EXPECT_EQ(dynamic_cast<ISysWindow&>(*m_sender).TakeDefPainter(), e->painter);
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
    void OnEditTextChanged(CEditTextEvent* e) override { Note("text", *e, e->text); }
    void OnEditChar(CEditKeyEvent* e) override { NoteKey("char", *e); }
    void OnEditKeyDown(CEditKeyEvent* e) override { NoteKey("keydown", *e); }
    void OnEditEnter(CEditEnterEvent* e) override { Note("enter", *e); }
    void OnComboItemSelected(CComboEvent* e) override { Note("item", *e, std::to_string(e->index)); }
    void OnScroll(CScrollEvent* e) override
    {
        std::ostringstream text;
        text << e->value << " action " << e->action;
        Note("scroll", *e, text.str());
    }
    void OnMenuCommand(CMenuEvent* e) override { Note("command", *e, std::to_string(e->id)); }
    void OnTimer(CTimerEvent* e) override { Note("tick", *e); }

private:
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
        EXPECT_EQ(m_sender, e.sender) << hook;
        EXPECT_TRUE(e.passOn) << hook;
        m_lines.push_back(text.empty() ? hook : hook + ' ' + text);
        const Action action = m_action; // which may replace itself
        if (action && (m_hook.empty() || m_hook == hook))
            action(e);
    }

    IEventSender* m_sender;
    CLifeWatch m_life;
    Lines m_lines;
    std::string m_hook;
    Action m_action;
};

} // namespace vela7::test
