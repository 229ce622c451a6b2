// The notifications of popups' contents and of what tips hand on to their owners.
#include "scene.h"

namespace vela7::test {
namespace {

const Step PointAtContent = [](Scene& s) { s.PointAt(theContent, 50, 50); };
void ShrinkHidden(Scene& s) // unheard, so that the next layout changes the size
{
    s.popup->Hide();
    const wxEventBlocker silence(s.Raw(theContent));
    s.Window(theContent)->SetWindowRect(0, 0, 9, 9, false);
}
void Track(Scene& s, int x, int y)
{
    const wxPoint at = s.native->ClientToScreen(wxPoint(x, y));
    s.window->TrackTooltip(at.x, at.y, std::string(30, 'm')); // beyond the window's right edge
    Settle();
}
void PointAtTip(Scene& s)
{
    MovePointer(500, 700);
    Track(s, 150, 60);
    s.PointAt(theWindow, 160, 65);
    PointAt(s.tip, 5, 4);
}
void PointAtLayer(Scene& s)
{
    MovePointer(500, 700);
    s.tip->SetWidth(120), s.tip->SetHeight(40);
    Track(s, 150, 60);
    s.PointAt(theLayer, 20, 20);
}

// clang-format off
const std::vector<Row> popupRows = {
    {"colours", "colours", Nothing,        [](Scene& s) { Send(s.Raw(theContent), wxSysColourChangedEvent()); }},
    {"press",   "press",   PointAtContent, [](Scene&) { Press(); }},
    {"release", "release", [](Scene& s) { PointAtContent(s); Press(); }, [](Scene&) { Release(); }},
    {"draw",    "draw",    Nothing,        [](Scene& s) { s.Window(theContent)->Invalidate(0, 0, 20, 20); Settle(); }},
    {"keydown", "keydown", Nothing,        [](Scene&) { Tap(GDK_KEY_Escape); }},
    {"resize",  "resize",  ShrinkHidden,   [](Scene& s) { s.popup->Show(600, 200); }},
    {"destroy", "destroy", Nothing,        [](Scene& s) { s.popup.Reset(); Settle(); }, thePopup},
    {"ownerdestroy",   "destroy", Nothing, [](Scene& s) { s.native->Destroy(); }, theWindow},
    {"contentdestroy", "destroy", Nothing, [](Scene& s) { s.Raw(theContent)->Destroy(); }, theContent},
};
const std::vector<Row> ownerRows = { // of the owner, while its popup is shown
    {"whileshown", "",      Nothing,                               Now},
    {"whilecaptured", "",   [](Scene& s) { s.Window(theContent)->CaptureMouse(); }, Now},
    {"whilehiding", "",     [](Scene& s) { s.popup->Hide(); },      Now}, // the focus is on its way
    {"unfocus", "unfocus", [](Scene& s) { s.window->SetFocus(); }, [](Scene& s) { s.other->SetFocus(); }},
    {"focus",   "focus",   Nothing,                                [](Scene&) { MovePointer(900, 900); Click(); }}, // which hides the popup
    {"destroy", "destroy", Nothing,                                [](Scene& s) { s.native->Destroy(); }, theWindow},
};
const std::vector<Row> tipRows = {
    {"whileshown", "",     PointAtTip, Now},
    {"whiledelayed", "",   [](Scene& s) { s.window->SetTooltipDelay(1); s.PointAt(theWindow, 160, 65); s.window->TrackTooltip(300, 300, "late"); }, Now},
    {"motion",  "motion",  PointAtTip, [](Scene& s) { PointAt(s.tip, 7, 5); }},
    {"press",   "press",   PointAtTip, [](Scene&) { Press(); }},
    {"release", "release", [](Scene& s) { PointAtTip(s); Press(); }, [](Scene&) { Release(); }},
    {"menu",    "menu",    PointAtTip, [](Scene&) { Press(rightButton); }},
    {"wheel",   "wheel",   PointAtTip, [](Scene&) { WheelUp(); }},
    {"double",  "double",  PointAtTip, [](Scene&) { DoubleClick(); }},
    {"leave",   "leave",   PointAtTip, [](Scene& s) { PointAt(s.frame, 390, 290); }},
    {"focus",   "focus",   [](Scene& s) { s.window->SetFocusOnClick(false); PointAtTip(s); }, [](Scene&) { Click(); }},
    {"destroy", "destroy", PointAtTip, [](Scene& s) { s.native->Destroy(); }, theWindow},
};
const std::vector<Row> layerRows = {
    {"press",   "press",   PointAtLayer, [](Scene&) { Press(); }},
    {"draw",    "draw",    PointAtLayer, [](Scene& s) { s.Window(theLayer)->Invalidate(0, 0, 20, 20); Settle(); }},
    {"resize",  "resize",  [](Scene&) { MovePointer(500, 700); }, [](Scene& s) { s.tip->SetWidth(90), s.tip->SetHeight(40); Track(s, 120, 60); }},
    {"destroy", "destroy", PointAtLayer, [](Scene& s) { s.native->Destroy(); }, theWindow},
};
// clang-format on

void Popup(Scene& s)
{
    s.Build(Scene::child);
    s.MakePopup();
    s.popup->Show(600, 200);
    s.other->SetFocus();
    Settle();
}
const Step Tip = [](Scene& s) { s.Build(Scene::child); };
const Step Layer = [](Scene& s) {
    s.Build(Scene::child);
    s.MakeLayer();
};
void HiddenLayer(Scene& s)
{
    Layer(s);
    s.tip->SetLayerMode(ITooltip::lmNormal, false);
    s.Window(theLayer)->SetVisible(false);
}

} // namespace

std::vector<Family> PopupFamilies()
{
    constexpr unsigned withPopup = onPanel | Set(thePopup) | Set(theContent), withTip = onPanel | Set(theTip);
    return {{"Popup", Popup, popupRows, withPopup, theContent},
            {"Owner", Popup, ownerRows, withPopup},
            {"Tip", Tip, tipRows, withTip},
            {"TipWithLayer", HiddenLayer, tipRows, withTip | Set(theLayer)},
            {"Layer", Layer, layerRows, withTip | Set(theLayer), theLayer}};
}

} // namespace vela7::test
