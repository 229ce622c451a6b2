// The codes of the keys.

#include "vela7/types.h"
#include "vela7/wxconvert.h"

#include <wx/defs.h>

namespace vela7 {

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

} // namespace vela7
