/// What the fakes that a user sees have in common: place, parent, children, visibility, focus, end.
///
/// Everything belongs to its parent, frames to the system. Nothing is drawn and nothing takes the mouse but
/// toolkit windows; a visible control keeps presses from the window below it and takes the focus.
#pragma once

#include "vela7/cbase.h"
#include "vela7/testing/export.h"
#include "vela7/types.h"

#include <cstddef>
#include <vector>

namespace vela7::testkit {

class Desk;

class VELA7_TESTING_API FakeNative
{
public:
    FakeNative(const FakeNative&) = delete;
    FakeNative& operator=(const FakeNative&) = delete;
    /// At once, with everything in it, inside its own notifications too: what happens when a parent dies.
    virtual ~FakeNative();

    /// Ends it as the platform does when the user closes it: at once, or, inside its own notification, in the
    /// next FakeSystem::Settle. Until then it hears of nothing more.
    void Close();

    FakeNative* Parent() const { return m_parent; } ///< null for frames and tips
    /// The index-th child that is an F, oldest first; null when there are not so many.
    template <class F>
    F* Find(std::size_t index = 0) const
    {
        for (FakeNative* const child : m_children)
            if (auto* const found = dynamic_cast<F*>(child))
                if (index-- == 0)
                    return found;
        return nullptr;
    }
    /// other is this one, or inside it.
    bool Holds(const FakeNative* other) const;
    /// Visible, and so is everything above it.
    bool IsOnScreen() const;
    /// On the screen and enabled, and so is everything above it: the user can reach it.
    bool IsUsable() const;
    bool HasFocus() const;
    /// The top left corner on the screen.
    point<int> Origin() const;

protected:
    /// Held for the time of a notification: the end is put off. The object may die all the same.
    class VELA7_TESTING_API Use
    {
    public:
        explicit Use(FakeNative& object) : m_object(object), m_life(object.m_life.Watch())
        {
            ++object.m_uses;
        }
        ~Use()
        {
            if (m_life.IsAlive())
                --m_object.m_uses;
        }
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;
        bool IsAlive() const { return m_life.IsAlive(); }
        /// Still there, and nobody wanted its end.
        bool IsWanted() const { return m_life.IsAlive() && !m_object.m_ending; }

    private:
        FakeNative& m_object;
        CLifeWatch m_life;
    };

    FakeNative(Desk& desk, const rectangle<int>& rect) : m_desk(desk), m_rect(rect), m_parent(nullptr) {}
    FakeNative(FakeNative& parent, const rectangle<int>& rect);
    /// Its end is under way: Close does nothing any more.
    void BeginEnd() { m_ending = true; }
    void EndChildren();
    bool IsEnding() const { return m_ending; }
    bool IsInUse() const { return m_uses > 0; }
    void Show(bool visible);
    void Enable(bool enabled);
    void TakeFocus();

    /// Its end was put off, and it is to be silent.
    virtual void Silence() {}
    virtual bool AcceptsFocus() const { return false; }
    virtual bool IsTopLevel() const { return false; } ///< its place is on the screen
    /// to: who gets the focus; null for nobody, and for whom the platform does not tell.
    virtual void FocusOut(const FakeNative* to) { static_cast<void>(to); }
    virtual void FocusIn() {}
    /// state: KeyState bits of all that is held. True: a character may follow.
    virtual bool KeyDown(std::uint32_t key, std::uint32_t state);
    virtual void KeyUp(std::uint32_t key, std::uint32_t state);
    virtual void Char(unsigned char byte, std::uint32_t state);

    Desk& m_desk;
    rectangle<int> m_rect; // in the parent
    bool m_visible = true;
    bool m_enabled = true;

private:
    friend class Desk;
    friend class User;

    FakeNative* m_parent;
    std::vector<FakeNative*> m_children; // in the order of their creation
    CLifeFlag m_life;
    int m_uses = 0;
    bool m_ending = false;
};

/// A modifier state as key records carry it: of several modifiers one, Shift before Alt before Control.
VELA7_TESTING_API std::uint32_t OneModifier(std::uint32_t state);

} // namespace vela7::testkit
