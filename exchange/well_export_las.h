// The described form of a LAS file: logs on a common depth grid, as NORLEX_well::exportLAS has it.
#pragma once

#include "NORLEX_wellDescription.h"
#include "exchange/exported_logs.h"

#include <string>
#include <vector>

namespace describedLas {

// False, with the last error set, when nothing is written.
[[nodiscard]] bool write(const std::wstring& path,
                         const NORLEX_wellDescription& well,
                         const std::vector<exportedLogs::source>& logs);

} // namespace describedLas
