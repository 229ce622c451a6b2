// What the monkey does. Event number n of a seed is a function of both and of nothing else, and its places
// are shares of a window's size: any stretch of a run can be repeated without what was before it.
#pragma once

#include <cstdint>
#include <string>

namespace vela7::monkey {

enum class Deed
{
    move,
    nudge, // a few pixels on from where the pointer is
    press, // and hold until the next release
    release,
    click,
    doubleClick,
    drag,
    wheel,
    key,
    type,
    resize,
    place, // the window elsewhere on the screen
    leave, // the focus goes to another program's window
    comeBack,
    iconify,
    rest,
};

enum class Target
{
    window,  // the program's main window
    newest,  // what it opened last: a popup, a menu, a dialog
    nowhere, // the bare screen
};

enum class Strip // of the target
{
    all,
    top,
    right,
    bottom,
};

struct Place
{
    Target target;
    Strip strip;
    int x, y; // 0 to 999, shares of the strip
};

struct Event
{
    Deed deed;
    Place place, end;   // the end of a drag
    int button;         // 1 to 3; of a wheel 4 to 7
    int count;          // notches, typed letters, milliseconds of a rest
    unsigned modifiers; // bits: Shift, Control, Alt
    int key;            // an index, see KeySymbol
    int width, height;  // pixels, or where the window goes; 0 for the size it began with
    bool wait;          // for the program, before the next event
    std::uint64_t bits; // for what is left to chance: the letters
};

Event EventAt(std::uint64_t seed, std::uint64_t number);
std::string Describe(const Event& event);
const char* KeyName(const Event& event); // as X names it

} // namespace vela7::monkey
