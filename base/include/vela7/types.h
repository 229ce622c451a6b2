/// Value types and codes of the toolkit.
///
/// Plain values: copy them freely, on any thread.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

namespace vela7 {

/// A colour: four channels of 0..255 (alpha 255 = opaque) and a flag.
///
/// Flag 0 is a plain colour. Any other flag means "no colour": a point is drawn with the current pen, a
/// background is not cleared, an image gets no mask.
struct _color
{
    unsigned char red = 0;
    unsigned char green = 0;
    unsigned char blue = 0;
    unsigned char alpha = 255;
    unsigned char flag = 0;

    constexpr _color() = default;
    constexpr _color(unsigned char r, unsigned char g, unsigned char b, unsigned char a = 255)
        : red(r), green(g), blue(b), alpha(a)
    {
    }

    /// The colour that is none (flag 1).
    static constexpr _color none()
    {
        _color c;
        c.flag = 1;
        return c;
    }

    friend constexpr bool operator==(const _color& a, const _color& b)
    {
        return a.red == b.red && a.green == b.green && a.blue == b.blue && a.alpha == b.alpha &&
               a.flag == b.flag;
    }
    friend constexpr bool operator!=(const _color& a, const _color& b) { return !(a == b); }
};

enum FontFamily
{
    ffSwiss = 0,
    ffRoman = 1,
    ffModern = 2,
    ffDecorative = 3,
    ffDefault = 4
};

/// Bits of font::style.
enum FontStyle : unsigned
{
    fsBold = 0x1,
    fsItalic = 0x2,
    fsUnderline = 0x4,
    fsStrikeOut = 0x10
};

struct font
{
    std::string face;       ///< face name; empty = any
    int family = ffDefault; ///< FontFamily; other values count as ffDefault
    int size = 0;           ///< points; below 1 = the system's default size
    unsigned style = 0;     ///< FontStyle bits
    std::int32_t angle = 0; ///< of the text, tenths of a degree, counter-clockwise
    double scale = 1.0;     ///< multiplies the size

    friend bool operator==(const font& a, const font& b)
    {
        return a.face == b.face && a.family == b.family && a.size == b.size && a.style == b.style &&
               a.angle == b.angle && a.scale == b.scale;
    }
    friend bool operator!=(const font& a, const font& b) { return !(a == b); }
};

enum PenStyle
{
    psNone = 0,
    psSolid = 1,
    psDash = 2,
    psDot = 3,
    psDashDot = 4,
    psDashDotDot = 5, ///< drawn solid
    psAlternate = 6   ///< one pixel on, two off
};

struct pen
{
    _color color;
    int width = 1; ///< pixels
    int style = psSolid;

    friend bool operator==(const pen& a, const pen& b)
    {
        return a.color == b.color && a.width == b.width && a.style == b.style;
    }
    friend bool operator!=(const pen& a, const pen& b) { return !(a == b); }
};

enum BrushStyle
{
    bsNone = 0,
    bsSolid = 1,
    bsHorizontal = 2,
    bsVertical = 3,
    bsCross = 4,
    bsBDiagonal = 5,
    bsFDiagonal = 6,
    bsDiagonalCross = 7
};

struct brush
{
    _color color{255, 255, 255};
    int style = bsNone;

    friend bool operator==(const brush& a, const brush& b)
    {
        return a.color == b.color && a.style == b.style;
    }
    friend bool operator!=(const brush& a, const brush& b) { return !(a == b); }
};

/// Measures of a font, in device pixels.
struct fontmetrics
{
    int height = 0;
    int ascent = 0; ///< always 0: the device does not report it
    int descent = 0;
    int averageWidth = 0;
    int maxWidth = 0; ///< always 0: the device does not report it
    int externalLeading = 0;
    bool bold = false;
    bool italic = false;
    bool underlined = false;
    bool struckOut = false; ///< always false: struck-out text is drawn by hand
};

template <class T>
struct point
{
    T x{};
    T y{};

    constexpr point() = default;
    constexpr point(T x_, T y_) : x(x_), y(y_) {}

    friend constexpr bool operator==(const point& a, const point& b) { return a.x == b.x && a.y == b.y; }
    friend constexpr bool operator!=(const point& a, const point& b) { return !(a == b); }
};

template <class T>
struct size
{
    T width{};
    T height{};

    constexpr size() = default;
    constexpr size(T w, T h) : width(w), height(h) {}

    friend constexpr bool operator==(const size& a, const size& b)
    {
        return a.width == b.width && a.height == b.height;
    }
    friend constexpr bool operator!=(const size& a, const size& b) { return !(a == b); }
};

/// What rectangles in window and in screen coordinates have in common.
///
/// The constructors that take corners normalise them; fields that are assigned afterwards stay as they are.
template <class T, class Self>
struct basic_rectangle
{
    T left{};
    T top{};
    T right{};
    T bottom{};

    constexpr basic_rectangle() = default;
    constexpr basic_rectangle(T x1, T y1, T x2, T y2)
        : left(std::min(x1, x2)), top(std::min(y1, y2)), right(std::max(x1, x2)), bottom(std::max(y1, y2))
    {
    }
    constexpr basic_rectangle(const point<T>& a, const point<T>& b) : basic_rectangle(a.x, a.y, b.x, b.y) {}

    constexpr T Width() const { return right - left; }
    constexpr T Height() const { return bottom - top; }
    /// All four fields are zero.
    constexpr bool IsNull() const { return left == T{} && top == T{} && right == T{} && bottom == T{}; }
    /// Holds no point.
    constexpr bool IsEmpty() const { return !(right > left && bottom > top); }
    /// Right and bottom are exclusive.
    constexpr bool Contains(const point<T>& p) const
    {
        return p.x >= left && p.x < right && p.y >= top && p.y < bottom;
    }

    /// The common part; an empty rectangle (not necessarily all zeros) when there is none.
    constexpr Self Intersect(const Self& other) const
    {
        Self r;
        r.left = std::max(left, other.left);
        r.top = std::max(top, other.top);
        r.right = std::max(r.left, std::min(right, other.right));
        r.bottom = std::max(r.top, std::min(bottom, other.bottom));
        return r;
    }

    friend constexpr bool operator==(const Self& a, const Self& b)
    {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    }
    friend constexpr bool operator!=(const Self& a, const Self& b) { return !(a == b); }
};

/// In window or device coordinates.
template <class T>
struct rectangle : basic_rectangle<T, rectangle<T>>
{
    using basic_rectangle<T, rectangle<T>>::basic_rectangle;
    constexpr rectangle() = default;
};

/// In screen coordinates; converts to and from rectangle only on request, field by field.
template <class T>
struct screen_rectangle : basic_rectangle<T, screen_rectangle<T>>
{
    using basic_rectangle<T, screen_rectangle<T>>::basic_rectangle;
    constexpr screen_rectangle() = default;

    constexpr explicit screen_rectangle(const rectangle<T>& r) { Assign(r); }
    constexpr explicit operator rectangle<T>() const
    {
        rectangle<T> r;
        r.left = this->left;
        r.top = this->top;
        r.right = this->right;
        r.bottom = this->bottom;
        return r;
    }

private:
    constexpr void Assign(const rectangle<T>& r)
    {
        this->left = r.left;
        this->top = r.top;
        this->right = r.right;
        this->bottom = r.bottom;
    }
};

/// Modifier bits. A keyboard record carries exactly one of them, a mouse record all that are held.
enum KeyState : std::uint32_t
{
    ksShift = 0x100,
    ksControl = 0x200,
    ksAlt = 0x400
};

/// Button bits of a mouse record's state; the KeyState bits join them.
enum MouseState : std::uint32_t
{
    msLeft = 1,
    msRight = 2,
    msMiddle = 4
};

/// Button numbers: not bits, and not in the order of the MouseState bits.
enum MouseButton : std::uint32_t
{
    mbNone = 0,
    mbLeft = 1,
    mbMiddle = 2,
    mbRight = 3
};

// clang-format off
/// Key codes with the values of virtual-key codes; letters are 'A'..'Z', digits '0'..'9'. Codes outside this
/// list pass as the platform names them.
enum KeyCode : std::uint32_t
{
    kcBack      =   8, kcTab      =   9, kcReturn   =  13, kcShift    =  16, kcControl  =  17,
    kcAlt       =  18, kcPause    =  19, kcCapital  =  20, kcEscape   =  27, kcPageUp   =  33,
    kcPageDown  =  34, kcEnd      =  35, kcHome     =  36, kcLeft     =  37, kcUp       =  38,
    kcRight     =  39, kcDown     =  40, kcPrint    =  44, kcInsert   =  45, kcDelete   =  46,
    kcNumpad0   =  96, kcNumpad1  =  97, kcNumpad2  =  98, kcNumpad3  =  99, kcNumpad4  = 100,
    kcNumpad5   = 101, kcNumpad6  = 102, kcNumpad7  = 103, kcNumpad8  = 104, kcNumpad9  = 105,
    kcMultiply  = 106, kcAdd      = 107, kcSeparator= 108, kcSubtract = 109, kcDecimal  = 110,
    kcF1        = 112, kcF2       = 113, kcF3       = 114, kcF4       = 115, kcF5       = 116,
    kcF6        = 117, kcF7       = 118, kcF8       = 119, kcF9       = 120, kcF10      = 121,
    kcF11       = 122, kcF12      = 123, kcNumLock  = 144, kcScroll   = 145
};

/// The standard cursors; other ids name cursors registered with IMouse::RegisterCursor.
enum CursorId
{
    crDefault  =  0, ///< none set
    crArrow    =  1, crCross  =  2, crIBeam    =  3, crNo     =  4, crSizeAll =  5,
    crSizeNWSE =  6, crSizeNS =  7, crSizeNESW =  8, crSizeWE =  9, crPoint   = 10,
    crWait     = 11, crHand   = 12, crNoDrop   = 13
};

// The named colours; each source file has its own copy.
constexpr _color clBlack     {  0,   0,   0};
constexpr _color clWhite     {255, 255, 255};
constexpr _color clRed       {255,   0,   0};
constexpr _color clGreen     {  0, 128,   0};
constexpr _color clBlue      {  0,   0, 255};
constexpr _color clYellow    {255, 255,   0};
constexpr _color clCyan      {  0, 255, 255};
constexpr _color clMagenta   {255,   0, 255};
constexpr _color clGray      {128, 128, 128};
constexpr _color clLightGray {192, 192, 192};
constexpr _color clDarkGray  { 64,  64,  64};
// clang-format on

} // namespace vela7
