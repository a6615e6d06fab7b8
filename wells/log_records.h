// Creates logs: the property row, its field, attributes and sample file.
#pragma once

#include "NORLEX_fieldDescr.h"
#include "NORLEX_propDescription.h"
#include "NORLEX_wellDescription.h"
#include "store/metadata.h"

#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

class odbc_database;

namespace logRecords {

// What a new log is made of. `writeSamples` writes the whole sample file, at once or, where it may
// be `later`, in another thread before the commit; then it holds all that it needs.
struct newLog {
    NORLEX_propDescription description;
    std::wstring comment;
    metadata::pairs attributes;
    std::function<bool(std::FILE*)> writeSamples;
    bool later = false;
};

// Makes logs of one well one after the other. What is the same for all of them (the well's
// folder, the template, the names taken) is read once, so that a file of many curves costs a few
// statements a log however large the container is. Make and use it inside one transaction: its
// write lock is what keeps the names free and the key read back this program's own.
class maker {
public:
    // A well that was created in this transaction has no names to be read (`isNewWell`): the
    // table has no index by well, so reading them takes longer the more the container holds.
    maker(odbc_database& db, std::uint32_t wellId, bool isNewWell = false);

    [[nodiscard]] bool isOK() const; // the well and the log template were found
    [[nodiscard]] bool isTaken(const NORLEX_propDescription& prop) const;
    [[nodiscard]] bool create(const newLog& log); // a taken name is refused

private:
    [[nodiscard]] bool writeSamples(const newLog& log, const NORLEX_propDescription& prop);
    [[nodiscard]] std::int64_t insertRow(const newLog& log, const NORLEX_propDescription& prop);

    odbc_database& m_db;
    NORLEX_wellDescription m_well;
    std::wstring m_wellPath;
    std::uint32_t m_templateId = 0;
    std::vector<NORLEX_fieldDescr> m_fields; // of the template
    bool m_ok = false;
    bool m_isStamped = false;                    // the well, by the first log
    std::vector<NORLEX_propDescription> m_taken; // sorted
};

} // namespace logRecords
