// Brings a container of an older version to the current one.
#pragma once

class odbc_database;
struct NORLEX_contDescription;

namespace upgrade {

// Whether the container is of the current version or can be brought to it; changes nothing. A
// refusal names the version found.
[[nodiscard]] bool isSupported(odbc_database& db, const NORLEX_contDescription& description);

// Brings a supported container to the current version: asks the user, copies a local database
// (store/upgrade_backup.h), and runs the steps in one transaction. Answered no or failed, the
// container is as it was; the copy stays.
[[nodiscard]] bool bringUpToDate(odbc_database& db, const NORLEX_contDescription& description);

} // namespace upgrade
