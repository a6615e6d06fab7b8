// The rows that a query yields, one at a time.
#pragma once

#include "NORLEX_export.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

class sql_cursor;

// Columns are read by index, from 0. A NULL reads as empty text or 0; numbers stored as text read
// as their leading number, or 0. Destroying the object ends the query: keep it no longer than
// needed, an open one holds other programs back from writing.
class NORLEX_API odbc_result {
public:
    // `onBroken` is called when the rows end because the engine failed.
    explicit odbc_result(std::unique_ptr<sql_cursor> cursor, std::function<void()> onBroken = {});
    ~odbc_result();
    odbc_result(const odbc_result&) = delete;
    odbc_result& operator=(const odbc_result&) = delete;

    // Steps to the next row; false after the last one, and when the engine fails: that dooms an
    // open transaction.
    [[nodiscard]] bool next();

    [[nodiscard]] std::wstring get_text(int column) const;
    [[nodiscard]] double get_double(int column) const;
    [[nodiscard]] int get_int(int column) const;
    [[nodiscard]] std::int64_t get_counter(int column) const;
    [[nodiscard]] bool is_null(int column) const;
    [[nodiscard]] int column_count() const;
    [[nodiscard]] std::wstring column_name(int column) const;

private:
    std::unique_ptr<sql_cursor> m_cursor;
    std::function<void()> m_onBroken;
};
