#include "jobs/JobRunner.h"

#include <stdexcept>

JobRunner::JobRunner(JobStore &store, std::chrono::milliseconds pause)
    : m_store(store)
    , m_pause(pause)
    , m_thread([this] { run(); }) {}

JobRunner::~JobRunner() {
    stop();
}

void JobRunner::start(const std::string &accountID, const std::string &type, std::function<void(const Rest &)> work) {
    const auto id = m_store.add(accountID, type);
    const std::lock_guard lock(m_mutex);
    m_jobs.push_back({id, std::move(work)});
    m_wake.notify_all();
}

void JobRunner::stop() {
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
        m_wake.notify_all();
    }
    if (m_thread.joinable())
        m_thread.join();
}

void JobRunner::run() {
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_wake.wait(lock, [this] { return m_stopping || !m_jobs.empty(); });
        if (m_stopping)
            return;
        const auto job = std::move(m_jobs.front());
        m_jobs.pop_front();
        lock.unlock();
        runOne(job);
        lock.lock();
    }
}

void JobRunner::runOne(const Job &job) {
    m_store.setRunning(job.id);
    try {
        job.work([this] { rest(); });
        m_store.setEnded(job.id, "");
    } catch (const std::exception &error) {
        m_store.setEnded(job.id, error.what());
    }
}

void JobRunner::rest() {
    std::unique_lock lock(m_mutex);
    if (m_wake.wait_for(lock, m_pause, [this] { return m_stopping; }))
        throw std::runtime_error("The server was stopped");
}
