#pragma once

#include <QCoroTask>
#include <QDateTime>
#include <chrono>
#include <functional>
#include <memory>
#include <stop_token>

/// A scheduled call; destroying or cancelling it prevents the call. Belongs to the thread that scheduled it.
class ScheduledWork {
public:
    virtual ~ScheduledWork() = default;
};
using ScheduledWorkPtr = std::unique_ptr<ScheduledWork>;

/// The only source of time: nothing else starts a timer or asks for the present. Usable on any thread with an event
/// loop.
class Clock {
public:
    using Duration = std::chrono::milliseconds;

    virtual ~Clock() = default;

    /// The system's clock, unless a test has installed its own.
    static Clock &shared();
    /// Replaces the shared clock; null brings the system's back. For tests.
    static void install(Clock *clock);

    virtual QDateTime now() const = 0;
    /// Steadily rising time, for measuring intervals.
    virtual Duration uptime() const = 0;

    /// Calls `work` once on this thread after `delay`.
    [[nodiscard]] ScheduledWorkPtr after(Duration delay, std::function<void()> work);
    /// Calls `work` on this thread every `interval`; `tolerance` lets the system merge wake-ups.
    [[nodiscard]] ScheduledWorkPtr every(Duration interval, std::function<void()> work, Duration tolerance = {});
    /// Returns after `delay`, or earlier once `stop` is requested.
    QCoro::Task<> sleep(Duration delay, std::stop_token stop = {});

protected:
    virtual ScheduledWorkPtr schedule(Duration delay, bool repeats, Duration tolerance, std::function<void()> work) = 0;
};
