// Whatever is ended inside whatever notification, with or without an event loop afterwards: nothing is
// touched that is gone, everything ends once, and the frame works on. A share of the cells is in the suite;
// scripts/destroy runs them all, each on its own if need be.
#include "scene.h"

#include <fnmatch.h>
#include <stdexcept>

using namespace vela7;
using namespace vela7::test;

namespace {

// clang-format off
const Victim victims[] = {
    {"closed",    {theWindow},  Set(theWindow),  [](Scene& s) { s.native->Close(); }},
    {"destroyed", {theWindow},  Set(theWindow),  [](Scene& s) { s.native->Destroy(); }, true},
    {"deleted",   {theWindow},  Set(theWindow),  [](Scene& s) { delete s.native; }},
    {"panel",     {thePanel},   Set(thePanel),   [](Scene& s) { s.panel->Destroy(); }, true},
    {"children",  {theOuter, theWindow, theSibling}, Set(thePanel), [](Scene& s) { s.panel->DestroyChildren(); }},
    {"grand",     {theGrand},   Set(theGrand),   [](Scene& s) { s.grand->Destroy(); }},
    {"frame",     {theFrame},   Set(theFrame),   [](Scene& s) { s.frame->Destroy(); }},
    {"outer",     {theOuter},   Set(theOuter),   [](Scene& s) { Native(s.outer)->Destroy(); }},
    {"child",     {theChild},   Set(theChild),   [](Scene& s) { Native(s.inner)->Destroy(); }},
    {"sibling",   {theSibling}, Set(theSibling), [](Scene& s) { Native(s.sibling)->Destroy(); }},
    {"handle",    {theControl}, Set(theHandle), [](Scene& s) { s.control.Reset(); }, true},
    {"holder",    {theHolder},  Set(theHolder), [](Scene& s) { s.control.Reset(); }, true},
    {"control",   {theControl, theStranger}, Set(theControl) | Set(theStranger), [](Scene& s) { s.nativeControl->Destroy(); }},
    {"controldeleted", {theControl, theStranger}, Set(theControl) | Set(theStranger), [](Scene& s) { delete s.nativeControl; }},
    {"handleandpanel", {theHolder, thePopup, thePanel}, Set(theControl) | Set(theStranger) | Set(thePopup), [](Scene& s) { s.DropAll(); s.panel->Destroy(); }},
    {"popup",     {thePopup},   Set(thePopup),   [](Scene& s) { s.popup.Reset(); }, true},
    {"popuptwice", {thePopup},  Set(thePopup),   [](Scene& s) { wxWindow* p = Native(s.content)->GetParent(); p->Destroy(); p->Destroy(); s.popup.Reset(); }},
    {"popupcaptured", {thePopup, thePanel}, Set(theContent), [](Scene& s) { s.content->CaptureMouse(); s.popup.Reset(); s.panel->Destroy(); }},
    {"content",   {theContent}, Set(theContent), [](Scene& s) { Native(s.content)->Destroy(); }, true},
    {"contentdeleted", {theContent}, Set(theContent), [](Scene& s) { delete Native(s.content); }},
    {"tip",       {theTip},     Set(theTip),     [](Scene& s) { s.tip->Destroy(); }},
    {"tipdeleted", {theTip},    Set(theTip),     [](Scene& s) { delete s.tip; }},
    {"layer",     {theLayer},   Set(theLayer),   [](Scene& s) { Native(s.layer)->Destroy(); }, true},
    {"layerdeleted", {theLayer}, Set(theLayer),  [](Scene& s) { delete Native(s.layer); }},
    {"innermenu", {},           Set(theMenus),   [](Scene& s) { s.menus->menus[2] = nullptr; }},
    {"menus",     {},           Set(theMenus),   [](Scene& s) { s.menus->Reset(); }},
    {"items",     {},           Set(theMenus),   [](Scene& s) { s.menus->menus[2]->DeleteItem(1, IPopupMenu::ptPosition); s.menus->menus[1]->DeleteItem(0, IPopupMenu::ptPosition); }},
    {"submenu",   {},           Set(theMenus),   [](Scene& s) { s.menus->menus[0]->DeleteItem(2, IPopupMenu::ptPosition); }},
    {"checked",   {},           Set(theMenus),   [](Scene& s) { s.menus->menus[2]->SetItemChecked(1, true, IPopupMenu::ptPosition); }},
    {"executed",  {},           Set(theMenus),   [](Scene& s) { EXPECT_EQ(-1, s.menus->menus[0]->Execute(0, 0)); }},
    {"listeners", {},           Set(theWindow),  [](Scene& s) { s.Forget(); }},
    {"thrown",    {},           Set(theWindow),  [](Scene&) { throw std::runtime_error("a listener's"); }},
};
const After afters[] = {
    {"now",    [](Scene&) {}},
    {"loop",   RunLoopUntilIdle},
    {"dialog", ShowModalDialog},
};

// Cells to which there is no answer, here or in plain wx.
const struct { const char *stages, *victims, *afters; } leftOut[] = {
    // C++: its destructor is running.
    {"*_*destroy",       "*deleted",       "*"},
    // wx deletes it at once, below its own event.
    {"On*",              "deleted",        "*"},
    {"On*",              "panel",          "*"},
    {"On*",              "grand",          "*"},
    {"On*",              "children",       "*"},
    {"On*",              "handleandpanel", "*"},
    // The exceptions of a host's own handlers are its own; a host has no listeners.
    {"On*",              "thrown",         "*"},
    {"On*",              "listeners",      "*"},
    {"*_while*",         "thrown",         "*"},
    {"*_while*",         "listeners",      "*"},
    // wx deletes the frame in the loop also below an event of its own or of a panel on it.
    {"OnFrame*",         "frame",          "loop"},
    {"OnPanel*",         "frame",          "loop"},
    // wx goes on with a window that it hides.
    {"Held*_hideout",    "control*",       "*"},
    {"Elsewhere_hideout", "control*",      "*"},
    // There is no loop after an exception.
    {"*",                "thrown",         "[ld]*"},
};
// clang-format on

std::vector<Family> Families()
{
    std::vector<Family> all;
    for (const auto families : {WindowFamilies, HostFamilies, ControlFamilies, PopupFamilies})
        for (const Family& family : families())
            all.push_back(family);
    return all;
}

const std::vector<Family>& AllFamilies()
{
    static const std::vector<Family> families = Families();
    return families;
}

bool IsLeftOut(const Cell& cell)
{
    return std::any_of(std::begin(leftOut), std::end(leftOut), [&](const auto& row) {
        return cell.Is(row.stages, row.victims) && fnmatch(row.afters, cell.after->name, 0) == 0;
    });
}

// One cell in so many: all of them, or those of the suite, which still come by each row and each victim.
std::vector<Cell> Cells(bool suite)
{
    std::vector<Cell> cells;
    std::size_t number = 0;
    for (const Family& family : AllFamilies())
        for (const Row* row = family.rows; row != family.rows + family.count; ++row)
            for (const Victim& victim : victims)
                for (const After& after : afters) {
                    const Cell cell{&family, row, &victim, &after};
                    if ((family.has & victim.needs) && (after.run != ShowModalDialog || victim.inDialog) &&
                        !IsLeftOut(cell) && (++number % 19 == 0) == suite)
                        cells.push_back(cell);
                }
    return cells;
}

} // namespace

class Destroy : public Scene, public testing::WithParamInterface<Cell>
{
};

TEST_P(Destroy, Anywhere)
{
    const Cell& cell = GetParam();
    cell.family->make(*this);
    cell.row->prepare(*this);
    Arm(cell);
    cell.row->provoke(*this);
    ReleaseAll();
    Settle();
    Check(cell);
    FrameWorks();
}

const auto name = [](const auto& info) { return info.param.Name(); };
INSTANTIATE_TEST_SUITE_P(Suite, Destroy, testing::ValuesIn(Cells(true)), name);
INSTANTIATE_TEST_SUITE_P(Rest, Destroy, testing::ValuesIn(Cells(false)), name);
