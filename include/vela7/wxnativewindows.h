/// What toolkit code needs of native windows. Thread: GUI.
#pragma once

#include "vela7/wxexport.h"

class wxWindow;

namespace vela7 {

/// Whether a window is foreign to another: neither itself nor directly on it. Null is foreign.
VELA7_WX_API bool IsWindowExternal(const wxWindow* window, const wxWindow* owner);
/// The application's top window; null without an application.
VELA7_WX_API wxWindow* GetTopWindow();
/// Gives a native control the toolkit's GUI font, if one is set, and the system's window colours.
VELA7_WX_API void UpdateWindowState(wxWindow* window);

} // namespace vela7
