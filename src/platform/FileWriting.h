#pragma once

#include "platform/BackgroundWork.h"
#include "platform/Completion.h"
#include "platform/Error.h"

#include <QCoroTask>

/// Both block until the file is written, and fail with `Error`; they are for `fileWork`.
void writeFileAtomically(const QString &path, const QByteArray &bytes);
/// Fails when there is something of that name.
void writeNewFile(const QString &path, const QByteArray &bytes);

/// Runs `work`, which may throw, on a thread of the pool, so that nobody waits for a disk. The result comes back to the
/// thread that asked, without a turn of its event loop where the work is done already.
template <typename T> QCoro::Task<T> fileWork(std::function<T()> work) {
    struct Outcome {
        std::optional<T> value;
        std::exception_ptr error;
    };
    Completion<std::shared_ptr<Outcome>> ended;
    QObject here;
    const auto attempt = [work] {
        auto outcome = std::make_shared<Outcome>();
        try {
            outcome->value = work();
        } catch (...) {
            outcome->error = std::current_exception();
        }
        return outcome;
    };
    runInBackground(attempt).then(&here, [ended](std::shared_ptr<Outcome> outcome) mutable { ended.succeed(outcome); });
    const auto outcome = co_await ended;
    if (outcome->error)
        std::rethrow_exception(outcome->error);
    co_return std::move(*outcome->value);
}

/// The same for work without a result.
QCoro::Task<> fileWork(std::function<void()> work);
