#include "monkey/event.h"

#include <iterator>
#include <sstream>

namespace vela7::monkey {
namespace {

class Chance
{
public:
    explicit Chance(std::uint64_t state) : m_state(state) {}

    std::uint64_t Bits() // splitmix64
    {
        std::uint64_t z = m_state += 0x9E3779B97F4A7C15U;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
        return z ^ (z >> 31);
    }
    int Below(int n) { return int(Bits() % std::uint64_t(n)); }
    int Between(int first, int last) { return first + Below(last - first + 1); }

    /// A row of a table with weights.
    template <class Row, std::size_t n>
    const Row& From(const Row (&rows)[n])
    {
        int sum = 0;
        for (const Row& row : rows)
            sum += row.weight;
        int rest = Below(sum);
        const Row* row = rows;
        for (; rest >= row->weight; ++row)
            rest -= row->weight;
        return *row;
    }

private:
    std::uint64_t m_state;
};

// clang-format off
const struct { Deed value; int weight; const char* name; } kDeeds[] = {
    {Deed::move,        20, "move to"},
    {Deed::nudge,       12, "nudge"},
    {Deed::press,        4, "press"},
    {Deed::release,      5, "release"},
    {Deed::click,       18, "click"},
    {Deed::doubleClick,  4, "double click"},
    {Deed::drag,         4, "drag"},
    {Deed::wheel,        8, "wheel"},
    {Deed::key,         30, "key"},
    {Deed::type,         4, "type"},
    {Deed::resize,       2, "resize"},
    {Deed::place,        1, "place at"},
    {Deed::leave,        1, "leave"},
    {Deed::comeBack,     2, "come back"},
    {Deed::iconify,      1, "iconify"},
    {Deed::rest,         2, "rest"},
};
const struct { Target value; int weight; const char* name; } kTargets[] = {
    {Target::window,  60, "window"},
    {Target::newest,  36, "newest"},
    {Target::nowhere,  4, "nowhere"},
};
const struct { Strip value; int weight; const char* name; } kStrips[] = {
    {Strip::all,    80, ""},
    {Strip::top,    10, " top"},
    {Strip::right,   5, " right"},
    {Strip::bottom,  5, " bottom"},
};
const struct { int value; int weight; } kButtons[] = {{1, 6}, {3, 3}, {2, 1}}, kWheels[] = {{4, 4}, {5, 4}, {6, 1}, {7, 1}};
const struct { unsigned value; int weight; } kModifiers[] = {
    {0, 60}, {1, 12}, {2, 12}, {4, 10}, {1 | 2, 4}, {1 | 4, 1}, {2 | 4, 1},
};
const struct { int wide, high; int weight; } kSizes[] = { // up to
    {0, 0, 5}, {1200, 900, 3}, {3000, 2000, 1}, {60, 60, 1}, {1200, 60, 1}, {60, 900, 1},
};
const struct { int least, most; int weight; } kRests[] = {{1, 30, 16}, {30, 200, 3}, {500, 900, 1}}; // ms
const struct { const char* name; int weight; } kKeys[] = {
    {"Tab", 10}, {"Escape", 6}, {"Return", 5}, {"space", 5}, {"Menu", 4},
    {"Left", 4}, {"Right", 4}, {"Up", 4}, {"Down", 8}, {"Home", 2}, {"End", 2}, {"Prior", 2}, {"Next", 2},
    {"BackSpace", 2}, {"Delete", 3}, {"Insert", 2}, {"KP_Enter", 1}, {"KP_Add", 1}, {"KP_Home", 1},
    {"F1", 1}, {"F2", 8}, {"F3", 2}, {"F4", 2}, {"F5", 1}, {"F6", 1}, {"F7", 1}, {"F8", 1}, {"F9", 1},
    {"F10", 3}, {"F11", 1}, {"F12", 1}, {"Pause", 1}, {"Num_Lock", 1}, {"Super_L", 1}, {"Shift_L", 1},
    {"a", 3}, {"b", 1}, {"c", 3}, {"m", 1}, {"v", 3}, {"x", 2}, {"z", 2}, {"slash", 1}, {"minus", 1},
};
// clang-format on

template <class Row, std::size_t n, class Value>
const char* NameOf(const Row (&rows)[n], Value value)
{
    for (const Row& row : rows)
        if (row.value == value)
            return row.name;
    return "?";
}

Place PlaceBy(Chance& chance)
{
    const Target target = chance.From(kTargets).value;
    const Strip strip = chance.From(kStrips).value;
    const int x = chance.Below(1000);
    return {target, strip, x, chance.Below(1000)};
}

std::string Describe(const Place& place)
{
    std::ostringstream out;
    out << NameOf(kTargets, place.target) << NameOf(kStrips, place.strip) << ' ' << place.x << '/' << place.y;
    return out.str();
}

} // namespace

Event EventAt(std::uint64_t seed, std::uint64_t number)
{
    Chance chance(Chance(seed).Bits() ^ Chance(~number).Bits());
    Event event{};
    event.deed = chance.From(kDeeds).value;
    event.place = PlaceBy(chance);
    event.end = PlaceBy(chance);
    event.button = event.deed == Deed::wheel ? chance.From(kWheels).value : chance.From(kButtons).value;
    event.modifiers = chance.From(kModifiers).value;
    event.key = int(&chance.From(kKeys) - kKeys);
    event.count = chance.Between(1, 8);
    if (event.deed == Deed::rest) {
        const auto& rest = chance.From(kRests);
        event.count = chance.Between(rest.least, rest.most);
    }
    const auto& size = chance.From(kSizes);
    event.width = size.wide > 0 ? chance.Between(1, size.wide) : 0;
    event.height = size.high > 0 ? chance.Between(1, size.high) : 0;
    event.wait = chance.Below(3) > 0;
    event.bits = chance.Bits();
    return event;
}

const char* KeyName(const Event& event)
{
    return kKeys[event.key].name;
}

std::string Describe(const Event& event)
{
    std::ostringstream out;
    const Deed deed = event.deed;
    out << NameOf(kDeeds, deed) << ' ';
    const char* const modifiers[] = {"Shift+", "Control+", "Alt+"};
    const bool pressed = deed == Deed::click || deed == Deed::doubleClick || deed == Deed::drag ||
                         deed == Deed::press || deed == Deed::wheel;
    for (std::size_t i = 0; i < std::size(modifiers); ++i)
        if ((deed == Deed::key || pressed) && (event.modifiers >> i & 1))
            out << modifiers[i];
    if (deed == Deed::key)
        out << KeyName(event);
    if (pressed)
        out << event.button << ' ';
    if (pressed || deed == Deed::move)
        out << Describe(event.place);
    if (deed == Deed::drag)
        out << " to " << Describe(event.end);
    if (deed == Deed::wheel || deed == Deed::type || deed == Deed::rest)
        out << " (" << event.count << ')';
    if (deed == Deed::resize || deed == Deed::place)
        out << event.width << ' ' << event.height;
    return out.str();
}

} // namespace vela7::monkey
