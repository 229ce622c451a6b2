#include "vela7/wxconvert.h"

#include "convert/devicescale.h"
#include "convert/textdecode.h"
#include "port/gtkport.h"

#include <wx/event.h>
#include <wx/settings.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace vela7 {

// ---- text

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

namespace {

// The desktop's resolution in 96ths, once it has one; empty without a screen, negative while the desktop has
// not set it.
std::optional<double> DesktopScale()
{
    static double factor = -1.0;
    if (factor < 0.0) {
        const std::optional<double> resolution = gtkport::ScreenResolution();
        if (!resolution)
            return std::nullopt;
        factor = *resolution / 96.0;
    }
    return factor;
}

} // namespace

double correctScaleWithDefaultFontSize(double scale)
{
    const std::optional<double> desktop = DesktopScale();
    if (!desktop)
        return std::max(1.0, scale);
    if (*desktop > 0.0)
        return std::max(1.0, *desktop);
    const double estimate =
        scale > 1.0 ? scale
                    : wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetPixelSize().GetHeight() * 0.0625;
    return std::max(1.0, estimate);
}

double ScaleOf(const wxDC& dc)
{
    // A device takes its time to tell.
    const double known = DesktopScale().value_or(0.0);
    return known > 0.0 ? std::max(1.0, known)
                       : correctScaleWithDefaultFontSize(dc.GetPPI().GetWidth() / 96.0);
}

} // namespace vela7
