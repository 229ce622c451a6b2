// Alone in its file: the X11 headers define None, Bool, Status and Success as macros.
#include "support/x11.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <poll.h>

namespace vela7::test::x11 {
namespace {

// Milliseconds. wx drops an event that equals the last one of its kind in everything, the time included.
constexpr unsigned long stepDelay = 2;

Display* Server()
{
    static Display* const display = XOpenDisplay(nullptr);
    return display;
}

Window Root()
{
    return DefaultRootWindow(Server());
}
Atom Name(const char* name)
{
    return XInternAtom(Server(), name, False);
}

Window CreateProbe()
{
    const Window probe = XCreateSimpleWindow(Server(), Root(), 0, 0, 1, 1, 0, 0, 0);
    XSelectInput(Server(), probe, PropertyChangeMask);
    return probe;
}

// Pixels of the screen to one of GTK's.
int Factor()
{
    const char* const factor = std::getenv("GDK_SCALE");
    return factor ? std::atoi(factor) : 1;
}

} // namespace

void MovePointer(int x, int y)
{
    XTestFakeMotionEvent(Server(), -1, x * Factor(), y * Factor(), stepDelay);
    XSync(Server(), False);
}

void Button(int number, bool down)
{
    XTestFakeButtonEvent(Server(), static_cast<unsigned>(number), down, stepDelay);
    XSync(Server(), False);
}

bool Key(unsigned long keysym, bool down)
{
    const KeyCode code = XKeysymToKeycode(Server(), keysym);
    if (code == 0)
        return false;
    XTestFakeKeyEvent(Server(), code, down, stepDelay);
    XSync(Server(), False);
    return true;
}

bool SyncWithWindowManager()
{
    using Clock = std::chrono::steady_clock;
    // Any request that a manager answers would do; this one is answered for windows that are never shown, by
    // one property among others.
    static const Window probe = CreateProbe();
    static const Atom answer = Name("_NET_FRAME_EXTENTS");
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = probe;
    event.xclient.message_type = Name("_NET_REQUEST_FRAME_EXTENTS");
    event.xclient.format = 32;
    XSendEvent(Server(), Root(), False, SubstructureRedirectMask | SubstructureNotifyMask, &event);
    XFlush(Server());
    const auto limit = Clock::now() + std::chrono::seconds(5);
    pollfd connection{ConnectionNumber(Server()), POLLIN, 0};
    while (Clock::now() < limit) {
        while (XCheckTypedWindowEvent(Server(), probe, PropertyNotify, &event))
            if (event.xproperty.atom == answer)
                return true;
        poll(&connection, 1, 100);
    }
    return false;
}

std::vector<std::uint32_t> ReadScreen(int x, int y, int width, int height, int fractionX, int fractionY)
{
    const int screen = DefaultScreen(Server()), factor = Factor();
    const int left = x * factor + fractionX, top = y * factor + fractionY;
    if (left < 0 || top < 0 || width <= 0 || height <= 0 ||
        left + width * factor > DisplayWidth(Server(), screen) ||
        top + height * factor > DisplayHeight(Server(), screen))
        return {};
    const auto freeImage = [](XImage* image) { XDestroyImage(image); };
    const std::unique_ptr<XImage, decltype(freeImage)> image(
        XGetImage(Server(), Root(), left, top, static_cast<unsigned>(width * factor),
                  static_cast<unsigned>(height * factor), AllPlanes, ZPixmap),
        freeImage);
    std::vector<std::uint32_t> pixels;
    pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (int row = 0; image && row < height; ++row)
        for (int column = 0; column < width; ++column)
            pixels.push_back(
                static_cast<std::uint32_t>(XGetPixel(image.get(), column * factor, row * factor) & 0xFFFFFF));
    return pixels;
}

} // namespace vela7::test::x11
