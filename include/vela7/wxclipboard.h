/// The text clipboard of the wx back-end.
#pragma once

#include "vela7/system.h"
#include "vela7/wxexport.h"

namespace vela7 {

/// Text on wx's clipboard; the text lives there and nowhere else.
///
/// While somebody has wx's clipboard open, or there is no application with a display, the operations do
/// nothing and the text is empty. A foreign program may take its time to answer GetText, and is given up
/// after half a minute; events of the clipboard, timers and queued runnables are served meanwhile. Thread:
/// GUI.
class VELA7_WX_API CwxClipboard final : public CClipboard
{
public:
    /// An empty text replaces what was there as well.
    void SetText(const std::string& text) override;
    std::string GetText() const override;
    /// Takes back what this program has put there; what another program offers stays.
    void Clear() override;

    /// Tells the listeners that the text has changed. Nothing watches the clipboard: whoever changes it calls
    /// this.
    void RaiseChangeEvent();
};

} // namespace vela7
