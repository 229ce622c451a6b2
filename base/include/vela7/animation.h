/// Animated images.
///
/// Dies with its last handle. Thread: GUI.
#pragma once

#include "vela7/cbase.h"
#include "vela7/types.h"

namespace vela7 {

class IPainter;

class VELA7_BASE_API IAnimation : public CBase
{
public:
    /// The current frame; logical coordinates.
    virtual void Draw(IPainter* painter, int x, int y) const = 0;
    /// Milliseconds that the current frame lasts; -1 = for ever.
    virtual int GetDelay() const = 0;
    /// Pixels.
    virtual size<int> GetSize() const = 0;
    virtual void NextFrame() = 0;
};

} // namespace vela7
