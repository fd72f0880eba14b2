#include "jobs/JobStore.h"

#include "accounts/Secrets.h"

#include <chrono>

namespace {

constexpr const char *schema = R"(
CREATE TABLE IF NOT EXISTS job (
    number INTEGER PRIMARY KEY,
    id TEXT NOT NULL UNIQUE,
    account_id TEXT NOT NULL,
    type TEXT NOT NULL,
    status TEXT NOT NULL,
    error TEXT NOT NULL DEFAULT '',
    started_at REAL,
    completed_at REAL
);
UPDATE job SET status = 'failed', error = 'The server was stopped' WHERE status IN ('pending', 'running');
)";

double millisecondsSinceEpoch() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return static_cast<double>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

std::optional<double> optionalReal(const SQLiteStatement &row, int column) {
    return row.isNull(column) ? std::nullopt : std::optional(row.real(column));
}

} // namespace

JobStore::JobStore(const std::filesystem::path &file)
    : m_database(file) {
    m_database.execute(schema);
}

std::string JobStore::add(const std::string &accountID, const std::string &type) {
    auto id = randomHex(12);
    const std::lock_guard lock(m_mutex);
    m_database.run("INSERT INTO job (id, account_id, type, status) VALUES (?, ?, ?, 'pending')", id, accountID, type);
    return id;
}

void JobStore::setRunning(const std::string &id) {
    const std::lock_guard lock(m_mutex);
    m_database.run("UPDATE job SET status = 'running', started_at = ? WHERE id = ?", millisecondsSinceEpoch(), id);
}

void JobStore::setEnded(const std::string &id, const std::string &error) {
    const std::lock_guard lock(m_mutex);
    m_database.run("UPDATE job SET status = ?, error = ?, completed_at = ? WHERE id = ?",
                   error.empty() ? "completed" : "failed", error, millisecondsSinceEpoch(), id);
}

std::vector<JobRecord> JobStore::list(const std::string &accountID) {
    const std::lock_guard lock(m_mutex);
    std::vector<JobRecord> jobs;
    auto row = m_database.query("SELECT id, type, status, error, started_at, completed_at FROM job "
                                "WHERE account_id = ? ORDER BY number DESC LIMIT 50",
                                accountID);
    while (row.step())
        jobs.push_back(
            {row.text(0), row.text(1), row.text(2), row.text(3), optionalReal(row, 4), optionalReal(row, 5)});
    return jobs;
}

std::int64_t JobStore::count(const std::string &status) {
    const std::lock_guard lock(m_mutex);
    auto row = m_database.query("SELECT count(*) FROM job WHERE status = ?", status);
    row.step();
    return row.integer(0);
}
