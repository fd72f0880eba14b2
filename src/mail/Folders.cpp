#include "mail/Folders.h"

#include "platform/UserDefaults.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct RoleEntry {
    FolderRole role;
    QLatin1StringView type, icon;
};

constexpr std::array roles{
    RoleEntry{FolderRole::inbox, "inbox"_L1, "tray"_L1},
    RoleEntry{FolderRole::sent, "sent"_L1, "paperplane"_L1},
    RoleEntry{FolderRole::drafts, "drafts"_L1, "doc.text"_L1},
    RoleEntry{FolderRole::trash, "trash"_L1, "trash"_L1},
    RoleEntry{FolderRole::spam, "spam"_L1, "exclamationmark.shield"_L1},
    RoleEntry{FolderRole::archive, "archive"_L1, "archivebox"_L1},
    RoleEntry{FolderRole::starred, "starred"_L1, "star"_L1},
    RoleEntry{FolderRole::important, "important"_L1, "exclamationmark.circle"_L1},
    RoleEntry{FolderRole::folder, "folder"_L1, "folder"_L1},
};

/// In the order of the sidebar.
constexpr std::array systemRoles{FolderRole::inbox, FolderRole::sent,    FolderRole::drafts,
                                 FolderRole::spam,  FolderRole::archive, FolderRole::trash};

/// The words that a request to navigate may use for a role.
constexpr std::array roleNames{std::pair{"INBOX"_L1, FolderRole::inbox},     std::pair{"SENT"_L1, FolderRole::sent},
                               std::pair{"DRAFTS"_L1, FolderRole::drafts},   std::pair{"JUNK"_L1, FolderRole::spam},
                               std::pair{"ARCHIVE"_L1, FolderRole::archive}, std::pair{"TRASH"_L1, FolderRole::trash}};

template <typename Condition>
std::optional<MailFolder> firstFolder(const std::vector<MailFolder> &folders, Condition condition) {
    const auto folder = std::find_if(folders.begin(), folders.end(), condition);
    return folder == folders.end() ? std::nullopt : std::optional(*folder);
}

bool hasSystemRole(const MailFolder &folder) {
    const auto role = folderRole(folder.type);
    return role && std::find(systemRoles.begin(), systemRoles.end(), *role) != systemRoles.end();
}

std::optional<MailFolder> folderForRoleName(const std::vector<MailFolder> &folders, FolderRole role) {
    auto folder = firstFolderWithRole(folders, role);
    if (!folder && role == FolderRole::inbox)
        folder =
            firstFolder(folders, [](const MailFolder &candidate) { return candidate.path.toUpper() == "INBOX"_L1; });
    return folder;
}

} // namespace

std::optional<FolderRole> folderRole(const std::optional<QString> &type) {
    for (const auto &entry : roles)
        if (type.value_or(u"folder"_s) == entry.type)
            return entry.role;
    return std::nullopt;
}

QString folderIcon(const MailFolder &folder) {
    const auto role = folderRole(folder.type).value_or(FolderRole::folder);
    return std::find_if(roles.begin(), roles.end(), [&](const RoleEntry &entry) { return entry.role == role; })->icon;
}

QString displayName(const MailFolder &folder) {
    return folderRole(folder.type) == FolderRole::inbox ? u"Inbox"_s : folder.name;
}

qint64 unreadCount(const MailFolder &folder) {
    const bool isInbox = folderRole(folder.type) == FolderRole::inbox;
    const auto count = isInbox ? UserDefaults::standard().integer(u"badgeCount"_s) : folder.unseen;
    return std::max<qint64>(0, count.value_or(0));
}

const MailFolder &favoritesFolder() {
    static const MailFolder folder{.path = u"__favorites"_s, .name = u"Favorites"_s, .type = u"starred"_s};
    return folder;
}

QString requestFolder(const QString &path) {
    return path == favoritesFolder().path ? u"INBOX"_s : path;
}

std::optional<MailFolder> selectedFolder(const std::vector<MailFolder> &folders, const QString &path) {
    if (path == favoritesFolder().path)
        return favoritesFolder();
    return firstFolder(folders, [&](const MailFolder &folder) { return folder.path == path; });
}

std::optional<MailFolder> firstFolderWithRole(const std::vector<MailFolder> &folders, FolderRole role) {
    return firstFolder(folders, [&](const MailFolder &folder) { return folderRole(folder.type) == role; });
}

std::optional<MailFolder> folderNamed(const std::vector<MailFolder> &folders, const QString &text) {
    for (const auto &[name, role] : roleNames)
        if (text.toUpper() == name)
            return folderForRoleName(folders, role);
    return firstFolder(folders, [&](const MailFolder &folder) { return folder.path == text || folder.name == text; });
}

SidebarFolders sidebarFolders(const std::vector<MailFolder> &folders) {
    SidebarFolders groups;
    for (const auto role : systemRoles)
        if (auto folder = firstFolderWithRole(folders, role))
            groups.system.push_back(std::move(*folder));
    const auto isSystemPath = [&](const QString &path) {
        return std::any_of(groups.system.begin(), groups.system.end(),
                           [&](const MailFolder &folder) { return folder.path == path; });
    };
    for (const auto &folder : folders)
        if (!hasSystemRole(folder) && !isSystemPath(folder.path))
            groups.custom.push_back(folder);
    return groups;
}
