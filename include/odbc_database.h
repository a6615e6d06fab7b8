// One SQL connection: statements, rows, transactions and the files that change with them.
#pragma once

#include "NORLEX_export.h"
#include "odbc_result.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

class transaction_files;

// Statements are wide text with every value spelled inside it; there are no bound parameters.
// A connection belongs to one thread at a time.
class NORLEX_API odbc_database {
public:
    odbc_database();
    ~odbc_database();
    odbc_database(const odbc_database&) = delete;
    odbc_database& operator=(const odbc_database&) = delete;

    // UTF-8. A path names a local database, created when missing; text of the form
    // "name=value;" names a server. False leaves the object closed, with the reason in
    // last_error().
    [[nodiscard]] bool connect(const std::string& connectionString);
    void disconnect();
    [[nodiscard]] bool is_connected() const;
    [[nodiscard]] bool is_server() const;
    [[nodiscard]] const std::string& get_connection_string() const;

    // Runs exactly one statement; text after its end is refused. Inside a transaction a failure
    // dooms the innermost level: what follows is refused until that level is rolled back.
    [[nodiscard]] bool exec(std::wstring_view statement);

    // Null when the database rejects the statement; callers treat that as no rows. Inside a
    // transaction only a statement that the database cannot run, such as one on a table that is not
    // there, is taken so: when the engine fails, the innermost level is doomed, since what would
    // follow from rows that are missing must not be committed.
    [[nodiscard]] std::unique_ptr<odbc_result> query(std::wstring_view statement);

    // Whether the engine answered the last query, and its rows as far as they were asked for. Where
    // it did not, that there was no row says nothing.
    [[nodiscard]] bool is_answered() const;

    // Rows that the last exec() inserted, changed or deleted.
    [[nodiscard]] std::int64_t affected_rows() const;

    // Transactions nest: an inner one is a savepoint. The outermost takes the write lock at once,
    // so that a key read back with max() is this connection's own.
    [[nodiscard]] bool begin_transaction();
    // False when the level was doomed or cannot be committed; it is rolled back then.
    [[nodiscard]] bool end_transaction();
    void rollback();
    [[nodiscard]] bool in_transaction() const;

    // Runs `action` once the outermost transaction is committed, at once when none is open, and
    // never when the level it was given in is rolled back.
    void after_commit(std::function<void()> action);

    // Files created, replaced, moved or removed together with the rows of a transaction.
    [[nodiscard]] transaction_files& files();

    // Copies a local database as it is at one moment into a new file; the file directory is not
    // part of it. Refused inside a transaction, for a server, and where the file exists.
    [[nodiscard]] bool backup(const std::wstring& path);

    // To be called after rows were inserted with keys of their own, so that no key is given twice.
    [[nodiscard]] bool keys_were_given(std::wstring_view table, std::wstring_view key);

    [[nodiscard]] std::wstring primary_key() const; // declaration of a key column
    [[nodiscard]] std::wstring cur_time() const;    // SQL expression, "YYYY-MM-DD HH:MM:SS", UTC
    [[nodiscard]] std::wstring get_user() const;    // spliced by callers between quotes

    // What announcements call the database: the path that its user chose; without one, the
    // connection string up to its password.
    void set_identity(const std::wstring& path);
    [[nodiscard]] std::wstring get_identity() const;

    void set_file_container_path(const std::wstring& path);
    [[nodiscard]] const std::wstring& get_file_container_path() const;

    [[nodiscard]] const std::wstring& last_error() const;

private:
    struct connection;
    std::unique_ptr<connection> m_connection;
};
