// Wells of a table on their way into the container: made, or changed where they are there.
#pragma once

#include "NORLEX_wellDescription.h"
#include "exchange/well_rows.h"
#include "platform/row_inserter.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

class odbc_database;

// What is there is read once: the table of wells has no index on their names. Make and use it
// inside one transaction, whose write lock keeps the keys free that it counts up in memory.
class wellStore {
public:
    // What is known of a well by its names.
    struct knownWell {
        std::uint32_t wellId = 0;
        wellRows::numbers values;
        std::uint64_t row = 0; // of the table, which named it; 0: none yet
    };

    wellStore(odbc_database& db, const NORLEX_wellTableOptions& options);

    [[nodiscard]] bool open();

    // The entry of the names; a new one has the key 0.
    [[nodiscard]] knownWell& of(const NORLEX_wellDescription& well);
    [[nodiscard]] bool create(const wellRows::row& row);
    [[nodiscard]] bool update(const wellRows::row& row, const knownWell& well);
    // Writes what is new, stamps and tells what was changed.
    [[nodiscard]] bool finish();

private:
    struct storedAttribute {
        std::int64_t key = 0; // of its row
        std::wstring value;
    };
    [[nodiscard]] bool readWells();
    [[nodiscard]] bool readAttributes();
    [[nodiscard]] bool
    updateNumbers(const wellRows::numbers& values, const knownWell& well, bool& isChanged);
    [[nodiscard]] bool setAttribute(std::uint32_t wellId,
                                    const std::wstring& key,
                                    const std::wstring& value,
                                    bool& isChanged);
    void tell() const;

    odbc_database& m_db;
    const NORLEX_wellTableOptions& m_options;
    rowInserter m_wells;
    rowInserter m_meta;
    std::unordered_map<std::wstring, knownWell> m_known;
    std::map<std::pair<std::uint32_t, std::wstring>, storedAttribute>
        m_attributes; // of wells there were
    std::uint32_t m_nextKey = 0;
    std::vector<NORLEX_wellDescription> m_created;
    std::vector<NORLEX_wellDescription> m_changed;
    std::vector<std::pair<NORLEX_wellDescription, std::wstring>> m_changedAttributes;
};
