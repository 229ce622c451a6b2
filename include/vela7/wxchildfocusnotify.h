/// How native controls on a toolkit window tell it about their focus.
#pragma once

#include "vela7/wxexport.h"

class wxFocusEvent;

namespace vela7 {

/// Implemented by the window, called by the controls it hosts. Thread: GUI.
class VELA7_WX_API IChildFocusNotify
{
public:
    virtual ~IChildFocusNotify() = default;
    virtual void OnChildFocusIn(wxFocusEvent& event) = 0;
    virtual void OnChildFocusOut(wxFocusEvent& event) = 0;
};

} // namespace vela7
