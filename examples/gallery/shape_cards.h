/// What the page of shapes shows: one card for each family of drawing operations.
#pragma once

#include "style.h"

#include <vector>

namespace gallery {

struct ShapeCard
{
    const char* title;
    void (*draw)(vela7::IPainter& painter, const Box& area, const Style& style);
};

const std::vector<ShapeCard>& ShapeCards();

} // namespace gallery
