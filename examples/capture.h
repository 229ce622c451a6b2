/// Pictures of windows, for the examples that write some.
#pragma once

#include <wx/image.h>

class wxFrame;

namespace examples {

/// A frame without its decoration, as the screen shows it, in the screen's own pixels. It must not be
/// covered.
wxImage Capture(const wxFrame& frame);

/// Writes a PNG file. Flushed as well: a full disk may show only then.
bool WritePicture(const wxImage& picture, const wxString& file);

} // namespace examples
