// The filters of a selection, and how they follow what is renamed and deleted.
#include "NORLEX_selection.h"
#include "platform/last_error.h"

#include <algorithm>

namespace {

template <typename Filters>
auto named(Filters& filters, const std::wstring& name) {
    return std::ranges::find(filters, name, &NORLEX_selectionFilter::name);
}

void replace(std::vector<NORLEX_wellDescription>& wells,
             const NORLEX_wellDescription& oldWell,
             const NORLEX_wellDescription& newWell) {
    std::ranges::replace(wells, oldWell, newWell);
}

} // namespace

std::vector<NORLEX_query>& NORLEX_selection::queries() {
    return m_filters[m_active].queries;
}

const std::vector<NORLEX_query>& NORLEX_selection::queries() const {
    return m_filters[m_active].queries;
}

void NORLEX_selection::addFilter(const NORLEX_query& query) {
    queries().push_back(query);
    outdate();
}

void NORLEX_selection::delFilter(std::size_t index) {
    if (index >= queries().size())
        return;
    queries().erase(queries().begin() + static_cast<std::ptrdiff_t>(index));
    outdate();
}

void NORLEX_selection::updateFilter(std::size_t index, const NORLEX_query& query) {
    if (index >= queries().size())
        return;
    queries()[index] = query;
    outdate();
}

NORLEX_query NORLEX_selection::getFilter(std::size_t index) const {
    return index < queries().size() ? queries()[index] : NORLEX_query();
}

std::size_t NORLEX_selection::getFilterCount() const {
    return queries().size();
}

void NORLEX_selection::resetFilters() {
    queries().clear();
    outdate();
}

void NORLEX_selection::clear() {
    m_filters = {{}};
    m_active = 0;
    m_added.clear();
    m_deleted.clear();
    m_geometry.clear();
    m_isInverted = false;
    outdate();
}

const std::vector<NORLEX_selectionFilter>& NORLEX_selection::getFilterList() const {
    return m_filters;
}

void NORLEX_selection::setFilter(const NORLEX_selectionFilter& filter) {
    if (const auto known = named(m_filters, filter.name); known != m_filters.end())
        *known = filter;
    else
        m_filters.push_back(filter);
    outdate();
}

void NORLEX_selection::removeFilter(const std::wstring& filterName) {
    const auto known = named(m_filters, filterName);
    if (known == m_filters.end())
        return;
    const auto index = static_cast<std::size_t>(known - m_filters.begin());
    m_filters.erase(known);
    if (m_filters.empty())
        m_filters.emplace_back();
    if (m_active >= index && m_active > 0)
        m_active = m_active == index ? 0 : m_active - 1;
    outdate();
}

bool NORLEX_selection::setActiveFilter(const std::wstring& filterName) {
    const auto known = named(m_filters, filterName);
    if (known == m_filters.end())
        return refuse(L"the selection \"" + m_name + L"\" has no filter \"" + filterName + L"\"");
    m_active = static_cast<std::size_t>(known - m_filters.begin());
    outdate();
    return true;
}

void NORLEX_selection::renameWell(const NORLEX_wellDescription& oldWell,
                                  const NORLEX_wellDescription& newWell) {
    replace(m_added, oldWell, newWell);
    replace(m_deleted, oldWell, newWell);
    replace(m_geometry, oldWell, newWell);
    outdate();
}

void NORLEX_selection::deleteWell(const NORLEX_wellDescription& well) {
    std::erase(m_added, well);
    std::erase(m_deleted, well);
    std::erase(m_geometry, well);
    std::erase(m_wells, well);
    updateWellID();
    outdate();
}

// A query of a name alone asks for properties of every group.
void NORLEX_selection::renameProperty(const NORLEX_propDescription& oldProp,
                                      const NORLEX_propDescription& newProp) {
    for (auto& filter : m_filters)
        for (auto& query : filter.queries) {
            if (query.prop == oldProp
                || (query.prop.group.empty() && query.prop.name == oldProp.name
                    && query.operationType == NORLEX_filterTypeProperty))
                query.prop = {newProp.name, query.prop.group.empty() ? L"" : newProp.group};
            if (query.propSearchName == oldProp.name && query.propSearchGroup == oldProp.group) {
                query.propSearchName = newProp.name;
                query.propSearchGroup = newProp.group;
            }
        }
    outdate();
}

void NORLEX_selection::updateWell(const NORLEX_wellDescription& /*well*/) {
    outdate();
}

void NORLEX_selection::updateAll() {
    outdate();
}

void NORLEX_selection::updateProperty(const NORLEX_propDescription& /*prop*/) {
    outdate();
}
