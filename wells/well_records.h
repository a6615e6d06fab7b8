// Rows of wells: found by their names, read, stamped.
#pragma once

#include "NORLEX_wellDescription.h"

#include <cstdint>
#include <optional>

class odbc_database;

namespace wellRecords {

[[nodiscard]] std::uint32_t find(odbc_database& db, // 0 when there is none
                                 const NORLEX_wellDescription& well);
// Refuses, with a line, a key that no well has.
[[nodiscard]] std::optional<NORLEX_wellDescription> read(odbc_database& db, std::uint32_t wellId);

// Stamp the well, or the container, as edited now; a well that is gone is refused. Where an edit
// touches several, the order is property, well, container: two programs that edit at once then
// never wait for each other.
[[nodiscard]] bool touch(odbc_database& db, std::uint32_t wellId);
[[nodiscard]] bool touchContainer(odbc_database& db);

} // namespace wellRecords
