#include "monkey/hands.h"

#include "support/x11.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <algorithm>
#include <chrono>
#include <iterator>
#include <poll.h>
#include <set>
#include <stdexcept>
#include <thread>
#include <vector>

namespace vela7::monkey {
namespace {

constexpr KeySym kModifierKeys[] = {XK_Shift_L, XK_Control_L, XK_Alt_L};
constexpr char kLetters[] = "etaoinshrdlu0123456789 .,-;";
constexpr int kStripWidth = 40;
constexpr XRectangle kNeighbour{1180, 950, 90, 60};

struct Area
{
    int x, y, width, height;
};

} // namespace

struct Hands::Inside
{
    Display* display = XOpenDisplay(nullptr);
    Window root = None, neighbour = None, main = None;
    Area first{};               // as the program showed its main window
    std::vector<Window> others; // the program's, the newest last
    bool changed = true;        // windows came or went
    std::set<int> buttons;
    long pings = 0, pongs = 0;

    Atom Name(const char* name) { return XInternAtom(display, name, False); }
    void ReadEvents();
    std::vector<Window> Clients();
    void LookAround();
    bool Locate(Window window, Area& area);
    Area AreaOf(const Place& place);
    void Tell(Window window, const char* type, long first, long second, long third, bool ask);
    void Activate(Window window) { Tell(window, "_NET_ACTIVE_WINDOW", 2, CurrentTime, 0, true); }

    void MoveTo(const Place& place);
    void Button(int number, bool down);
    void LetGo();
    void Key(KeySym symbol, bool down);
    void Tap(KeySym symbol);
    void Click(int button, int times);
    void Drag(const Event& event);
    void Type(const Event& event);
    void Resize(const Event& event);
    void Hold(unsigned modifiers, bool down);
    void Press(const Event& event);
    void LeaveOrReturn(const Event& event);
};

// What comes to the root: pongs, and windows that come and go.
void Hands::Inside::ReadEvents()
{
    XEvent event;
    while (XPending(display)) {
        XNextEvent(display, &event);
        if (event.type != ClientMessage)
            changed = true;
        else if (event.xclient.message_type == Name("_MONKEY_PING")) // the witness's answer
            pongs = std::max(pongs, event.xclient.data.l[0]);
    }
}

std::vector<Window> Hands::Inside::Clients()
{
    Atom type;
    int format;
    unsigned long count = 0, rest;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, root, Name("_NET_CLIENT_LIST"), 0, 1000, False, XA_WINDOW, &type, &format,
                       &count, &rest, &data);
    const auto* const windows = reinterpret_cast<Window*>(data);
    std::vector<Window> clients(windows, windows + count);
    if (data)
        XFree(data);
    clients.erase(std::remove(clients.begin(), clients.end(), neighbour), clients.end());
    return clients;
}

// Dialogs are among the manager's clients. Popups, menus and tips are children of the root, and tell whose
// they are by the part of their number that the server gives to each client.
void Hands::Inside::LookAround()
{
    ReadEvents();
    if (!changed)
        return;
    changed = false;
    others = Clients();
    others.erase(std::remove(others.begin(), others.end(), main), others.end());
    constexpr Window owner = ~Window(0x1FFFFF);
    Window unused, *children = nullptr;
    unsigned count = 0;
    XQueryTree(display, root, &unused, &unused, &children, &count);
    for (unsigned i = 0; i < count; ++i) {
        XWindowAttributes attributes{};
        if ((children[i] & owner) == (main & owner) &&
            XGetWindowAttributes(display, children[i], &attributes) && attributes.map_state == IsViewable)
            others.push_back(children[i]);
    }
    if (children)
        XFree(children);
}

bool Hands::Inside::Locate(Window window, Area& area)
{
    Window unused;
    unsigned width = 0, height = 0, border, depth;
    int x = 0, y = 0;
    if (window == None || !XGetGeometry(display, window, &unused, &x, &y, &width, &height, &border, &depth) ||
        !XTranslateCoordinates(display, window, root, 0, 0, &x, &y, &unused))
        return false;
    area = {x, y, int(width), int(height)};
    return true;
}

Area Hands::Inside::AreaOf(const Place& place)
{
    Area area{};
    LookAround();
    const bool newest = place.target == Target::newest && !others.empty();
    if (place.target == Target::nowhere || !Locate(newest ? others.back() : main, area))
        area = {0, 0, DisplayWidth(display, 0), DisplayHeight(display, 0)};
    const Area whole = area;
    if (place.strip == Strip::top || place.strip == Strip::bottom)
        area.height = std::min(area.height, kStripWidth);
    if (place.strip == Strip::bottom)
        area.y += whole.height - area.height;
    if (place.strip == Strip::right) {
        area.width = std::min(area.width, kStripWidth);
        area.x += whole.width - area.width;
    }
    return area;
}

// To a window's own client, or as a request about it to the window manager.
void Hands::Inside::Tell(Window window, const char* type, long first, long second, long third, bool ask)
{
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = Name(type);
    event.xclient.format = 32;
    event.xclient.data.l[0] = first;
    event.xclient.data.l[1] = second;
    event.xclient.data.l[2] = third;
    XSendEvent(display, ask ? root : window, False,
               ask ? SubstructureRedirectMask | SubstructureNotifyMask : 0, &event);
}

void Hands::Inside::MoveTo(const Place& place)
{
    const Area area = AreaOf(place);
    XTestFakeMotionEvent(display, -1, area.x + place.x * area.width / 1000,
                         area.y + place.y * area.height / 1000, CurrentTime);
}

// A window manager may stop the pointer at a press until it has looked at it, and what follows meanwhile the
// server hands on with the pointer's later position: a press outside the window it goes to, which GDK takes
// for its own fault.
void Hands::Inside::Button(int number, bool down)
{
    down ? void(buttons.insert(number)) : void(buttons.erase(number));
    XTestFakeButtonEvent(display, unsigned(number), down, CurrentTime);
    if (down) {
        XSync(display, False);
        test::x11::SyncWithWindowManager();
    }
}

void Hands::Inside::LetGo()
{
    while (!buttons.empty())
        Button(*buttons.begin(), false);
}

void Hands::Inside::Key(KeySym symbol, bool down)
{
    const KeyCode code = XKeysymToKeycode(display, symbol);
    if (code == 0)
        return;
    XTestFakeKeyEvent(display, code, down, CurrentTime);
}

void Hands::Inside::Tap(KeySym symbol)
{
    Key(symbol, true);
    Key(symbol, false);
}

void Hands::Inside::Click(int button, int times)
{
    for (int i = 0; i < times; ++i) {
        Button(button, true);
        Button(button, false);
    }
}

void Hands::Inside::Drag(const Event& event)
{
    Button(event.button, true);
    Place place = event.place;
    for (int step = 1; step <= event.count; ++step) {
        place.x = event.place.x + (event.end.x - event.place.x) * step / event.count;
        place.y = event.place.y + (event.end.y - event.place.y) * step / event.count;
        MoveTo(place);
    }
    MoveTo(event.end);
    Button(event.button, false);
}

void Hands::Inside::Type(const Event& event)
{
    std::uint64_t bits = event.bits;
    for (int i = 0; i < event.count; ++i, bits >>= 8)
        Tap(KeySym(kLetters[bits % (sizeof kLetters - 1)])); // Latin 1 is its own symbol
}

void Hands::Inside::Resize(const Event& event)
{
    XResizeWindow(display, main, unsigned(event.width > 0 ? event.width : first.width),
                  unsigned(event.height > 0 ? event.height : first.height));
    if (event.width == 0)
        XMoveWindow(display, main, first.x, first.y);
}

void Hands::Inside::Hold(unsigned modifiers, bool down)
{
    for (std::size_t i = 0; i < std::size(kModifierKeys); ++i)
        if (modifiers >> i & 1)
            Key(kModifierKeys[i], down);
}

void Hands::Inside::Press(const Event& event)
{
    // A notch grabs the pointer as any button does, until all are up, but GDK does not know: with a button
    // held that was pressed elsewhere, a press outside the program's windows is then GDK's own critical.
    if (event.deed == Deed::wheel)
        LetGo();
    MoveTo(event.place);
    Hold(event.modifiers, true);
    if (event.deed == Deed::drag)
        Drag(event);
    else if (event.deed == Deed::press)
        Button(event.button, true);
    else
        Click(event.button, event.deed == Deed::wheel         ? event.count
                            : event.deed == Deed::doubleClick ? 2
                                                              : 1);
    Hold(event.modifiers, false);
}

void Hands::Inside::LeaveOrReturn(const Event& event)
{
    if (event.deed == Deed::iconify)
        XIconifyWindow(display, main, 0);
    Activate(event.deed == Deed::leave ? neighbour : main);
}

Hands::Hands() : m(std::make_unique<Inside>())
{
    if (!m->display)
        throw std::runtime_error("there is no display");
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; }); // the program's windows may go at any time
    m->root = DefaultRootWindow(m->display);
    XSelectInput(m->display, m->root, SubstructureNotifyMask);
    m->neighbour = XCreateSimpleWindow(m->display, m->root, kNeighbour.x, kNeighbour.y, kNeighbour.width,
                                       kNeighbour.height, 0, 0, 0);
    Atom closing = m->Name("WM_DELETE_WINDOW"); // else the window manager's Alt+F4 would cut the monkey off
    XSetWMProtocols(m->display, m->neighbour, &closing, 1);
    XMapWindow(m->display, m->neighbour);
}

Hands::~Hands()
{
    if (m->display)
        XCloseDisplay(m->display);
}

void Hands::BeginAnew()
{
    m->LetGo();
    XTestFakeMotionEvent(m->display, -1, 1, 1, CurrentTime);
    m->main = None;
    for (int i = 0; i < 500 && !m->Clients().empty(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

bool Hands::FindProgram()
{
    const std::vector<Window> clients = m->Clients();
    if (clients.empty())
        return false;
    m->main = clients.front();
    m->changed = true;
    return m->Locate(m->main, m->first);
}

void Hands::Perform(const Event& event)
{
    switch (event.deed) {
    case Deed::nudge:
        XTestFakeRelativeMotionEvent(m->display, event.place.x % 17 - 8, event.place.y % 17 - 8, CurrentTime);
        break;
    case Deed::move:
        m->MoveTo(event.place);
        break;
    case Deed::release:
        m->LetGo();
        break;
    case Deed::key:
        m->Hold(event.modifiers, true);
        m->Tap(XStringToKeysym(KeyName(event)));
        m->Hold(event.modifiers, false);
        break;
    case Deed::type:
        m->Type(event);
        break;
    case Deed::resize:
        m->Resize(event);
        break;
    case Deed::place:
        XMoveWindow(m->display, m->main, event.width % DisplayWidth(m->display, 0),
                    event.height % DisplayHeight(m->display, 0));
        break;
    case Deed::leave:
    case Deed::comeBack:
    case Deed::iconify:
        m->LeaveOrReturn(event);
        break;
    case Deed::rest:
        XSync(m->display, False);
        std::this_thread::sleep_for(std::chrono::milliseconds(event.count));
        break;
    default:
        m->Press(event);
    }
    XFlush(m->display);
}

void Hands::AskToClose()
{
    m->LetGo();
    m->Tap(XK_Escape); // what is open above the window
    for (const Window window : m->Clients())
        m->Tell(window, "WM_PROTOCOLS", long(m->Name("WM_DELETE_WINDOW")), CurrentTime, 0, false);
    XFlush(m->display);
}

Hands::Answer Hands::WaitForProgram(int milliseconds, const std::function<bool()>& interrupted)
{
    using Clock = std::chrono::steady_clock;
    const auto limit = Clock::now() + std::chrono::milliseconds(milliseconds);
    XSync(m->display, False);
    test::x11::SyncWithWindowManager();
    m->Tell(m->main, "_MONKEY_PING", ++m->pings, 0, 0, false);
    XFlush(m->display);
    pollfd connection{ConnectionNumber(m->display), POLLIN, 0};
    while (m->ReadEvents(), m->pongs < m->pings) {
        if (interrupted())
            return Answer::interrupted;
        if (Clock::now() > limit)
            return Answer::none;
        poll(&connection, 1, 20);
    }
    return Answer::came;
}

} // namespace vela7::monkey
