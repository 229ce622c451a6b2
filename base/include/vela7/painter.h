/// The painter: draws on a canvas.
///
/// A window's own painter belongs to the window (TakeDefPainter); others come in counted handles
/// (CreatePainter). Thread: GUI.
///
/// Toolkit code calls the public operations with logical coordinates. They convert to device pixels
/// (X = x * scale + translation, rounded half up) and call the internal... operations, which a back-end
/// implements. Drawing works between BeginPaint and EndPaint; outside, operations do nothing and queries
/// answer zeros and black. In rectangles right and bottom are exclusive.
#pragma once

#include "vela7/canvas.h"
#include "vela7/cbase.h"
#include "vela7/types.h"

#include <string>
#include <vector>

// The device behind a wx back-end's painter; a name only, this header knows nothing of it.
class wxDC;

namespace vela7 {

class ISysPalette;

// Codes beside those that have names may be handed in; each operation says what they do.

enum BkMode : int
{
    bkTransparent = 0,
    bkOpaque = 1
};

// clang-format off
enum RasterOperation : int
{
    roCopy       =  0, roOr        =  1, roXor   =  2, roAndInvert  =  3,
    roSrcInvert  =  4, roOrInvert  =  5, roEquiv =  6, roAnd        =  7,
    roInvert     =  8, roClear     =  9, roSet   = 10, roNoOp       = 11,
    roAndReverse = 12, roOrReverse = 13, roNand  = 14, roNor        = 15
};

enum ControlElement : int
{
    ceHeaderButton         = 0,
    ceCheckBoxChecked      = 1,
    ceCheckBoxUnchecked    = 2,
    ceCheckBoxUndetermined = 3,
    ceTreeCollapsed        = 4,
    ceTreeExpanded         = 5,
    ceFocusRect            = 6,
    cePushButton           = 7,
    ceComboDropButton      = 8,
    ceDropArrow            = 9,
    ceRadioChecked         = 10,
    ceRadioUnchecked       = 11
};

/// Bits of the state of a control element.
enum ControlState
{
    csDisabled = 0x1,
    csFocused  = 0x2,
    csCurrent  = 0x4,
    csPressed  = 0x8
};

/// Bits for DrawStringEx.
enum TextFormat : unsigned
{
    tfLeft        = 0x1,
    tfRight       = 0x2,
    tfHCenter     = 0x4,
    tfTop         = 0x8,
    tfBottom      = 0x10,
    tfVCenter     = 0x20,
    tfSingleLine  = 0x40,
    tfEndEllipsis = 0x80,
    tfMeasureOnly = 0x1000
};
// clang-format on

/// Stored by the painter for back-ends that care; the wx back-end draws pixels.
using PointStyle = int;
constexpr PointStyle ptPixel = 0;

/// How a paint starts.
enum StdSettings : int
{
    ssClear = 1,    ///< clears to the background colour
    ssBuffered = 2, ///< clears an off-screen buffer, which EndPaint shows in one go
    ssAsIs = 3      ///< leaves what is there
};

class VELA7_BASE_API IPainter : public CBase
{
public:
    IPainter();
    ~IPainter() override;

    std::uint64_t AddRef() override;
    std::uint64_t Release() override;

    // ---- what a back-end implements; the order is binding

    /// The drawable area, device pixels.
    virtual rectangle<int> GetDrawRect() = 0;
    virtual void SetPointStyle(PointStyle style) { m_pointStyle = style; }
    virtual _color GetTextColor() = 0;
    virtual _color GetBkColor() = 0;
    virtual void SetBkMode(BkMode mode) = 0;
    virtual BkMode GetBkMode() = 0;
    virtual void SetRasterOperation(RasterOperation op) = 0;
    virtual RasterOperation GetRasterOperation() = 0;
    /// False: the rest of the buffer still holds the last paint's picture.
    virtual bool IsFullRepaint() const { return true; }
    /// True: the base keeps the last logical coordinate for GetCurrentPos.
    virtual bool DoSetLastCoord() = 0;
    virtual bool CreatePaintDevice(StdSettings settings) = 0;
    virtual void SetBeginSettings() = 0;
    virtual void internalEndPaint() = 0;
    virtual _color internalSetPixel(int x, int y, _color color) = 0;
    virtual _color internalGetPixel(int x, int y) = 0;
    virtual point<int> internalMoveTo(int x, int y) = 0;
    virtual point<int> internalGetCurrentPos() = 0;
    virtual void internalLineTo(int x, int y) = 0;
    virtual void internalFillRect(int l, int t, int r, int b) = 0;
    virtual void internalGradientH(int l, int t, int r, int b, _color from, _color to,
                                   unsigned long steps) = 0;
    virtual void internalGradientV(int l, int t, int r, int b, _color from, _color to,
                                   unsigned long steps) = 0;
    virtual void internalRectangle(int l, int t, int r, int b) = 0;
    virtual void internalFocusRect(int l, int t, int r, int b) = 0;
    virtual void internalEllipse(int l, int t, int r, int b) = 0;
    virtual void internalRoundRect(int l, int t, int r, int b, int ew, int eh) = 0;
    virtual void internalArc(int l, int t, int r, int b, int start, int end) = 0;
    virtual void internalChord(int l, int t, int r, int b, int start, int end) = 0;
    virtual void internalPie(int l, int t, int r, int b, int start, int end) = 0;
    virtual void internalPolyLine(const point<int>* points, int count, int first, int last) = 0;
    virtual void internalPolyBezier(const point<int>* points, int count, int first, int last) = 0;
    virtual void internalPolygon(const point<int>* points, int count) = 0;
    virtual void internalScale(double sx, double sy) = 0;
    virtual void internalTranslate(double dx, double dy) = 0;
    virtual void internalDrawString(int x, int y, const char* text, int length) = 0;
    virtual void internalDrawStringNative(const rectangle<int>& area, const std::string& text, int format);
    virtual void internalDrawXPM(const XPMImage& image, int x, int y, int cx, int cy, int w, int h,
                                 double scale, RasterOperation op) = 0;
    virtual void internalDrawRasterPicture(IRasterPicture* picture, int l, int t, int r, int b,
                                           RasterOperation op) = 0;
    virtual void internalExtractRasterPicture(IRasterPicture* picture, int l, int t, int r, int b) = 0;
    virtual void internalDrawRasterPictureEx(IRasterPicture* picture, int sl, int st, int sr, int sb, int dl,
                                             int dt, int dr, int db, RasterOperation op) = 0;
    virtual void internalExtractRasterPictureEx(IRasterPicture* picture, int pl, int pt, int pr, int pb,
                                                int sl, int st, int sr, int sb) = 0;
    virtual void internalSetClipRect(int l, int t, int r, int b, bool exclude) = 0;
    virtual void internalCancelClipping() = 0;
    virtual void internalSetPen(const pen& value) = 0;
    virtual void internalSetBrush(const brush& value) = 0;
    virtual void internalSetTextColor(const _color& color) = 0;
    virtual void internalSetBkColor(const _color& color) = 0;
    virtual point<int> internalGetTextSize(const char* text, const font* with, int length) = 0;
    virtual void internalGetFontMetrics(fontmetrics* metrics) = 0;
    virtual void internalDrawControlElement(ControlElement element, int l, int t, int r, int b,
                                            int state) = 0;
    virtual void internalSemiFillRect(int l, int t, int r, int b, _color color) = 0;
    virtual void internalSetFont(const font& value) = 0;
    virtual font internalGetFont() = 0;
    virtual void internalAlphaBlend(int l, int t, int r, int b, IRasterPicture* picture,
                                    int transparency) = 0;
    virtual void internalAlphaBlend(int l, int t, int r, int b, IRasterPicture* picture,
                                    unsigned char* transparencies) = 0;
    virtual double internalGetDPIScale() const = 0;
    virtual void SetAntiAliasMode(bool antiAlias) { m_antiAlias = antiAlias; }
    virtual wxDC* GetDC() = 0;
    virtual void SetCanvas(ICanvas* canvas) = 0;

    // ---- the paint bracket

    /// Opens a bracket; nested ones are counted, only the outermost prepares the device. False: there is
    /// nothing to draw on, every drawing operation does nothing; call EndPaint all the same.
    bool BeginPaint(StdSettings settings = ssClear);
    /// Without an open bracket it does nothing.
    void EndPaint();
    /// Ends all open brackets: for back-ends, when the device goes away under a paint.
    void EndAllPaints();
    /// Inside a successful bracket.
    bool IsEnabled() const { return m_enabled; }

    // ---- coordinates

    /// Converts in place: logical to device, or back. A zero scale leaves the point.
    void ConvertCoord1(point<double>* p, bool toLogical) const;
    void Scale(double sx, double sy);
    void Translate(double dx, double dy);
    /// To the state after BeginPaint.
    void ResetTransform();
    /// The device's, 1.0 or more; 1.0 without device.
    double GetDPIScale() const { return internalGetDPIScale(); }
    /// Off: coordinates are device pixels already.
    void SetCoordConversion(bool on) { m_convert = on ? 1 : 0; }
    bool GetCoordConversion() const { return m_convert != 0; }

    // ---- state

    /// A pen's width scales with the coordinates, but stays at least 1.
    void SetPen(const pen& value);
    const pen& GetPen() const { return m_pen; }
    void SetBrush(const brush& value);
    const brush& GetBrush() const { return m_brush; }
    /// The size follows Scale; the DPI it follows by itself.
    void SetFont(const font& value);
    /// As last set, with angle and strike-out.
    const font& GetFont();
    void SetTextColor(const _color& color);
    /// The background of opaque text.
    void SetBkColor(const _color& color);

    // ---- shapes

    /// Draws one pixel; answers the colour drawn.
    _color SetPixel(double x, double y, const _color& color);
    _color GetPixel(double x, double y);
    void MoveTo(double x, double y);
    /// From the current position, which moves along; the end point is not drawn.
    void LineTo(double x, double y);
    point<double> GetCurrentPos();
    /// With the brush, without outline.
    void FillRect(double l, double t, double r, double b);
    /// With pen and brush.
    void Rectangle(double l, double t, double r, double b);
    void Rectangle(const rectangle<double>& r) { Rectangle(r.left, r.top, r.right, r.bottom); }
    /// Dotted, by inversion: drawing it twice removes it.
    void FocusRect(double l, double t, double r, double b);
    void Ellipse(double l, double t, double r, double b);
    void RoundRect(double l, double t, double r, double b, double ew, double eh);
    /// Angles in tenths of a degree, counter-clockwise from three o'clock.
    void Arc(double l, double t, double r, double b, int start, int end);
    void Chord(double l, double t, double r, double b, int start, int end);
    void Pie(double l, double t, double r, double b, int start, int end);
    /// Points first..last; -1 = the last one. A null array or a reversed range draws nothing.
    void PolyLine(const point<double>* points, int count, int first = 0, int last = -1);
    void PolyBezier(const point<double>* points, int count, int first = 0, int last = -1);
    void Polygon(const point<double>* points, int count);
    void GradientH(double l, double t, double r, double b, const _color& from, const _color& to,
                   unsigned long steps = 0);
    void GradientV(double l, double t, double r, double b, const _color& from, const _color& to,
                   unsigned long steps = 0);
    void SemiFillRect(double l, double t, double r, double b, const _color& color);

    // ---- text; bytes in the C library's locale; length -1 = all

    void DrawString(double x, double y, const std::string& text, int length = -1);
    /// Lays text out in a rectangle; answers the width of the widest line and the height of all lines.
    ///
    /// format: TextFormat bits. Unless tfSingleLine is set, lines end at line breaks and, where the rectangle
    /// is too narrow, behind a character of breakSet; blanks at such an end are left out. A piece that is
    /// wider than the rectangle is broken between characters. Nothing is clipped. Empty text is (0, 0).
    size<double> DrawStringEx(const std::string& text, const rectangle<double>& area, unsigned format,
                              int length = -1, const char* breakSet = " \t\n\r");
    /// Logical units; with null: the painter's own font.
    size<double> GetTextSize(const std::string& text, const font* with = nullptr, int length = -1);
    /// Device pixels.
    void GetFontMetrics(fontmetrics* metrics);

    // ---- pictures; a null picture draws nothing

    void DrawXPM(const XPMImage& image, double x, double y, int cx = 0, int cy = 0, int w = -1, int h = -1,
                 double scale = 1.0, RasterOperation op = roCopy);
    void DrawRasterPicture(IRasterPicture* picture, double l, double t, double r, double b,
                           RasterOperation op = roCopy);
    void DrawRasterPictureEx(IRasterPicture* picture, const rectangle<int>& source,
                             const rectangle<double>& target, RasterOperation op = roCopy);
    void ExtractRasterPicture(IRasterPicture* picture, double l, double t, double r, double b);
    void ExtractRasterPictureEx(IRasterPicture* picture, const rectangle<int>& target,
                                const rectangle<double>& source);
    /// transparency: 0 = opaque .. 255 = invisible.
    void AlphaBlend(double l, double t, double r, double b, IRasterPicture* picture, int transparency);
    /// One byte a pixel, row by row.
    void AlphaBlend(double l, double t, double r, double b, IRasterPicture* picture,
                    unsigned char* transparencies);
    void DrawControlElement(ControlElement element, double l, double t, double r, double b, int state);

    // ---- clipping

    /// Clips to the part that is common with the clip in force, or (exclude) to everything but the rectangle.
    void SetClipRect(double l, double t, double r, double b, bool exclude = false);
    void CancelClipping();
    /// Logical. All zeros: no clip; (-1, -1, -1, -1): nothing is left. Excluded rectangles do not change it.
    rectangle<double> GetClipRect() const;

    // ---- what windows and toolkit code tell each other

    ICanvas* GetCanvas() const { return m_canvas; }
    /// What clearing fills with; a flagged colour clears nothing.
    const _color& GetBackgroundColor() const { return m_background; }
    void SetBackgroundColor(const _color& color) { m_background = color; }
    /// Grey scale: colours handed in turn grey.
    bool GetGrayScale() const { return m_grayScale; }
    void SetGrayScale(bool on) { m_grayScale = on; }
    /// While set, the window's paint events draw nothing at all.
    bool GetPaintSuppressed() const { return m_suppressed; }
    void SetPaintSuppressed(bool on) { m_suppressed = on; }
    /// The painter keeps the window's content in an off-screen buffer. Every BeginPaint sets it.
    bool GetRetainedBuffer() const { return m_retained; }
    void SetRetainedBuffer(bool on) { m_retained = on; }
    /// The damage of the paint event, device pixels.
    const rectangle<int>& GetUpdateRect() const { return m_updateRect; }
    void SetUpdateRect(const rectangle<int>& rect) { m_updateRect = rect; }
    /// Null: GetDefaultPalette(). Not owned.
    ISysPalette* GetPalette() const { return m_palette; }
    void SetPalette(ISysPalette* palette) { m_palette = palette; }

    /// The grey of a colour: 0.3 red + 0.59 green + 0.11 blue, truncated; alpha and flag stay.
    static _color ToGray(const _color& color);

protected:
    /// GetClipRect in device coordinates; null: no clip.
    const rectangle<int>* GetDeviceClip() const { return m_clipped ? &m_clip : nullptr; }

    ICanvas* m_canvas = nullptr; // the painted one; it keeps or outlives this painter
    PointStyle m_pointStyle = ptPixel;
    bool m_antiAlias = false;

private:
    struct DeviceRect
    {
        int l, t, r, b;
    };

    int DeviceX(double x) const;
    int DeviceY(double y) const;
    int DeviceWidth(double width) const;
    int DeviceHeight(double height) const;
    DeviceRect ToDevice(double l, double t, double r, double b) const;
    const point<int>* ToDevice(const point<double>* points, int count);
    template <class... Params, class... Args>
    void OnRect(void (IPainter::*operation)(int, int, int, int, Params...), double l, double t, double r,
                double b, const Args&... args);
    point<int> MeasureDevice(const std::string& text);
    size<double> ToLogical(const point<int>& extent) const;
    _color Tint(const _color& color) const { return m_grayScale ? ToGray(color) : color; }
    void SyncState();

    double m_sx = 1.0, m_sy = 1.0, m_tx = 0.0, m_ty = 0.0;
    double m_startScale = 1.0; // the DPI part of the scale
    int m_nesting = 0;
    bool m_enabled = false;
    unsigned char m_convert = 1;
    bool m_grayScale = false;
    bool m_suppressed = false;
    bool m_retained = false;
    bool m_clipped = false;
    rectangle<int> m_clip; // device
    rectangle<int> m_updateRect;
    _color m_background{255, 255, 255};
    ISysPalette* m_palette = nullptr;
    pen m_pen;
    brush m_brush;
    font m_font;
    bool m_fontKnown = true; // else the device's own is asked for when needed
    point<double> m_last;    // logical
    std::vector<point<int>> m_points;
};

/// Opens a paint bracket for the time of a scope. The painter may die meanwhile.
class CPaintScope
{
public:
    explicit CPaintScope(IPainter& painter, StdSettings settings = ssClear)
        : m_painter(painter), m_life(painter.WatchLife()), m_ok(painter.BeginPaint(settings))
    {
    }
    ~CPaintScope()
    {
        if (m_life.IsAlive())
            m_painter.EndPaint();
    }
    CPaintScope(const CPaintScope&) = delete;
    CPaintScope& operator=(const CPaintScope&) = delete;

    /// False: there is nothing to draw on.
    bool IsOk() const { return m_ok; }

private:
    IPainter& m_painter;
    CLifeWatch m_life;
    bool m_ok;
};

} // namespace vela7
