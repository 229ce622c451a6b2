/// How native objects end that somebody is using.
///
/// wx and GTK go on using a window, a control or an event handler after the handlers of an event have run,
/// and any listener may destroy it, or what is above it, before that. What can happen, and what answers it:
///
/// - A listener ends what is calling it: it destroys or closes the window, or drops a control's last handle.
///   That is put off to the first idle pass after the event: PutOffDestruction.
/// - Input that was queued before still arrives at such a window. It is dropped: IsEnding.
/// - A listener destroys the parent, and wx deletes all children at once. A control or a tip that is in use
///   leaves its parent before that and waits by itself: IEndsWithParent, SetAside. A toolkit window, whose
///   parent is not ours, dies, and is made anew in its place, as a window that was never created, for wx to
///   go on with: KeepStorage, Leftover. So does one that is deleted outright. The toolkit's half of it, which
///   is an event handler on its stack, waits too: Outlive.
/// - A handler on another window's stack is to go while wx walks along that stack: CPushedHandler.
/// - The listener then runs an event loop of its own, with idle passes. Nothing of the above goes before the
///   event is over in which it was put off.
/// - The caller of a listener wants to go on: CHold::IsAlive.
///
/// So a native object has a CEventLife as a member, and a CHold stands on the stack wherever wx hands it an
/// event. Whoever only wants to know whether something is still there asks a CLifeWatch of a toolkit object,
/// and a wxWeakRef of a window of the host.
#pragma once

#include "vela7/wxexport.h"

#include <forward_list>
#include <memory>

class wxEvent;
class wxObject;
class wxWindow;

namespace vela7 {

/// A member of native objects that may be destroyed in the middle of their own event. Thread: GUI.
class VELA7_WX_API CEventLife
{
public:
    /// On the stack for the time of one event: the object is in use. It may die all the same.
    class VELA7_WX_API CHold
    {
    public:
        explicit CHold(CEventLife& life) : m_life(&life), m_below(s_innermost) { s_innermost = this; }
        ~CHold()
        {
            s_innermost = m_below;
            if ((m_life && m_life->m_putOff) || !m_leftovers.empty())
                Leave();
        }
        CHold(const CHold&) = delete;
        CHold& operator=(const CHold&) = delete;

        /// The object still exists.
        bool IsAlive() const { return m_life != nullptr; }

    private:
        friend class CEventLife;
        void Leave();

        CEventLife* m_life; // null when it died
        CHold* m_below;
        const void* m_storage = nullptr;          // that its object left behind, for Leftover
        std::forward_list<wxObject*> m_leftovers; // to delete afterwards
    };

    /// parts: when those go that outlive the object (Outlive).
    enum Parts
    {
        onIdle,
        atOnce, ///< wx does not touch them any more when the last hold ends
    };
    explicit CEventLife(Parts parts = onIdle) : m_parts(parts) {}
    ~CEventLife();
    CEventLife(const CEventLife&) = delete;
    CEventLife& operator=(const CEventLife&) = delete;

    bool IsHeld() const { return Outermost() != nullptr; }
    /// Its end was put off: nobody wants to hear of it any more.
    bool IsEnding() const { return m_putOff != nullptr; }

    /// While the window is in use: hides it, unless the focus is in it, and leaves it to wx to delete on the
    /// first idle pass after the event; true. Otherwise, and without an application that could do it,
    /// nothing; false.
    bool PutOffDestruction(wxWindow& window);
    /// The same for what cannot be hidden, such as event handlers and menus.
    bool PutOffDeletion(wxObject& object);
    /// The same for a child of a window that is being destroyed: it leaves its parent and waits by itself.
    bool SetAside(wxWindow& window);

    /// Deletes a part of the object: at once, or, while that is in use, afterwards.
    void Outlive(std::unique_ptr<wxObject> part);

    /// Marks the event of an object that did not survive it as handled: wx uses an object after an unhandled
    /// one.
    static void Consume(wxEvent& event);

    /// For the destructor of a window whose class nobody derives from: while it is in use, its widgets stay,
    /// and Leftover will know its storage.
    void KeepStorage(wxWindow& window);
    /// For operator delete: where to leave what is made in this storage; null, when it is to be freed.
    static CHold* FindKept(const void* storage);
    /// Has wx delete it when the event is over.
    static void Leftover(CHold& hold, std::unique_ptr<wxObject> object);

private:
    CHold* Outermost() const;

    static CHold* s_innermost; // of all objects

    wxObject* m_putOff = nullptr; // the object itself
    Parts m_parts;
};

/// A native object on a toolkit window, which calls this before it destroys its children: the object may have
/// to be set aside, or let go of something. A public base: a cast finds no other.
class VELA7_WX_API IEndsWithParent
{
public:
    virtual ~IEndsWithParent() = default;
    virtual void OnParentEnds() = 0;
};

} // namespace vela7
