// Deleting a well with everything that belongs to it.
#include "NORLEX_well.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/missing.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "platform/transaction_files.h"
#include "store/journal.h"
#include "store/metadata.h"
#include "store/well_path.h"
#include "wells/announce.h"
#include "wells/names.h"
#include "wells/property_records.h"
#include "wells/query.h"
#include "wells/well_records.h"

using namespace sqlText;

namespace {

bool removeProperties(odbc_database& db, std::uint32_t wellId) {
    for (const auto& row : propertyRecords::ofWell(db, wellId))
        if (!NORLEX_wellProperty::removeSilent(&db, wellId, row.description))
            return false;
    return true;
}

// The field's folder goes with the last well in it: a folder that a commit leaves empty is removed.
bool removeFolder(odbc_database& db, const NORLEX_wellDescription& well) {
    const std::wstring folder = NORLEX_getWellPath(&db, well);
    return !files::isFolder(folder) || db.files().removeFolder(folder);
}

bool removeRows(odbc_database& db, std::uint32_t wellId) {
    static constexpr const wchar_t* statements[] = {
        L"DELETE FROM well_construction WHERE w_id = ",
        L"DELETE FROM construction WHERE w_id = ",
        L"DELETE FROM inclinometry WHERE w_id = ",
        L"DELETE FROM vdm_data WHERE w_id = ",
        L"DELETE FROM well_info WHERE w_id = ",
        L"DELETE FROM well_executors WHERE w_id = ",
        L"DELETE FROM well_drilling WHERE w_id = ",
        L"DELETE FROM well_stat_vals WHERE w_id = ",
        // picks, passport values and file folders would be left without their well
        L"DELETE FROM correlation_data WHERE w_id = ",
        L"DELETE FROM well_info_values WHERE w_id = ",
        L"DELETE FROM file_folder_link WHERE w_id = ",
    };
    for (const auto* statement : statements)
        if (!db.exec(sql(statement, key(wellId))))
            return false;
    return true;
}

} // namespace

bool NORLEX_well::remove(odbc_database* db, const NORLEX_wellDescription& given) {
    auto well = names::plain(given);
    if (!query::isOpen(db))
        return false;
    transaction edit(db);
    if (!edit.isOpen())
        return false;
    well.wellId = wellRecords::find(*db, well);
    if (well.wellId == 0)
        return refuseMissing(db, L"there is no well " + names::shown(well));
    if (!removeProperties(*db, well.wellId) || !metadata::clear(*db, metadata::ofWell, well.wellId)
        || !removeFolder(*db, well) || !removeRows(*db, well.wellId)
        || !db->exec(sql(L"DELETE FROM well_base WHERE name = ",
                         quotedName(well.name),
                         L" AND field = ",
                         quotedName(well.field),
                         L" AND work_object = ",
                         quotedName(well.workObject)))
        || !wellRecords::touchContainer(*db))
        return false;
    journal::add(*db, eventKind::well, eventAction::remove, names::shown(well));
    announce::afterCommit(*db, [well](auto& observer, const auto& container) {
        observer.deleteWell(container, well);
    });
    return edit.commit();
}
