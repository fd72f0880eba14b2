#include "mail/screens/ColumnScrollArea.h"

#include <QScrollBar>

ColumnScrollArea::ColumnScrollArea(QWidget *parent)
    : QScrollArea(parent) {
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
}

// In place of the scroll area's own, which shows the middle of a tall part.
bool ColumnScrollArea::focusNextPrevChild(bool next) {
    // The key is not seen where it comes by way of a page of the web engine.
    window()->setAttribute(Qt::WA_KeyboardFocusChange);
    if (!QWidget::focusNextPrevChild(next))
        return false;
    auto *focused = focusWidget();
    if (focused && focused->hasFocus())
        bringIntoView(focused, next);
    return true;
}

void ColumnScrollArea::bringIntoView(QWidget *part, bool fromAbove) {
    const QRect place(part->mapTo(widget(), QPoint()), part->size());
    const QRect window(-widget()->pos(), viewport()->size());
    if (place.height() < window.height())
        ensureWidgetVisible(part);
    else if (!place.intersects(window))
        verticalScrollBar()->setValue(fromAbove ? place.top() : place.bottom() - window.height());
}
