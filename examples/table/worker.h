/// Work on a worker thread whose progress and end are told on the GUI thread.
#pragma once

#include "vela7/window.h"

#include <atomic>
#include <functional>
#include <memory>

namespace table {

/// A piece of work, done in slices.
class Task
{
public:
    virtual ~Task() = default;
    /// Worker thread. False: it is done. Throws Cancelled.
    virtual bool Step() = 0;
    /// Any thread; the next Tick ends it.
    void Cancel() { m_cancelled = true; }

    struct Cancelled
    {
    };

    std::atomic<double> progress{0.0}; ///< 0..1
    std::function<void()> onTick;      ///< worker thread; set before the work starts

protected:
    /// Whatever takes longer than a moment calls it, at every level: tells the progress, throws Cancelled
    /// when that was asked for.
    void Tick()
    {
        if (m_cancelled)
            throw Cancelled();
        if (onTick)
            onTick();
    }

private:
    friend class Worker;
    std::atomic<bool> m_cancelled{false};
};

/// Does one task at a time. Thread: GUI.
class Worker
{
public:
    explicit Worker(vela7::ISysWindow& window) : m_window(window) {}
    ~Worker() { Cancel(); }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    /// Cancels what is being done. progress hears each percent, ended whether the task ended without an
    /// exception; neither after Cancel. Where the system has no threads the task is done at once.
    void Start(std::shared_ptr<Task> task, std::function<void(int percent)> progress,
               std::function<void(bool ok)> ended);
    /// Waits for the end of the slice. Must come before the window is gone.
    void Cancel();
    bool IsBusy() const { return m_loop != nullptr; }

private:
    class Loop;

    vela7::ISysWindow& m_window;
    std::shared_ptr<Loop> m_loop;
    vela7::IRunner* m_runner = nullptr; // ends by Join
};

} // namespace table
