// The properties that show a correlation on its wells.
#pragma once

#include "NORLEX_propDescription.h"
#include "NORLEX_wellDescription.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

class odbc_database;

namespace mirrors {

// Beside the fields of the border template.
inline constexpr const wchar_t* typeField = L"fld_border_type";

struct found {
    std::vector<std::int64_t> keys;  // of the properties, of all wells that were asked for
    std::set<std::uint32_t> created; // wells that got theirs now
};

// Makes the mirror on each of the wells that lacks it, and stamps those wells. Refuses, with a
// line, a well with another kind of property of the name and group, and a group that is not that
// of the mirrors that are there.
[[nodiscard]] bool ensure(odbc_database& db,
                          const NORLEX_propDescription& prop,
                          const std::vector<NORLEX_wellDescription>& wells,
                          found& out);

// After the picks of wells have changed: stamps the mirrors that there are and announces their
// data, or the properties where they are new.
[[nodiscard]] bool tell(odbc_database& db,
                        const NORLEX_propDescription& prop,
                        const std::vector<NORLEX_wellDescription>& wells,
                        const found& have);
// The same of one well, whose mirror may be missing.
[[nodiscard]] bool
tell(odbc_database& db, const NORLEX_propDescription& prop, const NORLEX_wellDescription& well);
// Of every well.
[[nodiscard]] bool tellAll(odbc_database& db, const NORLEX_propDescription& prop);

// The groups of the mirrors: of all wells, or of one (wellId other than 0).
[[nodiscard]] std::vector<std::wstring>
groups(odbc_database& db, const std::wstring& name, std::uint32_t wellId = 0);

[[nodiscard]] bool
rename(odbc_database& db, const std::wstring& oldName, const std::wstring& newName);

// With their fields, attributes and attached files, in whatever group they are: of every well, or
// of one.
[[nodiscard]] bool
remove(odbc_database& db, const NORLEX_propDescription& prop, std::uint32_t wellId = 0);

} // namespace mirrors
