// The notifications of popups' contents and of what tips hand on to their owners.
#include "scene.h"

#include <wx/app.h>

namespace vela7::test {
namespace {

void Nothing(Scene&) {}
void PointAtContent(Scene& s)
{
    PointAt(Native(s.content), 50, 50);
}
void ShrinkHidden(Scene& s) // unheard, so that the next layout changes the size
{
    s.popup->Hide();
    const wxEventBlocker silence(Native(s.content));
    s.content->SetWindowRect(0, 0, 9, 9, false);
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
    s.PointAt(160, 65);
    MoveTo(s.tip, 5, 4);
}
void PointAtLayer(Scene& s)
{
    MovePointer(500, 700);
    s.tip->SetWidth(120), s.tip->SetHeight(40);
    Track(s, 150, 60);
    PointAt(Native(s.layer), 20, 20);
}

// clang-format off
const Row popupRows[] = {
    {"colours", "colours", Nothing,        [](Scene& s) { Send(Native(s.content), wxSysColourChangedEvent()); }},
    {"press",   "press",   PointAtContent, [](Scene&) { Press(); }},
    {"release", "release", [](Scene& s) { PointAtContent(s); Press(); }, [](Scene&) { Release(); }},
    {"draw",    "draw",    Nothing,        [](Scene& s) { s.content->Invalidate(0, 0, 20, 20); Settle(); }},
    {"keydown", "keydown", Nothing,        [](Scene&) { Tap(GDK_KEY_Escape); }},
    {"resize",  "resize",  ShrinkHidden,   [](Scene& s) { s.popup->Show(600, 200); }},
    {"destroy", "destroy", Nothing,        [](Scene& s) { s.popup.Reset(); Settle(); }, thePopup},
    {"ownerdestroy",   "destroy", Nothing, [](Scene& s) { s.native->Destroy(); }, theWindow},
    {"contentdestroy", "destroy", Nothing, [](Scene& s) { Native(s.content)->Destroy(); }, theContent},
};
const Row ownerRows[] = { // of the owner, while its popup is shown
    {"whileshown", "",      Nothing,                               Now},
    {"whilecaptured", "",   [](Scene& s) { s.content->CaptureMouse(); }, Now},
    {"whilehiding", "",     [](Scene& s) { s.popup->Hide(); },      Now}, // the focus is on its way
    {"unfocus", "unfocus", [](Scene& s) { s.window->SetFocus(); }, [](Scene& s) { s.other->SetFocus(); }},
    {"focus",   "focus",   Nothing,                                [](Scene&) { MovePointer(900, 900); Click(); }}, // which hides the popup
    {"destroy", "destroy", Nothing,                                [](Scene& s) { s.native->Destroy(); }, theWindow},
};
const Row tipRows[] = {
    {"whileshown", "",     PointAtTip, Now},
    {"whiledelayed", "",   [](Scene& s) { s.window->SetTooltipDelay(1); s.PointAt(160, 65); s.window->TrackTooltip(300, 300, "late"); }, Now},
    {"motion",  "motion",  PointAtTip, [](Scene& s) { MoveTo(s.tip, 7, 5); }},
    {"press",   "press",   PointAtTip, [](Scene&) { Press(); }},
    {"release", "release", [](Scene& s) { PointAtTip(s); Press(); }, [](Scene&) { Release(); }},
    {"menu",    "menu",    PointAtTip, [](Scene&) { Press(rightButton); }},
    {"wheel",   "wheel",   PointAtTip, [](Scene&) { WheelUp(); }},
    {"double",  "double",  PointAtTip, [](Scene&) { DoubleClick(); }},
    {"leave",   "leave",   PointAtTip, [](Scene& s) { PointAt(s.frame, 390, 290); }},
    {"focus",   "focus",   [](Scene& s) { s.window->SetFocusOnClick(false); PointAtTip(s); }, [](Scene&) { Click(); }},
    {"destroy", "destroy", PointAtTip, [](Scene& s) { s.native->Destroy(); }, theWindow},
};
const Row layerRows[] = {
    {"press",   "press",   PointAtLayer, [](Scene&) { Press(); }},
    {"draw",    "draw",    PointAtLayer, [](Scene& s) { s.layer->Invalidate(0, 0, 20, 20); Settle(); }},
    {"resize",  "resize",  PointAtLayer, [](Scene& s) { s.tip->SetWidth(90); s.window->HideTooltip(); Track(s, 120, 60); }},
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
void Tip(Scene& s)
{
    s.Build(Scene::child);
    s.MakeTip();
}
void Layer(Scene& s)
{
    Tip(s);
    s.MakeLayer();
}
void HiddenLayer(Scene& s)
{
    Layer(s);
    s.tip->SetLayerMode(ITooltip::lmNormal, false);
    s.layer->SetVisible(false);
}

} // namespace

std::vector<Family> PopupFamilies()
{
    constexpr unsigned withPopup = onPanel | Set(thePopup) | Set(theContent), withTip = onPanel | Set(theTip);
    return {{"Popup", Popup, popupRows, std::size(popupRows), withPopup, theContent},
            {"Owner", Popup, ownerRows, std::size(ownerRows), withPopup},
            {"Tip", Tip, tipRows, std::size(tipRows), withTip},
            {"TipWithLayer", HiddenLayer, tipRows, std::size(tipRows), withTip | Set(theLayer)},
            {"Layer", Layer, layerRows, std::size(layerRows), withTip | Set(theLayer), theLayer}};
}

} // namespace vela7::test
