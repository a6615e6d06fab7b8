#include "store/upgrade.h"

#include "NORLEX_contDescription.h"
#include "NORLEX_lastError.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/messages.h"
#include "platform/sql_text.h"
#include "platform/string_table.h"
#include "platform/transaction.h"
#include "store/journal.h"
#include "store/schema.h"
#include "store/stored_version.h"
#include "store/upgrade_backup.h"
#include "store/upgrade_steps.h"
#include "store/upgrade_tools.h"

using namespace sqlText;

namespace upgrade {

using schema::currentVersion;

namespace {

std::wstring versionFound(const std::wstring& path, int version) {
    return sql(L"cannot open ",
               path,
               L": it is of version ",
               key(version),
               L", version ",
               key(currentVersion),
               L" is needed; ");
}

bool nameBorderTemplate(odbc_database& db) {
    const std::wstring text = quoted(stringTable::text(stringTable::borderTemplateName));
    return change(db,
                  L"base_template",
                  sql(L"UPDATE base_template SET name = ",
                      text,
                      L", description = ",
                      text,
                      L" WHERE type = 'NORLEX_dataTypeBorder'"));
}

bool runSteps(odbc_database& db, int version) {
    for (const step& one : steps())
        if (version < one.below && !one.run(db))
            return false;
    // What no step makes, because it was part of the first containers or of none.
    return schema::create(db, schema::containerTables()) && schema::createIndexes(db);
}

// The write lock is taken first: another program may have been quicker.
bool runChain(odbc_database& db) {
    transaction whole(&db);
    if (!whole.isOpen())
        return refuse(db.last_error());
    const int version = storedVersion(db);
    if (version >= currentVersion)
        return true;
    return nameBorderTemplate(db) && runSteps(db, version)
           && db.exec(sql(L"UPDATE base_version SET version = ", key(currentVersion)))
           && (storedVersion(db) == currentVersion || refuse(db.last_error())) && whole.commit();
}

bool isAgreed(const std::wstring& path, int version) {
    return messages::askYesNo(stringTable::text(stringTable::upgradeQuestion, path))
           || refuse(versionFound(path, version) + L"its upgrade was not agreed to");
}

bool refuseWithMessage(const std::wstring& path, int version) {
    const std::wstring why = NORLEX_lastError(); // NOLINT: the user's box may set another line
    messages::showError(stringTable::text(stringTable::upgradeFailed, path));
    return refuse(sql(versionFound(path, version), L"its upgrade failed and was undone: ", why));
}

// 0 where it cannot be read, or is a later one.
int supportedVersion(odbc_database& db, const NORLEX_contDescription& description) {
    const int version = storedVersion(db);
    if (version > currentVersion)
        refuse(versionFound(description.path, version)
               + L"a newer release of this library reads it");
    else if (version == 0)
        refuse(sql(L"cannot open ",
                   description.path,
                   L": it is no well database, its schema version cannot be read",
                   db.last_error().empty() ? L"" : L" (" + db.last_error() + L")"));
    return version > currentVersion ? 0 : version;
}

} // namespace

bool isSupported(odbc_database& db, const NORLEX_contDescription& description) {
    return supportedVersion(db, description) != 0;
}

bool bringUpToDate(odbc_database& db, const NORLEX_contDescription& description) {
    const std::wstring& path = description.path;
    const int version = supportedVersion(db, description);
    if (version == currentVersion)
        return true;
    if (version == 0 || !isAgreed(path, version))
        return false;
    const bool isSafe = description.type != 1 || backUp(db, path, version);
    if (!isSafe || !runChain(db))
        return refuseWithMessage(path, version);
    journal::add(db, journal::containerObject, journal::upgradeAction, L"");
    return true;
}

} // namespace upgrade
