// The data of one property as rows of a table.
#pragma once

#include "NORLEX_dictionary.h"
#include "NORLEX_logSample.h"
#include "NORLEX_propDescription.h"
#include "NORLEX_wellDescription.h"
#include "exchange/table_writer.h"
#include "wells/property_records.h"
#include "wells/record_set.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class odbc_database;

namespace exportedData {

// A property to be written, with what can be read of all of them at once.
struct source {
    NORLEX_wellDescription well;
    NORLEX_propDescription description;
    std::int64_t propertyId = 0;
    propertyRecords::geometry kind = propertyRecords::geometry::none;
    std::vector<std::int64_t> fieldKeys;
    std::vector<std::wstring> fieldNames;
};

// By work object, field and name of the well. False when they cannot be read.
[[nodiscard]] bool find(odbc_database& db,
                        const NORLEX_propDescription& prop,
                        const std::vector<std::uint32_t>& wells,
                        std::vector<source>& out);

// The names of the depth columns of a kind, in order.
[[nodiscard]] std::vector<std::wstring> depthColumns(propertyRecords::geometry kind);

// A column of the table.
struct column {
    std::wstring field;
    std::shared_ptr<NORLEX_dictionary> dictionary; // its values are written in place of codes
};

// Writes the rows of a property, with the values of its fields in the order of `fields`; adds their
// number to `rows`.
[[nodiscard]] bool write(odbc_database& db,
                         const source& property,
                         const std::vector<column>& fields,
                         tableWriter& table,
                         std::uint64_t& rows);

} // namespace exportedData
