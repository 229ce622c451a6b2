/// From XPM lines and files to wx images. Internal.
#pragma once

#include <wx/bitmap.h>
#include <wx/image.h>

#include <optional>
#include <string>

namespace vela7 {

class XPMImage;

/// Whether wx and the X server can hold a picture of this size; asking the server for more ends the process.
bool IsPictureSize(double width, double height);

/// The image of the lines; an invalid one, and no message to the user, when they are no XPM or too large:
/// they come from files of other people.
wxImage ReadXPM(const XPMImage& image);

/// The picture in an XPM file, invalid as above; nothing when the file is of another kind or cannot be read.
std::optional<wxBitmap> ReadXPMFile(const std::string& fileName);

} // namespace vela7
