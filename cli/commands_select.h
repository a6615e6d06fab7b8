// The commands of selections and data filters.
#pragma once

#include "cli/choose_wells.h"
#include "cli/commands.h"

#include <string>
#include <vector>

struct selectRequest {
    std::wstring file;
    wellChoice wells;
    bool isCustom = false;
    bool show = false;    // the selection itself
    std::wstring newFile; // to write the selection to
    std::wstring name;    // of the one that is written
    resultForm form = resultForm::table;
};

struct filterRequest {
    std::wstring file;
    std::wstring filter; // a file
    std::wstring query;
    wellChoice wells;
    std::vector<std::wstring> columns; // GROUP/NAME.FIELD
    bool show = false;
    std::wstring newFile;
    resultForm form = resultForm::table;
};

namespace commands {

[[nodiscard]] int select(const selectRequest& request);
[[nodiscard]] int filter(const filterRequest& request);

} // namespace commands
