// Lists of work objects, fields and wells.
#include "NORLEX_well.h"
#include "odbc_database.h"
#include "platform/sql_text.h"
#include "wells/query.h"

#include <unordered_map>

using namespace sqlText;

namespace {

// Columns: name, work object, field, key.
void readWells(odbc_database* db,
               const std::wstring& statement,
               std::vector<NORLEX_wellDescription>& wells) {
    const auto rows = query::isOpen(db) ? db->query(statement) : nullptr;
    while (rows && rows->next())
        wells.push_back({rows->get_text(1),
                         rows->get_text(2),
                         rows->get_text(0),
                         static_cast<std::uint32_t>(rows->get_counter(3))});
}

// A count by well.
std::unordered_map<std::int64_t, std::int64_t> counts(odbc_database& db,
                                                      std::wstring_view statement) {
    std::unordered_map<std::int64_t, std::int64_t> out;
    const auto rows = db.query(statement);
    while (rows && rows->next())
        out[rows->get_counter(0)] = rows->get_counter(1);
    return out;
}

} // namespace

void NORLEX_well::getWorkObjectList(odbc_database* db, std::vector<std::wstring>& workObjects) {
    query::texts(
        db, L"SELECT distinct(work_object) FROM well_base ORDER BY work_object", workObjects);
}

void NORLEX_well::getFieldList(odbc_database* db, std::vector<std::wstring>& fields) {
    query::texts(db, L"SELECT distinct(field) FROM well_base ORDER BY field", fields);
}

void NORLEX_well::getFieldList(odbc_database* db,
                               const std::wstring& workObject,
                               std::vector<std::wstring>& fields) {
    query::texts(db,
                 sql(L"SELECT distinct(field) FROM well_base WHERE work_object = ",
                     quotedName(workObject),
                     L" ORDER BY work_object, field"),
                 fields);
}

void NORLEX_well::getWellList(odbc_database* db, std::vector<NORLEX_wellDescription>& wells) {
    wells.clear();
    const std::int64_t count = query::counter(db, L"SELECT count(name) FROM well_base");
    wells.reserve(static_cast<std::size_t>(count));
    readWells(
        db,
        L"SELECT name, work_object, field, w_id FROM well_base ORDER BY work_object, field, name",
        wells);
}

void NORLEX_well::getWellList(odbc_database* db,
                              const std::wstring& field,
                              std::vector<NORLEX_wellDescription>& wells) {
    wells.clear();
    readWells(db,
              sql(L"SELECT distinct(name), work_object, field, w_id FROM well_base WHERE field = ",
                  quotedName(field),
                  L" ORDER BY work_object, field, name"),
              wells);
}

void NORLEX_well::getWellList(odbc_database* db,
                              const std::wstring& workObject,
                              const std::wstring& field,
                              std::vector<NORLEX_wellDescription>& wells) {
    wells.clear();
    readWells(db,
              sql(L"SELECT distinct(name), work_object, field, w_id FROM well_base WHERE field = ",
                  quotedName(field),
                  L" AND work_object = ",
                  quotedName(workObject),
                  L" ORDER BY work_object, field, name"),
              wells);
}

void NORLEX_well::getWellInfoList(odbc_database* db, std::vector<NORLEX_wellInfo>& wells) {
    wells.clear();
    if (!query::isOpen(db))
        return;
    const auto properties = counts(*db, L"SELECT w_id, count(pr_id) FROM property GROUP BY w_id");
    const auto stations = counts(*db, L"SELECT w_id, count(depth) FROM inclinometry GROUP BY w_id");
    const auto rows = db->query(
        L"SELECT work_object, field, name, w_id, x, y, altitude, bottom FROM well_base ORDER BY work_object, field, name");
    while (rows && rows->next()) {
        NORLEX_wellInfo info;
        const std::int64_t wellId = rows->get_counter(3);
        info.description = {rows->get_text(0),
                            rows->get_text(1),
                            rows->get_text(2),
                            static_cast<std::uint32_t>(wellId)};
        info.x = rows->get_double(4);
        info.y = rows->get_double(5);
        info.altitude = rows->get_double(6);
        if (!rows->get_text(7).empty()) // neither NULL nor the empty text of a reset bottom
            info.bottom = rows->get_double(7);
        if (const auto count = properties.find(wellId); count != properties.end())
            info.properties = count->second;
        if (const auto count = stations.find(wellId); count != stations.end())
            info.stations = count->second;
        wells.push_back(std::move(info));
    }
}
