#include "cli/arguments_derive.h"

#include "cli/command_options.h"
#include "cli/commands_derive.h"
#include "cli/help_derive.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

using namespace commandOptions;

// An option that takes one of a few words.
template <typename Target, typename Choice>
CLI::Option* addChoice(CLI::App& app,
                       const std::string& name,
                       Target& target,
                       std::vector<std::pair<std::string, Choice>> words,
                       const std::string& help) {
    std::string form;
    for (const auto& word : words)
        form += (form.empty() ? "" : "|") + word.first;
    return app
        .add_option_function<std::string>(
            name,
            [&target, name, form, words](const std::string& given) {
                const auto found = std::find_if(
                    words.begin(), words.end(), [&](const auto& w) { return w.first == given; });
                if (found == words.end())
                    throw CLI::ValidationError(
                        name, "\"" + unguarded(given) + "\" is not one of " + form);
                target = found->second;
            },
            help)
        ->type_name(form);
}

void copyOptions(CLI::App& app, copyPropRequest& request) {
    addFile(app, request.file);
    addText(app, "FROM_WELL", "", request.from, "the well that has it")->required();
    addText(app, "PROP", "", request.property, "the property, GROUP/NAME or NAME")->required();
    addText(app, "TO_WELL", "", request.to, "the well that is to have it")->required();
    addText(app, "--to", "P2", request.newName, "its name there, GROUP/NAME or NAME");
    addChoice<std::optional<NORLEX_db_prop_merge>, NORLEX_db_prop_merge>(
        app,
        "--merge",
        request.merge,
        {{"replace", NORLEX_db_prop_merge_replace},
         {"merge", NORLEX_db_prop_merge_merge},
         {"skip", NORLEX_db_prop_merge_skip}},
        "a property that is there: replace it, add to it, leave it");
    addChoice<NORLEX_dataDirection, NORLEX_dataDirection>(
        app,
        "--keep",
        request.keep,
        {{"measured", NORLEX_dataDirectionMeasured}, {"absolute", NORLEX_dataDirectionAbsolute}},
        "the depths that stay the same; measured without it");
}

void addNeeded(CLI::App& app,
               const std::string& name,
               std::optional<double>& target,
               const std::string& help) {
    addNumber(app, name, target, help)->required();
}

void addResult(CLI::App& app, deriveRequest& request) {
    addText(app, "--to", "P2", request.result, "the new property, GROUP/NAME or NAME")->required();
}

// The container, the well and what is made from; `help` says what that is.
void addSource(CLI::App& app, deriveRequest& request, const std::string& help) {
    addFile(app, request.file);
    addWell(app, request.well);
    auto* const source = addTexts(app, "--prop", "P", request.sources, help);
    source->required()->allow_extra_args(false);
}

void addField(CLI::App& app, deriveRequest& request) {
    addText(app, "--field", "F", request.field, "its numeric field; none for a log");
}

// Everything that makes one property of one other.
template <typename Further>
auto options(const char* help, Further further) {
    return [help, further](CLI::App& app, deriveRequest& request) {
        addSource(app, request, help);
        addResult(app, request);
        further(app, request);
    };
}

void checkOne(const deriveRequest& request) {
    if (request.sources.size() != 1)
        refuseUsage("--prop is given once");
}

void checkRuns(const deriveRequest& request) {
    if (request.sources.size() < 2)
        refuseUsage("--prop is given twice or more: the runs");
}

void checkRange(const deriveRequest& request) {
    checkOne(request);
    if (!request.min && !request.max)
        refuseUsage("a range of values is expected: --min, --max or both");
}

void attributeOptions(CLI::App& app, deriveRequest& request) {
    addSource(app, request, "the log");
    addText(app, "--column", "P", request.column, "the property of intervals")->required();
    addText(app, "--field", "F", request.field, "the field of it that is written")->required();
    addChoice<NORLEX_statistic, NORLEX_statistic>(app,
                                                  "--statistic",
                                                  request.statistic,
                                                  {{"mean", NORLEX_statisticMean},
                                                   {"median", NORLEX_statisticMedian},
                                                   {"min", NORLEX_statisticMin},
                                                   {"max", NORLEX_statisticMax},
                                                   {"sum", NORLEX_statisticSum},
                                                   {"count", NORLEX_statisticCount},
                                                   {"deviation", NORLEX_statisticDeviation}},
                                                  "mean without it");
}

void addLogCommands(CLI::App& group, command& chosen) {
    const auto add = [&](const helpText& help, auto run, auto given, auto check) {
        addCommand<deriveRequest>(group, chosen, help, run, given, check);
    };
    add(helpTexts::deriveLog,
        commands::deriveLog,
        options("points or intervals",
                [](CLI::App& app, deriveRequest& r) {
                    addText(app, "--field", "F", r.field, "its numeric field")->required();
                    addNeeded(app, "--step", r.step, "metres between two samples");
                }),
        checkOne);
    add(helpTexts::deriveFilter,
        commands::deriveFilter,
        options("the log",
                [](CLI::App& app, deriveRequest& r) {
                    addChoice<NORLEX_windowKind, NORLEX_windowKind>(
                        app,
                        "--kind",
                        r.windowKind,
                        {{"mean", NORLEX_windowMean}, {"median", NORLEX_windowMedian}},
                        "mean without it");
                    addNeeded(app, "--window", r.window, "its length in metres");
                }),
        checkOne);
    add(helpTexts::deriveSimplified,
        commands::deriveSimplified,
        options("the log",
                [](CLI::App& app, deriveRequest& r) {
                    addNeeded(app, "--tolerance", r.tolerance, "in the unit of the values");
                }),
        checkOne);
    add(helpTexts::deriveJoined,
        commands::deriveJoined,
        options("a run; given twice or more",
                [](CLI::App& app, deriveRequest& r) {
                    addChoice<NORLEX_lasOverlap, NORLEX_lasOverlap>(
                        app,
                        "--overlap",
                        r.overlap,
                        {{"upper", NORLEX_lasOverlapUpper},
                         {"lower", NORLEX_lasOverlapLower},
                         {"mean", NORLEX_lasOverlapMean}},
                        "whose samples stand where two cover the same depths; upper without it");
                }),
        checkRuns);
    add(helpTexts::deriveSerial,
        commands::deriveSerial,
        options("the log", [](CLI::App&, deriveRequest&) {}),
        checkOne);
}

void addRecordCommands(CLI::App& group, command& chosen) {
    const auto add = [&](const helpText& help, auto run, auto given, auto check) {
        addCommand<deriveRequest>(group, chosen, help, run, given, check);
    };
    add(helpTexts::deriveMarkers,
        commands::deriveMarkers,
        options("the log",
                [](CLI::App& app, deriveRequest& r) {
                    addNeeded(app, "--cutoff", r.cutoff, "the value that is crossed");
                    addChoice<NORLEX_crossing, NORLEX_crossing>(
                        app,
                        "--crossing",
                        r.crossing,
                        {{"both", NORLEX_crossingBoth},
                         {"rising", NORLEX_crossingRising},
                         {"falling", NORLEX_crossingFalling}},
                        "which way, downwards; both without it");
                }),
        checkOne);
    add(helpTexts::deriveAttribute, commands::deriveAttribute, attributeOptions, checkOne);
    add(helpTexts::deriveIntervals,
        commands::deriveIntervals,
        options("a log, points or intervals",
                [](CLI::App& app, deriveRequest& r) {
                    addField(app, r);
                    addNumber(app, "--min", r.min, "smallest value");
                    addNumber(app, "--max", r.max, "largest value");
                    addNumber(app, "--min-thickness", r.minThickness, "thinner ones are left out");
                    addNumber(app, "--max-gap", r.maxGap, "ones no further apart become one");
                }),
        checkRange);
    add(helpTexts::deriveOre,
        commands::deriveOre,
        options("a log or intervals",
                [](CLI::App& app, deriveRequest& r) {
                    addField(app, r);
                    addNeeded(app, "--cutoff", r.cutoff, "values at or above it are ore");
                    addNumber(app, "--min-thickness", r.minThickness, "thinner ore is left out");
                    addNumber(app, "--max-waste", r.maxGap, "thickest waste taken in between two");
                }),
        checkOne);
    add(helpTexts::deriveColumn,
        commands::deriveColumn,
        options("markers",
                [](CLI::App& app, deriveRequest& r) {
                    addNumber(app, "--bottom", r.bottom, "of the last one; else the well's");
                }),
        checkOne);
    add(helpTexts::deriveBetweenPicks,
        commands::deriveBetweenPicks,
        options("a border property", [](CLI::App&, deriveRequest&) {}),
        checkOne);
}

} // namespace

void addDeriveCommands(CLI::App& app, command& chosen) {
    addCommand(app, chosen, helpTexts::copyProp, commands::copyProp, copyOptions);
    CLI::App& group = addGroup(app, helpTexts::derive);
    addLogCommands(group, chosen);
    addRecordCommands(group, chosen);
}
