#pragma once

#include <httplib.h>

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>

/// Runs each connection on a thread; starts a new thread whenever none is free, so that event streams and idle
/// connections never keep a request waiting. Threads end after a while without work.
class WorkerThreads : public httplib::TaskQueue {
public:
    void enqueue(std::function<void()> task) override;
    /// Takes no more work. Does not wait: a thread may sit on an idle connection for the whole keep-alive time.
    void shutdown() override;

private:
    struct Shared {
        std::mutex mutex;
        std::condition_variable wake;
        std::deque<std::function<void()>> tasks;
        std::size_t idle = 0;
        bool stopping = false;
    };

    static void work(const std::shared_ptr<Shared> &shared);

    std::shared_ptr<Shared> m_shared = std::make_shared<Shared>();
};
