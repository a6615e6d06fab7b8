// The commands that read and write delimited tables.
#pragma once

#include "cli/commands.h"

#include "NORLEX_tableExport.h"
#include "NORLEX_tableImport.h"
#include "NORLEX_wellTableImport.h"

#include <string>

struct importTableRequest {
    std::wstring file;
    std::wstring table;
    std::wstring well; // empty: a column names it
    std::wstring property;
    NORLEX_tableImportOptions options;
    resultForm form = resultForm::table;
};

struct importWellsRequest {
    std::wstring file;
    std::wstring table;
    NORLEX_wellTableOptions options;
    resultForm form = resultForm::table;
};

struct exportTableRequest {
    std::wstring file;
    std::wstring property;
    std::wstring well; // empty: all that have the property
    std::wstring out;  // empty: standard output
    NORLEX_tableExportOptions options;
};

namespace commands {

[[nodiscard]] int importTable(const importTableRequest& request);
[[nodiscard]] int importWells(const importWellsRequest& request);
[[nodiscard]] int exportTable(const exportTableRequest& request);

} // namespace commands
