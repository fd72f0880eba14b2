#include "accounts/AccountStore.h"

#include "accounts/Secrets.h"
#include "http/APIError.h"

#include <chrono>
#include <regex>

namespace {

constexpr const char *schema = R"(
CREATE TABLE IF NOT EXISTS account (
    id TEXT PRIMARY KEY,
    username TEXT NOT NULL UNIQUE COLLATE NOCASE,
    email TEXT NOT NULL UNIQUE COLLATE NOCASE,
    full_name TEXT NOT NULL,
    administrator INTEGER NOT NULL,
    password_hash TEXT NOT NULL,
    settings TEXT NOT NULL DEFAULT '{}'
);
CREATE TABLE IF NOT EXISTS alias (
    number INTEGER PRIMARY KEY,
    address TEXT NOT NULL UNIQUE COLLATE NOCASE,
    account_id TEXT NOT NULL REFERENCES account(id) ON DELETE CASCADE
);
CREATE TABLE IF NOT EXISTS session (
    token_hash TEXT PRIMARY KEY,
    account_id TEXT NOT NULL REFERENCES account(id) ON DELETE CASCADE,
    expires INTEGER NOT NULL
);
)";

constexpr const char *accountColumns = "account.id, username, email, full_name, administrator, settings";

std::string select(const std::string &rest) {
    return std::string("SELECT ") + accountColumns + " FROM " + rest;
}

Account readAccount(const SQLiteStatement &row) {
    return {row.text(0), row.text(1),         row.text(2),
            row.text(3), row.integer(4) != 0, nlohmann::json::parse(row.text(5))};
}

std::optional<Account> firstAccount(SQLiteStatement row) {
    return row.step() ? std::optional(readAccount(row)) : std::nullopt;
}

std::int64_t secondsSinceEpoch() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::seconds>(now).count();
}

/// The user name becomes the name of a folder, so that it may not climb out of its place.
void checkWish(const NewAccount &wish) {
    static const std::regex username("[A-Za-z0-9][A-Za-z0-9._-]{0,63}");
    static const std::regex email(R"([^\s@<>"]+@[^\s@<>"]+)");
    if (!std::regex_match(wish.username, username))
        throw APIError(400, "User names are 1 to 64 letters, digits, dots, dashes and underscores");
    if (!std::regex_match(wish.email, email))
        throw APIError(400, "This is not a mail address: " + wish.email);
    if (wish.password.empty())
        throw APIError(400, "A password is missing");
}

} // namespace

AccountStore::AccountStore(const std::filesystem::path &file)
    : m_database(file) {
    m_database.execute(schema);
    m_database.run("DELETE FROM session WHERE expires <= ?", secondsSinceEpoch());
}

Account AccountStore::create(const NewAccount &wish) {
    checkWish(wish);
    if (find(wish.username) || find(wish.email))
        throw APIError(409, "This user name or mail address is taken");
    const Account account{randomHex(12), wish.username, wish.email, wish.fullName, wish.isAdministrator, wish.settings};
    const auto hash = hashPassword(wish.password);
    const std::lock_guard lock(m_mutex);
    const int created = m_database.run("INSERT OR IGNORE INTO account (id, username, email, full_name, administrator, "
                                       "password_hash, settings) VALUES (?, ?, ?, ?, ?, ?, ?)",
                                       account.id, account.username, account.email, account.fullName,
                                       account.isAdministrator, hash, account.settings.dump());
    if (created == 0)
        throw APIError(409, "This user name or mail address is taken");
    for (const auto &alias : wish.aliases)
        m_database.run("INSERT OR IGNORE INTO alias (address, account_id) VALUES (?, ?)", alias, account.id);
    return account;
}

void AccountStore::setPassword(const std::string &accountID, const std::string &password) {
    const auto hash = hashPassword(password);
    const std::lock_guard lock(m_mutex);
    m_database.run("UPDATE account SET password_hash = ? WHERE id = ?", hash, accountID);
}

std::optional<Account> AccountStore::find(const std::string &name) {
    const std::lock_guard lock(m_mutex);
    return firstAccount(m_database.query(select("account WHERE username = ? OR email = ? OR "
                                                "id = (SELECT account_id FROM alias WHERE address = ?)"),
                                         name, name, name));
}

std::optional<Account> AccountStore::authenticate(const std::string &name, const std::string &password) {
    auto account = find(name);
    std::string hash;
    if (account) {
        const std::lock_guard lock(m_mutex);
        auto row = m_database.query("SELECT password_hash FROM account WHERE id = ?", account->id);
        if (row.step())
            hash = row.text(0);
    }
    return passwordMatches(password, hash) ? account : std::nullopt;
}

std::vector<Account> AccountStore::all() {
    const std::lock_guard lock(m_mutex);
    std::vector<Account> accounts;
    for (auto row = m_database.query(select("account ORDER BY rowid")); row.step();)
        accounts.push_back(readAccount(row));
    return accounts;
}

std::vector<std::string> AccountStore::addressesOf(const Account &account) {
    const std::lock_guard lock(m_mutex);
    std::vector<std::string> addresses{account.email};
    auto row = m_database.query("SELECT address FROM alias WHERE account_id = ? ORDER BY number", account.id);
    while (row.step())
        addresses.push_back(row.text(0));
    return addresses;
}

std::string AccountStore::startSession(const std::string &accountID, std::chrono::seconds lifetime) {
    auto token = randomHex(32);
    const std::lock_guard lock(m_mutex);
    m_database.run("INSERT INTO session (token_hash, account_id, expires) VALUES (?, ?, ?)", sha256Hex(token),
                   accountID, secondsSinceEpoch() + lifetime.count());
    return token;
}

std::optional<Account> AccountStore::accountOfSession(const std::string &token) {
    const std::lock_guard lock(m_mutex);
    return firstAccount(m_database.query(select("account JOIN session ON session.account_id = account.id "
                                                "WHERE token_hash = ? AND expires > ?"),
                                         sha256Hex(token), secondsSinceEpoch()));
}

void AccountStore::endSession(const std::string &token) {
    const std::lock_guard lock(m_mutex);
    m_database.run("DELETE FROM session WHERE token_hash = ?", sha256Hex(token));
}
