#include "NORLEX_well.h"

#include "events/change_watch.h"
#include "globalEventObserver.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "store/audit.h"
#include "store/journal.h"
#include "wells/announce.h"
#include "wells/names.h"
#include "wells/query.h"
#include "wells/well_records.h"

using namespace sqlText;

NORLEX_well::NORLEX_well(odbc_database* db, const NORLEX_wellDescription& description) : m_db(db) {
    static_cast<void>(open(description)); // isOK() tells
}

NORLEX_well::NORLEX_well(odbc_database* db, std::uint32_t wellId) : m_db(db) {
    static_cast<void>(openRow(wellId));
}

NORLEX_well::~NORLEX_well() = default;

bool NORLEX_well::create(odbc_database* db, const NORLEX_wellDescription& given) {
    auto well = names::plain(given);
    if (!query::isOpen(db) || !names::areStorable(well))
        return false;
    transaction edit(db);
    if (!edit.isOpen())
        return false;
    if (isExist(db, well))
        return refuse(L"the well " + names::shown(well)
                      + L" exists already; another name, field or work object is expected");
    // A new well stands at altitude 0 and position (0, 0).
    if (!db->exec(sql(
            L"INSERT INTO well_base (work_object, field, name, altitude, x, y, UUID, create_date, update_date, create_user, update_user) VALUES(",
            quotedName(well.workObject),
            L", ",
            quotedName(well.field),
            L",",
            quotedName(well.name),
            L", 0, 0, 0, ",
            audit::created(*db),
            L")")))
        return false;
    // By the largest key, not by the names: the table has no index on them. The transaction holds
    // the write lock, so the largest key is the one just given.
    well.wellId =
        static_cast<std::uint32_t>(query::counter(db, L"SELECT max(w_id) FROM well_base"));
    if (well.wellId == 0 || !wellRecords::touchContainer(*db))
        return false;
    journal::add(*db, eventKind::well, eventAction::create, names::shown(well));
    announce::afterCommit(*db, [well](auto& observer, const auto& container) {
        observer.createWell(container, well);
    });
    return edit.commit();
}

bool NORLEX_well::isExist(odbc_database* db, const NORLEX_wellDescription& description) {
    return getID(db, description) != 0;
}

std::uint32_t NORLEX_well::getID(odbc_database* db, const NORLEX_wellDescription& description) {
    return db != nullptr ? wellRecords::find(*db, description) : 0;
}

std::wstring NORLEX_well::getWellNameByID(odbc_database* db, std::uint32_t wellId) {
    return query::text(db, sql(L"SELECT name FROM well_base WHERE w_id = ", key(wellId)));
}

std::wstring NORLEX_well::getWellFieldByID(odbc_database* db, std::uint32_t wellId) {
    return query::text(db, sql(L"SELECT field FROM well_base WHERE w_id = ", key(wellId)));
}

std::wstring NORLEX_well::getWellWorkObjectByID(odbc_database* db, std::uint32_t wellId) {
    return query::text(db, sql(L"SELECT work_object FROM well_base WHERE w_id = ", key(wellId)));
}

NORLEX_wellDescription NORLEX_well::getDescription(odbc_database* db, std::uint32_t wellId) {
    if (!query::isOpen(db))
        return {};
    return wellRecords::read(*db, wellId).value_or(NORLEX_wellDescription{});
}

bool NORLEX_well::open(const NORLEX_wellDescription& description) {
    m_ok = false;
    m_incl.reset();
    m_vdm.reset();
    if (!query::isOpen(m_db))
        return false;
    const auto well = names::plain(description);
    const std::uint32_t wellId = wellRecords::find(*m_db, well);
    if (wellId == 0)
        return refuseMissing(m_db, L"there is no well " + names::shown(well));
    return openRow(wellId);
}

bool NORLEX_well::openRow(std::uint32_t wellId) {
    if (!query::isOpen(m_db))
        return false;
    const auto row =
        m_db->query(sql(L"SELECT w_id, UUID FROM well_base WHERE w_id = ", key(wellId)));
    if (!row || !row->next())
        return refuseMissing(m_db, L"there is no well with the key " + key(wellId));
    m_wellId = wellId;
    m_uuid = row->get_text(1);
    m_ok = true;
    m_watch = std::make_unique<changeWatch>(
        *m_db, m_wellId, [this](const eventMsgDescription& message) { onGlobalUpdate(message); });
    return true;
}

bool NORLEX_well::isOK() const {
    return m_ok;
}
std::uint32_t NORLEX_well::getID() const {
    return m_wellId;
}
const std::wstring& NORLEX_well::getUUID() const {
    return m_uuid;
}

std::wstring NORLEX_well::textOf(const wchar_t* statement) const {
    return query::text(m_db, sql(statement, key(m_wellId)));
}
double NORLEX_well::numberOf(const wchar_t* statement) const {
    return query::number(m_db, sql(statement, key(m_wellId)));
}

std::wstring NORLEX_well::getName() const {
    return textOf(L"SELECT name FROM well_base WHERE w_id = ");
}
std::wstring NORLEX_well::getFld() const {
    return textOf(L"SELECT field FROM well_base WHERE w_id = ");
}
std::wstring NORLEX_well::getWorkObjectName() const {
    return textOf(L"SELECT work_object FROM well_base WHERE w_id = ");
}
NORLEX_wellDescription NORLEX_well::getDescription() const {
    return getDescription(m_db, m_wellId);
}
std::wstring NORLEX_well::getCreateDate() const {
    return textOf(L"SELECT create_date FROM well_base WHERE w_id = ");
}
std::wstring NORLEX_well::getCreateUser() const {
    return textOf(L"SELECT create_user FROM well_base WHERE w_id = ");
}
std::wstring NORLEX_well::getUpdateDate() const {
    return textOf(L"SELECT update_date FROM well_base WHERE w_id = ");
}
std::wstring NORLEX_well::getUpdateUser() const {
    return textOf(L"SELECT update_user FROM well_base WHERE w_id = ");
}

bool NORLEX_well::updateEditTime() {
    return (m_ok || refuse(L"the well is not open")) && wellRecords::touch(*m_db, m_wellId);
}

globalEventObserver& NORLEX_well::getEventObserver() const {
    return globalEventObserver::Instance();
}

void NORLEX_well::announceUpdate() {
    announce::afterCommit(*m_db, [well = getDescription()](auto& observer, const auto& container) {
        observer.updateWell(container, well);
    });
}
