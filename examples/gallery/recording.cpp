#include "recording.h"

#include <istream>
#include <ostream>
#include <sstream>
#include <variant>

namespace gallery {

using namespace vela7;

namespace {

constexpr char kHead[] = "vela7 events 1";

using Fields = std::vector<long>;
using MouseHook = void (CSysWindow::*)(CMouseEvent*);
using WheelHook = void (CSysWindow::*)(CMouseWheelEvent*);
using KeyHook = void (CSysWindow::*)(CKeyboardEvent*);
using PlaceHook = void (CSysWindow::*)(CWindowEvent*);
using MenuHook = void (CSysWindow::*)(CContextMenuEvent*);
using PlainHook = void (CSysWindow::*)();
using DirectionHook = void (CSysWindow::*)(bool);

void FillMouse(CMouseEvent& event, const Fields& f)
{
    event.position = {int(f[0]), int(f[1])};
    event.state = std::uint32_t(f[2]);
    event.button = std::uint32_t(f[3]);
}

// What a hook is called with.
struct Call
{
    CSysWindow& window;
    const Fields& f;

    void operator()(MouseHook hook) const
    {
        CMouseEvent event(&window);
        FillMouse(event, f);
        (window.*hook)(&event);
    }
    void operator()(WheelHook hook) const
    {
        CMouseWheelEvent event(&window);
        FillMouse(event, f);
        event.delta = std::int32_t(f[4]);
        (window.*hook)(&event);
    }
    void operator()(KeyHook hook) const
    {
        CKeyboardEvent event(&window);
        event.state = std::uint32_t(f[0]);
        event.key = std::uint32_t(f[1]);
        event.character = static_cast<unsigned char>(f[2]);
        (window.*hook)(&event);
    }
    void operator()(PlaceHook hook) const
    {
        CWindowEvent event(&window, std::int32_t(f[0]), std::int32_t(f[1]));
        (window.*hook)(&event);
    }
    void operator()(MenuHook hook) const
    {
        CContextMenuEvent event(&window);
        event.position = {int(f[0]), int(f[1])};
        (window.*hook)(&event);
    }
    void operator()(PlainHook hook) const { (window.*hook)(); }
    void operator()(DirectionHook hook) const { (window.*hook)(f[0] != 0); }
};

struct Row
{
    const char* name;
    std::size_t fields;
    std::variant<MouseHook, WheelHook, KeyHook, PlaceHook, MenuHook, PlainHook, DirectionHook> hook;
};

// clang-format off
const Row kRows[] = {
    {"press",          4, &CSysWindow::ProcessMousePress},
    {"release",        4, &CSysWindow::ProcessMouseRelease},
    {"double-click",   4, &CSysWindow::ProcessMouseDoubleClick},
    {"move",           4, &CSysWindow::ProcessMouseMove},
    {"enter",          4, &CSysWindow::ProcessEnter},
    {"leave",          4, &CSysWindow::ProcessLeave},
    {"wheel",          5, &CSysWindow::ProcessWheel},
    {"key-press",      3, &CSysWindow::ProcessKeyPress},
    {"key-release",    3, &CSysWindow::ProcessKeyRelease},
    {"char",           3, &CSysWindow::ProcessChar},
    {"get-focus",      0, &CSysWindow::ProcessGetFocus},
    {"release-focus",  0, &CSysWindow::ProcessReleaseFocus},
    {"colors-changed", 0, &CSysWindow::ProcessSysColorChanged},
    {"moved",          2, &CSysWindow::ProcessMove},
    {"resized",        2, &CSysWindow::ProcessResize},
    {"context-menu",   2, &CSysWindow::ProcessContextMenu},
    {"tab-traversal",  1, &CSysWindow::CircuitTabTraversal},
};
// clang-format on

const Row* Find(const std::string& name)
{
    for (const Row& row : kRows)
        if (name == row.name)
            return &row;
    return nullptr;
}

// The window is to be as it was when the record was made.
void Prepare(const Row& row, const Fields& fields, CSysWindow& window)
{
    if (std::string(row.name) != "resized")
        return;
    const rectangle<int> now = window.GetWindowRect();
    const rectangle<int> client = window.GetClientRect();
    if (client.Width() != fields[0] || client.Height() != fields[1])
        window.SetWindowRect(now.left, now.top, now.left + int(fields[0]), now.top + int(fields[1]), false);
}

void ReplayLine(const Row& row, const Fields& fields, CSysWindow& window)
{
    const CLifeWatch alive = window.WatchLife();
    Prepare(row, fields, window);
    if (!alive.IsAlive())
        return;
    // The press that follows would set the focus again if the window did not have it by then.
    if (std::string(row.name) == "get-focus" && !window.GetFocused())
        window.SetFocus();
    else
        std::visit(Call{window, fields}, row.hook);
}

// Empty, or what is wrong.
std::string Parse(const std::string& line, const Row*& row, Fields& fields)
{
    std::istringstream words(line);
    std::string name;
    words >> name;
    row = Find(name);
    if (!row)
        return "unknown record '" + name + "'";
    for (long value; words >> value;)
        fields.push_back(value);
    if (!words.eof())
        return "a field is not a number";
    if (fields.size() != row->fields)
        return name + " has " + std::to_string(row->fields) + " fields, not " + std::to_string(fields.size());
    return {};
}

std::string InLine(int number, const std::string& what)
{
    return "line " + std::to_string(number) + ": " + what;
}

} // namespace

Recorder::Recorder(ISysWindow& window)
{
    IEventSender& sender = window;
    const auto listen = [&](auto* listener, const std::type_info& type) {
        sender.SubscribeToFront(listener, type, true);
    };
    listen(static_cast<IMouseNotify*>(this), typeid(IMouseNotify));
    listen(static_cast<IKeyboardNotify*>(this), typeid(IKeyboardNotify));
    listen(static_cast<IFocusNotify*>(this), typeid(IFocusNotify));
    listen(static_cast<IWindowNotify*>(this), typeid(IWindowNotify));
    listen(static_cast<ITabTraversalNotify*>(this), typeid(ITabTraversalNotify));
    listen(static_cast<IContextMenuNotify*>(this), typeid(IContextMenuNotify));
}

void Recorder::Add(const char* name, std::initializer_list<long> fields)
{
    if (m_paused)
        return;
    std::string line = name;
    for (const long field : fields)
        line += ' ' + std::to_string(field);
    m_lines.push_back(line);
}

void Recorder::AddMouse(const char* name, const CMouseEvent& e)
{
    Add(name, {e.position.x, e.position.y, long(e.state), long(e.button)});
}

void Recorder::AddKey(const char* name, const CKeyboardEvent& e)
{
    Add(name, {long(e.state), long(e.key), e.character});
}

// clang-format off
void Recorder::OnMousePress(CMouseEvent* e)         { AddMouse("press", *e); }
void Recorder::OnMouseRelease(CMouseEvent* e)       { AddMouse("release", *e); }
void Recorder::OnMouseDoubleClick(CMouseEvent* e)   { AddMouse("double-click", *e); }
void Recorder::OnMouseMove(CMouseEvent* e)          { AddMouse("move", *e); }
void Recorder::OnMouseEnter(CMouseEvent* e)         { AddMouse("enter", *e); }
void Recorder::OnMouseLeave(CMouseEvent* e)         { AddMouse("leave", *e); }
void Recorder::OnKeyPress(CKeyboardEvent* e)        { AddKey("key-press", *e); }
void Recorder::OnKeyRelease(CKeyboardEvent* e)      { AddKey("key-release", *e); }
void Recorder::OnChar(CKeyboardEvent* e)            { AddKey("char", *e); }
void Recorder::OnGetFocus(CEvent*)                  { Add("get-focus", {}); }
void Recorder::OnReleaseFocus(CEvent*)              { Add("release-focus", {}); }
void Recorder::OnMove(CWindowEvent* e)              { Add("moved", {e->x, e->y}); }
void Recorder::OnResize(CWindowEvent* e)            { Add("resized", {e->x, e->y}); }
void Recorder::OnSysColorChanged(CEvent*)           { Add("colors-changed", {}); }
void Recorder::OnTabTraversal(CKeyboardEvent* e)    { Add("tab-traversal", {!(e->state & ksShift)}); }
void Recorder::OnContextMenu(CContextMenuEvent* e)  { Add("context-menu", {e->position.x, e->position.y}); }
// clang-format on

void Recorder::OnMouseWheel(CMouseWheelEvent* e)
{
    Add("wheel", {e->position.x, e->position.y, long(e->state), long(e->button), e->delta});
}

void Recorder::Save(std::ostream& out) const
{
    out << kHead << '\n';
    for (const std::string& line : m_lines)
        out << line << '\n';
}

std::string Replay(std::istream& recording, CSysWindow& window)
{
    const CLifeWatch alive = window.WatchLife();
    std::string line;
    if (!std::getline(recording, line) || line != kHead)
        return InLine(1, std::string("not a recording: it does not begin with '") + kHead + "'");
    for (int number = 2; alive.IsAlive() && std::getline(recording, line); ++number) {
        if (line.empty() || line[0] == '#')
            continue;
        const Row* row = nullptr;
        Fields fields;
        const std::string wrong = Parse(line, row, fields);
        if (!wrong.empty())
            return InLine(number, wrong);
        ReplayLine(*row, fields, window);
    }
    return {};
}

} // namespace gallery
