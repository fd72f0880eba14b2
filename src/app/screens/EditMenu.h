#pragma once

#include <QMenu>
#include <QPointer>

/// Undo, the clipboard and "Select All" for what had the keyboard focus before the menu took it: an entry calls the
/// slot of that name of the widget, or of the nearest one around it that has one, and is disabled where there is none.
class EditMenu final : public QMenu {
    Q_OBJECT
public:
    explicit EditMenu(QWidget *parent);
    ~EditMenu() override;

private:
    void add(const QString &title, QKeySequence::StandardKey key, const QByteArray &slot);
    void follow(QWidget *focused);
    QWidget *ownerOf(const QByteArray &slot) const;
    void refresh();

    QPointer<QWidget> m_focused;
};
