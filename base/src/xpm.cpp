#include "vela7/xpm.h"

#include <cstdlib>
#include <limits>
#include <utility>

namespace vela7 {

namespace {

struct Values
{
    int width = 0;
    int height = 0;
    int colours = 0;
    int charsPerPixel = 0;
};

// One number of a values line; false when there is none, or it is negative or too large for an int.
bool ReadNumber(const char*& at, int& number)
{
    char* end = nullptr;
    const long long value = std::strtoll(at, &end, 10);
    if (end == at || value < 0 || value > std::numeric_limits<int>::max())
        return false;
    at = end;
    number = static_cast<int>(value);
    return true;
}

bool ReadValues(const char* line, Values& values)
{
    if (!line)
        return false;
    for (int* number : {&values.width, &values.height, &values.colours, &values.charsPerPixel})
        if (!ReadNumber(line, *number))
            return false;
    constexpr long long limit = std::numeric_limits<int>::max();
    const long long lines = 1LL + values.colours + values.height;
    const long long row = static_cast<long long>(values.width) * values.charsPerPixel;
    return lines <= limit && row <= limit && row * values.height <= limit;
}

} // namespace

XPMBuf::XPMBuf(const XPMBuf& other)
{
    *this = other;
}

XPMBuf& XPMBuf::operator=(const XPMBuf& other)
{
    if (this == &other)
        return *this;
    m_count = other.m_count;
    m_texts = other.m_texts;
    m_lines = other.m_lines;
    CopyLines(other.m_texts.empty() ? nullptr : other.m_lines);
    return *this;
}

void XPMBuf::SetBuffer(const char* const* lines, bool copy)
{
    if (lines && lines == m_pointers.data())
        return; // our own already
    Values values;
    const bool valid = lines && ReadValues(lines[0], values);
    m_count = valid ? 1 + values.colours + values.height : 0;
    m_lines = valid ? lines : nullptr;
    CopyLines(copy ? m_lines : nullptr);
}

// Takes m_count lines over; null gives up what is owned.
void XPMBuf::CopyLines(const char* const* lines)
{
    std::vector<std::string> texts;
    if (lines)
        for (int i = 0; i < m_count; ++i)
            texts.emplace_back(lines[i] ? lines[i] : "");
    m_texts = std::move(texts);
    m_pointers.clear();
    for (const std::string& text : m_texts)
        m_pointers.push_back(text.c_str());
    if (lines)
        m_lines = m_pointers.data();
}

XPMImage::XPMImage(const char* const* lines)
{
    SetBuffer(lines, false);
    Init();
}

void XPMImage::Init()
{
    Values values;
    if (GetBuffer())
        ReadValues(GetBuffer()[0], values);
    width = values.width;
    height = values.height;
}

} // namespace vela7
