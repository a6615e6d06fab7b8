// The property of each well that the rows of a table go to: found, or made.
#pragma once

#include "NORLEX_inclinometry.h"
#include "NORLEX_tableImport.h"
#include "NORLEX_wellProperty.h"
#include "exchange/well_index.h"
#include "wells/property_records.h"
#include "wells/table_rows.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

class odbc_database;

// What all wells have is read once, and what is new is written in the end, many rows to a
// statement: a table may go to thousands of wells, row by row another one. Make and use it inside
// one transaction, whose write lock keeps the keys free that it counts up in memory.
class propertyTargets {
public:
    struct target {
        std::uint32_t wellId = 0;
        std::int64_t propertyId = 0; // 0: not there yet
        bool isNew = false;
        bool isReplaced = false;
        bool isUsed = false;
        std::wstring fault;               // why no row of the well can be taken
        std::vector<std::int64_t> fields; // keys; of a new property once it is used
        const tableRows::parser* parser = nullptr;
        std::unique_ptr<NORLEX_inclinometry> survey;
    };

    propertyTargets(odbc_database& db,
                    const NORLEX_tableImportOptions& options,
                    const NORLEX_tableColumns& columns)
        : m_db(db), m_options(options), m_columns(columns) {}

    // Reads the template and the properties of the name. Refuses columns that do not suit it.
    [[nodiscard]] bool open();
    [[nodiscard]] propertyRecords::geometry kind() const { return m_kind; }

    [[nodiscard]] target& of(std::uint32_t wellId);
    // Before the first record of a well: deletes what is replaced, and gives keys.
    [[nodiscard]] bool use(target& one);
    // Writes the rows of what is new, stamps and tells what was changed.
    [[nodiscard]] bool finish(const wellIndex& wells);

    [[nodiscard]] std::size_t wellCount() const { return m_used.size(); }
    [[nodiscard]] std::size_t createdCount() const { return m_created; }

private:
    struct existing {
        std::int64_t propertyId = 0;
        propertyRecords::geometry kind = propertyRecords::geometry::none;
        std::vector<NORLEX_propField> fields;
    };
    [[nodiscard]] bool openTemplate();
    [[nodiscard]] bool readExisting();
    [[nodiscard]] bool readFields();
    [[nodiscard]] std::wstring ofTheName() const;
    [[nodiscard]] const tableRows::parser* parserOf(const std::vector<NORLEX_propField>& fields);
    [[nodiscard]] std::wstring faultOf(const std::vector<NORLEX_propField>& fields);
    void append(target& one, const existing& property);
    [[nodiscard]] bool insertProperties();
    [[nodiscard]] bool insertFields();
    [[nodiscard]] bool stamp() const;
    void tell(const wellIndex& wells) const;

    odbc_database& m_db;
    const NORLEX_tableImportOptions& m_options;
    const NORLEX_tableColumns& m_columns;
    NORLEX_propDescription m_prop;
    std::uint32_t m_templateId = 0;
    propertyRecords::geometry m_kind = propertyRecords::geometry::none;
    std::vector<NORLEX_propField> m_fields; // of the template
    std::unordered_map<std::uint32_t, existing> m_existing;
    std::vector<std::pair<std::vector<NORLEX_propField>, std::unique_ptr<tableRows::parser>>>
        m_parsers; // one for each list of fields
    std::unordered_map<std::uint32_t, target> m_targets;
    std::vector<const target*> m_used;
    std::size_t m_created = 0;
    std::int64_t m_nextProperty = 0;
    std::int64_t m_nextField = 0;
};
