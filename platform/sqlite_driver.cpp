#include "platform/sqlite_driver.h"

#include "platform/numbers.h"
#include "platform/sqlite_functions.h"
#include "platform/sqlite_statements.h"
#include "platform/write_turn.h"

#include <pwd.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <thread>

namespace {

constexpr int busyMilliseconds = 10'000;
constexpr int busyStep = 20;

using statementHandle = sqlite_statements::lease;

// The operating system's name of whoever runs the program.
std::string systemUser() {
    passwd entry{};
    passwd* found = nullptr;
    char buffer[4096];
    if (getpwuid_r(geteuid(), &entry, buffer, sizeof buffer, &found) == 0 && found != nullptr)
        return found->pw_name;
    return std::to_string(geteuid());
}

class sqlite_cursor final : public sql_cursor {
public:
    explicit sqlite_cursor(statementHandle statement, bool firstRow)
        : m_statement(std::move(statement)), m_pending(firstRow), m_ended(!firstRow) {}

    bool next() override {
        if (m_ended)
            return false;
        if (m_pending) {
            m_pending = false;
            return true;
        }
        const int code = sqlite3_step(m_statement.get());
        m_ended = code != SQLITE_ROW;
        m_broken = m_ended && code != SQLITE_DONE;
        return !m_ended;
    }
    bool isBroken() const override { return m_broken; }
    int columnCount() const override { return sqlite3_column_count(m_statement.get()); }
    std::string columnName(int column) const override {
        const char* name = sqlite3_column_name(m_statement.get(), column);
        return name == nullptr ? std::string() : std::string(name);
    }
    bool isNull(int column) const override {
        return sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL;
    }
    std::string_view text(int column) const override {
        // The engine's own text of a double keeps 15 digits only.
        if (sqlite3_column_type(m_statement.get(), column) == SQLITE_FLOAT) {
            m_number = numbers::shortest(sqlite3_column_double(m_statement.get(), column));
            return m_number;
        }
        const auto* bytes = sqlite3_column_text(m_statement.get(), column);
        if (bytes == nullptr)
            return {};
        return {reinterpret_cast<const char*>(bytes),
                static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column))};
    }
    double real(int column) const override {
        return sqlite3_column_double(m_statement.get(), column);
    }
    std::int64_t integer(int column) const override {
        return sqlite3_column_int64(m_statement.get(), column);
    }

private:
    statementHandle m_statement;
    mutable std::string m_number;
    bool m_pending;
    bool m_ended;
    bool m_broken = false;
};

class sqlite_driver final : public sql_driver {
public:
    // Leaving the mode removes the journal file.
    ~sqlite_driver() override {
        if (m_db == nullptr)
            return;
        m_statements.reset();
        sqlite3_busy_timeout(m_db, 0);
        sqlite3_exec(m_db, "PRAGMA journal_mode=DELETE", nullptr, nullptr, nullptr);
        sqlite3_close_v2(m_db); // rows that are still being read keep it alive
    }

    bool connect(const std::string& path) override {
        if (sqlite3_open_v2(path.c_str(), &m_db, openFlags, nullptr) != SQLITE_OK)
            return fail("cannot open");
        sqlite3_busy_handler(m_db, waitALittle, this);
        m_turn = std::make_unique<write_turn>(path);
        sqlite3_extended_result_codes(m_db, 1);
        if (!registerSqliteFunctions(m_db))
            return fail("cannot prepare");
        m_statements = std::make_shared<sqlite_statements>(m_db);
        // The page size has an effect on a new file only, and only before its first write. Keeping
        // the file of the rollback journal from commit to commit saves flushes of the disk. The
        // schema is read so that a file that is no database is told at once.
        return exec("PRAGMA page_size=8192") && exec("PRAGMA journal_mode=PERSIST")
               && query("SELECT count(*) FROM sqlite_master");
    }
    bool isServer() const override { return false; }

    bool exec(std::string_view text) override {
        const auto statement = prepare(text);
        if (!statement)
            return false;
        int code = SQLITE_ROW;
        while (code == SQLITE_ROW)
            code = sqlite3_step(statement.get());
        return code == SQLITE_DONE || fail("cannot run the statement");
    }
    std::int64_t affectedRows() const override { return sqlite3_changes64(m_db); }

    // The first step is taken here, so that a query that fails is told from one without rows.
    std::unique_ptr<sql_cursor> query(std::string_view text) override {
        auto statement = prepare(text);
        if (!statement)
            return nullptr;
        const int code = sqlite3_step(statement.get());
        if (code != SQLITE_ROW && code != SQLITE_DONE) {
            fail("cannot run the query");
            return nullptr;
        }
        return std::make_unique<sqlite_cursor>(std::move(statement), code == SQLITE_ROW);
    }

    bool begin() override {
        if (hasMoved())
            return failMoved();
        const auto started = std::chrono::steady_clock::now();
        m_turn->take(std::chrono::milliseconds(busyMilliseconds));
        const auto waited = std::chrono::duration_cast<std::chrono::milliseconds>(
            std::chrono::steady_clock::now() - started);
        m_waitLimit = std::max(busyMilliseconds - static_cast<int>(waited.count()), 0);
        const bool begun = exec("BEGIN IMMEDIATE");
        m_waitLimit = busyMilliseconds;
        m_turn->giveBack();
        return begun;
    }
    // A commit that finds readers in its way may be tried again: the transaction stays open.
    bool commit() override {
        const auto giveUp =
            std::chrono::steady_clock::now() + std::chrono::milliseconds(busyMilliseconds);
        while (!exec("COMMIT")) {
            if ((sqlite3_errcode(m_db) & 0xff) != SQLITE_BUSY
                || std::chrono::steady_clock::now() > giveUp)
                return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return true;
    }
    // The engine rolls back by itself on some failures, such as a full disk.
    bool rollback() override { return sqlite3_get_autocommit(m_db) != 0 || exec("ROLLBACK"); }
    bool savepoint(int level) override { return exec("SAVEPOINT level_" + std::to_string(level)); }
    bool release(int level) override { return exec("RELEASE level_" + std::to_string(level)); }
    bool rollbackTo(int level) override {
        if (sqlite3_get_autocommit(m_db) != 0)
            return fail("the transaction was ended by the engine");
        return exec("ROLLBACK TO level_" + std::to_string(level)) && release(level);
    }

    // In one step, so that a writer beside it does not make it begin again and again.
    bool backup(const std::string& path) override {
        constexpr int allPages = -1;
        if (sqlite3_get_autocommit(m_db) == 0) {
            m_error = "a database is not copied inside a transaction";
            return false;
        }
        sqlite3* copy = nullptr;
        int code = sqlite3_open_v2(path.c_str(), &copy, openFlags, nullptr);
        sqlite3_backup* const work =
            code == SQLITE_OK ? sqlite3_backup_init(copy, "main", m_db, "main") : nullptr;
        if (work != nullptr) {
            code = sqlite3_backup_step(work, allPages);
            for (int tries = 0; isBusy(code) && tries < busyMilliseconds / busyStep; ++tries) {
                sqlite3_sleep(busyStep);
                code = sqlite3_backup_step(work, allPages);
            }
            sqlite3_backup_finish(work);
        }
        const bool done = code == SQLITE_DONE;
        if (!done)
            m_error = std::string("cannot copy the database: ")
                      + (work != nullptr ? sqlite3_errstr(code) : sqlite3_errmsg(copy));
        sqlite3_close_v2(copy);
        return done;
    }

    bool keysWereGiven(const std::string&, const std::string&) override {
        return true; // the engine has seen them
    }

    // AUTOINCREMENT: deletions leave references behind, so a key is never given twice.
    std::string primaryKey() const override { return "INTEGER PRIMARY KEY AUTOINCREMENT"; }
    std::string currentTime() const override { return "strftime('%Y-%m-%d %H:%M:%S', 'now')"; }
    std::string user() const override { return systemUser(); }
    bool wasStatementWrong() const override { return m_wasStatementWrong; }
    std::string error() const override { return m_error; }

private:
    static constexpr int openFlags =
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_FULLMUTEX;

    // The engine's own waits grow to a tenth of a second, in which many others have their turn.
    static int waitALittle(void* self, int calls) {
        auto& driver = *static_cast<sqlite_driver*>(self);
        const auto now = std::chrono::steady_clock::now();
        if (calls == 0)
            driver.m_waitEnd = now + std::chrono::milliseconds(driver.m_waitLimit);
        if (now >= driver.m_waitEnd)
            return 0;
        std::this_thread::sleep_for(std::chrono::milliseconds(std::min(calls + 1, 5)));
        return 1;
    }

    static bool isBusy(int code) {
        return (code & 0xff) == SQLITE_BUSY || (code & 0xff) == SQLITE_LOCKED;
    }

    // The engine tells only when it writes, and then calls it a read-only database.
    bool hasMoved() const {
        int moved = 0;
        sqlite3_file_control(m_db, "main", SQLITE_FCNTL_HAS_MOVED, &moved);
        return moved != 0;
    }
    bool failMoved() {
        m_wasStatementWrong = false;
        m_error = "the file was moved, removed or replaced since it was opened: open it again";
        return false;
    }

    bool fail(const char* what) {
        if (m_db != nullptr && sqlite3_extended_errcode(m_db) == SQLITE_READONLY_DBMOVED)
            return failMoved();
        m_wasStatementWrong = m_db != nullptr && (sqlite3_errcode(m_db) & 0xff) == SQLITE_ERROR;
        m_error =
            std::string(what) + ": " + (m_db != nullptr ? sqlite3_errmsg(m_db) : "out of memory");
        return false;
    }

    statementHandle prepare(std::string_view text) {
        bool hasMore = false;
        m_wasStatementWrong = true;
        auto statement = m_statements->take(text, hasMore);
        if (hasMore)
            m_error = "text after the end of the statement";
        else if (!statement && sqlite3_errcode(m_db) == SQLITE_OK)
            m_error = "the statement is empty";
        else if (!statement)
            fail("cannot understand the statement");
        return statement;
    }

    sqlite3* m_db = nullptr;
    std::shared_ptr<sqlite_statements> m_statements;
    std::unique_ptr<write_turn> m_turn;
    int m_waitLimit = busyMilliseconds; // for another program's lock
    std::chrono::steady_clock::time_point m_waitEnd;
    bool m_wasStatementWrong = false;
    std::string m_error;
};

} // namespace

std::unique_ptr<sql_driver> makeSqliteDriver() {
    return std::make_unique<sqlite_driver>();
}
