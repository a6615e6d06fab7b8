// How wells and properties are named on the command line.
//
// A well is OBJECT/FIELD/NAME, or NAME alone where only one well bears it; a property is
// GROUP/NAME, or NAME alone. "\/" is a slash inside a name; a backslash anywhere else stands for
// itself, and one right before a slash is written twice.
#pragma once

#include "NORLEX_propDescription.h"
#include "NORLEX_wellDescription.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

class NORLEX_well;
class odbc_database;

namespace names {

[[nodiscard]] std::vector<std::wstring> split(std::wstring_view reference);

// The spelling that finds the same well or property again.
[[nodiscard]] std::wstring spelled(const NORLEX_wellDescription& well);
[[nodiscard]] std::wstring spelled(const NORLEX_propDescription& property);

// The well or property that `reference` names. None, or several, are refused with a line that
// says which there are.
[[nodiscard]] std::optional<NORLEX_wellDescription> findWell(odbc_database* db,
                                                             std::wstring_view reference);
[[nodiscard]] std::optional<NORLEX_propDescription> findProperty(const NORLEX_well& well,
                                                                 std::wstring_view reference);

// The name of a well that is to be: NAME alone takes the other two parts from `base`.
[[nodiscard]] std::optional<NORLEX_wellDescription> newWell(std::wstring_view reference,
                                                            const NORLEX_wellDescription& base);

// The name of a property that may not be there: NAME alone is of no group.
[[nodiscard]] std::optional<NORLEX_propDescription> newProperty(std::wstring_view reference);

} // namespace names
