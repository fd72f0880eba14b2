#pragma once

#include "storage/SQLiteDatabase.h"

#include <mutex>
#include <vector>

struct MailContact {
    std::string id;
    std::string email;
    std::string name;
    /// How many messages went there.
    std::int64_t frequency = 0;
    /// "manual" when somebody entered it, "sent" when it came from a sent message.
    std::string source;
};

/// The address books of all accounts, in which an address stands once whatever its letter case. Safe from any thread.
class ContactStore {
public:
    explicit ContactStore(const std::filesystem::path &file);

    /// Whom the account writes to most, first.
    std::vector<MailContact> list(const std::string &accountID);
    /// An address that is there already takes the name, if one is given.
    void add(const std::string &accountID, const std::string &email, const std::string &name);
    /// Counts a message that went to this address. A name that somebody entered stays.
    void noteUse(const std::string &accountID, const std::string &email, const std::string &name,
                 std::int64_t times = 1);
    /// Fails with an APIError when there is no such contact, or another one has the address.
    void update(const std::string &accountID, const std::string &id, const std::string &email, const std::string &name);
    /// Returns whether there was such a contact.
    bool remove(const std::string &accountID, const std::string &id);

private:
    std::mutex m_mutex;
    SQLiteDatabase m_database;
};
