/// The painter over a wx device context.
#pragma once

#include "vela7/border.h"
#include "vela7/painter.h"
#include "vela7/wxexport.h"

#include <wx/dc.h>

class wxWindow;

namespace vela7 {

/// Forwards the toolkit's drawing to one wxDC; all coordinates that arrive are device pixels.
///
/// Abstract: CwxWinPainter paints windows, CwxRstPainter raster pictures. Pen, brush, font, colours, raster
/// operation and clipping live in the DC only and end with it. Whoever made a painter deletes it (a window
/// its own, a handle others). Thread: GUI. Between BeginPaint and EndPaint only, except GetDC (null outside),
/// SetCanvas, internalMoveTo, internalGetCurrentPos and internalGetDPIScale (1.0 outside).
class VELA7_WX_API CwxPainter : public IPainter
{
public:
    _color GetTextColor() override;
    _color GetBkColor() override;
    void SetBkMode(BkMode mode) override;
    BkMode GetBkMode() override;
    /// Codes outside 0..15 select roCopy.
    void SetRasterOperation(RasterOperation op) override;
    RasterOperation GetRasterOperation() override;
    bool DoSetLastCoord() override;
    void SetBeginSettings() override;
    _color internalSetPixel(int x, int y, _color color) override;
    _color internalGetPixel(int x, int y) override;
    point<int> internalMoveTo(int x, int y) override;
    point<int> internalGetCurrentPos() override;
    void internalLineTo(int x, int y) override;
    void internalFillRect(int l, int t, int r, int b) override;
    void internalGradientH(int l, int t, int r, int b, _color from, _color to, unsigned long steps) override;
    void internalGradientV(int l, int t, int r, int b, _color from, _color to, unsigned long steps) override;
    void internalRectangle(int l, int t, int r, int b) override;
    void internalFocusRect(int l, int t, int r, int b) override;
    void internalEllipse(int l, int t, int r, int b) override;
    /// The radius is the smaller of ew and eh.
    void internalRoundRect(int l, int t, int r, int b, int ew, int eh) override;
    void internalArc(int l, int t, int r, int b, int start, int end) override;
    /// The same as internalPie.
    void internalChord(int l, int t, int r, int b, int start, int end) override;
    void internalPie(int l, int t, int r, int b, int start, int end) override;
    void internalPolyLine(const point<int>* points, int count, int first, int last) override;
    /// A spline through the points.
    void internalPolyBezier(const point<int>* points, int count, int first, int last) override;
    void internalPolygon(const point<int>* points, int count) override;
    void internalScale(double sx, double sy) override;
    void internalTranslate(double dx, double dy) override;
    void internalDrawString(int x, int y, const char* text, int length) override;
    /// cx and cy shorten what is drawn, they never shift it.
    void internalDrawXPM(const XPMImage& image, int x, int y, int cx, int cy, int w, int h, double scale,
                         RasterOperation op) override;
    void internalDrawRasterPicture(IRasterPicture* picture, int l, int t, int r, int b,
                                   RasterOperation op) override;
    void internalExtractRasterPicture(IRasterPicture* picture, int l, int t, int r, int b) override;
    void internalDrawRasterPictureEx(IRasterPicture* picture, int sl, int st, int sr, int sb, int dl, int dt,
                                     int dr, int db, RasterOperation op) override;
    void internalExtractRasterPictureEx(IRasterPicture* picture, int pl, int pt, int pr, int pb, int sl,
                                        int st, int sr, int sb) override;
    void internalSetClipRect(int l, int t, int r, int b, bool exclude) override;
    void internalCancelClipping() override;
    void internalSetPen(const pen& value) override;
    void internalSetBrush(const brush& value) override;
    void internalSetTextColor(const _color& color) override;
    void internalSetBkColor(const _color& color) override;
    /// One pixel less in width than wx says for a text that begins with a capital, at DPI scale 1.0.
    point<int> internalGetTextSize(const char* text, const font* with, int length) override;
    void internalGetFontMetrics(fontmetrics* metrics) override;
    /// The classic look, drawn by hand; boxes are 13 x 13. ceCheckBoxUndetermined, ceComboDropButton and
    /// ceDropArrow draw nothing. Concrete painters draw by the theme where they can.
    void internalDrawControlElement(ControlElement element, int l, int t, int r, int b, int state) override;
    /// Draws by the desktop's theme, for a window. What is clipped in part stays untouched outside the clip;
    /// excluded clip rectangles are not heeded by the theme.
    void NativeDrawControlElement(wxWindow* window, ControlElement element, int left, int top, int right,
                                  int bottom, int state);
    /// Draws nothing.
    void internalSemiFillRect(int l, int t, int r, int b, _color color) override;
    void internalSetFont(const font& value) override;
    font internalGetFont() override;
    void internalAlphaBlend(int l, int t, int r, int b, IRasterPicture* picture, int transparency) override;
    void internalAlphaBlend(int l, int t, int r, int b, IRasterPicture* picture,
                            unsigned char* transparencies) override;
    double internalGetDPIScale() const override;
    wxDC* GetDC() override { return device; }
    void SetCanvas(ICanvas* canvas) override { m_canvas = canvas; }

protected:
    CwxPainter() = default;

    wxDC* device = nullptr; // of the concrete painter, which sets and ends it

    /// Parts of the elements drawn by hand: the filled frame, and the pen for what stands in it.
    void DrawElementBase(int left, int top, int right, int bottom, bool enabled, bool round);
    void SetElementFgColor(bool enabled);

private:
    void DrawOffScreen(wxWindow* window, ControlElement element, const wxRect& whole, const wxRect& shown,
                       int flags);
    void DrawTick(int left, int top);
    void DrawExpander(int left, int top, int right, int bottom, bool plus);
    void DrawButtonByHand(int left, int top, int right, int bottom, BorderShape shape, int state);

    point<int> m_current;
};

/// The wx device behind any painter of this back-end; null outside a paint and for a null painter.
VELA7_WX_API wxDC* GetWxDC(IPainter* painter);

/// The wx logical function of a RasterOperation; wxCOPY for unknown codes.
VELA7_WX_API wxRasterOperationMode vela2wx(RasterOperation op);

} // namespace vela7
