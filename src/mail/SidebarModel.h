#pragma once

#include "mail/FolderRecords.h"

#include <QAbstractListModel>

/// The sidebar's rows: the heading "Mailboxes" over the system folders and the favourites, and the heading "Folders"
/// over the others. A change of counts keeps all rows in place.
class SidebarModel : public QAbstractListModel {
    Q_OBJECT
public:
    struct Row {
        /// A heading has a title only.
        bool isHeading = false;
        QString title, icon;
        MailFolder folder;
        qint64 unread = 0;

        bool operator==(const Row &) const = default;
    };

    using QAbstractListModel::QAbstractListModel;

    void setFolders(const std::vector<MailFolder> &folders);
    const Row &row(int index) const { return m_rows[index]; }
    /// The row of the folder with this path, -1 when there is none.
    int indexOfPath(const QString &path) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    std::vector<Row> m_rows;
};
