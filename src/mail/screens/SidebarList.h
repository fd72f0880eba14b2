#pragma once

#include "mail/EmailDragData.h"
#include "mail/FolderRecords.h"

#include <QListView>

/// The folders of the sidebar under keyboard and mouse, and as a place to drop messages on.
class SidebarList final : public QListView {
    Q_OBJECT
public:
    explicit SidebarList(QWidget *parent = nullptr);

    /// Which drops a folder takes.
    std::function<bool(const std::vector<EmailDragData> &items, const MailFolder &folder)> accepts;

Q_SIGNALS:
    /// Return, or the arrow key towards what the folder holds.
    void folderEntered();
    void dropped(const std::vector<EmailDragData> &items, const MailFolder &folder);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QModelIndex targetOf(const QDropEvent &event) const;
    void markTarget(const QModelIndex &index);
    void scrollNearEdges(int y);

    /// Of the drag that is over the list.
    std::vector<EmailDragData> m_items;
};
