#pragma once

#include <QObject>

/// Gives a text field the keys that edit text, before the menus' shortcuts see them: the toolkit's own fields leave
/// some of them out, and "delete the word before" must not move mail to the trash. Works for the whole program while it
/// lives.
class EditingKeys final : public QObject {
    Q_OBJECT
public:
    explicit EditingKeys(QObject *parent);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
