// The exact form of a LAS file: every sample at its own depth, as NORLEX_well::exportLASExact has
// it.
#pragma once

#include "NORLEX_wellDescription.h"
#include "exchange/exported_logs.h"

#include <string>
#include <vector>

namespace exactLas {

// False, with the last error set, when nothing is written.
[[nodiscard]] bool write(const std::wstring& path,
                         const NORLEX_wellDescription& well,
                         const std::vector<exportedLogs::source>& logs);

} // namespace exactLas
