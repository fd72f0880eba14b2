#include "rules/BlockedStore.h"

#include "accounts/Secrets.h"

#include <algorithm>

namespace {

constexpr const char *schema = R"(
CREATE TABLE IF NOT EXISTS blocked (
    number INTEGER PRIMARY KEY,
    id TEXT NOT NULL UNIQUE,
    account_id TEXT NOT NULL,
    type TEXT NOT NULL,
    pattern TEXT NOT NULL,
    UNIQUE (account_id, type, pattern)
);
)";

} // namespace

BlockedStore::BlockedStore(const std::filesystem::path &file)
    : m_database(file) {
    m_database.execute(schema);
}

std::vector<BlockedRule> BlockedStore::list(const std::string &accountID) {
    const std::lock_guard lock(m_mutex);
    std::vector<BlockedRule> rules;
    auto row =
        m_database.query("SELECT id, type, pattern FROM blocked WHERE account_id = ? ORDER BY number", accountID);
    while (row.step())
        rules.push_back({row.text(0), row.text(1), row.text(2)});
    return rules;
}

void BlockedStore::add(const std::string &accountID, const std::string &type, const std::string &pattern) {
    const std::lock_guard lock(m_mutex);
    m_database.run("INSERT OR IGNORE INTO blocked (id, account_id, type, pattern) VALUES (?, ?, ?, ?)", randomHex(12),
                   accountID, type, pattern);
}

bool BlockedStore::remove(const std::string &accountID, const std::string &id) {
    const std::lock_guard lock(m_mutex);
    return m_database.run("DELETE FROM blocked WHERE account_id = ? AND id = ?", accountID, id) > 0;
}

bool BlockedStore::remove(const std::string &accountID, const std::string &type, const std::string &pattern) {
    const std::lock_guard lock(m_mutex);
    return m_database.run("DELETE FROM blocked WHERE account_id = ? AND type = ? AND pattern = ?", accountID, type,
                          pattern) > 0;
}

bool BlockedStore::blocks(const std::string &accountID, const std::string &from, const std::string &subject) {
    const auto rules = list(accountID);
    return std::any_of(rules.begin(), rules.end(),
                       [&](const BlockedRule &rule) { return matches(rule, from, subject); });
}
