/// From XPM lines to wx images. Internal.
#pragma once

#include <wx/image.h>

namespace vela7 {

class XPMImage;

/// The image of the lines; an invalid one, and no message to the user, when they are no XPM: they come from
/// files of other people.
wxImage ReadXPM(const XPMImage& image);

} // namespace vela7
