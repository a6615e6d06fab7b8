#include "cli/commands_construction.h"
#include "cli/json_out.h"
#include "cli/number_text.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/table.h"
#include "cli/text.h"

namespace {

json documentOf(const NORLEX_wellDrilling& drilling) {
    json runs = json::array();
    for (const auto& e : drilling.getElementList())
        runs.push_back({{"id", e.u_id},
                        {"date", jsonOut::string(e.date)},
                        {"shift", jsonOut::string(e.smena)},
                        {"diameter", jsonOut::string(e.diametr)},
                        {"materials", jsonOut::string(e.materials)},
                        {"from", jsonOut::number(e.from_depth)},
                        {"to", jsonOut::number(e.to_depth)},
                        {"core", jsonOut::string(e.kern)},
                        {"angle", jsonOut::string(e.ugol)},
                        {"others", jsonOut::string(e.others)}});
    json people = json::array();
    for (const auto& person : drilling.getExecutorList())
        people.push_back({{"name", jsonOut::string(person.name)},
                          {"position", jsonOut::string(person.position)}});
    return {{"type", jsonOut::string(drilling.getDrillingType())},
            {"rig", jsonOut::string(drilling.getDrillingRig())},
            {"author", jsonOut::string(drilling.getDrillingDocAuther())},
            {"checker", jsonOut::string(drilling.getDrillingDocChecker())},
            {"runs", std::move(runs)},
            {"people", std::move(people)}};
}

void printTables(const NORLEX_wellDrilling& drilling) {
    using enum table::align;
    printPairs({{"type", text::shown(drilling.getDrillingType())},
                {"rig", text::shown(drilling.getDrillingRig())},
                {"author", text::shown(drilling.getDrillingDocAuther())},
                {"checker", text::shown(drilling.getDrillingDocChecker())}});
    output::line("");
    table runs({{"ID", right},
                {"DATE"},
                {"SHIFT"},
                {"FROM", right},
                {"TO", right},
                {"DIAMETER"},
                {"CORE"},
                {"ANGLE"},
                {"MATERIALS"},
                {"OTHERS"}});
    for (const auto& e : drilling.getElementList())
        runs.add({std::to_string(e.u_id),
                  text::shown(e.date),
                  text::shown(e.smena),
                  numberText::fixed(e.from_depth, 2),
                  numberText::fixed(e.to_depth, 2),
                  text::shown(e.diametr),
                  text::shown(e.kern),
                  text::shown(e.ugol),
                  text::shown(e.materials),
                  text::shown(e.others)});
    runs.print();
    table people({{"NAME"}, {"POSITION"}});
    for (const auto& person : drilling.getExecutorList())
        people.add({text::shown(person.name), text::shown(person.position)});
    if (people.isEmpty())
        return;
    output::line("");
    people.print();
}

template <typename Request, typename Change>
int edited(const Request& request, Change change) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    auto drilling = opened.well->getDrillingInfo();
    return editIn(*opened.container, [&] { return change(drilling); }) ? 0 : output::refused();
}

} // namespace

namespace commands {

int showDrilling(const wellRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    const auto drilling = opened.well->getDrillingInfo();
    if (request.form == resultForm::json)
        jsonOut::print(documentOf(drilling));
    else
        printTables(drilling);
    return 0;
}

int setDrilling(const drillingHeaderRequest& request) {
    return edited(request, [&](auto& d) {
        return (!request.type || d.setDrillingType(*request.type))
               && (!request.rig || d.setDrillingRig(*request.rig))
               && (!request.author || d.setDrillingDocAuther(*request.author))
               && (!request.checker || d.setDrillingDocChecker(*request.checker));
    });
}

int addRun(const addRunRequest& request) {
    return edited(request, [&](auto& d) { return d.addElement(request.element, true); });
}

int removeRun(const removeRowRequest& request) {
    return edited(request, [&](auto& d) { return d.removeElement(request.id); });
}

int addPerson(const personRequest& request) {
    return edited(request, [&](auto& d) { return d.addExecutor(request.person, true); });
}

int removePerson(const personRequest& request) {
    return edited(request, [&](auto& d) { return d.removeExecutor(request.person); });
}

} // namespace commands
