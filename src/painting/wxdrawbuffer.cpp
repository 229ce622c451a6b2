#include "vela7/wxdrawbuffer.h"

#include "convert/devicebounds.h"
#include "port/drawing.h"

#include <wx/brush.h>
#include <wx/dcmemory.h>

#include <algorithm>

namespace vela7 {

namespace {

std::unique_ptr<wxBitmap> MakeBitmap(int width, int height, double scale, const wxColour& fill)
{
    auto bitmap = std::make_unique<wxBitmap>();
    if (CanMakePicture(width * scale, height * scale))
        bitmap->CreateScaled(width, height, -1, scale);
    if (bitmap->IsOk()) {
        wxMemoryDC dc(*bitmap);
        dc.SetBackground(wxBrush(fill));
        dc.Clear();
    }
    return bitmap;
}

} // namespace

wxBitmap* CDrawBuffer::GetBuffer(int width, int height, double scale, const wxColour& fill)
{
    if (!bitmap)
        return nullptr;
    if (bitmap->IsOk()) {
        const int ownWidth = static_cast<int>(bitmap->GetWidth() / scale);
        const int ownHeight = static_cast<int>(bitmap->GetHeight() / scale);
        if (width > ownWidth || height > ownHeight) {
            auto grown = MakeBitmap(std::max(width, ownWidth), std::max(height, ownHeight), scale, fill);
            if (grown->IsOk()) {
                wxMemoryDC target(*grown);
                wxMemoryDC source(*bitmap);
                gtkport::Blit(target, wxRect(0, 0, ownWidth, ownHeight), source, wxPoint(), wxCOPY, false);
            }
            bitmap = std::move(grown);
        }
    }
    if (!bitmap->IsOk())
        bitmap.reset();
    return bitmap.get();
}

CDrawBufferManager& CDrawBufferManager::Get()
{
    static CDrawBufferManager manager;
    return manager;
}

CDrawBufferManager::Buffers::iterator CDrawBufferManager::Find(const CwxWinPainter* owner)
{
    return std::find_if(m_buffers.begin(), m_buffers.end(),
                        [owner](const CDrawBuffer& buffer) { return buffer.owner == owner; });
}

// The painter's buffer, its own or the one that was not used for the longest time, at the front.
CDrawBuffer& CDrawBufferManager::ToFront(const CwxWinPainter* owner, bool* fresh)
{
    auto found = Find(owner);
    *fresh = found == m_buffers.end();
    if (*fresh) {
        if (m_buffers.size() < capacity)
            m_buffers.emplace_back();
        found = std::prev(m_buffers.end());
        found->owner = owner;
    }
    m_buffers.splice(m_buffers.begin(), m_buffers, found);
    return m_buffers.front();
}

wxBitmap* CDrawBufferManager::GetBuffer(const CwxWinPainter* owner, int width, int height, double scale,
                                        bool* fresh, const wxColour& fill)
{
    CDrawBuffer& buffer = ToFront(owner, fresh);
    if (wxBitmap* const bitmap = buffer.GetBuffer(width, height, scale, fill))
        return bitmap;
    buffer.bitmap = MakeBitmap(width, height, scale, fill);
    *fresh = true;
    return buffer.bitmap.get();
}

wxBitmap* CDrawBufferManager::GetExistingBuffer(const CwxWinPainter* owner, int width, int height,
                                                double scale, const wxColour& fill)
{
    const auto found = Find(owner);
    return found != m_buffers.end() ? found->GetBuffer(width, height, scale, fill) : nullptr;
}

void CDrawBufferManager::Forget(const CwxWinPainter* owner)
{
    const auto found = Find(owner);
    if (found != m_buffers.end())
        found->owner = nullptr;
}

void CDrawBufferManager::Discard(const CwxWinPainter* owner)
{
    const auto found = Find(owner);
    if (found != m_buffers.end())
        found->bitmap.reset();
}

} // namespace vela7
