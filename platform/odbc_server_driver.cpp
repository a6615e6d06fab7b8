#include "platform/odbc_server_driver.h"

#include "platform/ascii.h"
#include "platform/bulk_insert.h"
#include "platform/connection_pairs.h"
#include "platform/key_memory.h"
#include "platform/numbers.h"
#include "platform/odbc_cursor.h"
#include "platform/odbc_session.h"
#include "platform/postgres_dialect.h"
#include "platform/postgres_prelude.h"
#include "platform/server_refusals.h"

#include <array>
#include <utility>

namespace {

constexpr int oldestServer = 150'000;

// What the ODBC driver must do, whatever a data source says. Without the protocol's "-0" it rolls a
// whole transaction back behind our back after a failed statement.
constexpr std::array<std::pair<const char*, const char*>, 8> settings = {{
    {"Protocol", "7.4-0"},
    {"UseDeclareFetch", "0"}, // all rows at once: queries inside queries, and across a commit
    {"UseServerSidePrepare", "0"},
    {"UpdatableCursors", "0"},
    {"BoolsAsChar", "1"},
    {"LFConversion", "0"},
    {"CommLog", "0"},
    {"Debug", "0"},
}};

// What it does unless told otherwise, in seconds: a network that was cut is known in minutes, where
// the system alone would wait for hours.
constexpr std::array<std::pair<const char*, const char*>, 2> defaults = {{
    {"KeepaliveTime", "60"},
    {"KeepaliveInterval", "10"},
}};

std::string odbcString(std::string_view connectionString) {
    auto pairs = connectionPairs::parse(connectionString);
    std::erase_if(pairs, [](const auto& one) {
        for (const auto& [name, value] : settings)
            if (ascii::equal(one.name, name))
                return true;
        return false;
    });
    std::vector<connectionPairs::pair> out;
    if (!connectionPairs::find(pairs, "Driver") && !connectionPairs::find(pairs, "DSN"))
        out.push_back({"Driver", "PostgreSQL Unicode"});
    out.insert(out.end(), pairs.begin(), pairs.end());
    for (const auto& [name, value] : settings)
        out.push_back({name, value});
    for (const auto& [name, value] : defaults)
        if (!connectionPairs::find(pairs, name))
            out.push_back({name, value});
    return connectionPairs::join(out);
}

class odbc_server_driver final : public sql_driver {
public:
    bool connect(const std::string& connectionString) override {
        m_session = std::make_shared<odbc_session>();
        if (!m_session->connect(odbcString(connectionString))) {
            m_error = serverRefusals::ofConnection(m_session->failure());
            return false;
        }
        return prepareSession() && prepareFunctions()
               && run("SELECT set_config('search_path', current_setting('search_path') "
                      "|| ', wellsql', false)");
    }
    bool isServer() const override { return true; }

    bool exec(std::string_view statement) override {
        auto adapted = adapt(statement);
        if (!adapted)
            return false;
        if (adapted->is == postgresDialect::shape::pragma) {
            m_affected = 0;
            return true;
        }
        const auto inserted = postgresDialect::insertionOf(adapted->text);
        if (inserted && m_keys.isBehind(*inserted) && !synchronise(inserted->table))
            return false;
        const auto arrays = bulkForm(adapted->text, inserted);
        if (!run(arrays ? *arrays : adapted->text)) {
            m_hasFailed = m_hasFailed || m_isOpen;
            return false;
        }
        if (postgresDialect::isDefinition(adapted->text))
            m_types.clear();
        rememberKeys(*adapted, inserted);
        return m_isOpen || synchroniseAll();
    }
    std::int64_t affectedRows() const override { return m_affected; }

    std::unique_ptr<sql_cursor> query(std::string_view statement) override {
        const auto adapted = adapt(statement);
        if (!adapted || adapted->is == postgresDialect::shape::pragma)
            return nullptr;
        if (const auto wanted = postgresDialect::largestKeyOf(adapted->text))
            return largestKey(*wanted, adapted->text);
        return rows(adapted->text);
    }

    bool begin() override {
        m_keys.beginTransaction();
        m_hasFailed = false;
        m_isOpen = run("BEGIN");
        return m_isOpen;
    }
    // The server answers the COMMIT of a failed transaction with a rollback, and no error.
    bool commit() override {
        if (m_hasFailed) {
            m_error = "a statement of the transaction failed: it cannot be committed";
            return false;
        }
        if (!synchroniseAll() || !run("COMMIT")) {
            m_hasFailed = true;
            if (m_isLost)
                m_error +=
                    "; whether the change was stored shows when the container is opened again";
            return false;
        }
        m_isOpen = false;
        return true;
    }
    bool isLost() const override { return m_isLost; }
    bool rollback() override {
        m_keys.forget();
        m_isOpen = false;
        m_hasFailed = false;
        return run("ROLLBACK");
    }
    bool savepoint(int level) override { return run("SAVEPOINT level_" + std::to_string(level)); }
    bool release(int level) override { return run("RELEASE level_" + std::to_string(level)); }
    bool rollbackTo(int level) override {
        m_keys.forget();
        if (!run("ROLLBACK TO level_" + std::to_string(level)))
            return false;
        m_hasFailed = false;
        return release(level);
    }

    bool backup(const std::string&) override {
        m_error = "a database on a server is not copied into a file; "
                  "the server's own programs (pg_dump) do that";
        return false;
    }

    bool keysWereGiven(const std::string& table, const std::string& key) override {
        const std::string statement =
            "SELECT setval(source, greatest((SELECT max(" + key + ") FROM " + table
            + "), pg_sequence_last_value(source), 1)) FROM (SELECT pg_get_serial_sequence('"
            + ascii::lowered(table) + "', '" + ascii::lowered(key)
            + "')::regclass AS source) AS t_ WHERE source IS NOT NULL";
        if (run(statement)) {
            m_keys.synchronised(ascii::lowered(table));
            return true;
        }
        m_hasFailed = m_hasFailed || m_isOpen;
        return false;
    }

    std::string primaryKey() const override {
        return "INTEGER GENERATED BY DEFAULT AS IDENTITY PRIMARY KEY";
    }
    std::string currentTime() const override {
        return "to_char(statement_timestamp() AT TIME ZONE 'UTC', 'YYYY-MM-DD HH24:MI:SS')";
    }
    std::string user() const override { return m_user; }
    bool wasStatementWrong() const override { return m_wasStatementWrong; }
    std::string error() const override { return m_error; }

private:
    bool fail(std::string line) {
        m_error = std::move(line);
        return false;
    }

    void failMalformed(const char* why) {
        fail(why);
        m_wasStatementWrong = true;
    }

    // Runs a text as it stands. A connection that was lost stays so: the transaction went with it,
    // and a new one would go on in the middle of it.
    odbc_session::statement start(std::string_view text) {
        if (m_isLost) {
            fail("the connection to the server was lost; connect again");
            m_wasStatementWrong = false;
            return nullptr;
        }
        auto statement = m_session->run(text);
        if (!statement)
            failStatement();
        return statement;
    }
    void failStatement() {
        m_isLost = m_session->isLost();
        // class 42: a wrong statement, or one that the user may not run; 22: a value in it that
        // cannot be computed
        const auto& state = m_session->failure().state;
        m_wasStatementWrong =
            !m_isLost && ((state.starts_with("42") && state != "42501") || state.starts_with("22"));
        fail(m_isLost ? "the connection to the server was lost (" + m_session->failure().text + ")"
                      : serverRefusals::ofStatement(m_session->failure()));
    }
    bool run(std::string_view text) {
        const auto statement = start(text);
        if (!statement)
            return false;
        SQLLEN count = 0;
        SQLRowCount(statement.get(), &count);
        m_affected = count;
        return true;
    }
    std::string one(std::string_view query) {
        auto statement = start(query);
        if (!statement)
            return {};
        odbc_cursor cursor(m_session, std::move(statement));
        return cursor.next() ? std::string(cursor.text(0)) : std::string();
    }

    std::optional<postgresDialect::adapted> adapt(std::string_view statement) {
        auto out = postgresDialect::adapt(statement);
        if (out.is == postgresDialect::shape::several)
            failMalformed("text after the end of the statement");
        else if (out.is == postgresDialect::shape::empty)
            failMalformed("the statement is empty");
        else
            return out;
        return std::nullopt;
    }

    // Inside a transaction a query has a savepoint of its own, so that one that fails does not
    // take the transaction with it. All goes to the server in one message.
    std::unique_ptr<sql_cursor> rows(const std::string& text, std::string_view before = {}) {
        if (!m_isOpen) {
            auto statement = start(text);
            return statement ? cursorOf(std::move(statement)) : nullptr;
        }
        std::string guarded = "SAVEPOINT query_;";
        guarded.append(before).append(text).append("\n;RELEASE query_"); // behind any comment
        auto statement = start(guarded);
        const int results = before.empty() ? 1 : 2;
        for (int i = 0; statement && i < results; ++i)
            if (!m_session->nextResult(statement.get())) {
                failStatement();
                statement.reset();
            }
        if (statement)
            return cursorOf(std::move(statement));
        if (!m_isLost && !m_hasFailed) {
            const auto undone = m_session->run("ROLLBACK TO query_;RELEASE query_");
            m_hasFailed = !undone;
        }
        return nullptr;
    }
    std::unique_ptr<sql_cursor> cursorOf(odbc_session::statement statement) {
        return std::make_unique<odbc_cursor>(m_session, std::move(statement));
    }

    std::unique_ptr<sql_cursor> largestKey(const postgresDialect::largestKey& wanted,
                                           const std::string& text) {
        const auto& [table, key] = wanted;
        if (m_keys.isOwn(wanted))
            return rows("SELECT coalesce(currval(pg_get_serial_sequence('" + table + "', '" + key
                        + "')), (SELECT max(" + key + ") FROM " + table + ")) AS max");
        if (!m_isOpen || m_keys.isLocked(table))
            return rows(text);
        if (auto found = rows(text, "LOCK TABLE " + table + " IN SHARE ROW EXCLUSIVE MODE;")) {
            m_keys.locked(table);
            return found;
        }
        // Who may not lock a table may not write into it either: the key is not for a new row.
        if (m_isLost || m_session->failure().state != "42501")
            return nullptr;
        return rows(text); // NOLINT: the analyzer takes the pointer that goes out for a leak
    }

    // Column types are asked for once a table; rows of a table that is not there fail as they
    // stand.
    std::optional<std::string> bulkForm(const std::string& statement,
                                        const std::optional<postgresDialect::insertion>& inserted) {
        if (!inserted || !inserted->isPlain || !bulkInsert::isCandidate(statement))
            return std::nullopt;
        auto known = m_types.find(inserted->table);
        if (known == m_types.end()) {
            bulkInsert::columnTypes types;
            const auto found = rows("SELECT attname, format_type(atttypid, NULL) FROM pg_attribute "
                                    "WHERE attrelid = to_regclass('"
                                    + inserted->table + "') AND attnum > 0 AND NOT attisdropped");
            while (found && found->next())
                types.emplace(found->text(0), found->text(1));
            known = m_types.emplace(inserted->table, std::move(types)).first;
        }
        return bulkInsert::asArrays(statement, inserted->columns, known->second);
    }

    void rememberKeys(const postgresDialect::adapted& done,
                      const std::optional<postgresDialect::insertion>& inserted) {
        if (inserted && m_affected > 0)
            m_keys.inserted(*inserted);
        else if (const auto table = postgresDialect::deletionOf(done.text); !table.empty())
            m_keys.deleted(table);
    }

    bool synchronise(const std::string& table) {
        const std::int64_t affected = m_affected;
        if (!run("SELECT wellsql.sync_key('" + table + "')")) {
            m_hasFailed = m_hasFailed || m_isOpen;
            return false;
        }
        m_affected = affected;
        m_keys.synchronised(table);
        return true;
    }
    bool synchroniseAll() {
        for (const auto& table : m_keys.takeUnsynchronised())
            if (!synchronise(table))
                return false;
        return true;
    }

    bool prepareSession() {
        for (const char* setting : {"SET lock_timeout = '10s'",
                                    "SET standard_conforming_strings = on",
                                    "SET extra_float_digits = 3",
                                    "SET client_min_messages = warning"})
            if (!run(setting))
                return false;
        m_user = one("SELECT session_user");
        const std::string encoding = one("SELECT current_setting('server_encoding')");
        const auto version = numbers::toDouble(
            std::string_view(one("SELECT current_setting('server_version_num')")));
        if (encoding != "UTF8")
            return fail("the database is kept in " + encoding + "; UTF8 is required");
        if (version.value_or(0) < oldestServer)
            return fail("the server's version is " + one("SHOW server_version")
                        + "; PostgreSQL 15 or newer is required");
        return true;
    }

    [[nodiscard]] bool hasFunctions() {
        return one("SELECT count(*) FROM pg_proc JOIN pg_namespace ON pg_namespace.oid = "
                   "pronamespace WHERE nspname = 'wellsql'")
               == std::to_string(postgresPrelude::functions);
    }
    bool prepareFunctions() {
        if (!hasFunctions() && !createFunctions()) {
            const std::string reason = m_error;
            run("ROLLBACK");
            return fail("the database lacks the helper functions of the schema wellsql, and they "
                        "cannot be created: an administrator must run GRANT CREATE ON DATABASE \""
                        + one("SELECT current_database()") + "\" TO \"" + m_user
                        + "\", or open the database once: " + reason);
        }
        if (one("SELECT has_schema_privilege('wellsql', 'USAGE')") == "1")
            return true;
        return fail("the user may not use the helper functions: an administrator must run "
                    "GRANT USAGE ON SCHEMA wellsql TO \""
                    + m_user + "\"");
    }
    bool createFunctions() {
        if (!run("BEGIN") || !run(postgresPrelude::lock))
            return false;
        if (!hasFunctions()) // another program was quicker
            for (const auto statement : postgresPrelude::creation())
                if (!run(statement))
                    return false;
        return run("COMMIT");
    }

    std::shared_ptr<odbc_session> m_session;
    std::map<std::string, bulkInsert::columnTypes> m_types; // of tables
    key_memory m_keys;
    std::int64_t m_affected = 0;
    bool m_isOpen = false; // a transaction
    bool m_wasStatementWrong = false;
    bool m_hasFailed = false; // a statement of it
    bool m_isLost = false;
    std::string m_user;
    std::string m_error;
};

} // namespace

std::unique_ptr<sql_driver> makeServerDriver() {
    return std::make_unique<odbc_server_driver>();
}
