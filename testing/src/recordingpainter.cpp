#include "vela7/testing/recordingpainter.h"

#include <algorithm>
#include <iterator>

namespace vela7::testkit {

int CanvasMetric(ICanvas::CanvasMetrics metric, const size<int>& canvas)
{
    constexpr int depth = 24, dpi = 96, screenWidth = 1280, screenHeight = 1024;
    const auto millimetres = [](int pixels) { return pixels * 254 / (10 * dpi); };
    const int answers[] = {canvas.width,
                           canvas.height,
                           millimetres(canvas.width),
                           millimetres(canvas.height),
                           screenWidth,
                           screenHeight,
                           millimetres(screenWidth),
                           millimetres(screenHeight),
                           1 << depth,
                           depth,
                           0,
                           dpi,
                           dpi};
    const int code = metric; // any integer may arrive
    return code >= 0 && code < static_cast<int>(std::size(answers)) ? answers[code] : 0;
}

// ---- bracket and state

void RecordingPainter::Resize(int width, int height)
{
    m_canvasArea = m_paintArea = m_clip = {0, 0, std::max(width, 0), std::max(height, 0)};
    m_patches.clear();
    fullRepaint = true;
}

bool RecordingPainter::CreatePaintDevice(StdSettings settings)
{
    Note("Begin", settings == ssClear ? "clear" : settings == ssBuffered ? "buffered" : "as-is");
    m_hasDevice = !failToBegin;
    if (!m_hasDevice)
        return false;
    m_buffered = settings == ssBuffered;
    m_clip = m_canvasArea;
    m_excluded.clear();
    if (settings != ssAsIs && !GetBackgroundColor().flag)
        Fill(0, 0, m_canvasArea.right, m_canvasArea.bottom, GetBackgroundColor());
    return true;
}

void RecordingPainter::SetBeginSettings()
{
    m_brush = brush();
    m_textColor = clBlack;
    m_bkColor = clWhite;
    m_bkMode = bkTransparent;
    m_operation = roCopy;
    m_position = {};
}

void RecordingPainter::internalEndPaint()
{
    Note("End");
    if (m_hasDevice && m_buffered)
        fullRepaint = false;
    m_hasDevice = false;
}

void RecordingPainter::internalCancelClipping()
{
    Note("CancelClip");
    m_clip = m_canvasArea;
    m_excluded.clear();
}

void RecordingPainter::internalSetClipRect(int l, int t, int r, int b, bool exclude)
{
    Note(exclude ? "ExcludeClip" : "Clip", l, t, r, b);
    if (exclude)
        m_excluded.emplace_back(l, t, r, b);
    else
        m_clip = m_clip.Intersect({l, t, r, b});
}

// ---- pixels

_color RecordingPainter::PixelAt(int x, int y) const
{
    const point<int> p(x, y);
    const auto covers = [&](const rectangle<int>& area) { return area.Contains(p); };
    for (auto patch = m_patches.rbegin(); patch != m_patches.rend(); ++patch)
        if (covers(patch->area) && std::none_of(patch->holes.begin(), patch->holes.end(), covers))
            return patch->color;
    return clBlack;
}

void RecordingPainter::Fill(int l, int t, int r, int b, const _color& color)
{
    constexpr std::size_t most = 4096;
    const rectangle<int> area = rectangle<int>(l, t, r, b).Intersect(Clip());
    if (area.IsEmpty())
        return;
    const auto hidden = [&](const Patch& patch) { return patch.area.Intersect(area) == patch.area; };
    if (m_excluded.empty())
        m_patches.erase(std::remove_if(m_patches.begin(), m_patches.end(), hidden), m_patches.end());
    if (m_patches.size() >= most)
        m_patches.erase(m_patches.begin());
    m_patches.push_back({area, m_excluded, color});
}

_color RecordingPainter::internalSetPixel(int x, int y, _color color)
{
    Note("Pixel", x, y, color);
    Fill(x, y, x + 1, y + 1, color);
    return color;
}

void RecordingPainter::internalFillRect(int l, int t, int r, int b)
{
    Note("FillRect", l, t, r, b);
    if (m_brush.style == bsSolid)
        Fill(l, t, r, b, m_brush.color);
}

// ---- lines and text

void RecordingPainter::internalLineTo(int x, int y)
{
    Note("Line", m_position, point<int>(x, y));
    m_position = {x, y};
}

// Reads the range as back-ends do: a last index out of range means the last point.
void RecordingPainter::NotePoints(const char* what, Points points, int count, int first, int last)
{
    const int end = last != -1 && last < count ? last : count - 1;
    const int begin = std::max(first, 0);
    if (end < begin)
        return;
    std::ostringstream list;
    for (int i = begin; i <= end; ++i)
        Write(list, points[i]);
    Note(what, list.str().c_str());
}

void RecordingPainter::internalDrawString(int x, int y, const char* text, int length)
{
    Note("Text", x, y, std::string(text, static_cast<std::size_t>(length)));
}

point<int> RecordingPainter::internalGetTextSize(const char*, const font*, int length)
{
    return {length * charWidth, length > 0 ? charHeight : 0};
}

void RecordingPainter::internalGetFontMetrics(fontmetrics* metrics)
{
    if (!metrics)
        return;
    metrics->height = charHeight;
    metrics->descent = charHeight / 4;
    metrics->averageWidth = charWidth;
}

} // namespace vela7::testkit
