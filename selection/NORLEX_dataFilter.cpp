#include "NORLEX_dataFilter.h"

#include "NORLEX_selection.h"
#include "NORLEX_wellContainer.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "selection/filter_evaluation.h"
#include "selection/filter_table.h"
#include "selection/filter_xml.h"

#include <optional>
#include <utility>

namespace {

bool refuseWithoutTree() {
    return refuse(L"the filter has no tree of conditions: give it one with reloadTree()");
}

odbc_database* databaseOf(const std::shared_ptr<NORLEX_wellContainer>& container) {
    if (container && container->isOK())
        return container->getBaseLink();
    refuse(L"the filter has no open container");
    return nullptr;
}

std::optional<filterEvaluation::wellChoice> wellsOf(odbc_database& db,
                                                    NORLEX_selection* selection) {
    if (selection == nullptr)
        return filterEvaluation::allWells(db);
    const auto keys = selection->getWellIDList();
    if (keys.empty() && !selection->rebuildList()) // not read, rather than empty
        return std::nullopt;
    return filterEvaluation::chosenWells(db, keys);
}

struct evaluation {
    odbc_database* db = nullptr;
    filterEvaluation::wellChoice wells;
    std::vector<NORLEX_wellFilterDepths> hits;
};

std::optional<evaluation>
evaluate(const std::shared_ptr<NORLEX_wellContainer>& container,
         NORLEX_selection* selection,
         const TreeNode<filterCondition>* tree,
         const std::vector<NORLEX_propDescription>* properties = nullptr) {
    evaluation out;
    out.db = databaseOf(container);
    if (out.db == nullptr)
        return std::nullopt;
    if (tree == nullptr) {
        refuseWithoutTree();
        return std::nullopt;
    }
    auto wells = wellsOf(*out.db, selection);
    if (!wells)
        return std::nullopt;
    out.wells = *std::move(wells);
    auto hits = filterEvaluation::hits(*out.db, *tree, out.wells, properties);
    if (!hits)
        return std::nullopt;
    out.hits = *std::move(hits);
    return out;
}

int depthsOf(const std::optional<evaluation>& of) {
    std::size_t count = 0;
    if (of)
        for (const auto& well : of->hits)
            count += well.depths.size();
    return static_cast<int>(count);
}

bool handOut(std::optional<evaluation> of, std::vector<NORLEX_wellFilterDepths>& wells) {
    wells = of ? std::move(of->hits) : std::vector<NORLEX_wellFilterDepths>();
    return of.has_value();
}

} // namespace

NORLEX_dataFilter::NORLEX_dataFilter(std::shared_ptr<NORLEX_wellContainer> container,
                                     std::shared_ptr<NORLEX_selection> selection,
                                     TreeNode<filterCondition>* tree)
    : m_container(std::move(container)), m_selection(std::move(selection)), m_tree(tree) {}

void NORLEX_dataFilter::reloadTree(TreeNode<filterCondition>* tree) {
    m_tree = tree;
}

bool NORLEX_dataFilter::getInfoForFilterConditions(std::vector<NORLEX_wellFilterDepths>& wells) {
    auto found = evaluate(m_container, m_selection.get(), m_tree);
    m_depths = depthsOf(found);
    return handOut(std::move(found), wells);
}

bool NORLEX_dataFilter::getInfoForFilterConditionsWithColumns(
    std::vector<NORLEX_wellFilterDepths>& wells, const std::vector<NORLEX_filterColumn>& columns) {
    std::vector<NORLEX_propDescription> properties;
    properties.reserve(columns.size());
    for (const auto& [property, field] : columns)
        properties.push_back(property);
    auto found = evaluate(m_container, m_selection.get(), m_tree, &properties);
    m_depths = depthsOf(found);
    return handOut(std::move(found), wells);
}

bool NORLEX_dataFilter::getGeneralTableForColumns(const std::vector<NORLEX_filterColumn>& columns,
                                                  std::vector<std::vector<double>>& table) {
    table.clear();
    const auto found = evaluate(m_container, m_selection.get(), m_tree);
    m_depths = depthsOf(found);
    auto rows =
        found ? filterTable::of(*found->db, found->wells, found->hits, columns) : std::nullopt;
    if (!rows)
        return false;
    table = *std::move(rows);
    return true;
}

bool NORLEX_dataFilter::saveFilter(const std::wstring& path) const {
    return m_tree != nullptr ? filterXml::save(*m_tree, path) : refuseWithoutTree();
}

bool NORLEX_dataFilter::loadFilter(const std::wstring& path) {
    return m_tree != nullptr ? filterXml::load(path, *m_tree) : refuseWithoutTree();
}
