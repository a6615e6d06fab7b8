#include "NORLEX_selection.h"

#include "NORLEX_wellContainer.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "selection/known_wells.h"
#include "selection/query_evaluation.h"
#include "selection/well_set.h"

#include <unordered_set>
#include <utility>

namespace {

using keySet = std::unordered_set<std::wstring>;

keySet keysOf(const std::vector<NORLEX_wellDescription>& wells) {
    keySet out;
    for (const auto& well : wells)
        out.insert(wellKey(well));
    return out;
}

// Adds to a list the wells that it has not, and removes them from another.
void move(const std::vector<NORLEX_wellDescription>& wells,
          std::vector<NORLEX_wellDescription>& to,
          std::vector<NORLEX_wellDescription>& from) {
    keySet known = keysOf(to);
    for (const auto& well : wells)
        if (known.insert(wellKey(well)).second)
            to.push_back(well);
    std::erase_if(from, [moved = keysOf(wells)](const NORLEX_wellDescription& well) {
        return moved.contains(wellKey(well));
    });
}

} // namespace

NORLEX_selection::NORLEX_selection(std::wstring name, NORLEX_contDescription container)
    : NORLEX_selection(std::move(name), std::move(container), false) {}

NORLEX_selection::NORLEX_selection(std::wstring name, NORLEX_contDescription container, bool custom)
    : m_name(std::move(name)), m_container(std::move(container)), m_isCustom(custom) {}

void NORLEX_selection::descr(const NORLEX_contDescription& container) {
    m_container = container;
    outdate();
}

bool NORLEX_selection::rebuildList() {
    const NORLEX_wellContainer container(m_container);
    return rebuildList(container);
}

bool NORLEX_selection::rebuildList(const NORLEX_wellContainer& container) {
    m_wells.clear();
    m_wellIds.clear();
    outdate();
    if (!container.isOK())
        return false;
    if (!(container.getContDescription() == m_container))
        return refuse(L"the selection \"" + m_name + L"\" is of the container " + m_container.path
                      + L", not of " + container.getConnectionPath());
    wellList geometry;
    queryEvaluation evaluation(*container.getBaseLink(), geometry);
    const bool isByHand = !m_added.empty() || !m_deleted.empty() || !m_geometry.empty();
    const knownWells known(isByHand ? evaluation.allWells() : wellList());
    geometry = known.find(m_geometry);

    if (!m_isCustom && queries().empty())
        m_wells = evaluation.allWells();
    else if (!m_isCustom)
        m_wells = m_isInverted
                      ? wellSet::without(evaluation.allWells(), evaluation.chain(queries()))
                      : evaluation.chain(queries());
    m_wells = wellSet::without(wellSet::joined(std::move(m_wells), known.find(m_added)),
                               known.find(m_deleted));
    updateWellID();
    m_isCurrent = true;
    return true;
}

bool NORLEX_selection::refresh() {
    return m_isCurrent || rebuildList();
}

void NORLEX_selection::updateWellID() {
    std::vector<std::uint32_t> keys;
    keys.reserve(m_wells.size());
    for (const auto& well : m_wells)
        keys.push_back(well.wellId);
    m_wellIds = sqlText::keyList(keys);
}

void NORLEX_selection::getWellList(std::vector<NORLEX_wellDescription>& wells) {
    refresh();
    wells = m_wells;
}

std::size_t NORLEX_selection::getWellCount() {
    refresh();
    return m_wells.size();
}

std::vector<std::wstring> NORLEX_selection::getWellIDList() {
    refresh();
    std::vector<std::wstring> keys;
    keys.reserve(m_wells.size());
    for (const auto& well : m_wells)
        keys.push_back(sqlText::key(well.wellId));
    return keys;
}

std::wstring NORLEX_selection::getWellIDString() {
    refresh();
    return m_wellIds;
}

void NORLEX_selection::addWell(const NORLEX_wellDescription& well) {
    addWells({well});
}

void NORLEX_selection::addWells(const std::vector<NORLEX_wellDescription>& wells) {
    move(wells, m_added, m_deleted);
    outdate();
}

void NORLEX_selection::delWell(const NORLEX_wellDescription& well) {
    move({well}, m_deleted, m_added);
    outdate();
}

void NORLEX_selection::addGeomWells(const std::vector<NORLEX_wellDescription>& wells) {
    m_geometry = wells;
    outdate();
}

const std::vector<NORLEX_wellDescription>& NORLEX_selection::getAddedWells() const {
    return m_added;
}

const std::vector<NORLEX_wellDescription>& NORLEX_selection::getDeletedWells() const {
    return m_deleted;
}

const std::vector<NORLEX_wellDescription>& NORLEX_selection::getGeomWells() const {
    return m_geometry;
}

void NORLEX_selection::setInvertResult(bool invert) {
    m_isInverted = invert;
    outdate();
}

void NORLEX_selection::setCustom(bool custom) {
    m_isCustom = custom;
    outdate();
}
