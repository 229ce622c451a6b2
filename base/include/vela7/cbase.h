/// Reference counting and the counted handle.
///
/// Thread: one thread at a time; nothing here is atomic or locked.
#pragma once

#include "vela7/baseexport.h"

#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>

namespace vela7 {

/// Tells whether the object that gave it out still exists. Cheap to copy, may outlive the object.
class CLifeWatch
{
public:
    /// A watch that watches nothing: never alive.
    CLifeWatch() = default;
    explicit CLifeWatch(std::weak_ptr<const void> flag) : m_flag(std::move(flag)) {}

    bool IsAlive() const { return !m_flag.expired(); }

private:
    std::weak_ptr<const void> m_flag;
};

/// A member of objects that others watch.
class CLifeFlag
{
public:
    CLifeFlag() = default;
    CLifeFlag(const CLifeFlag&) = delete;
    CLifeFlag& operator=(const CLifeFlag&) = delete;

    CLifeWatch Watch() const
    {
        if (!m_flag && !m_revoked)
            m_flag = std::make_shared<char>('\0');
        return CLifeWatch(m_flag);
    }

    /// From now on all watches say "gone", earlier and later ones.
    void Revoke() noexcept
    {
        m_flag.reset();
        m_revoked = true;
    }

private:
    mutable std::shared_ptr<const void> m_flag;
    bool m_revoked = false;
};

/// The counted base of toolkit objects.
///
/// The count starts at 0. Release at 0 or at 1 deletes the object through DeleteBase, which deletes only
/// objects whose heap flag is set (it is after construction). Objects that belong to somebody else (static
/// ones, windows owned by their native window) clear the flag and never die by Release.
class VELA7_BASE_API CBase
{
public:
    CBase() = default;
    CBase(const CBase&) = delete;
    CBase& operator=(const CBase&) = delete;
    virtual ~CBase();

    /// Returns the new count.
    virtual std::uint64_t AddRef();
    /// Returns the new count; 0 also when the object was deleted.
    virtual std::uint64_t Release();
    /// Ends the object; called by DeleteBase only. Deletes it; objects that may be in the middle of an event
    /// put that off.
    virtual void Dispose();

    /// The heap flag.
    bool IsCounted() const { return m_heap; }
    void SetCounted(bool counted) { m_heap = counted; }
    std::uint64_t GetRefCount() const { return m_count; }

    CLifeWatch WatchLife() const { return m_life.Watch(); }

protected:
    /// For objects that die natively: from the start of their destructor no handle may release them any more.
    void RevokeHandles() noexcept { m_life.Revoke(); }

private:
    std::uint64_t m_count = 0;
    bool m_heap = true;
    CLifeFlag m_life;
};

/// Deletes an object that the last Release has left; null and objects without heap flag are left alone.
VELA7_BASE_API void DeleteBase(CBase* object);

/// The counted handle: what Create... operations return.
///
/// It holds one reference when the object's heap flag is set, else none. When the object was destroyed by its
/// native owner meanwhile, the handle is inert: Get() answers null and nothing is released.
/// T may be incomplete until a handle is made from a pointer; T derives from CBase.
template <class T>
class CHandle
{
public:
    CHandle() = default;
    CHandle(std::nullptr_t) {}

    explicit CHandle(T* object) : m_object(object)
    {
        if (!object)
            return;
        CBase* const base = object;
        m_base = base;
        m_watch = base->WatchLife();
        m_holds = base->IsCounted();
        if (m_holds)
            base->AddRef();
    }

    CHandle(const CHandle& other)
        : m_object(other.m_object), m_base(other.m_base), m_watch(other.m_watch), m_holds(other.m_holds)
    {
        if (HoldsReference())
            m_base->AddRef();
    }

    CHandle(CHandle&& other) noexcept { Swap(other); }

    CHandle& operator=(CHandle other) noexcept
    {
        Swap(other);
        return *this;
    }

    ~CHandle() { Reset(); }

    /// Gives the reference back and becomes empty. Safe inside the object's own callbacks.
    void Reset()
    {
        const bool release = HoldsReference();
        CBase* const base = m_base;
        Forget();
        if (release)
            base->Release();
    }

    /// Null when empty or when the object is gone.
    T* Get() const { return m_watch.IsAlive() ? m_object : nullptr; }
    T* operator->() const { return Get(); }
    T& operator*() const { return *Get(); }
    explicit operator bool() const { return Get() != nullptr; }
    bool HoldsReference() const { return m_holds && m_watch.IsAlive(); }

    /// Hands out the pointer together with the reference; the caller releases it.
    T* Detach()
    {
        T* const object = Get();
        Forget();
        return object;
    }

    void Swap(CHandle& other) noexcept
    {
        std::swap(m_object, other.m_object);
        std::swap(m_base, other.m_base);
        std::swap(m_watch, other.m_watch);
        std::swap(m_holds, other.m_holds);
    }

private:
    void Forget()
    {
        m_object = nullptr;
        m_base = nullptr;
        m_watch = CLifeWatch();
        m_holds = false;
    }

    T* m_object = nullptr;
    CBase* m_base = nullptr; // the same object; lets T stay incomplete
    CLifeWatch m_watch;
    bool m_holds = false;
};

} // namespace vela7
