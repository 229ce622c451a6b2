/// A mutual-exclusion lock and its guard.
#pragma once

#include "vela7/baseexport.h"

#include <mutex>

namespace basekit2 {
namespace threading {

/// A non-recursive lock. Failures of the underlying lock are reported through TARN::assertion_failed.
/// Thread: any.
class VELA7_BASE_API mutex_t
{
public:
    mutex_t() = default;
    mutex_t(const mutex_t&) = delete;
    mutex_t& operator=(const mutex_t&) = delete;

    void lock();
    void unlock();
    /// True when the lock was taken.
    bool try_lock();

private:
    std::mutex m_mutex;
};

/// Holds a mutex_t for the time of a scope.
class scoped_lock_t
{
public:
    explicit scoped_lock_t(mutex_t& mutex) : m_mutex(mutex) { m_mutex.lock(); }
    ~scoped_lock_t() { m_mutex.unlock(); }
    scoped_lock_t(const scoped_lock_t&) = delete;
    scoped_lock_t& operator=(const scoped_lock_t&) = delete;

private:
    mutex_t& m_mutex;
};

} // namespace threading
} // namespace basekit2
