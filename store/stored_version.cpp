#include "store/stored_version.h"

#include "odbc_database.h"

int upgrade::storedVersion(odbc_database& db) {
    int version = 0;
    const auto rows = db.query(L"SELECT version FROM base_version");
    while (rows && rows->next())
        version = rows->get_int(0);
    return version;
}
