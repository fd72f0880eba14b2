#include "mailbox/MessageIndex.h"

#include "maildir/MaildirName.h"
#include "mime/TextDecoding.h"

#include <chrono>
#include <sstream>

namespace {

constexpr const char *schema = R"(
CREATE TABLE IF NOT EXISTS folder (
    id INTEGER PRIMARY KEY,
    path TEXT NOT NULL UNIQUE,
    uid_validity INTEGER NOT NULL,
    uid_next INTEGER NOT NULL DEFAULT 1,
    version INTEGER NOT NULL
);
CREATE TABLE IF NOT EXISTS message (
    folder_id INTEGER NOT NULL REFERENCES folder(id) ON DELETE CASCADE,
    uid INTEGER NOT NULL,
    base TEXT NOT NULL,
    directory TEXT NOT NULL,
    file_name TEXT NOT NULL,
    seen INTEGER NOT NULL,
    flagged INTEGER NOT NULL,
    departing INTEGER NOT NULL DEFAULT 0,
    timestamp REAL NOT NULL,
    size INTEGER NOT NULL,
    has_attachment INTEGER NOT NULL,
    subject TEXT NOT NULL,
    sender TEXT NOT NULL,
    recipient TEXT NOT NULL,
    date TEXT NOT NULL,
    message_id TEXT NOT NULL,
    in_reply_to TEXT NOT NULL,
    preview TEXT NOT NULL,
    search_text TEXT NOT NULL,
    PRIMARY KEY (folder_id, uid),
    UNIQUE (folder_id, base)
);
CREATE INDEX IF NOT EXISTS message_order ON message (folder_id, departing, timestamp DESC, uid DESC);
CREATE INDEX IF NOT EXISTS message_unseen ON message (folder_id, departing, seen, uid);
CREATE TABLE IF NOT EXISTS last_uid_validity (value INTEGER NOT NULL);
INSERT INTO last_uid_validity SELECT 0 WHERE NOT EXISTS (SELECT 1 FROM last_uid_validity);
UPDATE message SET departing = 0 WHERE departing <> 0;
)";

constexpr const char *summaryColumns = "uid, subject, sender, recipient, date, timestamp, size, has_attachment, "
                                       "message_id, in_reply_to, preview, directory, file_name";

MessageSummary readSummary(const SQLiteStatement &row) {
    return {row.integer(0),
            row.text(1),
            row.text(2),
            row.text(3),
            row.text(4),
            row.real(5),
            row.integer(6),
            row.integer(7) != 0,
            row.text(8),
            row.text(9),
            row.text(10),
            {row.text(11), row.text(12)},
            {}};
}

std::int64_t millisecondsSinceEpoch() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

std::vector<std::string> words(const std::string &text) {
    std::vector<std::string> words;
    std::istringstream stream(text);
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

std::string conditions(const ListQuery &query, std::size_t wordCount) {
    std::string sql = " FROM message WHERE folder_id = ? AND departing = 0";
    sql += query.onlyWithAttachment ? " AND has_attachment = 1" : "";
    sql += query.onlyFlagged ? " AND flagged = 1" : "";
    sql += query.from ? " AND timestamp >= ?" : "";
    sql += query.until ? " AND timestamp < ?" : "";
    for (std::size_t i = 0; i < wordCount; ++i)
        sql += " AND instr(search_text, ?) > 0";
    return sql;
}

int bindConditions(SQLiteStatement &statement, std::int64_t folder, const ListQuery &query,
                   const std::vector<std::string> &wanted) {
    int position = 0;
    statement.bind(++position, folder);
    if (query.from)
        statement.bind(++position, *query.from);
    if (query.until)
        statement.bind(++position, *query.until);
    for (const auto &word : wanted)
        statement.bind(++position, std::string_view(word));
    return position;
}

} // namespace

MessageIndex::MessageIndex(const std::filesystem::path &file)
    : m_database(file) {
    m_database.execute(schema);
}

IndexedFolder MessageIndex::folder(const std::string &path) {
    constexpr auto lookup = "SELECT id, uid_validity, uid_next, version FROM folder WHERE path = ?";
    auto row = m_database.query(lookup, path);
    if (!row.step()) {
        const auto now = millisecondsSinceEpoch();
        m_database.run("UPDATE last_uid_validity SET value = max(value + 1, ?)", now / 1000);
        m_database.run("INSERT INTO folder (path, uid_validity, version) SELECT ?, value, ? FROM last_uid_validity",
                       path, now);
        row = m_database.query(lookup, path);
        row.step();
    }
    return {row.integer(0), row.integer(1), row.integer(2), row.integer(3)};
}

std::vector<std::string> MessageIndex::folderPaths() {
    std::vector<std::string> paths;
    for (auto row = m_database.query("SELECT path FROM folder"); row.step();)
        paths.push_back(row.text(0));
    return paths;
}

void MessageIndex::renameFolder(const std::string &from, const std::string &to) {
    m_database.run("DELETE FROM folder WHERE path = ?", to);
    m_database.run("UPDATE folder SET path = ? WHERE path = ?", to, from);
}

void MessageIndex::removeFolder(const std::string &path) {
    m_database.run("DELETE FROM folder WHERE path = ?", path);
}

void MessageIndex::bumpVersion(std::int64_t folder) {
    m_database.run("UPDATE folder SET version = max(version + 1, ?) WHERE id = ?", millisecondsSinceEpoch(), folder);
}

std::map<std::string, MessageIndex::Location> MessageIndex::locations(std::int64_t folder) {
    std::map<std::string, Location> locations;
    auto row = m_database.query("SELECT base, uid, directory, file_name FROM message WHERE folder_id = ?", folder);
    while (row.step())
        locations.insert_or_assign(row.text(0), Location{row.integer(1), {row.text(2), row.text(3)}});
    return locations;
}

std::int64_t MessageIndex::takeUID(std::int64_t folder) {
    auto row =
        m_database.query("UPDATE folder SET uid_next = uid_next + 1 WHERE id = ? RETURNING uid_next - 1", folder);
    row.step();
    const auto uid = row.integer(0);
    while (row.step()) {
    }
    return uid;
}

std::int64_t MessageIndex::insert(std::int64_t folder, const MessageSummary &message) {
    const auto uid = takeUID(folder);
    const MaildirName name(message.file.fileName);
    m_database.run("INSERT INTO message (folder_id, uid, base, directory, file_name, seen, flagged, timestamp, size, "
                   "has_attachment, subject, sender, recipient, date, message_id, in_reply_to, preview, search_text) "
                   "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
                   folder, uid, name.base, message.file.directory, message.file.fileName, name.has('S'), name.has('F'),
                   message.timestamp, message.size, message.hasAttachment, message.subject, message.from, message.to,
                   message.date, message.messageID, message.inReplyTo, message.preview, message.searchText);
    return uid;
}

std::int64_t MessageIndex::transfer(std::int64_t from, std::int64_t uid, std::int64_t to, const MaildirEntry &file) {
    const auto newUID = takeUID(to);
    m_database.run("UPDATE message SET folder_id = ?, uid = ?, base = ?, departing = 0 WHERE folder_id = ? AND uid = ?",
                   to, newUID, MaildirName(file.fileName).base, from, uid);
    setFile(to, newUID, file);
    return newUID;
}

void MessageIndex::setFile(std::int64_t folder, std::int64_t uid, const MaildirEntry &file) {
    const MaildirName name(file.fileName);
    m_database.run("UPDATE message SET directory = ?, file_name = ?, seen = ?, flagged = ? "
                   "WHERE folder_id = ? AND uid = ?",
                   file.directory, file.fileName, name.has('S'), name.has('F'), folder, uid);
}

void MessageIndex::erase(std::int64_t folder, std::int64_t uid) {
    m_database.run("DELETE FROM message WHERE folder_id = ? AND uid = ?", folder, uid);
}

void MessageIndex::setDeparting(std::int64_t folder, std::int64_t uid, bool departing) {
    m_database.run("UPDATE message SET departing = ? WHERE folder_id = ? AND uid = ?", departing, folder, uid);
}

std::optional<MessageSummary> MessageIndex::find(std::int64_t folder, std::int64_t uid) {
    auto row = m_database.query(
        std::string("SELECT ") + summaryColumns + " FROM message WHERE folder_id = ? AND uid = ?", folder, uid);
    return row.step() ? std::optional(readSummary(row)) : std::nullopt;
}

bool MessageIndex::hasBase(std::int64_t folder, const std::string &base) {
    return m_database.query("SELECT 1 FROM message WHERE folder_id = ? AND base = ?", folder, base).step();
}

ListPage MessageIndex::list(std::int64_t folder, const ListQuery &query) {
    const auto wanted = words(foldCase(query.search));
    const auto where = conditions(query, wanted.size());
    ListPage page;
    auto count = m_database.query("SELECT count(*)" + where);
    bindConditions(count, folder, query, wanted);
    count.step();
    page.total = count.integer(0);
    auto row = m_database.query(std::string("SELECT ") + summaryColumns + where +
                                " ORDER BY timestamp DESC, uid DESC LIMIT ? OFFSET ?");
    const int position = bindConditions(row, folder, query, wanted);
    row.bind(position + 1, query.perPage);
    row.bind(position + 2, (query.page - 1) * query.perPage);
    while (row.step())
        page.messages.push_back(readSummary(row));
    return page;
}

FolderCounts MessageIndex::counts(std::int64_t folder) {
    auto row = m_database.query("SELECT count(*), count(*) FILTER (WHERE seen = 0) FROM message "
                                "WHERE folder_id = ? AND departing = 0",
                                folder);
    row.step();
    return {row.integer(0), row.integer(1)};
}

std::vector<std::int64_t> MessageIndex::unreadUIDs(std::int64_t folder) {
    std::vector<std::int64_t> uids;
    auto row = m_database.query(
        "SELECT uid FROM message WHERE folder_id = ? AND departing = 0 AND seen = 0 ORDER BY uid", folder);
    while (row.step())
        uids.push_back(row.integer(0));
    return uids;
}
