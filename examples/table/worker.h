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
    /// Worker thread. False: it is done.
    virtual bool Step() = 0;

    std::atomic<double> progress{0.0}; ///< 0..1

protected:
    /// For steps that take long: tells the progress; does not come back when the task was cancelled.
    void Tick();

private:
    friend class Worker;
    std::atomic<bool> m_cancelled{false};
    std::function<void()> m_report; // set before the thread starts
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
