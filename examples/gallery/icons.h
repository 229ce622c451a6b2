/// Icons of 16 x 16, drawn for the gallery.
#pragma once

#include "vela7/imagelist.h"

namespace gallery {

constexpr int kIconSide = 16, kIcons = 6;

/// A list of them all; empty when the system has no image lists. ownDisabled: each with a disabled look of
/// its own, an outline, instead of the one that the list makes.
vela7::CHandle<vela7::IImageList> MakeIcons(bool ownDisabled);

} // namespace gallery
