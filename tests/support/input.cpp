#include "support/input.h"

#include "support/waits.h"
#include "support/x11.h"

#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <set>
#include <wx/eventfilter.h>
#include <wx/stopwatch.h>
#include <wx/utils.h>
#include <wx/wx.h>

namespace vela7::test {
namespace {

std::set<int> heldButtons;
std::set<unsigned long> heldKeys;

class MotionSeen : public wxEventFilter
{
public:
    explicit MotionSeen(wxPoint target) : m_target(target) { wxEvtHandler::AddFilter(this); }
    ~MotionSeen() override { wxEvtHandler::RemoveFilter(this); }
    int FilterEvent(wxEvent& event) override
    {
        const auto* const window = dynamic_cast<wxWindow*>(event.GetEventObject());
        if (event.GetEventType() == wxEVT_MOTION && window)
            m_seen = window->ClientToScreen(static_cast<wxMouseEvent&>(event).GetPosition()) == m_target;
        return Event_Skip;
    }
    bool SeenWithin(long ms) const
    {
        for (const wxStopWatch clock; !m_seen && clock.Time() < ms;)
            Turn();
        return m_seen;
    }

private:
    wxPoint m_target;
    bool m_seen = false;
};

void SetButton(int button, bool down)
{
    down ? void(heldButtons.insert(button)) : void(heldButtons.erase(button));
    x11::Button(button, down);
    Settle();
}

void SetKey(unsigned long keysym, bool down)
{
    down ? void(heldKeys.insert(keysym)) : void(heldKeys.erase(keysym));
    EXPECT_TRUE(x11::Key(keysym, down)) << "no key gives the symbol " << keysym;
    Settle();
}

void SetDoubleClickTime(int ms)
{
    g_object_set(gtk_settings_get_default(), "gtk-double-click-time", ms, nullptr);
}

} // namespace

bool MoveTo(const wxWindow* window, int x, int y, const char* file, int line)
{
    const wxPoint target = window->ClientToScreen(wxPoint(x, y));
    if (wxGetMousePosition() == target)
        return true;
    const MotionSeen motion(target);
    // GTK 3 takes motion from the frame clock and may lose one for good; only then is it repeated.
    for (int attempt = 0; attempt < 3; ++attempt) {
        if (attempt > 0)
            MovePointer(target.x + 1, target.y);
        MovePointer(target.x, target.y);
        if (motion.SeenWithin(200)) {
            Settle();
            return true;
        }
    }
    ADD_FAILURE_AT(file, line) << "no window saw the pointer at " << x << ',' << y << " of '"
                               << window->GetName().utf8_str() << '\'';
    return false;
}

void MovePointer(int x, int y)
{
    x11::MovePointer(x, y);
    Settle();
}

void Press(PointerButton button)
{
    SetButton(button, true);
}
void Release(PointerButton button)
{
    SetButton(button, false);
}

void Click(PointerButton button)
{
    Press(button);
    Release(button);
}

void DoubleClick(PointerButton button)
{
    Click(button);
    SetDoubleClickTime(60000);
    Click(button);
    SetDoubleClickTime(0);
}

void WheelUp()
{
    SetButton(4, true);
    SetButton(4, false);
}

void WheelDown()
{
    SetButton(5, true);
    SetButton(5, false);
}

void KeyDown(unsigned long keysym)
{
    SetKey(keysym, true);
}
void KeyUp(unsigned long keysym)
{
    SetKey(keysym, false);
}

void Tap(unsigned long keysym)
{
    KeyDown(keysym);
    KeyUp(keysym);
}

void ReleaseAll()
{
    while (!heldButtons.empty())
        SetButton(*heldButtons.begin(), false);
    while (!heldKeys.empty())
        SetKey(*heldKeys.begin(), false);
}

InputGuard::InputGuard()
{
    SetDoubleClickTime(0);
}

} // namespace vela7::test
