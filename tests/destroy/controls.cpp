// The notifications of editors, combo boxes, scroll bars, held controls and menus on a toolkit window.
#include "scene.h"

namespace vela7::test {
namespace {

const Step Point = [](Scene& s) { PointAt(s.nativeControl, 20, 12); };
const Step Leave = [](Scene& s) { s.native->SetFocus(); };
const Step Enter = [](Scene& s) { s.control->SetFocus(); };

void ExpectList()
{
    WaitFor([] { return gtk_grab_get_current() != nullptr; }, "an open list");
}
const Step OpenList = [](Scene& s) { PointAt(s.nativeControl, 130, 15), Click(), ExpectList(); };
const Step List = [](Scene&) { KeyDown(GDK_KEY_Alt_L), KeyDown(GDK_KEY_Down), ReleaseAll(), ExpectList(); };

// clang-format off
const std::vector<Row> editRows = {
    {"keydown",  "keydown", Nothing, [](Scene&) { KeyDown(GDK_KEY_a); }},
    {"tabkey",   "keydown", Nothing, [](Scene&) { KeyDown(GDK_KEY_Tab); }},
    {"char",     "char",    Nothing, [](Scene&) { KeyDown(GDK_KEY_a); }},
    {"text",     "text",    Nothing, [](Scene&) { KeyDown(GDK_KEY_a); }},
    {"delete",   "text",    [](Scene& s) { s.text->SelectAll(); }, [](Scene&) { KeyDown(GDK_KEY_Delete); }},
    {"settext",  "text",    Nothing, [](Scene& s) { static_cast<ITextControl*>(s.control.Get())->SetText("new"); }},
    {"menu",     "menu",    Point,   [](Scene&) { Press(rightButton); }},
    {"menukey",  "menu",    Nothing, [](Scene&) { KeyDown(GDK_KEY_Menu); }},
    {"focusout", "out",     Nothing, [](Scene& s) { s.other->SetFocus(); }},
    {"hideout",  "out",     Nothing, [](Scene& s) { s.control->SetVisible(false); }},
    {"clickout", "out",     Nothing, [](Scene& s) { PointAt(s.field, 5, 5); Press(); }},
    {"focusin",  "in",      Leave,   Enter},
    {"clickin",  "in",      [](Scene& s) { Leave(s); Point(s); }, [](Scene&) { Press(); }},
    {"whilefocused", "",     Nothing, Now},
};
const std::vector<Row> enterRows = { // with one line
    {"enter", "enter", Nothing, [](Scene&) { KeyDown(GDK_KEY_Return); }},
};
const std::vector<Row> comboRows = {
    {"button",   "out",      [](Scene& s) { PointAt(s.nativeControl, 130, 15); }, [](Scene&) { Press(); }},
    {"item",     "item",     [](Scene& s) { List(s); Tap(GDK_KEY_Down); Tap(GDK_KEY_Down); }, [](Scene&) { Tap(GDK_KEY_Return); }},
    {"whileopen",  "", OpenList, Now}, // GTK has a grab then
    {"whilelisted", "", List, ByTimer},
    {"itemevent", "item",    Nothing, [](Scene& s) { Send(s.nativeControl, wxCommandEvent(wxEVT_COMBOBOX)); }},
};
const std::vector<Row> barRows = {
    {"page",   "scroll", [](Scene& s) { PointAt(s.nativeControl, 170, 5); }, [](Scene&) { Click(); }},
    {"press",  "scroll", [](Scene& s) { PointAt(s.nativeControl, 170, 5); }, [](Scene&) { Press(middleButton); }}, // moves the thumb here
    {"drag",   "scroll", [](Scene& s) { PointAt(s.nativeControl, 110, 5); Press(); },
                         [](Scene&) { MovePointer(wxGetMousePosition().x - 60, wxGetMousePosition().y); }},
    {"whiledragged", "", [](Scene& s) { PointAt(s.nativeControl, 110, 5); Press(); PointAt(s.nativeControl, 100, 5); }, Now},
    {"key",    "scroll", Nothing, // bars do not take the focus; this is what a key has them do
                         [](Scene& s) { g_signal_emit_by_name(s.nativeControl->m_widget, "move-slider", GTK_SCROLL_STEP_RIGHT); }},
    {"wheel",  "scroll", [](Scene& s) { PointAt(s.nativeControl, 100, 5); }, [](Scene&) { WheelDown(); }},
    {"event",  "scroll", Nothing, [](Scene& s) { Send(s.nativeControl, wxScrollEvent(wxEVT_SCROLL_TOP)); }},
};
const std::vector<Row> heldRows = {
    {"whilefocused", "", Enter, Now},
    {"focusin",  "in",  Nothing, Enter},
    {"clickin",  "in",  Point,   [](Scene&) { Press(); }},
    {"focusout", "out", Enter,   [](Scene& s) { s.other->SetFocus(); }},
    {"hideout",  "out", Enter,   [](Scene& s) { s.control->SetVisible(false); }},
};
const std::vector<Row> menuRows = {
    {"command", "command", Nothing, [](Scene& s) {
        MenuTree& m = *s.menus;
        EXPECT_EQ(302, m.Execute({m.toDeep, m.toDeeper, m.items[2]})) << "the choice is made"; }},
    {"whileopen", "",        Nothing, [](Scene& s) {
        MenuTree& m = *s.menus;
        EXPECT_EQ(-1, m.Execute({m.toDeep, m.toDeeper}, [&s] { s.Spring(); })); }},
};
// clang-format on

template <unsigned long style>
void Edit(Scene& s)
{
    s.Build(Scene::child);
    s.MakeEdit(style);
    s.text->SetText("old"), s.text->SetFocus();
}
template <bool editable>
void Combo(Scene& s)
{
    s.Build(Scene::child);
    s.MakeCombo(editable);
    s.text->SetText(editable ? "old" : "one"), s.text->SetFocus();
}
const Step Bar = [](Scene& s) {
    s.Build(Scene::child);
    s.MakeBar();
};
template <bool autoDelete, bool elsewhere> // not on the window that hears of its focus
const Step Held = [](Scene& s) {
    s.Build(Scene::child);
    s.MakeHeld(autoDelete, elsewhere);
};
const Step Menus = [](Scene& s) {
    s.Build(Scene::child);
    s.menus = std::make_unique<MenuTree>(*s.window);
};

} // namespace

std::vector<Family> ControlFamilies()
{
    constexpr unsigned held = onPanel | Set(theControl), own = held | Set(theHandle);
    return {{"Edit", Edit<0>, editRows, own, nothing},
            {"Edit", Edit<0>, enterRows, own, nothing},
            {"Lines", Edit<esMultiLine>, editRows, own, nothing},
            {"Combo", Combo<true>, editRows, own, nothing},
            {"Combo", Combo<true>, enterRows, own, nothing},
            {"Combo", Combo<true>, comboRows, own, nothing},
            {"Choice", Combo<false>, comboRows, own, nothing},
            {"Bar", Bar, barRows, own, nothing},
            {"Held", Held<false, false>, heldRows, held | Set(theHolder), nothing},
            {"HeldAuto", Held<true, false>, heldRows, held, nothing},
            {"Elsewhere", Held<false, true>, heldRows, onPanel | Set(theStranger) | Set(theHolder), nothing},
            {"Menu", Menus, menuRows, onPanel | Set(theMenus), nothing}};
}

} // namespace vela7::test
