#include "store/search_indexes.h"

#include "odbc_database.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"

#include <algorithm>
#include <array>
#include <string_view>

using namespace sqlText;

namespace searchIndexes {

namespace {

struct index {
    std::wstring_view name;
    std::wstring_view columns;
};

constexpr std::array<index, 11> indexes = {{
    {L"well_name_search", L"well_base (name)"},
    {L"property_well_search", L"property (w_id)"},
    {L"property_template_search", L"property (bt_id)"},
    {L"field_property_search", L"field (pr_id)"},
    {L"val_object_search", L"val (obj_id)"},
    {L"meta_object_search", L"meta (m_group, obj_id)"},
    {L"inclinometry_well_search", L"inclinometry (w_id)"},
    {L"passport_well_search", L"well_info_values (w_id)"},
    {L"vdm_well_search", L"vdm_data (w_id)"},
    {L"pick_well_search", L"correlation_data (w_id)"},
    {L"pick_border_search", L"correlation_data (b_id)"},
}};

} // namespace

bool create(odbc_database& db) {
    transaction whole(&db);
    return whole.isOpen()
           && std::ranges::all_of(
               indexes,
               [&](const index& one) {
                   return db.exec(
                       sql(L"CREATE INDEX IF NOT EXISTS ", one.name, L" ON ", one.columns));
               })
           && whole.commit();
}

bool drop(odbc_database& db) {
    transaction whole(&db);
    return whole.isOpen()
           && std::ranges::all_of(
               indexes,
               [&](const index& one) { return db.exec(sql(L"DROP INDEX IF EXISTS ", one.name)); })
           && whole.commit();
}

bool areThere(odbc_database& db) {
    const auto rows = db.query(
        db.is_server()
            ? L"SELECT indexname FROM pg_indexes WHERE indexname = 'val_object_search'"
            : L"SELECT name FROM sqlite_master WHERE type = 'index' AND name = 'val_object_search'");
    return rows && rows->next();
}

// A few hundred rows of each index tell enough.
bool refreshStatistics(odbc_database& db) {
    return (db.is_server() || db.exec(L"PRAGMA analysis_limit=400")) && db.exec(L"ANALYZE");
}

} // namespace searchIndexes
