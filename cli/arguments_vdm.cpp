#include "cli/arguments_vdm.h"

#include "cli/arguments_tables.h"
#include "cli/column_list.h"
#include "cli/command_options.h"
#include "cli/commands_vdm.h"
#include "cli/help_vdm.h"
#include "cli/text.h"

#include <algorithm>

namespace {

using namespace commandOptions;

constexpr struct {
    std::wstring_view word;
    NORLEX_columnRef NORLEX_VDMtableOptions::*column;
} columnWords[] = {
    {L"depth", &NORLEX_VDMtableOptions::depth},
    {L"time", &NORLEX_VDMtableOptions::time},
    {L"top", &NORLEX_VDMtableOptions::top},
    {L"bottom", &NORLEX_VDMtableOptions::bot},
    {L"velocity", &NORLEX_VDMtableOptions::velocity},
};

void takeColumns(const std::string& list, NORLEX_VDMtableOptions& options) {
    std::vector<columnList::entry> entries;
    if (!columnList::parse(text::wide(unguarded(list)), entries))
        throw CLI::ValidationError("--columns",
                                   "\"" + unguarded(list) + "\" is not of the form NAME=COLUMN,…");
    for (const auto& entry : entries) {
        const auto* const known =
            std::find_if(std::begin(columnWords), std::end(columnWords), [&](const auto& one) {
                return one.word == entry.name;
            });
        if (known == std::end(columnWords))
            throw CLI::ValidationError("--columns",
                                       "\"" + text::bytes(entry.name)
                                           + "\" is not one of depth, time, top, bottom, velocity");
        options.*(known->column) = entry.column;
    }
}

void takeIntervals(const std::string& word, NORLEX_VDMtableOptions& options) {
    if (word != "time" && word != "depth")
        throw CLI::ValidationError("--intervals",
                                   "\"" + unguarded(word) + "\" is not one of time|depth");
    options.intervals = word == "time" ? NORLEX_vdmTypeTime : NORLEX_vdmTypeDepth;
}

void addTimes(CLI::App& app, NORLEX_VDMcreateOptions& values) {
    app.add_flag("--one-way", values.oneWay, "times are one-way");
    app.add_flag("--seconds", values.seconds, "times are in seconds");
}

void wellOptions(CLI::App& app, wellRequest& request) {
    addFile(app, request.file);
    addWell(app, request.well);
}

void showOptions(CLI::App& app, wellRequest& request) {
    wellOptions(app, request);
    addJson(app, request.form);
}

void convertOptions(CLI::App& app, vdmConvertRequest& request) {
    addFile(app, request.file);
    addWell(app, request.well);
    addNumbers(app, "--depth", request.depths, "absolute depths, one or more");
    addNumbers(app, "--time", request.times, "times, one or more; negative below the head");
    addJson(app, request.form);
}

void checkConvert(const vdmConvertRequest& request) {
    if (request.depths.empty() == request.times.empty())
        refuseUsage("what is converted is given either as --depth D… or as --time T…");
}

void importOptions(CLI::App& app, vdmImportRequest& request) {
    auto& options = request.options;
    addFile(app, request.file);
    addWell(app, request.well);
    addText(app, "--table", "T", request.table, "the table to read")->required();
    app.add_option_function<std::string>(
           "--columns",
           [&options](const std::string& list) { takeColumns(list, options); },
           "columns of depth, time; or with --intervals of top, bottom, velocity")
        ->type_name("NAME=COLUMN,…")
        ->required();
    app.add_option_function<std::string>(
           "--intervals",
           [&options](const std::string& word) { takeIntervals(word, options); },
           "velocities of intervals in time or in depth")
        ->type_name("time|depth");
    addTimes(app, options.values);
    app.add_flag_callback(
        "--measured",
        [&options] { options.values.depths = NORLEX_dataDirectionMeasured; },
        "depths are measured ones");
    addTableFormat(app, options.format, options.hasHeader, options.keepGoodRows, request.form);
}

void checkImport(const vdmImportRequest& request) {
    const auto& options = request.options;
    const bool areIntervals = options.intervals.has_value();
    if (areIntervals && !(options.top.isSet() && options.bot.isSet() && options.velocity.isSet()))
        refuseUsage("--columns needs top, bottom and velocity of intervals");
    if (!areIntervals && !(options.depth.isSet() && options.time.isSet()))
        refuseUsage("--columns needs depth and time; --intervals reads velocities");
}

void buildOptions(CLI::App& app, vdmBuildRequest& request) {
    addFile(app, request.file);
    addWell(app, request.well);
    auto* const sonic =
        addText(app, "--sonic", "P", request.sonic, "of this log of interval transit times");
    auto* const markers = addText(app, "--markers", "P", request.markers, "of these markers");
    auto* const field = addText(app, "--field", "F", request.field, "their field with times");
    addText(app, "--interval-velocity", "P", request.intervalVelocity, "show interval velocities");
    addText(app, "--average-velocity", "P", request.averageVelocity, "show average velocities");
    addNumber(app, "--tie-depth", request.tieDepth, "absolute depth where the log begins")
        ->needs(sonic);
    addNumber(app, "--tie-time", request.tieTime, "the time there, growing downwards")
        ->needs(sonic);
    addText(app, "--units", "U", request.options.units, "us/m or us/ft; else what the log says")
        ->needs(sonic);
    addNumber(app, "--max-gap", request.maxGap, "metres without values to bridge; 10 without it")
        ->needs(sonic);
    addNumber(app, "--step", request.step, "metres between two points; all samples without it")
        ->needs(sonic);
    addTimes(app, request.options);
    markers->needs(field);
    field->needs(markers);
}

void checkBuild(const vdmBuildRequest& request) {
    const auto named = {
        &request.sonic, &request.markers, &request.intervalVelocity, &request.averageVelocity};
    if (std::count_if(named.begin(), named.end(), [](const auto* name) { return !name->empty(); })
        != 1)
        refuseUsage("one of --sonic, --markers, --interval-velocity, --average-velocity is given");
    if (!request.sonic.empty() && (!request.tieDepth || !request.tieTime))
        refuseUsage("--sonic needs its tie point: --tie-depth and --tie-time");
}

void copyOptions(CLI::App& app, vdmCopyRequest& request) {
    addFile(app, request.file);
    addText(app, "FROM_WELL", "", request.from, "the well that has the model")->required();
    addText(app, "TO_WELL", "", request.to, "the well that is to have it")->required();
    app.add_flag("--replace", request.replace, "do away with a model that it has");
}

} // namespace

void addVdmCommands(CLI::App& app, command& chosen) {
    CLI::App& group = addGroup(app, helpTexts::vdm);
    addCommand(group, chosen, helpTexts::vdmShow, commands::vdmShow, showOptions);
    addCommand(
        group, chosen, helpTexts::vdmConvert, commands::vdmConvert, convertOptions, checkConvert);
    addCommand(
        group, chosen, helpTexts::vdmImport, commands::vdmImport, importOptions, checkImport);
    addCommand(group, chosen, helpTexts::vdmBuild, commands::vdmBuild, buildOptions, checkBuild);
    addCommand(group, chosen, helpTexts::vdmCopy, commands::vdmCopy, copyOptions);
    addCommand(group, chosen, helpTexts::vdmRemove, commands::vdmRemove, wellOptions);
}
