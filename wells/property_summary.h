// How many records properties hold and which depths they span.
#pragma once

#include "NORLEX_depthRange.h"
#include "wells/property_records.h"

#include <cstdint>
#include <optional>
#include <vector>

class odbc_database;

namespace propertySummary {

struct summary {
    std::uint64_t records = 0;
    std::optional<NORLEX_depthRange> range; // none without records
};

// Of properties of one well, in their order, in a constant number of statements; the logs' come
// from their sample files. A sample file that is missing or damaged counts as no records.
[[nodiscard]] std::vector<summary>
of(odbc_database& db, std::uint32_t wellId, const std::vector<propertyRecords::row>& properties);

} // namespace propertySummary
