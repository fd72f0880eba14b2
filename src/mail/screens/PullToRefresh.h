#pragma once

#include <QObject>
#include <optional>

class QScrollBar;
class QWheelEvent;
class QWidget;

/// Hears when content that stands at its top is pulled down further by touch pad and let go. Only touch pads say when
/// fingers come and go; a wheel never pulls.
class PullToRefresh final : public QObject {
    Q_OBJECT
public:
    /// `bar` scrolls what `content` shows; null where nothing scrolls.
    PullToRefresh(QWidget *content, const QScrollBar *bar);

Q_SIGNALS:
    void pulled();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void follow(const QWheelEvent &event);

    const QScrollBar *m_bar;
    /// In pixels; none unless the gesture began at the top.
    std::optional<int> m_distance;
};
