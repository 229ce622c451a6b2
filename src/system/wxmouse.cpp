#include "vela7/wxmouse.h"

#include "convert/devicebounds.h"
#include "port/gtkport.h"

#include <wx/bitmap.h>
#include <wx/utils.h>
#include <wx/window.h>

namespace vela7 {

// Made before the system object and destroyed after it (see wxsystem.cpp), whose destructor clears it.
[[gnu::init_priority(200)]] std::map<int, std::unique_ptr<wxCursor>> userCursors;

int CwxMouse::m_count = 0;

namespace {

wxCursor* defaultCursor = nullptr; // owned by the live CwxMouse objects together

struct CursorRow
{
    int id;
    wxStockCursor wx;
};

// clang-format off
constexpr CursorRow cursors[] = {
    {crArrow,    wxCURSOR_ARROW},
    {crCross,    wxCURSOR_CROSS},
    {crIBeam,    wxCURSOR_IBEAM},
    {crNo,       wxCURSOR_NO_ENTRY},
    {crSizeAll,  wxCURSOR_SIZING},
    {crSizeNWSE, wxCURSOR_SIZENWSE},
    {crSizeNS,   wxCURSOR_SIZENS},
    {crSizeNESW, wxCURSOR_SIZENESW},
    {crSizeWE,   wxCURSOR_SIZEWE},
    {crPoint,    wxCURSOR_POINT_RIGHT},
    {crWait,     wxCURSOR_WAIT},
    {crHand,     wxCURSOR_HAND},
    {crNoDrop,   wxCURSOR_NO_ENTRY}, // Kept by contract: crNoDrop looks like crNo, wx has one cursor for both
};
// clang-format on

} // namespace

CwxMouse::CwxMouse()
{
    if (m_count == 0)
        defaultCursor = new wxCursor;
    ++m_count;
}

CwxMouse::~CwxMouse()
{
    // Kept by contract: the cursor registry is cleared with the first mouse object that goes, whoever else
    // lives; it is the process's.
    userCursors.clear();
    if (--m_count == 0) {
        delete defaultCursor;
        defaultCursor = nullptr;
    }
}

void CwxMouse::SetPos(const point<int>&)
{
    // Kept by contract: warping the pointer is not offered on this platform; the state is asked for only.
    if (gtkport::DisplayIsOpen())
        wxGetMouseState();
}

point<int> CwxMouse::GetPos() const
{
    if (!gtkport::DisplayIsOpen())
        return {};
    const wxPoint position = wxGetMousePosition();
    return {position.x, position.y};
}

bool CwxMouse::RegisterCursor(int id, int width, int height, const unsigned char* andBits,
                              const unsigned char* xorBits, int, int)
{
    if (andBits && xorBits && CanMakePicture(width, height)) {
        wxBitmap picture(reinterpret_cast<const char*>(andBits), width, height, 1);
        const wxBitmap mask(reinterpret_cast<const char*>(xorBits), width, height, 1);
        picture.SetMask(new wxMask(mask));
    }
    // Kept by contract: the bits are taken, yet on this platform the cursor stays an empty placeholder.
    userCursors[id] = std::make_unique<wxCursor>();
    return true;
}

bool CwxMouse::UnregisterCursor(int id)
{
    return userCursors.erase(id) > 0;
}

wxCursor GetStdCursor(int id)
{
    if (gtkport::DisplayIsOpen())
        for (const CursorRow& row : cursors)
            if (row.id == id)
                return wxCursor(row.wx);
    return {};
}

wxCursor GetUserCursor(int id)
{
    const auto found = userCursors.find(id);
    return found != userCursors.end() ? *found->second : wxCursor();
}

wxCursor GetCursorById(int id)
{
    const wxCursor standard = GetStdCursor(id);
    return standard.IsOk() ? standard : GetUserCursor(id);
}

} // namespace vela7
