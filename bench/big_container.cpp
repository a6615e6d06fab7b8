#include "bench/big_container.h"

#include "bench/database.h"

#include "NORLEX_propTemplate.h"
#include "odbc_database.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"

#include <filesystem>
#include <system_error>

using namespace sqlText;

namespace bench {

namespace {

std::wstring numbers(std::int64_t last) {
    return sql(L"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ",
               key(last),
               L") ");
}

std::wstring templateOf(odbc_database& db, NORLEX_dataType type, const std::wstring& name) {
    return NORLEX_propTemplate::createFromType(&db,
                                               type,
                                               name,
                                               {L"text", L"num"},
                                               {NORLEX_fieldTypeString, NORLEX_fieldTypeNumeric},
                                               false)
               ? key(NORLEX_propTemplate::getID(&db, name))
               : std::wstring();
}

bool fill(odbc_database& db, std::int64_t wells) {
    const auto points = templateOf(db, NORLEX_dataTypeMarker, L"Bench points");
    const auto intervals = templateOf(db, NORLEX_dataTypeInterval, L"Bench intervals");
    transaction whole(&db);
    return !points.empty() && !intervals.empty() && whole.isOpen()
           && db.exec(
               L"INSERT INTO well_base (w_id, work_object, field, name, altitude, x, y) "
               + numbers(wells)
               + L"SELECT i, 'O', 'F-' || (i % 10), 'W-' || i, 100.25, i * 10.5, i * 20.25 FROM n")
           && db.exec(L"INSERT INTO property (pr_id, w_id, bt_id, name, p_group) "
                      + numbers(wells * 10)
                      + L"SELECT i, (i - 1) / 10 + 1, CASE WHEN (i - 1) % 10 < 5 THEN " + points
                      + L" ELSE " + intervals + L" END, 'P-' || ((i - 1) % 10), 'G' FROM n")
           && db.exec(
               L"INSERT INTO field (f_id, pr_id, name, type, is_base) " + numbers(wells * 20)
               + L"SELECT i, (i - 1) / 2 + 1, CASE WHEN i % 2 = 1 THEN 'text' ELSE 'num' END, CASE WHEN i % 2 = 1 THEN 'NORLEX_fieldTypeString' ELSE 'NORLEX_fieldTypeNumeric' END, 0 FROM n")
           && db.exec(
               L"INSERT INTO point_data (obj_id, depth, depth_abs, type) " + numbers(wells * 250)
               + L"SELECT i, i % 4000 + 0.25, 100.0 - i % 4000, 0 FROM n WHERE (i - 1) / 25 % 10 < 5")
           && db.exec(
               L"INSERT INTO interval_data (obj_id, top, bot, top_abs, bot_abs) "
               + numbers(wells * 250)
               + L"SELECT i, i % 4000 + 0.25, i % 4000 + 1.25, 100.0 - i % 4000, 99.0 - i % 4000 FROM n WHERE (i - 1) / 25 % 10 >= 5")
           && db.exec(
               L"INSERT INTO val (f_id, value, obj_id) " + numbers(wells * 500)
               + L"SELECT (i - 1) / 25 + 1, CASE WHEN (i - 1) / 25 % 2 = 0 THEN 'value ' || ((i + i / 500 * 37) % 1000 * 7919 % 1000) ELSE ((i + i / 500 * 37) % 1000 * 7919 % 1000) || '.5' END, (i - 1) / 50 * 25 + (i - 1) % 25 + 1 FROM n")
           && whole.commit();
}

} // namespace

std::string bigContainer(const settings& with, std::size_t wells) {
    std::string path = with.folder + "/big_" + std::to_string(wells) + ".well2";
    std::error_code ignored;
    if (std::filesystem::exists(path, ignored))
        return path;
    const auto made = newContainer(path);
    return made && fill(*made->getBaseLink(), static_cast<std::int64_t>(wells)) ? path
                                                                                : std::string();
}

} // namespace bench
