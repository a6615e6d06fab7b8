// Border names and their groups.
#include "NORLEX_correlation.h"
#include "correlation/cor_edit.h"
#include "correlation/cor_rows.h"
#include "correlation/mirrors.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "store/audit.h"
#include "wells/announce.h"
#include "wells/query.h"

#include <unordered_set>

using namespace sqlText;
using corRows::quote;

namespace correlation {

namespace {

bool isName(const std::wstring& border) {
    return !border.empty()
           || refuse(L"the name of the border is empty; one character or more is expected");
}

// " (2)", " (3)" … at the end of a name that is taken.
std::wstring freeName(const corEdit& edit, const std::wstring& border) {
    std::vector<borderName> present;
    corRows::readBorders(edit.db(), L"cor_id =" + key(edit.id()), present);
    std::unordered_set<std::wstring> taken;
    for (const auto& one : present)
        taken.insert(one.name);
    std::wstring out = border;
    for (int n = 2; taken.contains(out); ++n)
        out = border + L" (" + std::to_wstring(n) + L")";
    return out;
}

bool hasGroup(odbc_database& db, std::int64_t correlationId, const std::wstring& group) {
    const auto rows = db.query(sql(L"SELECT b_group FROM correlation_borders WHERE cor_id =",
                                   key(correlationId),
                                   L" AND b_group = ",
                                   quotedName(group)));
    return rows && rows->next();
}

} // namespace

std::wstring correlation::createBorderName(odbc_database* db,
                                           const NORLEX_propDescription& cor,
                                           const std::wstring& border,
                                           const std::wstring& group) {
    corEdit edit(db, cor);
    if (!edit || !isName(plainName(border)))
        return {};
    const std::wstring name = freeName(edit, plainName(border));
    if (!db->exec(sql(
            L"INSERT INTO correlation_borders (cor_id, name, b_group, UUID, create_date, update_date, create_user, update_user) VALUES (",
            key(edit.id()),
            L", ",
            quotedName(name),
            L", ",
            quotedName(group),
            L", ",
            audit::created(*db),
            L")")))
        return {};
    announce::afterCommit(*db, [name](auto& observer, const auto& container) {
        observer.createCorrBorder(container, name);
    });
    return edit.finish(eventAction::create, name) ? name : std::wstring();
}

bool correlation::renameBorder(odbc_database* db,
                               const NORLEX_propDescription& cor,
                               const std::wstring& border,
                               const std::wstring& newName) {
    const std::wstring from = plainName(border);
    const std::wstring to = plainName(newName);
    corEdit edit(db, cor);
    const auto id = edit && isName(to) ? edit.border(from) : 0;
    if (id == 0)
        return false;
    if (from == to)
        return true;
    if (corRows::findBorder(*db, edit.id(), to) != 0)
        return refuse(L"the correlation " + quote(edit.prop().name) + L" has a border " + quote(to)
                      + L" already; another name is expected");
    if (!db->exec(sql(
            L"UPDATE correlation_borders SET name = ", quotedName(to), L" WHERE b_id =", key(id)))
        || !corRows::touchBorder(*db, id) || !mirrors::tellAll(*db, edit.prop()))
        return false;
    announce::afterCommit(*db, [from, to](auto& observer, const auto& container) {
        observer.renameCorrBorder(container, from, to);
    });
    return edit.finish(eventAction::rename, from + L" -> " + to);
}

bool correlation::deleteBorder(odbc_database* db,
                               const NORLEX_propDescription& cor,
                               const std::wstring& border) {
    const std::wstring name = plainName(border);
    corEdit edit(db, cor);
    const auto id = edit ? edit.border(name) : 0;
    if (id == 0
        // a pick without its border would be on no list any more
        || !db->exec(sql(L"DELETE FROM correlation_data WHERE b_id =", key(id)))
        || !db->exec(sql(L"DELETE FROM correlation_borders WHERE name = ",
                         quotedName(name),
                         L" AND cor_id =",
                         key(edit.id())))
        || !mirrors::tellAll(*db, edit.prop()))
        return false;
    announce::afterCommit(*db, [name](auto& observer, const auto& container) {
        observer.deleteCorrBorder(container, name);
    });
    return edit.finish(eventAction::remove, name);
}

bool correlation::moveBorderElementToGroup(odbc_database* db,
                                           const NORLEX_propDescription& cor,
                                           const std::wstring& border,
                                           const std::wstring& group) {
    corEdit edit(db, cor);
    const auto id = edit ? edit.border(border) : 0;
    return id != 0
           && db->exec(sql(L"UPDATE correlation_borders SET b_group = ",
                           quotedName(group),
                           L" WHERE b_id =",
                           key(id)))
           && corRows::touchBorder(*db, id) && mirrors::tellAll(*db, edit.prop())
           && edit.finish(eventAction::update, plainName(border) + L" -> " + plainName(group));
}

bool correlation::renameGroup(odbc_database* db,
                              const NORLEX_propDescription& cor,
                              const std::wstring& group,
                              const std::wstring& newName) {
    corEdit edit(db, cor);
    if (!edit)
        return false;
    if (!hasGroup(*db, edit.id(), group))
        return refuse(L"the correlation " + quote(edit.prop().name) + L" has no group "
                      + quote(plainName(group)));
    if (plainName(group) == plainName(newName))
        return true;
    if (hasGroup(*db, edit.id(), newName))
        return refuse(L"the correlation " + quote(edit.prop().name) + L" has a group "
                      + quote(plainName(newName)) + L" already; another name is expected");
    return db->exec(sql(L"UPDATE correlation_borders SET b_group = ",
                        quotedName(newName),
                        L", ",
                        audit::touched(*db),
                        L" WHERE cor_id =",
                        key(edit.id()),
                        L" AND b_group = ",
                        quotedName(group)))
           && mirrors::tellAll(*db, edit.prop())
           && edit.finish(eventAction::update, plainName(group) + L" -> " + plainName(newName));
}

std::wstring correlation::getBorderGroup(odbc_database* db,
                                         const NORLEX_propDescription& cor,
                                         const std::wstring& border) {
    return query::text(db,
                       sql(L"SELECT b_group FROM correlation_borders WHERE name = ",
                           quotedName(border),
                           L" AND cor_id =",
                           key(getCorrelationID(db, cor))));
}

void correlation::getGroupListBase(odbc_database* db,
                                   std::int64_t correlationId,
                                   std::vector<std::wstring>& groups) {
    groups.clear();
    query::texts(db,
                 sql(L"SELECT distinct(b_group) FROM correlation_borders WHERE cor_id =",
                     key(correlationId),
                     L" ORDER BY b_group"),
                 groups);
}

bool correlation::isGroupExist(odbc_database* db,
                               const NORLEX_propDescription& cor,
                               const std::wstring& group) {
    return query::isOpen(db) && hasGroup(*db, corRows::find(*db, cor.name), group);
}

} // namespace correlation
