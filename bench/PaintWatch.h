#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <functional>
#include <optional>

/// Tells whether a widget has been painted while a condition held, and when.
class PaintWatch : public QObject {
    Q_OBJECT
public:
    PaintWatch(QObject *widget, std::function<bool()> condition);

    bool isPainted() const { return m_paintTime.has_value(); }
    /// Runs the event loop until then; tells the milliseconds from the watch's beginning to the end of the painting,
    /// whatever the program does after it. Throws `std::runtime_error` when nothing is painted.
    double waitForPaint();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool event(QEvent *event) override;

private:
    std::function<bool()> m_condition;
    QElapsedTimer m_timer;
    bool m_isPainting = false;
    std::optional<double> m_paintTime;
};
