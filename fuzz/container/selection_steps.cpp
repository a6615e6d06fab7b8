// Selections and data filters, and what the container does to the wells of a selection.
#include "NORLEX_dataFilter.h"
#include "NORLEX_propTemplate.h"
#include "NORLEX_queryText.h"
#include "NORLEX_selection.h"
#include "fuzz/container/steps.h"
#include "odbc_database.h"

#include <vector>

namespace fuzzContainer {

namespace {

NORLEX_query newQuery(world& at, choices& by) {
    NORLEX_query query;
    query.operationType = static_cast<NORLEX_filterType>(1 + by.below(9));
    query.operation = static_cast<NORLEX_filterOperation>(1 + by.below(14));
    query.prop = by.newProperty();
    query.templateName = by.oneOf(NORLEX_propTemplate::getTemplateList(at.db()));
    query.fldName = by.name();
    query.value = by.text();
    query.caseSensetive = by.flag();
    query.fromDepth = by.number();
    query.toDepth = by.number();
    query.propTemplateType = static_cast<int>(by.below(12));
    query.wellInfoType = static_cast<NORLEX_filterWellType>(1 + by.below(11));
    query.datetimeType = static_cast<int>(by.below(2));
    query.datetimeObject = static_cast<int>(by.below(2));
    query.isLinkAnd = by.flag();
    return query;
}

std::shared_ptr<NORLEX_selection> newSelection(world& at, choices& by) {
    const auto out =
        std::make_shared<NORLEX_selection>(by.name(), at.container().getContDescription());
    for (std::size_t count = by.below(3); count > 0; --count)
        out->addFilter(newQuery(at, by));
    if (by.below(4) == 0)
        out->addWell(by.well(at.db()));
    if (by.below(4) == 0)
        out->delWell(by.well(at.db()));
    out->setInvertResult(by.flag());
    return out;
}

// The wells that it finds are there, each once, and a saved selection finds the same.
outcome select(world& at, choices& by) {
    const auto selection = newSelection(at, by);
    if (!selection->rebuildList(at.container()))
        return outcome::asked;
    std::vector<NORLEX_wellDescription> wells;
    selection->getWellList(wells);
    require(static_cast<std::int64_t>(wells.size()) <= at.container().getWellCount(),
            "a selection has more wells than there are");
    const auto path = at.scratch(L"selection.xml");
    NORLEX_selection again(L"", at.container().getContDescription());
    if (!selection->save(path))
        return outcome::asked;
    require(again.load(path), "a saved selection cannot be loaded");
    return outcome::asked;
}

outcome stampWells(world& at, choices& by) {
    const auto selection = newSelection(at, by);
    return of(by.flag() ? at.container().updateEditTimeWell(selection)
                        : at.container().updateEditTimeProp(selection, by.newProperty()));
}

outcome removeProperty(world& at, choices& by) {
    const auto selection = newSelection(at, by);
    const auto prop = by.newProperty();
    std::size_t removed = 0;
    return of(at.container().removeProperty(selection, prop, removed));
}

outcome listSelected(world& at, choices& by) {
    const auto selection = newSelection(at, by);
    std::vector<NORLEX_propDescription> properties;
    std::vector<std::wstring> templates;
    if (at.container().getPropertyList(selection, properties)
        && at.container().getTemplateList(selection, templates))
        require(properties.size() >= templates.size(), "more templates than properties");
    return outcome::asked;
}

outcome exportSelected(world& at, choices& by) {
    const auto selection = newSelection(at, by);
    std::vector<NORLEX_exportedWell> files;
    const bool exact = by.flag();
    if (!at.container().exportLAS(selection, at.scratch(L"export"), exact, files))
        return outcome::asked;
    for (const auto& file : files)
        require(file.reason.empty() || file.path.empty(),
                "a well was not exported, and the export was");
    return outcome::asked;
}

outcome filter(world& at, choices& by) {
    const std::shared_ptr<NORLEX_wellContainer> container(&at.container(), [](auto*) {});
    TreeNode<filterCondition> tree;
    auto* group = &tree;
    for (std::size_t count = by.below(4); count > 0; --count) {
        filterCondition condition;
        condition.operation = static_cast<int>(1 + by.below(14));
        condition.prop = by.newProperty();
        condition.field = by.name();
        condition.strParam = by.text();
        condition.isAnd = by.flag();
        condition.isEndCondition = by.below(4) != 0;
        auto& node = group->addChild(condition);
        group = condition.isEndCondition ? group : &node;
    }
    NORLEX_dataFilter filter(container, nullptr, &tree);
    std::vector<NORLEX_wellFilterDepths> wells;
    if (filter.getInfoForFilterConditions(wells))
        require(wells.empty() || filter.getDepthsCount() > 0, "wells without hits");
    std::vector<std::vector<double>> table;
    const NORLEX_propDescription column = by.newProperty();
    static_cast<void>(filter.getGeneralTableForColumns({{column, by.name()}}, table));
    return outcome::asked;
}

constexpr step steps[] = {{L"selections.select", select},
                          {L"selections.stampWells", stampWells},
                          {L"selections.removeProperty", removeProperty},
                          {L"selections.list", listSelected},
                          {L"selections.exportLas", exportSelected},
                          {L"selections.filter", filter}};

} // namespace

std::span<const step> selectionSteps() {
    return steps;
}

} // namespace fuzzContainer
