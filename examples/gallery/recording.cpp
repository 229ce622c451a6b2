#include "recording.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>
#include <variant>
#include <vector>

namespace gallery {

using namespace vela7;

namespace {

constexpr char kHead[] = "vela7 events 1";
constexpr std::size_t kMostRecorded = 100000;
constexpr int kMostLines = 200000;
constexpr std::size_t kLongestLine = 255;

using Fields = std::vector<std::int64_t>;
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

struct Range
{
    std::int64_t least, most;
};

constexpr Range kPlace{-32768, 32767}, kLength{0, 8192}, kBits{0, UINT32_MAX}, kByte{0, 255}, kFlag{0, 1},
    kPressed{mbLeft, mbRight}, kHeld{mbNone, mbRight}, kNone{mbNone, mbNone};

struct Row
{
    const char* name;
    std::vector<Range> fields;
    std::variant<MouseHook, WheelHook, KeyHook, PlaceHook, MenuHook, PlainHook, DirectionHook> hook;
};

// clang-format off
const Row kRows[] = {
    {"press",          {kPlace, kPlace, kBits, kPressed},  &CSysWindow::ProcessMousePress},
    {"release",        {kPlace, kPlace, kBits, kPressed},  &CSysWindow::ProcessMouseRelease},
    {"double-click",   {kPlace, kPlace, kBits, kPressed},  &CSysWindow::ProcessMouseDoubleClick},
    {"move",           {kPlace, kPlace, kBits, kHeld},     &CSysWindow::ProcessMouseMove},
    {"enter",          {kPlace, kPlace, kBits, kNone},     &CSysWindow::ProcessEnter},
    {"leave",          {kPlace, kPlace, kBits, kNone},     &CSysWindow::ProcessLeave},
    {"wheel",          {kPlace, kPlace, kBits, kNone, kPlace},&CSysWindow::ProcessWheel},
    {"key-press",      {kBits, kBits, kByte},              &CSysWindow::ProcessKeyPress},
    {"key-release",    {kBits, kBits, kByte},              &CSysWindow::ProcessKeyRelease},
    {"char",           {kBits, kBits, kByte},              &CSysWindow::ProcessChar},
    {"get-focus",      {},                                 &CSysWindow::ProcessGetFocus},
    {"release-focus",  {},                                 &CSysWindow::ProcessReleaseFocus},
    {"colors-changed", {},                                 &CSysWindow::ProcessSysColorChanged},
    {"moved",          {kPlace, kPlace},                   &CSysWindow::ProcessMove},
    {"resized",        {kLength, kLength},                 &CSysWindow::ProcessResize},
    {"context-menu",   {kPlace, kPlace},                   &CSysWindow::ProcessContextMenu},
    {"tab-traversal",  {kFlag},                            &CSysWindow::CircuitTabTraversal},
};
// clang-format on

const Row* Find(const std::string& name)
{
    for (const Row& row : kRows)
        if (name == row.name)
            return &row;
    return nullptr;
}

// The window is to be as it was when the record was made; it reports by itself what is done to it for that.
void ReplayLine(const Row& row, const Fields& fields, CSysWindow& window)
{
    const std::string name = row.name;
    const rectangle<int> now = window.GetWindowRect();
    const rectangle<int> client = window.GetClientRect();
    if (name == "get-focus" && !window.GetFocused())
        window.SetFocus();
    else if (name == "resized" && (client.Width() != fields[0] || client.Height() != fields[1]))
        window.SetWindowRect(now.left, now.top, now.left + int(fields[0]), now.top + int(fields[1]), false);
    else
        std::visit(Call{window, fields}, row.hook);
}

// For messages.
std::string Printable(std::string text)
{
    for (char& c : text)
        c = std::isprint(static_cast<unsigned char>(c)) ? c : '?';
    return text;
}

// Empty, or what is wrong.
std::string Parse(const std::string& line, const Row*& row, Fields& fields)
{
    std::istringstream words(line);
    std::string name;
    words >> name;
    row = Find(name);
    if (!row)
        return "unknown record '" + Printable(name) + "'";
    for (std::int64_t value; words >> value;)
        fields.push_back(value);
    if (!words.eof())
        return "a field is not a number";
    if (fields.size() != row->fields.size())
        return name + " has " + std::to_string(row->fields.size()) + " fields, not " +
               std::to_string(fields.size());
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const Range& range = row->fields[i];
        if (fields[i] < range.least || fields[i] > range.most)
            return std::to_string(fields[i]) + " is not in " + std::to_string(range.least) + ".." +
                   std::to_string(range.most);
    }
    return {};
}

// Empty, or what is wrong; at the end, nothing is, and the stream has failed.
std::string ReadLine(std::istream& in, std::string& line)
{
    char text[kLongestLine + 1];
    in.getline(text, sizeof text);
    const auto got = std::size_t(in.gcount());
    line.assign(text, in.fail() || in.eof() ? got : got - 1); // else the newline is among them
    return in.fail() && got > 0 ? "the line is too long" : "";
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

void Recorder::Add(const char* name, std::initializer_list<std::int64_t> fields)
{
    if (m_paused)
        return;
    std::string line = name;
    for (const std::int64_t field : fields)
        line += ' ' + std::to_string(field);
    m_lines.push_back(line);
    if (m_lines.size() <= kMostRecorded)
        return;
    if (m_lines.front().rfind("resized ", 0) == 0)
        m_size = m_lines.front() + '\n';
    m_lines.pop_front();
    ++m_dropped;
}

void Recorder::AddMouse(const char* name, const CMouseEvent& e)
{
    Add(name, {e.position.x, e.position.y, e.state, e.button});
}

void Recorder::AddKey(const char* name, const CKeyboardEvent& e)
{
    Add(name, {e.state, e.key, e.character});
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
    Add("wheel", {e->position.x, e->position.y, e->state, e->button, e->delta});
}

void Recorder::Save(std::ostream& out) const
{
    out << kHead << '\n';
    if (m_dropped > 0)
        out << "# " << m_dropped << " earlier records were dropped\n" << m_size;
    for (const std::string& line : m_lines)
        out << line << '\n';
}

// Beside it and then in its place.
bool Recorder::SaveAs(const std::string& path) const
{
    std::ostringstream out;
    Save(out);
    const std::string text = out.str();
    std::string beside = path + ".XXXXXX";
    const int file = mkstemp(beside.data());
    if (file < 0)
        return false;
    std::size_t written = 0;
    for (ssize_t more = 1; more > 0 && written < text.size();
         written += std::size_t(std::max<ssize_t>(more, 0)))
        more = write(file, text.data() + written, text.size() - written);
    const bool closed = close(file) == 0;
    if (closed && written == text.size() && std::rename(beside.c_str(), path.c_str()) == 0)
        return true;
    unlink(beside.c_str());
    return false;
}

std::string Replay(std::istream& recording, CSysWindow& window)
{
    const CLifeWatch alive = window.WatchLife();
    std::string line;
    if (!ReadLine(recording, line).empty() || line != kHead)
        return InLine(1, std::string("not a recording: it does not begin with '") + kHead + "'");
    for (int number = 2; alive.IsAlive(); ++number) {
        std::string wrong = ReadLine(recording, line);
        if (wrong.empty() && !recording)
            break;
        if (number > kMostLines)
            wrong = "the recording is too long";
        const Row* row = nullptr;
        Fields fields;
        if (wrong.empty() && !line.empty() && line[0] != '#')
            wrong = Parse(line, row, fields);
        if (!wrong.empty())
            return InLine(number, wrong);
        if (row)
            ReplayLine(*row, fields, window);
    }
    return {};
}

std::string ReplayFile(const std::string& path, CSysWindow& window)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return path + ": " + (error ? error.message() : "not an ordinary file");
    std::ifstream file(path);
    return file ? Replay(file, window) : path + ": cannot be read";
}

} // namespace gallery
