// The notifications of toolkit windows, and the host's own handlers on and above them.
#include "scene.h"

#include "vela7/wxcustomcontrol.h"

#include <wx/button.h>
#include <wx/textctrl.h>

namespace vela7::test {
namespace {

const Step Point = [](Scene& s) { s.PointAt(theWindow, 50, 40); };
const Step Focus = [](Scene& s) { s.window->SetFocus(); };
void Away(Scene& s) // first beside the window, if it does not fill everything
{
    const wxPoint beside = s.frame->ClientToScreen(wxPoint(380, 190));
    MovePointer(beside.x, beside.y);
    MovePointer(700, 700);
}
const Step Hold = [](Scene& s) { Focus(s), KeyDown(GDK_KEY_a); };

template <Thing... order>
const Step Capture = [](Scene& s) { (s.Window(order)->CaptureMouse(), ...); };
template <Thing... order>
void ReleaseAfter(Scene& s)
{
    s.Spring();
    ((s.Lives(order) ? s.Window(order)->ReleaseMouse() : void()), ...);
}

// clang-format off
const std::vector<Row> windowRows = {
    {"press",      "press",   Point,                                         [](Scene&) { Press(); }},
    {"rightpress", "press",   Point,                                         [](Scene&) { Press(rightButton); }},
    {"release",    "release", [](Scene& s) { Point(s); Press(); },           [](Scene&) { Release(); }},
    {"double",     "double",  Point,                                         [](Scene&) { DoubleClick(); }},
    {"motion",     "motion",  Point,                                         [](Scene& s) { s.PointAt(theWindow, 60, 45); }},
    {"wheel",      "wheel",   Point,                                         [](Scene&) { WheelUp(); }},
    {"menu",       "menu",    Point,                                         [](Scene&) { Press(rightButton); }},
    {"enter",      "enter",   Nothing,                                       Point},
    {"leave",      "leave",   Point,                                         Away},
    // With the capture, wx goes on to a motion after the same step.
    {"captured",   "leave",   [](Scene& s) { Point(s); s.window->CaptureMouse(); }, Away},
    {"keydown",    "keydown", Focus,                                         [](Scene&) { KeyDown(GDK_KEY_a); }},
    {"tabkey",     "keydown", Focus,                                         [](Scene&) { KeyDown(GDK_KEY_Tab); }},
    {"char",       "char",    Focus,                                         [](Scene&) { KeyDown(GDK_KEY_a); }},
    {"keyup",      "keyup",   Hold,                                          [](Scene&) { KeyUp(GDK_KEY_a); }},
    {"tab",        "tab",     [](Scene& s) { Focus(s); s.other->Hide(); s.field->Hide(); s.Window(theSibling)->SetVisible(false); },    [](Scene&) { KeyDown(GDK_KEY_Tab); }},
    {"focus",      "focus",   Nothing,                                       Focus},
    {"focusclick", "focus",   Point,                                         [](Scene&) { Press(); }},
    {"unfocus",    "unfocus", Focus,                                         [](Scene& s) { s.other->SetFocus(); }},
    {"unfocushide", "unfocus", Focus,                                        [](Scene& s) { s.window->SetVisible(false); }},
    {"move",       "move",    Nothing,                                       [](Scene& s) { Send(s.native, wxMoveEvent(wxPoint(1, 2))); }},
    {"resize",     "resize",  Nothing,                                       [](Scene& s) { s.window->SetWindowRect(20, 10, 100, 80, true); }},
    {"drawnow",    "draw",    Nothing,                                       [](Scene& s) { s.window->Refresh(0, 0, 200, 100, false); }},
    {"draw",       "draw",    Nothing,                                       [](Scene& s) { s.window->Invalidate(0, 0, 200, 100); Settle(); }},
    {"colours",    "colours", Nothing,                                       [](Scene& s) { Send(s.native, wxSysColourChangedEvent()); }},
    {"destroy",    "destroy", Nothing,                                       [](Scene& s) { s.native->Destroy(); }, theWindow},
};
// The window that fills its parent hears of some things through a handler on the parent.
const std::vector<Row> fillingRows = {
    {"parentsize",  "resize", Nothing, [](Scene& s) { s.parent->SetSize(300, 150); Settle(); }},
    {"parentfocus", "focus",  Nothing, [](Scene& s) { Send(s.parent, wxFocusEvent(wxEVT_SET_FOCUS)); }},
};
const std::vector<Row> crowdedRows = {
    {"draw",    "draw",    Nothing, [](Scene& s) { s.window->Invalidate(0, 0, 200, 100); Settle(); }},
    {"destroy", "destroy", Nothing, [](Scene& s) { s.native->Destroy(); }, theWindow},
};
const std::vector<Row> childRows = { // of the window's child
    {"draw",    "draw",    Nothing, [](Scene& s) { s.Window(theChild)->Invalidate(0, 0, 40, 30); Settle(); }},
    {"press",   "press",   Nothing, [](Scene& s) { s.PointAt(theWindow, 160, 70); Press(); }},
    {"resize",  "resize",  Nothing, [](Scene& s) { s.Window(theChild)->SetWindowRect(150, 60, 180, 80, true); }},
    {"destroy", "destroy", Nothing, [](Scene& s) { s.native->Destroy(); }, theWindow},
};

// The host's handlers on the parent, which share its stack with ours. They go on to the next one or not.
const std::vector<Row> parentRows = {
    {"menu",     "", [](Scene& s) { s.Host(s.parent, wxEVT_MENU); },     [](Scene& s) { Send(s.parent, wxCommandEvent(wxEVT_MENU, 77)); }},
    {"motion",   "", [](Scene& s) { s.Host(s.parent, wxEVT_MOTION); },   [](Scene& s) { Send(s.parent, wxMouseEvent(wxEVT_MOTION)); }},
    {"idle",     "", [](Scene& s) { s.Host(s.parent, wxEVT_IDLE); },     [](Scene&) { Settle(); }},
    {"activate", "", [](Scene& s) { s.Host(s.parent, wxEVT_ACTIVATE); }, [](Scene& s) { Send(s.parent, wxActivateEvent(wxEVT_ACTIVATE, true)); }},
    {"keys",     "", [](Scene& s) { s.Host(s.parent, wxEVT_CHAR_HOOK); Focus(s); }, [](Scene&) { KeyDown(GDK_KEY_a); }},
    {"button",   "", [](Scene& s) { s.Host(s.parent, wxEVT_BUTTON); },
                     [](Scene& s) { Send(new wxButton(s.parent, wxID_ANY, "on the parent"), wxCommandEvent(wxEVT_BUTTON)); }},
    // Bubbles from the window itself.
    {"command",  "", [](Scene& s) { s.Host(s.parent, wxEVT_BUTTON); },   [](Scene& s) { Send(s.native, wxCommandEvent(wxEVT_BUTTON)); }},
};
// On the native window itself: after ours.
const std::vector<Row> nativeRows = {
    {"press",   "", [](Scene& s) { Point(s); s.Host(s.native, wxEVT_LEFT_DOWN); },        [](Scene&) { Press(); }},
    {"release", "", [](Scene& s) { Point(s); Press(); s.Host(s.native, wxEVT_LEFT_UP); }, [](Scene&) { Release(); }},
    {"double",  "", [](Scene& s) { Point(s); s.Host(s.native, wxEVT_LEFT_DCLICK); },      [](Scene&) { DoubleClick(); }},
    {"motion",  "", [](Scene& s) { Point(s); s.Host(s.native, wxEVT_MOTION); },           [](Scene& s) { s.PointAt(theWindow, 60, 45); }},
    {"keydown", "", [](Scene& s) { Focus(s); s.Host(s.native, wxEVT_KEY_DOWN); },         [](Scene&) { KeyDown(GDK_KEY_a); }},
    {"char",    "", [](Scene& s) { Focus(s); s.Host(s.native, wxEVT_CHAR); },             [](Scene&) { KeyDown(GDK_KEY_a); }},
    {"keyup",   "", [](Scene& s) { Hold(s); s.Host(s.native, wxEVT_KEY_UP); },            [](Scene&) { KeyUp(GDK_KEY_a); }},
    {"focus",   "", [](Scene& s) { s.Host(s.native, wxEVT_SET_FOCUS); },                  Focus},
    {"unfocus", "", [](Scene& s) { Focus(s); s.Host(s.native, wxEVT_KILL_FOCUS); },       [](Scene& s) { s.other->SetFocus(); }},
    {"size",    "", [](Scene& s) { s.Host(s.native, wxEVT_SIZE); },                       [](Scene& s) { s.native->SetSize(20, 10, 80, 70); Settle(); }},
    {"move",    "", [](Scene& s) { s.Host(s.native, wxEVT_MOVE); },                       [](Scene& s) { Send(s.native, wxMoveEvent(wxPoint(1, 2))); }},
    {"colours", "", [](Scene& s) { s.Host(s.native, wxEVT_SYS_COLOUR_CHANGED); },         [](Scene& s) { Send(s.native, wxSysColourChangedEvent()); }},
    {"idle",    "", [](Scene& s) { s.Host(s.native, wxEVT_IDLE); },                       [](Scene&) { Settle(); }},
    {"command", "", [](Scene& s) { s.Host(s.native, wxEVT_BUTTON); },                     [](Scene& s) { Send(s.native, wxCommandEvent(wxEVT_BUTTON)); }},
};
// In the middle of captures of the mouse, in this order; whoever is left releases it.
const std::vector<Row> captureRows = {
    {"whilebelow",  "", Capture<theWindow, theSibling>,            ReleaseAfter<theSibling, theWindow>},
    {"whileabove",  "", Capture<theSibling, theWindow>,            ReleaseAfter<theWindow, theSibling>},
    {"whilechild",  "", Capture<theWindow, theChild>,              ReleaseAfter<theChild, theWindow>},
    {"whileparent", "", Capture<theChild, theWindow>,              ReleaseAfter<theWindow, theChild>},
    {"whilemiddle", "", Capture<theSibling, theWindow, theOuter>,  ReleaseAfter<theOuter, theWindow, theSibling>},
};
// clang-format on

// A window with one of everything on it: what dies with it is in the way of its end.
void Crowded(Scene& s)
{
    s.Build(Scene::nested);
    s.menus = std::make_unique<MenuTree>(*s.window);
    s.MakeLayer();
    s.MakePopup();
    for (const int x : {0, 1, 2}) {
        auto* const stop = new wxTextCtrl(s.native, wxID_ANY, "", wxPoint(60 * x, 60), wxSize(50, 30));
        s.window->AddTabStop(CreateCustomControl(stop, s.window, true).Get());
    }
    s.MakeEdit(esMultiLine);
    s.text.Reset();
}
template <Scene::Shape shape, bool skips = false>
const Step Plain = [](Scene& s) {
    s.hostSkips = skips;
    s.Build(shape);
};

} // namespace

std::vector<Family> WindowFamilies()
{
    constexpr unsigned crowded = onOuter | Set(theHandle) | Set(theControl) | Set(thePopup) | Set(theTip) |
                                 Set(theLayer) | Set(theMenus);
    return {{"Child", Plain<Scene::child>, windowRows, onPanel},
            {"Nested", Plain<Scene::nested>, windowRows, Set(theOuter) | Set(thePanel)},
            {"Filling", Plain<Scene::filling>, windowRows, onPanel},
            {"FillingParent", Plain<Scene::filling>, fillingRows, onPanel},
            {"FillingFrame", Plain<Scene::fillingFrame>, windowRows, onFrame},
            {"Inner", Plain<Scene::nested>, childRows, onOuter, theChild},
            {"Captured", Plain<Scene::nested>, captureRows, onOuter, nothing},
            {"Crowded", Crowded, crowdedRows, crowded},
            {"OnPanel", Plain<Scene::filling>, parentRows, onPanel, nothing},
            {"OnPanelSkips", Plain<Scene::filling, true>, parentRows, onPanel, nothing},
            {"OnFrame", Plain<Scene::fillingFrame>, parentRows, onFrame, nothing},
            {"OnFrameSkips", Plain<Scene::fillingFrame, true>, parentRows, onFrame, nothing},
            {"OnNative", Plain<Scene::child>, nativeRows, onPanel, nothing},
            {"OnNativeSkips", Plain<Scene::child, true>, nativeRows, onPanel, nothing}};
}

} // namespace vela7::test
