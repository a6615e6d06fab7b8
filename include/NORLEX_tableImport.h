// Loads the rows of a delimited text table into a property of one well or of many.
#pragma once

#include "NORLEX_columnRef.h"
#include "NORLEX_export.h"
#include "NORLEX_propDescription.h"
#include "NORLEX_tableColumns.h"
#include "NORLEX_wellDescription.h"
#include "tableReader.h"

#include <cstddef>
#include <string>
#include <vector>

class odbc_database;

// What becomes of a property of the name that a well has already.
enum class NORLEX_onExistingData : int {
    append,  // the rows are added to its records
    replace, // it is deleted, once there is a good row for it
    fail,    // the rows of such a well are bad
};

struct NORLEX_tableField {
    std::wstring name; // of the property's field
    NORLEX_columnRef column;
    // A table whose first column holds codes and whose second one their values: the cells are
    // codes then, and a row with a code that is not there is bad. An empty cell stays empty.
    std::wstring lookup;
};

struct NORLEX_tableImportOptions {
    std::wstring templateName; // of properties that are made, and of their kind: points, intervals
    NORLEX_propDescription property;

    // The well of every row; with an empty name, `wellColumn` holds the well: its name where only
    // one well bears it, or OBJECT/FIELD/NAME ("\/" is a slash inside a name), or the value of the
    // well's attribute `wellAttribute`.
    NORLEX_wellDescription well;
    NORLEX_columnRef wellColumn;
    std::wstring wellAttribute;

    // As in NORLEX_tableColumns.
    NORLEX_columnRef depth;
    NORLEX_columnRef depthAbs;
    NORLEX_columnRef top;
    NORLEX_columnRef bot;
    NORLEX_columnRef topAbs;
    NORLEX_columnRef botAbs;
    std::vector<NORLEX_tableField> fields;

    tableRW::tableOptions format;
    NORLEX_tableOptions rows;
    NORLEX_onExistingData onExisting = NORLEX_onExistingData::append;
};

struct NORLEX_tableImportResult {
    bool ok = false;
    NORLEX_tableReport report; // of a refused import, too; nothing is taken then
    std::size_t wells = 0;     // that rows went to
    std::size_t created = 0;   // properties made
    std::wstring error;        // why not ok; one line
};

// The table is one transaction of the container: with one bad row nothing is written, or on
// `rows.keepGoodRows` the other rows are. It is read row by row, in whatever order the wells
// come. The host's progress window shows the share of the file that is read, and may stop it,
// which leaves nothing written.
class NORLEX_API NORLEX_tableImport {
public:
    NORLEX_tableImport(odbc_database* db, NORLEX_tableImportOptions options);

    [[nodiscard]] NORLEX_tableImportResult importFile(const std::wstring& path);

private:
    odbc_database* m_db;
    NORLEX_tableImportOptions m_options;
};
