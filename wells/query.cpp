#include "wells/query.h"

#include "odbc_database.h"
#include "platform/last_error.h"

#include <memory>

namespace query {

namespace {

// Null, or standing on the first row.
std::unique_ptr<odbc_result> firstRow(odbc_database* db, std::wstring_view statement) {
    if (db == nullptr)
        return nullptr;
    auto rows = db->query(statement);
    return rows && rows->next() ? std::move(rows) : nullptr;
}

} // namespace

std::wstring text(odbc_database* db, std::wstring_view statement) {
    const auto row = firstRow(db, statement);
    return row ? row->get_text(0) : std::wstring();
}

double number(odbc_database* db, std::wstring_view statement) {
    const auto row = firstRow(db, statement);
    return row ? row->get_double(0) : 0.0;
}

std::int64_t counter(odbc_database* db, std::wstring_view statement) {
    const auto row = firstRow(db, statement);
    return row ? row->get_counter(0) : 0;
}

void texts(odbc_database* db, std::wstring_view statement, std::vector<std::wstring>& out) {
    out.clear();
    const auto rows = db != nullptr ? db->query(statement) : nullptr;
    while (rows && rows->next())
        out.push_back(rows->get_text(0));
}

bool isOpen(const odbc_database* db) {
    return (db != nullptr && db->is_connected()) || refuse(L"no container is open");
}

} // namespace query
