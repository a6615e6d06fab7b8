// What there is: borders of a correlation and of a well, wells of a border.
#include "NORLEX_correlation.h"
#include "correlation/cor_rows.h"
#include "odbc_database.h"
#include "platform/sql_text.h"
#include "wells/query.h"

using namespace sqlText;

namespace correlation {

namespace {

std::vector<std::wstring> namesOf(const std::vector<borderName>& borders) {
    std::vector<std::wstring> out;
    out.reserve(borders.size());
    for (const auto& one : borders)
        out.push_back(one.name);
    return out;
}

} // namespace

std::int64_t correlation::getBorderNameID(odbc_database* db,
                                          const NORLEX_propDescription& cor,
                                          const std::wstring& border) {
    const std::int64_t id = getCorrelationID(db, cor);
    return id != 0 ? corRows::findBorder(*db, id, border) : 0;
}

bool correlation::isBorderNameExist(odbc_database* db,
                                    const NORLEX_propDescription& cor,
                                    const std::wstring& border) {
    return getBorderNameID(db, cor, border) != 0;
}

bool correlation::isBorderNameExist(odbc_database* db,
                                    std::int64_t correlationId,
                                    const std::wstring& border) {
    return query::isOpen(db) && corRows::findBorder(*db, correlationId, border) != 0;
}

bool correlation::isBorderNameExist(odbc_database* db, const std::wstring& border) {
    return query::counter(
               db, sql(L"SELECT b_id FROM correlation_borders WHERE name = ", quotedName(border)))
           != 0;
}

bool correlation::isBorderNameExist(odbc_database* db,
                                    const NORLEX_propDescription& cor,
                                    const wellRef& well,
                                    const std::wstring& border) {
    double measured = 0.0;
    double absolute = 0.0;
    return getDepth(db, cor, well, border, measured, absolute);
}

void correlation::getBordersBase(odbc_database* db,
                                 std::int64_t correlationId,
                                 std::vector<borderName>& borders) {
    borders.clear();
    if (db != nullptr)
        corRows::readBorders(*db, L"cor_id =" + key(correlationId), borders);
}

void correlation::getBordersForGroupBase(odbc_database* db,
                                         std::int64_t correlationId,
                                         const std::wstring& group,
                                         std::vector<borderName>& borders) {
    borders.clear();
    if (db != nullptr)
        corRows::readBorders(
            *db,
            sql(L"cor_id =", key(correlationId), L" AND b_group = ", quotedName(group)),
            borders);
}

void correlation::getBorderList(odbc_database* db,
                                const NORLEX_propDescription& cor,
                                std::vector<borderName>& borders) {
    getBordersBase(db, getCorrelationID(db, cor), borders);
}

void correlation::getBorderList(odbc_database* db,
                                const NORLEX_propDescription& cor,
                                std::vector<std::wstring>& borders) {
    std::vector<borderName> found;
    getBorderList(db, cor, found);
    borders = namesOf(found);
}

void correlation::getBorderList(odbc_database* db,
                                const NORLEX_propDescription& cor,
                                const wellRef& well,
                                std::vector<borderName>& borders) {
    borders.clear();
    std::vector<point> points;
    if (loadData(db, cor, well, NORLEX_dataDirectionMeasured, points))
        for (const auto& one : points)
            borders.push_back({one.borderId, one.name, one.group});
}

void correlation::getBorderList(odbc_database* db,
                                const NORLEX_propDescription& cor,
                                const wellRef& well,
                                std::vector<std::wstring>& borders) {
    std::vector<borderName> found;
    getBorderList(db, cor, well, found);
    borders = namesOf(found);
}

void correlation::getWellListForBorder(odbc_database* db,
                                       const NORLEX_propDescription& cor,
                                       const std::wstring& border,
                                       std::vector<NORLEX_wellDescription>& wells) {
    wells.clear();
    const auto id = getBorderNameID(db, cor, border);
    const auto rows =
        id == 0
            ? nullptr
            : db->query(sql(
                L"SELECT work_object, field, name, w_id FROM well_base WHERE w_id IN (SELECT w_id FROM correlation_data WHERE b_id =",
                key(id),
                L") ORDER BY work_object, field, name"));
    while (rows && rows->next())
        wells.push_back({rows->get_text(0),
                         rows->get_text(1),
                         rows->get_text(2),
                         static_cast<std::uint32_t>(rows->get_counter(3))});
}

std::size_t correlation::getBorderNameWellCount(odbc_database* db,
                                                const NORLEX_propDescription& cor,
                                                const std::wstring& border) {
    return static_cast<std::size_t>(query::counter(
        db,
        sql(L"SELECT count(distinct(correlation_data.w_id)) FROM correlation_data LEFT JOIN correlation_borders ON correlation_data.b_id = correlation_borders.b_id WHERE correlation_borders.name = ",
            quotedName(border),
            L" AND correlation_borders.cor_id =",
            key(getCorrelationID(db, cor)))));
}

bool correlation::getZoneBorders(odbc_database* db,
                                 const std::wstring& zone,
                                 std::wstring& top,
                                 std::wstring& bottom) {
    const auto rows =
        query::isOpen(db)
            ? db->query(sql(L"SELECT top_name, bot_name FROM zones WHERE name = ", quoted(zone)))
            : nullptr;
    if (!rows || !rows->next())
        return false;
    top = rows->get_text(0);
    bottom = rows->get_text(1);
    return true;
}

} // namespace correlation
