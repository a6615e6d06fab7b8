#include "store/upgrade_backup.h"

#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "store/upgrade_copies.h"

using namespace sqlText;

namespace upgrade {

namespace {

// A database file that a killed program left half-written has a journal beside it, which the engine
// would play into the new one.
bool removeLeftOver(const std::wstring& part) {
    return files::removeFile(part) && files::removeFile(part + L"-journal");
}

std::wstring nameOfBackup(const std::wstring& path, int version, int number) {
    return sql(path, L".v", key(version), number == 1 ? L"" : sql(L"-", key(number)), L".bak");
}

} // namespace

bool backUp(odbc_database& db, const std::wstring& path, int version) {
    const std::wstring part = nameOfBackup(path, version, 1) + L".part";
    if (!removeLeftOver(part))
        return false;
    if (!db.backup(part))
        return refuse(sql(L"cannot copy ", path, L" to ", part, L": ", db.last_error()));
    for (int number = 1;; ++number) {
        const std::wstring name = nameOfBackup(path, version, number);
        if (!files::isFile(name))
            return files::move(part, name);
        if (isSameContent(part, name))
            return files::removeFile(part);
    }
}

} // namespace upgrade
