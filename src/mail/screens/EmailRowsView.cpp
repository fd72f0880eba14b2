#include "mail/screens/EmailRowsView.h"

#include "mail/screens/EmailRowDelegate.h"

#include <QKeyEvent>

EmailRowsView::EmailRowsView(QWidget *parent)
    : RowsView(new EmailRowDelegate, parent) {
    setDragEnabled(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setAccessibleName(tr("Messages"));
}

EmailRowDelegate *EmailRowsView::rowDelegate() const {
    return static_cast<EmailRowDelegate *>(RowsView::rowDelegate());
}

bool EmailRowsView::handleKey(const QKeyEvent &event) {
    if (event.key() != Qt::Key_Space)
        return RowsView::handleKey(event);
    if (event.modifiers() & Qt::ControlModifier)
        return false;
    Q_EMIT pageMessageRequested(!(event.modifiers() & Qt::ShiftModifier));
    return true;
}

/// The keyboard goes on with the row that takes the place of a removed one; nothing is opened by itself.
void EmailRowsView::rowsAboutToBeRemoved(const QModelIndex &parent, int first, int last) {
    RowsView::rowsAboutToBeRemoved(parent, first, last);
    const int current = currentIndex().row();
    if (current < first || current > last)
        return;
    const int next = last + 1 < model()->rowCount() ? last + 1 : first - 1;
    selectionModel()->setCurrentIndex(model()->index(next, 0), QItemSelectionModel::NoUpdate);
}

bool EmailRowsView::isOnStar(const QPoint &position) const {
    const auto index = indexAt(position);
    return rowDelegate()->showsStars && index.isValid() &&
           EmailRowDelegate::starRect(visualRect(index)).contains(position);
}

/// A star does not change what is selected.
void EmailRowsView::mousePressEvent(QMouseEvent *event) {
    m_hasPressedStar = event->button() == Qt::LeftButton && isOnStar(event->pos());
    if (m_hasPressedStar)
        return Q_EMIT starPressed(indexAt(event->pos()));
    if (event->button() != Qt::RightButton)
        m_pressedRow = indexAt(event->pos());
    RowsView::mousePressEvent(event);
}

void EmailRowsView::mouseReleaseEvent(QMouseEvent *event) {
    if (!std::exchange(m_hasPressedStar, false))
        RowsView::mouseReleaseEvent(event);
}

void EmailRowsView::mouseDoubleClickEvent(QMouseEvent *event) {
    if (isOnStar(event->pos()))
        mousePressEvent(event);
    else if (event->button() == Qt::LeftButton)
        RowsView::mouseDoubleClickEvent(event);
}

/// A row is selected when the button is released: one that is dragged away must not be opened and marked as read.
QItemSelectionModel::SelectionFlags EmailRowsView::selectionCommand(const QModelIndex &index,
                                                                    const QEvent *event) const {
    const auto *mouse = dynamic_cast<const QMouseEvent *>(event);
    if (!mouse || mouse->modifiers() != Qt::NoModifier || !index.isValid())
        return QListView::selectionCommand(index, event);
    const bool isRelease =
        mouse->type() == QEvent::MouseButtonRelease && mouse->button() == Qt::LeftButton && index == m_pressedRow;
    return isRelease ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void EmailRowsView::startDrag(Qt::DropActions) {
    if (m_pressedRow.isValid())
        Q_EMIT dragRequested(m_pressedRow);
}
