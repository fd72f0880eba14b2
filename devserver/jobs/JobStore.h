#pragma once

#include "storage/SQLiteDatabase.h"

#include <mutex>
#include <optional>
#include <vector>

struct JobRecord {
    std::string id;
    std::string type;
    /// "pending", "running", "completed" or "failed".
    std::string status;
    std::string error;
    /// Milliseconds since 1970.
    std::optional<double> startedAt, completedAt;
};

/// The jobs of all accounts, kept over restarts. Safe from any thread.
class JobStore {
public:
    /// What a former run of the server left unfinished counts as failed.
    explicit JobStore(const std::filesystem::path &file);

    std::string add(const std::string &accountID, const std::string &type);
    void setRunning(const std::string &id);
    /// An empty error means success.
    void setEnded(const std::string &id, const std::string &error);

    /// The newest first.
    std::vector<JobRecord> list(const std::string &accountID);
    std::int64_t count(const std::string &status);

private:
    std::mutex m_mutex;
    SQLiteDatabase m_database;
};
