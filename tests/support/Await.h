#pragma once

#include <QCoroTask>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>

/// Runs the event loop until `condition` holds. False once a generous deadline has passed.
[[nodiscard]] bool spinUntil(const std::function<bool()> &condition);
/// Delivers what is queued on this thread now, without waiting for anything.
void deliverQueuedEvents();

template <typename T> struct AwaitedResult {
    std::optional<T> value;
    std::exception_ptr error;
};

template <typename T> QCoro::Task<> collect(QCoro::Task<T> task, std::shared_ptr<AwaitedResult<T>> result) {
    try {
        result->value = co_await std::move(task);
    } catch (...) {
        result->error = std::current_exception();
    }
}

inline QCoro::Task<bool> withValue(QCoro::Task<> task) {
    co_await task;
    co_return true;
}

/// Runs the event loop until the task has ended; returns its value or throws its error. A task that does not end within
/// a generous deadline fails with `std::runtime_error`.
template <typename T> T await(QCoro::Task<T> task) {
    const auto result = std::make_shared<AwaitedResult<T>>();
    collect(std::move(task), result);
    if (!spinUntil([&] { return result->value || result->error; }))
        throw std::runtime_error("the awaited task did not end");
    if (result->error)
        std::rethrow_exception(result->error);
    return std::move(*result->value);
}

inline void await(QCoro::Task<> task) {
    await(withValue(std::move(task)));
}

/// The text of the error with which the task fails; empty when it succeeds.
QString failureOf(QCoro::Task<> task);
template <typename T> QString failureOf(QCoro::Task<T> task) {
    return failureOf([](QCoro::Task<T> inner) -> QCoro::Task<> { co_await inner; }(std::move(task)));
}
