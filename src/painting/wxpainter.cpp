// The painter's state.

#include "vela7/wxpainter.h"

#include "convert/devicebounds.h"
#include "convert/devicescale.h"
#include "vela7/wxconvert.h"

#include <wx/brush.h>
#include <wx/pen.h>
#include <wx/region.h>
#include <wx/settings.h>

#include <algorithm>

namespace vela7 {

namespace {

struct OperationRow
{
    RasterOperation op;
    wxRasterOperationMode wx;
};

struct PenRow
{
    int style;
    wxPenStyle wx;
    int longestDash; // in widths of the pen
};

struct BrushRow
{
    int style;
    wxBrushStyle wx;
};

// clang-format off
constexpr OperationRow operations[] = {
    {roCopy,       wxCOPY},
    {roOr,         wxOR},
    {roXor,        wxXOR},
    {roAndInvert,  wxAND_INVERT},
    {roSrcInvert,  wxSRC_INVERT},
    {roOrInvert,   wxOR_INVERT},
    {roEquiv,      wxEQUIV},
    {roAnd,        wxAND},
    {roInvert,     wxINVERT},
    {roClear,      wxCLEAR},
    {roSet,        wxSET},
    {roNoOp,       wxNO_OP},
    {roAndReverse, wxAND_REVERSE},
    {roOrReverse,  wxOR_REVERSE},
    {roNand,       wxNAND},
    {roNor,        wxNOR},
};

constexpr PenRow pens[] = {
    {psNone,       wxPENSTYLE_TRANSPARENT, 0},
    {psSolid,      wxPENSTYLE_SOLID,       0},
    {psDash,       wxPENSTYLE_SHORT_DASH,  2},
    {psDot,        wxPENSTYLE_DOT,         1},
    {psDashDot,    wxPENSTYLE_DOT_DASH,    3},
    {psDashDotDot, wxPENSTYLE_SOLID,       0}, // Kept by contract: dash-dot-dot draws solid, wx has no counterpart
    {psAlternate,  wxPENSTYLE_USER_DASH,   2},
};

constexpr BrushRow brushes[] = {
    {bsNone,          wxBRUSHSTYLE_TRANSPARENT},
    {bsSolid,         wxBRUSHSTYLE_SOLID},
    {bsHorizontal,    wxBRUSHSTYLE_HORIZONTAL_HATCH},
    {bsVertical,      wxBRUSHSTYLE_VERTICAL_HATCH},
    {bsCross,         wxBRUSHSTYLE_CROSS_HATCH},
    {bsBDiagonal,     wxBRUSHSTYLE_BDIAGONAL_HATCH},
    {bsFDiagonal,     wxBRUSHSTYLE_FDIAGONAL_HATCH},
    {bsDiagonalCross, wxBRUSHSTYLE_CROSSDIAG_HATCH},
};
// clang-format on

constexpr int widestPen = 0x4000; // pixels; what such a pen draws covers all that can be seen
constexpr int longestDash = 255;  // X counts in bytes, and a dash of 0 ends the process

wxPenStyle ToWxPenStyle(int style, int width)
{
    for (const PenRow& row : pens)
        if (row.style == style && row.longestDash * width <= longestDash)
            return row.wx;
    return wxPENSTYLE_SOLID;
}

wxBrushStyle ToWxBrushStyle(int style)
{
    for (const BrushRow& row : brushes)
        if (row.style == style)
            return row.wx;
    return wxBRUSHSTYLE_TRANSPARENT;
}

constexpr int wideFrom = 3; // pens of this width and more have square ends

} // namespace

wxRasterOperationMode vela2wx(RasterOperation op)
{
    for (const OperationRow& row : operations)
        if (row.op == op)
            return row.wx;
    return wxCOPY;
}

wxDC* GetWxDC(IPainter* painter)
{
    return painter ? painter->GetDC() : nullptr;
}

void CwxPainter::SetBeginSettings()
{
    device->SetBrush(wxBrush(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE), wxBRUSHSTYLE_TRANSPARENT));
    device->SetPen(*wxBLACK_PEN);
    device->SetFont(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT));
}

bool CwxPainter::DoSetLastCoord()
{
    return true;
}

// Kept by contract: the base converts the coordinates; the DC never transforms, or it would happen twice.
void CwxPainter::internalScale(double, double) {}
void CwxPainter::internalTranslate(double, double) {}

// ---- colours and modes

void CwxPainter::internalSetTextColor(const _color& color)
{
    device->SetTextForeground(vela2wx(color));
}

_color CwxPainter::GetTextColor()
{
    return device ? wx2vela(device->GetTextForeground()) : _color();
}

// The painter's background colour is the text's; the DC's background brush is another thing.
void CwxPainter::internalSetBkColor(const _color& color)
{
    device->SetTextBackground(vela2wx(color));
}

_color CwxPainter::GetBkColor()
{
    return device ? wx2vela(device->GetTextBackground()) : _color();
}

void CwxPainter::SetBkMode(BkMode mode)
{
    if (device)
        device->SetBackgroundMode(mode == bkTransparent ? wxTRANSPARENT : wxSOLID);
}

BkMode CwxPainter::GetBkMode()
{
    return device && device->GetBackgroundMode() != wxTRANSPARENT ? bkOpaque : bkTransparent;
}

void CwxPainter::SetRasterOperation(RasterOperation op)
{
    if (device)
        device->SetLogicalFunction(vela2wx(op));
}

RasterOperation CwxPainter::GetRasterOperation()
{
    if (device)
        for (const OperationRow& row : operations)
            if (row.wx == device->GetLogicalFunction())
                return row.op;
    return roCopy;
}

// ---- pen, brush, font

void CwxPainter::internalSetPen(const pen& value)
{
    static const wxDash alternate[] = {1, 2}; // wx keeps the pointer as long as the pen is selected
    const int width = std::clamp(value.width, -1, widestPen); // wx takes negative ones for 1
    const wxPenStyle style = ToWxPenStyle(value.style, width);
    wxPen result(vela2wx(value.color), width, style);
    if (value.width >= wideFrom) {
        result.SetCap(wxCAP_BUTT);
        result.SetJoin(wxJOIN_MITER);
    }
    if (style == wxPENSTYLE_USER_DASH)
        result.SetDashes(2, alternate);
    device->SetPen(result);
}

void CwxPainter::internalSetBrush(const brush& value)
{
    wxBrush result = device->GetBrush();
    result.SetColour(vela2wx(value.color));
    result.SetStyle(ToWxBrushStyle(value.style));
    device->SetBrush(result);
}

void CwxPainter::internalSetFont(const font& value)
{
    device->SetFont(vela2wx(value));
}

font CwxPainter::internalGetFont()
{
    return device ? wx2vela(device->GetFont()) : font();
}

void CwxPainter::internalGetFontMetrics(fontmetrics* metrics)
{
    if (!metrics)
        return;
    const wxFont current = device->GetFont();
    wxCoord width = 0, height = 0, descent = 0, leading = 0;
    device->GetTextExtent("Q", &width, &height, &descent, &leading);
    *metrics = fontmetrics();
    metrics->height = device->GetCharHeight();
    metrics->descent = descent;
    metrics->averageWidth = device->GetTextExtent("H").GetWidth(); // as GTK 2 answers; wx 3.2 takes a "g"
    metrics->externalLeading = leading;
    if (!current.IsOk())
        return;
    metrics->bold = current.GetWeight() == wxFONTWEIGHT_BOLD;
    metrics->italic = current.GetStyle() == wxFONTSTYLE_ITALIC;
    metrics->underlined = current.GetUnderlined();
}

// ---- clipping

void CwxPainter::internalSetClipRect(int l, int t, int r, int b, bool exclude)
{
    const wxRect rect = Bounded(*device, l, t, r, b);
    if (!exclude) {
        device->SetClippingRegion(rect);
        return;
    }
    const rectangle<int> area = GetDrawRect();
    wxRegion region(0, 0, area.Width(), area.Height());
    region.Subtract(rect);
    device->SetDeviceClippingRegion(region);
}

void CwxPainter::internalCancelClipping()
{
    device->DestroyClippingRegion();
}

double CwxPainter::internalGetDPIScale() const
{
    return device ? ScaleOf(*device) : 1.0;
}

} // namespace vela7
