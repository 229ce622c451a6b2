/// Conversions between the toolkit's values and wx's: the only place where the two vocabularies meet.
///
/// vela2wx goes to wx, wx2vela... to the toolkit. Pure functions. Thread: those on fonts and scale GUI, the
/// others any.
#pragma once

#include "vela7/types.h"
#include "vela7/wxexport.h"

#include <wx/colour.h>
#include <wx/font.h>
#include <wx/gdicmn.h>
#include <wx/string.h>

#include <string>

class wxKeyEvent;
class wxMouseEvent;

namespace vela7 {

/// Decodes with the C library's current locale; empty when the bytes are not valid there.
VELA7_WX_API wxString vela2wx(const std::string& text);
/// Seven-bit ASCII only: other characters become '_'.
VELA7_WX_API std::string wx2vela(const wxString& text);

/// The flag is ignored.
VELA7_WX_API wxColour vela2wx(const _color& color);
/// Flag 0.
VELA7_WX_API _color wx2vela(const wxColour& color);

/// Size below 1: the system's default size; times scale, truncated to whole points. Angle and strike-out have
/// no counterpart.
VELA7_WX_API wxFont vela2wx(const font& value);
/// An invalid font gives face "", family 4, size 0.
VELA7_WX_API font wx2vela(const wxFont& value);

/// Right and bottom are exclusive: (0, 0, 10, 10) is 10 x 10.
VELA7_WX_API wxRect vela2wx(const rectangle<int>& rect);
VELA7_WX_API wxRect vela2wx(const screen_rectangle<int>& rect);
/// Right and bottom are INCLUSIVE: 10 x 10 at the origin is (0, 0, 9, 9). Nothing is normalised.
VELA7_WX_API rectangle<int> wx2vela(const wxRect& rect);

/// KeyCode of a WXK_ code; codes without counterpart pass unchanged.
VELA7_WX_API int wx2velaKeyCode(int wxKey);
VELA7_WX_API int wx2velaChar(int character);
/// Exactly one KeyState bit: Shift before Alt before Control; 0 when none is down.
VELA7_WX_API std::uint32_t wx2velaKeyState(const wxKeyEvent& event);
/// All buttons and modifiers that are down.
VELA7_WX_API std::uint32_t wx2velaMouseState(const wxMouseEvent& event);

/// The MouseButton of a press, a release, a double click and a move (the button held: left before right
/// before middle); mbNone for other events.
VELA7_WX_API std::uint32_t wx2velaMouseBtn(const wxMouseEvent& event);
VELA7_WX_API std::uint32_t wx2velaMouseBtnUp(const wxMouseEvent& event);
VELA7_WX_API std::uint32_t wx2velaMouseBtnDClick(const wxMouseEvent& event);
VELA7_WX_API std::uint32_t wx2velaMouseBtnMove(const wxMouseEvent& event);

/// The desktop's own scale (its resolution / 96) when it has set one, whatever the argument; else the
/// argument, or for an argument of 1.0 or less an estimate from the height of the default font. 1.0 or more;
/// 1.0 as long as there is no display. The desktop's scale is read once a process.
VELA7_WX_API double correctScaleWithDefaultFontSize(double scale);

} // namespace vela7
