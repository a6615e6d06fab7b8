// The commands of the stratigraphic chart.
#pragma once

#include "cli/commands.h"

#include "NORLEX_taxonType.h"

#include <string>

struct stratRequest {
    std::wstring text;                              // an expression, or one unit
    NORLEX_taxonType level = NORLEX_taxonUndefined; // where one is asked for
    resultForm form = resultForm::table;
};

struct stratLayerRequest {
    std::wstring file;
    std::wstring well;
    std::wstring source;
    std::wstring field;
    std::wstring result;
    std::wstring templateName;
    bool asNames = false;
};

namespace commands {

[[nodiscard]] int identifyUnits(const stratRequest& request);
[[nodiscard]] int listUnits(const stratRequest& request);
[[nodiscard]] int containUnit(const stratRequest& request);
[[nodiscard]] int makeStratLayer(const stratLayerRequest& request);

} // namespace commands
