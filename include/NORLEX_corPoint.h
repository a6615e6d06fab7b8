// What a correlation consists of: border names, and picks of them on wells.
#pragma once

#include "NORLEX_logSample.h"
#include "NORLEX_propRecord.h"

#include <cstddef>
#include <cstdint>
#include <string>

// Measured depths run along the hole, absolute depths are altitude minus vertical depth, both in
// metres.
namespace correlation {

// One pick of a loaded correlation.
struct point {
    double depth = 0.0; // in the direction in which the picks were loaded
    std::wstring name;  // of the border
    std::wstring group; // of borders
    NORLEX_borderType type = 0;
    std::int64_t pickId = 0;
    std::int64_t borderId = 0;
};

struct borderName {
    std::int64_t borderId = 0;
    std::wstring name;
    std::wstring group; // of borders; may be empty
};

// A pick to be made, of many. A depth that is NORLEX_unknownDepth is computed from the other one.
struct newPick {
    std::uint32_t wellId = 0;
    std::wstring border; // a name that the correlation lacks is made
    double depth = NORLEX_unknownDepth;
    double depthAbs = NORLEX_unknownDepth;
    NORLEX_borderType type = 0;
    std::wstring group = {}; // of a border that is made
};

// What becomes of a pick whose border is picked on the well already.
enum class onExistingPick : int {
    fail, // it is refused
    skip, // it is passed over
    move, // the pick that is there is moved, and keeps its type
};

struct pickSums {
    std::size_t inserted = 0;
    std::size_t moved = 0;
    std::size_t wells = 0;   // with a pick that was inserted or moved
    std::size_t borders = 0; // names made
    std::size_t mirrors = 0; // properties made
};

} // namespace correlation
