#pragma once

#include <QObject>
#include <functional>

/// Tells whether a widget has been painted while a condition held.
class PaintWatch : public QObject {
    Q_OBJECT
public:
    PaintWatch(QObject *widget, std::function<bool()> condition);

    bool isPainted() const { return m_isPainted; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::function<bool()> m_condition;
    bool m_isPainted = false;
};
