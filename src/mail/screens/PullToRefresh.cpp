#include "mail/screens/PullToRefresh.h"

#include <QAbstractScrollArea>
#include <QScrollBar>
#include <QWheelEvent>

namespace {

constexpr int neededDistance = 90; // pixels

} // namespace

PullToRefresh::PullToRefresh(QAbstractScrollArea *list)
    : QObject(list)
    , m_list(list) {
    list->viewport()->installEventFilter(this);
}

bool PullToRefresh::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::Wheel)
        follow(*static_cast<QWheelEvent *>(event));
    return QObject::eventFilter(watched, event);
}

void PullToRefresh::follow(const QWheelEvent &event) {
    const bool isAtTop = m_list->verticalScrollBar()->value() == 0;
    if (event.phase() == Qt::ScrollBegin)
        m_distance = isAtTop ? std::optional(0) : std::nullopt;
    else if (event.phase() == Qt::ScrollUpdate && m_distance)
        *m_distance += event.pixelDelta().y();
    else if (event.phase() == Qt::ScrollEnd && std::exchange(m_distance, std::nullopt).value_or(0) >= neededDistance)
        Q_EMIT pulled();
}
