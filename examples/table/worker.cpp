#include "worker.h"

#include <exception>

namespace table {

// What the thread calls. Its messages share it, they may arrive after the worker has turned to other things.
class Worker::Loop : public vela7::IRunnable, public std::enable_shared_from_this<Loop>
{
public:
    Loop(Worker& worker, std::shared_ptr<Task> work)
        : owner(&worker), task(std::move(work)), m_window(worker.m_window)
    {
        task->onTick = [this] { Report(); };
    }

    bool Run() override
    {
        bool more = false;
        try {
            more = !task->m_cancelled && task->Step();
        } catch (const Task::Cancelled&) {
        } catch (const std::exception&) {
            m_failed = true;
        }
        m_finished = !more;
        Report();
        return more;
    }

    Worker* owner; // GUI thread only; null: nobody wants to know
    const std::shared_ptr<Task> task;
    std::function<void(int)> progress;
    std::function<void(bool)> ended;

private:
    struct Message : IRunnable
    {
        bool Run() override { return loop->Receive(), false; }
        std::shared_ptr<Loop> loop;
    };

    void Report()
    {
        const int percent = static_cast<int>(task->progress * 100);
        if ((percent == m_percent && !m_finished) || task->m_cancelled || m_window.IsDestroyed())
            return;
        m_percent = percent;
        if (m_posted.exchange(true))
            return;
        auto* const message = new Message;
        message->loop = shared_from_this();
        m_window.Synchronize(message);
    }

    void Receive()
    {
        m_posted = false; // before the end is asked for: the thread sets them the other way round
        if (!owner)
            return;
        if (!m_finished)
            return progress(static_cast<int>(task->progress * 100));
        owner->Cancel(); // which ends the thread
        ended(!m_failed);
    }

    vela7::ISysWindow& m_window;
    int m_percent = -1;
    std::atomic<bool> m_failed{false}, m_finished{false}, m_posted{false};
};

void Worker::Start(std::shared_ptr<Task> task, std::function<void(int)> progress,
                   std::function<void(bool)> ended)
{
    Cancel();
    const auto loop = m_loop = std::make_shared<Loop>(*this, std::move(task));
    loop->progress = std::move(progress);
    loop->ended = std::move(ended);
    vela7::ISystem* const system = vela7::GetCurrentSystem();
    m_runner = system ? system->CreateRunner() : nullptr;
    if (m_runner)
        return m_runner->Run(loop.get());
    while (loop->Run())
        continue;
}

// Joining may turn the event loop, so everything is in order before.
void Worker::Cancel()
{
    const auto loop = std::exchange(m_loop, nullptr);
    vela7::IRunner* const runner = std::exchange(m_runner, nullptr);
    if (!loop)
        return;
    loop->owner = nullptr;
    loop->task->Cancel();
    if (runner)
        runner->Join();
}

} // namespace table
