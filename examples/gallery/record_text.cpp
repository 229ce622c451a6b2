#include "record_text.h"

#include <cstdio>

namespace gallery {

using namespace vela7;

namespace {

struct Name
{
    std::uint32_t code;
    const char* text;
};

// clang-format off
constexpr Name kStates[] = {
    {msLeft, "left"}, {msRight, "right"}, {msMiddle, "middle"},
    {ksShift, "Shift"}, {ksControl, "Control"}, {ksAlt, "Alt"},
};

constexpr Name kButtons[] = {{mbNone, "none"}, {mbLeft, "left"}, {mbMiddle, "middle"}, {mbRight, "right"}};

constexpr Name kKeys[] = {
    {kcBack, "Back"},         {kcTab, "Tab"},           {kcReturn, "Return"},       {kcShift, "Shift"},
    {kcControl, "Control"},   {kcAlt, "Alt"},           {kcPause, "Pause"},         {kcCapital, "Caps Lock"},
    {kcEscape, "Escape"},     {' ', "Space"},           {kcPageUp, "Page Up"},      {kcPageDown, "Page Down"},
    {kcEnd, "End"},           {kcHome, "Home"},         {kcLeft, "Left"},           {kcUp, "Up"},
    {kcRight, "Right"},       {kcDown, "Down"},         {kcPrint, "Print"},         {kcInsert, "Insert"},
    {kcDelete, "Delete"},     {kcMultiply, "Num *"},    {kcAdd, "Num +"},           {kcSeparator, "Num ,"},
    {kcSubtract, "Num -"},    {kcDecimal, "Num ."},     {kcNumLock, "Num Lock"},    {kcScroll, "Scroll Lock"},
};
// clang-format on

std::string WithName(std::uint32_t code, const std::string& name)
{
    return name.empty() ? std::to_string(code) : std::to_string(code) + " " + name;
}

template <std::size_t N>
std::string Find(const Name (&names)[N], std::uint32_t code)
{
    for (const Name& n : names)
        if (n.code == code)
            return n.text;
    return {};
}

std::string State(std::uint32_t state)
{
    char digits[16];
    std::snprintf(digits, sizeof digits, "0x%03x", unsigned(state));
    std::string text = digits;
    for (const Name& n : kStates)
        if (state & n.code)
            text += std::string(" ") + n.text;
    return text;
}

std::string Key(std::uint32_t key)
{
    if ((key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9'))
        return WithName(key, std::string(1, char(key)));
    if (key >= kcNumpad0 && key <= kcNumpad9)
        return WithName(key, "Num " + std::to_string(key - kcNumpad0));
    if (key >= kcF1 && key <= kcF12)
        return WithName(key, "F" + std::to_string(key - kcF1 + 1));
    return WithName(key, Find(kKeys, key));
}

std::string Character(unsigned char c)
{
    return WithName(c, c > ' ' && c < 127 ? std::string("'") + char(c) + "'" : std::string());
}

std::string Pair(int x, int y)
{
    return std::to_string(x) + ", " + std::to_string(y);
}

std::string YesNo(bool value)
{
    return value ? "yes" : "no";
}

} // namespace

Fields DescribeHead(const CEvent& event, const IEventSender& window)
{
    const char* const sender = event.sender == &window ? "window" : event.sender ? "another" : "null";
    return {{"sender", sender}, {"passOn", YesNo(event.passOn)}};
}

Fields Describe(const CEvent&)
{
    return {};
}

Fields Describe(const CMouseEvent& event)
{
    return {{"position", Pair(event.position.x, event.position.y)},
            {"state", State(event.state)},
            {"button", WithName(event.button, Find(kButtons, event.button))}};
}

Fields Describe(const CMouseWheelEvent& event)
{
    Fields fields = Describe(static_cast<const CMouseEvent&>(event));
    fields.push_back({"delta", std::to_string(event.delta)});
    return fields;
}

Fields Describe(const CKeyboardEvent& event)
{
    // Only presses and releases have toolkit key codes.
    return {{"key", event.character ? std::to_string(event.key) : Key(event.key)},
            {"state", State(event.state)},
            {"character", Character(event.character)},
            {"allowNavigation", YesNo(event.allowNavigation)}};
}

Fields Describe(const CWindowEvent& event)
{
    return {{"x, y", Pair(event.x, event.y)}};
}

Fields Describe(const CContextMenuEvent& event)
{
    return {{"position", Pair(event.position.x, event.position.y)}};
}

} // namespace gallery
