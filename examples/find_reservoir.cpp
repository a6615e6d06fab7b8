// Finds the porous sands of several wells: intervals of low gamma ray are made of the logs, get
// their mean porosity, and a typed query finds the good ones.
//
//     find_reservoir data/demo/*.las
#include "NORLEX_dataFilter.h"
#include "NORLEX_lasImport.h"
#include "NORLEX_lastError.h"
#include "NORLEX_queryText.h"
#include "NORLEX_selection.h"
#include "NORLEX_well.h"
#include "NORLEX_wellContainer.h"

#include <clocale>
#include <cstdio>
#include <cwchar>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace {

using containerPtr = std::shared_ptr<NORLEX_wellContainer>;
using selectionPtr = std::shared_ptr<NORLEX_selection>;

const NORLEX_propDescription sands{L"Sands", L""};

bool makeSands(odbc_database* db, const NORLEX_wellDescription& name) {
    NORLEX_well well(db, name);
    NORLEX_intervalOptions clean;
    clean.to = 50.0; // API
    clean.minThickness = 2.0;
    clean.maxGap = 0.5;
    return well.createIntervalsFromProp({L"GR", L"LAS"}, L"", clean, sands)
           && well.calcAttributeToColumn(
               {L"NPHI", L"LAS"}, sands, L"Porosity", NORLEX_statisticMean);
}

selectionPtr select(const containerPtr& container, const wchar_t* query) {
    std::vector<NORLEX_query> queries;
    if (!NORLEX_parseSelectionText(query, queries))
        return nullptr;
    const auto selection =
        std::make_shared<NORLEX_selection>(L"Chosen", container->getContDescription());
    for (const auto& q : queries)
        selection->addFilter(q);
    return selection->rebuildList(*container) ? selection : nullptr;
}

bool printHits(const containerPtr& container, const selectionPtr& wells, const wchar_t* query) {
    TreeNode<filterCondition> conditions;
    if (!NORLEX_parseFilterText(query, conditions))
        return false;
    NORLEX_dataFilter filter(container, wells, &conditions);
    std::vector<NORLEX_wellFilterDepths> found;
    if (!filter.getInfoForFilterConditions(found))
        return false;
    for (const auto& well : found) {
        const auto id = static_cast<std::uint32_t>(std::wcstoul(well.wellId.c_str(), nullptr, 10));
        std::printf("%ls\n", NORLEX_well::getWellNameByID(container->getBaseLink(), id).c_str());
        for (const auto& [bottom, top] : well.depths)
            std::printf("    from %.2f down to %.2f m\n", top, bottom);
    }
    std::printf("%d intervals where %ls\n", filter.getDepthsCount(), query);
    return true;
}

bool work(const containerPtr& container, int files, char** paths) {
    NORLEX_lasImport importer(container->getBaseLink(), {});
    for (int i = 0; i < files; ++i)
        if (!importer.importFile(std::filesystem::path(paths[i]).wstring()).ok)
            return false;
    const auto wells = select(container, L"property = GR and property = NPHI");
    if (!wells)
        return false;
    std::vector<NORLEX_wellDescription> list;
    wells->getWellList(list);
    for (const auto& well : list)
        if (!makeSands(container->getBaseLink(), well))
            return false;
    return printHits(container, wells, L"Sands.Porosity > 0.15");
}

} // namespace

int main(int argc, char** argv) {
    std::setlocale(LC_CTYPE, "C.UTF-8"); // what %ls prints in
    const auto place = NORLEX_wellContainer::makeDescription(L"find_reservoir.well2");
    if (NORLEX_wellContainer::create(place)
        && work(std::make_shared<NORLEX_wellContainer>(place), argc - 1, argv + 1))
        return 0;
    std::fprintf(stderr, "%ls\n", NORLEX_lastError().c_str());
    return 1;
}
