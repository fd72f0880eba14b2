#pragma once

#include <QCoreApplication>
#include <QThread>
#include <coroutine>
#include <exception>
#include <memory>
#include <optional>

/// One result that arrives later: one coroutine awaits it, somebody else completes it, copies share it. Only the first
/// completion counts. The waiter resumes from the event loop of the thread that made the completion, never inside
/// `succeed` or `fail`, so whoever completes may do so in the middle of its own work and from any thread that is
/// ordered with the waiter.
template <typename T> class Completion {
public:
    Completion()
        : m_state(std::make_shared<State>()) {}

    void succeed(T value) {
        if (m_state->isComplete())
            return;
        m_state->value = std::move(value);
        m_state->wake();
    }

    void fail(std::exception_ptr error) {
        if (m_state->isComplete())
            return;
        m_state->error = std::move(error);
        m_state->wake();
    }

    bool isComplete() const { return m_state->isComplete(); }

    bool await_ready() const noexcept { return m_state->isComplete(); }

    void await_suspend(std::coroutine_handle<> waiter) { m_state->waiter = waiter; }

    T await_resume() {
        if (m_state->error)
            std::rethrow_exception(m_state->error);
        return std::move(*m_state->value);
    }

private:
    struct State {
        std::optional<T> value;
        std::exception_ptr error;
        std::coroutine_handle<> waiter;
        QObject home;

        bool isComplete() const { return value || error; }

        void wake() {
            if (waiter)
                QMetaObject::invokeMethod(
                    &home, [handle = std::exchange(waiter, {})] { handle.resume(); }, Qt::QueuedConnection);
        }
    };

    std::shared_ptr<State> m_state;
};
