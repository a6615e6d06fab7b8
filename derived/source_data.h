// What the computations read of a well.
#pragma once

#include "NORLEX_logSample.h"
#include "NORLEX_propDescription.h"
#include "derived/depth_pieces.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

class NORLEX_well;
class NORLEX_wellProperty;

namespace sourceData {

// Each is nothing, with the last error set, where there is no such data.

struct log {
    std::vector<NORLEX_logSample> samples; // by increasing depth, every value finite or missing
    std::wstring units;
};
[[nodiscard]] std::optional<log> readLog(NORLEX_well& well, const NORLEX_propDescription& prop);

// The values of a field of points or intervals, by increasing top, missing where the text is no
// number. Records without a measured depth are left out. A point's top is its bottom. Without any
// value that is a number there is nothing.
struct column {
    std::vector<depthPiece> pieces;
    bool arePoints = false;
};
[[nodiscard]] std::optional<column>
readColumn(NORLEX_well& well, const NORLEX_propDescription& prop, const std::wstring& field);

// The position of a field by its name.
[[nodiscard]] std::optional<std::size_t> findField(const NORLEX_wellProperty& property,
                                                   const NORLEX_propDescription& prop,
                                                   const std::wstring& name);

void dropMissing(column& values);
// Of points.
[[nodiscard]] std::vector<NORLEX_logSample> asSamples(const column& points);
// Of points each reaches half-way to its neighbours; intervals are as they are.
[[nodiscard]] std::vector<depthPiece> asPieces(const column& values);

} // namespace sourceData
