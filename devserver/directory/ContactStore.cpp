#include "directory/ContactStore.h"

#include "accounts/Secrets.h"
#include "http/APIError.h"

namespace {

constexpr const char *schema = R"(
CREATE TABLE IF NOT EXISTS contact (
    id TEXT PRIMARY KEY,
    account_id TEXT NOT NULL,
    email TEXT NOT NULL COLLATE NOCASE,
    name TEXT NOT NULL,
    frequency INTEGER NOT NULL,
    source TEXT NOT NULL,
    UNIQUE (account_id, email)
);
)";

} // namespace

ContactStore::ContactStore(const std::filesystem::path &file)
    : m_database(file) {
    m_database.execute(schema);
}

std::vector<MailContact> ContactStore::list(const std::string &accountID) {
    const std::lock_guard lock(m_mutex);
    std::vector<MailContact> contacts;
    auto row = m_database.query("SELECT id, email, name, frequency, source FROM contact WHERE account_id = ? "
                                "ORDER BY frequency DESC, CASE name WHEN '' THEN email ELSE name END COLLATE NOCASE",
                                accountID);
    while (row.step())
        contacts.push_back({row.text(0), row.text(1), row.text(2), row.integer(3), row.text(4)});
    return contacts;
}

void ContactStore::add(const std::string &accountID, const std::string &email, const std::string &name) {
    const std::lock_guard lock(m_mutex);
    m_database.run("INSERT INTO contact (id, account_id, email, name, frequency, source) VALUES (?, ?, ?, ?, 0, "
                   "'manual') ON CONFLICT (account_id, email) DO UPDATE SET "
                   "name = CASE excluded.name WHEN '' THEN name ELSE excluded.name END",
                   randomHex(12), accountID, email, name);
}

void ContactStore::noteUse(const std::string &accountID, const std::string &email, const std::string &name,
                           std::int64_t times) {
    const std::lock_guard lock(m_mutex);
    m_database.run("INSERT INTO contact (id, account_id, email, name, frequency, source) VALUES (?, ?, ?, ?, ?, "
                   "'sent') ON CONFLICT (account_id, email) DO UPDATE SET frequency = frequency + excluded.frequency, "
                   "name = CASE name WHEN '' THEN excluded.name ELSE name END",
                   randomHex(12), accountID, email, name, times);
}

void ContactStore::update(const std::string &accountID, const std::string &id, const std::string &email,
                          const std::string &name) {
    const std::lock_guard lock(m_mutex);
    auto other =
        m_database.query("SELECT 1 FROM contact WHERE account_id = ? AND email = ? AND id <> ?", accountID, email, id);
    if (other.step())
        throw APIError(409, "Another contact has the address " + email);
    const int changed = m_database.run("UPDATE contact SET email = ?, name = ? WHERE account_id = ? AND id = ?", email,
                                       name, accountID, id);
    if (changed == 0)
        throw APIError(404, "There is no such contact");
}

bool ContactStore::remove(const std::string &accountID, const std::string &id) {
    const std::lock_guard lock(m_mutex);
    return m_database.run("DELETE FROM contact WHERE account_id = ? AND id = ?", accountID, id) > 0;
}
