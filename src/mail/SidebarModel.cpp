#include "mail/SidebarModel.h"

#include "mail/Folders.h"

using namespace Qt::StringLiterals;

namespace {

SidebarModel::Row heading(const QString &title) {
    return {.isHeading = true, .title = title};
}

SidebarModel::Row folderRow(const MailFolder &folder) {
    return {.title = displayName(folder), .icon = folderIcon(folder), .folder = folder, .unread = unreadCount(folder)};
}

std::vector<SidebarModel::Row> rowsFor(const std::vector<MailFolder> &folders) {
    const auto groups = sidebarFolders(folders);
    std::vector<SidebarModel::Row> rows{heading(u"Mailboxes"_s)};
    for (const auto &folder : groups.system)
        rows.push_back(folderRow(folder));
    rows.push_back(folderRow(favoritesFolder()));
    if (!groups.custom.empty())
        rows.push_back(heading(u"Folders"_s));
    for (const auto &folder : groups.custom)
        rows.push_back(folderRow(folder));
    return rows;
}

} // namespace

void SidebarModel::setFolders(const std::vector<MailFolder> &folders) {
    auto rows = rowsFor(folders);
    const auto samePlace = [](const Row &a, const Row &b) {
        return a.isHeading == b.isHeading && a.folder.path == b.folder.path;
    };
    if (!std::equal(rows.begin(), rows.end(), m_rows.begin(), m_rows.end(), samePlace)) {
        beginResetModel();
        m_rows = std::move(rows);
        endResetModel();
        return;
    }
    for (int number = 0; number < int(rows.size()); ++number) {
        if (m_rows[number] == rows[number])
            continue;
        m_rows[number] = std::move(rows[number]);
        Q_EMIT dataChanged(index(number), index(number));
    }
}

int SidebarModel::indexOfPath(const QString &path) const {
    for (int number = 0; number < int(m_rows.size()); ++number)
        if (!m_rows[number].isHeading && m_rows[number].folder.path == path)
            return number;
    return -1;
}

int SidebarModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant SidebarModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid())
        return {};
    const auto &shown = m_rows[index.row()];
    if (role == Qt::DisplayRole)
        return shown.title;
    if (role == Qt::AccessibleTextRole)
        return shown.unread > 0 ? u"%1, %2 unread"_s.arg(shown.title).arg(shown.unread) : shown.title;
    return {};
}

Qt::ItemFlags SidebarModel::flags(const QModelIndex &index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    const auto &shown = m_rows[index.row()];
    return shown.isHeading ? Qt::NoItemFlags : Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled;
}
