#pragma once

#include <QMenu>

/// Undo, the clipboard and "Select All" for whatever has the keyboard focus: an entry calls the focused widget's slot
/// of that name and is disabled where there is none.
class EditMenu final : public QMenu {
    Q_OBJECT
public:
    explicit EditMenu(QWidget *parent);

private:
    void add(const QString &title, QKeySequence::StandardKey key, const char *slot);
    void refresh();
};
