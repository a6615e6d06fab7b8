#include "templates/template_queries.h"

#include "odbc_database.h"
#include "platform/last_error.h"

#include <memory>

namespace templateQueries {

namespace {

std::unique_ptr<odbc_result> rowsOf(odbc_database* db, std::wstring_view statement) {
    return db != nullptr ? db->query(statement) : nullptr;
}

} // namespace

bool isOpen(const odbc_database* db) {
    return (db != nullptr && db->is_connected()) || refuse(L"no container is open");
}

std::wstring text(odbc_database* db, std::wstring_view statement) {
    const auto rows = rowsOf(db, statement);
    return rows && rows->next() ? rows->get_text(0) : std::wstring();
}

std::int64_t counter(odbc_database* db, std::wstring_view statement) {
    const auto rows = rowsOf(db, statement);
    return rows && rows->next() ? rows->get_counter(0) : 0;
}

std::vector<std::wstring> texts(odbc_database* db, std::wstring_view statement) {
    std::vector<std::wstring> found;
    const auto rows = rowsOf(db, statement);
    while (rows && rows->next())
        found.push_back(rows->get_text(0));
    return found;
}

} // namespace templateQueries
