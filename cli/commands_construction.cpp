#include "cli/commands_construction.h"

#include "cli/input_files.h"
#include "cli/json_out.h"
#include "cli/number_text.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/table.h"
#include "cli/table_reports.h"
#include "cli/text.h"

namespace {

using enum table::align;

json documentOf(const NORLEX_wellConstruction& construction) {
    json sections = json::array();
    for (const auto& e : construction.getElementList())
        sections.push_back({{"id", e.u_id},
                            {"from", jsonOut::number(e.from_dig)},
                            {"to", jsonOut::number(e.to_dig)},
                            {"diameter", jsonOut::number(e.diametr_dig)},
                            {"pipe_from", jsonOut::number(e.from_pipe)},
                            {"pipe_to", jsonOut::number(e.to_pipe)},
                            {"pipe_diameter", jsonOut::number(e.diametr_concrete)},
                            {"comment", jsonOut::string(e.comment)}});
    json elements = json::array();
    for (const auto& e : construction.getWorkElementList())
        elements.push_back({{"id", e.id},
                            {"type", e.type},
                            {"inner", jsonOut::number(e.inner_d)},
                            {"outer", jsonOut::number(e.outer_d)},
                            {"top", jsonOut::number(e.top_real)},
                            {"bottom", jsonOut::number(e.bot_real)},
                            {"text", jsonOut::string(e.text)}});
    return {{"sections", std::move(sections)}, {"working_elements", std::move(elements)}};
}

void printTables(const NORLEX_wellConstruction& construction) {
    const auto number = [](double value) { return numberText::fixed(value, 2); };
    table sections({{"ID", right},
                    {"FROM", right},
                    {"TO", right},
                    {"DIAMETER", right},
                    {"PIPE_FROM", right},
                    {"PIPE_TO", right},
                    {"PIPE_DIAMETER", right},
                    {"COMMENT"}});
    for (const auto& e : construction.getElementList())
        sections.add({std::to_string(e.u_id),
                      number(e.from_dig),
                      number(e.to_dig),
                      number(e.diametr_dig),
                      number(e.from_pipe),
                      number(e.to_pipe),
                      number(e.diametr_concrete),
                      text::shown(e.comment)});
    sections.print();
    table elements({{"ID", right},
                    {"TYPE", right},
                    {"INNER", right},
                    {"OUTER", right},
                    {"TOP", right},
                    {"BOTTOM", right},
                    {"TEXT"}});
    for (const auto& e : construction.getWorkElementList())
        elements.add({std::to_string(e.id),
                      std::to_string(e.type),
                      number(e.inner_d),
                      number(e.outer_d),
                      number(e.top_real),
                      number(e.bot_real),
                      text::shown(e.text)});
    if (elements.isEmpty())
        return;
    output::line("");
    elements.print();
}

// Runs `change` on the construction of a well; its refusal is told.
template <typename Request, typename Change>
int edited(const Request& request, Change change) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    auto construction = opened.well->getConstruction();
    return editIn(*opened.container, [&] { return change(construction); }) ? 0 : output::refused();
}

// All in one transaction, so that a table that is refused leaves what it was to replace.
bool load(NORLEX_wellContainer& container,
          NORLEX_wellConstruction& construction,
          const loadConstructionRequest& request,
          NORLEX_tableReport& report) {
    return editIn(container, [&] {
        return (!request.replace || construction.clearConstruction())
               && construction.loadElementsFromFile(
                   request.table, request.format, request.columns, report);
    });
}

} // namespace

namespace commands {

int showConstruction(const wellRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    const auto construction = opened.well->getConstruction();
    if (request.form == resultForm::json)
        jsonOut::print(documentOf(construction));
    else
        printTables(construction);
    return 0;
}

int addSection(const addSectionRequest& request) {
    return edited(request, [&](auto& c) { return c.addElement(request.element, true); });
}

int addWorkElement(const addWorkElementRequest& request) {
    return edited(request, [&](auto& c) { return c.addWorkElement(request.element, true); });
}

int loadConstruction(const loadConstructionRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    if (const std::wstring why = whyNoInput(request.table); !why.empty())
        return output::refused(why);
    auto construction = opened.well->getConstruction();
    NORLEX_tableReport report;
    const bool good = load(*opened.container, construction, request, report);
    const std::wstring error = good ? std::wstring() : output::reason();
    if (request.form == resultForm::json)
        jsonOut::print(tableReports::document(good, report, json::object(), error));
    else if (report.rows != 0)
        tableReports::print(
            report,
            numberText::counted(static_cast<std::size_t>(construction.getElementCount()), "section")
                + " in the well");
    return good ? 0 : output::refused(error);
}

int removeConstruction(const removeRowRequest& request) {
    return edited(request, [&](auto& c) {
        return request.isWorkElement ? c.removeWorkElement(request.id)
                                     : c.removeElement(request.id);
    });
}

int clearConstruction(const wellRequest& request) {
    return edited(request, [](auto& c) { return c.clearConstruction() && c.clearWorkElements(); });
}

} // namespace commands
