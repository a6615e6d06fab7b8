#include "cli/commands_survey.h"
#include "cli/input_files.h"
#include "cli/names.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/table_reports.h"
#include "cli/text.h"

namespace {

bool isLas(const std::wstring& path) {
    const std::string extension = text::path(path).extension().string();
    return extension == ".las" || extension == ".LAS";
}

bool load(const importSurveyRequest& request, NORLEX_well& well, NORLEX_tableReport& report) {
    if (!request.isTable)
        return well.loadInclFromLST(request.source, false);
    if (isLas(request.source))
        return well.loadInclFromLAS(request.source, request.description, report, false);
    tableRW::tableReader reader;
    return reader.open(request.source, request.format)
           && well.loadInclFromReader(reader, request.description, report, false);
}

void printCount(NORLEX_well& well) {
    output::line(
        L"the survey of " + names::spelled(well.getDescription()) + L" has "
        + std::to_wstring(well.getIncl()->getDataCount())
        + (well.checkIncl()
               ? L" stations"
               : L" stations; it is not valid: depths must grow and absolute depths fall"));
}

} // namespace

namespace commands {

int importSurvey(const importSurveyRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    if (const std::wstring why = whyNoInput(request.source); !why.empty())
        return output::refused(why);
    NORLEX_tableReport report;
    const bool good = load(request, *opened.well, report);
    const std::wstring error = good ? std::wstring() : output::reason();
    if (request.form == resultForm::json)
        jsonOut::print(tableReports::document(
            good,
            report,
            {{"stations", good ? opened.well->getIncl()->getDataCount() : 0}},
            error));
    else if (request.isTable && report.rows != 0)
        tableReports::print(report, good ? "the survey was replaced" : "nothing was written");
    if (!good)
        return output::refused(error);
    if (request.form == resultForm::table)
        printCount(*opened.well);
    return 0;
}

} // namespace commands
