// The contract that a database engine's driver meets.
//
// odbc_database keeps the rules that are the same everywhere (nesting, doomed levels, one
// statement a call); a driver only carries statements to its engine. Texts are UTF-8. A driver is
// used by one thread at a time.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

// The rows of one query. Destroying it finishes the statement at once: an open one holds other
// programs back from writing.
class sql_cursor {
public:
    virtual ~sql_cursor() = default;
    virtual bool next() = 0;           // false after the last row, and when the engine fails
    virtual bool isBroken() const = 0; // it did fail
    virtual int columnCount() const = 0;
    virtual std::string columnName(int column) const = 0;
    // A NULL reads as empty text, 0, and isNull(). Views are good until the next call of next().
    virtual bool isNull(int column) const = 0;
    virtual std::string_view text(int column) const = 0; // doubles as the shortest exact text
    virtual double real(int column) const = 0;           // text by its leading number, else 0
    virtual std::int64_t integer(int column) const = 0;
};

class sql_driver {
public:
    virtual ~sql_driver() = default;

    virtual bool connect(const std::string& connectionString) = 0;
    virtual bool isServer() const = 0;

    // Runs one statement to its end. A statement that changes no row is a success; text after the
    // statement's end is a failure.
    virtual bool exec(std::string_view statement) = 0;
    virtual std::int64_t affectedRows() const = 0;
    // Null on failure. A failed query leaves an open transaction usable.
    virtual std::unique_ptr<sql_cursor> query(std::string_view statement) = 0;

    // The outermost transaction takes the write lock at once. commit() retries while the engine
    // is busy; when it answers false the transaction is still open and is to be rolled back.
    virtual bool begin() = 0;
    virtual bool commit() = 0;
    // The connection is gone: whether a commit that failed came through is not known here.
    virtual bool isLost() const { return false; }
    virtual bool rollback() = 0;
    virtual bool savepoint(int level) = 0;
    virtual bool release(int level) = 0;
    virtual bool rollbackTo(int level) = 0;

    // A copy of the whole database in a new file, as it is at one moment. Refused inside a
    // transaction, and by an engine whose databases are no files.
    virtual bool backup(const std::string& path) = 0;

    // Rows were inserted with keys of their own into a column that the database assigns: the next
    // key that it gives is behind them.
    virtual bool keysWereGiven(const std::string& table, const std::string& key) = 0;

    virtual std::string primaryKey() const = 0;  // declaration of a key column
    virtual std::string currentTime() const = 0; // SQL expression
    virtual std::string user() const = 0;

    // Whether the last call failed because the statement is none that this database can run: it
    // names a table that is not there, or is malformed. Any other failure is the engine's.
    virtual bool wasStatementWrong() const = 0;
    // Why the last call failed, in one line.
    virtual std::string error() const = 0;
};
