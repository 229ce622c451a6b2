#include "vela7/palette.h"

namespace vela7 {

namespace {

ISysPalette* installed = nullptr; // constant-initialised: back-ends write it while they are loaded

struct BuiltinColor
{
    ISysPalette::SysColor code;
    _color color;
};

// clang-format off
constexpr BuiltinColor builtinColors[] = {
    {ISysPalette::scWindow,          {255, 255, 255}},
    {ISysPalette::scWindowText,      {  0,   0,   0}},
    {ISysPalette::scButtonFace,      {240, 240, 240}},
    {ISysPalette::scButtonHighlight, {255, 255, 255}},
    {ISysPalette::sc3DLight,         {227, 227, 227}},
    {ISysPalette::scButtonShadow,    {160, 160, 160}},
    {ISysPalette::sc3DDarkShadow,    {105, 105, 105}},
    {ISysPalette::scButtonText,      {  0,   0,   0}},
    {ISysPalette::scHighlight,       {  0, 120, 215}},
    {ISysPalette::scHighlightText,   {255, 255, 255}},
    {ISysPalette::scInfoBackground,  {255, 255, 225}},
    {ISysPalette::scInfoText,        {  0,   0,   0}},
    {ISysPalette::scLink,            {  0,   0, 255}},
};
// clang-format on

class BuiltinPalette : public ISysPalette
{
public:
    _color GetSystemColor(SysColor code) const override
    {
        for (const BuiltinColor& row : builtinColors)
            if (row.code == code)
                return row.color;
        return builtinColors[0].color;
    }
};

} // namespace

ISysPalette* GetSysPalette()
{
    return installed;
}

void SetSysPalette(ISysPalette* palette)
{
    installed = palette;
}

ISysPalette* GetBuiltinPalette()
{
    // Never destroyed, so that it outlives whatever asks for a colour late in process exit.
    static ISysPalette* const builtin = new BuiltinPalette;
    return builtin;
}

ISysPalette* GetDefaultPalette()
{
    return installed ? installed : GetBuiltinPalette();
}

} // namespace vela7
