#include "mail/screens/EmailHTMLInput.h"

#include "mail/screens/ScrollingColumn.h"
#include "mail/screens/Zoom.h"

#include <QChildEvent>
#include <QKeyEvent>
#include <QWheelEvent>

namespace {

/// Pixels for one press of an arrow key.
constexpr int keyStep = 40;

/// Pixels to the right; 0 when the wheel turns up or down. With Shift held a plain wheel turns sideways too.
int sidewaysDistance(const QWheelEvent *event) {
    const auto turn = event->angleDelta();
    if (event->modifiers() & Qt::ShiftModifier)
        return -(turn.x() != 0 ? turn.x() : turn.y());
    return std::abs(turn.x()) > std::abs(turn.y()) ? -turn.x() : 0;
}

} // namespace

EmailHTMLInput::EmailHTMLInput(ScrollingColumn *column, QObject *parent)
    : QObject(parent)
    , m_column(column) {}

void EmailHTMLInput::watch(QObject *widget) {
    widget->installEventFilter(this);
    for (auto *child : widget->children())
        if (child->isWidgetType())
            watch(child);
}

void EmailHTMLInput::setZoom(qreal zoom) {
    m_zoom = zoom;
    Q_EMIT zoomChanged();
}

bool EmailHTMLInput::eventFilter(QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::ChildAdded:
        watch(static_cast<QChildEvent *>(event)->child());
        return false;
    case QEvent::Wheel:
        return handleWheel(static_cast<QWheelEvent *>(event));
    case QEvent::KeyPress:
        return handleKey(static_cast<QKeyEvent *>(event));
    default:
        return QObject::eventFilter(watched, event);
    }
}

bool EmailHTMLInput::handleWheel(QWheelEvent *event) {
    if (const auto zoom = zoomAfterWheel(m_zoom, event)) {
        setZoom(*zoom);
        return true;
    }
    if (const auto distance = sidewaysDistance(event)) {
        Q_EMIT movedSideways(distance);
        return true;
    }
    return m_column->handleWheel(event);
}

bool EmailHTMLInput::handleKey(QKeyEvent *event) {
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    if (const auto zoom = zoomAfterKey(m_zoom, event))
        setZoom(*zoom);
    else if (event->key() == Qt::Key_Left && modifiers == Qt::NoModifier)
        Q_EMIT movedSideways(-keyStep);
    else if (event->key() == Qt::Key_Right && modifiers == Qt::NoModifier)
        Q_EMIT movedSideways(keyStep);
    else
        return m_column->handleKey(event);
    return true;
}
