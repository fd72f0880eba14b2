#pragma once

#include <QObject>
#include <optional>

class QAbstractScrollArea;
class QWheelEvent;

/// Hears when a list that stands at its top is pulled down further by touch pad and let go. Only touch pads say when
/// fingers come and go; a wheel never pulls.
class PullToRefresh final : public QObject {
    Q_OBJECT
public:
    explicit PullToRefresh(QAbstractScrollArea *list);

Q_SIGNALS:
    void pulled();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void follow(const QWheelEvent &event);

    QAbstractScrollArea *m_list;
    /// In pixels; none unless the gesture began at the top.
    std::optional<int> m_distance;
};
