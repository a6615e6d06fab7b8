#include "cli/arguments_select.h"

#include "cli/command_options.h"
#include "cli/help_select.h"

namespace {

using namespace commandOptions;

void addHandLists(CLI::App& app, wellChoice& choice) {
    app.add_flag("--invert", choice.invert, "the wells that the queries do not find");
    addTexts(
        app, "--add", "WELL", choice.add, "a well besides, OBJECT/FIELD/NAME; may be repeated");
    addTexts(app, "--remove", "WELL", choice.remove, "a well to leave out; may be repeated");
}

void selectOptions(CLI::App& app, selectRequest& request) {
    addText(app, "FILE", "", request.file, "the container");
    addText(app, "SELECTION", "", request.wells.selection, "a saved selection, XML");
    addText(app,
            "--query",
            "Q",
            request.wells.query,
            "queries, such as 'exists log and not exists survey'");
    addHandLists(app, request.wells);
    addTexts(
        app, "--picked", "WELL", request.wells.picked, "a well picked on a map; may be repeated");
    app.add_flag("--custom", request.isCustom, "no wells but those added by hand");
    app.add_flag("--show", request.show, "show the selection itself, not its wells");
    addText(app, "--new", "OUT", request.newFile, "write the selection to a file, XML");
    addText(app, "--name", "NAME", request.name, "the name of the selection that is written");
    addJson(app, request.form);
}

// Without a container there is no file before the selection's.
void checkSelect(const selectRequest& request) {
    if (request.newFile.empty() && request.file.empty())
        refuseUsage("a container is needed, or --new and a file to write");
    if (!request.name.empty() && request.newFile.empty())
        refuseUsage("--name goes with --new");
}

void filterOptions(CLI::App& app, filterRequest& request) {
    addText(app, "FILE", "", request.file, "the container");
    addText(app, "FILTER", "", request.filter, "a saved filter, XML");
    addText(
        app, "--query", "Q", request.query, "conditions, such as 'Core/Plug.por > 0.2 and (…)'");
    addText(app, "--selection", "S", request.wells.selection, "a saved selection of wells, XML");
    addText(app, "--wells", "Q", request.wells.query, "queries that choose the wells");
    addHandLists(app, request.wells);
    addTexts(app,
             "--column",
             "FIELD",
             request.columns,
             "the values of GROUP/NAME.FIELD at the depths found; may be repeated");
    app.add_flag("--show", request.show, "show the filter itself");
    addText(app, "--new", "OUT", request.newFile, "write the filter to a file, XML");
    addJson(app, request.form);
}

void checkFilter(const filterRequest& request) {
    if (request.filter.empty() == request.query.empty())
        refuseUsage("either a saved FILTER is needed or conditions, --query");
    if (request.file.empty() && request.newFile.empty() && !request.show)
        refuseUsage("a container is needed, or --new and a file to write");
}

} // namespace

void addWellChoice(CLI::App& app, wellChoice& choice) {
    addText(app, "--selection", "S", choice.selection, "a saved selection of wells, XML");
    addText(app, "--query", "Q", choice.query, "queries that choose the wells");
    addHandLists(app, choice);
}

void addSelectCommands(CLI::App& app, command& chosen) {
    addCommand(app, chosen, helpTexts::select, commands::select, selectOptions, checkSelect);
    addCommand(app, chosen, helpTexts::filter, commands::filter, filterOptions, checkFilter);
}
