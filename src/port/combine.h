/// The raster operations that Cairo does not have: it combines by opacity, not by bits. Thread: GUI.
#pragma once

#include <wx/dc.h>

#include <functional>

// NOLINTNEXTLINE(bugprone-reserved-identifier): Cairo calls it so
typedef struct _cairo cairo_t;

namespace vela7 {
namespace gtkport {

/// Draws on a context of its own, which is as transparent as what is not drawn on; then combines the pixels
/// that were drawn with those of the target's, as far as its clipping lets through. All that is drawn lies in
/// `area`.
void Combine(cairo_t* target, wxRect area, wxRasterOperationMode op,
             const std::function<void(cairo_t*)>& draw);

} // namespace gtkport
} // namespace vela7
