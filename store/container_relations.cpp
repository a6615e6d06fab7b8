#include "store/container_relations.h"

#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"

#include <array>
#include <string_view>

using namespace sqlText;

namespace containerRelations {

namespace {

// `rows` of a table whose `condition` holds have lost their owner. Owners stand before what they
// own, so that one pass from the first to the last removes what hung on a removed row, too.
struct relation {
    std::wstring_view table;
    std::wstring_view column; // shown of the first row
    std::wstring_view condition;
    bool repairable;
};

// A property without its template, a correlation pick without its border and the like are data that
// a person may still want: they are told, and stay.
constexpr std::array<relation, 27> relations = {{
    {L"property", L"pr_id", L"w_id NOT IN (SELECT w_id FROM well_base)", true},
    {L"property", L"pr_id", L"bt_id NOT IN (SELECT bt_id FROM base_template)", false},
    {L"field_template", L"ft_id", L"bt_id NOT IN (SELECT bt_id FROM base_template)", true},
    {L"field", L"f_id", L"pr_id NOT IN (SELECT pr_id FROM property)", true},
    {L"val", L"v_id", L"f_id NOT IN (SELECT f_id FROM field)", true},
    {L"val",
     L"v_id",
     L"obj_id NOT IN (SELECT obj_id FROM point_data) AND obj_id NOT IN (SELECT obj_id FROM interval_data)",
     true},
    {L"point_data", L"obj_id", L"obj_id NOT IN (SELECT obj_id FROM val)", true},
    {L"interval_data", L"obj_id", L"obj_id NOT IN (SELECT obj_id FROM val)", true},
    {L"inclinometry", L"w_id", L"w_id NOT IN (SELECT w_id FROM well_base)", true},
    {L"meta", L"m_id", L"m_group = 'well' AND obj_id NOT IN (SELECT w_id FROM well_base)", true},
    {L"meta",
     L"m_id",
     L"m_group = 'property' AND obj_id NOT IN (SELECT pr_id FROM property)",
     true},
    {L"prop_link", L"obj_id", L"fld_id NOT IN (SELECT f_id FROM field)", true},
    {L"well_info", L"w_id", L"w_id NOT IN (SELECT w_id FROM well_base)", true},
    {L"well_executors", L"w_id", L"w_id NOT IN (SELECT w_id FROM well_base)", true},
    {L"well_drilling", L"u_id", L"w_id NOT IN (SELECT w_id FROM well_base)", true},
    {L"well_construction", L"u_id", L"w_id NOT IN (SELECT w_id FROM well_base)", true},
    {L"construction", L"id", L"w_id NOT IN (SELECT w_id FROM well_base)", true},
    {L"well_stat_vals", L"w_id", L"w_id NOT IN (SELECT w_id FROM well_base)", true},
    {L"well_info_values", L"i_id", L"w_id NOT IN (SELECT w_id FROM well_base)", true},
    {L"well_info_values", L"i_id", L"i_id NOT IN (SELECT i_id FROM well_info_struct)", true},
    {L"vdm_data", L"dt_id", L"w_id NOT IN (SELECT w_id FROM well_base)", true},
    {L"file_folder_link", L"f_id", L"w_id NOT IN (SELECT w_id FROM well_base)", true},
    {L"file_link", L"id", L"pr_id NOT IN (SELECT pr_id FROM property)", false},
    {L"correlation_borders", L"b_id", L"cor_id NOT IN (SELECT cor_id FROM correlation)", false},
    {L"correlation_data", L"d_id", L"w_id NOT IN (SELECT w_id FROM well_base)", true},
    {L"correlation_data", L"d_id", L"b_id NOT IN (SELECT b_id FROM correlation_borders)", true},
    {L"well_stat_fld", L"wf_id", L"wt_id NOT IN (SELECT wt_id FROM well_stat_table)", true},
}};

// Two rows of one identity: what opens by it finds either.
struct identity {
    std::wstring_view kind;
    std::wstring_view table;
    std::wstring_view columns;
    std::wstring_view shown;
};
constexpr std::array<identity, 4> identities = {{
    {L"duplicate well", L"well_base", L"work_object, field, name", L"name"},
    {L"duplicate property", L"property", L"w_id, p_group, name", L"name"},
    {L"duplicate template", L"base_template", L"name", L"name"},
    {L"duplicate field", L"field", L"pr_id, name", L"name"},
}};

// The count in the first column, an example in the second; a group a row.
bool addFound(odbc_database& db,
              const std::wstring& statement,
              const NORLEX_checkFinding& as,
              std::vector<NORLEX_checkFinding>& findings) {
    const auto row = db.query(statement);
    if (!row || !row->next())
        return refuse(sql(L"cannot check the table ", as.place, L": ", db.last_error()));
    if (row->get_counter(0) == 0)
        return true;
    findings.push_back(as);
    findings.back().count = row->get_counter(0);
    findings.back().example = row->get_text(1);
    return true;
}

bool findOrphans(odbc_database& db,
                 const relation& one,
                 std::vector<NORLEX_checkFinding>& findings) {
    return addFound(
        db,
        sql(L"SELECT count(*), min(", one.column, L") FROM ", one.table, L" WHERE ", one.condition),
        {L"orphan rows", std::wstring(one.table), 0, {}, one.repairable},
        findings);
}

bool findDuplicates(odbc_database& db,
                    const identity& one,
                    std::vector<NORLEX_checkFinding>& findings) {
    return addFound(db,
                    sql(L"SELECT count(*), min(shown) FROM (SELECT min(",
                        one.shown,
                        L") AS shown FROM ",
                        one.table,
                        L" GROUP BY ",
                        one.columns,
                        L" HAVING count(*) > 1) AS twice"),
                    {std::wstring(one.kind), std::wstring(one.table), 0, {}, false},
                    findings);
}

} // namespace

bool find(odbc_database& db, std::vector<NORLEX_checkFinding>& findings) {
    for (const auto& one : relations)
        if (!findOrphans(db, one, findings))
            return false;
    for (const auto& one : identities)
        if (!findDuplicates(db, one, findings))
            return false;
    return true;
}

bool removeOrphans(odbc_database& db, std::vector<NORLEX_checkFinding>& removed) {
    for (const auto& one : relations)
        if (one.repairable
            && (!findOrphans(db, one, removed)
                || !db.exec(sql(L"DELETE FROM ", one.table, L" WHERE ", one.condition))))
            return false;
    return true;
}

} // namespace containerRelations
