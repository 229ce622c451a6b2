#include "life/hanging.h"

#include "port/pointer.h"
#include "port/wayland.h"

#include <wx/event.h>
#include <wx/eventfilter.h>
#include <wx/toplevel.h>
#include <wx/window.h>

#include <type_traits> // wx/weakref.h needs it and does not include it
#include <wx/weakref.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace vela7 {
namespace hanging {

namespace {

struct Entry
{
    wxWindow* window;
    bool grabs;
    std::function<void()> hide;
};

// All that are shown, the last shown one at the end. Never destroyed: windows may die after other statics.
std::vector<Entry>& Entries()
{
    static auto* const entries = new std::vector<Entry>;
    return *entries;
}

std::vector<Entry>::iterator Find(const wxWindow* window)
{
    return std::find_if(Entries().begin(), Entries().end(),
                        [window](const Entry& entry) { return entry.window == window; });
}

bool HangsOn(const wxWindow* window, const wxObject* on)
{
    do
        window = window->GetParent();
    while (window && window != on && !dynamic_cast<const wxTopLevelWindow*>(window));
    return window && window == on;
}

// The listeners of what is hidden may do anything to the others.
void HideAllOn(const wxObject* on)
{
    std::vector<wxWeakRef<wxWindow>> found;
    for (const Entry& entry : Entries())
        if (HangsOn(entry.window, on))
            found.emplace_back(entry.window);
    for (; !found.empty(); found.pop_back()) {
        const auto entry = Find(found.back());
        if (entry == Entries().end())
            continue;
        const std::function<void()> hide = entry->hide;
        hide();
    }
}

// Hears of every hidden window, whatever handlers the host has put on it.
class CHideFilter : public wxEventFilter
{
public:
    int FilterEvent(wxEvent& event) override
    {
        if (event.GetEventType() == wxEVT_SHOW && !static_cast<wxShowEvent&>(event).IsShown())
            HideAllOn(event.GetEventObject());
        return Event_Skip;
    }
};

} // namespace

void Shown(wxWindow& window, bool grabs, std::function<void()> hide)
{
    static const bool filtered = [] {
        wxEvtHandler::AddFilter(new CHideFilter); // stays: wx goes on along its list after it called one
        return true;
    }();
    static_cast<void>(filtered);
    Hidden(window);
    Entries().push_back({&window, grabs, std::move(hide)});
}

void Hidden(const wxWindow& window)
{
    const auto entry = Find(&window);
    if (entry != Entries().end())
        Entries().erase(entry);
}

void RestoreGrab()
{
    if (wxWindow* const capturing = wxWindow::GetCapture()) {
        capturing->ReleaseMouse();
        capturing->CaptureMouse();
        return;
    }
    const auto top =
        std::find_if(Entries().rbegin(), Entries().rend(), [](const Entry& entry) { return entry.grabs; });
    if (top != Entries().rend() && !gtkport::IsOnWayland()) // that has no grab, see ShowWithoutGrab
        gtkport::GrabPointer(*top->window);
}

} // namespace hanging
} // namespace vela7
