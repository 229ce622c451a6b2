/// Destroying a window from inside its own events.
#pragma once

#include "vela7/wxexport.h"

class wxObject;
class wxWindow;

namespace vela7 {

/// A member of wx windows and event handlers: knows whether its owner is delivering an event just now.
///
/// wx goes on using a window after the handlers of an event, so a window that is to go meanwhile must wait,
/// also while a listener runs an event loop of its own.
/// Thread: GUI.
class VELA7_WX_API CDeliveryCount
{
public:
    CDeliveryCount() = default;
    ~CDeliveryCount();
    CDeliveryCount(const CDeliveryCount&) = delete;
    CDeliveryCount& operator=(const CDeliveryCount&) = delete;

    bool IsDelivering() const { return m_innermost != nullptr; }

    /// While the window is delivering: hides it and leaves it to wx to delete on the first idle pass after
    /// the delivery; true. Otherwise, and without an application that could do it, nothing; false.
    bool PutOffDestruction(wxWindow& window);
    /// The same for what is not to be hidden, such as event handlers.
    bool PutOffDeletion(wxObject& object);

    /// For the destructor: wx will not delete the window again. While it is delivering, its widgets stay
    /// until GTK is idle, and TakeKept will know its storage.
    void Retire(wxWindow& window) const;
    /// For operator delete: true, once, when the storage is to be kept. The caller puts something into it
    /// that wx may go on using, and leaves that to wx to delete.
    static bool TakeKept(void* storage);

    /// On the stack for the time of one delivery. The window may die meanwhile.
    class VELA7_WX_API CDelivery
    {
    public:
        explicit CDelivery(CDeliveryCount& count) : m_count(&count), m_outer(count.m_innermost)
        {
            count.m_innermost = this;
        }
        ~CDelivery()
        {
            if (m_count)
                m_count->Leave(m_outer);
        }
        /// The window still exists, and so does the toolkit's part of it.
        bool IsAlive() const { return m_count != nullptr; }
        CDelivery(const CDelivery&) = delete;
        CDelivery& operator=(const CDelivery&) = delete;

    private:
        friend class CDeliveryCount;
        CDeliveryCount* m_count; // null when it died
        CDelivery* m_outer;
    };

private:
    void Leave(CDelivery* outer);

    CDelivery* m_innermost = nullptr;
    wxObject* m_putOff = nullptr; // what is to go when the outermost delivery is over
};

} // namespace vela7
