#include "cli/arguments_survey.h"

#include "cli/arguments_tables.h"
#include "cli/column_list.h"
#include "cli/command_options.h"
#include "cli/commands_survey.h"
#include "cli/help_survey.h"
#include "cli/text.h"

namespace {

using namespace commandOptions;

// Requests as they come from the command line.
struct importArguments : importSurveyRequest {
    std::optional<double> correction;
};

// "md=1,inc=2,azi=3"
void takeColumns(const std::string& given, NORLEX_inclRead_descr& description) {
    std::vector<columnList::entry> entries;
    bool good = columnList::parse(text::wide(unguarded(given)), entries);
    for (const auto& entry : entries) {
        if (entry.name == L"md")
            description.depth = entry.column;
        else if (entry.name == L"inc" || entry.name == L"dip")
            description.angle = entry.column;
        else if (entry.name == L"azi")
            description.azimuth = entry.column;
        else
            good = false;
    }
    if (!good)
        refuseUsage("--columns: \"" + unguarded(given)
                    + "\" is not of the form md=COLUMN,inc=COLUMN,azi=COLUMN");
}

void addWords(CLI::App& app, importSurveyRequest& request) {
    auto& d = request.description;
    app.add_option_function<std::string>(
           "--columns",
           [&request](const std::string& given) {
               request.isTable = true;
               takeColumns(given, request.description);
           },
           "the file is a table with these columns, or a LAS file with these curves")
        ->type_name("md=C,inc=C,azi=C");
    app.add_option_function<std::string>(
           "--dip",
           [&d](const std::string& side) {
               d.angleKind = side == "down" ? NORLEX_inclAngle::dipDown : NORLEX_inclAngle::dipUp;
           },
           "the angles are dips: positive down, or positive up (-90 is straight down)")
        ->type_name("down|up")
        ->check(CLI::IsMember({"down", "up"}));
    app.add_flag_callback(
        "--feet", [&d] { d.depthUnit = NORLEX_inclDepthUnit::feet; }, "the depths are in feet");
}

void importOptions(CLI::App& app, importArguments& request) {
    addFile(app, request.file);
    addWell(app, request.well);
    addText(app, "SURVEY", "", request.source, "the listing, table or LAS file")->required();
    addWords(app, request);
    addNumber(app,
              "--azimuth-correction",
              request.correction,
              "degrees added to every azimuth: declination, grid convergence");
    addTableFormat(app,
                   request.format,
                   request.description.hasHeader,
                   request.description.keepGoodRows,
                   request.form);
}

int runImport(const importArguments& given) {
    importArguments request = given;
    request.description.azimuthCorrection = given.correction.value_or(0.0);
    return commands::importSurvey(request);
}

void surveyOptions(CLI::App& app, surveyRequest& request) {
    addFile(app, request.file);
    addWell(app, request.well);
    auto* const report =
        app.add_flag("--report", request.report, "by minimum curvature, beside what is stored");
    addNumbers(app,
               "--crossing",
               request.crossings,
               "absolute depths: where the hole passes them, by minimum curvature")
        ->excludes(report);
    addJson(app, request.form);
}

} // namespace

void addSurveyImport(CLI::App& import, command& chosen) {
    addCommand(import, chosen, helpTexts::importSurvey, runImport, importOptions);
}

void addSurveyCommand(CLI::App& app, command& chosen) {
    addCommand(app, chosen, helpTexts::survey, commands::survey, surveyOptions);
}
