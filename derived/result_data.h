// What the computations write into a well.
#pragma once

#include "NORLEX_dataType.h"
#include "NORLEX_logSample.h"
#include "NORLEX_propDescription.h"
#include "derived/depth_pieces.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

class NORLEX_well;
class NORLEX_wellProperty;
class odbc_database;

namespace resultData {

// Each makes the property and all that is in it in one transaction; a name and group that the well
// has already are refused.

[[nodiscard]] bool writeLog(odbc_database* db,
                            NORLEX_well& well,
                            const NORLEX_propDescription& result,
                            const std::wstring& description,
                            const std::wstring& units, // empty: the log gets no such attribute
                            const std::vector<NORLEX_logSample>& samples);

// A marker at the top of the span, or an interval; the absolute depths are the survey's.
struct record {
    depthSpan span;
    std::wstring name;
    std::wstring description;
};
// `type` is of markers or intervals: its first two fields are name and description.
[[nodiscard]] bool writeRecords(odbc_database* db,
                                NORLEX_well& well,
                                NORLEX_dataType type,
                                const NORLEX_propDescription& result,
                                const std::vector<record>& records);

// Containers have the standard template of some types only once there is one.
[[nodiscard]] bool hasTemplate(odbc_database& db, NORLEX_dataType type); // or makes it

// The one value of a record goes into the first numeric field of the template.
[[nodiscard]] std::optional<std::size_t> numericField(const NORLEX_wellProperty& property);

} // namespace resultData
