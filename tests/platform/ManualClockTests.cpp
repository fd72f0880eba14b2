#include "support/CoreTest.h"

#include <QThread>

using namespace std::chrono_literals;

namespace {

class ManualClockTest : public CoreTest {
protected:
    ManualClock clock;
};

QCoro::Task<> countSeconds(int rounds, int &count) {
    for (int round = 0; round < rounds; ++round) {
        co_await Clock::shared().sleep(1s);
        ++count;
    }
}

} // namespace

TEST_F(ManualClockTest, runsWhatFallsDueInItsOrderAndAtItsTime) {
    const auto start = clock.now();
    std::vector<std::pair<int, qint64>> seen;
    const auto note = [&](int name) { return [&, name] { seen.emplace_back(name, start.msecsTo(clock.now())); }; };
    const auto late = Clock::shared().after(3s, note(3));
    const auto early = Clock::shared().after(1s, note(1));
    const auto often = Clock::shared().every(2s, note(2));
    auto cancelled = Clock::shared().after(1s, note(4));
    cancelled.reset();
    clock.advance(4s);
    EXPECT_EQ(seen, (std::vector<std::pair<int, qint64>>{{1, 1000}, {2, 2000}, {3, 3000}, {2, 4000}}));
    EXPECT_EQ(start.msecsTo(clock.now()), 4000);
    EXPECT_EQ(clock.nextDue(), 2s);
}

TEST_F(ManualClockTest, carriesCoroutinesThroughOneAdvance) {
    int count = 0;
    const auto task = countSeconds(5, count);
    clock.advance(3500ms);
    EXPECT_EQ(count, 3);
    clock.advance(10s);
    EXPECT_TRUE(task.isReady());
}

TEST_F(ManualClockTest, runsWorkOfAnotherThreadThere) {
    QThread thread;
    thread.start();
    QObject there;
    there.moveToThread(&thread);
    ScheduledWorkPtr work;
    QThread *ranOn = nullptr;
    QMetaObject::invokeMethod(
        &there, [&] { work = Clock::shared().after(1s, [&] { ranOn = QThread::currentThread(); }); },
        Qt::BlockingQueuedConnection);
    clock.advance(1s);
    EXPECT_EQ(ranOn, &thread);
    QMetaObject::invokeMethod(
        &there, [&] { work.reset(); }, Qt::BlockingQueuedConnection);
    thread.quit();
    thread.wait();
}

TEST_F(ManualClockTest, survivesWorkThatDestroysItself) {
    ScheduledWorkPtr work;
    bool ran = false;
    work = Clock::shared().every(1s, [&] {
        work.reset();
        ran = true;
    });
    clock.advance(5s);
    EXPECT_TRUE(ran);
    EXPECT_EQ(clock.scheduledCount(), 0);
}
