/// Event senders: subscriptions and delivery.
///
/// A subscription is a listener and an event type; the type is named by the type_info of a notification
/// interface (typeid(IMouseNotify)). A sender declares the types that it can send; others cannot be
/// subscribed to. Types are compared with operator==, never by address: they cross library borders.
/// Thread: GUI, nothing is locked. Listeners are never owned.
///
/// During a delivery a listener may unsubscribe anybody, subscribe more, or destroy the sender. The number of
/// listeners is read once, at the start: one added at the back is not reached, a removal shifts the later
/// ones, and a sender that was destroyed delivers no further.
#pragma once

#include "vela7/baseexport.h"
#include "vela7/notify.h"

#include <cstddef>
#include <memory>
#include <set>
#include <type_traits>
#include <typeinfo>
#include <utility>

namespace vela7 {

/// A member of a notification interface as senders call it.
using NotifyHandler = void (INotify::*)(CEvent*);

/// The one place where a typed member becomes a NotifyHandler.
template <class N, class E>
NotifyHandler handler_cast(void (N::*member)(E*))
{
    static_assert(std::is_base_of<INotify, N>::value, "not a notification interface");
    static_assert(std::is_base_of<CEvent, E>::value, "not an event record");
    static_assert(std::is_standard_layout<CEvent>::value, "the head of the records must stand at offset 0");
    // The record's type is fixed by the event type, so the parameter is an E whenever this member is called,
    // and a pointer to E has the value of the pointer to its head.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wcast-function-type"
    return reinterpret_cast<NotifyHandler>(static_cast<void (INotify::*)(E*)>(member));
#pragma GCC diagnostic pop
}

/// The listeners of one event type, in the order of delivery.
class VELA7_BASE_API ISubscriberList
{
public:
    virtual ~ISubscriberList() = default;
    virtual void PushFront(INotify* subscriber) = 0;
    virtual void PushBack(INotify* subscriber) = 0;
    /// Removes all occurrences; false when there was none.
    virtual bool Remove(INotify* subscriber) = 0;
    /// Takes the first one off; null when empty.
    virtual INotify* PopFront() = 0;
    virtual int Count() const = 0;
    /// Throws cancel_processing when the index is out of range: the list became shorter during a delivery.
    virtual INotify* At(int index) const = 0;
    virtual void Clear() = 0;
    virtual bool Contains(const INotify* subscriber) const = 0;
    virtual const std::type_info& Type() const = 0;
};

/// The event types of one sender, in the order of declaration, each with its list.
class VELA7_BASE_API ICausedEvents
{
public:
    virtual ~ICausedEvents() = default;
    /// A type that is declared already keeps its list.
    virtual void Declare(const std::type_info& type) = 0;
    /// Null for an undeclared type.
    virtual ISubscriberList* Find(const std::type_info& type) const = 0;
    /// Enumeration with a cursor of the caller's, so that enumerations may nest; null at the end. With a
    /// subscriber, only the lists that contain it.
    virtual ISubscriberList* First(std::size_t& cursor, const INotify* subscriber = nullptr) const = 0;
    virtual ISubscriberList* Next(std::size_t& cursor, const INotify* subscriber = nullptr) const = 0;
    virtual bool IsEmpty(const std::type_info& type) const = 0;
    virtual int Count(const std::type_info& type) const = 0;
};

/// A new, empty registry; the caller owns it.
VELA7_BASE_API ICausedEvents* CreateDefCausedEvents();

class VELA7_BASE_API IEventSender
{
public:
    virtual ~IEventSender() = default;
    /// Before all others. False (and no notice) when the type is not supported. A listener may be in a list
    /// more than once. notice: call the listener's NoticeStarted.
    virtual bool SubscribeToFront(INotify* subscriber, const std::type_info& type, bool notice) = 0;
    /// Behind all others; else as SubscribeToFront.
    virtual bool Subscribe(INotify* subscriber, const std::type_info& type, bool notice) = 0;
    /// False (and no notice) when the type is not supported; true also when the listener was not in the list.
    virtual bool Unsubscribe(INotify* subscriber, const std::type_info& type, bool notice) = 0;
    /// From all types, one notice for each type it was subscribed to; false when there was none.
    virtual bool Unsubscribe(INotify* subscriber, bool notice) = 0;
    virtual void SetSupportedEvent(const std::type_info& type) = 0;
    virtual bool IsEventSupported(const std::type_info& type) = 0;
    /// Calls the member on every listener of the type. stopWhenHandled: not beyond one that cleared passOn.
    /// cancel_processing ends the delivery silently, other exceptions pass through. event may be null.
    virtual void FireEvent(const std::type_info& type, NotifyHandler handler, CEvent* event,
                           bool stopWhenHandled) = 0;
    virtual bool IsSubscribed(const std::type_info& type) const = 0;
    virtual int GetSubscribersCount(const std::type_info& type) const = 0;
    /// While stopped, FireEvent delivers nothing.
    virtual void StopEventSending(bool stop) = 0;
};

/// Subscribes a listener for one interface, with notice.
template <class N>
bool Subscribe(IEventSender& sender, N* listener)
{
    return sender.Subscribe(static_cast<INotify*>(listener), typeid(N), true);
}

/// Ends one subscription, with notice.
template <class N>
bool Unsubscribe(IEventSender& sender, N* listener)
{
    return sender.Unsubscribe(static_cast<INotify*>(listener), typeid(N), true);
}

/// A listener that knows its senders and unsubscribes itself when it dies.
///
/// Subscribe it for its own type N, and subscribe and unsubscribe it with notice (as the functions above do):
/// that is how it knows.
/// Derive from CSubscriber<IMouseNotify> instead of IMouseNotify. Whoever makes it deletes it.
template <class N>
class VELA7_BASE_API CSubscriber : public N
{
public:
    CSubscriber();
    CSubscriber(const CSubscriber&) = delete;
    CSubscriber& operator=(const CSubscriber&) = delete;
    ~CSubscriber() override;

    void NoticeStarted(IEventSender* sender) override;
    void NoticeStopped(IEventSender* sender) override;

private:
    std::set<IEventSender*> m_senders;
};

/// The one implementation of IEventSender; I is the interface of the object that sends.
///
/// The concrete class declares its event types with SetSupportedEvent right after construction.
template <class I>
class VELA7_BASE_API CImplEventSender : public I
{
public:
    CImplEventSender();
    CImplEventSender(const CImplEventSender&) = delete;
    CImplEventSender& operator=(const CImplEventSender&) = delete;
    ~CImplEventSender() override;

    bool SubscribeToFront(INotify* subscriber, const std::type_info& type, bool notice) override;
    bool Subscribe(INotify* subscriber, const std::type_info& type, bool notice) override;
    bool Unsubscribe(INotify* subscriber, const std::type_info& type, bool notice) override;
    bool Unsubscribe(INotify* subscriber, bool notice) override;
    void SetSupportedEvent(const std::type_info& type) override;
    bool IsEventSupported(const std::type_info& type) override;
    void FireEvent(const std::type_info& type, NotifyHandler handler, CEvent* event,
                   bool stopWhenHandled) override;
    bool IsSubscribed(const std::type_info& type) const override;
    int GetSubscribersCount(const std::type_info& type) const override;
    void StopEventSending(bool stop) override;

protected:
    /// Ends all subscriptions, with notice, for good: for objects whose destruction is put off.
    void StopAll();

private:
    using Push = void (ISubscriberList::*)(INotify*);

    bool Start(Push push, INotify* subscriber, const std::type_info& type, bool notice);

    std::shared_ptr<ICausedEvents> m_registry;
    bool m_stopped = false;
    bool m_dying = false;
};

// ---- definitions
//
// Outside the classes, and not inline: libraries instantiate the templates for others, and the inline members
// of a template are hidden where a library hides its inlines.

template <class N>
CSubscriber<N>::CSubscriber() = default;

template <class N>
CSubscriber<N>::~CSubscriber()
{
    const auto senders = std::move(m_senders);
    for (IEventSender* sender : senders)
        sender->Unsubscribe(this, false);
}

template <class N>
void CSubscriber<N>::NoticeStarted(IEventSender* sender)
{
    m_senders.insert(sender);
}

template <class N>
void CSubscriber<N>::NoticeStopped(IEventSender* sender)
{
    m_senders.erase(sender);
}

template <class I>
CImplEventSender<I>::CImplEventSender() : m_registry(CreateDefCausedEvents())
{
}

template <class I>
CImplEventSender<I>::~CImplEventSender()
{
    StopAll();
}

template <class I>
bool CImplEventSender<I>::SubscribeToFront(INotify* subscriber, const std::type_info& type, bool notice)
{
    return Start(&ISubscriberList::PushFront, subscriber, type, notice);
}

template <class I>
bool CImplEventSender<I>::Subscribe(INotify* subscriber, const std::type_info& type, bool notice)
{
    return Start(&ISubscriberList::PushBack, subscriber, type, notice);
}

template <class I>
bool CImplEventSender<I>::Start(Push push, INotify* subscriber, const std::type_info& type, bool notice)
{
    ISubscriberList* const list = m_registry->Find(type);
    if (!list || m_dying || !subscriber)
        return false;
    (list->*push)(subscriber);
    if (notice)
        subscriber->NoticeStarted(this);
    return true;
}

template <class I>
bool CImplEventSender<I>::Unsubscribe(INotify* subscriber, const std::type_info& type, bool notice)
{
    ISubscriberList* const list = m_registry->Find(type);
    if (!list)
        return false;
    list->Remove(subscriber);
    if (notice && subscriber)
        subscriber->NoticeStopped(this);
    return true;
}

template <class I>
bool CImplEventSender<I>::Unsubscribe(INotify* subscriber, bool notice)
{
    if (!subscriber) // the registry would take it for "any"
        return false;
    const std::shared_ptr<ICausedEvents> registry = m_registry; // a notice may destroy this sender
    bool found = false;
    std::size_t cursor = 0;
    for (auto* list = registry->First(cursor, subscriber); list; list = registry->Next(cursor, subscriber)) {
        found = true;
        list->Remove(subscriber);
        if (notice)
            subscriber->NoticeStopped(this);
    }
    return found;
}

template <class I>
void CImplEventSender<I>::SetSupportedEvent(const std::type_info& type)
{
    m_registry->Declare(type);
}

template <class I>
bool CImplEventSender<I>::IsEventSupported(const std::type_info& type)
{
    return m_registry->Find(type) != nullptr;
}

template <class I>
void CImplEventSender<I>::FireEvent(const std::type_info& type, NotifyHandler handler, CEvent* event,
                                    bool stopWhenHandled)
{
    if (m_stopped)
        return;
    ISubscriberList* const list = m_registry->Find(type);
    const int count = list ? list->Count() : 0;
    if (count < 1)
        return;
    // From here on a listener may destroy this sender: only the list is used, and the registry that keeps it.
    // A dead sender has emptied its lists, which ends the delivery at the next At.
    const std::shared_ptr<ICausedEvents> registry = m_registry;
    try {
        for (int i = 0; i < count; ++i) {
            (list->At(i)->*handler)(event);
            if (event && stopWhenHandled && !event->passOn)
                break;
        }
    } catch (const cancel_processing&) {
        // a listener's way to end the delivery
    }
}

template <class I>
bool CImplEventSender<I>::IsSubscribed(const std::type_info& type) const
{
    return !m_registry->IsEmpty(type);
}

template <class I>
int CImplEventSender<I>::GetSubscribersCount(const std::type_info& type) const
{
    return m_registry->Count(type);
}

template <class I>
void CImplEventSender<I>::StopEventSending(bool stop)
{
    m_stopped = stop;
}

// Each listener is taken off its list, wherever it stands in it, before it is told: it may destroy others
// meanwhile, and a subscriber that was told no longer unsubscribes.
template <class I>
void CImplEventSender<I>::StopAll()
{
    m_dying = true;
    std::size_t cursor = 0;
    for (auto* list = m_registry->First(cursor); list; list = m_registry->Next(cursor))
        while (INotify* const subscriber = list->PopFront()) {
            list->Remove(subscriber);
            subscriber->NoticeStopped(this);
        }
}

} // namespace vela7
