#include "odbc_database.h"

#include "platform/ascii.h"
#include "platform/connection_pairs.h"
#include "platform/driver_choice.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/strconv.h"
#include "platform/transaction_files.h"

#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace {

// One nesting level of a transaction, and where its side effects begin.
struct level {
    bool doomed = false;
    std::size_t firstAction = 0;
    std::size_t firstFile = 0;
};

// A connection string as a message may show it: a password never.
std::wstring shown(const std::string& connectionString) {
    if (!namesServer(connectionString))
        return ts::strconv::fromUtf8(connectionString);
    auto pairs = connectionPairs::parse(connectionString);
    std::erase_if(pairs, [](const auto& pair) {
        return ascii::equal(pair.name, "PWD") || ascii::equal(pair.name, "Password");
    });
    return ts::strconv::fromUtf8(connectionPairs::join(pairs));
}

} // namespace

struct odbc_database::connection {
    explicit connection(odbc_database* db) : changedFiles(db) {}

    std::unique_ptr<sql_driver> driver;
    std::string connectionString;
    std::wstring fileContainerPath;
    std::wstring identity;
    std::wstring user;
    std::wstring error;
    std::vector<level> levels;
    std::vector<std::function<void()>> actions; // to run after the commit
    transaction_files changedFiles;
    bool isAnswered = true; // the last query

    bool fail(std::wstring text) {
        error = std::move(text);
        return refuse(L"database " + shown(connectionString) + L": " + error);
    }
    bool failDriver() { return fail(ts::strconv::fromUtf8(driver->error())); }
    // A query failed for a reason that is not its own.
    void doom(const std::string& why) {
        fail(ts::strconv::fromUtf8(why));
        isAnswered = false;
        if (!levels.empty())
            levels.back().doomed = true;
    }
    // At once where that is possible, else by whoever changes files next or opens the container.
    void putFilesRight() {
        const keptReason why;
        if (!driver->isLost())
            static_cast<void>(changedFiles.recover());
    }
    bool isDoomed() const { return !levels.empty() && levels.back().doomed; }
};

odbc_database::odbc_database() : m_connection(std::make_unique<connection>(this)) {}

odbc_database::~odbc_database() {
    disconnect();
}

bool odbc_database::connect(const std::string& connectionString) {
    disconnect();
    auto& c = *m_connection;
    c.connectionString = connectionString;
    auto driver = makeDriver(connectionString);
    if (!driver)
        return c.fail(L"no driver serves this kind of database; a local file is expected");
    c.driver = std::move(driver);
    if (!c.driver->connect(connectionString)) {
        c.failDriver();
        c.driver.reset();
        return false;
    }
    c.user = ts::strconv::fromUtf8(c.driver->user());
    return true;
}

void odbc_database::disconnect() {
    auto& c = *m_connection;
    while (!c.levels.empty())
        rollback();
    c.changedFiles.close();
    c.driver.reset();
}

bool odbc_database::is_connected() const {
    return m_connection->driver != nullptr;
}

bool odbc_database::is_server() const {
    return m_connection->driver && m_connection->driver->isServer();
}

const std::string& odbc_database::get_connection_string() const {
    return m_connection->connectionString;
}

bool odbc_database::exec(std::wstring_view statement) {
    auto& c = *m_connection;
    if (!c.driver)
        return c.fail(L"not connected");
    if (c.isDoomed())
        return false; // the last error still names the statement that failed first
    bool done = false;
    if (statement.find(L'\0') != std::wstring_view::npos || !ts::strconv::isText(statement))
        c.fail(L"a text with a NUL or with code points that are no characters cannot be stored");
    else if (c.driver->exec(ts::strconv::toUtf8(statement)))
        done = true;
    else
        c.failDriver();
    if (!done && !c.levels.empty())
        c.levels.back().doomed = true;
    return done;
}

std::unique_ptr<odbc_result> odbc_database::query(std::wstring_view statement) {
    auto& c = *m_connection;
    // What is no text is in no row; its spelling in UTF-8 is that of another text, which may be.
    if (!c.driver || statement.find(L'\0') != std::wstring_view::npos
        || !ts::strconv::isText(statement))
        return nullptr;
    c.isAnswered = true;
    auto cursor = c.driver->query(ts::strconv::toUtf8(statement));
    if (!cursor) {
        c.error = ts::strconv::fromUtf8(c.driver->error());
        if (!c.driver->wasStatementWrong())
            c.doom(c.driver->error());
        return nullptr;
    }
    return std::make_unique<odbc_result>(
        std::move(cursor), [&c] { c.doom("the rows of a query could not be read to their end"); });
}

bool odbc_database::is_answered() const {
    return m_connection->isAnswered;
}

std::int64_t odbc_database::affected_rows() const {
    return m_connection->driver ? m_connection->driver->affectedRows() : 0;
}

bool odbc_database::begin_transaction() {
    auto& c = *m_connection;
    if (!c.driver)
        return c.fail(L"not connected");
    if (c.isDoomed())
        return false;
    const auto depth = static_cast<int>(c.levels.size());
    if (!(depth == 0 ? c.driver->begin() : c.driver->savepoint(depth)))
        return c.failDriver();
    c.levels.push_back({false, c.actions.size(), c.changedFiles.mark()});
    return true;
}

bool odbc_database::end_transaction() {
    auto& c = *m_connection;
    if (c.levels.empty())
        return c.fail(L"no transaction is open");
    if (c.levels.size() > 1) {
        const bool doomed = c.isDoomed();
        const bool released = !doomed && c.driver->release(static_cast<int>(c.levels.size()) - 1);
        if (!released && !doomed)
            c.failDriver();
        if (released)
            c.levels.pop_back();
        else
            rollback();
        return released;
    }
    if (c.isDoomed() || !c.changedFiles.beforeCommit()) {
        rollback();
        return false;
    }
    if (!c.driver->commit()) {
        c.failDriver();
        // The engine may have failed behind its commit: files follow what the database says then.
        const bool areFilesLeft = c.changedFiles.leave();
        rollback();
        if (areFilesLeft)
            c.putFilesRight();
        return false;
    }
    c.levels.clear();
    c.changedFiles.afterCommit();
    for (const auto& action : std::exchange(c.actions, {}))
        action();
    return true;
}

void odbc_database::rollback() {
    auto& c = *m_connection;
    if (c.levels.empty())
        return;
    const level ended = c.levels.back();
    c.levels.pop_back();
    c.actions.resize(ended.firstAction);
    const bool areFilesBack = c.changedFiles.undoTo(ended.firstFile);
    const auto depth = static_cast<int>(c.levels.size());
    const bool done = depth == 0 ? c.driver->rollback() : c.driver->rollbackTo(depth);
    // An engine that ended the whole transaction by itself has undone the outer levels too.
    if ((!done || !areFilesBack) && depth != 0)
        c.levels.back().doomed = true;
    if (!areFilesBack && depth == 0)
        c.putFilesRight();
}

bool odbc_database::in_transaction() const {
    return !m_connection->levels.empty();
}

void odbc_database::after_commit(std::function<void()> action) {
    if (in_transaction())
        m_connection->actions.push_back(std::move(action));
    else
        action();
}

bool odbc_database::backup(const std::wstring& path) {
    auto& c = *m_connection;
    if (!c.driver)
        return c.fail(L"not connected");
    if (files::isFile(path))
        return c.fail(L"cannot copy the database to " + path + L": the file exists");
    if (c.driver->backup(files::native(path).native()))
        return true;
    std::error_code ignored;
    std::filesystem::remove(files::native(path), ignored); // half a copy is none
    return c.failDriver();
}

transaction_files& odbc_database::files() {
    return m_connection->changedFiles;
}

bool odbc_database::keys_were_given(std::wstring_view table, std::wstring_view key) {
    auto& c = *m_connection;
    if (!c.driver)
        return c.fail(L"not connected");
    return c.driver->keysWereGiven(ts::strconv::toUtf8(table), ts::strconv::toUtf8(key))
           || c.failDriver();
}

std::wstring odbc_database::primary_key() const {
    return m_connection->driver ? ts::strconv::fromUtf8(m_connection->driver->primaryKey())
                                : std::wstring();
}

std::wstring odbc_database::cur_time() const {
    return m_connection->driver ? ts::strconv::fromUtf8(m_connection->driver->currentTime())
                                : std::wstring();
}

std::wstring odbc_database::get_user() const {
    return m_connection->user;
}

void odbc_database::set_identity(const std::wstring& path) {
    m_connection->identity = path;
}

std::wstring odbc_database::get_identity() const {
    const auto& c = *m_connection;
    return c.identity.empty() ? shown(c.connectionString) : c.identity;
}

void odbc_database::set_file_container_path(const std::wstring& path) {
    m_connection->fileContainerPath = path;
}

const std::wstring& odbc_database::get_file_container_path() const {
    return m_connection->fileContainerPath;
}

const std::wstring& odbc_database::last_error() const {
    return m_connection->error;
}
