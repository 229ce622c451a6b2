/// What the page of shapes shows: one card for each family of drawing operations.
#pragma once

#include "cards.h"

namespace gallery {

const std::vector<Card>& ShapeCards();

} // namespace gallery
