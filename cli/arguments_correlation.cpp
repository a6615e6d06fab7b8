#include "cli/arguments_correlation.h"

#include "cli/arguments_tables.h"
#include "cli/command_options.h"
#include "cli/commands_correlation.h"
#include "cli/help_correlation.h"

#include <map>

namespace {

using namespace commandOptions;

template <typename Request>
void correlationOptions(CLI::App& app, Request& request) {
    addFile(app, request.file);
    addText(app, "--name", "N", request.name, "the correlation, GROUP/NAME or NAME")->required();
}

template <typename Request>
void borderOptions(CLI::App& app, Request& request) {
    correlationOptions(app, request);
    addText(app, "BORDER", "", request.border, "the name of the border")->required();
}

void pickOptions(CLI::App& app, pickRequest& request) {
    borderOptions(app, request);
    addWell(app, request.well);
}

void depthsOfPick(CLI::App& app, pickRequest& request) {
    pickOptions(app, request);
    addNumber(app, "--md", request.measured, "measured depth");
    addNumber(app, "--abs", request.absolute, "absolute depth; each is computed from the other");
}

CLI::Option* addType(CLI::App& app, pickRequest& request) {
    return app.add_option("--type", request.type, "type of the border, 0 to 255; 0 without it")
        ->type_name("T")
        ->check(CLI::Range(0, 255));
}

void checkDepths(const pickRequest& request) {
    if (!request.measured && !request.absolute)
        refuseUsage("a depth is needed: --md D, --abs D, or both");
}

void addPolicy(CLI::App& app, correlation::onExistingPick& target) {
    using enum correlation::onExistingPick;
    static const std::map<std::string, correlation::onExistingPick> words = {
        {"fail", fail}, {"skip", skip}, {"move", move}};
    app.add_option_function<std::string>(
           "--on-existing",
           [&target](const std::string& word) {
               const auto found = words.find(word);
               if (found == words.end())
                   throw CLI::ValidationError("--on-existing",
                                              "\"" + word + "\" is not one of fail, skip, move");
               target = found->second;
           },
           "a border that is picked on the well already; fail without it")
        ->type_name("fail|skip|move");
}

void importOptions(CLI::App& app, correlationImportRequest& request) {
    auto& options = request.options;
    correlationOptions(app, request);
    addText(app, "TABLE", "", request.table, "the table to read")->required();
    auto* const wide =
        app.add_flag("--wide", options.isWide, "a row a well, a column a border, with a header");
    addColumn(app, "--well", options.well, "the column of the wells; 1 without it");
    addColumn(app, "--border", options.border, "the column of the borders; 2 without it")
        ->excludes(wide);
    addColumn(app, "--depth", options.depth, "the column of the depths; 3 without it")
        ->excludes(wide);
    addColumn(app, "--group", options.group, "the column of the borders' groups")->excludes(wide);
    addColumn(app, "--type", options.type, "the column of the picks' types")->excludes(wide);
    addText(app,
            "--well-key",
            "ATTRIBUTE",
            options.wellAttribute,
            "the wells' column holds values of this attribute");
    addText(app,
            "--lookup",
            "FILE",
            options.borderLookup,
            "the borders' cells are codes of this table of codes and names")
        ->excludes(wide);
    app.add_flag("--absolute", options.areAbsolute, "the depths are absolute");
    app.add_flag("--skip-without-depth",
                 options.rows.skipWithoutDepth,
                 "pass over rows whose depth cell is empty")
        ->excludes(wide);
    addPolicy(app, options.onExisting);
    addTableFormat(
        app, options.format, options.rows.hasHeader, options.rows.keepGoodRows, request.form);
}

void exportOptions(CLI::App& app, correlationExportRequest& request) {
    correlationOptions(app, request);
    addText(app, "--csv", "OUT", request.out, "the file to write; - is standard output")
        ->required();
    app.add_flag("--absolute", request.options.areAbsolute, "absolute depths");
    addEncoding(app, request.options.encoding);
}

void checkExport(const correlationExportRequest& request) {
    if (request.options.encoding == ts::strconv::detect)
        refuseUsage("--encoding: there is nothing to detect it from; utf-8, windows-1251, …");
}

void addBorderCommands(CLI::App& app, command& chosen) {
    using request = borderRequest;
    CLI::App& group = addGroup(app, helpTexts::correlationBorder);
    addCommand(group,
               chosen,
               helpTexts::borderList,
               commands::listBorders,
               [](CLI::App& c, correlationRequest& r) {
                   correlationOptions(c, r);
                   addJson(c, r.form);
               });
    addCommand(
        group, chosen, helpTexts::borderAdd, commands::addBorder, [](CLI::App& c, request& r) {
            borderOptions(c, r);
            addText(c, "--group", "G", r.group, "a group of borders");
        });
    addCommand(group,
               chosen,
               helpTexts::borderRename,
               commands::renameBorder,
               [](CLI::App& c, request& r) {
                   borderOptions(c, r);
                   addText(c, "--to", "B2", r.to, "the new name")->required();
               });
    addCommand(
        group, chosen, helpTexts::borderRemove, commands::removeBorder, borderOptions<request>);
    addCommand(
        group, chosen, helpTexts::borderGroup, commands::groupBorder, [](CLI::App& c, request& r) {
            borderOptions(c, r);
            addText(c, "GROUP", "", r.group, "the group; \"\" is none")->required();
        });
}

void addPickCommands(CLI::App& app, command& chosen) {
    using request = pickRequest;
    CLI::App& group = addGroup(app, helpTexts::correlationPick);
    addCommand(
        group, chosen, helpTexts::pickList, commands::listPicks, [](CLI::App& c, request& r) {
            correlationOptions(c, r);
            addWell(c, r.well);
            c.add_flag("--absolute", r.byAbsolute, "in the order of absolute depths");
            addJson(c, r.form);
        });
    addCommand(
        group,
        chosen,
        helpTexts::pickAdd,
        commands::addPick,
        [](CLI::App& c, request& r) {
            depthsOfPick(c, r);
            addType(c, r);
        },
        checkDepths);
    addCommand(group, chosen, helpTexts::pickMove, commands::movePick, depthsOfPick, checkDepths);
    addCommand(group, chosen, helpTexts::pickRemove, commands::removePick, pickOptions);
    addCommand(
        group, chosen, helpTexts::pickType, commands::setPickType, [](CLI::App& c, request& r) {
            pickOptions(c, r);
            addType(c, r)->required();
        });
}

} // namespace

void addCorrelationCommands(CLI::App& app, command& chosen) {
    using request = correlationRequest;
    CLI::App& group = addGroup(app, helpTexts::correlationCommand);
    addCommand(group,
               chosen,
               helpTexts::correlationList,
               commands::listCorrelations,
               [](CLI::App& c, fileRequest& r) {
                   addFile(c, r.file);
                   addJson(c, r.form);
               });
    addCommand(group,
               chosen,
               helpTexts::correlationCreate,
               commands::createCorrelation,
               correlationOptions<request>);
    addCommand(group,
               chosen,
               helpTexts::correlationRename,
               commands::renameCorrelation,
               [](CLI::App& c, request& r) {
                   correlationOptions(c, r);
                   addText(c, "--to", "N2", r.to, "the new name")->required();
               });
    addCommand(group,
               chosen,
               helpTexts::correlationRemove,
               commands::removeCorrelation,
               correlationOptions<request>);
    addBorderCommands(group, chosen);
    addPickCommands(group, chosen);
    addCommand(
        group, chosen, helpTexts::correlationImport, commands::importCorrelation, importOptions);
    addCommand(group,
               chosen,
               helpTexts::correlationExport,
               commands::exportCorrelation,
               exportOptions,
               checkExport);
}
