#include "cli/arguments_bulk.h"

#include "cli/arguments_select.h"
#include "cli/command_options.h"
#include "cli/commands_bulk.h"
#include "cli/help_bulk.h"

namespace {

using namespace commandOptions;

bool isFound(const wellChoice& wells) {
    return !wells.selection.empty() || !wells.query.empty();
}

// Without queries all wells are meant: who adds one to them, or inverts them, means something else.
void checkChoice(const wellChoice& wells) {
    if (!isFound(wells) && !wells.add.empty())
        refuseUsage("--add goes with --selection or --query; without these all wells are taken");
    if (!isFound(wells) && wells.invert)
        refuseUsage("--invert goes with --selection or --query");
}

void exportOptions(CLI::App& app, exportWellsRequest& request) {
    addFile(app, request.file);
    addText(app, "FOLDER", "", request.folder, "the folder for the files")->required();
    addWellChoice(app, request.wells);
    app.add_flag("--exact", request.exact, "every sample at its own depth");
    addJson(app, request.form);
}

void removeOptions(CLI::App& app, removePropRequest& request) {
    addFile(app, request.file);
    addText(app, "PROP", "", request.property, "the property, GROUP/NAME or NAME")->required();
    addText(app, "--well", "W", request.well, "of this well alone");
    app.add_flag("--all", request.all, "of all wells");
    addWellChoice(app, request.wells);
}

void checkRemove(const removePropRequest& request) {
    const int ways =
        (request.well.empty() ? 0 : 1) + (request.all ? 1 : 0) + (isFound(request.wells) ? 1 : 0);
    if (ways != 1)
        refuseUsage("the wells are chosen by one of --well, --all, and --selection or --query");
    if (!request.well.empty() && (!request.wells.add.empty() || !request.wells.remove.empty()))
        refuseUsage("--add and --remove do not go with --well");
    checkChoice(request.wells);
}

void propsOptions(CLI::App& app, propsRequest& request) {
    addFile(app, request.file);
    addText(app, "--well", "W", request.well, "of this well, with their records");
    addWellChoice(app, request.wells);
    addJson(app, request.form);
}

void checkProps(const propsRequest& request) {
    if (!request.well.empty() && (request.wells.isGiven() || request.wells.invert))
        refuseUsage("--well is one well; the other options choose several");
    checkChoice(request.wells);
}

} // namespace

void addBulkExport(CLI::App& exportGroup, command& chosen) {
    addCommand(
        exportGroup,
        chosen,
        helpTexts::exportWells,
        commands::exportWells,
        exportOptions,
        +[](const exportWellsRequest& request) { checkChoice(request.wells); });
}

void addPropertyCommands(CLI::App& app, command& chosen) {
    addCommand(app, chosen, helpTexts::props, commands::propsOfWells, propsOptions, checkProps);
    addCommand(
        app, chosen, helpTexts::removeProp, commands::removeProp, removeOptions, checkRemove);
}
