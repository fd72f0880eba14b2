#pragma once

#include "storage/SQLiteDatabase.h"

#include <mutex>
#include <vector>

struct MailTemplate {
    std::string id;
    std::string name;
    std::string subject;
    std::string body;
};

/// The templates of all accounts. Safe from any thread.
class TemplateStore {
public:
    explicit TemplateStore(const std::filesystem::path &file);

    /// The oldest first.
    std::vector<MailTemplate> list(const std::string &accountID);
    void add(const std::string &accountID, const std::string &name, const std::string &subject,
             const std::string &body);
    /// Returns whether there was such a template.
    bool remove(const std::string &accountID, const std::string &id);

private:
    std::mutex m_mutex;
    SQLiteDatabase m_database;
};
