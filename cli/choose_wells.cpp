#include "cli/choose_wells.h"

#include "cli/names.h"
#include "cli/output.h"

#include "NORLEX_queryText.h"

#include <optional>

namespace {

// All three parts: a selection is written without a container that could tell the rest.
std::optional<std::vector<NORLEX_wellDescription>>
wellsOf(const std::vector<std::wstring>& references) {
    std::vector<NORLEX_wellDescription> wells;
    for (const auto& reference : references) {
        const auto parts = names::split(reference);
        if (parts.size() != 3 || parts[2].empty()) {
            output::say(L"\"" + reference + L"\" does not name a well; OBJECT/FIELD/NAME does");
            return std::nullopt;
        }
        wells.push_back({parts[0], parts[1], parts[2], 0});
    }
    return wells;
}

bool addByHand(NORLEX_selection& selection, const wellChoice& choice) {
    const auto added = wellsOf(choice.add);
    const auto removed = wellsOf(choice.remove);
    const auto picked = wellsOf(choice.picked);
    if (!added || !removed || !picked)
        return false;
    selection.addWells(*added);
    for (const auto& well : *removed)
        selection.delWell(well);
    if (!picked->empty())
        selection.addGeomWells(*picked);
    return true;
}

} // namespace

bool wellChoice::isGiven() const {
    return !selection.empty() || !query.empty() || !add.empty() || !remove.empty();
}

std::shared_ptr<NORLEX_selection> chooseWells(const NORLEX_contDescription& container,
                                              const wellChoice& choice) {
    auto selection = std::make_shared<NORLEX_selection>(L"", container);
    if (!choice.selection.empty() && !selection->load(choice.selection)) {
        output::say(output::reason());
        return nullptr;
    }
    if (!choice.query.empty()) {
        std::vector<NORLEX_query> queries;
        if (!NORLEX_parseSelectionText(choice.query, queries)) {
            output::say(output::reason());
            return nullptr;
        }
        for (const auto& query : queries)
            selection->addFilter(query);
    }
    if (choice.invert)
        selection->setInvertResult(!selection->getInvertResult());
    return addByHand(*selection, choice) ? selection : nullptr;
}
