#include "platform/Tasks.h"

#include "platform/Error.h"

#include <QDebug>
#include <atomic>

namespace {

std::atomic<int> running = 0;

QCoro::Task<> runToEnd(QCoro::Task<> task) {
    ++running;
    try {
        co_await task;
    } catch (...) {
        qWarning().noquote() << "A task ended with an error:" << errorText(std::current_exception());
    }
    --running;
}

} // namespace

void launch(QCoro::Task<> task) {
    runToEnd(std::move(task));
}

int launchedTaskCount() {
    return running;
}
