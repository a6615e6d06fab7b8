// Writes many records of points or intervals, hundreds of rows to a statement.
#pragma once

#include "NORLEX_propRecord.h"
#include "wells/property_records.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

class odbc_database;

// Keys are taken once from the table and counted up in memory: make and use it inside one
// transaction, whose write lock keeps them free. Nothing is complete before finish().
class recordWriter {
public:
    recordWriter(odbc_database& db, propertyRecords::geometry kind); // points or intervals

    // `record` has its depths in both systems. A value for each field; apostrophes are dropped.
    // The keys given run up from firstKey() without gaps.
    [[nodiscard]] bool add(const NORLEX_geometryRecord& record,
                           std::span<const std::int64_t> fields,
                           std::span<const std::wstring> values);
    [[nodiscard]] bool finish();

    [[nodiscard]] std::int64_t firstKey() const { return m_firstKey; }
    [[nodiscard]] std::int64_t nextKey() const { return m_nextKey; }

private:
    void addGeometry(const NORLEX_geometryRecord& record);
    void addValue(std::int64_t field, const std::wstring& value);
    [[nodiscard]] bool flush(std::wstring& statement, std::size_t& rows);

    odbc_database& m_db;
    bool m_arePoints;
    std::int64_t m_firstKey = 1;
    std::int64_t m_nextKey = 1;
    std::wstring m_geometry; // a statement in the making
    std::size_t m_geometryRows = 0;
    std::wstring m_values;
    std::size_t m_valueRows = 0;
};
