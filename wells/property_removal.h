// Deletes the rows and files of properties.
#pragma once

#include "NORLEX_dataType.h"
#include "NORLEX_propDescription.h"

#include <cstdint>
#include <vector>

class odbc_database;

namespace propertyRemoval {

struct found {
    std::int64_t id = 0;
    std::uint32_t wellId = 0;
    NORLEX_dataType type = NORLEX_dataTypeUnknown;
};

// The property of this name and group in every well that has it, by key of the well. The name is
// without apostrophes here and below.
[[nodiscard]] std::vector<found> find(odbc_database& db, const NORLEX_propDescription& prop);

// Removes everything that belongs to these properties, all of one name and group, and what their
// kind keeps elsewhere. Stamps, journal and announcement are the caller's, and so is the
// transaction. The tables are gone through once for thousands of properties: few have an index by
// property or well.
[[nodiscard]] bool
remove(odbc_database& db, const NORLEX_propDescription& prop, const std::vector<found>& properties);

} // namespace propertyRemoval
