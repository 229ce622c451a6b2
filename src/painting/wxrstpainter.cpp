#include "vela7/wxrstpainter.h"

#include "port/gtkport.h"
#include "vela7/wxnativewindows.h"
#include "vela7/wxrasterpicture.h"

#include <wx/dcmemory.h>

namespace vela7 {

CwxRstPainter::CwxRstPainter(CwxRasterPicture* picture) : m_picture(picture)
{
    SetCanvas(picture);
}

CwxRstPainter::~CwxRstPainter() = default;

bool CwxRstPainter::CreatePaintDevice(StdSettings)
{
    if (device)
        return true;
    if (!gtkport::DisplayIsOpen())
        return false;
    // The picture's own bitmap, not a copy of it: a copy would be painted on instead.
    wxBitmap nowhere; // without pixels: wx objects to every operation on a device that has none
    const bool any = m_picture && m_picture->GetBitmap().IsOk();
    if (!any)
        nowhere.Create(1, 1);
    m_memory = std::make_unique<wxMemoryDC>(any ? m_picture->GetBitmap() : nowhere);
    device = m_memory.get();
    if (m_picture)
        ++m_picture->m_paints;
    return true;
}

void CwxRstPainter::internalEndPaint()
{
    if (m_memory && m_picture)
        --m_picture->m_paints;
    device = nullptr;
    m_memory.reset();
}

rectangle<int> CwxRstPainter::GetDrawRect()
{
    if (!m_picture)
        return {};
    const size<int> extent = m_picture->GetSize();
    return {0, 0, extent.width, extent.height};
}

void CwxRstPainter::internalDrawControlElement(ControlElement element, int l, int t, int r, int b, int state)
{
    if (wxWindow* const top = GetTopWindow())
        NativeDrawControlElement(top, element, l, t, r, b, state);
    else
        CwxPainter::internalDrawControlElement(element, l, t, r, b, state);
}

} // namespace vela7
