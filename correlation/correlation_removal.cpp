// Picks deleted: of one well, of all, of a group, by their keys.
#include "NORLEX_correlation.h"
#include "correlation/cor_edit.h"
#include "correlation/cor_rows.h"
#include "correlation/mirrors.h"
#include "correlation/pick_edit.h"
#include "eventMsgDescription.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/row_inserter.h"
#include "platform/sql_text.h"
#include "wells/well_records.h"

using namespace sqlText;
using corRows::quote;

namespace correlation {

bool correlation::deleteBorder(odbc_database* db,
                               const NORLEX_propDescription& cor,
                               const wellRef& well,
                               const std::wstring& border) {
    corEdit edit(db, cor);
    const auto at = pickEdit::find(edit, well, border);
    if (!at
        || !db->exec(sql(
            L"DELETE FROM correlation_data WHERE correlation_data.d_id IN(SELECT correlation_data.d_id FROM correlation_data LEFT JOIN correlation_borders ON correlation_borders.b_id = correlation_data.b_id LEFT JOIN correlation ON correlation_borders.cor_id = correlation.cor_id LEFT JOIN well_base ON correlation_data.w_id = well_base.w_id WHERE correlation.name = ",
            quotedName(edit.prop().name),
            L" AND well_base.name = ",
            quotedName(at->well.name),
            L" AND well_base.field = ",
            quotedName(at->well.field),
            L" AND well_base.work_object = ",
            quotedName(at->well.workObject),
            L" AND correlation_borders.name = ",
            quotedName(at->border),
            L")")))
        return false;
    if (db->affected_rows() == 0)
        return pickEdit::refuseUnpicked(*at);
    return pickEdit::finish(edit, *at, eventAction::remove);
}

bool correlation::deleteBorderFromAllWells(odbc_database* db,
                                           const NORLEX_propDescription& cor,
                                           const std::wstring& border) {
    corEdit edit(db, cor);
    const auto id = edit ? edit.border(border) : 0;
    return id != 0 && db->exec(sql(L"DELETE FROM correlation_data WHERE b_id =", key(id)))
           && corRows::touchBorder(*db, id) && mirrors::tellAll(*db, edit.prop())
           && edit.finish(eventAction::remove, L"all picks of " + plainName(border));
}

bool correlation::deleteBordersFromGroup(odbc_database* db,
                                         const NORLEX_propDescription& cor,
                                         const std::wstring& group,
                                         const std::vector<std::uint32_t>& wells) {
    corEdit edit(db, cor);
    if (!edit)
        return false;
    std::vector<std::int64_t> borders;
    {
        const auto rows = db->query(sql(L"SELECT b_id FROM correlation_borders WHERE cor_id =",
                                        key(edit.id()),
                                        L" AND b_group = ",
                                        quotedName(group)));
        while (rows && rows->next())
            borders.push_back(rows->get_counter(0));
    }
    if (borders.empty())
        return refuse(L"the correlation " + quote(edit.prop().name) + L" has no group "
                      + quote(plainName(group)));
    const std::wstring list = keyList(borders);
    return manyKeys::forEachPart(wells,
                                 [&](const std::wstring& keys) {
                                     return db->exec(
                                         sql(L"DELETE FROM correlation_data WHERE w_id IN (",
                                             keys,
                                             L") AND b_id IN(",
                                             list,
                                             L")"));
                                 })
           && corRows::touchBorders(*db, borders) && mirrors::tellAll(*db, edit.prop())
           && edit.finish(eventAction::remove, L"picks of the group " + plainName(group));
}

bool correlation::deletePoint(odbc_database* db,
                              const NORLEX_propDescription& cor,
                              std::int64_t pickId) {
    corEdit edit(db, cor);
    if (!edit)
        return false;
    pickEdit::place at;
    {
        const auto rows = db->query(sql(
            L"SELECT correlation_data.w_id, correlation_borders.b_id, correlation_borders.name FROM correlation_data INNER JOIN correlation_borders ON correlation_borders.b_id = correlation_data.b_id WHERE correlation_data.d_id =",
            key(pickId),
            L" AND correlation_borders.cor_id =",
            key(edit.id())));
        if (!rows || !rows->next())
            return refuse(L"the correlation " + quote(edit.prop().name)
                          + L" has no pick with the key " + key(pickId));
        at.well.wellId = static_cast<std::uint32_t>(rows->get_counter(0));
        at.borderId = rows->get_counter(1);
        at.border = rows->get_text(2);
    }
    const auto well = wellRecords::read(*db, at.well.wellId);
    if (!well)
        return false;
    at.well = *well;
    return db->exec(sql(L"DELETE FROM correlation_data WHERE d_id =", key(pickId)))
           && pickEdit::finish(edit, at, eventAction::remove);
}

} // namespace correlation
