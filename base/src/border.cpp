#include "vela7/border.h"

#include "vela7/painter.h"
#include "vela7/palette.h"

namespace vela7 {

namespace {

struct FrameRow
{
    BorderShape shape;
    BorderStyle style;
    ISysPalette::SysColor leftTop;
    ISysPalette::SysColor rightBottom;
};

// The rows of one frame stand from the outside in.
// clang-format off
constexpr FrameRow frames[] = {
    {bsThin,  bdRaised, ISysPalette::scButtonHighlight, ISysPalette::scButtonShadow},
    {bsThin,  bdSunken, ISysPalette::scButtonShadow,    ISysPalette::scButtonHighlight},
    {bsThick, bdRaised, ISysPalette::scButtonHighlight, ISysPalette::sc3DDarkShadow},
    {bsThick, bdRaised, ISysPalette::sc3DLight,         ISysPalette::scButtonShadow},
    {bsThick, bdSunken, ISysPalette::sc3DDarkShadow,    ISysPalette::scButtonHighlight},
    {bsThick, bdSunken, ISysPalette::scButtonShadow,    ISysPalette::sc3DLight},
};
// clang-format on

struct Box
{
    double left, top, right, bottom; // inclusive
};

// Two sides of a frame; the corners at the far ends belong to the right and bottom sides. Filled strips,
// since the end point of a line is not drawn.
void DrawFrame(IPainter& painter, const Box& box, const _color& leftTop, const _color& rightBottom)
{
    painter.SetBrush(brush{leftTop, bsSolid});
    painter.FillRect(box.left, box.top, box.right, box.top + 1);
    painter.FillRect(box.left, box.top, box.left + 1, box.bottom);
    painter.SetBrush(brush{rightBottom, bsSolid});
    painter.FillRect(box.left, box.bottom, box.right + 1, box.bottom + 1);
    painter.FillRect(box.right, box.top, box.right + 1, box.bottom + 1);
}

} // namespace

void DrawBorder(IPainter* painter, int left, int top, int right, int bottom, BorderShape shape,
                BorderStyle style, bool frameOnly)
{
    if (!painter || right < left || bottom < top)
        return;
    const ISysPalette& palette = painter->GetPalette() ? *painter->GetPalette() : *GetDefaultPalette();
    const brush before = painter->GetBrush();
    Box inner{double(left), double(top), double(right), double(bottom)};
    for (const FrameRow& row : frames)
        if (row.shape == shape && row.style == style && inner.left <= inner.right &&
            inner.top <= inner.bottom) {
            DrawFrame(*painter, inner, palette.GetSystemColor(row.leftTop),
                      palette.GetSystemColor(row.rightBottom));
            inner = {inner.left + 1, inner.top + 1, inner.right - 1, inner.bottom - 1};
        }
    if (!frameOnly && inner.left <= inner.right && inner.top <= inner.bottom) {
        painter->SetBrush(brush{palette.GetSystemColor(ISysPalette::scButtonFace), bsSolid});
        painter->FillRect(inner.left, inner.top, inner.right + 1, inner.bottom + 1);
    }
    painter->SetBrush(before);
}

} // namespace vela7
