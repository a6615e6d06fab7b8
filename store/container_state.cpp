// What an open NORLEX_wellContainer tells of its database, and its stamps and transactions.
#include "NORLEX_wellContainer.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "store/audit.h"
#include "store/container_settings.h"
#include "store/schema.h"
#include "store/search_indexes.h"
#include "store/stored_version.h"

using namespace sqlText;
namespace settings = containerSettings;

static bool refuseClosed() {
    return refuse(L"the container is closed: open it first");
}

// The list is spliced as it is, so only keys and what stands between them may be in it.
static bool isKeyList(const std::wstring& keys) {
    return keys.find_first_not_of(L"0123456789, ") == std::wstring::npos
           || refuse(
               sql(L"\"", keys.substr(0, 40), L"\" is no list of well keys with commas between"));
}

bool NORLEX_wellContainer::isOK() const {
    return m_db && m_db->is_connected();
}

odbc_database* NORLEX_wellContainer::getBaseLink() const {
    return isOK() ? m_db.get() : nullptr;
}

const NORLEX_contDescription& NORLEX_wellContainer::getContDescription() const {
    return m_description;
}

std::wstring NORLEX_wellContainer::getConnectionPath() const {
    return m_description.path;
}

std::wstring NORLEX_wellContainer::getFileContainerPath() const {
    return m_description.fileContainerPath;
}

int NORLEX_wellContainer::getVersionNumber() const {
    return isOK() ? upgrade::storedVersion(*m_db) : 0;
}

NORLEX_versionStatus NORLEX_wellContainer::getVersionStatus() const {
    const int version = getVersionNumber();
    if (version == 0)
        return NORLEX_versionStatus::unreadable;
    return version == currentVersion ? NORLEX_versionStatus::current
                                     : NORLEX_versionStatus::needsUpgrade;
}

std::wstring NORLEX_wellContainer::getUUID() const {
    return isOK() ? settings::text(*m_db, L"SELECT UUID FROM base_version WHERE id = 1") : L"";
}

std::wstring NORLEX_wellContainer::getCreateDate() const {
    return isOK() ? settings::text(*m_db, L"SELECT create_date FROM base_version WHERE id = 1")
                  : L"";
}

std::wstring NORLEX_wellContainer::getCreateUser() const {
    return isOK() ? settings::text(*m_db, L"SELECT create_user FROM base_version WHERE id = 1")
                  : L"";
}

std::wstring NORLEX_wellContainer::getUpdateDate() const {
    return isOK() ? settings::text(*m_db, L"SELECT update_date FROM base_version WHERE id = 1")
                  : L"";
}

std::wstring NORLEX_wellContainer::getUpdateUser() const {
    return isOK() ? settings::text(*m_db, L"SELECT update_user FROM base_version WHERE id = 1")
                  : L"";
}

std::wstring NORLEX_wellContainer::getProjection() const {
    return isOK() ? settings::projection(*m_db) : L"";
}

bool NORLEX_wellContainer::setProjection(const std::wstring& projection) {
    if (!isOK())
        return refuseClosed();
    transaction change(m_db.get());
    return change.isOpen() && settings::setProjection(*m_db, projection)
           && updateEditTimeContainer() && change.commit();
}

std::int64_t NORLEX_wellContainer::getWellCount() const {
    return isOK() ? settings::count(*m_db, L"SELECT count(*) FROM well_base") : 0;
}

std::int64_t NORLEX_wellContainer::getPropertyCount() const {
    return isOK() ? settings::count(*m_db, L"SELECT count(*) FROM property") : 0;
}

std::int64_t NORLEX_wellContainer::getTemplateCount() const {
    return isOK() ? settings::count(*m_db, L"SELECT count(*) FROM base_template") : 0;
}

bool NORLEX_wellContainer::updateEditTimeContainer() {
    if (!isOK())
        return refuseClosed();
    return m_db->exec(sql(L"UPDATE base_version SET ", audit::touched(*m_db), L" WHERE id = 1"));
}

bool NORLEX_wellContainer::updateEditTimeWell(const std::wstring& wellKeys) {
    if (!isOK())
        return refuseClosed();
    return isKeyList(wellKeys)
           && m_db->exec(sql(L"UPDATE well_base SET ",
                             audit::touched(*m_db),
                             L" WHERE w_id IN(",
                             wellKeys,
                             L")"));
}

bool NORLEX_wellContainer::updateEditTimeProp(const std::wstring& wellKeys,
                                              const std::wstring& propName,
                                              const std::wstring& propGroup) {
    if (!isOK())
        return refuseClosed();
    return isKeyList(wellKeys)
           && m_db->exec(sql(L"UPDATE property SET ",
                             audit::touched(*m_db),
                             L" WHERE w_id IN(",
                             wellKeys,
                             L") AND name = ",
                             quotedName(propName),
                             L" AND p_group = ",
                             quotedName(propGroup)));
}

bool NORLEX_wellContainer::beginBatchLoad() {
    return isOK() ? schema::dropIndexes(*m_db) : refuseClosed();
}

bool NORLEX_wellContainer::endBatchLoad() {
    if (!isOK())
        return refuseClosed();
    if (!schema::createIndexes(*m_db))
        return false;
    static_cast<void>(searchIndexes::refreshStatistics(*m_db)); // without them queries are slower
    return true;
}

bool NORLEX_wellContainer::beginTransaction() {
    return isOK() ? m_db->begin_transaction() : refuseClosed();
}

bool NORLEX_wellContainer::endTransaction() {
    return isOK() ? m_db->end_transaction() : refuseClosed();
}

void NORLEX_wellContainer::rollbackTransaction() {
    if (isOK())
        m_db->rollback();
}
