#include "selection/well_set.h"

#include <cstdint>
#include <unordered_set>

namespace wellSet {

namespace {

using keys = std::unordered_set<std::uint32_t>;

keys keysOf(const list& wells) {
    keys out;
    out.reserve(wells.size());
    for (const auto& well : wells)
        out.insert(well.wellId);
    return out;
}

} // namespace

list common(list wells, const list& others) {
    const keys wanted = keysOf(others);
    std::erase_if(wells, [&](const auto& well) { return !wanted.contains(well.wellId); });
    return wells;
}

list without(list wells, const list& others) {
    const keys unwanted = keysOf(others);
    std::erase_if(wells, [&](const auto& well) { return unwanted.contains(well.wellId); });
    return wells;
}

list joined(list wells, const list& others) {
    keys known = keysOf(wells);
    for (const auto& well : others)
        if (known.insert(well.wellId).second)
            wells.push_back(well);
    return wells;
}

} // namespace wellSet
