// One log of the runs that it was recorded in.
#pragma once

#include "NORLEX_derivedData.h"
#include "NORLEX_logSample.h"

#include <vector>

namespace logSplice {

// Each run by increasing depth. A run reaches from its first value to its last; the missing samples
// outside say nothing of the hole and are left out. The runs are taken by their upper ends, those
// of one depth in the order given, and each is joined to what the ones before it have made.
//
// The mean stands at the depths of the upper run; there the lower one is on the straight line
// between its samples. Where one of the two is missing, it is the other's value.
[[nodiscard]] std::vector<NORLEX_logSample> joined(std::vector<std::vector<NORLEX_logSample>> runs,
                                                   NORLEX_lasOverlap overlap);

} // namespace logSplice
