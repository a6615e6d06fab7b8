// Logs as an export to a LAS file takes them.
#pragma once

#include "NORLEX_logSample.h"
#include "store/metadata.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

class NORLEX_wellProperty;
class odbc_database;

namespace exportedLogs {

struct source {
    std::wstring name;
    std::wstring comment;
    metadata::pairs attributes; // among them the header entries, see header_attributes.h
    // The samples, in the order of their file; none of a log without a sample file, which is how
    // one begins. False, with the last error set, where they cannot be read.
    std::function<bool(std::vector<NORLEX_logSample>&)> read;

    [[nodiscard]] std::wstring attribute(std::wstring_view key) const; // empty: not set
};

// Of open properties, which are borrowed: what was set in memory is written. Refuses, with a line,
// a null pointer and a property that is no log.
[[nodiscard]] bool of(odbc_database& db,
                      const std::vector<NORLEX_wellProperty*>& properties,
                      std::vector<source>& out);

} // namespace exportedLogs
