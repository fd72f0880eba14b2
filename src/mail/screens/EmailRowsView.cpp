#include "mail/screens/EmailRowsView.h"

#include "mail/screens/EmailRowDelegate.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

namespace {

bool isPlain(const QKeyEvent &event) {
    return (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

bool isTyping(const QKeyEvent &event) {
    const auto modifiers = event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    return modifiers == Qt::NoModifier && !event.text().isEmpty() && event.text().at(0).isPrint();
}

} // namespace

EmailRowsView::EmailRowsView(QWidget *parent)
    : QListView(parent)
    , m_delegate(new EmailRowDelegate(this)) {
    setItemDelegate(m_delegate);
    setUniformItemSizes(true);
    setFrameShape(QFrame::NoFrame);
    setMouseTracking(true);
    setDragEnabled(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAccessibleName(tr("Messages"));
    viewport()->setAutoFillBackground(false);
}

void EmailRowsView::markMenuRow(const QModelIndex &index) {
    m_delegate->menuRow = index;
    viewport()->update();
}

void EmailRowsView::keyPressEvent(QKeyEvent *event) {
    if (handleKey(*event) || selectCurrentFirst(*event))
        return;
    if (isTyping(*event))
        return event->ignore();
    QListView::keyPressEvent(event);
}

bool EmailRowsView::handleKey(const QKeyEvent &event) {
    const bool withShift = event.modifiers() & Qt::ShiftModifier;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT openRequested();
        return true;
    case Qt::Key_Space:
        if (event.modifiers() & Qt::ControlModifier)
            return false;
        Q_EMIT pageMessageRequested(!withShift);
        return true;
    case Qt::Key_Delete:
        Q_EMIT deleteRequested();
        return true;
    case Qt::Key_F10:
        if (withShift)
            requestMenuOfCurrent();
        return withShift;
    case Qt::Key_Right:
        Q_EMIT swipeRequested(currentIndex(), SwipeEdge::leading);
        return true;
    case Qt::Key_Left:
        Q_EMIT swipeRequested(currentIndex(), SwipeEdge::trailing);
        return true;
    default:
        return false;
    }
}

/// Where nothing is selected, the first step selects the row that the keyboard is on and leads no further.
bool EmailRowsView::selectCurrentFirst(const QKeyEvent &event) {
    const bool isStep = (event.key() == Qt::Key_Down || event.key() == Qt::Key_Up) && isPlain(event);
    if (!isStep || !currentIndex().isValid() || selectionModel()->hasSelection())
        return false;
    selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect);
    scrollTo(currentIndex());
    return true;
}

bool EmailRowsView::isOnStar(const QPoint &position) const {
    const auto index = indexAt(position);
    return m_delegate->showsStars && index.isValid() &&
           EmailRowDelegate::starRect(visualRect(index)).contains(position);
}

/// Neither a star nor a menu changes what is selected.
void EmailRowsView::mousePressEvent(QMouseEvent *event) {
    if (event->button() == Qt::RightButton)
        return;
    m_hasPressedStar = event->button() == Qt::LeftButton && isOnStar(event->pos());
    if (m_hasPressedStar)
        return Q_EMIT starPressed(indexAt(event->pos()));
    m_pressedRow = indexAt(event->pos());
    QListView::mousePressEvent(event);
}

void EmailRowsView::mouseReleaseEvent(QMouseEvent *event) {
    const bool concernsStar = std::exchange(m_hasPressedStar, false);
    if (!concernsStar && event->button() != Qt::RightButton)
        QListView::mouseReleaseEvent(event);
}

void EmailRowsView::mouseDoubleClickEvent(QMouseEvent *event) {
    if (isOnStar(event->pos()))
        mousePressEvent(event);
    else if (event->button() == Qt::LeftButton)
        QListView::mouseDoubleClickEvent(event);
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

void EmailRowsView::contextMenuEvent(QContextMenuEvent *event) {
    if (event->reason() == QContextMenuEvent::Keyboard)
        return requestMenuOfCurrent();
    if (const auto index = indexAt(event->pos()); index.isValid())
        Q_EMIT menuRequested(index, event->globalPos());
}

void EmailRowsView::requestMenuOfCurrent() {
    const auto index = currentIndex();
    if (!index.isValid())
        return;
    scrollTo(index);
    Q_EMIT menuRequested(index, viewport()->mapToGlobal(visualRect(index).center()));
}

void EmailRowsView::startDrag(Qt::DropActions) {
    if (m_pressedRow.isValid())
        Q_EMIT dragRequested(m_pressedRow);
}
