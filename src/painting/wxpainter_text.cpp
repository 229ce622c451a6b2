// The painter's text.

#include "vela7/wxpainter.h"

#include "convert/devicebounds.h"
#include "convert/textdecode.h"
#include "vela7/wxconvert.h"

#include <wx/pen.h>

#include <cctype>
#include <cstdlib>
#include <cstring>

namespace vela7 {

namespace {

constexpr int farthest = 1 << 20; // Pango counts in 1024ths of a pixel

wxString Decode(const char* text, int length)
{
    if (!text)
        return {};
    return DecodeText(text, length < 0 ? std::strlen(text) : static_cast<std::size_t>(length));
}

} // namespace

void CwxPainter::internalDrawString(int x, int y, const char* text, int length)
{
    if (std::abs(0LL + x) > farthest || std::abs(0LL + y) > farthest)
        return;
    const wxString decoded = Decode(text, length);
    const font& current = GetFont();
    if (current.angle == 0)
        device->DrawText(decoded, x, y);
    else
        device->DrawRotatedText(decoded, x, y, current.angle / 10.0);
    if (!(current.style & fsStrikeOut) || current.angle != 0)
        return;
    // Kept by contract: struck-out text gets a line of its own, since wx fonts cannot be struck out; rotated
    // text gets none.
    const wxPen before = device->GetPen();
    device->SetPen(wxPen(vela2wx(GetTextColor()), 1, wxPENSTYLE_SOLID));
    const wxSize extent = device->GetTextExtent(decoded);
    const int line = y + (extent.GetHeight() + 1) / 2;
    DrawLine(*device, {x - 1, line}, {x + extent.GetWidth() + 1, line});
    device->SetPen(before);
}

point<int> CwxPainter::internalGetTextSize(const char* text, const font* with, int length)
{
    const font before = with ? GetFont() : font();
    if (with)
        SetFont(*with);
    const wxSize extent = device->GetTextExtent(Decode(text, length));
    if (with)
        SetFont(before);
    point<int> result(extent.GetWidth(), extent.GetHeight());
    const bool capital = text && length != 0 && std::isupper(static_cast<unsigned char>(*text));
    // Kept by contract: at scale 1 a leading capital counts one pixel less, which toolkit layouts are tuned
    // to.
    if (capital && GetDPIScale() == 1.0)
        --result.x;
    return result;
}

} // namespace vela7
