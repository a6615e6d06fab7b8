// Rows of properties: inserted, found, read, listed, stamped.
#pragma once

#include "NORLEX_dataType.h"
#include "NORLEX_propDescription.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class odbc_database;

namespace propertyRecords {

struct row {
    std::int64_t id = 0;
    std::uint32_t wellId = 0;
    NORLEX_propDescription description;
    std::wstring comment;
    std::wstring templateName;
    NORLEX_dataType type = NORLEX_dataTypeUnknown;
};

// Where the records of a kind of property are.
enum class geometry {
    none,      // in tables of their own, by well
    points,    // point_data
    intervals, // interval_data
    picks,     // correlation_data
    samples,   // a file
};
[[nodiscard]] geometry geometryOf(NORLEX_dataType type);
// Intervals that show the velocity-depth model of the well, which goes with them.
[[nodiscard]] bool isVelocity(NORLEX_dataType type);

[[nodiscard]] std::int64_t find(odbc_database& db, // 0 when there is none
                                std::uint32_t wellId,
                                const NORLEX_propDescription& prop);
// Refuses, with a line, a key that no property has.
[[nodiscard]] std::optional<row> read(odbc_database& db, std::int64_t propertyId);
[[nodiscard]] std::vector<row> ofWell(odbc_database& db, std::uint32_t wellId); // by group, name

// The row alone; names are stored without apostrophes.
[[nodiscard]] bool insert(odbc_database& db,
                          std::uint32_t wellId,
                          std::uint32_t templateId,
                          const NORLEX_propDescription& prop);
[[nodiscard]] bool insertLog(odbc_database& db,
                             std::uint32_t wellId,
                             std::uint32_t templateId,
                             const NORLEX_propDescription& prop,
                             const std::wstring& comment);

// Stamps the property as edited now; one that is gone is refused.
[[nodiscard]] bool touch(odbc_database& db, std::int64_t propertyId);

// The standard template of a type is its oldest one, under whatever name. Empty: there is none.
[[nodiscard]] std::wstring standardTemplate(odbc_database& db, NORLEX_dataType type);

} // namespace propertyRecords
