#pragma once

#include "mail/FolderRecords.h"

/// What a folder is for.
enum class FolderRole { inbox, sent, drafts, trash, spam, archive, starred, important, folder };

/// The role that a `type` word names; an absent word is an ordinary folder, an unknown one has no role.
std::optional<FolderRole> folderRole(const std::optional<QString> &type);

/// The symbol of the folder's role.
QString folderIcon(const MailFolder &folder);
QString displayName(const MailFolder &folder);
/// The number that its badge shows; for the inbox the one that the notification service keeps.
qint64 unreadCount(const MailFolder &folder);

/// The flagged messages of the inbox, shown as a folder that only the client knows.
const MailFolder &favoritesFolder();
/// The folder that mail requests name for `path`: the inbox stands behind the favourites.
QString requestFolder(const QString &path);

/// The folder with this very path, the favourites among them.
std::optional<MailFolder> selectedFolder(const std::vector<MailFolder> &folders, const QString &path);
std::optional<MailFolder> firstFolderWithRole(const std::vector<MailFolder> &folders, FolderRole role);
/// The folder that a request to navigate means: a role's word in any letter case, else an exact path or name.
std::optional<MailFolder> folderNamed(const std::vector<MailFolder> &folders, const QString &text);

/// The folders as the sidebar groups them.
struct SidebarFolders {
    /// The first folder of each fixed role, in the roles' own order.
    std::vector<MailFolder> system;
    /// All folders without a fixed role, in the server's order.
    std::vector<MailFolder> custom;

    bool operator==(const SidebarFolders &) const = default;
};
SidebarFolders sidebarFolders(const std::vector<MailFolder> &folders);
