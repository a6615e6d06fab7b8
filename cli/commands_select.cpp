#include "cli/commands_select.h"

#include "cli/choose_wells.h"
#include "cli/json_out.h"
#include "cli/names.h"
#include "cli/number_text.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/table.h"
#include "cli/text.h"

#include "NORLEX_queryText.h"

namespace {

void printWells(const std::vector<NORLEX_wellDescription>& wells, resultForm form) {
    if (form == resultForm::json) {
        json document = json::array();
        for (const auto& well : wells)
            document.push_back(jsonOut::well(well));
        jsonOut::print(document);
        return;
    }
    using enum table::align;
    table rows({{"ID", right}, {"OBJECT", left}, {"FIELD", left}, {"NAME", left}});
    for (const auto& well : wells)
        rows.add({std::to_string(well.wellId),
                  text::shown(well.workObject),
                  text::shown(well.field),
                  text::shown(well.name)});
    rows.print();
}

std::vector<NORLEX_query> queriesOf(const NORLEX_selection& selection) {
    std::vector<NORLEX_query> queries;
    for (std::size_t i = 0; i < selection.getFilterCount(); ++i)
        queries.push_back(selection.getFilter(i));
    return queries;
}

std::wstring listed(const std::vector<NORLEX_wellDescription>& wells) {
    std::wstring out;
    for (const auto& well : wells)
        out += (out.empty() ? L"" : L", ") + names::spelled(well);
    return out;
}

// As a text that can be typed again where there is one, else as it tells people.
int show(const NORLEX_selection& selection) {
    const std::wstring query = NORLEX_selectionText(queriesOf(selection));
    printPairs(
        {{"name", text::shown(selection.name())},
         {"query",
          text::shown(query.empty() && !selection.getCustom() ? selection.getFilterInfo() : query)},
         {"custom", selection.getCustom() ? "yes" : "no"},
         {"inverted", selection.getInvertResult() ? "yes" : "no"},
         {"added", text::shown(listed(selection.getAddedWells()))},
         {"removed", text::shown(listed(selection.getDeletedWells()))},
         {"picked", text::shown(listed(selection.getGeomWells()))}});
    return 0;
}

int write(NORLEX_selection& selection, const selectRequest& request) {
    if (!request.name.empty())
        selection.name(request.name);
    if (!selection.save(request.newFile))
        return output::refused();
    output::line(L"wrote the selection to " + request.newFile);
    return 0;
}

} // namespace

namespace commands {

int select(const selectRequest& request) {
    NORLEX_contDescription description;
    if (!request.file.empty()) {
        const auto known = describeContainer(request.file);
        if (!known)
            return output::failure;
        description = *known;
    }
    const auto selection = chooseWells(description, request.wells);
    if (!selection)
        return output::failure;
    if (request.isCustom)
        selection->setCustom(true);
    if (!request.newFile.empty())
        return write(*selection, request);
    if (request.show)
        return show(*selection);
    const auto container = openContainer(request.file);
    if (!container || !selection->rebuildList(*container))
        return container ? output::refused() : output::failure;
    std::vector<NORLEX_wellDescription> wells;
    selection->getWellList(wells);
    printWells(wells, request.form);
    return 0;
}

} // namespace commands
