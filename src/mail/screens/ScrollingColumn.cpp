#include "mail/screens/ScrollingColumn.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QScrollBar>

#include <optional>

namespace {

std::optional<QAbstractSlider::SliderAction> scrollAction(int key, Qt::KeyboardModifiers modifiers) {
    const auto others = modifiers & ~Qt::KeypadModifier;
    if (key == Qt::Key_Space && others == Qt::ShiftModifier)
        return QAbstractSlider::SliderPageStepSub;
    if (others != Qt::NoModifier)
        return std::nullopt;
    switch (key) {
    case Qt::Key_Up:
        return QAbstractSlider::SliderSingleStepSub;
    case Qt::Key_Down:
        return QAbstractSlider::SliderSingleStepAdd;
    case Qt::Key_PageUp:
        return QAbstractSlider::SliderPageStepSub;
    case Qt::Key_PageDown:
    case Qt::Key_Space:
        return QAbstractSlider::SliderPageStepAdd;
    case Qt::Key_Home:
        return QAbstractSlider::SliderToMinimum;
    case Qt::Key_End:
        return QAbstractSlider::SliderToMaximum;
    default:
        return std::nullopt;
    }
}

} // namespace

ScrollingColumn::ScrollingColumn(QWidget *part)
    : QObject(part)
    , m_part(part) {
    part->installEventFilter(this);
    findScrollArea();
}

QRect ScrollingColumn::window() const {
    if (!m_area)
        return m_part->rect();
    const auto *viewport = m_area->viewport();
    return {m_part->mapFrom(viewport, QPoint(0, 0)), viewport->size()};
}

void ScrollingColumn::scrollTo(int y) {
    if (m_area)
        m_area->verticalScrollBar()->setValue(m_area->verticalScrollBar()->value() + y - window().top());
}

bool ScrollingColumn::handleKey(const QKeyEvent *event) {
    const auto action = scrollAction(event->key(), event->modifiers());
    if (!m_area || !action)
        return false;
    m_area->verticalScrollBar()->triggerAction(*action);
    return true;
}

bool ScrollingColumn::handleWheel(QEvent *event) {
    if (m_area)
        QCoreApplication::sendEvent(m_area->viewport(), event);
    return m_area != nullptr;
}

bool ScrollingColumn::eventFilter(QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::ParentChange:
        findScrollArea();
        break;
    case QEvent::Show:
        findScrollArea();
        [[fallthrough]];
    case QEvent::Move:
    case QEvent::Resize:
        Q_EMIT windowChanged();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

// The part moves in the column when what lies above it changes its height, and every widget between the two may move.
void ScrollingColumn::findScrollArea() {
    m_area = nullptr;
    for (auto *parent = m_part->parentWidget(); parent && !m_area; parent = parent->parentWidget()) {
        parent->removeEventFilter(this);
        parent->installEventFilter(this);
        auto *area = qobject_cast<QAbstractScrollArea *>(parent->parentWidget());
        if (area && area->viewport() == parent)
            m_area = area;
    }
    if (m_area)
        Q_EMIT windowChanged();
}
