#include "mailbox/Mailbox.h"

#include "http/APIError.h"
#include "mailbox/FolderRoles.h"
#include "mailbox/MessageReading.h"
#include "maildir/MaildirName.h"

#include <algorithm>

namespace {

/// How often an operation looks again for a message that another program renamed under its hands.
constexpr int attempts = 3;

std::string listKey(const std::string &folder, std::int64_t page, std::int64_t perPage) {
    return folder + '\n' + std::to_string(page) + '\n' + std::to_string(perPage);
}

} // namespace

Mailbox::Mailbox(std::string accountID, std::map<std::string, std::string> roles, const std::filesystem::path &maildir,
                 const std::filesystem::path &indexFile, BlockedStore &blocked, EventHub &events)
    : m_accountID(std::move(accountID))
    , m_roles(std::move(roles))
    , m_tree(maildir)
    , m_index(indexFile)
    , m_blocked(blocked)
    , m_events(events) {
    // Under a new index old mail looks like a delivery, but only that which came since the last run is one.
    const bool isKnown = !m_index.folderPaths().empty();
    auto changes = syncAll();
    if (isKnown)
        dropBlocked(changes);
}

Mailbox::~Mailbox() = default;

void Mailbox::watch() {
    m_watcher = std::make_unique<MaildirWatcher>(
        m_tree.root(), [this](const auto &folders, bool treeChanged) { filesChanged(folders, treeChanged); });
    // What came between the first reading and the watch.
    const Lock lock(m_mutex);
    auto changes = syncAll();
    dropBlocked(changes);
    announce(changes);
}

std::filesystem::path Mailbox::directory(const std::string &folder) const {
    const auto found = m_tree.find(folder);
    if (!found)
        throw APIError(404, "There is no folder \"" + folder + "\"");
    return *found;
}

std::vector<MailboxFolder> Mailbox::folders() {
    const Lock lock(m_mutex);
    std::vector<std::string> paths{"INBOX"};
    for (const auto &[path, place] : m_tree.folders()) {
        if (path != "INBOX")
            paths.push_back(path);
    }
    const auto roles = folderRoles(paths, m_roles);
    std::vector<MailboxFolder> folders;
    for (const auto &path : paths)
        folders.push_back({path, roles.at(path), m_index.counts(m_index.folder(path).id)});
    return folders;
}

FolderState Mailbox::state(const std::string &folder) {
    const Lock lock(m_mutex);
    directory(folder);
    const auto numbers = m_index.folder(folder);
    return {folder, m_index.counts(numbers.id), m_index.unreadUIDs(numbers.id), numbers};
}

void Mailbox::createFolder(const std::string &path) {
    const Lock lock(m_mutex);
    m_tree.create(path);
    announceFolders();
}

void Mailbox::renameFolder(const std::string &from, const std::string &to) {
    const Lock lock(m_mutex);
    directory(from);
    if (from == "INBOX")
        throw APIError(400, "The inbox cannot be renamed");
    const auto before = m_tree.folders();
    m_tree.rename(from, to);
    for (const auto &[path, place] : before) {
        if (path == from || path.starts_with(from + "/"))
            m_index.renameFolder(path, to + path.substr(from.size()));
    }
    announceFolders();
}

void Mailbox::removeFolder(const std::string &path) {
    const Lock lock(m_mutex);
    directory(path);
    if (path == "INBOX")
        throw APIError(400, "The inbox cannot be deleted");
    m_tree.remove(path);
    forgetMissingFolders();
    announceFolders();
}

ListPage Mailbox::list(const std::string &folder, const ListQuery &query) {
    const Lock lock(m_mutex);
    directory(folder);
    auto page = m_index.list(m_index.folder(folder).id, query);
    if (query.isPlain())
        m_lastLists[listKey(folder, query.page, query.perPage)] = page;
    return page;
}

ListPage Mailbox::cachedList(const std::string &folder, std::int64_t page, std::int64_t perPage) {
    const Lock lock(m_mutex);
    const auto found = m_lastLists.find(listKey(folder, page, perPage));
    return found == m_lastLists.end() ? ListPage{} : found->second;
}

MessageSummary Mailbox::found(const std::string &folder, std::int64_t uid) {
    directory(folder);
    auto message = m_index.find(m_index.folder(folder).id, uid);
    if (!message)
        throw APIError(404, "There is no message " + std::to_string(uid) + " in \"" + folder + "\"");
    return *message;
}

MessageSummary Mailbox::summary(const std::string &folder, std::int64_t uid) {
    const Lock lock(m_mutex);
    return found(folder, uid);
}

std::filesystem::path Mailbox::fileOf(const std::string &folder, const MessageSummary &message) const {
    return directory(folder) / message.file.directory / message.file.fileName;
}

std::string Mailbox::bytes(const std::string &folder, std::int64_t uid) {
    const Lock lock(m_mutex);
    for (int i = 0; i < attempts; ++i) {
        if (auto bytes = readWholeFile(fileOf(folder, found(folder, uid))))
            return std::move(*bytes);
        syncAndAnnounce(folder);
    }
    throw APIError(404, "The message is gone");
}

/// Runs `step` for each message until its file operation succeeds; the index follows what `step` did.
template <typename Step>
FolderChanges Mailbox::change(const std::string &folder, const std::vector<std::int64_t> &uids, Step step) {
    FolderChanges changes;
    changes.folder = folder;
    const auto id = m_index.folder(folder).id;
    for (const auto uid : uids) {
        for (int i = 0; i < attempts; ++i) {
            const auto message = m_index.find(id, uid);
            if (!message || step(*message, changes))
                break;
            syncAndAnnounce(folder);
        }
    }
    if (!changes.empty())
        m_index.bumpVersion(id);
    return changes;
}

void Mailbox::setFlag(const std::string &folder, const std::vector<std::int64_t> &uids, char flag, bool on) {
    const Lock lock(m_mutex);
    const auto place = directory(folder);
    const auto id = m_index.folder(folder).id;
    announce({change(folder, uids, [&](const MessageSummary &message, FolderChanges &changes) {
        MaildirName name(message.file.fileName);
        const auto before = name.flags;
        name.set(flag, on);
        if (name.flags == before)
            return true;
        const MaildirEntry target{"cur", name.fileName()};
        if (!MaildirTree::moveFile(fileOf(folder, message), place / target.directory / target.fileName))
            return false;
        m_index.setFile(id, message.uid, target);
        noteFlagChange(changes, message.uid, before, name.flags);
        return true;
    })});
}

/// A base name that the target folder holds already would make two messages one.
MaildirEntry Mailbox::freshTarget(std::int64_t folder, const std::string &fileName) {
    MaildirName name(fileName);
    if (m_index.hasBase(folder, name.base))
        name.base = uniqueMaildirBase();
    return {"cur", name.fileName()};
}

int Mailbox::move(const std::string &from, const std::vector<std::int64_t> &uids, const std::string &to) {
    const Lock lock(m_mutex);
    directory(from);
    requireTarget(to);
    if (from == to)
        return 0;
    const auto place = directory(to);
    const auto source = m_index.folder(from).id;
    const auto target = m_index.folder(to).id;
    FolderChanges arrivals;
    arrivals.folder = to;
    auto departures = change(from, uids, [&](const MessageSummary &message, FolderChanges &changes) {
        const auto file = freshTarget(target, message.file.fileName);
        if (!MaildirTree::moveFile(fileOf(from, message), place / file.directory / file.fileName))
            return false;
        arrivals.arrived.push_back(m_index.transfer(source, message.uid, target, file));
        changes.removed.push_back(message.uid);
        return true;
    });
    if (!arrivals.empty())
        m_index.bumpVersion(target);
    announce({departures, arrivals});
    return static_cast<int>(departures.removed.size());
}

int Mailbox::remove(const std::string &folder, const std::vector<std::int64_t> &uids) {
    const Lock lock(m_mutex);
    directory(folder);
    const auto id = m_index.folder(folder).id;
    const auto changes = change(folder, uids, [&](const MessageSummary &message, FolderChanges &noted) {
        if (!std::filesystem::remove(fileOf(folder, message)))
            return false;
        m_index.erase(id, message.uid);
        noted.removed.push_back(message.uid);
        return true;
    });
    announce({changes});
    return static_cast<int>(changes.removed.size());
}

void Mailbox::beginDeparture(const std::string &folder, const std::vector<std::int64_t> &uids) {
    const Lock lock(m_mutex);
    directory(folder);
    const auto id = m_index.folder(folder).id;
    FolderChanges changes;
    changes.folder = folder;
    for (const auto uid : uids) {
        if (!m_index.find(id, uid))
            continue;
        m_index.setDeparting(id, uid, true);
        changes.removed.push_back(uid);
    }
    m_index.bumpVersion(id);
    announce({changes});
}

void Mailbox::endDeparture(const std::string &folder, const std::vector<std::int64_t> &uids) {
    const Lock lock(m_mutex);
    const auto id = m_index.folder(folder).id;
    FolderChanges changes;
    changes.folder = folder;
    for (const auto uid : uids) {
        if (!m_index.find(id, uid))
            continue;
        m_index.setDeparting(id, uid, false);
        changes.arrived.push_back(uid);
    }
    if (!changes.empty())
        m_index.bumpVersion(id);
    announce({changes});
}

void Mailbox::requireTarget(const std::string &path) {
    const Lock lock(m_mutex);
    if (m_tree.find(path))
        return;
    const auto isForRole = [&](const auto &role) { return role.second == path; };
    if (std::none_of(m_roles.begin(), m_roles.end(), isForRole))
        throw APIError(404, "There is no folder \"" + path + "\"");
    m_tree.create(path);
}

std::string Mailbox::provideFolder(const std::string &role) {
    const Lock lock(m_mutex);
    for (const auto &folder : folders()) {
        if (folder.role == role)
            return folder.path;
    }
    requireTarget(m_roles.at(role));
    return m_roles.at(role);
}

MaildirDelivery Mailbox::prepareDelivery(const std::string &folder, const std::string &bytes) {
    std::filesystem::path place;
    {
        const Lock lock(m_mutex);
        place = directory(folder);
    }
    // Writing a large message keeps nobody waiting.
    return {place, bytes};
}

void Mailbox::finishDelivery(const std::string &folder, MaildirDelivery &delivery, const std::string &flags) {
    const Lock lock(m_mutex);
    delivery.finish(flags);
    syncAndAnnounce(folder);
}
