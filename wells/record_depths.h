// The depths of a record in both systems: completed from each other, and put in order.
#pragma once

#include "NORLEX_propRecord.h"

#include <string>

class NORLEX_inclinometry;

namespace recordDepths {

// The largest number that is a depth; the mark of an unknown one is the next.
inline constexpr double deepest = NORLEX_unknownDepth - 0.01;

// Computes what is unknown in one system from the other and orders the ends: the measured top is
// the smaller number, the absolute top the larger. The answer says why that cannot be done, and is
// empty when it was. Without a survey nothing can be computed.
[[nodiscard]] std::wstring completePoint(NORLEX_geometryRecord& record, NORLEX_inclinometry* incl);
[[nodiscard]] std::wstring completeInterval(NORLEX_geometryRecord& record,
                                            NORLEX_inclinometry* incl);

} // namespace recordDepths
