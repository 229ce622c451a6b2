// Whatever is ended inside whatever notification, with or without an event loop afterwards: nothing is
// touched that is gone, everything ends once, and the frame works on. A share of the cells is in the suite;
// scripts/destroy runs them all.
#include "scene.h"

#include <stdexcept>

using namespace vela7;
using namespace vela7::test;

namespace {

template <Thing thing>
void Destroys(Scene& s)
{
    s.Lives(thing) ? s.Raw(thing)->Destroy() : false; // it may have gone before the one that is going
}
template <Thing thing>
void Deletes(Scene& s)
{
    delete (s.Lives(thing) ? s.Raw(thing) : nullptr);
}
void DeleteItem(Scene& s, int menu, int place)
{
    s.menus->menus[menu]->DeleteItem(place, IPopupMenu::ptPosition);
}

// clang-format off
const Victim victims[] = {
    {"closed",    {theWindow},  [](Scene& s) { s.native->Close(); }},
    {"destroyed", {theWindow},  Destroys<theWindow>, 0, true},
    {"deleted",   {theWindow},  Deletes<theWindow>},
    {"panel",     {thePanel},   Destroys<thePanel>, 0, true},
    {"grand",     {theGrand},   Destroys<theGrand>},
    {"frame",     {theFrame},   Destroys<theFrame>},
    {"outer",     {theOuter},   Destroys<theOuter>},
    {"child",     {theChild},   Destroys<theChild>},
    {"sibling",   {theSibling}, Destroys<theSibling>},
    {"children",  {theOuter, theWindow, theSibling}, [](Scene& s) { s.Raw(thePanel)->DestroyChildren(); }, Set(thePanel)},
    {"handle",    {theControl}, [](Scene& s) { s.control.Reset(); }, Set(theHandle), true},
    {"holder",    {theHolder},  [](Scene& s) { s.control.Reset(); }},
    {"control",   {theControl}, Destroys<theControl>},
    {"controldeleted",  {theControl},  Deletes<theControl>},
    {"stranger",  {theStranger}, Destroys<theStranger>},
    {"strangerdeleted", {theStranger}, Deletes<theStranger>},
    {"handleandpanel", {theHolder, thePopup, thePanel}, [](Scene& s) { s.control.Reset(), s.popup.Reset(), s.Raw(thePanel)->Destroy(); },
                                Set(theControl) | Set(theStranger) | Set(thePopup)},
    {"popup",     {thePopup},   [](Scene& s) { s.popup.Reset(); }, 0, true},
    {"popuptwice", {thePopup},  [](Scene& s) { wxWindow* w = s.Raw(thePopup); w->Destroy(), w->Destroy(), s.popup.Reset(); }},
    {"popupcaptured", {thePopup, thePanel}, [](Scene& s) { s.Window(theContent)->CaptureMouse(), s.popup.Reset(), s.Raw(thePanel)->Destroy(); },
                                Set(theContent)},
    {"content",   {theContent}, Destroys<theContent>, 0, true},
    {"contentdeleted", {theContent}, Deletes<theContent>},
    {"tip",       {theTip},     Destroys<theTip>},
    {"tipdeleted", {theTip},    Deletes<theTip>},
    {"layer",     {theLayer},   Destroys<theLayer>, 0, true},
    {"layerdeleted", {theLayer}, Deletes<theLayer>},
    {"innermenu", {},           [](Scene& s) { s.menus->menus[2] = nullptr; }, Set(theMenus)},
    {"menus",     {},           [](Scene& s) { s.menus->Reset(); }, Set(theMenus)},
    {"items",     {},           [](Scene& s) { DeleteItem(s, 2, 1), DeleteItem(s, 1, 0); }, Set(theMenus)},
    {"submenu",   {},           [](Scene& s) { DeleteItem(s, 0, 2); }, Set(theMenus)},
    {"checked",   {},           [](Scene& s) { s.menus->menus[2]->SetItemChecked(1, true, IPopupMenu::ptPosition); }, Set(theMenus)},
    {"executed",  {},           [](Scene& s) { EXPECT_EQ(-1, s.menus->menus[0]->Execute(0, 0)); }, Set(theMenus)},
    {"listeners", {},           [](Scene& s) { s.Forget(); }, Set(theWindow)},
    {"thrown",    {},           [](Scene&) { throw std::runtime_error("a listener's"); }, Set(theWindow)},
};
const After afters[] = {
    {"now",    [](Scene&) {}},
    {"loop",   RunLoopUntilIdle},
    {"dialog", ShowModalDialog},
};

// Cells to which there is no answer, here or in plain wx.
const struct { const char *stages, *victims, *afters, *reason; } leftOut[] = {
    {"*_*destroy",        "*deleted",  "*",      "C++: its destructor is running"},
    {"On*", "@(deleted|panel|grand|children|handleandpanel)", "*", "wx deletes it at once, below its own event"},
    {"On@(Frame|Panel)*", "frame",     "loop",   "wx deletes it in the loop, below an event of its own or of its panel"},
    {"@(On*|*_while*)",   "@(thrown|listeners)", "*", "a host's own handlers have neither"},
    {"@(Edit|Lines|Combo|Choice|Bar)_*", "controldeleted", "*", "controls end by their handle or with their window"},
    {"Crowded*",          "executed",  "*",      "it would wait for its user"},
    {"Menu_command",      "submenu",   "*",      "what was chosen is no longer in the menu"},
    {"Held*_hideout",     "control*",  "*",      "wx goes on with a window that it hides"},
    {"Elsewhere_hideout", "stranger*", "*",      "the same"},
    {"Elsewhere_hideout", "frame",     "loop",   "the same"},
    {"OnNative*_idle",    "frame",     "loop",   "wx walks through the frame's windows meanwhile"},
    {"Nested_tab",        "*",         "*",      "Tab leads on, out of the window around"},
    {"*",                 "thrown",    "[ld]*",  "there is no loop after an exception"},
};
// clang-format on

bool IsLeftOut(const Cell& cell)
{
    const Victim& victim = *cell.victim;
    return !(cell.family->has & (victim.needs ? victim.needs : Set(victim.ends[0]))) ||
           (cell.after->run == ShowModalDialog && !victim.inDialog) ||
           std::any_of(std::begin(leftOut), std::end(leftOut),
                       [&](const auto& row) { return cell.Is(row.stages, row.victims, row.afters); });
}

// One cell in seventeen is in the suite.
std::vector<Cell> Cells(bool suite)
{
    static const std::vector<Family> families[] = {WindowFamilies(), ControlFamilies(), PopupFamilies()};
    std::vector<Cell> cells;
    int number = 0;
    for (const auto& list : families)
        for (const Family& family : list)
            for (const Row& row : family.rows)
                for (const Victim& victim : victims)
                    for (const After& after : afters)
                        if (const Cell cell{&family, &row, &victim, &after}; !IsLeftOut(cell))
                            if ((++number % 17 == 0) == suite)
                                cells.push_back(cell);
    return cells;
}

class Destroy : public Scene, public testing::WithParamInterface<Cell>
{
};

const auto nameOf = [](const auto& info) { return info.param.Name(); };
INSTANTIATE_TEST_SUITE_P(Suite, Destroy, testing::ValuesIn(Cells(true)), nameOf);
INSTANTIATE_TEST_SUITE_P(Rest, Destroy, testing::ValuesIn(Cells(false)), nameOf);

} // namespace

TEST_P(Destroy, Anywhere)
{
    const Cell& cell = GetParam();
    cell.family->make(*this);
    cell.row->prepare(*this);
    Arm(cell);
    cell.row->provoke(*this);
    ASSERT_TRUE(WaitFor([this] { return calls > 0; }, "the notification"));
    ReleaseAll();
    Settle();
    Check(cell);
    FrameWorks();
}
