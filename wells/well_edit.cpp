#include "wells/well_edit.h"

#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/transaction.h"
#include "wells/announce.h"
#include "wells/query.h"
#include "wells/well_records.h"

namespace wellEdit {

bool run(odbc_database* db,
         std::uint32_t wellId,
         const std::function<bool()>& change,
         bool announce) {
    if (!query::isOpen(db))
        return false;
    transaction edit(db);
    const auto well = edit.isOpen() ? wellRecords::read(*db, wellId) : std::nullopt;
    if (!well || !change() || !wellRecords::touch(*db, wellId))
        return false;
    if (announce)
        announce::afterCommit(*db, [well = *well](auto& observer, const auto& container) {
            observer.updateWell(container, well);
        });
    return edit.commit();
}

bool foundRow(const odbc_database& db, const wchar_t* what) {
    return db.affected_rows() != 0 || refuse(std::wstring(L"the well has no such ") + what);
}

} // namespace wellEdit
