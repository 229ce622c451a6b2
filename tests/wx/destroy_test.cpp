// A listener may destroy the window, what is above or below it, end any subscription or throw, from inside
// every notification.
#include "windowhelpers.h"

#include <gdk/gdkkeysyms.h>
#include <stdexcept>
#include <wx/textctrl.h>

using namespace vela7;
using namespace vela7::test;

namespace {

class Destroying : public WindowTest
{
public:
    // A new scene on the old frame, or on a new one if that is gone. A window that is no child fills its
    // parent.
    void Renew(bool isChild)
    {
        ReleaseAll();
        if (frame) {
            frame->DestroyChildren();
        } else {
            WindowTest::TearDown();
            GuiTest::SetUp();
        }
        MovePointer(1, 1);
        panel = new wxPanel(frame, wxID_ANY, wxPoint(0, 0), wxSize(400, 200));
        window = new CwxSysWindow(panel, isChild, ISysWindow::wtNormal);
        if (isChild)
            window->SetWindowRect(20, 10, 220, 110, false);
        native = Native(window);
        child = window->CreateChild(ISysWindow::wtNormal);
        other = new wxTextCtrl(frame, wxID_ANY, "", wxPoint(20, 220));
        other->SetFocus();
        Settle();
    }
    using GuiTest::frame;
    using WindowTest::native;
    using WindowTest::panel;
    using WindowTest::window;
    ISysWindow* child = nullptr;
    wxTextCtrl* other = nullptr;
};

void Point(Destroying& s)
{
    PointAt(s.native, 50, 40);
}
void Focus(Destroying& s)
{
    s.window->SetFocus();
}
void Nothing(Destroying&) {}

template <class Event>
void Send(wxWindow* window, Event event)
{
    event.SetEventObject(window);
    window->HandleWindowEvent(event);
}

struct Hook
{
    const char* name;
    void (*prepare)(Destroying&);
    void (*provoke)(Destroying&);
    bool isChild = true;
};

struct Victim
{
    const char* name;
    bool windowDies;
    void (*kill)(Destroying&, Recorder& first, Recorder& second);
};

// clang-format off
const Hook hooks[] = {
    {"press",   Point,                                         [](Destroying&) { Press(); }},
    {"press",   Point,                                         [](Destroying&) { Press(rightButton); }},
    {"release", [](Destroying& s) { Point(s); Press(); },      [](Destroying&) { Release(); }},
    {"double",  Point,                                         [](Destroying&) { DoubleClick(); }},
    {"motion",  Point,                                         [](Destroying& s) { PointAt(s.native, 60, 45); }},
    {"wheel",   Point,                                         [](Destroying&) { WheelUp(); }},
    {"menu",    Point,                                         [](Destroying&) { Press(rightButton); }},
    {"enter",   Nothing,                                       Point},
    {"leave",   Point,                                         [](Destroying& s) { PointAt(s.panel, 300, 150); }},
    // With the capture, wx goes on to a motion after the same step.
    {"leave",   [](Destroying& s) { Point(s); s.window->CaptureMouse(); },
                [](Destroying& s) { PointAt(s.panel, 300, 150); MovePointer(700, 700); }},
    {"keydown", Focus,                                         [](Destroying&) { KeyDown(GDK_KEY_a); }},
    {"keydown", Focus,                                         [](Destroying&) { KeyDown(GDK_KEY_Tab); }},
    {"char",    Focus,                                         [](Destroying&) { KeyDown(GDK_KEY_a); }},
    {"keyup",   [](Destroying& s) { Focus(s); KeyDown(GDK_KEY_a); }, [](Destroying&) { KeyUp(GDK_KEY_a); }},
    {"tab",     [](Destroying& s) { Focus(s); s.other->Hide(); }, [](Destroying&) { KeyDown(GDK_KEY_Tab); }},
    {"focus",   Nothing,                                       Focus},
    {"focus",   Point,                                         [](Destroying&) { Press(); }},
    {"unfocus", Focus,                                         [](Destroying& s) { s.other->SetFocus(); }},
    {"unfocus", Focus,                                         [](Destroying& s) { s.window->SetVisible(false); }},
    {"move",    Nothing,                                       [](Destroying& s) { Send(s.native, wxMoveEvent(wxPoint(1, 2))); }},
    {"resize",  Nothing,                                       [](Destroying& s) { s.window->SetWindowRect(20, 10, 100, 80, true); }},
    {"draw",    Nothing,                                       [](Destroying& s) { s.window->Refresh(0, 0, 200, 100, false); }},
    {"draw",    Nothing,                                       [](Destroying& s) { s.window->Invalidate(0, 0, 200, 100); Settle(); }},
    {"colours", Nothing,                                       [](Destroying& s) { Send(s.native, wxSysColourChangedEvent()); }},
    {"destroy", Nothing,                                       [](Destroying& s) { s.native->Destroy(); }},
    // The window that fills its parent hears of some things through a handler on the parent.
    {"resize",  Nothing,                                       [](Destroying& s) { s.panel->SetSize(300, 150); }, false},
    {"focus",   Nothing,                                       [](Destroying& s) { Send(s.panel, wxFocusEvent(wxEVT_SET_FOCUS)); }, false},
    {"destroy", Nothing,                                       [](Destroying& s) { s.native->Destroy(); }, false},
};

const Victim victims[] = {
    {"closed",    true,  [](Destroying& s, Recorder&, Recorder&) { s.native->Close(); }},
    {"destroyed", true,  [](Destroying& s, Recorder&, Recorder&) { s.native->Destroy(); }},
    {"deleted",   true,  [](Destroying& s, Recorder&, Recorder&) { delete s.native; }},
    {"panel",     true,  [](Destroying& s, Recorder&, Recorder&) { s.panel->Destroy(); }},
    {"frame",     true,  [](Destroying& s, Recorder&, Recorder&) { s.frame->Destroy(); }},
    {"child",     false, [](Destroying& s, Recorder&, Recorder&) { Native(s.child)->Destroy(); }},
    {"listeners", false, [](Destroying&, Recorder& first, Recorder& second) { first.Forget(); second.Forget(); }},
    {"thrown",    false, [](Destroying&, Recorder&, Recorder&) { throw std::runtime_error("a listener's"); }},
};
// clang-format on

bool Is(const char* name, const char* other)
{
    return name == std::string(other);
}

// GTK complains of a focus that is gone before it has come.
void TakeFocusComplaints(const char* hook)
{
    if (!Is(hook, "focus"))
        return;
    for (const std::string& message : TakeCriticals())
        EXPECT_NE(std::string::npos, message.find("g_object_notify")) << message;
}

} // namespace

class DestroyingInEveryHook : public Destroying, public testing::WithParamInterface<Victim>
{
};

TEST_P(DestroyingInEveryHook, IsSafe)
{
    const Victim& victim = GetParam();
    for (const Hook& hook : hooks) {
        const bool endsAnyway = Is(hook.name, "destroy");
        if (endsAnyway && Is(victim.name, "deleted"))
            continue; // C++ has no answer to that
        SCOPED_TRACE(hook.name + std::string(" in row ") + std::to_string(&hook - hooks));
        Renew(hook.isChild);
        Recorder first(window), second(window);
        const CLifeWatch life = window->WatchLife();
        hook.prepare(*this);
        first.HearAll();
        second.HearAll();
        int calls = 0;
        first.DoIn(hook.name, [&](CEvent&) {
            if (calls++ == 0)
                victim.kill(*this, first, second);
        });
        hook.provoke(*this);
        ReleaseAll();
        Settle();
        EXPECT_GE(calls, 1) << "the notification did not come";
        EXPECT_EQ(!victim.windowDies && !endsAnyway, life.IsAlive());
        EXPECT_EQ(victim.windowDies || endsAnyway ? 1 : 0, first.Count("destroy"));
        EXPECT_TRUE(!Is(victim.name, "listeners") || second.Count(hook.name) == 0);
        ExpectFaults(Fault::loop, Is(victim.name, "thrown") && !endsAnyway ? 1 : 0, "a listener's");
        if (life.IsAlive())
            window->Refresh(0, 0, 200, 100, true);
        TakeFocusComplaints(hook.name);
    }
    Renew(true); // and the frame works on
    Recorder heard(window);
    heard.Hear<IMouseNotify>();
    Point(*this);
    Click();
    EXPECT_EQ(1, heard.Count("release"));
}

INSTANTIATE_TEST_SUITE_P(, DestroyingInEveryHook, testing::ValuesIn(victims),
                         [](const auto& info) { return std::string(info.param.name); });
