/// Animations on GdkPixbuf's frames.
#pragma once

#include "vela7/animation.h"
#include "vela7/wxexport.h"

#include <wx/animate.h>

typedef struct _GdkPixbufAnimationIter GdkPixbufAnimationIter;

namespace vela7 {

/// Shows the frames of a wxAnimation, by GdkPixbuf's clock.
///
/// Made by CreateAnimation; dies with its last handle. Thread: GUI. Before Init and after Clear there is no
/// frame: nothing is drawn, the delay is -1.
class VELA7_WX_API CwxAnimation final : public IAnimation
{
public:
    CwxAnimation() = default;
    ~CwxAnimation() override { Clear(); }

    void Draw(IPainter* painter, int x, int y) const override;
    int GetDelay() const override;
    /// 0 x 0 without an animation.
    size<int> GetSize() const override;
    /// To the frame that is due now, however many that skips.
    void NextFrame() override;

    /// Shares the animation and starts it now. dpiScale: enlarged by the system's DPI scale.
    void Init(const wxAnimation& animation, bool dpiScale);
    /// The animation stays, and with it the size.
    void Clear();

private:
    double Scale() const;

    wxAnimation m_animation;
    GdkPixbufAnimationIter* m_iterator = nullptr; // a reference of our own
    bool m_dpiScale = false;
};

/// Empty for an invalid animation.
VELA7_WX_API CHandle<IAnimation> CreateAnimation(const wxAnimation& animation, bool dpiScale);

} // namespace vela7
