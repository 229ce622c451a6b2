/// The pictures that the page of pictures works with: painted by itself, or made of lines in the source.
#pragma once

#include "vela7/canvas.h"
#include "vela7/xpm.h"

#include <functional>

namespace gallery {

using Picture = vela7::CHandle<vela7::IRasterPicture>;

/// A new picture with what the function paints on it. Without a function it is white.
Picture MakePicture(int width, int height, const std::function<void(vela7::IPainter& painter)>& paint = {});
/// A copy with pixels of its own.
Picture CopyOf(const Picture& source);
/// A bay in the evening.
Picture MakeScene(int width, int height);
/// A sailing boat on a transparent ground, 20 x 20.
const vela7::XPMImage& Boat();

} // namespace gallery
