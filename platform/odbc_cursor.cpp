#include "platform/odbc_cursor.h"

#include "platform/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <limits>
#include <system_error>

namespace {

constexpr std::size_t mostRows = 500;
constexpr std::size_t numberBytes = 8;
constexpr std::size_t unit = sizeof(SQLWCHAR);
constexpr std::size_t textUnits = 128; // of UTF-16; longer ones are read one by one
constexpr SQLSMALLINT nameUnits = 128;

void* asValue(std::size_t value) {
    return reinterpret_cast<void*>(value); // NOLINT: how ODBC hands over numbers
}

// The number that the text begins with, or 0.
template <typename Number>
Number leading(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    const bool isSigned = text.starts_with('+') || text.starts_with('-');
    const auto digit = text.find_first_of("0123456789.");
    if (digit > (isSigned ? 1U : 0U)) // "inf" and "nan" are words
        return 0;
    if (text.starts_with('+'))
        text.remove_prefix(1);
    Number value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() ? value : Number(0);
}

} // namespace

odbc_cursor::odbc_cursor(std::shared_ptr<odbc_session> session, odbc_session::statement statement)
    : m_session(std::move(session)), m_statement(std::move(statement)) {
    SQLLEN rows = 0;
    SQLRowCount(m_statement.get(), &rows);
    m_blockRows =
        std::clamp<std::size_t>(static_cast<std::size_t>(std::max<SQLLEN>(rows, 1)), 1, mostRows);
    describe();
    bind();
}

odbc_cursor::~odbc_cursor() = default;

void odbc_cursor::describe() {
    SQLSMALLINT count = 0;
    SQLNumResultCols(m_statement.get(), &count);
    m_columns.resize(static_cast<std::size_t>(std::max<SQLSMALLINT>(count, 0)));
    SQLUSMALLINT number = 0;
    for (auto& one : m_columns) {
        std::array<SQLWCHAR, nameUnits> name{};
        SQLSMALLINT length = 0;
        SQLSMALLINT type = SQL_UNKNOWN_TYPE;
        SQLULEN size = 0;
        SQLSMALLINT digits = 0;
        SQLSMALLINT nullable = 0;
        SQLDescribeColW(m_statement.get(),
                        ++number,
                        name.data(),
                        nameUnits,
                        &length,
                        &type,
                        &size,
                        &digits,
                        &nullable);
        odbcText::appendUtf8(
            one.name,
            name.data(),
            static_cast<std::size_t>(std::clamp<SQLSMALLINT>(length, 0, nameUnits - 1)));
        if (type == SQL_INTEGER || type == SQL_BIGINT || type == SQL_SMALLINT)
            one.is = content::integer;
        else if (type == SQL_DOUBLE || type == SQL_FLOAT || type == SQL_REAL || type == SQL_NUMERIC)
            one.is = content::real;
    }
}

// Numbers come as numbers: in its texts the driver writes the decimal sign of the locale.
void odbc_cursor::bind() {
    const SQLHSTMT handle = m_statement.get();
    SQLSetStmtAttr(handle, SQL_ATTR_ROW_ARRAY_SIZE, asValue(m_blockRows), 0);
    SQLSetStmtAttr(handle, SQL_ATTR_ROWS_FETCHED_PTR, &m_fetched, 0);
    SQLUSMALLINT number = 0;
    for (auto& one : m_columns) {
        one.width = one.is == content::text ? textUnits * unit : numberBytes;
        one.block = std::make_unique_for_overwrite<char[]>(one.width * m_blockRows);
        one.lengths.resize(m_blockRows);
        const int type = one.is == content::text   ? SQL_C_WCHAR
                         : one.is == content::real ? SQL_C_DOUBLE
                                                   : SQL_C_SBIGINT;
        SQLBindCol(handle,
                   ++number,
                   static_cast<SQLSMALLINT>(type),
                   one.block.get(),
                   static_cast<SQLLEN>(one.width),
                   one.lengths.data());
    }
}

bool odbc_cursor::fetchBlock() {
    m_row = 0;
    const SQLRETURN code = m_columns.empty() ? SQLRETURN{SQL_NO_DATA} : SQLFetch(m_statement.get());
    m_isBroken = code != SQL_NO_DATA && !SQL_SUCCEEDED(code);
    if (!SQL_SUCCEEDED(code))
        m_fetched = 0;
    return m_fetched > 0;
}

bool odbc_cursor::next() {
    for (auto& one : m_columns)
        one.isRead = false;
    if (m_row + 1 < m_fetched) {
        ++m_row;
        return true;
    }
    const bool isLast = m_fetched > 0 && m_fetched < m_blockRows;
    if (isLast)
        m_fetched = 0;
    return !isLast && fetchBlock();
}

std::string odbc_cursor::columnName(int column) const {
    return m_columns[static_cast<std::size_t>(column)].name;
}

bool odbc_cursor::isNull(int column) const {
    return length(m_columns[static_cast<std::size_t>(column)]) == SQL_NULL_DATA;
}

template <typename Number>
Number odbc_cursor::number(const field& from) const {
    Number value = 0;
    if (length(from) != SQL_NULL_DATA)
        std::memcpy(&value, cell(from), sizeof value);
    return value;
}

std::string_view odbc_cursor::text(int column) const {
    auto& from = m_columns[static_cast<std::size_t>(column)];
    if (from.isRead)
        return from.value;
    from.isRead = true;
    from.value.clear();
    const SQLLEN bytes = length(from);
    if (bytes == SQL_NULL_DATA)
        return from.value;
    if (from.is == content::real)
        from.value = numbers::shortest(number<double>(from));
    else if (from.is == content::integer)
        from.value = std::to_string(number<std::int64_t>(from));
    else if (bytes == SQL_NO_TOTAL || static_cast<std::size_t>(bytes) + unit > from.width)
        readLong(from, static_cast<SQLUSMALLINT>(column + 1));
    else
        odbcText::appendUtf8(from.value,
                             reinterpret_cast<const SQLWCHAR*>(cell(from)),
                             static_cast<std::size_t>(bytes) / unit);
    return from.value;
}

double odbc_cursor::real(int column) const {
    const auto& from = m_columns[static_cast<std::size_t>(column)];
    if (from.is == content::real)
        return number<double>(from);
    return from.is == content::integer ? static_cast<double>(number<std::int64_t>(from))
                                       : leading<double>(text(column));
}

std::int64_t odbc_cursor::integer(int column) const {
    const auto& from = m_columns[static_cast<std::size_t>(column)];
    if (from.is == content::integer)
        return number<std::int64_t>(from);
    if (from.is == content::text)
        return leading<std::int64_t>(text(column));
    constexpr double limit = 9.2233720368547758e18;
    const double value = number<double>(from);
    if (value >= limit)
        return std::numeric_limits<std::int64_t>::max();
    return value > -limit ? static_cast<std::int64_t>(value)
                          : std::numeric_limits<std::int64_t>::min();
}

// A text that does not fit into its place in the block.
void odbc_cursor::readLong(field& into, SQLUSMALLINT number) const {
    const SQLHSTMT handle = m_statement.get();
    if (m_blockRows > 1)
        SQLSetPos(handle, m_row + 1, SQL_POSITION, SQL_LOCK_NO_CHANGE);
    const SQLLEN known = length(into);
    std::vector<SQLWCHAR> all(known == SQL_NO_TOTAL ? 1 << 16
                                                    : static_cast<std::size_t>(known) / unit + 2);
    std::size_t filled = 0; // bytes
    SQLRETURN code = SQL_SUCCESS_WITH_INFO;
    while (code == SQL_SUCCESS_WITH_INFO) {
        if (filled + 2 * unit > all.size() * unit)
            all.resize(2 * all.size());
        SQLLEN left = 0;
        const std::size_t room = all.size() * unit - filled;
        code = SQLGetData(handle,
                          number,
                          SQL_C_WCHAR,
                          all.data() + filled / unit,
                          static_cast<SQLLEN>(room),
                          &left);
        if (!SQL_SUCCEEDED(code) || left == SQL_NULL_DATA)
            break;
        const std::size_t most = room - unit;
        filled += left == SQL_NO_TOTAL ? most : std::min(static_cast<std::size_t>(left), most);
    }
    odbcText::appendUtf8(into.value, all.data(), filled / unit);
}
