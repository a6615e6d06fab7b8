#include "store/upgrade.h"

#include "NORLEX_contDescription.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "store/schema.h"

using namespace sqlText;

namespace upgrade {

using schema::currentVersion;

int storedVersion(odbc_database& db) {
    int version = 0;
    const auto rows = db.query(L"SELECT version FROM base_version");
    while (rows && rows->next())
        version = rows->get_int(0);
    return version;
}

bool isSupported(odbc_database& db, const NORLEX_contDescription& description) {
    const int version = storedVersion(db);
    if (version == currentVersion)
        return true;
    const std::wstring what = sql(L"cannot open ", description.path, L": it ");
    if (version == 0)
        return refuse(sql(what,
                          L"is no well database, its schema version cannot be read",
                          db.last_error().empty() ? L"" : L" (" + db.last_error() + L")"));
    const std::wstring found = sql(
        what, L"is of version ", key(version), L", version ", key(currentVersion), L" is needed; ");
    if (version > currentVersion)
        return refuse(found + L"a newer release of this library reads it");
    return refuse(found + L"the upgrade of older containers is not available yet");
}

bool bringUpToDate(odbc_database& db, const NORLEX_contDescription& description) {
    return isSupported(db, description);
}

} // namespace upgrade
