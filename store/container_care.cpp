// The operations of NORLEX_wellContainer on a container as a whole.
#include "NORLEX_wellContainer.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "store/connection.h"
#include "store/container_archive.h"
#include "store/container_check.h"
#include "store/container_copy.h"
#include "store/search_indexes.h"
#include "store/stored_version.h"

static bool refuseClosed() {
    return refuse(L"the container is closed: open it first");
}

bool NORLEX_wellContainer::check(std::vector<NORLEX_checkFinding>& findings) {
    return isOK() ? containerCheck::run(*m_db, findings) : refuseClosed();
}

bool NORLEX_wellContainer::repair(const std::wstring& backupPath,
                                  std::vector<NORLEX_checkFinding>& removed) {
    if (!isOK())
        return refuseClosed();
    if (files::isFile(backupPath))
        return refuse(L"cannot write the backup " + backupPath + L": it exists already");
    return containerArchive::backup(*m_db, backupPath) && containerCheck::repair(*m_db, removed);
}

bool NORLEX_wellContainer::backup(const std::wstring& archive) {
    return isOK() ? containerArchive::backup(*m_db, archive) : refuseClosed();
}

bool NORLEX_wellContainer::restore(const std::wstring& archive,
                                   const NORLEX_contDescription& target,
                                   bool replace) {
    return containerArchive::restore(archive, target, replace);
}

bool NORLEX_wellContainer::copyTo(const NORLEX_contDescription& target) {
    return isOK() ? containerCopy::copyTo(*m_db, target) : refuseClosed();
}

bool NORLEX_wellContainer::createSearchIndexes() {
    return isOK() ? searchIndexes::create(*m_db) : refuseClosed();
}

bool NORLEX_wellContainer::dropSearchIndexes() {
    return isOK() ? searchIndexes::drop(*m_db) : refuseClosed();
}

bool NORLEX_wellContainer::hasSearchIndexes() const {
    return isOK() && searchIndexes::areThere(*m_db);
}

bool NORLEX_wellContainer::updateStatistics() {
    return isOK() ? searchIndexes::refreshStatistics(*m_db) : refuseClosed();
}

int NORLEX_wellContainer::storedVersion(const NORLEX_contDescription& description) {
    odbc_database db;
    return files::isFile(description.path) && connection::isUsable(description)
                   && connection::open(db, description)
               ? upgrade::storedVersion(db)
               : 0;
}
