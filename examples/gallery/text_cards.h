/// What the page of text shows, apart from what follows the mouse.
#pragma once

#include "cards.h"

namespace gallery {

void DrawFamilies(vela7::IPainter& painter, const Box& area, const Style& style);
void DrawSizes(vela7::IPainter& painter, const Box& area, const Style& style);
void DrawStyles(vela7::IPainter& painter, const Box& area, const Style& style);
void DrawRotated(vela7::IPainter& painter, const Box& area, const Style& style);
void DrawAligned(vela7::IPainter& painter, const Box& area, const Style& style);
void DrawEllipsis(vela7::IPainter& painter, const Box& area, const Style& style);
void DrawMeasured(vela7::IPainter& painter, const Box& area, const Style& style);

} // namespace gallery
