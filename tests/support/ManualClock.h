#pragma once

#include "platform/Clock.h"

#include <mutex>

/// A clock that stands still until it is told to advance. It is the shared one for as long as it lives.
class ManualClock final : public Clock {
public:
    explicit ManualClock(QDateTime start = QDateTime({2026, 3, 2}, {9, 0}));
    ~ManualClock() override;

    QDateTime now() const override;
    Duration uptime() const override;

    /// Moves the time forward and does what falls due, in its order, each piece on the thread that scheduled it.
    /// Returns when all of it has run. What coroutines on this thread schedule in the course of it counts too.
    void advance(Duration duration);
    /// How much work is waiting for its time, on all threads.
    int scheduledCount() const;
    /// The time until the next work falls due; absent when none is waiting.
    std::optional<Duration> nextDue() const;

protected:
    ScheduledWorkPtr schedule(Duration delay, bool repeats, Duration tolerance, std::function<void()> work) override;

private:
    class Work;
    struct Agenda;

    bool runNext(Duration end);
    static void run(Work *work, std::unique_lock<std::mutex> lock);

    const QDateTime m_start;
    const std::shared_ptr<Agenda> m_agenda;
};
