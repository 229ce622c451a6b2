// As in the wx back-end a menu has two halves: the toolkit's, which its handles own, and a native one, which
// belongs to the parent's when the menu has become a sub-menu. They die in either order.

#include "vela7/testing/fakemenu.h"

#include "desk.h"
#include "vela7/testing/fakesystem.h"
#include "vela7/testing/fakewindow.h"

#include <algorithm>

namespace vela7::testkit {

struct FakeMenu::Item
{
    std::string text;
    int id = -1;
    bool separator = false;
    bool enabled = true;
    bool checkable = false;
    bool checked = false;
    std::shared_ptr<Native> sub;
};

struct FakeMenu::Native : std::enable_shared_from_this<Native>
{
    std::vector<Item> items;
    FakeMenu* owner = nullptr; // null when it is gone
    Native* parent = nullptr;

    // Searches sub-menus, too.
    template <class Fits>
    Item* Find(const Fits& fits, Native** in = nullptr)
    {
        for (Item& item : items) {
            if (fits(item)) {
                if (in)
                    *in = this;
                return &item;
            }
            if (Item* const found = item.sub ? item.sub->Find(fits, in) : nullptr)
                return found;
        }
        return nullptr;
    }
    bool IsEnabled(const Native* sub) const // and all above it
    {
        for (const Item& item : items)
            if (item.sub.get() == sub)
                return item.enabled && (!parent || parent->IsEnabled(this));
        return false;
    }
};

FakeMenu::FakeMenu(FakeWindow& window)
    : CSysMenu(&window), m_window(&window), m_native(std::make_shared<Native>())
{
    m_native->owner = this;
}

FakeMenu::~FakeMenu()
{
    RevokeHandles();
    m_native->owner = nullptr;
}

// While it is shown, that ends first.
void FakeMenu::Dispose()
{
    m_disposed = true;
    if (!m_shown)
        delete this;
}

// ---- items

// Kept by contract: the number of items bounds command ids as well.
FakeMenu::Item* FakeMenu::FindItem(int item, PlaceType place) const
{
    auto& items = m_native->items;
    if (item < 0 || item >= GetItemCount())
        return nullptr;
    if (place == ptPosition)
        return &items[static_cast<std::size_t>(item)];
    return place == ptCommand ? m_native->Find([item](const Item& one) { return one.id == item; }) : nullptr;
}

void FakeMenu::Insert(Item item, int pos)
{
    auto& items = m_native->items;
    const auto count = GetItemCount();
    items.insert(items.begin() + (pos < 0 || pos > count ? count : pos), std::move(item));
}

void FakeMenu::InsertItem(const std::string& text, int id, int pos)
{
    Item item;
    item.text = text;
    item.id = id;
    Insert(std::move(item), pos);
}

void FakeMenu::InsertSeparator(int pos)
{
    Item item;
    item.separator = true;
    Insert(std::move(item), pos);
}

void FakeMenu::InsertSubMenu(const std::string& text, IPopupMenu* menu, int id, int pos)
{
    auto* const sub = dynamic_cast<FakeMenu*>(menu);
    if (!sub || sub->m_shown || sub->m_native->parent)
        return;
    for (const Native* above = m_native.get(); above; above = above->parent)
        if (above == sub->m_native.get())
            return;
    sub->m_native->parent = m_native.get();
    Item item;
    item.text = text;
    item.id = id;
    item.sub = sub->m_native;
    Insert(std::move(item), pos);
}

void FakeMenu::ModifyItem(int item, const std::string& text, PlaceType where)
{
    if (Item* const found = FindItem(item, where))
        found->text = text;
}

void FakeMenu::DeleteItem(int item, PlaceType where)
{
    const Item* const found = FindItem(item, where);
    Native* in = nullptr;
    if (!found || !m_native->Find([found](const Item& one) { return &one == found; }, &in))
        return;
    if (found->sub)
        found->sub->parent = nullptr;
    in->items.erase(in->items.begin() + (found - in->items.data()));
}

void FakeMenu::SetItemEnabled(int item, bool enabled, PlaceType where)
{
    if (Item* const found = FindItem(item, where))
        found->enabled = enabled;
}

bool FakeMenu::IsItemEnabled(int item, PlaceType where) const
{
    const Item* const found = FindItem(item, where);
    return found && found->enabled;
}

void FakeMenu::SetItemChecked(int item, bool checked, PlaceType where)
{
    Item* const found = FindItem(item, where);
    if (!found)
        return;
    if (!found->separator && !found->sub) {
        found->checkable = true;
        found->checked = checked;
    }
    CSysMenu::SetItemChecked(item, checked, where);
}

bool FakeMenu::IsItemChecked(int item, PlaceType where) const
{
    const Item* const found = FindItem(item, where);
    return found && found->checked;
}

int FakeMenu::GetItemCount() const
{
    return static_cast<int>(m_native->items.size());
}

int FakeMenu::IdAt(int pos) const
{
    const Item* const item = FindItem(pos, ptPosition);
    return item ? item->id : -1;
}

int FakeMenu::IndexOf(int id) const
{
    for (int i = 0; i < GetItemCount(); ++i)
        if (IdAt(i) == id)
            return i;
    return -1;
}

// ---- showing and choosing

bool FakeMenu::Popup(int x, int y)
{
    int chosen = -1;
    return Show(x, y, chosen);
}

int FakeMenu::Execute(int x, int y)
{
    int chosen = -1;
    Show(x, y, chosen);
    return chosen;
}

// May end this menu.
bool FakeMenu::Show(int x, int y, int& chosen)
{
    if (m_shown || m_native->parent || !m_window || !m_window->IsUsable())
        return false;
    struct Shown // also when the test throws
    {
        FakeMenu& menu;
        ~Shown()
        {
            menu.m_shown = false;
            if (menu.m_disposed)
                delete &menu;
        }
    } const shown{*this};
    place = {x, y};
    m_chosen = -1;
    m_shown = true;
    if (const auto act = static_cast<FakeSystem*>(GetCurrentSystem())->user.onMenu)
        act(*this);
    chosen = m_chosen;
    return true;
}

// Whoever hears of it may end menus of the chain.
bool FakeMenu::Choose(int wanted, const std::string* text)
{
    const auto fits = [&](const Item& item) {
        return !item.separator && !item.sub && (text ? item.text == *text : item.id == wanted);
    };
    Native* in = nullptr;
    Item* const item = m_shown && m_chosen == -1 ? m_native->Find(fits, &in) : nullptr;
    if (!item || !item->enabled || (in->parent && !in->parent->IsEnabled(in)))
        return false;
    if (item->checkable)
        item->checked = !item->checked;
    const int id = item->id;
    std::vector<std::shared_ptr<Native>> chain;
    for (Native* at = in; at; at = at->parent)
        chain.push_back(at->shared_from_this());
    for (const std::shared_ptr<Native>& native : chain)
        if (native->owner)
            native->owner->Chosen(id);
    return true;
}

void FakeMenu::Chosen(int id)
{
    CMenuEvent record(this);
    record.id = m_chosen = id;
    FireEvent(typeid(IMenuNotify), handler_cast(&IMenuNotify::OnMenuCommand), &record, true);
}

} // namespace vela7::testkit
