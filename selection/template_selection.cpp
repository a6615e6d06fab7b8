// Look-ups of NORLEX_propTemplate in the wells of a selection.
#include "NORLEX_propTemplate.h"
#include "NORLEX_selection.h"

namespace {

std::vector<std::uint32_t> keysOf(const std::shared_ptr<NORLEX_selection>& selection) {
    std::vector<NORLEX_wellDescription> wells;
    if (selection)
        selection->getWellList(wells);
    std::vector<std::uint32_t> keys;
    keys.reserve(wells.size());
    for (const auto& well : wells)
        keys.push_back(well.wellId);
    return keys;
}

} // namespace

std::vector<std::wstring>
NORLEX_propTemplate::getTemplateList(odbc_database* db,
                                     const std::shared_ptr<NORLEX_selection>& wells) {
    return getTemplateList(db, keysOf(wells));
}

std::vector<NORLEX_propDescription> NORLEX_propTemplate::getPropertyFromType(
    odbc_database* db, NORLEX_dataType type, const std::shared_ptr<NORLEX_selection>& wells) {
    return getPropertyFromType(db, type, keysOf(wells));
}
