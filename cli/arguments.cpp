#include "cli/arguments.h"

#include "cli/add_command.h"
#include "cli/arguments_bulk.h"
#include "cli/arguments_construction.h"
#include "cli/arguments_correlation.h"
#include "cli/arguments_curves.h"
#include "cli/arguments_derive.h"
#include "cli/arguments_dict.h"
#include "cli/arguments_select.h"
#include "cli/arguments_strat.h"
#include "cli/arguments_survey.h"
#include "cli/arguments_tables.h"
#include "cli/arguments_template.h"
#include "cli/arguments_vdm.h"
#include "cli/command_options.h"
#include "cli/commands.h"
#include "cli/help_format.h"
#include "cli/help_texts.h"
#include "cli/text.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>
#include <utility>

namespace {

using namespace commandOptions;

constexpr int wrongUsage = 2;

// Lists the commands added since the last call under a title of their own.
void titleCommands(CLI::App& app, const std::string& title) {
    for (auto* const c : app.get_subcommands([](CLI::App*) { return true; }))
        if (c->get_group() == "Subcommands")
            c->group(title);
}

void fileOptions(CLI::App& app, fileRequest& request) {
    addFile(app, request.file);
    addJson(app, request.form);
}

void addContainerCommands(CLI::App& app, command& chosen) {
    addCommand(app, chosen, helpTexts::create, commands::create, [](CLI::App& c, createRequest& r) {
        addFile(c, r.file);
        c.add_flag("--force", r.force, "replace an existing file");
    });
    addCommand(app, chosen, helpTexts::info, commands::info, fileOptions);
}

void addCareCommands(CLI::App& app, command& chosen) {
    addCommand(
        app, chosen, helpTexts::upgrade, commands::upgrade, [](CLI::App& c, upgradeRequest& r) {
            addFile(c, r.file);
            c.add_flag("--yes", r.yes, "do not ask");
            addJson(c, r.form);
        });
    addCommand(app, chosen, helpTexts::check, commands::check, [](CLI::App& c, checkRequest& r) {
        addFile(c, r.file);
        c.add_flag("--repair", r.repair, "remove what nothing leads to, after a backup");
        addJson(c, r.form);
    });
    addCommand(
        app, chosen, helpTexts::backup, commands::backup, [](CLI::App& c, archiveRequest& r) {
            addFile(c, r.file);
            addText(c, "ARCHIVE", "", r.archive, "the zip file to write")->required();
        });
    addCommand(
        app, chosen, helpTexts::restore, commands::restore, [](CLI::App& c, archiveRequest& r) {
            addText(c, "ARCHIVE", "", r.archive, "the zip file to read")->required();
            addFile(c, r.file);
            c.add_flag("--force", r.force, "replace an existing container");
        });
    addCommand(
        app, chosen, helpTexts::optimize, commands::optimize, [](CLI::App& c, optimizeRequest& r) {
            addFile(c, r.file);
            auto* const add = c.add_flag("--indexes", r.indexes, "add further indexes");
            c.add_flag("--no-indexes", r.noIndexes, "remove them")->excludes(add);
        });
    addCommand(app, chosen, helpTexts::copy, commands::copy, [](CLI::App& c, copyRequest& r) {
        addText(c, "FROM", "", r.from, "the container, or a server description")->required();
        addText(c, "TO", "", r.to, "the new container, or a server description")->required();
    });
}

void lasOptions(CLI::App& app, lasRequest& request) {
    addText(app, "FILE", "", request.file, "the LAS file")->required();
    addEncoding(app, request.encoding);
    app.add_flag("--header", request.headerOnly, "read the header alone");
    addJson(app, request.form);
}

void importLasOptions(CLI::App& app, importLasRequest& request) {
    auto& options = request.options;
    addFile(app, request.file);
    addTexts(app, "PATH", "", request.paths, "LAS files, and folders to look for *.las in")
        ->required();
    addText(app, "--object", "O", options.workObject, "work object of the wells; empty without it");
    addText(app, "--field", "F", options.field, "their field; without it, what the files say");
    addWellChoice(app, options);
    addText(app, "--group", "G", options.group, "group of the logs; LAS without it");
    addEncoding(app, options.encoding);
    addOnExisting(app, options.onExisting);
    app.add_flag("--dry-run", options.dryRun, "read and check everything, write nothing");
    addJson(app, request.form);
}

void exportLasOptions(CLI::App& app, exportLasRequest& request) {
    addFile(app, request.file);
    addWell(app, request.well);
    addTexts(app, "--prop", "P", request.properties, "a log, GROUP/NAME or NAME; may be repeated")
        ->allow_extra_args(false);
    app.add_flag("--exact", request.exact, "every sample at its own depth");
    addText(app, "-o,--output", "OUT", request.out, "the file to write")->required();
}

void addExchangeCommands(CLI::App& app, command& chosen) {
    addCommand(app, chosen, helpTexts::las, commands::las, lasOptions);
    CLI::App& import = addGroup(app, helpTexts::importCommand);
    addCommand(import, chosen, helpTexts::importLas, commands::importLas, importLasOptions);
    addSurveyImport(import, chosen);
    CLI::App& group = addGroup(app, helpTexts::exportCommand);
    addCommand(group, chosen, helpTexts::exportLas, commands::exportLas, exportLasOptions);
    addBulkExport(group, chosen);
    addTableCommands(import, group, chosen);
}

void wellOptions(CLI::App& app, wellSetRequest& request) {
    addFile(app, request.file);
    addWell(app, request.well);
    addNumber(app, "--altitude", request.altitude, "elevation of the well head");
    auto* const x = addNumber(app, "--x", request.x, "east coordinate of the well head");
    auto* const y = addNumber(app, "--y", request.y, "north coordinate of the well head");
    x->needs(y);
    y->needs(x);
    addNumber(app, "--bottom", request.bottom, "measured depth of the bottom");
}

void checkWellSet(const wellSetRequest& request) {
    if (!request.altitude && !request.x && !request.bottom)
        refuseUsage("nothing to change: give --altitude, --x and --y, or --bottom");
}

void addWellCommands(CLI::App& app, command& chosen) {
    addCommand(app, chosen, helpTexts::wells, commands::wells, fileOptions);
    CLI::App& group = addGroup(app, helpTexts::well);
    addCommand(group, chosen, helpTexts::wellAdd, commands::addWell, wellOptions);
    addCommand(group, chosen, helpTexts::wellSet, commands::setWell, wellOptions, checkWellSet);
    addCommand(group,
               chosen,
               helpTexts::wellRename,
               commands::renameWell,
               [](CLI::App& c, renameRequest& r) {
                   addFile(c, r.file);
                   addWell(c, r.well);
                   addText(c, "--to", "W2", r.to, "the new name")->required();
               });
    addCommand(group,
               chosen,
               helpTexts::wellRemove,
               commands::removeWell,
               [](CLI::App& c, wellRequest& r) {
                   addFile(c, r.file);
                   addWell(c, r.well);
               });
}

void dataOptions(CLI::App& app, dataRequest& request) {
    addFile(app, request.file);
    addWell(app, request.well);
    addText(app, "--prop", "P", request.property, "GROUP/NAME, or NAME where that is unique")
        ->required();
    addNumber(app, "--from", request.from, "shallowest measured depth");
    addNumber(app, "--to", request.to, "deepest measured depth");
    app.add_flag("--codes", request.codes, "codes, not what dictionaries have for them");
    addJson(app, request.form);
    addCsv(app, request.form);
}

void checkData(const dataRequest& request) {
    if (request.from && request.to && *request.from > *request.to)
        refuseUsage("--from is deeper than --to");
}

void depthOptions(CLI::App& app, depthRequest& request) {
    addFile(app, request.file);
    addWell(app, request.well);
    addNumbers(app, "--md", request.measured, "measured depths, one or more");
    addNumbers(app, "--abs", request.absolute, "absolute depths, one or more");
    addJson(app, request.form);
}

void checkDepth(const depthRequest& request) {
    if (request.measured.empty() == request.absolute.empty())
        refuseUsage("depths are given either as --md D… or as --abs D…");
}

void addDataCommands(CLI::App& app, command& chosen) {
    addPropertyCommands(app, chosen);
    addCommand(app, chosen, helpTexts::data, commands::data, dataOptions, checkData);
    addSurveyCommand(app, chosen);
    addCommand(app, chosen, helpTexts::depth, commands::depth, depthOptions, checkDepth);
}

// "help COMMAND" is the command's "--help"; of a command that is not there the parser says so.
void askForHelp(const CLI::App& app, std::vector<std::string>& arguments) {
    if (arguments.empty() || arguments.back() != "help")
        return;
    arguments.pop_back();
    const CLI::App* command = &app;
    for (auto word = arguments.rbegin(); word != arguments.rend(); ++word) {
        const auto below =
            command->get_subcommands([&](const CLI::App* one) { return one->get_name() == *word; });
        if (below.empty())
            return;
        command = below.front();
    }
    arguments.insert(arguments.begin(), "--help");
}

// Why the parser stopped. Where a command is missing or unknown, its own words do not say which.
std::string messageOf(const CLI::App& app, const CLI::ParseError& error) {
    const std::string message = unguarded(error.what());
    if (message != "A subcommand is required")
        return message;
    if (app.remaining_size(true) == 0)
        return "no command was given";
    const std::string word = unguarded(app.remaining(true).front());
    return word.starts_with('-') ? "a command comes before " + word
                                 : "there is no command \"" + word + "\"";
}

// One line on standard error for wrong usage; help and version as they are.
int answer(const CLI::App& app, const CLI::ParseError& error) {
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success))
        return app.exit(error);
    const std::string line = text::shown(text::wide(messageOf(app, error)));
    static_cast<void>(std::fprintf(stderr, "welldb: %s (--help tells more)\n", line.c_str()));
    return wrongUsage;
}

} // namespace

std::function<int()> parseArguments(int argc, const char* const* argv, int& exitCode) {
    command chosen;
    CLI::App app(helpTexts::program, "welldb");
    app.formatter(std::make_shared<helpFormat>());
    app.footer(helpTexts::programFooter);
    app.set_version_flag("--version", "welldb " WELLDB_VERSION);
    app.require_subcommand(1);
    addContainerCommands(app, chosen);
    addCareCommands(app, chosen);
    titleCommands(app, "Containers");
    addExchangeCommands(app, chosen);
    titleCommands(app, "Files in and out");
    addWellCommands(app, chosen);
    addDataCommands(app, chosen);
    addDeriveCommands(app, chosen);
    addVdmCommands(app, chosen);
    addConstructionCommands(app, chosen);
    addTemplateCommands(app, chosen);
    addDictCommands(app, chosen);
    addSelectCommands(app, chosen);
    addCurveCommands(app, chosen);
    addCorrelationCommands(app, chosen);
    addStratCommands(app, chosen);
    titleCommands(app, "Wells and their data");

    std::vector<std::string> arguments; // the last one first, as the parser takes them
    for (int i = argc - 1; i > 0; --i)
        arguments.push_back(guarded(argv[i]));
    askForHelp(app, arguments);
    try {
        app.parse(arguments);
    } catch (const CLI::ParseError& error) {
        exitCode = answer(app, error);
        return {};
    }
    return chosen;
}
