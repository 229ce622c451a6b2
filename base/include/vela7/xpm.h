/// XPM images as lines of text: values line, colour lines, pixel lines.
///
/// Values: copy freely. Thread: any, one at a time.
#pragma once

#include "vela7/baseexport.h"

#include <string>
#include <vector>

namespace vela7 {

/// The lines of an XPM image, borrowed or owned.
class VELA7_BASE_API XPMBuf
{
public:
    XPMBuf() = default;
    XPMBuf(const XPMBuf& other);
    XPMBuf& operator=(const XPMBuf& other);
    ~XPMBuf() = default;

    /// Takes the lines: 1 + colours + height of them, as the values line "width height colours chars" says;
    /// no terminating null entry is read. copy false borrows them: the caller keeps them alive. Null lines
    /// or a malformed values line (a number missing, negative, or too large a product) leave the buffer
    /// empty.
    void SetBuffer(const char* const* lines, bool copy);

    /// Null when empty; valid until the next SetBuffer or the end of this object.
    const char* const* GetBuffer() const { return m_lines; }
    /// Number of lines; 0 when empty.
    int GetLineCount() const { return m_count; }

private:
    void CopyLines(const char* const* lines);

    const char* const* m_lines = nullptr; // the caller's, or m_pointers' own
    int m_count = 0;
    std::vector<std::string> m_texts;
    std::vector<const char*> m_pointers;
};

class VELA7_BASE_API XPMImage : public XPMBuf
{
public:
    int width = 0;
    int height = 0;

    XPMImage() = default;
    /// Borrows the lines.
    explicit XPMImage(const char* const* lines);

    /// Reads width and height from the buffer's values line; 0, 0 when empty.
    void Init();
};

} // namespace vela7
