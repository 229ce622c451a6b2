/// A menu in which the test picks.
///
///     system.user.onMenu = [](FakeMenu& menu) { menu.Pick("Copy"); };
///     EXPECT_EQ(control.AskWhatToDo(), idCopy); // which calls Execute
///
/// What works: items, sub-menus, checks, the notification on the menu of the item and on those above it, ends
/// while it is shown. Kept by contract, as in the wx back-end: an item is found by a command id below the
/// number of items only, and menus without a window (PopupGlob) are not offered. What does not: texts have no
/// mnemonics, keys open nothing. CreateMenu makes it; it ends with its last handle. Its window may die first:
/// then it opens no more.
#pragma once

#include "vela7/menu.h"
#include "vela7/testing/export.h"

#include <memory>
#include <string>
#include <vector>

namespace vela7::testkit {

class FakeWindow;

class VELA7_TESTING_API FakeMenu final : public CSysMenu
{
public:
    explicit FakeMenu(FakeWindow& window);
    ~FakeMenu() override;
    void Dispose() override;

    /// The user chooses an item of this menu or of one below it; false when it is not to be seen: none has
    /// this text or id, it is disabled, or no menu is shown. Nothing can be chosen after that.
    bool Pick(const std::string& text) { return Choose(-1, &text); }
    bool Pick(int id) { return Choose(id, nullptr); }
    point<int> place; ///< of the last showing, client coordinates of the window

    void InsertItem(const std::string& text, int id, int pos) override;
    void InsertSeparator(int pos) override;
    void InsertSubMenu(const std::string& text, IPopupMenu* menu, int id, int pos) override;
    void ModifyItem(int item, const std::string& text, PlaceType place) override;
    void DeleteItem(int item, PlaceType place) override;
    void SetItemEnabled(int item, bool enabled, PlaceType place) override;
    bool IsItemEnabled(int item, PlaceType place) const override;
    void SetItemChecked(int item, bool checked, PlaceType place) override;
    bool IsItemChecked(int item, PlaceType place) const override;
    int GetItemCount() const override;
    int IdAt(int pos) const override;
    int IndexOf(int id) const override;
    bool Popup(int x, int y) override;
    int Execute(int x, int y) override;
    void PopupGlob(int, int) override {}
    int ExecuteGlob(int, int) override { return 0; }

private:
    struct Native;
    struct Item;

    Item* FindItem(int item, PlaceType place) const;
    void Insert(Item item, int pos);
    bool Show(int x, int y, int& chosen);
    bool Choose(int id, const std::string* text);
    void Chosen(int id);

    CHandle<FakeWindow> m_window;
    std::shared_ptr<Native> m_native; // of a sub-menu its parent's, too
    bool m_shown = false;
    bool m_disposed = false;
    int m_chosen = -1;
};

} // namespace vela7::testkit
