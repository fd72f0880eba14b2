#pragma once

#include <QCoroTask>
#include <functional>
#include <stop_token>

/// Starts a task that nobody awaits. An error that it lets through is reported as a warning.
void launch(QCoro::Task<> task);

/// How many launched tasks have not ended yet.
int launchedTaskCount();

/// One restartable task that is tied to its owner: starting again, or the owner's end, asks the running one to stop.
class TaskSlot {
public:
    TaskSlot() = default;
    TaskSlot(const TaskSlot &) = delete;
    TaskSlot &operator=(const TaskSlot &) = delete;
    ~TaskSlot() { cancel(); }

    /// `begin` makes the task from the token by which it learns that it is no longer wanted.
    template <typename Begin> void start(Begin begin) {
        cancel();
        m_stop = std::stop_source();
        launch(begin(m_stop.get_token()));
    }

    void cancel() { m_stop.request_stop(); }

private:
    std::stop_source m_stop{std::nostopstate};
};
