// Correlations as a whole: found, listed, made, renamed, removed.
#include "NORLEX_correlation.h"
#include "correlation/cor_edit.h"
#include "correlation/cor_rows.h"
#include "correlation/mirrors.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "store/audit.h"
#include "store/journal.h"
#include "wells/announce.h"
#include "wells/names.h"
#include "wells/query.h"

#include <algorithm>

using namespace sqlText;
using corRows::quote;

namespace correlation {

namespace {

bool readRange(odbc_database* db,
               const NORLEX_propDescription& cor,
               const std::wstring& condition,
               NORLEX_depthRange& range) {
    if (!query::isOpen(db))
        return false;
    const auto rows = db->query(sql(
        L"SELECT MIN(correlation_data.depth_real) as top_real, MAX(correlation_data.depth_real) as bot_real, MAX(correlation_data.depth_abs) as top_abs, MIN(correlation_data.depth_abs) as bot_abs FROM correlation_data LEFT JOIN correlation_borders ON correlation_borders.b_id = correlation_data.b_id LEFT JOIN correlation ON correlation_borders.cor_id = correlation.cor_id WHERE correlation.name = ",
        quotedName(cor.name),
        condition));
    if (!rows || !rows->next() || rows->is_null(0)) // no pick is one row of NULLs
        return false;
    range = {rows->get_double(0), rows->get_double(1), rows->get_double(2), rows->get_double(3)};
    return true;
}

bool isPropertyName(odbc_database& db, const std::wstring& name) {
    const auto rows = db.query(sql(
        L"SELECT distinct(property.name) FROM property WHERE property.name = ", quotedName(name)));
    return rows && rows->next();
}

void announceRename(corEdit& edit, const std::wstring& newName) {
    auto groups = mirrors::groups(edit.db(), newName);
    if (std::ranges::find(groups, edit.prop().group) == groups.end())
        groups.push_back(edit.prop().group);
    announce::afterCommit(
        edit.db(),
        [groups, from = edit.prop().name, newName](auto& observer, const auto& container) {
            for (const auto& group : groups)
                observer.renamePropertyGlobal(0, container, {from, group}, {newName, group});
        });
}

} // namespace

std::int64_t correlation::getCorrelationID(odbc_database* db, const NORLEX_propDescription& cor) {
    return db != nullptr ? corRows::find(*db, cor.name) : 0;
}

void correlation::getCorrelationList(odbc_database* db, std::vector<std::wstring>& names) {
    names.clear();
    query::texts(db, L"SELECT name FROM correlation ORDER BY cor_id", names);
}

bool correlation::isCorrelationExist(odbc_database* db, const NORLEX_propDescription& cor) {
    const auto rows =
        query::isOpen(db)
            ? db->query(sql(L"SELECT name FROM correlation WHERE name = ", quotedName(cor.name)))
            : nullptr;
    return rows && rows->next();
}

void correlation::getMirrorGroupList(odbc_database* db,
                                     const NORLEX_propDescription& cor,
                                     std::vector<std::wstring>& groups) {
    groups.clear();
    if (db != nullptr)
        groups = mirrors::groups(*db, plainName(cor.name));
}

bool correlation::createCorrelationLayer(odbc_database* db, const NORLEX_propDescription& cor) {
    const auto prop = names::plain(cor);
    if (!query::isOpen(db) || !names::areStorable(prop))
        return false;
    transaction edit(db);
    if (!edit.isOpen())
        return false;
    if (corRows::find(*db, prop.name) != 0)
        return edit.commit();
    if (!db->exec(sql(
            L"INSERT INTO correlation (name, UUID, create_date, update_date, create_user, update_user) VALUES(",
            quotedName(prop.name),
            L", ",
            audit::created(*db),
            L")")))
        return false;
    journal::add(*db, eventKind::correlationBorder, eventAction::create, prop.name);
    return edit.commit();
}

bool correlation::rename(odbc_database* db,
                         const NORLEX_propDescription& cor,
                         const std::wstring& newName) {
    const NORLEX_propDescription to(plainName(newName), plainName(cor.group));
    if (!names::areStorable(to))
        return false;
    corEdit edit(db, cor);
    if (!edit)
        return false;
    if (edit.prop().name == to.name)
        return true;
    if (corRows::find(*db, to.name) != 0)
        return refuse(L"there is a correlation " + quote(to.name)
                      + L" already; another name is expected");
    if (isPropertyName(*db, to.name))
        return refuse(L"a well has a property " + quote(to.name)
                      + L"; a name that no property has is expected");
    if (!db->exec(sql(L"UPDATE correlation SET name = ",
                      quotedName(to.name),
                      L" WHERE name = ",
                      quotedName(edit.prop().name)))
        || !mirrors::rename(*db, edit.prop().name, to.name))
        return false;
    announceRename(edit, to.name);
    return edit.finish(eventAction::rename, L"-> " + to.name);
}

bool correlation::removeCorrelation(odbc_database* db, const NORLEX_propDescription& cor) {
    corEdit edit(db, cor);
    if (!edit)
        return false;
    const std::wstring id = key(edit.id());
    if (!db->exec(sql(
            L"DELETE FROM correlation_data WHERE b_id IN (SELECT b_id FROM correlation_borders WHERE cor_id =",
            id,
            L")"))
        || !db->exec(sql(L"DELETE FROM correlation_borders WHERE cor_id =", id))
        || !db->exec(sql(L"DELETE FROM correlation WHERE cor_id =", id)))
        return false;
    auto groups = mirrors::groups(*db, edit.prop().name);
    if (std::ranges::find(groups, edit.prop().group) == groups.end())
        groups.push_back(edit.prop().group);
    if (!mirrors::remove(*db, edit.prop()))
        return false;
    announce::afterCommit(
        *db, [groups, name = edit.prop().name](auto& observer, const auto& container) {
            for (const auto& group : groups)
                observer.deleteProperty(container, NORLEX_propDescription(name, group));
        });
    return edit.finishRemoved();
}

bool correlation::getDepthRange(odbc_database* db,
                                const NORLEX_propDescription& cor,
                                NORLEX_depthRange& range) {
    return readRange(db, cor, {}, range);
}

bool correlation::getDepthRange(odbc_database* db,
                                const NORLEX_propDescription& cor,
                                const wellRef& well,
                                NORLEX_depthRange& range) {
    const auto found = query::isOpen(db) ? well.find(*db) : std::nullopt;
    return found
           && readRange(db, cor, sql(L" AND correlation_data.w_id =", key(found->wellId)), range);
}

} // namespace correlation
