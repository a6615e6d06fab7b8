#include "platform/missing.h"

#include "odbc_database.h"
#include "platform/last_error.h"

bool refuseMissing(const odbc_database* db, const std::wstring& nothing) {
    if (db == nullptr || db->is_answered())
        return refuse(nothing);
    return refuse(L"the database could not be read: " + db->last_error());
}
