// The logs of many wells, one well after the other, as an export takes them.
#pragma once

#include "NORLEX_propDescription.h"
#include "NORLEX_wellDescription.h"
#include "exchange/exported_logs.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

class odbc_database;

// The tables have no index by well or by owner of an attribute, so they are gone through once for
// thousands of logs. `wells` is borrowed.
class exported_wells {
public:
    exported_wells(odbc_database& db, const std::vector<NORLEX_wellDescription>& wells)
        : m_db(&db), m_wells(&wells) {}

    // Which logs the wells have. Each sets the last error when it answers false.
    [[nodiscard]] bool open();
    // The logs of the next well, by group and name; none where it has none.
    [[nodiscard]] bool next(std::vector<exportedLogs::source>& logs);

private:
    using keys = std::vector<std::int64_t>;

    [[nodiscard]] const keys& keysOf(const NORLEX_wellDescription& well) const;
    [[nodiscard]] bool readPortion();
    [[nodiscard]] bool readLogs(const keys& logs);
    [[nodiscard]] bool readAttributes(const keys& logs);

    struct known {
        NORLEX_propDescription description;
        exportedLogs::source log;
    };

    odbc_database* m_db;
    const std::vector<NORLEX_wellDescription>* m_wells;
    std::unordered_map<std::uint32_t, keys> m_keys; // of the logs, by well
    std::unordered_map<std::int64_t, known> m_logs; // of the wells up to m_end
    std::size_t m_at = 0;                           // the next well
    std::size_t m_end = 0;                          // the first one whose logs are not read
};
