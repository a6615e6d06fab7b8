#include "store/upgrade_backup.h"

#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/write_turn.h"
#include "store/stored_version.h"
#include "store/upgrade_copies.h"

#include <chrono>

using namespace sqlText;

namespace upgrade {

namespace {

constexpr std::chrono::seconds longestWait{10};

// A database file that a killed program left half-written has a journal beside it, which the engine
// would play into the new one.
bool removeLeftOver(const std::wstring& part) {
    return files::removeFile(part) && files::removeFile(part + L"-journal");
}

bool refuseWithout(const std::wstring& part) {
    const keptReason why;
    static_cast<void>(files::removeFile(part));
    return false;
}

std::wstring nameOfBackup(const std::wstring& path, int version, int number) {
    return sql(path, L".v", key(version), number == 1 ? L"" : sql(L"-", key(number)), L".bak");
}

} // namespace

// Programs that upgrade at once copy one after the other. Whoever comes late finds the new version
// in its copy, or one of the old version that is there already.
bool backUp(odbc_database& db, const std::wstring& path, int version) {
    write_turn turn(files::native(path).native());
    turn.take(longestWait);
    const std::wstring part = nameOfBackup(path, version, 1) + L".part";
    if (!removeLeftOver(part))
        return false;
    if (!db.backup(part))
        return refuse(sql(L"cannot copy ", path, L" to ", part, L": ", db.last_error()));
    if (storedVersion(db) > version)
        return files::removeFile(part);
    for (int number = 1;; ++number) {
        const std::wstring name = nameOfBackup(path, version, number);
        if (!files::isFile(name))
            return files::move(part, name) || refuseWithout(part);
        if (isSameContent(part, name))
            return files::removeFile(part);
    }
}

} // namespace upgrade
