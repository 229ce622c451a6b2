/// The pointer and the cursors.
#pragma once

#include "vela7/system.h"
#include "vela7/wxexport.h"

#include <wx/cursor.h>

#include <map>
#include <memory>

namespace vela7 {

/// The pointer position and the registry of application-defined cursors.
///
/// The one that matters is the system object's base part. State is process-wide. Thread: GUI.
/// Not offered here: moving the pointer (SetPos), and registered cursors with a picture: their entry is an
/// empty placeholder, so windows keep the cursor they had.
class VELA7_WX_API CwxMouse : public IMouse
{
public:
    CwxMouse();
    CwxMouse(const CwxMouse&) = delete;
    CwxMouse& operator=(const CwxMouse&) = delete;
    /// Clears the registry of cursors, also while others live.
    ~CwxMouse() override;

    /// Does not move the pointer.
    void SetPos(const point<int>& screen) override;
    /// Screen coordinates; (0, 0) without a display.
    point<int> GetPos() const override;
    /// Always true. A second registration replaces the first.
    bool RegisterCursor(int id, int width, int height, const unsigned char* andBits,
                        const unsigned char* xorBits, int hotX, int hotY) override;
    bool UnregisterCursor(int id) override;

    /// The number of live objects.
    static int m_count;
};

/// The registered cursors by id.
VELA7_WX_API extern std::map<int, std::unique_ptr<wxCursor>> userCursors;

/// The stock cursor of a CursorId; an invalid one for other ids and without a display.
VELA7_WX_API wxCursor GetStdCursor(int id);
/// The registered cursor; an invalid one when there is none.
VELA7_WX_API wxCursor GetUserCursor(int id);
/// The stock cursor, else the registered one, else an invalid one. Stock ids cannot be overridden.
VELA7_WX_API wxCursor GetCursorById(int id);

} // namespace vela7
