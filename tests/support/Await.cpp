#include "support/Await.h"

#include "platform/Error.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

bool spinUntil(const std::function<bool()> &condition) {
    const QDeadlineTimer deadline(std::chrono::seconds(20));
    // Wakes the loop for a condition that another thread fulfils without telling.
    QTimer heartbeat;
    heartbeat.start(std::chrono::milliseconds(20));
    QEventLoop loop;
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        loop.processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

void deliverQueuedEvents() {
    QCoreApplication::sendPostedEvents();
}

QString failureOf(QCoro::Task<> task) {
    try {
        await(std::move(task));
        return {};
    } catch (...) {
        return errorText(std::current_exception());
    }
}
