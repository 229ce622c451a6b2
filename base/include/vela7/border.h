/// Two-tone frames, drawn through a painter.
#pragma once

#include "vela7/baseexport.h"

namespace vela7 {

class IPainter;

enum BorderShape
{
    bsThin = 0,
    bsThick = 1
};

/// Not to be confused with ISysWindow::BorderStyle.
enum BorderStyle
{
    bdNone = 0,
    bdRaised = 1,
    bdSunken = 2
};

/// Draws a frame with the colours of the painter's palette; right and bottom are inclusive. The interior is
/// filled with the face colour unless frameOnly. Pen and brush are restored.
VELA7_BASE_API void DrawBorder(IPainter* painter, int left, int top, int right, int bottom, BorderShape shape,
                               BorderStyle style, bool frameOnly);

} // namespace vela7
