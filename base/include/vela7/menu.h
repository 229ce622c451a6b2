/// Popup menus.
///
/// Created by ISysWindow::CreateMenu; dies with its last handle. Thread: GUI.
#pragma once

#include "vela7/cbase.h"
#include "vela7/eventsender.h"

#include <map>
#include <string>
#include <utility>

namespace vela7 {

class ISysWindow;

/// Reports IMenuNotify. An item is named by its position (from 0) or by its command id, as a PlaceType says.
class VELA7_BASE_API IPopupMenu : public CBase, public IEventSender
{
public:
    enum PlaceType : int // others find nothing
    {
        ptPosition = 0,
        ptCommand = 1
    };

    virtual void InsertItem(const std::string& text, int id, int pos) = 0;
    virtual void InsertSeparator(int pos) = 0;
    virtual void InsertSubMenu(const std::string& text, IPopupMenu* menu, int id, int pos) = 0;
    virtual void ModifyItem(int item, const std::string& text, PlaceType place) = 0;
    virtual void DeleteItem(int item, PlaceType place) = 0;
    virtual void SetItemEnabled(int item, bool enabled, PlaceType place) = 0;
    virtual bool IsItemEnabled(int item, PlaceType place) const = 0;
    virtual void SetItemChecked(int item, bool checked, PlaceType place) = 0;
    virtual bool IsItemChecked(int item, PlaceType place) const = 0;
    virtual unsigned GetItemStyle(int item, PlaceType place) const = 0;
    virtual void SetItemStyle(int item, unsigned style, PlaceType place) = 0;
    virtual int GetItemCount() const = 0;
    /// The command id at a position.
    virtual int IdAt(int pos) const = 0;
    /// The position of a command id.
    virtual int IndexOf(int id) const = 0;
    /// Client coordinates of the owner; returns when the menu has closed.
    virtual bool Popup(int x, int y) = 0;
    /// The same, answering the chosen command id or -1.
    virtual int Execute(int x, int y) = 0;
    /// Screen coordinates.
    virtual void PopupGlob(int x, int y) = 0;
    virtual int ExecuteGlob(int x, int y) = 0;
};

/// The platform-neutral half of a menu: records the check state and a style word (0 unless set) of each item,
/// under the place by which it was named.
class VELA7_BASE_API CSysMenu : public CImplEventSender<IPopupMenu>
{
public:
    explicit CSysMenu(const ISysWindow* owner) : m_owner(owner) { SetSupportedEvent(typeid(IMenuNotify)); }

    void SetItemChecked(int item, bool checked, PlaceType place) override;
    unsigned GetItemStyle(int item, PlaceType place) const override;
    void SetItemStyle(int item, unsigned style, PlaceType place) override;
    const ISysWindow* GetOwner() const { return m_owner; }

protected:
    /// False for an item that was never set.
    bool IsRecordedChecked(int item, PlaceType place) const;

private:
    struct ItemState
    {
        bool checked = false;
        unsigned style = 0;
    };
    using Key = std::pair<PlaceType, int>;

    const ISysWindow* m_owner; // outlives the menu
    std::map<Key, ItemState> m_items;
};

} // namespace vela7
