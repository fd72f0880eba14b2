#pragma once

#include "jobs/JobStore.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <thread>

/// Runs jobs one after the other on a thread of its own.
class JobRunner {
public:
    /// `pause` is the time that each rest of a job takes, as work on a distant mail server would.
    JobRunner(JobStore &store, std::chrono::milliseconds pause);
    ~JobRunner();
    JobRunner(const JobRunner &) = delete;
    JobRunner &operator=(const JobRunner &) = delete;

    /// `rest` waits the pause and fails when the server is to stop.
    using Rest = std::function<void()>;
    void start(const std::string &accountID, const std::string &type, std::function<void(const Rest &rest)> work);

    /// Lets the present job end at its next rest.
    void stop();

private:
    struct Job {
        std::string id;
        std::function<void(const Rest &)> work;
    };

    void run();
    void runOne(const Job &job);
    void rest();

    JobStore &m_store;
    std::chrono::milliseconds m_pause;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::deque<Job> m_jobs;
    bool m_stopping = false;
    std::thread m_thread;
};
