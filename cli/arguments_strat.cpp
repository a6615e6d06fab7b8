#include "cli/arguments_strat.h"

#include "cli/command_options.h"
#include "cli/commands_strat.h"
#include "cli/help_strat.h"

#include <algorithm>
#include <iterator>

namespace {

using namespace commandOptions;

struct levelWord {
    const char* word;
    NORLEX_taxonType level;
};
constexpr levelWord levelWords[] = {
    {"akrotema", NORLEX_taxonAkrotema},
    {"acrothem", NORLEX_taxonAkrotema},
    {"1", NORLEX_taxonAkrotema},
    {"eonotema", NORLEX_taxonEonotema},
    {"eonothem", NORLEX_taxonEonotema},
    {"2", NORLEX_taxonEonotema},
    {"subeonotema", NORLEX_taxonSubEonotema},
    {"subeonothem", NORLEX_taxonSubEonotema},
    {"3", NORLEX_taxonSubEonotema},
    {"eratema", NORLEX_taxonEratema},
    {"erathem", NORLEX_taxonEratema},
    {"4", NORLEX_taxonEratema},
    {"system", NORLEX_taxonSystem},
    {"5", NORLEX_taxonSystem},
    {"series", NORLEX_taxonSeries},
    {"otdel", NORLEX_taxonSeries},
    {"7", NORLEX_taxonSeries},
    {"subseries", NORLEX_taxonSubSeries},
    {"podotdel", NORLEX_taxonSubSeries},
    {"subotdel", NORLEX_taxonSubSeries},
    {"8", NORLEX_taxonSubSeries},
    {"stage", NORLEX_taxonStage},
    {"yarus", NORLEX_taxonStage},
    {"9", NORLEX_taxonStage},
};

void addLevel(CLI::App& app, NORLEX_taxonType& target) {
    app.add_option_function<std::string>(
           "--level",
           [&target](const std::string& given) {
               const auto* const found =
                   std::find_if(std::begin(levelWords), std::end(levelWords), [&](const auto& w) {
                       return given == w.word;
                   });
               if (found == std::end(levelWords))
                   throw CLI::ValidationError(
                       "--level",
                       "\"" + unguarded(given)
                           + "\" is not one of akrotema, eonotema, subeonotema, eratema, system, "
                             "series, subseries, stage, nor of their numbers 1 to 5 and 7 to 9");
               target = found->level;
           },
           "the level, as a word or a number")
        ->type_name("L")
        ->required();
}

void layerOptions(CLI::App& app, stratLayerRequest& request) {
    addFile(app, request.file);
    addWell(app, request.well);
    addText(app, "--prop", "P", request.source, "intervals or a column, GROUP/NAME or NAME")
        ->required();
    addText(app, "--field", "F", request.field, "its field with index expressions")->required();
    addText(app, "--to", "P2", request.result, "the new property, GROUP/NAME or NAME")->required();
    addText(app, "--template", "T", request.templateName, "its template, made where it lacks");
    app.add_flag("--names", request.asNames, "names of units, in place of indexes");
}

} // namespace

void addStratCommands(CLI::App& app, command& chosen) {
    CLI::App& group = addGroup(app, helpTexts::stratCommand);
    addCommand(group,
               chosen,
               helpTexts::stratIdentify,
               commands::identifyUnits,
               [](CLI::App& c, stratRequest& r) {
                   addText(c, "EXPR", "", r.text, "the index expression")->required();
                   addJson(c, r.form);
               });
    addCommand(
        group, chosen, helpTexts::stratList, commands::listUnits, [](CLI::App& c, stratRequest& r) {
            addLevel(c, r.level);
            addJson(c, r.form);
        });
    addCommand(group,
               chosen,
               helpTexts::stratContain,
               commands::containUnit,
               [](CLI::App& c, stratRequest& r) {
                   addText(c, "UNIT", "", r.text, "its index or name")->required();
                   addLevel(c, r.level);
                   addJson(c, r.form);
               });
    addCommand(group, chosen, helpTexts::stratLayer, commands::makeStratLayer, layerOptions);
}
