// Makes wells of the rows of a delimited text table.
#pragma once

#include "NORLEX_columnRef.h"
#include "NORLEX_export.h"
#include "NORLEX_tableColumns.h"
#include "tableReader.h"

#include <cstddef>
#include <string>
#include <vector>

class odbc_database;

// What becomes of a row whose well is in the container already.
enum class NORLEX_onExistingWell : int {
    fail,   // it is bad
    skip,   // it is passed over
    update, // the well gets the numbers and attributes whose cells are not empty
};

// A column whose values become an attribute of the wells.
struct NORLEX_wellAttributeColumn {
    std::wstring key;
    NORLEX_columnRef column;
};

struct NORLEX_wellTableOptions {
    NORLEX_columnRef name; // has to be set
    NORLEX_columnRef object;
    NORLEX_columnRef field;
    std::wstring workObject; // where no column is given, or its cell is empty
    std::wstring fieldName;
    NORLEX_columnRef x;
    NORLEX_columnRef y;
    NORLEX_columnRef altitude;
    NORLEX_columnRef bottom; // measured depth
    std::vector<NORLEX_wellAttributeColumn> attributes;

    tableRW::tableOptions format;
    bool hasHeader = true;     // the first row holds no data
    bool keepGoodRows = false; // false: one bad row leaves nothing written
    NORLEX_onExistingWell onExisting = NORLEX_onExistingWell::fail;
};

struct NORLEX_wellTableResult {
    bool ok = false;
    NORLEX_tableReport report; // of a refused import, too; nothing is taken then
    std::size_t created = 0;
    std::size_t updated = 0; // of these rows, wells that were there
    std::wstring error;      // why not ok; one line
};

// One transaction of the container, as NORLEX_tableImport. A cell that is empty leaves what a new
// well has: altitude 0, position (0, 0), no bottom, no such attribute. Numbers may have a decimal
// comma. A well that stands on two rows is bad on the second one.
class NORLEX_API NORLEX_wellTableImport {
public:
    NORLEX_wellTableImport(odbc_database* db, NORLEX_wellTableOptions options);

    [[nodiscard]] NORLEX_wellTableResult importFile(const std::wstring& path);

private:
    odbc_database* m_db;
    NORLEX_wellTableOptions m_options;
};
