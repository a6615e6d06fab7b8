// Finds wells of a container by work object, field and name.
#pragma once

#include "NORLEX_wellDescription.h"

#include <string>
#include <unordered_map>
#include <vector>

// Tells wells apart as a container does: apostrophes are no part of a name.
[[nodiscard]] std::wstring wellKey(const NORLEX_wellDescription& well);

class knownWells {
public:
    explicit knownWells(const std::vector<NORLEX_wellDescription>& wells);

    // Those of `wells` that the container has, with its names and keys, in their order, each once.
    [[nodiscard]] std::vector<NORLEX_wellDescription>
    find(const std::vector<NORLEX_wellDescription>& wells) const;

private:
    std::unordered_map<std::wstring, NORLEX_wellDescription> m_wells;
};
