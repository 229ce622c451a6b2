/// What conversion, image lists and animations share. Internal.
#pragma once

#include "vela7/types.h"

#include <wx/debug.h>

#include <algorithm>
#include <utility>

namespace vela7 {

/// A wx assertion, with texts that do not depend on where the source stands.
inline void AssertImage(bool holds, int line, const char* function, const char* condition)
{
    // Kept by contract: hosts know these assertions by this file name and line.
    if (!holds && wxTheAssertHandler)
        wxOnAssert("src/wximagelist", line, function, condition);
    if (!holds && std::exchange(wxTrapInAssert, false))
        wxTrap();
}

/// Truncated; far outside any device when it is beyond that, or no number.
inline int Truncated(double value)
{
    constexpr double limit = 1 << 24;
    return value >= -limit ? static_cast<int>(std::min(value, limit)) : -static_cast<int>(limit);
}

/// Truncated; scales up to 1.0 change nothing.
inline size<int> ScaledUp(const size<int>& extent, double scale)
{
    return scale > 1.0 ? size<int>(Truncated(extent.width * scale), Truncated(extent.height * scale))
                       : extent;
}

} // namespace vela7
