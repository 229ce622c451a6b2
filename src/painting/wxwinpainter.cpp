#include "vela7/wxwinpainter.h"

#include "convert/devicebounds.h"
#include "port/gtkport.h"
#include "port/wayland.h"
#include "vela7/wxconvert.h"
#include "vela7/wxdrawbuffer.h"

#include <wx/brush.h>
#include <wx/dcmemory.h>

#include <algorithm>
#include <climits>

namespace vela7 {

namespace {

int livePainters = 0;

int Sum(int a, int b)
{
    return static_cast<int>(std::clamp<long long>(0LL + a + b, INT_MIN, INT_MAX));
}

} // namespace

CwxWinPainter::CWatchedWindow::CWatchedWindow(wxWindow* window, CwxWinPainter& painter)
    : wxWeakRef<wxWindow>(window), m_painter(painter)
{
}

void CwxWinPainter::CWatchedWindow::OnObjectDestroy()
{
    wxWeakRef<wxWindow>::OnObjectDestroy();
    m_painter.LoseWindow();
}

CwxWinPainter::CwxWinPainter(wxWindow* window) : m_window(window, *this)
{
    ++livePainters;
}

CwxWinPainter::~CwxWinPainter()
{
    CDrawBufferManager& buffers = CDrawBufferManager::Get();
    const bool inBufferedPaint = m_memory != nullptr;
    DropDevices(); // before the bitmap that the memory DC has selected
    if (inBufferedPaint)
        buffers.Discard(this);
    buffers.Forget(this);
    // Without painters nobody can tell that the pictures are gone, and wx may go down next.
    if (--livePainters == 0)
        buffers.Clear();
}

void CwxWinPainter::InitDC()
{
    if (device || !m_window)
        return;
    m_watch = gtkport::WatchDrawable(*m_window, [this] { LoseWindow(); });
    m_own = gtkport::MakeWindowDC(*m_window);
    device = m_own.get();
    m_target = nullptr;
}

void CwxWinPainter::SetDC(wxDC* dc)
{
    EndAllPaints();
    DropDevices();
    device = dc;
}

// A client DC asks its window for the layout of text, and more; and what it draws on is not its own.
void CwxWinPainter::LoseWindow()
{
    m_target = nullptr; // nothing more is shown
    EndAllPaints();
    if (m_own)
        DropDevices();
}

void CwxWinPainter::DropDevices()
{
    device = nullptr;
    m_target = nullptr;
    m_memory.reset();
    m_own.reset();
    m_watch.reset();
    m_fullRepaint = true;
}

rectangle<int> CwxWinPainter::GetDrawRect()
{
    if (!m_window)
        return {};
    const wxPoint origin = m_window->GetClientAreaOrigin();
    const wxSize client = m_window->GetClientSize();
    return {origin.x, origin.y, origin.x + client.GetWidth(), origin.y + client.GetHeight()};
}

wxColour CwxWinPainter::FillColor() const
{
    _color color = GetBackgroundColor();
    color.alpha = 255;
    return vela2wx(color);
}

void CwxWinPainter::ClearDevice()
{
    if (GetBackgroundColor().flag != 0)
        return;
    device->SetBackground(wxBrush(FillColor(), wxBRUSHSTYLE_SOLID));
    device->Clear();
}

bool CwxWinPainter::CreatePaintDevice(StdSettings settings)
{
    m_fullRepaint = true;
    m_target = nullptr;
    InitDC();
    if (!device)
        return false;
    if (settings == ssBuffered)
        return StartBuffered();
    if (settings == ssClear)
        ClearDevice();
    return true;
}

bool CwxWinPainter::StartBuffered()
{
    const wxSize client = m_window ? m_window->GetClientSize() : wxSize(1, 1);
    m_scale = m_window ? m_window->GetContentScaleFactor() : 1.0;
    // A window without client area gets a buffer too: the smallest that wx can make.
    wxBitmap* const bitmap = CDrawBufferManager::Get().GetBuffer(this, std::max(client.GetWidth(), 1),
                                                                 std::max(client.GetHeight(), 1), m_scale,
                                                                 &m_fullRepaint, FillColor());
    if (!bitmap || !bitmap->IsOk())
        return false;
    m_memory = std::make_unique<wxMemoryDC>(*bitmap);
    m_target = device;
    device = m_memory.get();
    ClearDevice();
    return true;
}

void CwxWinPainter::internalEndPaint()
{
    if (m_memory && m_target && m_window && m_target->IsOk() && m_memory->IsOk()) {
        const wxRect client(m_window->GetClientSize());
        if (!client.IsEmpty()) // wx 3.2 divides by it
            m_target->Blit(client.GetPosition(), client.GetSize(), m_memory.get(), wxPoint(), wxCOPY, false);
    }
    if (m_own && m_window)
        gtkport::ShowDrawn(*m_window);
    DropDevices();
}

void CwxWinPainter::internalDrawControlElement(ControlElement element, int l, int t, int r, int b, int state)
{
    if (m_window)
        NativeDrawControlElement(m_window, element, l, t, r, b, state);
}

// What scrolls out of sight is lost: the buffer grows with the window only.
void CwxWinPainter::ScrollContent(int dx, int dy, int left, int top, int right, int bottom)
{
    if (m_memory || !m_window)
        return;
    const wxSize client = m_window->GetClientSize();
    wxBitmap* const bitmap = CDrawBufferManager::Get().GetExistingBuffer(
        this, client.GetWidth(), client.GetHeight(), m_scale, FillColor());
    if (!bitmap)
        return;
    wxMemoryDC memory(*bitmap);
    const wxSize extent = memory.GetSize();
    const point<int> from(std::max(left, 0), std::max(top, 0));
    const point<int> last(std::min(right, extent.x - 1), std::min(bottom, extent.y - 1));
    if (last.x < from.x || last.y < from.y)
        return;
    const rectangle<int> target(Sum(from.x, dx), Sum(from.y, dy), Sum(last.x + 1, dx), Sum(last.y + 1, dy));
    Copy(memory, target, memory, from, wxCOPY, false);
}

} // namespace vela7
