// Picks: made, moved, given a type.
#include "NORLEX_correlation.h"
#include "NORLEX_inclinometry.h"
#include "correlation/cor_edit.h"
#include "correlation/cor_rows.h"
#include "correlation/pick_edit.h"
#include "correlation/pick_rows.h"
#include "correlation/pick_writer.h"
#include "eventMsgDescription.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "wells/names.h"

using namespace sqlText;
using corRows::quote;

namespace correlation {

namespace {

using insertion = bool (*)(odbc_database&,
                           std::uint32_t,
                           std::int64_t,
                           const NORLEX_geometryRecord&);

bool makePick(odbc_database* db,
              const NORLEX_propDescription& cor,
              const wellRef& well,
              const std::wstring& border,
              NORLEX_geometryRecord record,
              NORLEX_borderType type,
              insertion insert) {
    if (!pickRows::isType(type))
        return false;
    corEdit edit(db, cor);
    const auto at = pickEdit::find(edit, well, border);
    if (!at)
        return false;
    if (pickRows::find(*db, at->well.wellId, at->borderId) != 0)
        return refuse(L"the border " + quote(at->border) + L" is picked on the well "
                      + names::shown(at->well) + L" already; it may be moved");
    NORLEX_inclinometry survey(db, at->well.wellId);
    return pickRows::complete(record, &survey, at->border)
           && insert(*db, at->well.wellId, at->borderId, record)
           && (type == 0 || pickRows::setType(*db, at->well.wellId, at->borderId, type))
           && pickEdit::finish(edit, *at, eventAction::create);
}

} // namespace

bool correlation::createBorder(odbc_database* db,
                               const NORLEX_propDescription& cor,
                               const wellRef& well,
                               const std::wstring& border,
                               double measured) {
    return createBorder(db, cor, well, border, measured, NORLEX_unknownDepth);
}

bool correlation::createBorder(odbc_database* db,
                               const NORLEX_propDescription& cor,
                               const wellRef& well,
                               const std::wstring& border,
                               double measured,
                               double absolute) {
    NORLEX_geometryRecord record;
    record.top = measured;
    record.topAbs = absolute;
    return makePick(db, cor, well, border, record, 0, pickRows::insert);
}

bool correlation::insertPoint(odbc_database* db,
                              const NORLEX_propDescription& cor,
                              const wellRef& well,
                              const std::wstring& border,
                              double absolute,
                              double measured,
                              NORLEX_borderType type) {
    NORLEX_geometryRecord record;
    record.top = measured;
    record.topAbs = absolute;
    return makePick(db, cor, well, border, record, type, pickRows::insertAbsolute);
}

bool correlation::insertPoints(odbc_database* db,
                               const NORLEX_propDescription& cor,
                               const std::vector<newPick>& picks,
                               onExistingPick onExisting,
                               pickSums& sums) {
    sums = {};
    corEdit edit(db, cor);
    if (!edit)
        return false;
    pickWriter writer(edit, onExisting);
    if (!writer.open())
        return false;
    std::wstring reason;
    for (std::size_t i = 0; i < picks.size(); ++i)
        if (writer.add(picks[i], reason) == pickWriter::outcome::bad)
            return refuse(L"pick " + std::to_wstring(i + 1) + L": " + reason);
    if (!writer.finish())
        return false;
    const auto& made = writer.sums();
    if (!edit.finish(eventAction::create,
                     std::to_wstring(made.inserted + made.moved) + L" picks, "
                         + std::to_wstring(made.wells) + L" wells"))
        return false;
    sums = made;
    return true;
}

bool correlation::moveBorder(odbc_database* db,
                             const NORLEX_propDescription& cor,
                             const wellRef& well,
                             const std::wstring& border,
                             double measured,
                             double absolute) {
    corEdit edit(db, cor);
    const auto at = pickEdit::find(edit, well, border);
    if (!at)
        return false;
    NORLEX_geometryRecord record;
    record.top = measured;
    record.topAbs = absolute;
    NORLEX_inclinometry survey(db, at->well.wellId);
    if (!pickRows::complete(record, &survey, at->border)
        || !db->exec(sql(
            L"UPDATE correlation_data SET depth_real =",
            fixed(record.top, 2),
            L", depth_abs =",
            fixed(record.topAbs, 2),
            L" WHERE correlation_data.d_id IN(SELECT correlation_data.d_id FROM correlation_data LEFT JOIN correlation_borders ON correlation_borders.b_id = correlation_data.b_id LEFT JOIN correlation ON correlation_borders.cor_id = correlation.cor_id LEFT JOIN well_base ON correlation_data.w_id = well_base.w_id WHERE correlation.name = ",
            quotedName(edit.prop().name),
            L" AND well_base.w_id =",
            key(at->well.wellId),
            L" AND correlation_borders.name = ",
            quotedName(at->border),
            L")")))
        return false;
    if (db->affected_rows() == 0)
        return pickEdit::refuseUnpicked(*at);
    return pickEdit::finish(edit, *at, eventAction::update);
}

bool correlation::setBorderType(odbc_database* db,
                                const NORLEX_propDescription& cor,
                                const wellRef& well,
                                const std::wstring& border,
                                NORLEX_borderType type) {
    if (!pickRows::isType(type))
        return false;
    corEdit edit(db, cor);
    const auto at = pickEdit::find(edit, well, border);
    if (!at || !pickRows::setType(*db, at->well.wellId, at->borderId, type))
        return false;
    if (db->affected_rows() == 0)
        return pickEdit::refuseUnpicked(*at);
    return pickEdit::finish(edit, *at, eventAction::update);
}

} // namespace correlation
