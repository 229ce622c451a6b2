/// The DPI scale of a device. Internal. Thread: GUI.
#pragma once

#include <wx/dc.h>

namespace vela7 {

/// As correctScaleWithDefaultFontSize makes it of the device's resolution.
double ScaleOf(const wxDC& dc);

} // namespace vela7
