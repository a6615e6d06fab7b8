// Operations of NORLEX_wellContainer on the wells of a selection.
#include "NORLEX_propTemplate.h"
#include "NORLEX_selection.h"
#include "NORLEX_wellContainer.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "selection/selected_wells.h"
#include "store/journal.h"
#include "wells/announce.h"
#include "wells/names.h"
#include "wells/property_removal.h"

#include <unordered_set>

using namespace sqlText;

namespace {

// Its properties of this name and group; a well that bears two of them counts once.
struct findings {
    std::vector<propertyRemoval::found> properties;
    std::vector<std::uint32_t> wells;
};

// All wells are looked at: a list of those of the selection may be longer than a statement can be.
findings
findIn(odbc_database& db, NORLEX_selection& selection, const NORLEX_propDescription& prop) {
    std::vector<NORLEX_wellDescription> wells;
    selection.getWellList(wells);
    std::unordered_set<std::uint32_t> chosen;
    for (const auto& well : wells)
        chosen.insert(well.wellId);
    findings out;
    for (const auto& property : propertyRemoval::find(db, prop)) {
        if (!chosen.contains(property.wellId))
            continue;
        out.properties.push_back(property);
        if (out.wells.empty() || out.wells.back() != property.wellId)
            out.wells.push_back(property.wellId);
    }
    return out;
}

} // namespace

bool selectedWells::compute(const NORLEX_wellContainer& container,
                            const std::shared_ptr<NORLEX_selection>& wells) {
    if (!container.isOK())
        return refuse(L"the container is closed: open it first");
    if (!wells)
        return refuse(L"there is no selection of wells; one without queries means all");
    return wells->rebuildList(container);
}

bool NORLEX_wellContainer::updateEditTimeWell(const std::shared_ptr<NORLEX_selection>& wells) {
    return selectedWells::compute(*this, wells) && updateEditTimeWell(wells->getWellIDString());
}

bool NORLEX_wellContainer::updateEditTimeProp(const std::shared_ptr<NORLEX_selection>& wells,
                                              const NORLEX_propDescription& prop) {
    return selectedWells::compute(*this, wells)
           && updateEditTimeProp(wells->getWellIDString(), prop.name, prop.group);
}

bool NORLEX_wellContainer::getPropertyList(const std::shared_ptr<NORLEX_selection>& wells,
                                           std::vector<NORLEX_propDescription>& properties) const {
    properties.clear();
    if (!selectedWells::compute(*this, wells))
        return false;
    const auto rows =
        m_db->query(sql(L"SELECT DISTINCT p_group, name FROM property WHERE w_id IN (",
                        wells->getWellIDString(),
                        L") ORDER BY p_group, name"));
    while (rows && rows->next())
        properties.emplace_back(rows->get_text(1), rows->get_text(0));
    return rows || refuse(L"the properties cannot be read: " + m_db->last_error());
}

bool NORLEX_wellContainer::getTemplateList(const std::shared_ptr<NORLEX_selection>& wells,
                                           std::vector<std::wstring>& templates) const {
    templates.clear();
    if (!selectedWells::compute(*this, wells))
        return false;
    templates = NORLEX_propTemplate::getTemplateList(m_db.get(), wells);
    return true;
}

bool NORLEX_wellContainer::removeProperty(const std::shared_ptr<NORLEX_selection>& wells,
                                          const NORLEX_propDescription& given,
                                          std::size_t& removed) {
    removed = 0;
    if (!isOK())
        return selectedWells::compute(*this, wells);
    const auto prop = names::plain(given);
    transaction edit(m_db.get());
    if (!edit.isOpen() || !selectedWells::compute(*this, wells))
        return false;
    const findings found = findIn(*m_db, *wells, prop);
    if (found.wells.empty())
        return edit.commit();
    if (!propertyRemoval::remove(*m_db, prop, found.properties)
        || !updateEditTimeWell(keyList(found.wells)) || !updateEditTimeContainer())
        return false;
    journal::add(*m_db,
                 eventKind::property,
                 eventAction::remove,
                 names::shown(prop) + L" (wells: " + std::to_wstring(found.wells.size()) + L")");
    announce::afterCommit(*m_db, [prop](auto& observer, const auto& container) {
        observer.deleteProperty(container, prop);
    });
    if (!edit.commit())
        return false;
    removed = found.wells.size();
    return true;
}
