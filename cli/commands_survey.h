// The commands of directional surveys.
#pragma once

#include "cli/commands.h"

#include "NORLEX_inclRead_descr.h"

#include <string>
#include <vector>

struct importSurveyRequest {
    std::wstring file;
    std::wstring well;
    std::wstring source;
    bool isTable = false; // columns are named; else a listing
    NORLEX_inclRead_descr description;
    tableRW::tableOptions format;
    resultForm form = resultForm::table;
};

struct surveyRequest {
    std::wstring file;
    std::wstring well;
    bool report = false;
    std::vector<double> crossings; // absolute depths
    resultForm form = resultForm::table;
};

namespace commands {

[[nodiscard]] int importSurvey(const importSurveyRequest& request);
[[nodiscard]] int survey(const surveyRequest& request);

} // namespace commands
