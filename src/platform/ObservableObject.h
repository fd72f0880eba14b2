#pragma once

#include <QObject>
#include <concepts>
#include <utility>

/// State that screens watch. Its fields are `Published`; all their changes in one turn of the event loop come out as
/// one `changed()`. Main thread only.
class ObservableObject : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Queues one `changed()`; called by `Published`, and by whoever changes state that is not published.
    void scheduleChange();

Q_SIGNALS:
    void changed();

private:
    bool m_changeScheduled = false;
};

/// A field of an `ObservableObject`: read and assigned like a plain one. An assignment of an equal value does nothing.
template <std::equality_comparable T> class Published {
public:
    explicit Published(ObservableObject *owner, T value = {})
        : m_owner(owner)
        , m_value(std::move(value)) {}
    Published(const Published &) = delete;
    Published &operator=(const Published &) = delete;

    Published &operator=(T value) {
        if (m_value == value)
            return *this;
        m_value = std::move(value);
        m_owner->scheduleChange();
        return *this;
    }

    operator const T &() const { return m_value; }
    const T &get() const { return m_value; }
    const T *operator->() const { return &m_value; }
    const T &operator*() const { return m_value; }

    /// Changes the value in place, for lists and records; always counts as a change.
    template <typename Change> void modify(Change change) {
        change(m_value);
        m_owner->scheduleChange();
    }

private:
    ObservableObject *m_owner;
    T m_value;
};

/// Calls `render` now and after each change of `model`, for as long as `screen` lives.
template <typename Screen, typename Render> void observe(const ObservableObject *model, Screen *screen, Render render) {
    QObject::connect(model, &ObservableObject::changed, screen, render);
    std::invoke(render, screen);
}
