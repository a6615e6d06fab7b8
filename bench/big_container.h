// A container of many wells, for the measures that look through all of them.
#pragma once

#include "bench/measures.h"

#include <string>

namespace bench {

// Each well has 10 properties "P-0" to "P-9" of the group "G", the first five points and the others
// intervals, with 25 records and two fields: "text" ("value 17") and the number "num" ("17.5"), of
// 1,000 different values each. The path; empty when it cannot be made. It is made once for all
// measures of a run: one that changes it changes it back.
[[nodiscard]] std::string bigContainer(const settings& with, std::size_t wells);

} // namespace bench
