// Names of wells and properties: how they are stored, and which are refused.
#pragma once

#include "NORLEX_propDescription.h"
#include "NORLEX_wellDescription.h"

#include <string>

namespace names {

// As stored: apostrophes dropped.
[[nodiscard]] NORLEX_wellDescription plain(const NORLEX_wellDescription& well);
[[nodiscard]] NORLEX_propDescription plain(const NORLEX_propDescription& prop);

// Refuses, with a line, an empty name, and any part that cannot name a file or a folder.
[[nodiscard]] bool areStorable(const NORLEX_wellDescription& well);
[[nodiscard]] bool areStorable(const NORLEX_propDescription& prop);

// In messages and in the journal: the parts that are not empty, with " / " between them.
[[nodiscard]] std::wstring shown(const NORLEX_wellDescription& well);
[[nodiscard]] std::wstring shown(const NORLEX_propDescription& prop);

} // namespace names
