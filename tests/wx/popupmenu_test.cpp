// Popup menus: items, real choices with the mouse, and their end.
#include "support/x11.h"
#include "vela7/wxpopupmenu.h"
#include "windowhelpers.h"

#include <climits>
#include <gtk/gtk.h>
#include <wx/app.h>
#include <wx/timer.h>

using namespace vela7;
using namespace vela7::test;

namespace {

constexpr auto byPlace = IPopupMenu::ptPosition;
constexpr auto byCommand = IPopupMenu::ptCommand;
using Menu = CHandle<IPopupMenu>;
using Items = std::vector<wxMenuItem*>;

wxMenuItem* Find(const Menu& menu, int item, int place)
{
    return dynamic_cast<CwxPopupMenu&>(*menu).find_item(item, IPopupMenu::PlaceType(place));
}

// While PopupMenu waits: points at one item after the other, each as soon as it can be hit, clicks those that
// do not open a menu, then does something in the middle of it all. With nothing to do it dismisses the menu.
class Driver : public wxTimer
{
public:
    Driver(wxMenu* root, Items path, std::function<void()> then)
        : m_root(root), m_path(std::move(path)), m_then(std::move(then))
    {
        Settle();
        Start(10);
    }

private:
    void Notify() override
    {
        const bool through = m_next == m_path.size();
        if (!gtk_widget_get_mapped(m_root->m_menu) || (through && !m_path.empty() && !m_then))
            return;
        if (!through && ++m_ticks < 400)
            return GoOn(m_path[m_next]->GetMenuItem());
        Stop();
        EXPECT_EQ(m_path.size(), m_next) << "an item cannot be hit";
        m_then ? m_then() : gtk_menu_shell_cancel(GTK_MENU_SHELL(m_root->m_menu));
    }
    void GoOn(GtkWidget* item)
    {
        if (!gtk_widget_get_mapped(item) || !gdk_window_is_viewable(gtk_widget_get_window(item)))
            return;
        if (gtk_widget_get_state(item) != GTK_STATE_PRELIGHT) {
            wxPoint at;
            GtkAllocation area;
            gdk_window_get_origin(gtk_widget_get_window(item), &at.x, &at.y);
            gtk_widget_get_allocation(item, &area);
            x11::MovePointer(at.x + area.x + 10 + m_ticks % 2, at.y + area.y + area.height / 2);
            return;
        }
        if (!m_path[m_next++]->IsSubMenu())
            x11::Button(1, true), x11::Button(1, false);
    }

    wxMenu* m_root;
    Items m_path;
    std::function<void()> m_then;
    std::size_t m_next = 0;
    int m_ticks = 0;
};

struct Listener : CSubscriber<IMenuNotify>
{
    void OnMenuCommand(CMenuEvent* e) override
    {
        EXPECT_TRUE(e->passOn && e->sender == sender);
        heard->push_back(name + std::to_string(e->id));
        if (action)
            action();
    }
    IEventSender* sender = nullptr;
    std::string name;
    Lines* heard = nullptr;
    std::function<void()> action;
};

// Three menus in each other, each an item behind a separator: 100 in the top one, 201 and 302.
class Menus : public WindowTest
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(WindowTest::SetUp());
        g_object_set(gtk_settings_get_default(), "gtk-menu-popup-delay", 0, nullptr);
        for (const int i : {0, 1, 2}) {
            Menu& menu = menus[i] = window->CreateMenu();
            menu->InsertSeparator(-1);
            menu->InsertItem("plain item", 101 * i + 100, -1);
            items[i] = Find(menu, 1, byPlace);
            listeners[i].sender = menu.Get();
            listeners[i].name = std::string(std::size_t(i), '>');
            listeners[i].heard = &heard;
            Subscribe<IMenuNotify>(*menu, &listeners[i]);
        }
        menus[1]->InsertSubMenu("deeper", menus[2].Get(), 1, 0); // inserted, native id 1
        menus[0]->InsertSubMenu("deep", menus[1].Get(), 2, -1);  // appended
        toDeep = Find(menus[0], 2, byPlace);
        toDeeper = Find(menus[1], 0, byPlace);
    }
    void Renew()
    {
        heard.clear();
        menus[2] = menus[1] = menus[0] = nullptr;
        GuiTest::TearDown();
        SetUp();
    }
    int Execute(Items path, std::function<void()> then = nullptr)
    {
        const Driver driver(toDeep->GetMenu(), std::move(path), std::move(then));
        return menus[0]->Execute(10, 10);
    }

    Menu menus[3];
    wxMenuItem* items[3] = {}; // the plain ones
    Listener listeners[3];
    wxMenuItem *toDeep = nullptr, *toDeeper = nullptr;
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
    const Driver driver(toDeep->GetMenu(), {items[0]}, nullptr);
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

// Whatever a listener of the innermost menu does, the choice is made; with the menus open, they close.
TEST_F(Menus, EndingWhileShown)
{
    const Lines all = {">>302", ">302", "302"};
    // clang-format off
    const struct { const char* name; bool closes; Lines heard; std::function<void()> end; } rows[] = {
        {"innermost",  false, all, [this] { menus[2] = nullptr; }},
        {"all menus",  true,  {">>302", "302"}, [this] { menus[2] = menus[1] = menus[0] = nullptr; }},
        {"items",      false, all, [this] { menus[2]->DeleteItem(1, byPlace), menus[1]->DeleteItem(0, byPlace); }},
        {"conversion", false, all, [this] { menus[2]->SetItemChecked(1, true, byPlace); }},
        {"window",     true,  all, [this] { native->Destroy(); }},
        {"frame",      true,  all, [this] { frame->Destroy(); }},
        {"once more",  false, all, [this] { EXPECT_EQ(-1, menus[0]->Execute(0, 0)); }},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Renew();
        listeners[2].action = row.end;
        EXPECT_EQ(302, Execute({toDeep, toDeeper, items[2]}));
        EXPECT_EQ(row.heard, heard);
        listeners[2].action = nullptr;
        Renew();
        EXPECT_EQ(-1, row.closes ? Execute({toDeep, toDeeper}, row.end) : -1);
    }
}

TEST_F(Menus, HalvesDieInEitherOrder)
{
    menus[2] = nullptr; // its items stay
    EXPECT_EQ(302, Execute({toDeep, toDeeper, items[2]}));
    EXPECT_EQ((Lines{">302", "302"}), std::exchange(heard, {}));
    // A command that no menu on the screen stands behind, and its listener ends the menu.
    wxCommandEvent command(wxEVT_MENU, 77);
    listeners[0].action = [this] { menus[0] = nullptr; };
    toDeep->GetMenu()->ProcessEvent(command);
    EXPECT_EQ((Lines{"77"}), heard);
    menus[1]->InsertItem("too late", 1, -1);
    EXPECT_EQ(0, menus[1]->GetItemCount());
    EXPECT_EQ(-1, menus[1]->Execute(0, 0));
}
