#include "platform/Tasks.h"

#include "platform/Clock.h"
#include "platform/Completion.h"
#include "platform/Error.h"
#include "platform/ObservableObject.h"
#include "support/CoreTest.h"

#include <QThread>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class TasksTest : public CoreTest {
protected:
    ManualClock clock;
    QStringList log;
};

QCoro::Task<> fail(QString text) {
    co_await Clock::shared().sleep(1s);
    throw Error(text);
}

QCoro::Task<> work(QString name, QStringList &log, std::stop_token stop) {
    co_await Clock::shared().sleep(10s, stop);
    log.append(name + (stop.stop_requested() ? u" stopped"_s : u" done"_s));
}

QCoro::Task<int> resultOf(Completion<int> completion) {
    co_return co_await completion;
}

} // namespace

TEST_F(TasksTest, anErrorOfALaunchedTaskIsReported) {
    expectWarning(u"A task ended with an error: it broke"_s);
    launch(fail(u"it broke"_s));
    EXPECT_EQ(launchedTaskCount(), 1);
    clock.advance(1s);
    EXPECT_EQ(launchedTaskCount(), 0);
}

TEST_F(TasksTest, awaitingATaskThatFailsThrows) {
    auto task = fail(u"it broke"_s);
    clock.advance(1s);
    EXPECT_EQ(failureOf(std::move(task)), u"it broke"_s);
}

TEST_F(TasksTest, startingAgainStopsTheRunningTask) {
    TaskSlot slot;
    slot.start([&](std::stop_token stop) { return work(u"first"_s, log, stop); });
    slot.start([&](std::stop_token stop) { return work(u"second"_s, log, stop); });
    clock.advance(1s);
    EXPECT_EQ(log, QStringList{u"first stopped"_s});
    clock.advance(10s);
    EXPECT_EQ(log, (QStringList{u"first stopped"_s, u"second done"_s}));
}

TEST_F(TasksTest, cancellingStopsAndTheEndOfTheOwnerToo) {
    TaskSlot cancelled;
    cancelled.cancel();
    cancelled.start([&](std::stop_token stop) { return work(u"cancelled"_s, log, stop); });
    cancelled.cancel();
    {
        TaskSlot dropped;
        dropped.start([&](std::stop_token stop) { return work(u"dropped"_s, log, stop); });
    }
    EXPECT_TRUE(log.isEmpty()) << "a task that is stopped goes on from the event loop";
    deliverQueuedEvents();
    EXPECT_EQ(log, (QStringList{u"cancelled stopped"_s, u"dropped stopped"_s}));
    EXPECT_EQ(clock.scheduledCount(), 0);
}

TEST_F(TasksTest, sleepEndsAtItsTimeOrWhenStopped) {
    std::stop_source stop, stoppedBefore;
    stoppedBefore.request_stop();
    const auto plain = clock.sleep(5s);
    const auto stopped = clock.sleep(5s, stop.get_token());
    const auto never = clock.sleep(5s, stoppedBefore.get_token());
    EXPECT_TRUE(never.isReady());
    clock.advance(4s);
    EXPECT_FALSE(plain.isReady() || stopped.isReady());
    stop.request_stop();
    deliverQueuedEvents();
    EXPECT_TRUE(stopped.isReady());
    EXPECT_FALSE(plain.isReady());
    clock.advance(1s);
    EXPECT_TRUE(plain.isReady());
    EXPECT_EQ(clock.scheduledCount(), 0);
}

TEST_F(TasksTest, theSystemClockWakesASleeper) {
    Clock::install(nullptr);
    await(Clock::shared().sleep(1ms));
    int rounds = 0;
    const auto work = Clock::shared().every(1ms, [&] { ++rounds; });
    EXPECT_TRUE(spinUntil([&] { return rounds >= 3; }));
}

TEST_F(TasksTest, onlyTheFirstCompletionCounts) {
    Completion<int> success, failure;
    success.succeed(1);
    success.succeed(2);
    success.fail(std::make_exception_ptr(Error(u"late"_s)));
    failure.fail(std::make_exception_ptr(Error(u"first"_s)));
    failure.succeed(3);
    EXPECT_EQ(await(resultOf(success)), 1);
    EXPECT_EQ(failureOf(resultOf(failure)), u"first"_s);
}

TEST_F(TasksTest, aWaiterGoesOnFromTheEventLoopAndOnItsOwnThread) {
    Completion<int> completion;
    auto task = resultOf(completion);
    completion.succeed(5);
    EXPECT_FALSE(task.isReady());
    EXPECT_EQ(await(std::move(task)), 5);

    Completion<int> fromElsewhere;
    const auto threadOf = [](Completion<int> awaited) -> QCoro::Task<QThread *> {
        co_await awaited;
        co_return QThread::currentThread();
    };
    auto waiting = threadOf(fromElsewhere);
    std::jthread([&] { fromElsewhere.succeed(1); }).join();
    EXPECT_EQ(await(std::move(waiting)), QThread::currentThread());
}

TEST_F(TasksTest, allChangesOfOneTurnComeOutAsOne) {
    struct Model : ObservableObject {
        Published<int> number{this, 1};
        Published<QStringList> list{this};
    } model;
    int changes = 0;
    QObject screen;
    QObject::connect(&model, &ObservableObject::changed, &screen, [&] { ++changes; });
    model.number = 1;
    deliverQueuedEvents();
    EXPECT_EQ(changes, 0) << "an equal value is no change";
    model.number = 2;
    model.number = 3;
    model.list.modify([](QStringList &list) { list.append(u"x"_s); });
    EXPECT_EQ(changes, 0);
    deliverQueuedEvents();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(model.number, 3);
}
