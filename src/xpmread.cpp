#include "xpmread.h"

#include "vela7/xpm.h"

#include <wx/log.h>

namespace vela7 {

wxImage ReadXPM(const XPMImage& image)
{
    if (!image.GetBuffer() || image.width <= 0 || image.height <= 0)
        return {};
    const wxLogNull quiet;
    return wxImage(image.GetBuffer());
}

} // namespace vela7
