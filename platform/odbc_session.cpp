#include "platform/odbc_session.h"

#include "platform/strconv.h"
#include "platform/strconv_points.h"

#include <algorithm>
#include <array>

namespace odbcText {

namespace {

// Writes a code point and answers the place behind it; the caller has made room.
char* putUtf8(char* to, char32_t point) {
    const auto put = [&](char32_t byte) { *to++ = static_cast<char>(byte); };
    const auto tail = [&](int shift) { put(0x80 | ((point >> shift) & 0x3F)); };
    if (point < 0x80) {
        put(point);
    } else if (point < 0x800) {
        put(0xC0 | (point >> 6));
        tail(0);
    } else if (point < 0x10000) {
        put(0xE0 | (point >> 12));
        tail(6);
        tail(0);
    } else {
        put(0xF0 | (point >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
    return to;
}

} // namespace

std::vector<SQLWCHAR> toUtf16(std::string_view utf8) {
    std::vector<SQLWCHAR> out(utf8.size());
    SQLWCHAR* to = out.data();
    for (std::size_t at = 0; at < utf8.size();) {
        if (static_cast<unsigned char>(utf8[at]) < 0x80) {
            *to++ = static_cast<SQLWCHAR>(utf8[at++]);
            continue;
        }
        const std::size_t from = at;
        while (at < utf8.size() && static_cast<unsigned char>(utf8[at]) >= 0x80)
            ++at;
        const std::wstring wide = ts::strconv::fromUtf8(utf8.substr(from, at - from));
        for (std::size_t i = 0; i < wide.size();) {
            const char32_t point = ts::strconv::takeWide(wide, i);
            if (point >= 0x10000)
                *to++ = static_cast<SQLWCHAR>(0xD800 + ((point - 0x10000) >> 10));
            *to++ = static_cast<SQLWCHAR>(point >= 0x10000 ? 0xDC00 + (point & 0x3FF) : point);
        }
    }
    out.resize(static_cast<std::size_t>(to - out.data()));
    return out;
}

void appendUtf8(std::string& out, const SQLWCHAR* text, std::size_t count) {
    const std::size_t before = out.size();
    out.resize(before + 3 * count);
    char* to = out.data() + before;
    for (std::size_t at = 0; at < count; ++at) {
        char32_t point = text[at];
        if (at + 1 < count && ts::strconv::isPair(point, text[at + 1]))
            point = ts::strconv::joined(point, text[++at]);
        to = putUtf8(to, ts::strconv::isScalar(point) ? point : ts::strconv::noText);
    }
    out.resize(static_cast<std::size_t>(to - out.data()));
}

} // namespace odbcText

namespace {

constexpr SQLUINTEGER loginSeconds = 10;

// The engine's lines as one, without the names of the programs between it and us.
std::string oneLine(std::string text) {
    while (text.starts_with('['))
        text.erase(0, std::min(text.find(']'), text.size() - 1) + 1);
    if (const auto tail = text.find(";\nError while "); tail != std::string::npos)
        text.resize(tail);
    std::string out;
    for (const char c : text) {
        const bool isBlank = c == '\n' || c == '\r' || c == '\t' || c == ' ';
        if (!isBlank)
            out += c;
        else if (!out.empty() && out.back() != ' ')
            out += ' ';
    }
    return out.substr(0, out.find_last_not_of(' ') + 1);
}

void* asValue(SQLULEN value) {
    return reinterpret_cast<void*>(value); // NOLINT: how ODBC hands over numbers
}

} // namespace

odbc_session::~odbc_session() {
    if (m_isConnected)
        SQLDisconnect(m_connection);
    if (m_connection != SQL_NULL_HDBC)
        SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
    if (m_environment != SQL_NULL_HENV)
        SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
}

bool odbc_session::connect(std::string_view connectionString) {
    m_failure = {"HY001", "out of memory"};
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &m_environment)))
        return false;
    SQLSetEnvAttr(m_environment, SQL_ATTR_ODBC_VERSION, asValue(SQL_OV_ODBC3), 0);
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_DBC, m_environment, &m_connection)))
        return false;
    SQLSetConnectAttr(m_connection, SQL_ATTR_LOGIN_TIMEOUT, asValue(loginSeconds), 0);
    auto text = odbcText::toUtf16(connectionString);
    SQLSMALLINT ignored = 0;
    const SQLRETURN code = SQLDriverConnectW(m_connection,
                                             nullptr,
                                             text.data(),
                                             static_cast<SQLSMALLINT>(text.size()),
                                             nullptr,
                                             0,
                                             &ignored,
                                             SQL_DRIVER_NOPROMPT);
    m_isConnected = SQL_SUCCEEDED(code);
    if (!m_isConnected)
        keepFailure(SQL_HANDLE_DBC, m_connection);
    return m_isConnected;
}

bool odbc_session::isLost() const {
    SQLUINTEGER dead = SQL_CD_FALSE;
    SQLGetConnectAttr(m_connection, SQL_ATTR_CONNECTION_DEAD, &dead, sizeof dead, nullptr);
    return dead == SQL_CD_TRUE;
}

odbc_session::statement odbc_session::run(std::string_view text) {
    SQLHSTMT raw = SQL_NULL_HSTMT;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, m_connection, &raw))) {
        keepFailure(SQL_HANDLE_DBC, m_connection);
        return nullptr;
    }
    statement out(raw);
    // Nothing in the text is an escape of ODBC.
    SQLSetStmtAttr(raw, SQL_ATTR_NOSCAN, asValue(SQL_NOSCAN_ON), 0);
    auto wide = odbcText::toUtf16(text);
    const SQLRETURN code = SQLExecDirectW(raw, wide.data(), static_cast<SQLINTEGER>(wide.size()));
    // "No data" is a change of no row.
    if (SQL_SUCCEEDED(code) || code == SQL_NO_DATA)
        return out;
    keepFailure(SQL_HANDLE_STMT, raw);
    return nullptr;
}

bool odbc_session::nextResult(SQLHSTMT handle) {
    const SQLRETURN code = SQLMoreResults(handle);
    if (SQL_SUCCEEDED(code))
        return true;
    if (code != SQL_NO_DATA)
        keepFailure(SQL_HANDLE_STMT, handle);
    return false;
}

void odbc_session::keepFailure(SQLSMALLINT type, SQLHANDLE handle) {
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, 2048> text{};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const SQLRETURN code = SQLGetDiagRecW(type,
                                          handle,
                                          1,
                                          state.data(),
                                          &native,
                                          text.data(),
                                          static_cast<SQLSMALLINT>(text.size()),
                                          &length);
    m_failure = {"HY000", "the driver does not say why"};
    if (!SQL_SUCCEEDED(code))
        return;
    const auto count = std::clamp(static_cast<std::size_t>(length), 0UL, text.size() - 1);
    std::string words;
    odbcText::appendUtf8(words, text.data(), count);
    m_failure.text = oneLine(std::move(words));
    m_failure.state.clear();
    odbcText::appendUtf8(m_failure.state, state.data(), state.size() - 1);
}
