// The chart as hosts see it: loading, and how units lie to each other.
#include "platform/last_error.h"
#include "platform/string_table.h"
#include "strat/chart_file.h"
#include "strat/table_content.h"

#include <algorithm>

namespace strategraphy {

std::vector<std::pair<NORLEX_taxonType, std::wstring>> stratoRangeTypeModel() {
    std::vector<std::pair<NORLEX_taxonType, std::wstring>> out;
    for (int type = NORLEX_taxonUndefined; type <= NORLEX_taxonStage; ++type)
        if (type != NORLEX_taxonSubSystem)
            out.emplace_back(static_cast<NORLEX_taxonType>(type),
                             getTaxonTypeName(static_cast<NORLEX_taxonType>(type)));
    return out;
}

statoTable::statoTable(NORLEX_wellContainer* /*container*/)
    : m_content(std::make_unique<content>()) {
    load(chartFile::shippedPath());
}

statoTable::statoTable(const std::wstring& path) : m_content(std::make_unique<content>()) {
    load(path);
}

statoTable::~statoTable() = default;

void statoTable::load(const std::wstring& path) {
    m_content->isLoaded = chartFile::read(path, m_content->rows);
    if (!m_content->isLoaded)
        m_content->rows.clear();
    m_content->units.build(m_content->rows);
}

bool statoTable::isOK() const {
    return m_content->isLoaded;
}

const std::vector<raw_data>& statoTable::getRawDataList() const {
    return m_content->rows;
}

const element* statoTable::findElement(const element& unit, NORLEX_taxonType level) const {
    const chart& units = m_content->units;
    const auto of = units.byIndex(unit);
    const auto at = chart::levelOf(level);
    const auto found = of && at ? units.containing(*of, *at) : std::nullopt;
    return found ? &units.element(*found) : nullptr;
}

const element* statoTable::getUpper(const element& unit) const {
    const chart& units = m_content->units;
    const auto of = units.byIndex(unit);
    if (!of)
        return nullptr;
    for (std::size_t level = units.levelAt(*of); level-- > 0;)
        if (const auto found = units.containing(*of, level))
            return &units.element(*found);
    return nullptr;
}

void statoTable::fillTaxonRangeUp(const element& unit, std::vector<element>& units) const {
    m_content->addRelated(
        unit, [](std::size_t own, std::size_t level) { return level < own; }, units);
}

void statoTable::fillTaxonRangeDown(const element& unit, std::vector<element>& units) const {
    m_content->addRelated(
        unit, [](std::size_t own, std::size_t level) { return level > own; }, units);
}

const std::vector<element>& statoTable::getElements(NORLEX_taxonType level) const {
    static const std::vector<element> none;
    const auto at = chart::levelOf(level);
    return at ? m_content->units.elements(*at) : none;
}

std::vector<std::wstring> statoTable::getUniqVals(NORLEX_taxonType level) const {
    std::vector<std::wstring> out;
    for (const auto& unit : getElements(level))
        out.push_back(unit.index);
    return out;
}

int statoTable::findIndex(NORLEX_taxonType level, const std::wstring& index) const {
    const auto at = chart::levelOf(level);
    const auto found = at ? m_content->units.byIndex(*at, index) : std::nullopt;
    return found ? static_cast<int>(m_content->units.positionOf(*found)) : -1;
}

std::vector<element> statoTable::getUIYarusList() const {
    return getElements(NORLEX_taxonStage);
}

} // namespace strategraphy
