#pragma once

#include <QFuture>
#include <QPromise>
#include <QThreadPool>

#include <memory>
#include <type_traits>

/// Runs `work`, which must not throw, on a thread of the pool. `future.then(context, ...)` brings the result back to
/// the thread of `context`, and drops it when `context` is gone by then.
template <typename Work> QFuture<std::invoke_result_t<Work>> runInBackground(Work work) {
    const auto promise = std::make_shared<QPromise<std::invoke_result_t<Work>>>();
    promise->start();
    QThreadPool::globalInstance()->start([promise, work] {
        promise->addResult(work());
        promise->finish();
    });
    return promise->future();
}
