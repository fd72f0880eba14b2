#include "PaintWatch.h"

#include "MainThread.h"

#include <QCoreApplication>
#include <QEvent>

PaintWatch::PaintWatch(QObject *widget, std::function<bool()> condition)
    : m_condition(std::move(condition)) {
    widget->installEventFilter(this);
    m_timer.start();
}

double PaintWatch::waitForPaint() {
    MainThread::runUntil([this] { return isPainted(); });
    return *m_paintTime;
}

// The window paints all its widgets and sends the picture to the display within one event, before the next posted one.
bool PaintWatch::eventFilter(QObject *, QEvent *event) {
    if (event->type() == QEvent::Paint && !m_isPainting && m_condition()) {
        m_isPainting = true;
        QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
    }
    return false;
}

bool PaintWatch::event(QEvent *event) {
    if (event->type() != QEvent::User)
        return QObject::event(event);
    m_paintTime = double(m_timer.nsecsElapsed()) / 1e6;
    return true;
}
