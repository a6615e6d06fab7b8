// The version of a container's schema, as its database has it.
#pragma once

class odbc_database;

namespace upgrade {

// The version in the table `base_version`, the last row's; 0 when it cannot be read.
[[nodiscard]] int storedVersion(odbc_database& db);

} // namespace upgrade
