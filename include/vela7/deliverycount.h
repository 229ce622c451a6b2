/// Destroying a window from inside its own events.
#pragma once

#include "vela7/wxexport.h"

class wxWindow;

namespace vela7 {

/// A member of wx windows: knows whether the window is delivering an event just now.
///
/// wx goes on using a window after the handlers of an event, so a window that is to go meanwhile must wait.
/// Thread: GUI.
class VELA7_WX_API CDeliveryCount
{
public:
    CDeliveryCount() = default;
    ~CDeliveryCount();
    CDeliveryCount(const CDeliveryCount&) = delete;
    CDeliveryCount& operator=(const CDeliveryCount&) = delete;

    bool IsDelivering() const { return m_innermost != nullptr; }

    /// While the window is delivering: hides it and leaves it to wx to delete on the next idle pass; true.
    /// Otherwise, and without an application that could do it, nothing; false.
    bool PutOffDestruction(wxWindow& window) const;

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
                m_count->m_innermost = m_outer;
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
    CDelivery* m_innermost = nullptr;
};

} // namespace vela7
