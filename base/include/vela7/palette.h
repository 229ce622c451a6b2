/// The system colours.
///
/// Thread: GUI.
#pragma once

#include "vela7/baseexport.h"
#include "vela7/types.h"

namespace vela7 {

class VELA7_BASE_API ISysPalette
{
public:
    enum SysColor
    {
        scWindow = 1,
        scWindowText = 2,
        scButtonFace = 3,
        scButtonHighlight = 4,
        sc3DLight = 5,
        scButtonShadow = 6,
        sc3DDarkShadow = 7,
        scButtonText = 8,
        scHighlight = 9,
        scHighlightText = 10,
        scInfoBackground = 11,
        scInfoText = 12,
        scLink = 13
    };

    virtual ~ISysPalette() = default;
    /// The window colour for unknown codes.
    virtual _color GetSystemColor(SysColor code) const = 0;
};

/// The installed palette; null when none is.
VELA7_BASE_API ISysPalette* GetSysPalette();
/// Installs a palette. It must be made with new: the back-end deletes whatever is installed when the process
/// ends. Replacing a palette does not delete the one before.
VELA7_BASE_API void SetSysPalette(ISysPalette* palette);
/// The built-in palette of fixed classic colours; never null, and never destroyed.
VELA7_BASE_API ISysPalette* GetBuiltinPalette();
/// Never null: the installed palette, else the built-in one.
VELA7_BASE_API ISysPalette* GetDefaultPalette();

} // namespace vela7
