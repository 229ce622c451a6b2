/// A painter that writes down what reached the device.
///
/// Lines carry device coordinates, after all conversions: Rectangle(0, 0, 10, 10) under Scale(2, 2) reads
/// "Rectangle 0 0 20 20". Getters answer what was set, Clip what can be drawn on; text is charWidth x
/// charHeight pixels a byte, in every font. The public fields are the test's to change at any time.
///
/// What works as pixels: solid fills, that is the clearing at the beginning of a paint, FillRect with a solid
/// brush and SetPixel, within the clip; GetPixel and PixelAt find them. What deliberately does not:
/// everything else leaves a line in the log and no pixel, and raster operations count as copying. Own it on
/// the stack, or let a handle made from a new one own it.
#pragma once

#include "vela7/painter.h"
#include "vela7/testing/protocol.h"
#include "vela7/xpm.h"

#include <vector>

namespace vela7::testkit {

/// What a canvas of this size answers; a screen of 1280 x 1024 pixels at 96 DPI and 24 bits.
VELA7_TESTING_API int CanvasMetric(ICanvas::CanvasMetrics metric, const size<int>& canvas);

class VELA7_TESTING_API RecordingPainter : public IPainter
{
public:
    double dpiScale = 1.0;
    int charWidth = 8;
    int charHeight = 16;
    bool failToBegin = false;  ///< there is no device to paint on
    bool fullRepaint = true;   ///< the last picture is gone; false after a buffered paint, until Resize
    bool keepLastCoord = true; ///< what DoSetLastCoord answers

    Protocol drawn;

    /// The canvas has this size, 100 x 100 unless told, and nothing on it.
    void Resize(int width, int height);
    /// What a paint event lets through, until told otherwise.
    void SetPaintArea(const rectangle<int>& area) { m_paintArea = area; }
    /// What the clip in force leaves of it, but for excluded rectangles; device pixels.
    rectangle<int> Clip() const { return m_clip.Intersect(m_paintArea); }
    /// Black where nothing was filled.
    _color PixelAt(int x, int y) const;

    using Points = const point<int>*;
    using Picture = IRasterPicture*;
    using Op = RasterOperation;

    // ---- bracket and state
    bool CreatePaintDevice(StdSettings settings) override;
    void SetBeginSettings() override; // not written down: every paint begins with the same settings
    void internalEndPaint() override;
    rectangle<int> GetDrawRect() override { return m_canvasArea; }
    bool DoSetLastCoord() override { return keepLastCoord; }
    bool IsFullRepaint() const override { return fullRepaint; }
    double internalGetDPIScale() const override { return m_hasDevice ? dpiScale : 1.0; }
    wxDC* GetDC() override { return nullptr; }
    void SetCanvas(ICanvas* canvas) override { m_canvas = canvas; }
    void internalScale(double, double) override {}
    void internalTranslate(double, double) override {}
    _color GetTextColor() override { return m_textColor; }
    _color GetBkColor() override { return m_bkColor; }
    BkMode GetBkMode() override { return m_bkMode; }
    RasterOperation GetRasterOperation() override { return m_operation; }
    font internalGetFont() override { return {}; }
    void internalSetTextColor(const _color& color) override { Note("TextColor", m_textColor = color); }
    void internalSetBkColor(const _color& color) override { Note("BkColor", m_bkColor = color); }
    void SetBkMode(BkMode mode) override { Note("BkMode", m_bkMode = mode); }
    void SetRasterOperation(RasterOperation op) override { Note("Operation", m_operation = op); }
    void internalSetPen(const pen& value) override { Note("Pen", value); }
    void internalSetBrush(const brush& value) override { Note("Brush", m_brush = value); }
    void internalSetFont(const font& value) override { Note("Font", value); }
    void internalCancelClipping() override;
    void internalSetClipRect(int l, int t, int r, int b, bool exclude) override;

    // clang-format off
    // ---- points and lines
    _color internalSetPixel(int x, int y, _color color) override;
    _color internalGetPixel(int x, int y) override { return PixelAt(x, y); }
    point<int> internalMoveTo(int x, int y) override { return m_position = {x, y}; }
    point<int> internalGetCurrentPos() override { return m_position; }
    void internalLineTo(int x, int y) override;
    void internalPolyLine(Points p, int n, int first, int last) override { NotePoints("PolyLine", p, n, first, last); }
    void internalPolyBezier(Points p, int n, int first, int last) override { NotePoints("PolyBezier", p, n, first, last); }
    void internalPolygon(Points p, int n) override { NotePoints("Polygon", p, n, 0, -1); }

    // ---- areas
    void internalArc(int l, int t, int r, int b, int from, int to) override { Note("Arc", l, t, r, b, from, to); }
    void internalChord(int l, int t, int r, int b, int from, int to) override { Note("Chord", l, t, r, b, from, to); }
    void internalPie(int l, int t, int r, int b, int from, int to) override { Note("Pie", l, t, r, b, from, to); }
    void internalFillRect(int l, int t, int r, int b) override;
    void internalRectangle(int l, int t, int r, int b) override { Note("Rectangle", l, t, r, b); }
    void internalFocusRect(int l, int t, int r, int b) override { Note("FocusRect", l, t, r, b); }
    void internalEllipse(int l, int t, int r, int b) override { Note("Ellipse", l, t, r, b); }
    void internalRoundRect(int l, int t, int r, int b, int w, int h) override { Note("RoundRect", l, t, r, b, w, h); }
    void internalSemiFillRect(int l, int t, int r, int b, _color c) override { Note("SemiFillRect", l, t, r, b, c); }
    void internalGradientH(int l, int t, int r, int b, _color from, _color to, unsigned long) override
        { Note("GradientH", l, t, r, b, from, to); }
    void internalGradientV(int l, int t, int r, int b, _color from, _color to, unsigned long) override
        { Note("GradientV", l, t, r, b, from, to); }
    void internalDrawControlElement(ControlElement what, int l, int t, int r, int b, int state) override
        { Note("ControlElement", what, l, t, r, b, "state", state); }

    // ---- text and pictures
    void internalDrawString(int x, int y, const char* text, int length) override;
    point<int> internalGetTextSize(const char*, const font*, int length) override;
    void internalGetFontMetrics(fontmetrics* metrics) override;
    void internalDrawXPM(const XPMImage& i, int x, int y, int cx, int cy, int w, int h, double scale, Op op) override
        { Note("XPM", i.width, i.height, "at", x, y, "from", cx, cy, "size", w, h, "scale", scale, "op", op); }
    void internalDrawRasterPicture(Picture, int l, int t, int r, int b, Op op) override
        { Note("Picture", l, t, r, b, "op", op); }
    void internalDrawRasterPictureEx(Picture, int l, int t, int r, int b, int dl, int dt, int dr, int db, Op op) override
        { Note("Picture from", l, t, r, b, "to", dl, dt, dr, db, "op", op); }
    void internalExtractRasterPicture(Picture, int l, int t, int r, int b) override { Note("Extract", l, t, r, b); }
    void internalExtractRasterPictureEx(Picture, int l, int t, int r, int b, int sl, int st, int sr, int sb) override
        { Note("Extract to", l, t, r, b, "from", sl, st, sr, sb); }
    void internalAlphaBlend(int l, int t, int r, int b, Picture, int transparency) override
        { Note("AlphaBlend", l, t, r, b, "transparency", transparency); }
    void internalAlphaBlend(int l, int t, int r, int b, Picture, unsigned char*) override
        { Note("AlphaBlend", l, t, r, b, "by pixel"); }
    // clang-format on

private:
    template <class... Values>
    void Note(const char* what, const Values&... values)
    {
        drawn.Note(what, values...);
    }
    void NotePoints(const char* what, Points points, int count, int first, int last);
    void Fill(int l, int t, int r, int b, const _color& color);

    /// What one fill left; later ones lie on earlier ones.
    struct Patch
    {
        rectangle<int> area;
        std::vector<rectangle<int>> holes;
        _color color;
    };

    rectangle<int> m_canvasArea{0, 0, 100, 100};
    rectangle<int> m_paintArea = m_canvasArea;
    rectangle<int> m_clip = m_canvasArea;
    std::vector<rectangle<int>> m_excluded;
    std::vector<Patch> m_patches;
    brush m_brush;
    bool m_hasDevice = false;
    bool m_buffered = false;
    point<int> m_position;
    _color m_textColor;
    _color m_bkColor{255, 255, 255};
    BkMode m_bkMode = bkTransparent;
    RasterOperation m_operation = roCopy;
};

} // namespace vela7::testkit
