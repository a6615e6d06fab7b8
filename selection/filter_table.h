// Numbers of columns at the hits of a filter.
#pragma once

#include "selection/filter_evaluation.h"

namespace filterTable {

// A row for each hit: the well's key, the two depths, and for each column its number there or
// NORLEX_missingValue; see NORLEX_dataFilter::getGeneralTableForColumns. A value that is no number
// does not count. Nothing, with a line in the last error, when the database refuses to read.
[[nodiscard]] std::optional<std::vector<std::vector<double>>>
of(odbc_database& db,
   const filterEvaluation::wellChoice& wells,
   const std::vector<NORLEX_wellFilterDepths>& hits,
   const std::vector<NORLEX_filterColumn>& columns);

} // namespace filterTable
