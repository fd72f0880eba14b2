#include "app/screens/EditMenu.h"

#include <QApplication>

EditMenu::EditMenu(QWidget *parent)
    : QMenu(tr("&Edit"), parent) {
    add(tr("Undo"), QKeySequence::Undo, "undo");
    add(tr("Redo"), QKeySequence::Redo, "redo");
    addSeparator();
    add(tr("Cut"), QKeySequence::Cut, "cut");
    add(tr("Copy"), QKeySequence::Copy, "copy");
    add(tr("Paste"), QKeySequence::Paste, "paste");
    add(tr("Select All"), QKeySequence::SelectAll, "selectAll");
    connect(qApp, &QApplication::focusChanged, this, &EditMenu::refresh);
    refresh();
}

void EditMenu::add(const QString &title, QKeySequence::StandardKey key, const char *slot) {
    auto *action = addAction(title);
    action->setShortcut(key);
    action->setData(QByteArray(slot));
    connect(action, &QAction::triggered, this, [slot] {
        if (auto *focused = QApplication::focusWidget())
            QMetaObject::invokeMethod(focused, slot);
    });
}

void EditMenu::refresh() {
    const auto *focused = QApplication::focusWidget();
    for (auto *action : actions())
        if (const auto slot = action->data().toByteArray(); !slot.isEmpty())
            action->setEnabled(focused && focused->metaObject()->indexOfMethod(slot + "()") >= 0);
}
