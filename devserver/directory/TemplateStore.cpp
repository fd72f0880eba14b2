#include "directory/TemplateStore.h"

#include "accounts/Secrets.h"

namespace {

constexpr const char *schema = R"(
CREATE TABLE IF NOT EXISTS template (
    number INTEGER PRIMARY KEY,
    id TEXT NOT NULL UNIQUE,
    account_id TEXT NOT NULL,
    name TEXT NOT NULL,
    subject TEXT NOT NULL,
    body TEXT NOT NULL
);
)";

} // namespace

TemplateStore::TemplateStore(const std::filesystem::path &file)
    : m_database(file) {
    m_database.execute(schema);
}

std::vector<MailTemplate> TemplateStore::list(const std::string &accountID) {
    const std::lock_guard lock(m_mutex);
    std::vector<MailTemplate> templates;
    auto row = m_database.query("SELECT id, name, subject, body FROM template WHERE account_id = ? ORDER BY number",
                                accountID);
    while (row.step())
        templates.push_back({row.text(0), row.text(1), row.text(2), row.text(3)});
    return templates;
}

void TemplateStore::add(const std::string &accountID, const std::string &name, const std::string &subject,
                        const std::string &body) {
    const std::lock_guard lock(m_mutex);
    m_database.run("INSERT INTO template (id, account_id, name, subject, body) VALUES (?, ?, ?, ?, ?)", randomHex(12),
                   accountID, name, subject, body);
}

bool TemplateStore::remove(const std::string &accountID, const std::string &id) {
    const std::lock_guard lock(m_mutex);
    return m_database.run("DELETE FROM template WHERE account_id = ? AND id = ?", accountID, id) > 0;
}
