// The wells that the options of a command choose.
#pragma once

#include "NORLEX_selection.h"

#include <memory>
#include <string>
#include <vector>

// Which wells: of a saved selection, of a typed query, changed by the rest.
struct wellChoice {
    std::wstring selection; // a file
    std::wstring query;
    bool invert = false;
    std::vector<std::wstring> add; // wells, OBJECT/FIELD/NAME
    std::vector<std::wstring> remove;
    std::vector<std::wstring> picked;

    [[nodiscard]] bool isGiven() const;
};

// A selection of the container as the options describe it; null, having said why, when a file, a
// query or the name of a well cannot be read. A description without a path serves to write one.
[[nodiscard]] std::shared_ptr<NORLEX_selection> chooseWells(const NORLEX_contDescription& container,
                                                            const wellChoice& choice);
