// The records of a property in memory: geometry, and the values of its fields.
#pragma once

#include "NORLEX_propRecord.h"
#include "wells/property_records.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class odbc_database;

// Values lie one behind the other in one text: hundreds of thousands of them cost one allocation
// now and then.
class recordSet {
public:
    recordSet() = default;

    // Shallowest first by absolute depth. Of picks `name` is that of the correlation, and there
    // are two values: the border's name and group. False when the rows cannot be read.
    [[nodiscard]] bool readRecords(odbc_database& db,
                                   propertyRecords::geometry kind,
                                   const std::vector<std::int64_t>& fields);
    [[nodiscard]] bool readPicks(odbc_database& db, std::uint32_t wellId, const std::wstring& name);

    [[nodiscard]] const std::vector<NORLEX_geometryRecord>& records() const { return m_records; }
    [[nodiscard]] std::size_t fieldCount() const { return m_fieldCount; }
    [[nodiscard]] std::wstring_view value(std::size_t field, std::size_t record) const;

    void add(const NORLEX_geometryRecord& record, const std::vector<std::wstring>& values);
    void setValue(std::size_t field, std::size_t record, std::wstring_view text);
    void setFlag(std::size_t record, std::uint8_t flag) { m_records[record].flag = flag; }

private:
    struct place {
        std::size_t from = 0;
        std::size_t length = 0;
    };
    void begin(std::size_t fieldCount);
    [[nodiscard]] place store(std::wstring_view text);
    [[nodiscard]] bool placeByField(odbc_database& db, const std::vector<std::int64_t>& fields);

    std::size_t m_fieldCount = 0;
    std::vector<NORLEX_geometryRecord> m_records;
    std::vector<place> m_values; // fieldCount of each record
    std::wstring m_text;
};
