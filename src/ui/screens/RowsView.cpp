#include "ui/screens/RowsView.h"

#include "ui/screens/EntryMenu.h"
#include "ui/screens/RowDelegate.h"
#include "ui/screens/RowSwipes.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>

namespace {

bool isPlain(const QKeyEvent &event) {
    return (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

} // namespace

bool isTyping(const QKeyEvent &event) {
    const auto modifiers = event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    return modifiers == Qt::NoModifier && !event.text().isEmpty() && event.text().at(0).isPrint();
}

RowsView::RowsView(RowDelegate *delegate, QWidget *parent)
    : QListView(parent)
    , m_delegate(delegate) {
    delegate->setParent(this);
    setItemDelegate(delegate);
    setUniformItemSizes(true);
    setFrameShape(QFrame::NoFrame);
    setMouseTracking(true);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
}

void RowsView::offerActions(ActionsOf actionsOf) {
    m_actionsOf = std::move(actionsOf);
    new RowSwipes(this);
}

void RowsView::keyPressEvent(QKeyEvent *event) {
    if (handleKey(*event) || selectCurrentFirst(*event))
        return;
    if (isTyping(*event))
        return event->ignore();
    QListView::keyPressEvent(event);
}

bool RowsView::handleKey(const QKeyEvent &event) {
    const bool isMenuKey = event.key() == Qt::Key_F10 && event.modifiers() & Qt::ShiftModifier;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        Q_EMIT openRequested(currentIndex());
        return true;
    case Qt::Key_Delete:
        Q_EMIT deleteRequested(currentIndex());
        return true;
    case Qt::Key_F10:
        if (isMenuKey)
            showMenuOfCurrent();
        return isMenuKey;
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

/// Whether the key is a step, or leads to the end of the rows at which the keyboard is already.
bool RowsView::startsHere(const QKeyEvent &event) const {
    switch (event.key()) {
    case Qt::Key_Down:
    case Qt::Key_Up:
        return true;
    case Qt::Key_Home:
        return currentIndex().row() == 0;
    case Qt::Key_End:
        return currentIndex().row() == model()->rowCount() - 1;
    default:
        return false;
    }
}

/// Where nothing is selected, the first step selects the row that the keyboard is on and leads no further.
bool RowsView::selectCurrentFirst(const QKeyEvent &event) {
    if (!isPlain(event) || !startsHere(event) || !currentIndex().isValid() || selectionModel()->hasSelection())
        return false;
    selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect);
    scrollTo(currentIndex());
    return true;
}

/// Rows that come after the keyboard must be within its reach.
void RowsView::rowsInserted(const QModelIndex &parent, int first, int last) {
    QListView::rowsInserted(parent, first, last);
    if (hasFocus())
        ensureCurrent();
}

void RowsView::focusInEvent(QFocusEvent *event) {
    QListView::focusInEvent(event);
    // The mouse brings its own row.
    if (event->reason() != Qt::MouseFocusReason)
        ensureCurrent();
}

void RowsView::ensureCurrent() {
    if (selectionModel() && !currentIndex().isValid())
        selectionModel()->setCurrentIndex(model()->index(0, 0), QItemSelectionModel::NoUpdate);
}

/// A menu does not change what is selected.
void RowsView::mousePressEvent(QMouseEvent *event) {
    if (event->button() == Qt::RightButton)
        return;
    m_pressedPlace = event->pos();
    QListView::mousePressEvent(event);
}

void RowsView::mouseReleaseEvent(QMouseEvent *event) {
    if (event->button() == Qt::RightButton)
        return;
    // Who drags a row has not clicked it.
    const bool isDrag = (event->pos() - m_pressedPlace).manhattanLength() >= QApplication::startDragDistance();
    const bool wasBlocked = blockSignals(isDrag || signalsBlocked());
    QListView::mouseReleaseEvent(event);
    blockSignals(wasBlocked);
}

void RowsView::contextMenuEvent(QContextMenuEvent *event) {
    if (event->reason() == QContextMenuEvent::Keyboard)
        return showMenuOfCurrent();
    showMenu(indexAt(event->pos()), event->globalPos());
}

void RowsView::showMenuOfCurrent() {
    scrollTo(currentIndex());
    showMenu(currentIndex(), viewport()->mapToGlobal(visualRect(currentIndex()).center()));
}

void RowsView::showMenu(const QModelIndex &index, const QPoint &globalPosition) {
    const auto sections = index.isValid() ? actionsOf(index).menu : std::vector<MenuSection>();
    if (sections.empty())
        return;
    auto *menu = makeEntryMenu(sections, this);
    markMenuRow(index);
    connect(menu, &QMenu::aboutToHide, this, [this] { markMenuRow({}); });
    menu->popup(globalPosition);
}

void RowsView::markMenuRow(const QModelIndex &index) {
    m_delegate->menuRow = index;
    viewport()->update();
}
