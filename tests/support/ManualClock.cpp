#include "support/ManualClock.h"

#include <QCoreApplication>
#include <QSemaphore>
#include <QThread>
#include <algorithm>

/// Outlives the clock, since scheduled work may.
struct ManualClock::Agenda {
    mutable std::mutex mutex;
    Duration uptime = std::chrono::hours(1);
    /// In the order of scheduling.
    std::vector<Work *> works;

    Work *next() const;
};

class ManualClock::Work final : public ScheduledWork {
public:
    Work(std::shared_ptr<Agenda> agenda, Duration firstDue, std::optional<Duration> repetition,
         std::function<void()> work)
        : due(firstDue)
        , interval(repetition)
        , action(std::move(work))
        , m_agenda(std::move(agenda)) {}

    ~Work() override {
        const std::lock_guard lock(m_agenda->mutex);
        std::erase(m_agenda->works, this);
    }

    /// Enters the next time, or leaves the agenda. The agenda is locked.
    void reschedule() {
        std::erase(m_agenda->works, this);
        if (!interval)
            return;
        due += std::max(*interval, Duration(1));
        m_agenda->works.push_back(this);
    }

    Duration due;
    std::optional<Duration> interval;
    std::function<void()> action;
    QObject home;

private:
    const std::shared_ptr<Agenda> m_agenda;
};

ManualClock::Work *ManualClock::Agenda::next() const {
    const auto earliest = std::ranges::min_element(works, {}, &Work::due);
    return earliest == works.end() ? nullptr : *earliest;
}

ManualClock::ManualClock(QDateTime start)
    : m_start(std::move(start))
    , m_agenda(std::make_shared<Agenda>()) {
    install(this);
}

ManualClock::~ManualClock() {
    install(nullptr);
}

QDateTime ManualClock::now() const {
    return m_start.addMSecs((uptime() - std::chrono::hours(1)).count());
}

Clock::Duration ManualClock::uptime() const {
    const std::lock_guard lock(m_agenda->mutex);
    return m_agenda->uptime;
}

int ManualClock::scheduledCount() const {
    const std::lock_guard lock(m_agenda->mutex);
    return int(m_agenda->works.size());
}

std::optional<Clock::Duration> ManualClock::nextDue() const {
    const std::lock_guard lock(m_agenda->mutex);
    const auto *next = m_agenda->next();
    return next ? std::optional(next->due - m_agenda->uptime) : std::nullopt;
}

void ManualClock::advance(Duration duration) {
    const auto end = uptime() + duration;
    do
        QCoreApplication::sendPostedEvents();
    while (runNext(end));
    const std::lock_guard lock(m_agenda->mutex);
    m_agenda->uptime = end;
}

bool ManualClock::runNext(Duration end) {
    std::unique_lock lock(m_agenda->mutex);
    auto *work = m_agenda->next();
    if (!work || work->due > end)
        return false;
    m_agenda->uptime = std::max(m_agenda->uptime, work->due);
    work->reschedule();
    run(work, std::move(lock));
    return true;
}

void ManualClock::run(Work *work, std::unique_lock<std::mutex> lock) {
    // A copy, since the action may destroy its own work.
    const auto action = work->action;
    if (work->home.thread() == QThread::currentThread()) {
        lock.unlock();
        return action();
    }
    // Released also when the work is destroyed on its thread before its turn.
    QSemaphore ended;
    std::shared_ptr<void> end(nullptr, [&ended](void *) { ended.release(); });
    QMetaObject::invokeMethod(
        &work->home, [action, end = std::move(end)] { action(); }, Qt::QueuedConnection);
    lock.unlock();
    ended.acquire();
}

ScheduledWorkPtr ManualClock::schedule(Duration delay, bool repeats, Duration, std::function<void()> action) {
    auto work = std::make_unique<Work>(m_agenda, uptime() + std::max(delay, Duration::zero()),
                                       repeats ? std::optional(delay) : std::nullopt, std::move(action));
    const std::lock_guard lock(m_agenda->mutex);
    m_agenda->works.push_back(work.get());
    return work;
}
