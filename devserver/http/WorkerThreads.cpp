#include "http/WorkerThreads.h"

#include <thread>

namespace {
constexpr auto idleLife = std::chrono::seconds(30);
}

void WorkerThreads::enqueue(std::function<void()> task) {
    const std::lock_guard lock(m_shared->mutex);
    m_shared->tasks.push_back(std::move(task));
    if (m_shared->tasks.size() <= m_shared->idle)
        m_shared->wake.notify_one();
    else
        std::thread(work, m_shared).detach();
}

void WorkerThreads::shutdown() {
    const std::lock_guard lock(m_shared->mutex);
    m_shared->stopping = true;
    m_shared->wake.notify_all();
}

void WorkerThreads::work(const std::shared_ptr<Shared> &shared) {
    std::unique_lock lock(shared->mutex);
    const auto awake = [&] { return shared->stopping || !shared->tasks.empty(); };
    for (;;) {
        ++shared->idle;
        const bool inTime = shared->wake.wait_for(lock, idleLife, awake);
        --shared->idle;
        if (!inTime || shared->stopping)
            return;
        auto task = std::move(shared->tasks.front());
        shared->tasks.pop_front();
        lock.unlock();
        task();
        lock.lock();
    }
}
