// Writes a property of one well or of many as a delimited text table.
#pragma once

#include "NORLEX_export.h"
#include "NORLEX_propDescription.h"
#include "ts_strconv.h"

#include <cstdint>
#include <string>
#include <vector>

class odbc_database;

struct NORLEX_tableExportOptions {
    NORLEX_propDescription property;
    std::vector<std::uint32_t> wells; // empty: all that have the property
    char separator = ',';             // ';', ',' or tab
    ts::strconv::encodings encoding = ts::strconv::utf8;
    bool dictionaryValues =
        false; // of fields bound to a dictionary: for people, not to be read back
};

struct NORLEX_tableExportResult {
    bool ok = false;
    std::uint64_t rows = 0;
    std::size_t wells = 0;
    std::wstring error; // why not ok; one line
};

// The first row is a header: "well", then "depth" and "depth_abs" of points, picks and samples or
// "top", "bot", "top_abs" and "bot_abs" of intervals, then the fields; those of a log are "value".
// A well is OBJECT/FIELD/NAME, as NORLEX_tableImport reads it, and records keep their order. A
// depth or a value that is missing is an empty cell. Numbers have a decimal point and read back
// the same. Cells are quoted where they need it; lines end with CR LF.
//
// Reading the table back gives the records again, CR LF inside of a value aside, which comes back
// as LF. A text with characters that the encoding lacks is refused. `path` is replaced once
// everything is written.
[[nodiscard]] NORLEX_API NORLEX_tableExportResult NORLEX_exportTable(
    odbc_database* db, const std::wstring& path, const NORLEX_tableExportOptions& options);
