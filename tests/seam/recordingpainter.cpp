#include "recordingpainter.h"

#include <algorithm>

namespace vela7::seam {

bool RecordingPainter::CreatePaintDevice(StdSettings settings)
{
    Note("Begin", settings == ssClear ? "clear" : settings == ssBuffered ? "buffered" : "as-is");
    m_hasDevice = !failToBegin;
    return m_hasDevice;
}

void RecordingPainter::internalEndPaint()
{
    Note("End");
    m_hasDevice = false;
}

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

} // namespace vela7::seam
