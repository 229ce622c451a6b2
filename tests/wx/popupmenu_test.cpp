// Popup menus: items, real choices with the mouse.
#include "menudriver.h"

#include <climits>
#include <wx/app.h>

using namespace vela7;
using namespace vela7::test;

namespace {

constexpr auto byPlace = IPopupMenu::ptPosition;
constexpr auto byCommand = IPopupMenu::ptCommand;
using Menu = CHandle<IPopupMenu>;

// The tree of menus, each with somebody to hear it: "302" of the top one, ">302" of the one in it.
class Menus : public WindowTest
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(WindowTest::SetUp());
        tree = std::make_unique<MenuTree>(*window);
        menus = tree->menus, items = tree->items;
        toDeep = tree->toDeep, toDeeper = tree->toDeeper;
        for (const int i : {0, 1, 2}) {
            listeners[i] = std::make_unique<Recorder>(menus[i].Get());
            listeners[i]->HearAll();
            listeners[i]->Do([this, i](CEvent& e) {
                heard.push_back(std::string(std::size_t(i), '>') +
                                std::to_string(static_cast<CMenuEvent&>(e).id));
            });
        }
    }
    int Execute(MenuItems path) { return tree->Execute(std::move(path)); }

    std::unique_ptr<MenuTree> tree;
    Menu* menus = nullptr;
    wxMenuItem **items = nullptr, *toDeep = nullptr, *toDeeper = nullptr;
    std::unique_ptr<Recorder> listeners[3];
    Lines heard;
};

} // namespace

TEST_F(Menus, ChoosingWithTheMouse)
{
    const auto app = [this](wxCommandEvent& e) { heard.push_back("app"), e.Skip(); };
    native->Bind(wxEVT_MENU, [this](wxCommandEvent& e) { heard.push_back("window"), e.Skip(); });
    wxTheApp->Bind(wxEVT_MENU, app);
    EXPECT_EQ(302, Execute({toDeep, toDeeper, items[2]}));
    EXPECT_EQ((Lines{">>302", ">302", "302", "window", "app"}), std::exchange(heard, {}));
    EXPECT_EQ(-1, Execute({}));
    EXPECT_EQ(Lines{}, heard);
    const MenuDriver driver(toDeep->GetMenu(), {items[0]}, nullptr);
    EXPECT_TRUE(menus[0]->Popup(10, 10));
    EXPECT_EQ((Lines{"100", "window", "app"}), heard);
    EXPECT_FALSE(menus[1]->Popup(10, 10)) << "a sub-menu on its own";
    menus[0]->PopupGlob(10, 10);
    EXPECT_EQ(0, menus[0]->ExecuteGlob(10, 10));
    wxTheApp->Unbind(wxEVT_MENU, app);
}

TEST_F(Menus, FindingItems)
{
    const Menu menu = window->CreateMenu(), appended = window->CreateMenu(), inserted = window->CreateMenu();
    for (const int id : {5, 0, 40000})
        menu->InsertItem("item " + std::to_string(id), id, -1);
    const auto label = [&](int id, int place) {
        const wxMenuItem* const item = Find(menu, id, place);
        return item ? std::string(item->GetItemLabel().utf8_str()) : "none";
    };
    EXPECT_EQ("none", label(5, 1)) << "of three items";
    menu->InsertSubMenu("appended", appended.Get(), 3, -1);
    menu->InsertSubMenu("inserted", inserted.Get(), 4, 99); // behind the end is at the end
    appended->InsertItem("below", 1, -1);
    menu->InsertSeparator(0);
    EXPECT_EQ((Lines{"item 5", "item 5", "item 0", "below", "appended", "inserted", "none", "none", "none"}),
              (Lines{label(1, 0), label(5, 1), label(0, 1), label(1, 1), label(3, 1), label(4, 1),
                     label(6, 0), label(-1, 0), label(2, 2)}));
    EXPECT_EQ((std::vector<int>{0, 1, 2, 3, -1, 5, -1, 0}),
              (std::vector<int>{menu->IndexOf(-2), menu->IndexOf(5), menu->IndexOf(0), menu->IndexOf(40000),
                                menu->IndexOf(3), menu->IndexOf(4), menu->IdAt(6), menu->IdAt(2)}));
    menu->ModifyItem(3, "renamed", byCommand);
    EXPECT_EQ("renamed", label(4, 0));
    menu->DeleteItem(3, byPlace); // 40000; the appended sub-menu's entry 3 goes as well
    EXPECT_EQ("none", label(3, 1));
    menu->DeleteItem(1, byCommand); // in that sub-menu
    EXPECT_EQ(0, appended->GetItemCount());
    menu->DeleteItem(3, byPlace); // the item that carries it
    appended->InsertItem("too late", 1, -1);
    EXPECT_EQ(0, appended->GetItemCount());
    EXPECT_EQ(4, menu->GetItemCount());

    const Menu last = window->CreateMenu();
    last->InsertItem("item", 70, -1);
    last->InsertSubMenu("appended", window->CreateMenu().Get(), 0, -1);
    last->DeleteItem(1, byPlace); // under another number than it was appended with
    EXPECT_EQ(nullptr, Find(last, 0, byCommand));
}

TEST_F(Menus, BadArguments)
{
    for (IPopupMenu* const sub : {static_cast<IPopupMenu*>(nullptr), menus[0].Get(), menus[1].Get()}) {
        menus[0]->InsertSubMenu("no", sub, 1, -1);
        menus[2]->InsertSubMenu("no", sub, 1, -1);
    }
    EXPECT_EQ(5, menus[0]->GetItemCount() + menus[2]->GetItemCount());
    for (const int item : {-1, 0, 2, INT_MAX}) { // 0 is the separator, 2 the sub-menu
        menus[0]->ModifyItem(item, "", byPlace);
        menus[0]->SetItemChecked(item, true, byPlace);
        EXPECT_FALSE(menus[0]->IsItemChecked(item, byPlace));
    }
    menus[0]->DeleteItem(7, byPlace);
    menus[0]->InsertItem("", -7, -7);
    EXPECT_EQ(3, menus[0]->IndexOf(-7));
}

TEST_F(Menus, CheckItems)
{
    IPopupMenu& menu = *menus[0];
    menu.InsertItem("first", 0, 0);
    menu.SetItemEnabled(2, false, byPlace);
    menu.SetItemChecked(2, true, byPlace);
    wxMenuItem* const item = Find(menus[0], 2, byPlace);
    EXPECT_TRUE(menu.IsItemChecked(2, byPlace) && !menu.IsItemEnabled(2, byPlace));
    EXPECT_TRUE(gtk_check_menu_item_get_active(GTK_CHECK_MENU_ITEM(item->GetMenuItem())));
    EXPECT_EQ("plain item", item->GetItemLabel());
    EXPECT_EQ(100, menu.IdAt(2));
    menu.SetItemEnabled(2, true, byPlace);
    EXPECT_EQ(100, Execute({item}));
    EXPECT_FALSE(menu.IsItemChecked(2, byPlace)) << "a click turns it over";
}

TEST_F(Menus, HalvesDieInEitherOrder)
{
    menus[2] = nullptr; // its items stay
    EXPECT_EQ(302, Execute({toDeep, toDeeper, items[2]}));
    EXPECT_EQ((Lines{">302", "302"}), std::exchange(heard, {}));
    // A command that no menu on the screen stands behind, and its listener ends the menu.
    wxCommandEvent command(wxEVT_MENU, 77);
    listeners[0]->Do([this](CEvent&) { menus[0] = nullptr; });
    toDeep->GetMenu()->ProcessEvent(command);
    EXPECT_EQ("command 77", listeners[0]->Take().back());
    menus[1]->InsertItem("too late", 1, -1);
    EXPECT_EQ(0, menus[1]->GetItemCount());
    EXPECT_EQ(-1, menus[1]->Execute(0, 0));
}
