#include "app/screens/EditMenu.h"

#include <QApplication>
#include <QMenuBar>

EditMenu::EditMenu(QWidget *parent)
    : QMenu(tr("&Edit"), parent) {
    add(tr("Undo"), QKeySequence::Undo, "undo");
    add(tr("Redo"), QKeySequence::Redo, "redo");
    addSeparator();
    add(tr("Cut"), QKeySequence::Cut, "cut");
    add(tr("Copy"), QKeySequence::Copy, "copy");
    add(tr("Paste"), QKeySequence::Paste, "paste");
    add(tr("Select All"), QKeySequence::SelectAll, "selectAll");
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget *, QWidget *focused) { follow(focused); });
    connect(this, &QMenu::aboutToShow, this, &EditMenu::refresh);
    follow(QApplication::focusWidget());
}

// The focus moves on while a window goes.
EditMenu::~EditMenu() {
    qApp->disconnect(this);
}

void EditMenu::add(const QString &title, QKeySequence::StandardKey key, const QByteArray &slot) {
    auto *action = addAction(title);
    action->setShortcut(key);
    action->setData(slot);
    connect(action, &QAction::triggered, this, [this, slot] {
        if (auto *owner = ownerOf(slot))
            QMetaObject::invokeMethod(owner, slot.constData());
    });
}

// The menu bar takes the focus while the keyboard is in it.
void EditMenu::follow(QWidget *focused) {
    if (focused && !qobject_cast<QMenuBar *>(focused) && !qobject_cast<QMenu *>(focused))
        m_focused = focused;
    refresh();
}

QWidget *EditMenu::ownerOf(const QByteArray &slot) const {
    auto *widget = m_focused.data();
    while (widget && widget->metaObject()->indexOfMethod(slot + "()") < 0)
        widget = widget->isWindow() ? nullptr : widget->parentWidget();
    return widget;
}

void EditMenu::refresh() {
    for (auto *action : actions())
        if (const auto slot = action->data().toByteArray(); !slot.isEmpty())
            action->setEnabled(ownerOf(slot) != nullptr);
}
