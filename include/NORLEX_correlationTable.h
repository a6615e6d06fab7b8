// Correlations as delimited text tables: picks read, and written as wells by borders.
#pragma once

#include "NORLEX_columnRef.h"
#include "NORLEX_corPoint.h"
#include "NORLEX_export.h"
#include "NORLEX_propDescription.h"
#include "NORLEX_tableColumns.h"
#include "tableReader.h"
#include "ts_strconv.h"

#include <cstddef>
#include <string>

class odbc_database;

// A long table has a pick a row; a wide one a well a row and, beside the well's, a column a border,
// whose name is the column's header.
struct NORLEX_correlationTableOptions {
    NORLEX_propDescription correlation; // made where it is not there, and so are its borders
    bool isWide = false;

    NORLEX_columnRef well{1, {}};
    NORLEX_columnRef border{2, {}}; // this and the following of a long table
    NORLEX_columnRef depth{3, {}};
    NORLEX_columnRef group;    // of borders that are made; not needed
    NORLEX_columnRef type;     // a NORLEX_borderType; not needed
    std::wstring borderLookup; // a table of the codes in the border column and their names

    // Wells are named as in NORLEX_tableImportOptions.
    std::wstring wellAttribute;
    bool areAbsolute = false; // the depths

    tableRW::tableOptions format;
    NORLEX_tableOptions rows; // a wide table has a header in any case
    correlation::onExistingPick onExisting = correlation::onExistingPick::fail;
};

struct NORLEX_correlationTableResult {
    bool ok = false;
    NORLEX_tableReport report; // of a refused import, too; nothing is taken then
    correlation::pickSums picks;
    std::wstring error; // why not ok; one line
};

// One transaction of the container, as NORLEX_tableImport. An empty cell of a wide table is no
// pick; one bad cell makes its row bad.
[[nodiscard]] NORLEX_API NORLEX_correlationTableResult NORLEX_importCorrelation(
    odbc_database* db, const std::wstring& path, const NORLEX_correlationTableOptions& options);

struct NORLEX_correlationExportOptions {
    NORLEX_propDescription correlation;
    bool areAbsolute = false;
    char separator = ','; // ';', ',' or tab
    ts::strconv::encodings encoding = ts::strconv::utf8;
};

struct NORLEX_correlationExportResult {
    bool ok = false;
    std::size_t wells = 0;
    std::size_t picks = 0;
    std::wstring error; // why not ok; one line
};

// A wide table, which reads back: "well" and the borders in the order in which they were made; then
// the wells that have picks, OBJECT/FIELD/NAME, by these. `path` is replaced once everything is
// written.
[[nodiscard]] NORLEX_API NORLEX_correlationExportResult NORLEX_exportCorrelation(
    odbc_database* db, const std::wstring& path, const NORLEX_correlationExportOptions& options);
