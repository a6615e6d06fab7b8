// A connection through the ODBC driver manager, its statements, and what it says of a failure.
//
// Texts go out and come in as UTF-16, which loses nothing in any locale of the process.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

// The engine's words on a failure, in one line, and its code.
struct odbc_failure {
    std::string state; // five signs
    std::string text;
};

class odbc_session {
public:
    odbc_session() = default;
    ~odbc_session();
    odbc_session(const odbc_session&) = delete;
    odbc_session& operator=(const odbc_session&) = delete;

    [[nodiscard]] bool connect(std::string_view connectionString);
    // Whether the server was found gone; it is not asked.
    [[nodiscard]] bool isLost() const;
    [[nodiscard]] const odbc_failure& failure() const { return m_failure; }

    struct statementDeleter {
        void operator()(void* handle) const { SQLFreeHandle(SQL_HANDLE_STMT, handle); }
    };
    using statement = std::unique_ptr<void, statementDeleter>;

    // A statement that was run; null when it failed, which failure() tells.
    [[nodiscard]] statement run(std::string_view text);
    // Goes to the next result of a text of several statements.
    [[nodiscard]] bool nextResult(SQLHSTMT handle);

private:
    void keepFailure(SQLSMALLINT type, SQLHANDLE handle);

    SQLHENV m_environment = SQL_NULL_HENV;
    SQLHDBC m_connection = SQL_NULL_HDBC;
    bool m_isConnected = false;
    odbc_failure m_failure;
};

namespace odbcText {

[[nodiscard]] std::vector<SQLWCHAR> toUtf16(std::string_view utf8);
void appendUtf8(std::string& out, const SQLWCHAR* text, std::size_t count);

} // namespace odbcText
