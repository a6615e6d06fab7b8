// What came of the rows of a table, as the program tells it.
#pragma once

#include "cli/json_out.h"

#include "NORLEX_tableColumns.h"

#include <functional>
#include <string>

namespace tableReports {

// "ok", "rows", "taken", "passed_over", "bad_count", then the given pairs, "errors" and "error".
[[nodiscard]] json
document(bool ok, const NORLEX_tableReport& report, const json& counts, const std::wstring& error);

// The rows that were not taken, and a line of the sums with `counts` behind it.
void print(const NORLEX_tableReport& report, const std::string& counts);

// Runs an import with a progress bar that Ctrl-C stops.
void withProgress(const std::function<void()>& work);

} // namespace tableReports
