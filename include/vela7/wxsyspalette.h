/// The system palette of the wx back-end.
#pragma once

#include "vela7/palette.h"
#include "vela7/wxexport.h"

namespace vela7 {

/// The desktop's colours, read afresh on every call, so a change of theme shows at once.
///
/// Made and installed by the system object while the library is loaded, unless a palette is installed
/// already; deleted at process exit. Thread: GUI. Without a display it answers the base library's built-in
/// colours.
class VELA7_WX_API CwxSysPalette final : public ISysPalette
{
public:
    _color GetSystemColor(SysColor code) const override;
};

} // namespace vela7
