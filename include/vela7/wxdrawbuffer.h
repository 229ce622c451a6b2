/// The off-screen buffers of window painters.
#pragma once

#include "vela7/wxexport.h"

#include <wx/bitmap.h>
#include <wx/colour.h>

#include <cstddef>
#include <list>
#include <memory>

namespace vela7 {

class CwxWinPainter;

/// One buffer: a bitmap and the painter whose picture it holds. Made and deleted by CDrawBufferManager.
class VELA7_WX_API CDrawBuffer
{
public:
    /// The bitmap, grown to at least width x height logical pixels with its content in the top-left corner
    /// and the rest in the fill colour; it never shrinks. Null when there is none, or it is invalid.
    wxBitmap* GetBuffer(int width, int height, double scale, const wxColour& fill = *wxWHITE);

    std::unique_ptr<wxBitmap> bitmap;
    const CwxWinPainter* owner = nullptr; // a key only, never followed
};

/// The buffers of all window painters: at most 8, most recently used first.
///
/// One for the process (Get). A bitmap keeps a painter's picture between its paints until 8 other painters
/// have painted. Bitmaps belong to the manager; painters borrow them for the time of a paint. Thread: GUI.
class VELA7_WX_API CDrawBufferManager final
{
public:
    static constexpr std::size_t capacity = 8;

    static CDrawBufferManager& Get();

    CDrawBufferManager() = default;
    CDrawBufferManager(const CDrawBufferManager&) = delete;
    CDrawBufferManager& operator=(const CDrawBufferManager&) = delete;

    /// The painter's bitmap of at least width x height logical pixels, moved to the front. fresh: the bitmap
    /// does not hold this painter's last picture. Null when none could be made.
    wxBitmap* GetBuffer(const CwxWinPainter* owner, int width, int height, double scale, bool* fresh,
                        const wxColour& fill = *wxWHITE);
    /// The painter's bitmap without reordering; null when it has none.
    wxBitmap* GetExistingBuffer(const CwxWinPainter* owner, int width, int height, double scale,
                                const wxColour& fill = *wxWHITE);

    /// A painter ends: its buffer keeps its place in the order, but no later painter at the same address
    /// takes its picture for its own.
    void Forget(const CwxWinPainter* owner);
    /// The painter's bitmap is deleted.
    void Discard(const CwxWinPainter* owner);
    /// Deletes everything.
    void Clear() { m_buffers.clear(); }
    std::size_t GetCount() const { return m_buffers.size(); }

private:
    using Buffers = std::list<CDrawBuffer>;

    Buffers::iterator Find(const CwxWinPainter* owner);
    CDrawBuffer& ToFront(const CwxWinPainter* owner, bool* fresh);

    Buffers m_buffers;
};

} // namespace vela7
