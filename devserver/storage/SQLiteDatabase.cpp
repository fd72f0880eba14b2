#include "storage/SQLiteDatabase.h"

#include <stdexcept>

namespace {

sqlite3 *openFile(const std::filesystem::path &file) {
    sqlite3 *database = nullptr;
    if (sqlite3_open(file.c_str(), &database) != SQLITE_OK) {
        const std::string reason = sqlite3_errmsg(database);
        sqlite3_close(database);
        throw std::runtime_error("cannot open " + file.string() + ": " + reason);
    }
    return database;
}

} // namespace

SQLiteStatement::SQLiteStatement(sqlite3 *database, std::string_view sql)
    : m_database(database)
    , m_statement(nullptr, sqlite3_finalize) {
    sqlite3_stmt *statement = nullptr;
    check(sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &statement, nullptr));
    m_statement.reset(statement);
}

void SQLiteStatement::check(int result) const {
    if (result != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(m_database));
}

void SQLiteStatement::bind(int position, std::int64_t value) {
    check(sqlite3_bind_int64(m_statement.get(), position, value));
}

void SQLiteStatement::bind(int position, double value) {
    check(sqlite3_bind_double(m_statement.get(), position, value));
}

void SQLiteStatement::bind(int position, std::string_view value) {
    const char *bytes = value.data() ? value.data() : "";
    check(sqlite3_bind_text(m_statement.get(), position, bytes, static_cast<int>(value.size()), SQLITE_TRANSIENT));
}

bool SQLiteStatement::step() {
    const int result = sqlite3_step(m_statement.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE)
        throw std::runtime_error(sqlite3_errmsg(m_database));
    return result == SQLITE_ROW;
}

std::int64_t SQLiteStatement::integer(int column) const {
    return sqlite3_column_int64(m_statement.get(), column);
}

double SQLiteStatement::real(int column) const {
    return sqlite3_column_double(m_statement.get(), column);
}

std::string SQLiteStatement::text(int column) const {
    const auto *bytes = reinterpret_cast<const char *>(sqlite3_column_text(m_statement.get(), column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column));
    return bytes ? std::string(bytes, size) : std::string();
}

bool SQLiteStatement::isNull(int column) const {
    return sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL;
}

SQLiteDatabase::SQLiteDatabase(const std::filesystem::path &file)
    : m_database(openFile(file), sqlite3_close) {
    execute("PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL; PRAGMA foreign_keys = ON;"
            "PRAGMA busy_timeout = 5000");
}

void SQLiteDatabase::execute(const std::string &sql) {
    if (sqlite3_exec(m_database.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(m_database.get()));
}

SQLiteTransaction::SQLiteTransaction(SQLiteDatabase &database)
    : m_database(database) {
    m_database.execute("BEGIN IMMEDIATE");
}

SQLiteTransaction::~SQLiteTransaction() {
    if (!m_open)
        return;
    try {
        m_database.execute("ROLLBACK");
    } catch (const std::exception &) {
        // The failure that brought us here has rolled back already.
    }
}

void SQLiteTransaction::commit() {
    m_database.execute("COMMIT");
    m_open = false;
}
