/// From wx images to XPM lines.
///
/// Pure functions. Thread: any, as long as nobody else uses the image; create_paletteless_image GUI.
#pragma once

#include "vela7/wxexport.h"

#include <wx/image.h>

#include <cstddef>
#include <map>

namespace vela7 {

class XPMImage;

namespace convert {

/// Colour (0xRRGGBB) -> number. Numbers start at 1, in the order in which the colours appear row by row; 0
/// stands for "None". Transparent pixels count like any other. Null and invalid images have no colours.
VELA7_WX_API std::map<unsigned long, unsigned long> enum_colors(const wxImage* image);

/// The number of entries of enum_colors.
VELA7_WX_API std::size_t scan_colors_count(const wxImage* image);

/// The lines: values, "None", one for each colour in ascending order of the colours, one for each row; no
/// terminating null entry. The caller frees them with free_xpm_array. Pixels of the mask colour or with an
/// alpha below 128 become "None".
VELA7_WX_API char** wximage_to_xpm(const wxImage* image);

/// Frees as many lines as the values line says; when that is not readable the array only. Null is left alone.
VELA7_WX_API void free_xpm_array(char** lines);

/// The XPM image takes copies of the lines. Null arguments: does nothing.
VELA7_WX_API void fill_xpm_from_wximage(XPMImage* xpm, const wxImage* image);

} // namespace convert

/// The image without its palette; shared when it has none. Asserts that the image is valid; an invalid one
/// gives an empty one.
VELA7_WX_API wxImage create_paletteless_image(const wxImage& image);

} // namespace vela7
