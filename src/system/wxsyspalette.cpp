#include "vela7/wxsyspalette.h"

#include "port/gtkport.h"
#include "vela7/wxconvert.h"

#include <wx/settings.h>

namespace vela7 {

namespace {

struct ColorRow
{
    ISysPalette::SysColor code;
    wxSystemColour wx;
};

// clang-format off
constexpr ColorRow colors[] = {
    {ISysPalette::scWindow,          wxSYS_COLOUR_WINDOW},
    {ISysPalette::scWindowText,      wxSYS_COLOUR_WINDOWTEXT},
    {ISysPalette::scButtonFace,      wxSYS_COLOUR_BTNFACE},
    {ISysPalette::scButtonHighlight, wxSYS_COLOUR_BTNHIGHLIGHT},
    {ISysPalette::sc3DLight,         wxSYS_COLOUR_3DLIGHT},
    {ISysPalette::scButtonShadow,    wxSYS_COLOUR_BTNSHADOW},
    {ISysPalette::sc3DDarkShadow,    wxSYS_COLOUR_3DDKSHADOW},
    {ISysPalette::scButtonText,      wxSYS_COLOUR_BTNTEXT},
    {ISysPalette::scHighlight,       wxSYS_COLOUR_HIGHLIGHT},
    {ISysPalette::scHighlightText,   wxSYS_COLOUR_HIGHLIGHTTEXT},
    {ISysPalette::scInfoBackground,  wxSYS_COLOUR_INFOBK},
    {ISysPalette::scInfoText,        wxSYS_COLOUR_INFOTEXT},
};
// clang-format on

wxSystemColour ToWx(ISysPalette::SysColor code)
{
    for (const ColorRow& row : colors)
        if (row.code == code)
            return row.wx;
    return wxSYS_COLOUR_WINDOW;
}

} // namespace

_color CwxSysPalette::GetSystemColor(SysColor code) const
{
    if (code == scLink)
        return _color(0, 0, 255); // Kept by contract: links are blue, the theme has no say in it
    if (!gtkport::DisplayIsOpen())
        return GetBuiltinPalette()->GetSystemColor(code);
    return wx2vela(wxSystemSettings::GetColour(ToWx(code)));
}

} // namespace vela7
