#include "selection/known_wells.h"

#include "platform/sql_text.h"

#include <cstdint>
#include <unordered_set>

// A line end is no part of a name: the parts cannot run into one another.
std::wstring wellKey(const NORLEX_wellDescription& well) {
    return sqlText::plainName(well.workObject) + L'\n' + sqlText::plainName(well.field) + L'\n'
           + sqlText::plainName(well.name);
}

knownWells::knownWells(const std::vector<NORLEX_wellDescription>& wells) {
    m_wells.reserve(wells.size());
    for (const auto& well : wells)
        m_wells.emplace(wellKey(well), well);
}

std::vector<NORLEX_wellDescription>
knownWells::find(const std::vector<NORLEX_wellDescription>& wells) const {
    std::vector<NORLEX_wellDescription> found;
    std::unordered_set<std::uint32_t> taken;
    for (const auto& well : wells)
        if (const auto known = m_wells.find(wellKey(well));
            known != m_wells.end() && taken.insert(known->second.wellId).second)
            found.push_back(known->second);
    return found;
}
