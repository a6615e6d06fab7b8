#include "cli/commands_bulk.h"

#include "cli/choose_wells.h"
#include "cli/json_out.h"
#include "cli/names.h"
#include "cli/number_text.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/table.h"
#include "cli/table_reports.h"
#include "cli/text.h"

#include <algorithm>

namespace {

using numberText::counted;
using exportedWells = std::vector<NORLEX_exportedWell>;

// A container with the wells that were chosen of it.
struct chosenWells {
    std::unique_ptr<NORLEX_wellContainer> container;
    std::shared_ptr<NORLEX_selection> wells; // null when either was not found, and that was said

    explicit operator bool() const { return wells != nullptr; }
};

chosenWells choose(const std::wstring& file, const wellChoice& choice) {
    chosenWells out;
    out.container = openContainer(file);
    if (out.container)
        out.wells = chooseWells(out.container->getContDescription(), choice);
    return out;
}

json textOrNull(const std::wstring& text) {
    return text.empty() ? json(nullptr) : jsonOut::string(text);
}

struct sums {
    std::size_t written = 0;
    std::size_t withoutLogs = 0;
    std::size_t refused = 0;
};

sums sumsOf(const exportedWells& files) {
    sums out;
    for (const auto& file : files)
        ++(file.path.empty() ? out.withoutLogs : file.reason.empty() ? out.written : out.refused);
    return out;
}

void printJson(const exportedWells& files) {
    json list = json::array();
    for (const auto& file : files)
        list.push_back({{"well", jsonOut::string(names::spelled(file.well))},
                        {"path", textOrNull(file.path)},
                        {"reason", textOrNull(file.reason)}});
    const sums all = sumsOf(files);
    jsonOut::print({{"files", std::move(list)},
                    {"written", all.written},
                    {"without_logs", all.withoutLogs},
                    {"refused", all.refused}});
}

void printTable(const exportedWells& files) {
    table rows({{"WELL"}, {"FILE"}, {"REASON"}});
    for (const auto& file : files)
        rows.add({text::shown(names::spelled(file.well)),
                  text::shown(file.path),
                  text::shown(file.reason)});
    rows.print();
    const sums all = sumsOf(files);
    output::line("");
    output::line(counted(files.size(), "well") + ": " + counted(all.written, "file") + " written, "
                 + std::to_string(all.refused) + " refused, " + std::to_string(all.withoutLogs)
                 + " without logs");
}

int removedOf(std::size_t wells, const NORLEX_propDescription& property) {
    output::line(L"removed the property " + names::spelled(property) + L" of "
                 + text::wide(counted(wells, "well")));
    return 0;
}

int removeOfWell(const removePropRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    const auto property = names::findProperty(*opened.well, request.property);
    if (!property)
        return output::failure;
    return opened.well->removeProperty(*property) ? removedOf(1, *property) : output::refused();
}

// Those of the name in any group: a name alone is of no group where there are many wells.
int refuseAbsent(const chosenWells& chosen, const NORLEX_propDescription& property) {
    std::vector<NORLEX_propDescription> all;
    if (!chosen.container->getPropertyList(chosen.wells, all))
        return output::refused();
    std::wstring others;
    for (const auto& other : all)
        if (other.name == property.name)
            others += (others.empty() ? L"; there are: " : L", ") + names::spelled(other);
    return output::refused(L"none of " + text::wide(counted(chosen.wells->getWellCount(), "well"))
                           + L" has the property " + names::spelled(property) + others);
}

} // namespace

namespace commands {

int exportWells(const exportWellsRequest& request) {
    const chosenWells chosen = choose(request.file, request.wells);
    if (!chosen)
        return output::failure;
    exportedWells files;
    bool done = false;
    tableReports::withProgress([&] {
        done = chosen.container->exportLAS(chosen.wells, request.folder, request.exact, files);
    });
    const std::wstring reason = done ? std::wstring() : output::reason();
    const bool hasBegun = done || !files.empty();
    if (hasBegun && request.form == resultForm::json)
        printJson(files);
    else if (hasBegun)
        printTable(files);
    return done ? 0 : output::refused(reason);
}

int removeProp(const removePropRequest& request) {
    if (!request.well.empty())
        return removeOfWell(request);
    const auto property = names::newProperty(request.property);
    if (!property)
        return output::failure;
    const chosenWells chosen = choose(request.file, request.wells);
    if (!chosen)
        return output::failure;
    std::size_t removed = 0;
    if (!chosen.container->removeProperty(chosen.wells, *property, removed))
        return output::refused();
    return removed == 0 ? refuseAbsent(chosen, *property) : removedOf(removed, *property);
}

int propsOfWells(const propsRequest& request) {
    if (!request.well.empty())
        return props({request.file, request.well, request.form});
    const chosenWells chosen = choose(request.file, request.wells);
    if (!chosen)
        return output::failure;
    std::vector<NORLEX_propDescription> properties;
    if (!chosen.container->getPropertyList(chosen.wells, properties))
        return output::refused();
    json document = json::array();
    table rows({{"GROUP"}, {"NAME"}});
    for (const auto& property : properties) {
        document.push_back(
            {{"group", jsonOut::string(property.group)}, {"name", jsonOut::string(property.name)}});
        rows.add({text::shown(property.group), text::shown(property.name)});
    }
    if (request.form == resultForm::json)
        jsonOut::print(document);
    else
        rows.print();
    return 0;
}

} // namespace commands
