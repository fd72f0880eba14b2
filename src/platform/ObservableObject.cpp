#include "platform/ObservableObject.h"

void ObservableObject::scheduleChange() {
    if (m_changeScheduled)
        return;
    m_changeScheduled = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_changeScheduled = false;
            Q_EMIT changed();
        },
        Qt::QueuedConnection);
}
