// The rows of a query on the server, read in blocks.
#pragma once

#include "platform/odbc_session.h"
#include "platform/sql_driver.h"

#include <memory>
#include <string>
#include <vector>

// All rows have come from the server by the time there is a cursor: others may be opened and
// transactions ended while it is read. The session lives as long as its cursors.
class odbc_cursor final : public sql_cursor {
public:
    odbc_cursor(std::shared_ptr<odbc_session> session, odbc_session::statement statement);
    ~odbc_cursor() override;

    bool next() override;
    bool isBroken() const override { return m_isBroken; }
    int columnCount() const override { return static_cast<int>(m_columns.size()); }
    std::string columnName(int column) const override;
    bool isNull(int column) const override;
    std::string_view text(int column) const override;
    double real(int column) const override;
    std::int64_t integer(int column) const override;

private:
    enum class content { text, integer, real };

    struct field {
        std::string name;
        content is = content::text;
        std::size_t width = 0;         // bytes of a value, its closing zero included
        std::unique_ptr<char[]> block; // of one value after the other
        std::vector<SQLLEN> lengths;   // bytes, SQL_NULL_DATA, or SQL_NO_TOTAL
        std::string value;             // the text of the present row
        bool isRead = false;           // `value` holds it
    };

    void describe();
    void bind();
    [[nodiscard]] bool fetchBlock();
    [[nodiscard]] SQLLEN length(const field& from) const { return from.lengths[m_row]; }
    [[nodiscard]] const char* cell(const field& from) const {
        return from.block.get() + from.width * m_row;
    }
    template <typename Number>
    [[nodiscard]] Number number(const field& from) const;
    void readLong(field& into, SQLUSMALLINT number) const;

    std::shared_ptr<odbc_session> m_session;
    odbc_session::statement m_statement;
    mutable std::vector<field> m_columns;
    std::size_t m_blockRows = 1;
    bool m_isBroken = false;
    SQLULEN m_fetched = 0;
    std::size_t m_row = 0; // in the block
};
