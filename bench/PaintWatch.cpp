#include "PaintWatch.h"

#include <QEvent>

PaintWatch::PaintWatch(QObject *widget, std::function<bool()> condition)
    : m_condition(std::move(condition)) {
    widget->installEventFilter(this);
}

bool PaintWatch::eventFilter(QObject *, QEvent *event) {
    if (event->type() == QEvent::Paint && m_condition())
        m_isPainted = true;
    return false;
}
