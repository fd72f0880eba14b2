#pragma once

#include "maildir/MaildirTree.h"
#include "storage/SQLiteDatabase.h"

#include <cstdint>
#include <optional>
#include <set>

/// What a list shows of one message.
struct MessageSummary {
    std::int64_t uid = 0;
    std::string subject, from, to;
    std::string date;
    /// Seconds since 1970.
    double timestamp = 0;
    std::int64_t size = 0;
    bool hasAttachment = false;
    std::string messageID, inReplyTo;
    std::string preview;
    MaildirEntry file;
    /// What a search looks through, without letter case; written, never read back.
    std::string searchText;
};

struct IndexedFolder {
    std::int64_t id = 0;
    std::int64_t uidValidity = 0;
    std::int64_t uidNext = 1;
    /// Grows with every change of the folder; milliseconds since 1970 or more.
    std::int64_t version = 0;
};

struct FolderCounts {
    std::int64_t total = 0;
    std::int64_t unseen = 0;
};

struct ListQuery {
    std::int64_t page = 1;
    std::int64_t perPage = 50;
    std::string search;
    bool onlyWithAttachment = false;
    bool onlyFlagged = false;
    /// Seconds since 1970, from inclusive to exclusive.
    std::optional<double> from, until;

    bool isPlain() const { return search.empty() && !onlyWithAttachment && !onlyFlagged && !from && !until; }
};

struct ListPage {
    std::vector<MessageSummary> messages;
    std::int64_t total = 0;
};

/// The numbers and summaries of all messages of an account. The Maildir is the truth, this is its index: it keeps each
/// base name's uid and spares the parsing. Its user serialises the calls.
class MessageIndex {
public:
    explicit MessageIndex(const std::filesystem::path &file);

    SQLiteDatabase &database() { return m_database; }

    /// Made when it is not known yet.
    IndexedFolder folder(const std::string &path);
    std::vector<std::string> folderPaths();
    void renameFolder(const std::string &from, const std::string &to);
    void removeFolder(const std::string &path);
    void bumpVersion(std::int64_t folder);

    struct Location {
        std::int64_t uid = 0;
        MaildirEntry file;
    };
    /// By base name.
    std::map<std::string, Location> locations(std::int64_t folder);

    /// Takes the folder's next uid and returns it.
    std::int64_t insert(std::int64_t folder, const MessageSummary &message);
    /// Moves a message to another folder, under a new uid, which it returns.
    std::int64_t transfer(std::int64_t from, std::int64_t uid, std::int64_t to, const MaildirEntry &file);
    void setFile(std::int64_t folder, std::int64_t uid, const MaildirEntry &file);
    void erase(std::int64_t folder, std::int64_t uid);
    /// A departing message is no longer listed nor counted, though its file has yet to go.
    void setDeparting(std::int64_t folder, std::int64_t uid, bool departing);

    std::optional<MessageSummary> find(std::int64_t folder, std::int64_t uid);
    bool hasBase(std::int64_t folder, const std::string &base);
    /// Newest first.
    ListPage list(std::int64_t folder, const ListQuery &query);
    FolderCounts counts(std::int64_t folder);
    std::vector<std::int64_t> unreadUIDs(std::int64_t folder);

private:
    std::int64_t takeUID(std::int64_t folder);

    SQLiteDatabase m_database;
};
