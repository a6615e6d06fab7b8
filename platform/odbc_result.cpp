#include "odbc_result.h"

#include "platform/sql_driver.h"
#include "platform/strconv.h"

#include <utility>

odbc_result::odbc_result(std::unique_ptr<sql_cursor> cursor, std::function<void()> onBroken)
    : m_cursor(std::move(cursor)), m_onBroken(std::move(onBroken)) {}

odbc_result::~odbc_result() = default;

bool odbc_result::next() {
    if (m_cursor->next())
        return true;
    if (m_onBroken && m_cursor->isBroken())
        std::exchange(m_onBroken, {})();
    return false;
}

std::wstring odbc_result::get_text(int column) const {
    return ts::strconv::fromUtf8(m_cursor->text(column));
}

double odbc_result::get_double(int column) const {
    return m_cursor->real(column);
}

int odbc_result::get_int(int column) const {
    return static_cast<int>(m_cursor->integer(column));
}

std::int64_t odbc_result::get_counter(int column) const {
    return m_cursor->integer(column);
}

bool odbc_result::is_null(int column) const {
    return m_cursor->isNull(column);
}

int odbc_result::column_count() const {
    return m_cursor->columnCount();
}

std::wstring odbc_result::column_name(int column) const {
    return ts::strconv::fromUtf8(m_cursor->columnName(column));
}
