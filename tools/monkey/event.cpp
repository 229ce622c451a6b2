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
    /// The same, from the first few rows that another chance draws.
    template <class Row, std::size_t n>
    const Row& FromSome(int few, Chance habit, const Row (&rows)[n])
    {
        for (int skipped = Below(few); skipped > 0; --skipped)
            habit.From(rows);
        return habit.From(rows);
    }

private:
    std::uint64_t m_state;
};

// So many events in a row have the same few habits: orders of three steps come up soon, where each by itself
// is rare. They begin with the window's own size and place, and with the focus.
constexpr std::uint64_t kHabitual = 50;

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
    {Strip::all,    85, ""},
    {Strip::top,     5, " top"},
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
constexpr unsigned kAny = 8, kShift = 1, kControl = 2, kAlt = 4; // kAny: by the table above
const struct { const char* name; unsigned modifiers; int weight; } kKeys[] = {
    {"Tab", 0, 5}, {"Tab", kShift, 4}, {"Tab", kControl, 2}, {"Next", kControl, 2}, {"Prior", kControl, 2},
    {"F2", 0, 12}, {"Return", 0, 4}, {"Escape", 0, 4}, {"space", 0, 3}, {"Menu", 0, 4}, {"F10", kShift, 2},
    {"Down", kAlt, 12}, {"Up", kAlt, 2}, {"Down", 0, 4}, {"Down", kShift, 2},
    {"Left", kAny, 3}, {"Right", kAny, 3}, {"Up", kAny, 3}, {"Down", kAny, 3}, {"Home", kAny, 2}, {"End", kAny, 2},
    {"Prior", kAny, 2}, {"Next", kAny, 2}, {"BackSpace", kAny, 2}, {"Delete", kAny, 3}, {"Insert", kAny, 2},
    {"Tab", kAny, 2}, {"Return", kAny, 2}, {"Escape", kAny, 2}, {"space", kAny, 2}, {"Menu", kAny, 1},
    {"KP_Enter", kAny, 1}, {"KP_Add", kAny, 1}, {"KP_Home", kAny, 1}, {"Pause", kAny, 1},
    {"F1", kAny, 1}, {"F2", kAny, 1}, {"F3", kAny, 2}, {"F4", kAny, 2}, {"F5", kAny, 1}, {"F6", kAny, 1},
    {"F7", kAny, 1}, {"F8", kAny, 1}, {"F9", kAny, 1}, {"F10", kAny, 1}, {"F11", kAny, 1}, {"F12", kAny, 1},
    {"Super_L", kAny, 1}, {"Shift_L", kAny, 1}, {"slash", kAny, 1}, {"minus", kAny, 1},
    {"a", kControl, 3}, {"c", kControl, 3}, {"v", kControl, 3}, {"x", kControl, 2}, {"z", kControl, 1},
    {"a", kAny, 1}, {"b", kAny, 1}, {"m", kAny, 1},
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

Chance ChanceOf(std::uint64_t seed, std::uint64_t number)
{
    return Chance(Chance(seed).Bits() ^ Chance(~number).Bits());
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
    Chance chance = ChanceOf(seed, number);
    const auto habits = [&] { return ChanceOf(~seed, number / kHabitual); };
    const bool free = chance.Below(8) == 0;
    Event event{};
    event.deed = free ? chance.From(kDeeds).value : chance.FromSome(6, habits(), kDeeds).value;
    event.key = int(&(free ? chance.From(kKeys) : chance.FromSome(4, habits(), kKeys)) - kKeys);
    event.place = PlaceBy(chance);
    if (const int again = chance.Below(12); again < 4) {
        Chance habit = habits();
        for (int i = 0; i <= again; ++i)
            event.place = PlaceBy(habit);
    }
    event.end = PlaceBy(chance);
    event.button = event.deed == Deed::wheel ? chance.From(kWheels).value : chance.From(kButtons).value;
    event.modifiers = chance.From(kModifiers).value;
    if (event.deed == Deed::key && kKeys[event.key].modifiers != kAny)
        event.modifiers = kKeys[event.key].modifiers;
    const auto& rest = chance.From(kRests);
    event.count = event.deed == Deed::rest ? chance.Between(rest.least, rest.most) : chance.Between(1, 8);
    const auto& size = chance.From(kSizes);
    event.width = size.wide > 0 ? chance.Between(1, size.wide) : 0;
    event.height = size.high > 0 ? chance.Between(1, size.high) : 0;
    event.wait = chance.Below(2) > 0;
    event.bits = chance.Bits();
    if (number % kHabitual == 0) {
        event.deed = Deed::resize;
        event.width = event.height = 0;
    } else if (number % kHabitual == 1)
        event.deed = Deed::comeBack;
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
