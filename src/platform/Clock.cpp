#include "platform/Clock.h"

#include "platform/Completion.h"

#include <QTimer>
#include <atomic>

namespace {

class TimerWork final : public ScheduledWork {
public:
    QTimer timer;
};

class SystemClock final : public Clock {
public:
    QDateTime now() const override { return QDateTime::currentDateTime(); }

    Duration uptime() const override {
        return std::chrono::duration_cast<Duration>(std::chrono::steady_clock::now().time_since_epoch());
    }

protected:
    ScheduledWorkPtr schedule(Duration delay, bool repeats, Duration tolerance, std::function<void()> work) override {
        auto scheduled = std::make_unique<TimerWork>();
        scheduled->timer.setSingleShot(!repeats);
        scheduled->timer.setTimerType(tolerance > Duration::zero() ? Qt::VeryCoarseTimer : Qt::PreciseTimer);
        QObject::connect(&scheduled->timer, &QTimer::timeout, &scheduled->timer, std::move(work));
        scheduled->timer.start(delay);
        return scheduled;
    }
};

std::atomic<Clock *> installedClock = nullptr;

} // namespace

Clock &Clock::shared() {
    static SystemClock systemClock;
    auto *installed = installedClock.load();
    return installed ? *installed : systemClock;
}

void Clock::install(Clock *clock) {
    installedClock = clock;
}

ScheduledWorkPtr Clock::after(Duration delay, std::function<void()> work) {
    return schedule(delay, false, {}, std::move(work));
}

ScheduledWorkPtr Clock::every(Duration interval, std::function<void()> work, Duration tolerance) {
    return schedule(interval, true, tolerance, std::move(work));
}

QCoro::Task<> Clock::sleep(Duration delay, std::stop_token stop) {
    Completion<bool> awake;
    const auto timer = after(delay, [awake]() mutable { awake.succeed(true); });
    const std::stop_callback stopped(stop, [awake]() mutable { awake.succeed(true); });
    co_await awake;
}
