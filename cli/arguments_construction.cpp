#include "cli/arguments_construction.h"

#include "cli/arguments_tables.h"
#include "cli/column_list.h"
#include "cli/command_options.h"
#include "cli/commands_construction.h"
#include "cli/help_construction.h"
#include "cli/text.h"

#include <algorithm>
#include <iterator>

namespace {

using namespace commandOptions;

template <typename Request>
void addWellOf(CLI::App& app, Request& request) {
    addFile(app, request.file);
    addWell(app, request.well);
}

void addDouble(CLI::App& app, const std::string& option, double& target, const std::string& help) {
    app.add_option(option, target, help)->type_name("N");
}

void addOptionalText(CLI::App& app,
                     const std::string& option,
                     std::optional<std::wstring>& target,
                     const std::string& help) {
    app.add_option_function<std::string>(
           option,
           [&target](const std::string& value) { target = text::wide(unguarded(value)); },
           help)
        ->type_name("TEXT");
}

void showOptions(CLI::App& app, wellRequest& request) {
    addWellOf(app, request);
    addJson(app, request.form);
}

void sectionOptions(CLI::App& app, addSectionRequest& request) {
    auto& e = request.element;
    addWellOf(app, request);
    addDouble(app, "--from", e.from_dig, "where the section begins");
    addDouble(app, "--to", e.to_dig, "where it ends");
    addDouble(app, "--diameter", e.diametr_dig, "of the bit");
    addDouble(app, "--pipe-from", e.from_pipe, "where its casing begins");
    addDouble(app, "--pipe-to", e.to_pipe, "where the casing ends");
    addDouble(app, "--pipe-diameter", e.diametr_concrete, "of the casing");
    addText(app, "--comment", "TEXT", e.comment, "a remark");
}

void elementOptions(CLI::App& app, addWorkElementRequest& request) {
    auto& e = request.element;
    addWellOf(app, request);
    app.add_option("--type", e.type, "number of the kind of element")->type_name("N");
    addDouble(app, "--top", e.top_real, "measured depth of its top");
    addDouble(app, "--bottom", e.bot_real, "measured depth of its bottom");
    addDouble(app, "--inner", e.inner_d, "inner diameter");
    addDouble(app, "--outer", e.outer_d, "outer diameter");
    addText(app, "--text", "TEXT", e.text, "what it is");
}

struct columnWord {
    std::wstring_view word;
    std::wstring NORLEX_construction_load_options::*column;
};

constexpr columnWord columnWords[] = {
    {L"from", &NORLEX_construction_load_options::from_dig},
    {L"to", &NORLEX_construction_load_options::to_dig},
    {L"diameter", &NORLEX_construction_load_options::diametr_dig},
    {L"pipe_from", &NORLEX_construction_load_options::from_pipe},
    {L"pipe_to", &NORLEX_construction_load_options::to_pipe},
    {L"pipe_diameter", &NORLEX_construction_load_options::diametr_concrete},
    {L"comment", &NORLEX_construction_load_options::comment},
};

// "from=1,to=2,diameter=Bit"
void takeColumns(const std::string& given, NORLEX_construction_load_options& columns) {
    std::vector<columnList::entry> entries;
    bool good = columnList::parse(text::wide(unguarded(given)), entries);
    for (const auto& entry : entries) {
        const auto* const word = std::find_if(std::begin(columnWords),
                                              std::end(columnWords),
                                              [&](const auto& w) { return w.word == entry.name; });
        good = good && word != std::end(columnWords);
        if (good)
            columns.*word->column = entry.column.number != 0 ? std::to_wstring(entry.column.number)
                                                             : entry.column.header;
    }
    if (!good)
        refuseUsage("--columns: \"" + unguarded(given)
                    + "\" is not of the form from=COLUMN,to=COLUMN,… with diameter, pipe_from, "
                      "pipe_to, pipe_diameter, comment");
}

void loadOptions(CLI::App& app, loadConstructionRequest& request) {
    addWellOf(app, request);
    addText(app, "TABLE", "", request.table, "the table to read")->required();
    app.add_option_function<std::string>(
           "--columns",
           [&request](const std::string& given) { takeColumns(given, request.columns); },
           "columns of from, to, diameter, pipe_from, pipe_to, pipe_diameter, comment")
        ->type_name("NAME=COLUMN,…")
        ->required();
    app.add_flag("--replace", request.replace, "remove the sections that are there");
    addEncoding(app, request.format.encoding);
    addJson(app, request.form);
}

void removeOptions(CLI::App& app, removeRowRequest& request) {
    addWellOf(app, request);
    app.add_option("ID", request.id, "its number, as show gives it")->required();
}

void headerOptions(CLI::App& app, drillingHeaderRequest& request) {
    addWellOf(app, request);
    addOptionalText(app, "--type", request.type, "kind of drilling");
    addOptionalText(app, "--rig", request.rig, "the rig");
    addOptionalText(app, "--author", request.author, "who wrote the record");
    addOptionalText(app, "--checker", request.checker, "who checked it");
}

void runOptions(CLI::App& app, addRunRequest& request) {
    auto& e = request.element;
    addWellOf(app, request);
    addDouble(app, "--from", e.from_depth, "measured depth where the run begins");
    addDouble(app, "--to", e.to_depth, "measured depth where it ends");
    addText(app, "--date", "TEXT", e.date, "day");
    addText(app, "--shift", "TEXT", e.smena, "shift");
    addText(app, "--diameter", "TEXT", e.diametr, "diameter");
    addText(app, "--materials", "TEXT", e.materials, "materials used");
    addText(app, "--core", "TEXT", e.kern, "core recovered");
    addText(app, "--angle", "TEXT", e.ugol, "angle");
    addText(app, "--others", "TEXT", e.others, "anything else");
}

void personOptions(CLI::App& app, personRequest& request) {
    addWellOf(app, request);
    addText(app, "NAME", "", request.person.name, "the person")->required();
    addText(app, "POSITION", "", request.person.position, "the person's position");
}

void addDrillingCommands(CLI::App& app, command& chosen) {
    CLI::App& group = addGroup(app, helpTexts::drilling);
    addCommand(group, chosen, helpTexts::drillingShow, commands::showDrilling, showOptions);
    addCommand(group, chosen, helpTexts::drillingSet, commands::setDrilling, headerOptions);
    addCommand(group, chosen, helpTexts::drillingAdd, commands::addRun, runOptions);
    addCommand(group, chosen, helpTexts::drillingRemove, commands::removeRun, removeOptions);
    addCommand(group, chosen, helpTexts::drillingAddPerson, commands::addPerson, personOptions);
    addCommand(
        group, chosen, helpTexts::drillingRemovePerson, commands::removePerson, personOptions);
}

} // namespace

void addConstructionCommands(CLI::App& app, command& chosen) {
    CLI::App& group = addGroup(app, helpTexts::construction);
    addCommand(group, chosen, helpTexts::constructionShow, commands::showConstruction, showOptions);
    addCommand(group, chosen, helpTexts::constructionAdd, commands::addSection, sectionOptions);
    addCommand(
        group, chosen, helpTexts::constructionAddElement, commands::addWorkElement, elementOptions);
    addCommand(group, chosen, helpTexts::constructionLoad, commands::loadConstruction, loadOptions);
    addCommand(group,
               chosen,
               helpTexts::constructionRemove,
               commands::removeConstruction,
               [](CLI::App& c, removeRowRequest& r) {
                   removeOptions(c, r);
                   c.add_flag("--element", r.isWorkElement, "a working element");
               });
    addCommand(
        group, chosen, helpTexts::constructionClear, commands::clearConstruction, showOptions);
    addDrillingCommands(app, chosen);
}
