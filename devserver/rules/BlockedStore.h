#pragma once

#include "rules/BlockedRule.h"
#include "storage/SQLiteDatabase.h"

#include <mutex>
#include <vector>

/// The blocked rules of all accounts. Safe from any thread.
class BlockedStore {
public:
    explicit BlockedStore(const std::filesystem::path &file);

    /// The oldest first.
    std::vector<BlockedRule> list(const std::string &accountID);
    /// A rule that is there already is not added again.
    void add(const std::string &accountID, const std::string &type, const std::string &pattern);
    /// Both return whether there was such a rule.
    bool remove(const std::string &accountID, const std::string &id);
    bool remove(const std::string &accountID, const std::string &type, const std::string &pattern);

    bool blocks(const std::string &accountID, const std::string &from, const std::string &subject);

private:
    std::mutex m_mutex;
    SQLiteDatabase m_database;
};
