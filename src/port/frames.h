/// The frames of animations. Thread: GUI.
#pragma once

#include <wx/bitmap.h>

class wxAnimation;
// NOLINTNEXTLINE(bugprone-reserved-identifier): GTK calls it so
typedef struct _GdkPixbufAnimationIter GdkPixbufAnimationIter;

namespace vela7 {
namespace gtkport {

/// At the first frame, counting time from now on; for EndAnimation. Null when there are no frames.
GdkPixbufAnimationIter* StartAnimation(const wxAnimation& animation);
void EndAnimation(GdkPixbufAnimationIter* iterator);
/// Milliseconds; -1: for ever.
int FrameDelay(GdkPixbufAnimationIter* iterator);
/// To the frame that is due now.
void AdvanceFrame(GdkPixbufAnimationIter* iterator);
/// Shares the iterator's pixels: for use before the next AdvanceFrame. Invalid when there is none.
wxBitmap CurrentFrame(GdkPixbufAnimationIter* iterator);

} // namespace gtkport
} // namespace vela7
