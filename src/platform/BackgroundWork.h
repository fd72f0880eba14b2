#pragma once

#include <QFuture>
#include <QFutureWatcher>
#include <QPromise>
#include <QThreadPool>

#include <memory>
#include <type_traits>

/// Runs `work`, which must not throw, on a thread of the pool. Not to be continued by `future.then(context, ...)`,
/// which breaks when `context` is gone by then.
template <typename Work> QFuture<std::invoke_result_t<Work>> runInBackground(Work work) {
    const auto promise = std::make_shared<QPromise<std::invoke_result_t<Work>>>();
    promise->start();
    QThreadPool::globalInstance()->start([promise, work] {
        promise->addResult(work());
        promise->finish();
    });
    return promise->future();
}

/// The same; brings the result to `then` on the thread of `context`, which must be this one. Nothing comes when
/// `context` is gone by then.
template <typename Work, typename Then> void runInBackground(Work work, QObject *context, Then then) {
    using Watcher = QFutureWatcher<std::invoke_result_t<Work>>;
    auto *watcher = new Watcher(context);
    QObject::connect(watcher, &Watcher::finished, context, [watcher, then] {
        watcher->deleteLater();
        then(watcher->result());
    });
    watcher->setFuture(runInBackground(std::move(work)));
}
