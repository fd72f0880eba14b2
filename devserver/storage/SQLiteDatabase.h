#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

/// One prepared statement with its values bound; step() walks its rows. Failures are std::runtime_error.
class SQLiteStatement {
public:
    SQLiteStatement(sqlite3 *database, std::string_view sql);

    void bind(int position, std::int64_t value);
    void bind(int position, double value);
    void bind(int position, std::string_view value);

    /// True while there is a row to read.
    bool step();

    std::int64_t integer(int column) const;
    double real(int column) const;
    std::string text(int column) const;
    bool isNull(int column) const;

private:
    void check(int result) const;

    sqlite3 *m_database;
    std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt *)> m_statement;
};

/// A database file that survives a kill at any moment (write-ahead log). Its users serialise their own calls.
class SQLiteDatabase {
public:
    explicit SQLiteDatabase(const std::filesystem::path &file);

    /// Runs statements that take no values and give no rows.
    void execute(const std::string &sql);

    template <typename... Values> SQLiteStatement query(std::string_view sql, const Values &...values) {
        SQLiteStatement statement(m_database.get(), sql);
        int position = 0;
        (bindOne(statement, ++position, values), ...);
        return statement;
    }

    /// Runs one statement to its end and returns how many rows it changed.
    template <typename... Values> int run(std::string_view sql, const Values &...values) {
        auto statement = query(sql, values...);
        while (statement.step()) {
        }
        return sqlite3_changes(m_database.get());
    }

    std::int64_t lastInsertID() const { return sqlite3_last_insert_rowid(m_database.get()); }

private:
    template <typename Value> static void bindOne(SQLiteStatement &statement, int position, const Value &value) {
        if constexpr (std::is_integral_v<Value>)
            statement.bind(position, static_cast<std::int64_t>(value));
        else if constexpr (std::is_floating_point_v<Value>)
            statement.bind(position, static_cast<double>(value));
        else
            statement.bind(position, std::string_view(value));
    }

    std::unique_ptr<sqlite3, int (*)(sqlite3 *)> m_database;
};

/// Rolls back unless committed; nothing inside another one.
class SQLiteTransaction {
public:
    explicit SQLiteTransaction(SQLiteDatabase &database);
    ~SQLiteTransaction();
    SQLiteTransaction(const SQLiteTransaction &) = delete;
    SQLiteTransaction &operator=(const SQLiteTransaction &) = delete;

    void commit();

private:
    SQLiteDatabase &m_database;
    bool m_open = true;
};
