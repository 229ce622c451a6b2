// The painter's control elements: drawn by the desktop's theme where there is a window to ask it for, else by
// hand.

#include "vela7/wxpainter.h"

#include "port/drawing.h"
#include "port/gtkport.h"
#include "vela7/border.h"
#include "vela7/palette.h"

#include <wx/bitmap.h>
#include <wx/brush.h>
#include <wx/dcmemory.h>
#include <wx/pen.h>
#include <wx/renderer.h>

#include <algorithm>
#include <iterator>

namespace vela7 {

// ---- by the theme

namespace {

using DrawElement = void (wxRendererNative::*)(wxWindow*, wxDC&, const wxRect&, int);

struct ElementRow
{
    ControlElement element;
    DrawElement draw;
    int flags;
};

struct StateRow
{
    int state;
    int flags;
};

// clang-format off
// The header button has another signature and the focus rectangle is the painter's own.
constexpr ElementRow elements[] = {
    {ceCheckBoxChecked,      &wxRendererNative::DrawCheckBox,           wxCONTROL_CHECKED},
    {ceCheckBoxUnchecked,    &wxRendererNative::DrawCheckBox,           0},
    {ceCheckBoxUndetermined, &wxRendererNative::DrawCheckBox,           wxCONTROL_UNDETERMINED},
    {ceTreeCollapsed,        &wxRendererNative::DrawTreeItemButton,     0},
    {ceTreeExpanded,         &wxRendererNative::DrawTreeItemButton,     wxCONTROL_EXPANDED},
    {cePushButton,           &wxRendererNative::DrawPushButton,         0},
    {ceComboDropButton,      &wxRendererNative::DrawComboBoxDropButton, 0},
    {ceDropArrow,            &wxRendererNative::DrawDropArrow,          0},
    {ceRadioChecked,         &wxRendererNative::DrawRadioBitmap,        wxCONTROL_CHECKED},
    {ceRadioUnchecked,       &wxRendererNative::DrawRadioBitmap,        0},
};

constexpr StateRow states[] = {
    {csDisabled, wxCONTROL_DISABLED},
    {csFocused,  wxCONTROL_FOCUSED | wxCONTROL_SELECTED},
    {csCurrent,  wxCONTROL_CURRENT},
    {csPressed,  wxCONTROL_PRESSED},
};
// clang-format on

// Pixels of an element that are kept around what is shown of it: themes take their time, and calculate like
// X.
constexpr int around = 1024;

int RendererFlags(int state)
{
    int flags = 0;
    for (const StateRow& row : states)
        if (state & row.state)
            flags |= row.flags;
    return flags;
}

bool IsDrawnByTheme(ControlElement element)
{
    return element == ceHeaderButton ||
           std::any_of(std::begin(elements), std::end(elements),
                       [element](const ElementRow& row) { return row.element == element; });
}

void DrawByTheme(wxWindow* window, wxDC& dc, const wxRect& rect, ControlElement element, int flags)
{
    wxRendererNative& renderer = wxRendererNative::Get();
    if (element == ceHeaderButton) {
        renderer.DrawHeaderButton(window, dc, rect, flags, wxHDR_SORT_ICON_NONE, nullptr);
        return;
    }
    for (const ElementRow& row : elements)
        if (row.element == element)
            (renderer.*row.draw)(window, dc, rect, flags | row.flags);
}

wxRect ToWxRect(const rectangle<int>& r)
{
    return wxRect(r.left, r.top, r.Width(), r.Height());
}

} // namespace

// The theme ignores the clipping of the DC. So an element that is clipped in part is drawn off-screen, and
// the copy to the screen is clipped.
void CwxPainter::NativeDrawControlElement(wxWindow* window, ControlElement element, int left, int top,
                                          int right, int bottom, int state)
{
    if (element == ceFocusRect)
        internalFocusRect(left, top, right, bottom);
    if (!IsDrawnByTheme(element))
        return;
    rectangle<int> whole(left, top, right, bottom);
    const wxRect seen = gtkport::VisibleArea(*device);
    rectangle<int> shown = whole.Intersect({seen.x, seen.y, seen.x + seen.width, seen.y + seen.height});
    const rectangle<int>* const clip = GetDeviceClip();
    const bool direct = !clip || whole.Intersect(*clip) == whole;
    if (!direct)
        shown = shown.Intersect(*clip);
    if (shown.IsEmpty())
        return;
    whole = whole.Intersect(
        {shown.left - around, shown.top - around, shown.right + around, shown.bottom + around});
    const wxPen pen = device->GetPen();
    const wxBrush brush = device->GetBrush();
    if (direct)
        DrawByTheme(window, *device, ToWxRect(whole), element, RendererFlags(state));
    else
        DrawOffScreen(window, element, ToWxRect(whole), ToWxRect(shown), RendererFlags(state));
    device->SetPen(pen);
    device->SetBrush(brush);
}

// The part of an element that is shown, wherever the rest of it is.
void CwxPainter::DrawOffScreen(wxWindow* window, ControlElement element, const wxRect& whole,
                               const wxRect& shown, int flags)
{
    wxBitmap bitmap;
    bitmap.CreateScaled(shown.width, shown.height, -1, device->GetContentScaleFactor());
    wxMemoryDC memory(bitmap);
    const wxBrush brush = device->GetBrush();
    // A brush that does not fill all would leave the bitmap undefined: the element stands on what is there.
    if (brush.GetStyle() != wxBRUSHSTYLE_SOLID)
        memory.Blit(0, 0, shown.width, shown.height, device, shown.x, shown.y);
    memory.SetBrush(brush);
    memory.SetDeviceOrigin(-shown.x, -shown.y); // hatches begin where those beside the element do
    gtkport::FillRectangle(memory, shown);
    memory.SetDeviceOrigin(0, 0);
    const wxRect there(whole.x - shown.x, whole.y - shown.y, whole.width, whole.height);
    DrawByTheme(window, memory, there, element, flags);
    device->Blit(shown.x, shown.y, shown.width, shown.height, &memory, 0, 0, wxCOPY, false);
}

// ---- by hand

namespace {

constexpr int boxSize = 13; // of check boxes and radio buttons
constexpr _color disabledFace{204, 204, 204};
constexpr _color disabledText{127, 127, 127};

} // namespace

void CwxPainter::DrawElementBase(int left, int top, int right, int bottom, bool enabled, bool round)
{
    const ISysPalette& palette = GetPalette() ? *GetPalette() : *GetDefaultPalette();
    const _color face = palette.GetSystemColor(ISysPalette::scWindow);
    const _color frame =
        palette.GetSystemColor(face == clWhite ? ISysPalette::scButtonShadow : ISysPalette::sc3DDarkShadow);
    SetPen(pen{frame, 1, psSolid});
    SetBrush(brush{enabled ? face : disabledFace, bsSolid});
    if (round)
        internalEllipse(left, top, right, bottom);
    else
        internalRectangle(left, top, right, bottom);
}

void CwxPainter::SetElementFgColor(bool enabled)
{
    const ISysPalette& palette = GetPalette() ? *GetPalette() : *GetDefaultPalette();
    SetPen(pen{enabled ? palette.GetSystemColor(ISysPalette::scWindowText) : disabledText, 1, psSolid});
}

void CwxPainter::DrawTick(int left, int top)
{
    for (int k = 5; k <= 7; ++k) {
        internalMoveTo(left + 3, top + k);
        internalLineTo(left + 5, top + k + 2);
        internalLineTo(left + 10, top + k - 3);
    }
}

void CwxPainter::DrawExpander(int left, int top, int right, int bottom, bool plus)
{
    const int oddX = (right - left) % 2;
    const int oddY = (bottom - top) % 2;
    const int middleX = (right - oddX - left) / 2 + left;
    const int middleY = (bottom - oddY - top) / 2 + top;
    internalMoveTo(left + 2, middleY);
    internalLineTo(right - oddX - 1, middleY);
    if (!plus)
        return;
    internalMoveTo(middleX, top + 2);
    internalLineTo(middleX, bottom - oddY - 1);
}

void CwxPainter::DrawButtonByHand(int left, int top, int right, int bottom, BorderShape shape, int state)
{
    SetCoordConversion(false); // device pixels already
    DrawBorder(this, left, top, right - 1, bottom - 1, shape, (state & csPressed) ? bdSunken : bdRaised,
               false);
    SetCoordConversion(true);
}

void CwxPainter::internalDrawControlElement(ControlElement element, int l, int t, int r, int b, int state)
{
    const bool enabled = !(state & csDisabled);
    const pen penBefore = GetPen();
    const brush brushBefore = GetBrush();
    switch (element) {
    case ceHeaderButton:
    case cePushButton:
        DrawButtonByHand(l, t, r, b, element == cePushButton ? bsThick : bsThin, state);
        break;
    case ceCheckBoxChecked:
    case ceCheckBoxUnchecked:
        DrawElementBase(l, t, l + boxSize, t + boxSize, enabled, false);
        SetElementFgColor(enabled);
        if (element == ceCheckBoxChecked)
            DrawTick(l, t);
        break;
    case ceTreeCollapsed:
    case ceTreeExpanded:
        DrawElementBase(l, t, r, b, enabled, false);
        SetElementFgColor(enabled);
        DrawExpander(l, t, r, b, element == ceTreeCollapsed);
        break;
    case ceRadioChecked:
    case ceRadioUnchecked:
        DrawElementBase(l, t, l + boxSize, t + boxSize, enabled, true);
        SetElementFgColor(enabled);
        if (element == ceRadioChecked)
            internalEllipse(l + 4, t + 4, l + 9, t + 9);
        break;
    case ceFocusRect:
        internalFocusRect(l, t, r, b);
        return;
    default:
        return;
    }
    SetPen(penBefore);
    SetBrush(brushBefore);
}

} // namespace vela7
