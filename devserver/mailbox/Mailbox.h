#pragma once

#include "http/EventHub.h"
#include "mailbox/FolderSync.h"
#include "maildir/MaildirDelivery.h"
#include "maildir/MaildirWatcher.h"
#include "rules/BlockedStore.h"

#include <memory>
#include <mutex>

/// A folder as the client's list shows it.
struct MailboxFolder {
    std::string path;
    std::string role;
    FolderCounts counts;
};

struct FolderState {
    std::string folder;
    FolderCounts counts;
    std::vector<std::int64_t> unreadUIDs;
    IndexedFolder numbers;
};

/// The mail of one account: its Maildir, the index over it, and the announcing of every change, whoever made it.
/// Safe from any thread. A folder or message that is not there fails with an APIError of status 404.
class Mailbox {
public:
    /// `roles` maps a role such as "trash" to the folder path that the account wants for it. `indexFile` lies outside
    /// of the Maildir. Reads what is there before it returns.
    Mailbox(std::string accountID, std::map<std::string, std::string> roles, const std::filesystem::path &maildir,
            const std::filesystem::path &indexFile, BlockedStore &blocked, EventHub &events);
    ~Mailbox();

    /// Starts announcing what other programs do to the Maildir.
    void watch();

    const std::string &accountID() const { return m_accountID; }

    std::vector<MailboxFolder> folders();
    FolderState state(const std::string &folder);
    void createFolder(const std::string &path);
    void renameFolder(const std::string &from, const std::string &to);
    void removeFolder(const std::string &path);

    ListPage list(const std::string &folder, const ListQuery &query);
    /// The page that list() last gave for these numbers without a search or filter; may be empty or outdated.
    ListPage cachedList(const std::string &folder, std::int64_t page, std::int64_t perPage);
    MessageSummary summary(const std::string &folder, std::int64_t uid);
    /// The whole message as it lies on disk.
    std::string bytes(const std::string &folder, std::int64_t uid);

    /// `flag` is a Maildir flag letter. Unknown uids are passed over.
    void setFlag(const std::string &folder, const std::vector<std::int64_t> &uids, char flag, bool on);
    /// Passes unknown uids over and returns how many messages moved. A missing target that is the account's folder of
    /// some role is made.
    int move(const std::string &from, const std::vector<std::int64_t> &uids, const std::string &to);
    /// Removes for good.
    int remove(const std::string &folder, const std::vector<std::int64_t> &uids);

    /// Takes messages out of sight that a job is going to move or remove; fails when a folder is missing.
    void beginDeparture(const std::string &folder, const std::vector<std::int64_t> &uids);
    /// Brings back those that are still there.
    void endDeparture(const std::string &folder, const std::vector<std::int64_t> &uids);

    /// Fails unless mail can be moved there.
    void requireTarget(const std::string &path);

    /// The path of the folder that has this role; made when there is none.
    std::string provideFolder(const std::string &role);
    /// Writes a message for a folder without showing it yet.
    MaildirDelivery prepareDelivery(const std::string &folder, const std::string &bytes);
    /// Shows and announces it, with Maildir flag letters.
    void finishDelivery(const std::string &folder, MaildirDelivery &delivery, const std::string &flags);

private:
    using Lock = std::lock_guard<std::recursive_mutex>;

    std::filesystem::path directory(const std::string &folder) const;
    MessageSummary found(const std::string &folder, std::int64_t uid);
    std::filesystem::path fileOf(const std::string &folder, const MessageSummary &message) const;

    template <typename Step>
    FolderChanges change(const std::string &folder, const std::vector<std::int64_t> &uids, Step step);
    MaildirEntry freshTarget(std::int64_t folder, const std::string &fileName);

    void filesChanged(const std::set<std::filesystem::path> &directories, bool treeChanged);
    std::vector<FolderChanges> syncAll();
    void syncAndAnnounce(const std::string &folder);
    void forgetMissingFolders();

    /// Removes what has just been delivered and is not wanted, as if it had never come.
    void dropBlocked(std::vector<FolderChanges> &changes);
    bool dropIfBlocked(const std::string &folder, std::int64_t uid);

    void announce(const std::vector<FolderChanges> &changes);
    void announceFolder(const FolderChanges &changes);
    void announceFolders();
    void publishMessagesChanged(const std::string &folder, const std::vector<std::int64_t> &uids, const char *what);

    std::recursive_mutex m_mutex;
    std::string m_accountID;
    std::map<std::string, std::string> m_roles;
    MaildirTree m_tree;
    MessageIndex m_index;
    BlockedStore &m_blocked;
    EventHub &m_events;
    std::map<std::string, ListPage> m_lastLists;
    std::unique_ptr<MaildirWatcher> m_watcher;
};
