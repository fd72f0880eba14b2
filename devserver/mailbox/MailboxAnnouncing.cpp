#include "mailbox/Mailbox.h"
#include "mailbox/MailboxJSON.h"

#include <algorithm>

namespace {
constexpr std::size_t latestShown = 5;
}

void Mailbox::filesChanged(const std::set<std::filesystem::path> &directories, bool treeChanged) {
    const Lock lock(m_mutex);
    if (treeChanged) {
        auto changes = syncAll();
        dropBlocked(changes);
        announce(changes);
        announceFolders();
        return;
    }
    std::vector<FolderChanges> changes;
    for (const auto &[path, directory] : m_tree.folders()) {
        if (directories.contains(directory))
            changes.push_back(syncFolder(m_index, path, directory));
    }
    separateMovesFromDeliveries(changes);
    dropBlocked(changes);
    announce(changes);
}

void Mailbox::syncAndAnnounce(const std::string &folder) {
    std::vector<FolderChanges> changes{syncFolder(m_index, folder, directory(folder))};
    dropBlocked(changes);
    announce(changes);
}

std::vector<FolderChanges> Mailbox::syncAll() {
    forgetMissingFolders();
    std::vector<FolderChanges> changes;
    for (const auto &[path, directory] : m_tree.folders())
        changes.push_back(syncFolder(m_index, path, directory));
    separateMovesFromDeliveries(changes);
    return changes;
}

void Mailbox::forgetMissingFolders() {
    const auto present = m_tree.folders();
    for (const auto &path : m_index.folderPaths()) {
        if (!present.contains(path))
            m_index.removeFolder(path);
    }
}

void Mailbox::dropBlocked(std::vector<FolderChanges> &changes) {
    for (auto &folder : changes)
        std::erase_if(folder.delivered, [&](std::int64_t uid) { return dropIfBlocked(folder.folder, uid); });
}

bool Mailbox::dropIfBlocked(const std::string &folder, std::int64_t uid) {
    const auto id = m_index.folder(folder).id;
    const auto message = m_index.find(id, uid);
    if (!message || !m_blocked.blocks(m_accountID, message->from, message->subject))
        return false;
    std::filesystem::remove(fileOf(folder, *message));
    m_index.erase(id, uid);
    return true;
}

void Mailbox::announce(const std::vector<FolderChanges> &changes) {
    bool anything = false;
    for (const auto &folder : changes) {
        if (!folder.empty())
            announceFolder(folder);
        anything |= !folder.empty();
    }
    if (anything)
        announceFolders();
}

void Mailbox::announceFolder(const FolderChanges &changes) {
    publishMessagesChanged(changes.folder, changes.removed, "removed");
    publishMessagesChanged(changes.folder, changes.seen, "seen");
    publishMessagesChanged(changes.folder, changes.flagsChanged, "");
    publishMessagesChanged(changes.folder, changes.arrived, "");
    m_events.publish(m_accountID, "mailbox_state", stateRecord(state(changes.folder), m_accountID));
    if (changes.delivered.empty())
        return;
    const auto folder = m_index.folder(changes.folder).id;
    auto latest = nlohmann::json::array();
    for (auto uid = changes.delivered.rbegin(); uid != changes.delivered.rend() && latest.size() < latestShown; ++uid) {
        auto record = summaryRecord(m_index.find(folder, *uid).value());
        record["folder"] = changes.folder;
        latest.push_back(std::move(record));
    }
    m_events.publish(m_accountID, "new_emails", {{"count", changes.delivered.size()}, {"latest", latest}});
}

void Mailbox::announceFolders() {
    m_events.publish(m_accountID, "folders_updated", {{"folders", folderRecords(folders())}});
}

void Mailbox::publishMessagesChanged(const std::string &folder, const std::vector<std::int64_t> &uids,
                                     const char *what) {
    if (uids.empty())
        return;
    m_events.publish(m_accountID, "emails_changed",
                     {{"folder", folder},
                      {"uids", uids},
                      {"seen", std::string_view(what) == "seen"},
                      {"removed", std::string_view(what) == "removed"}});
}
