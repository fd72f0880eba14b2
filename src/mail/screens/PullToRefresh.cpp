#include "mail/screens/PullToRefresh.h"

#include <QScrollBar>
#include <QWheelEvent>

namespace {

constexpr int neededDistance = 90; // pixels

} // namespace

PullToRefresh::PullToRefresh(QWidget *content, const QScrollBar *bar)
    : QObject(content)
    , m_bar(bar) {
    content->installEventFilter(this);
}

bool PullToRefresh::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::Wheel)
        follow(*static_cast<QWheelEvent *>(event));
    return QObject::eventFilter(watched, event);
}

void PullToRefresh::follow(const QWheelEvent &event) {
    const bool isAtTop = !m_bar || m_bar->value() == 0;
    if (event.phase() == Qt::ScrollBegin)
        m_distance = isAtTop ? std::optional(0) : std::nullopt;
    else if (event.phase() == Qt::ScrollUpdate && m_distance)
        *m_distance += event.pixelDelta().y();
    else if (event.phase() == Qt::ScrollEnd && std::exchange(m_distance, std::nullopt).value_or(0) >= neededDistance)
        Q_EMIT pulled();
}
