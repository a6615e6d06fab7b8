// Reads the chart file: lines of sixteen fields with ";" between them.
#pragma once

#include "NORLEX_strategraphy.h"

#include <string>
#include <vector>

namespace chartFile {

// Of the chart that is shipped with the program.
[[nodiscard]] std::wstring shippedPath();

// The lines of sixteen fields or more; others are passed over. False, with the last error set, when
// the file cannot be read.
[[nodiscard]] bool read(const std::wstring& path, std::vector<strategraphy::raw_data>& rows);

} // namespace chartFile
