// The commands that work on many wells at once.
#pragma once

#include "cli/commands_select.h"

struct exportWellsRequest {
    std::wstring file;
    std::wstring folder;
    wellChoice wells;
    bool exact = false;
    resultForm form = resultForm::table;
};

struct removePropRequest {
    std::wstring file;
    std::wstring property;
    std::wstring well; // of this one alone; empty: of the chosen ones
    wellChoice wells;
    bool all = false;
};

struct propsRequest {
    std::wstring file;
    std::wstring well; // of this one, with what is in them; empty: of the chosen ones
    wellChoice wells;
    resultForm form = resultForm::table;
};

namespace commands {

[[nodiscard]] int exportWells(const exportWellsRequest& request);
[[nodiscard]] int removeProp(const removePropRequest& request);
[[nodiscard]] int propsOfWells(const propsRequest& request);

} // namespace commands
