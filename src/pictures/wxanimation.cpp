#include "vela7/wxanimation.h"

#include "convert/devicebounds.h"
#include "convert/xpmread.h"
#include "pictures/imagehelpers.h"
#include "port/drawing.h"
#include "port/frames.h"
#include "vela7/painter.h"
#include "vela7/system.h"

#include <wx/dc.h>
#include <wx/image.h>

namespace vela7 {

void CwxAnimation::Init(const wxAnimation& animation, bool dpiScale)
{
    Clear();
    m_animation = animation;
    m_dpiScale = dpiScale;
    m_iterator = gtkport::StartAnimation(m_animation);
}

void CwxAnimation::Clear()
{
    if (m_iterator)
        gtkport::EndAnimation(std::exchange(m_iterator, nullptr));
}

double CwxAnimation::Scale() const
{
    const ISystem* const system = m_dpiScale ? GetCurrentSystem() : nullptr;
    return system ? system->GetDPIScale() : 1.0;
}

int CwxAnimation::GetDelay() const
{
    return m_iterator ? gtkport::FrameDelay(m_iterator) : -1;
}

void CwxAnimation::NextFrame()
{
    if (m_iterator)
        gtkport::AdvanceFrame(m_iterator);
}

size<int> CwxAnimation::GetSize() const
{
    if (!m_animation.IsOk())
        return {};
    const wxSize extent = m_animation.GetSize();
    return ScaledUp({extent.x, extent.y}, Scale());
}

void CwxAnimation::Draw(IPainter* painter, int x, int y) const
{
    if (!painter || !painter->IsEnabled() || !m_iterator || !painter->GetDC())
        return;
    wxBitmap frame = gtkport::CurrentFrame(m_iterator);
    if (!frame.IsOk())
        return;
    point<double> at(x, y);
    painter->ConvertCoord1(&at, false);
    const size<int> extent(frame.GetWidth(), frame.GetHeight());
    const size<int> scaled = ScaledUp(extent, Scale());
    int left = Truncated(at.x), top = Truncated(at.y);
    wxDC& dc = *painter->GetDC();
    if (!CanMakePicture(scaled.width, scaled.height) ||
        !CanBeSeen(dc, left, top, scaled.width, scaled.height))
        return;
    if (scaled != extent) {
        const wxImage shown =
            Scaled(dc, frame.ConvertToImage(), wxSize(scaled.width, scaled.height), left, top);
        if (!shown.IsOk())
            return;
        frame = wxBitmap(shown);
    }
    gtkport::DrawPicture(dc, frame, {left, top}, true);
}

CHandle<IAnimation> CreateAnimation(const wxAnimation& animation, bool dpiScale)
{
    if (!animation.IsOk())
        return {};
    auto* const made = new CwxAnimation;
    CHandle<IAnimation> handle(made);
    made->Init(animation, dpiScale);
    return handle;
}

} // namespace vela7
