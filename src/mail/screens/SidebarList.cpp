#include "mail/screens/SidebarList.h"

#include "mail/SidebarModel.h"
#include "mail/screens/SidebarDelegate.h"

#include <QDragMoveEvent>
#include <QKeyEvent>
#include <QMimeData>

namespace {

const MailFolder &folderAt(const QModelIndex &index) {
    return static_cast<const SidebarModel *>(index.model())->row(index.row()).folder;
}

} // namespace

SidebarList::SidebarList(QWidget *parent)
    : QListView(parent) {
    setItemDelegate(new SidebarDelegate(this));
    setFrameShape(QFrame::NoFrame);
    setMouseTracking(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAccessibleName(tr("Folders"));
    setAcceptDrops(true);
    viewport()->setAutoFillBackground(false);
}

void SidebarList::keyPressEvent(QKeyEvent *event) {
    const bool isEntering =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Right;
    if (isEntering && currentIndex().isValid())
        Q_EMIT folderEntered();
    else
        QListView::keyPressEvent(event);
}

/// The keys lead from folder to folder, past the headings.
QModelIndex SidebarList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const auto index = QListView::moveCursor(action, modifiers);
    const bool isHeading = index.isValid() && !(index.flags() & Qt::ItemIsEnabled);
    return isHeading ? index.siblingAtRow(index.row() + 1) : index;
}

/// The row that would take the drop; invalid for none.
QModelIndex SidebarList::targetOf(const QDropEvent &event) const {
    const auto index = indexAt(event.position().toPoint());
    const bool isFolder = index.isValid() && index.flags() & Qt::ItemIsDropEnabled;
    return isFolder && accepts && accepts(m_items, folderAt(index)) ? index : QModelIndex();
}

void SidebarList::markTarget(const QModelIndex &index) {
    auto *delegate = static_cast<SidebarDelegate *>(itemDelegate());
    if (delegate->dropTarget == index)
        return;
    delegate->dropTarget = index;
    viewport()->update();
}

void SidebarList::dragEnterEvent(QDragEnterEvent *event) {
    m_items = decodeEmailDrag(event->mimeData()->data(emailDragType));
    event->setAccepted(!m_items.empty());
}

void SidebarList::dragMoveEvent(QDragMoveEvent *event) {
    const auto target = targetOf(*event);
    markTarget(target);
    scrollNearEdges(event->position().toPoint().y());
    event->setDropAction(Qt::MoveAction);
    event->setAccepted(target.isValid());
}

/// Folders out of sight come into reach.
void SidebarList::scrollNearEdges(int y) {
    if (y < autoScrollMargin() || y > viewport()->height() - autoScrollMargin())
        startAutoScroll();
}

void SidebarList::dragLeaveEvent(QDragLeaveEvent *) {
    stopAutoScroll();
    markTarget({});
}

void SidebarList::dropEvent(QDropEvent *event) {
    const auto target = targetOf(*event);
    stopAutoScroll();
    markTarget({});
    event->setDropAction(Qt::MoveAction);
    event->setAccepted(target.isValid());
    if (target.isValid())
        Q_EMIT dropped(m_items, folderAt(target));
}
