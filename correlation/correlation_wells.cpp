// The picks of one well: cleared, copied to another.
#include "NORLEX_correlation.h"
#include "NORLEX_inclinometry.h"
#include "NORLEX_well.h"
#include "correlation/cor_edit.h"
#include "correlation/cor_rows.h"
#include "correlation/mirrors.h"
#include "correlation/pick_rows.h"
#include "odbc_database.h"
#include "platform/missing.h"
#include "platform/sql_text.h"
#include "wells/announce.h"
#include "wells/names.h"
#include "wells/query.h"
#include "wells/well_records.h"

#include <map>

using namespace sqlText;

namespace correlation {

namespace {

struct copied {
    std::wstring border;
    NORLEX_geometryRecord record;
};

std::vector<copied> readPicks(odbc_database& db, std::int64_t id, std::uint32_t wellId) {
    std::vector<copied> out;
    // two blanks before the last column are part of the text
    const auto rows = db.query(sql(
        L"SELECT correlation_borders.name, correlation_borders.b_group, correlation_data.depth_real,  correlation_data.depth_abs FROM correlation_data LEFT JOIN correlation_borders ON correlation_borders.b_id = correlation_data.b_id WHERE correlation_borders.cor_id =",
        key(id),
        L" and correlation_data.w_id =",
        key(wellId),
        L" order by correlation_data.depth_real"));
    while (rows && rows->next()) {
        copied one;
        one.border = rows->get_text(0);
        one.record.top = rows->get_double(2);
        one.record.topAbs = rows->get_double(3);
        out.push_back(std::move(one));
    }
    return out;
}

// Of picks that have one, by border.
std::map<std::int64_t, NORLEX_borderType>
readTypes(odbc_database& db, std::int64_t id, std::uint32_t wellId) {
    std::map<std::int64_t, NORLEX_borderType> out;
    const auto rows = db.query(
        sql(L"SELECT b_id, type FROM correlation_data WHERE w_id =",
            key(wellId),
            L" AND type <> 0 AND b_id IN (SELECT b_id FROM correlation_borders WHERE cor_id =",
            key(id),
            L")"));
    while (rows && rows->next())
        out.try_emplace(rows->get_counter(0), static_cast<NORLEX_borderType>(rows->get_int(1)));
    return out;
}

bool copyPicks(corEdit& edit,
               std::uint32_t from,
               std::uint32_t to,
               NORLEX_dataDirection direction,
               std::size_t& made) {
    auto& db = edit.db();
    const auto types = readTypes(db, edit.id(), from);
    NORLEX_inclinometry survey(&db, to);
    for (auto& [border, record] : readPicks(db, edit.id(), from)) {
        const auto borderId = corRows::findBorder(db, edit.id(), border);
        if (borderId == 0 || pickRows::find(db, to, borderId) != 0)
            continue;
        (direction == NORLEX_dataDirectionMeasured ? record.topAbs : record.top) =
            NORLEX_unknownDepth;
        if (!pickRows::complete(record, &survey, border)
            || !pickRows::insert(db, to, borderId, record))
            return false;
        if (const auto type = types.find(borderId);
            type != types.end() && !pickRows::setType(db, to, borderId, type->second))
            return false;
        ++made;
    }
    return true;
}

} // namespace

wellRef::wellRef(const NORLEX_well& well) : m_isOpen(true) {
    m_well.wellId = well.getID();
}

std::optional<NORLEX_wellDescription> wellRef::find(odbc_database& db) const {
    if (m_isOpen)
        return wellRecords::read(db, m_well.wellId);
    auto out = names::plain(m_well);
    out.wellId = wellRecords::find(db, out);
    if (out.wellId != 0)
        return out;
    refuseMissing(&db, L"there is no well " + names::shown(out));
    return std::nullopt;
}

bool correlation::clearWell(odbc_database* db,
                            const NORLEX_propDescription& cor,
                            const wellRef& well) {
    corEdit edit(db, cor);
    const auto found = edit ? well.find(*db) : std::nullopt;
    if (!found)
        return false;
    const auto groups = mirrors::groups(*db, edit.prop().name, found->wellId);
    if (!db->exec(sql(
            L"DELETE FROM correlation_data WHERE b_id IN (SELECT b_id FROM correlation_borders WHERE cor_id =",
            key(edit.id()),
            L")",
            L" AND w_id =",
            key(found->wellId)))
        || !mirrors::remove(*db, edit.prop(), found->wellId)
        || !wellRecords::touch(*db, found->wellId))
        return false;
    announce::afterCommit(
        *db,
        [groups, well = *found, name = edit.prop().name](auto& observer, const auto& container) {
            for (const auto& group : groups)
                observer.deleteProperty(container, well, NORLEX_propDescription(name, group));
        });
    return edit.finish(eventAction::remove, names::shown(*found));
}

bool correlation::copyWell(odbc_database* db,
                           const NORLEX_propDescription& cor,
                           const wellRef& from,
                           const wellRef& to,
                           NORLEX_dataDirection direction) {
    corEdit edit(db, cor);
    const auto source = edit ? from.find(*db) : std::nullopt;
    const auto target = source ? to.find(*db) : std::nullopt;
    if (!target)
        return false;
    std::size_t made = 0;
    if (!copyPicks(edit, source->wellId, target->wellId, direction, made))
        return false;
    if (made == 0)
        return true;
    mirrors::found have;
    return mirrors::ensure(*db, edit.prop(), {*target}, have)
           && mirrors::tell(*db, edit.prop(), {*target}, have)
           && edit.finish(eventAction::create,
                          names::shown(*source) + L" -> " + names::shown(*target) + L", "
                              + std::to_wstring(made));
}

void correlation::getCorrelationListForWell(odbc_database* db,
                                            const wellRef& well,
                                            std::vector<std::wstring>& names) {
    names.clear();
    const auto found = query::isOpen(db) ? well.find(*db) : std::nullopt;
    if (found)
        query::texts(
            db,
            sql(L"SELECT distinct(correlation.name) FROM correlation_data LEFT JOIN correlation_borders ON correlation_data.b_id = correlation_borders.b_id LEFT JOIN correlation ON correlation.cor_id = correlation_borders.cor_id WHERE correlation_data.w_id =",
                key(found->wellId),
                L" ORDER BY correlation.name"),
            names);
}

} // namespace correlation
