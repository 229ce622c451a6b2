// Painter arguments: any order of public painter calls, with numbers as no control would have them, on a
// raster picture and on a window, straight and through the buffer.

#include "vela7/painter.h"

#include "fuzz.h"
#include "gui.h"
#include "vela7/wxrasterpicture.h"
#include "vela7/wxsyswindow.h"
#include "vela7/xpm.h"

#include <wx/frame.h>

#include <climits>
#include <cmath>
#include <limits>

using namespace vela7;
using vela7::fuzz::Demand;

namespace {

constexpr int mostCalls = 40; // an input must not take long by their number

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

// Both signs of each.
constexpr double extremes[] = {
    0,          0.5,         1,        32766,     32767,     32768, 32769,      65535,      65536,
    65537,      1e7,         0xffffff, 0x1000000, 0x1000001, 1e9,   0x3fffffff, 0x7fffffff, 0x80000000,
    0xffffffff, 0x100000000, 1e-10,    1e300,     5e-324,    inf,   nan,
};
constexpr int wholeExtremes[] = {0,       1,       -1,          359,        3600,       32767,
                                 32768,   -32769,  65536,       1 << 24,    -(1 << 24), 1 << 30,
                                 INT_MAX, INT_MIN, INT_MAX - 1, INT_MIN + 1};
constexpr double scales[] = {1, 2, 0.5, -1, 0, 1e-3, 100, 40000, 1e9, -1e300, inf, nan};

const char* const xpmLines[] = {"4 3 3 1", "  c None", "x c #000000", "o c red", " xox", "x  x", "oxx "};

enum class On
{
    picture,
    window,
    kMaxValue = window
};

/// One input: where it draws, what it draws, and the bytes that say so.
class Session
{
public:
    Session(FuzzedDataProvider& bytes, IPainter& target, IRasterPicture* own);

    void Run();

    FuzzedDataProvider& in;
    IPainter& p;

    double Number();
    int Whole();
    double Scale() { return in.PickValueInArray(scales); }
    bool Flag() { return in.ConsumeBool(); }
    _color Colour();
    font Font();
    std::string Text();
    std::vector<point<double>> Points();
    rectangle<double> Area();
    rectangle<int> WholeArea();
    RasterOperation Operation() { return static_cast<RasterOperation>(in.ConsumeIntegralInRange(0, 15)); }
    /// Null, the painted one, or another.
    IRasterPicture* Picture();
    std::vector<unsigned char> Transparencies(const IRasterPicture& picture);

private:
    IRasterPicture* m_own; // null: a window is painted
    std::vector<CHandle<CwxRasterPicture>> m_pictures;
};

Session::Session(FuzzedDataProvider& bytes, IPainter& target, IRasterPicture* own)
    : in(bytes), p(target), m_own(own)
{
    for (const size<int>& extent : {size<int>(0, 0), size<int>(1, 1), size<int>(20, 10), size<int>(300, 5)})
        m_pictures.emplace_back(new CwxRasterPicture(extent));
    m_pictures.emplace_back(new CwxRasterPicture(size<int>(1, 1)));
    m_pictures.back()->ConvertFromXPM(XPMImage(xpmLines), true);
    m_pictures[2]->SetMask(m_pictures.back().Get());
}

double Session::Number()
{
    const auto kind = in.ConsumeIntegral<unsigned char>();
    if (kind < 120)
        return in.ConsumeIntegralInRange(-60, 260);
    if (kind < 220)
        return (kind % 2 ? 1 : -1) * in.PickValueInArray(extremes);
    return kind < 240 ? in.ConsumeIntegral<int>() : in.ConsumeFloatingPoint<double>();
}

int Session::Whole()
{
    const auto kind = in.ConsumeIntegral<unsigned char>();
    if (kind < 150)
        return in.ConsumeIntegralInRange(-10, 70);
    return kind < 230 ? in.PickValueInArray(wholeExtremes) : in.ConsumeIntegral<int>();
}

_color Session::Colour()
{
    const auto value = in.ConsumeIntegral<std::uint32_t>();
    const auto byte = [value](int shift) { return static_cast<unsigned char>(value >> shift); };
    _color color(byte(0), byte(8), byte(16), byte(24));
    color.flag = value % 7 == 0;
    return color;
}

font Session::Font()
{
    font result;
    result.face = Flag() ? "DejaVu Sans" : in.ConsumeRandomLengthString(6);
    result.family = Whole();
    result.size = Flag() ? in.ConsumeIntegralInRange(-2, 40) : Whole();
    result.style = static_cast<unsigned>(Whole());
    result.angle = Whole();
    result.scale = Flag() ? 1.0 : Scale();
    return result;
}

std::string Session::Text()
{
    std::string text = in.ConsumeRandomLengthString(20);
    for (char& c : text) // most letters are letters
        c = c == '\\' ? '\n' : c;
    return text;
}

std::vector<point<double>> Session::Points()
{
    std::vector<point<double>> points(in.ConsumeIntegralInRange<std::size_t>(0, 7));
    for (point<double>& at : points) {
        at.x = Number();
        at.y = Number();
    }
    points.reserve(points.size() + 1); // never null
    return points;
}

rectangle<double> Session::Area()
{
    rectangle<double> area; // not put in order
    area.left = Number();
    area.top = Number();
    area.right = Number();
    area.bottom = Number();
    return area;
}

rectangle<int> Session::WholeArea()
{
    rectangle<int> area;
    area.left = Whole();
    area.top = Whole();
    area.right = Whole();
    area.bottom = Whole();
    return area;
}

IRasterPicture* Session::Picture()
{
    const auto index = in.ConsumeIntegralInRange<std::size_t>(0, m_pictures.size() + 1);
    if (index == m_pictures.size())
        return nullptr;
    return index < m_pictures.size() ? m_pictures[index].Get() : m_own;
}

// As many as the picture says that it has pixels, to the byte.
std::vector<unsigned char> Session::Transparencies(const IRasterPicture& picture)
{
    const size<int> extent = picture.GetSize();
    const auto length = [](int side) { return static_cast<std::size_t>(std::max(side, 0)); };
    std::vector<unsigned char> values(length(extent.width) * length(extent.height), 0x80);
    if (!values.empty())
        values[values.size() / 2] = in.ConsumeIntegral<unsigned char>();
    return values;
}

// ---- the calls

template <void (IPainter::*Draw)(double, double, double, double)>
void OnArea(Session& s)
{
    const rectangle<double> a = s.Area();
    (s.p.*Draw)(a.left, a.top, a.right, a.bottom);
}

template <void (IPainter::*Draw)(double, double, double, double, int, int)>
void OnAngles(Session& s)
{
    const rectangle<double> a = s.Area();
    const int start = s.Whole();
    (s.p.*Draw)(a.left, a.top, a.right, a.bottom, start, s.Whole());
}

template <void (IPainter::*Draw)(const point<double>*, int, int, int)>
void OnPoints(Session& s)
{
    const std::vector<point<double>> points = s.Points();
    const bool all = s.Flag();
    const int first = all ? 0 : s.Whole();
    (s.p.*Draw)(points.data(), static_cast<int>(points.size()), first, all ? -1 : s.Whole());
}

template <void (IPainter::*Draw)(double, double, double, double, const _color&, const _color&, unsigned long)>
void OnGradient(Session& s)
{
    const rectangle<double> a = s.Area();
    const _color from = s.Colour(), to = s.Colour();
    const auto steps =
        s.Flag() ? s.in.ConsumeIntegral<unsigned char>() : s.in.ConsumeIntegral<unsigned long>();
    (s.p.*Draw)(a.left, a.top, a.right, a.bottom, from, to, steps);
}

void OnPolygon(Session& s)
{
    const std::vector<point<double>> points = s.Points();
    s.p.Polygon(points.data(), static_cast<int>(points.size()));
}

void OnRoundRect(Session& s)
{
    const rectangle<double> a = s.Area();
    const double width = s.Number();
    s.p.RoundRect(a.left, a.top, a.right, a.bottom, width, s.Number());
}

void OnText(Session& s)
{
    const std::string text = s.Text();
    const double x = s.Number(), y = s.Number();
    s.p.DrawString(x, y, text, s.Flag() ? -1 : s.Whole());
}

void OnTextInArea(Session& s)
{
    const std::string text = s.Text();
    const rectangle<double> area = s.Area();
    const auto format = static_cast<unsigned>(s.Whole());
    s.p.DrawStringEx(text, area, format, s.Flag() ? -1 : s.Whole(), s.Flag() ? nullptr : " ,\n");
}

void OnTextSize(Session& s)
{
    const font with = s.Font();
    const std::string text = s.Text();
    s.p.GetTextSize(text, s.Flag() ? &with : nullptr, s.Flag() ? -1 : s.Whole());
}

void OnXpm(Session& s)
{
    const double x = s.Number(), y = s.Number();
    const int cx = s.Whole(), cy = s.Whole(), w = s.Whole(), h = s.Whole();
    const double scale = s.Scale();
    s.p.DrawXPM(s.Flag() ? XPMImage(xpmLines) : XPMImage(), x, y, cx, cy, w, h, scale, s.Operation());
}

void OnPicture(Session& s)
{
    const rectangle<double> a = s.Area();
    IRasterPicture* const picture = s.Picture();
    s.p.DrawRasterPicture(picture, a.left, a.top, a.right, a.bottom, s.Operation());
}

void OnPictureEx(Session& s)
{
    const rectangle<int> source = s.WholeArea();
    const rectangle<double> target = s.Area();
    IRasterPicture* const picture = s.Picture();
    s.p.DrawRasterPictureEx(picture, source, target, s.Operation());
}

void OnExtract(Session& s)
{
    const rectangle<double> a = s.Area();
    s.p.ExtractRasterPicture(s.Picture(), a.left, a.top, a.right, a.bottom);
}

void OnExtractEx(Session& s)
{
    const rectangle<int> target = s.WholeArea();
    const rectangle<double> source = s.Area();
    s.p.ExtractRasterPictureEx(s.Picture(), target, source);
}

void OnBlend(Session& s)
{
    const rectangle<double> a = s.Area();
    IRasterPicture* const picture = s.Picture();
    if (s.Flag()) {
        s.p.AlphaBlend(a.left, a.top, a.right, a.bottom, picture, s.Whole());
    } else if (picture) {
        std::vector<unsigned char> values = s.Transparencies(*picture);
        s.p.AlphaBlend(a.left, a.top, a.right, a.bottom, picture, values.data());
    }
}

void OnElement(Session& s)
{
    const rectangle<double> a = s.Area();
    const auto element = static_cast<ControlElement>(s.in.ConsumeIntegralInRange(0, 15));
    s.p.DrawControlElement(element, a.left, a.top, a.right, a.bottom, s.Whole());
}

void OnClip(Session& s)
{
    const rectangle<double> a = s.Area();
    s.p.SetClipRect(a.left, a.top, a.right, a.bottom, s.Flag());
    s.p.GetClipRect();
}

void OnMetrics(Session& s)
{
    fontmetrics metrics;
    s.p.GetFontMetrics(s.Flag() ? &metrics : nullptr);
    s.p.GetFont();
}

void OnPosition(Session& s)
{
    point<double> at(s.Number(), s.Number());
    s.p.ConvertCoord1(&at, s.Flag());
    s.p.MoveTo(at.x, at.y);
    s.p.GetCurrentPos();
}

using Call = void (*)(Session&);

// clang-format off
constexpr Call calls[] = {
    &OnArea<&IPainter::FillRect>, &OnArea<&IPainter::Rectangle>, &OnArea<&IPainter::FocusRect>, &OnArea<&IPainter::Ellipse>,
    &OnAngles<&IPainter::Arc>, &OnAngles<&IPainter::Chord>, &OnAngles<&IPainter::Pie>, &OnRoundRect,
    &OnPoints<&IPainter::PolyLine>, &OnPoints<&IPainter::PolyBezier>, &OnPolygon,
    &OnGradient<&IPainter::GradientH>, &OnGradient<&IPainter::GradientV>,
    &OnText, &OnTextInArea, &OnTextSize, &OnMetrics,
    &OnXpm, &OnPicture, &OnPictureEx, &OnExtract, &OnExtractEx, &OnBlend, &OnElement, &OnClip, &OnPosition,
    [](Session& s) { s.p.CancelClipping(); },
    [](Session& s) { const double x = s.Number(); s.p.LineTo(x, s.Number()); },
    [](Session& s) { const double x = s.Number(), y = s.Number(); s.p.SetPixel(x, y, s.Colour()); },
    [](Session& s) { const double x = s.Number(); s.p.GetPixel(x, s.Number()); },
    [](Session& s) { const rectangle<double> a = s.Area(); s.p.SemiFillRect(a.left, a.top, a.right, a.bottom, s.Colour()); },
    [](Session& s) { const _color color = s.Colour(); const int width = s.Whole(); s.p.SetPen({color, width, s.in.ConsumeIntegralInRange(-1, 8)}); },
    [](Session& s) { const _color color = s.Colour(); s.p.SetBrush({color, s.in.ConsumeIntegralInRange(-1, 9)}); },
    [](Session& s) { s.p.SetFont(s.Font()); },
    [](Session& s) { s.p.SetTextColor(s.Colour()); s.p.SetBkColor(s.Colour()); },
    [](Session& s) { s.p.SetBkMode(s.Flag() ? bkOpaque : bkTransparent); },
    [](Session& s) { s.p.SetRasterOperation(s.Operation()); },
    [](Session& s) { const double x = s.Scale(); s.p.Scale(x, s.Scale()); },
    [](Session& s) { const double x = s.Number(); s.p.Translate(x, s.Number()); },
    [](Session& s) { s.p.ResetTransform(); },
    [](Session& s) { s.p.SetCoordConversion(s.Flag()); s.p.SetGrayScale(s.Flag()); },
    [](Session& s) { s.p.BeginPaint(static_cast<StdSettings>(s.in.ConsumeIntegralInRange(1, 3))); },
    [](Session& s) { s.p.EndPaint(); },
    [](Session& s) { if (IRasterPicture* const picture = s.Picture()) picture->SetSize({s.in.ConsumeIntegralInRange(-1, 100), s.in.ConsumeIntegralInRange(-1, 100)}); },
};
// clang-format on

void Session::Run()
{
    p.SetBackgroundColor(Colour());
    p.BeginPaint(static_cast<StdSettings>(in.ConsumeIntegralInRange(1, 3)));
    for (int i = 0; i < mostCalls && in.remaining_bytes() > 0; ++i)
        in.PickValueInArray(calls)(*this);
    p.EndAllPaints();
    p.SetCoordConversion(true); // for the next one on this painter
    p.SetGrayScale(false);
}

CwxSysWindow* window = nullptr; // of the frame, which lives as long as the program

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz::StartApplication();
    auto* const frame = new wxFrame(nullptr, wxID_ANY, "fuzz");
    window = new CwxSysWindow(frame, true, ISysWindow::wtNormal);
    window->SetWindowRect(0, 0, 200, 150, false);
    frame->Show();
    fuzz::Settle();
    Demand(window->GetClientRect().Width() > 0 && window->GetVisible(), "a window to paint");
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider in(data, size);
    if (in.ConsumeEnum<On>() == On::window) {
        Session(in, *window->TakeDefPainter(), nullptr).Run();
    } else {
        const CHandle<CwxRasterPicture> picture(new CwxRasterPicture(vela7::size<int>(64, 48)));
        Session(in, *picture->TakeDefPainter(), picture.Get()).Run();
    }
    fuzz::Settle();
    return 0;
}
