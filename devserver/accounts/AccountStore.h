#pragma once

#include "accounts/Account.h"
#include "storage/SQLiteDatabase.h"

#include <mutex>
#include <optional>
#include <vector>

struct NewAccount {
    std::string username;
    std::string password;
    std::string email;
    std::string fullName;
    bool isAdministrator = false;
    nlohmann::json settings = nlohmann::json::object();
    /// Further addresses whose mail is the account's.
    std::vector<std::string> aliases = {};
};

/// Accounts and their sessions. Safe from any thread. Tokens and passwords are stored as hashes only.
class AccountStore {
public:
    explicit AccountStore(const std::filesystem::path &file);

    /// Fails with an APIError that says what is wrong with the wish.
    Account create(const NewAccount &wish);
    void setPassword(const std::string &accountID, const std::string &password);

    /// By user name, mail address or alias, whatever the letter case.
    std::optional<Account> find(const std::string &name);
    std::optional<Account> authenticate(const std::string &name, const std::string &password);
    std::vector<Account> all();
    /// What the account may write from: its own address first, then its aliases.
    std::vector<std::string> addressesOf(const Account &account);

    /// Starts a session and returns its token.
    std::string startSession(const std::string &accountID, std::chrono::seconds lifetime);
    std::optional<Account> accountOfSession(const std::string &token);
    void endSession(const std::string &token);

private:
    std::mutex m_mutex;
    SQLiteDatabase m_database;
};
