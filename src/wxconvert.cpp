#include "vela7/wxconvert.h"

#include "gtkport.h"
#include "textdecode.h"

#include <wx/event.h>
#include <wx/settings.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace vela7 {

// ---- text

// ASCII is the same in every locale and needs no conversion; most of the toolkit's texts are.
wxString DecodeText(const char* text, std::size_t length)
{
    const char* const end = text + length;
    if (std::any_of(text, end, [](char c) { return (c & 0x80) != 0; })) {
        const wxString decoded(text, wxConvLibc, length);
        // The C library reads numbers beyond the last character, wx raises assertions when it draws them.
        const auto none = [](const wxUniChar& c) { return c.GetValue() > 0x10ffff; };
        return std::any_of(decoded.begin(), decoded.end(), none) ? wxString() : decoded;
    }
    const std::wstring wide(text, end);
    return wxString(wide.data(), wide.size());
}

wxString vela2wx(const std::string& text)
{
    return DecodeText(text.data(), text.size());
}

std::string wx2vela(const wxString& text)
{
    // Kept by contract: text narrows to ASCII, as the toolkit's own texts are; other characters become '_'.
    return std::string(text.ToAscii());
}

// ---- colours

wxColour vela2wx(const _color& color)
{
    return wxColour(color.red, color.green, color.blue, color.alpha);
}

_color wx2vela(const wxColour& color)
{
    if (!color.IsOk())
        return {};
    return _color(color.Red(), color.Green(), color.Blue(), color.Alpha());
}

// ---- fonts

namespace {

struct FamilyRow
{
    int family;
    wxFontFamily wx;
};

// clang-format off
constexpr FamilyRow families[] = {
    {ffSwiss,      wxFONTFAMILY_SWISS},
    {ffRoman,      wxFONTFAMILY_ROMAN},
    {ffModern,     wxFONTFAMILY_MODERN},
    {ffDecorative, wxFONTFAMILY_DECORATIVE},
};
// clang-format on

// Everything else is the default family, so script and teletype do not survive a round trip.
wxFontFamily ToWxFamily(int family)
{
    for (const FamilyRow& row : families)
        if (row.family == family)
            return row.wx;
    return wxFONTFAMILY_DEFAULT;
}

int ToFamily(int wx)
{
    for (const FamilyRow& row : families)
        if (row.wx == wx)
            return row.family;
    return ffDefault;
}

} // namespace

constexpr double largestFont = 2048; // points; the X server keeps each letter as a picture

wxFont vela2wx(const font& value)
{
    const int points =
        value.size < 1 ? wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetPointSize() : value.size;
    // Larger and negative fonts cannot be made; what is no number is as good as none.
    const double scaled = std::isnan(value.scale) ? 0.0 : points * value.scale;
    wxFont result;
    result.Create(static_cast<int>(std::clamp(scaled, 0.0, largestFont)), ToWxFamily(value.family),
                  (value.style & fsItalic) ? wxFONTSTYLE_ITALIC : wxFONTSTYLE_NORMAL,
                  (value.style & fsBold) ? wxFONTWEIGHT_BOLD : wxFONTWEIGHT_NORMAL,
                  (value.style & fsUnderline) != 0, vela2wx(value.face), wxFONTENCODING_DEFAULT);
    return result;
}

font wx2vela(const wxFont& value)
{
    font result;
    if (!value.IsOk())
        return result;
    result.face = wx2vela(value.GetFaceName());
    result.family = ToFamily(value.GetFamily());
    result.size = value.GetPointSize();
    if (value.GetWeight() == wxFONTWEIGHT_BOLD)
        result.style |= fsBold;
    if (value.GetStyle() == wxFONTSTYLE_ITALIC)
        result.style |= fsItalic;
    if (value.GetUnderlined())
        result.style |= fsUnderline;
    return result;
}

// ---- rectangles

namespace {

// At the border of int where it does not fit.
int Fit(long long value)
{
    using limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<long long>(value, limits::min(), limits::max()));
}

// The length from a to b.
int Extent(int a, int b)
{
    return Fit(0LL + b - a);
}

} // namespace

wxRect vela2wx(const rectangle<int>& rect)
{
    return wxRect(rect.left, rect.top, Extent(rect.left, rect.right), Extent(rect.top, rect.bottom));
}

wxRect vela2wx(const screen_rectangle<int>& rect)
{
    return vela2wx(static_cast<rectangle<int>>(rect));
}

rectangle<int> wx2vela(const wxRect& rect)
{
    // Kept by contract: right and bottom become inclusive, though the other direction takes them as
    // exclusive; toolkit code expects the pair.
    rectangle<int> result;
    result.left = rect.x;
    result.top = rect.y;
    result.right = Fit(0LL + rect.x + rect.width - 1);
    result.bottom = Fit(0LL + rect.y + rect.height - 1);
    return result;
}

// ---- keys

namespace {

struct KeyRow
{
    int first; // a range of wx codes ...
    int last;
    int key; // ... and the key code of its first
};

// clang-format off
constexpr KeyRow keys[] = {
    {'A',                 'Z',                 'A'},
    {'0',                 '9',                 '0'},
    {WXK_F1,              WXK_F12,             kcF1},
    // the main block
    {WXK_ESCAPE,          WXK_ESCAPE,          kcEscape},
    {WXK_TAB,             WXK_TAB,             kcTab},
    {WXK_BACK,            WXK_BACK,            kcBack},
    {WXK_RETURN,          WXK_RETURN,          kcReturn},
    {WXK_INSERT,          WXK_INSERT,          kcInsert},
    {WXK_DELETE,          WXK_DELETE,          kcDelete},
    {WXK_PAUSE,           WXK_PAUSE,           kcPause},
    {WXK_PRINT,           WXK_PRINT,           kcPrint},
    {WXK_HOME,            WXK_HOME,            kcHome},
    {WXK_END,             WXK_END,             kcEnd},
    {WXK_LEFT,            WXK_LEFT,            kcLeft},
    {WXK_UP,              WXK_UP,              kcUp},
    {WXK_RIGHT,           WXK_RIGHT,           kcRight},
    {WXK_DOWN,            WXK_DOWN,            kcDown},
    {WXK_PAGEUP,          WXK_PAGEUP,          kcPageUp},
    {WXK_PAGEDOWN,        WXK_PAGEDOWN,        kcPageDown},
    {WXK_SHIFT,           WXK_SHIFT,           kcShift},
    {WXK_CONTROL,         WXK_CONTROL,         kcControl},
    {WXK_ALT,             WXK_ALT,             kcAlt},
    {WXK_CAPITAL,         WXK_CAPITAL,         kcCapital},
    {WXK_NUMLOCK,         WXK_NUMLOCK,         kcNumLock},
    {WXK_SCROLL,          WXK_SCROLL,          kcScroll},
    // the keypad; divide, equal, space and its function keys pass unchanged
    {WXK_NUMPAD0,         WXK_NUMPAD9,         kcNumpad0},
    {WXK_NUMPAD_MULTIPLY, WXK_NUMPAD_MULTIPLY, kcMultiply},
    {WXK_NUMPAD_ADD,      WXK_NUMPAD_ADD,      kcAdd},
    {WXK_NUMPAD_SEPARATOR,WXK_NUMPAD_SEPARATOR,kcSeparator},
    {WXK_NUMPAD_SUBTRACT, WXK_NUMPAD_SUBTRACT, kcSubtract},
    {WXK_NUMPAD_DECIMAL,  WXK_NUMPAD_DECIMAL,  kcDecimal},
    {WXK_NUMPAD_TAB,      WXK_NUMPAD_TAB,      kcTab},
    {WXK_NUMPAD_BEGIN,    WXK_NUMPAD_BEGIN,    kcBack}, // Kept by contract: the centre key of the keypad reads as Back; toolkit code knows no other
    {WXK_NUMPAD_ENTER,    WXK_NUMPAD_ENTER,    kcReturn},
    {WXK_NUMPAD_INSERT,   WXK_NUMPAD_INSERT,   kcInsert},
    {WXK_NUMPAD_DELETE,   WXK_NUMPAD_DELETE,   kcDelete},
    {WXK_NUMPAD_HOME,     WXK_NUMPAD_HOME,     kcHome},
    {WXK_NUMPAD_END,      WXK_NUMPAD_END,      kcEnd},
    {WXK_NUMPAD_LEFT,     WXK_NUMPAD_LEFT,     kcLeft},
    {WXK_NUMPAD_UP,       WXK_NUMPAD_UP,       kcUp},
    {WXK_NUMPAD_RIGHT,    WXK_NUMPAD_RIGHT,    kcRight},
    {WXK_NUMPAD_DOWN,     WXK_NUMPAD_DOWN,     kcDown},
    {WXK_NUMPAD_PAGEUP,   WXK_NUMPAD_PAGEUP,   kcPageUp},
    {WXK_NUMPAD_PAGEDOWN, WXK_NUMPAD_PAGEDOWN, kcPageDown},
};
// clang-format on

} // namespace

int wx2velaKeyCode(int wxKey)
{
    for (const KeyRow& row : keys)
        if (wxKey >= row.first && wxKey <= row.last)
            return wxKey - row.first + row.key;
    return wxKey;
}

int wx2velaChar(int character)
{
    return character;
}

std::uint32_t wx2velaKeyState(const wxKeyEvent& event)
{
    // Kept by contract: one bit only, unlike the state of the mouse; key handlers compare, mouse handlers
    // test bits.
    if (event.ShiftDown())
        return ksShift;
    if (event.AltDown())
        return ksAlt;
    return event.ControlDown() ? std::uint32_t{ksControl} : 0u;
}

// ---- mouse

std::uint32_t wx2velaMouseState(const wxMouseEvent& event)
{
    std::uint32_t state = 0;
    const auto add = [&state](bool down, std::uint32_t bit) { state |= down ? bit : 0; };
    add(event.LeftIsDown(), msLeft);
    add(event.RightIsDown(), msRight);
    add(event.MiddleIsDown(), msMiddle);
    add(event.ShiftDown(), ksShift);
    add(event.ControlDown(), ksControl);
    add(event.AltDown(), ksAlt);
    return state;
}

std::uint32_t wx2velaMouseBtn(const wxMouseEvent& event)
{
    const wxEventType type = event.GetEventType();
    return type == wxEVT_LEFT_DOWN     ? mbLeft
           : type == wxEVT_RIGHT_DOWN  ? mbRight
           : type == wxEVT_MIDDLE_DOWN ? mbMiddle
                                       : mbNone;
}

std::uint32_t wx2velaMouseBtnUp(const wxMouseEvent& event)
{
    return event.ButtonUp(wxMOUSE_BTN_LEFT)     ? mbLeft
           : event.ButtonUp(wxMOUSE_BTN_RIGHT)  ? mbRight
           : event.ButtonUp(wxMOUSE_BTN_MIDDLE) ? mbMiddle
                                                : mbNone;
}

std::uint32_t wx2velaMouseBtnDClick(const wxMouseEvent& event)
{
    const wxEventType type = event.GetEventType();
    return type == wxEVT_LEFT_DCLICK     ? mbLeft
           : type == wxEVT_RIGHT_DCLICK  ? mbRight
           : type == wxEVT_MIDDLE_DCLICK ? mbMiddle
                                         : mbNone;
}

std::uint32_t wx2velaMouseBtnMove(const wxMouseEvent& event)
{
    return event.LeftIsDown()     ? mbLeft
           : event.RightIsDown()  ? mbRight
           : event.MiddleIsDown() ? mbMiddle
                                  : mbNone;
}

// ---- scale

double correctScaleWithDefaultFontSize(double scale)
{
    static double factor = -1.0; // asked for again as long as the desktop has not set it
    if (factor < 0.0) {
        const std::optional<double> resolution = gtkport::ScreenResolution();
        if (!resolution)
            return std::max(1.0, scale);
        factor = *resolution / 96.0;
    }
    if (factor > 0.0)
        return std::max(1.0, factor);
    const double estimate =
        scale > 1.0 ? scale
                    : wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetPixelSize().GetHeight() * 0.0625;
    return std::max(1.0, estimate);
}

} // namespace vela7
