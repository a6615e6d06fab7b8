// Selections over all wells of a container.
#include "bench/big_container.h"
#include "bench/child.h"
#include "bench/database.h"
#include "bench/measures.h"

#include "NORLEX_queryText.h"
#include "NORLEX_selection.h"
#include "odbc_database.h"
#include "selection/query_text.h"

namespace bench {

namespace {

// A complement in the middle, values, kinds of data; the last one adds wells.
constexpr const wchar_t* fiveQueries =
    L"exists data and G/P-1.num > 300 and G/P-7.text not contains \"99\" and not exists survey or "
    L"property = P-3";

// A selection of the container, inverted: that takes all of its wells once more.
NORLEX_selection selectionOf(const NORLEX_wellContainer& container, const wchar_t* text) {
    NORLEX_selection selection(L"bench", container.getContDescription());
    std::vector<NORLEX_query> queries;
    static_cast<void>(NORLEX_parseSelectionText(text, queries));
    for (const auto& query : queries)
        selection.addFilter(query);
    return selection;
}

// The statements of the queries, every row stepped to and none read.
bool step(odbc_database& db, const NORLEX_selection& selection) {
    for (std::size_t i = 0; i < selection.getFilterCount(); ++i) {
        const auto rows = db.query(queryText::getQueryString(db, selection.getFilter(i)));
        if (!rows)
            return false;
        while (rows->next()) {
        }
    }
    return true;
}

bool chain(const settings& with, std::vector<figure>& figures) {
    const auto container = openContainer(bigContainer(with, with.wells));
    if (!container)
        return failed("opening the large container");
    NORLEX_selection selection = selectionOf(*container, fiveQueries);
    selection.setInvertResult(true);
    std::vector<double> built, stepped;
    bool good = selection.getFilterCount() == 5 && step(*container->getBaseLink(), selection);
    for (std::size_t round = 0; good && round < with.rounds; ++round) {
        built.push_back(timed([&] { good = good && selection.rebuildList(*container); }));
        stepped.push_back(
            timed([&] { good = good && step(*container->getBaseLink(), selection); }));
    }
    if (!good)
        return failed("a selection of five queries");
    figure line = against(
        "selection of 5 queries, inverted", "s", built, "its bare statements", stepped, 1.3);
    line.atMost = true;
    add(figures, line);
    return true;
}

bool window(const settings& with,
            const char* name,
            const wchar_t* text,
            std::vector<figure>& figures) {
    const auto container = openContainer(bigContainer(with, with.wells));
    if (!container)
        return failed("opening the large container");
    NORLEX_selection selection = selectionOf(*container, text);
    std::vector<double> times;
    bool good = selection.getFilterCount() == 1;
    for (std::size_t round = 0; good && round < with.rounds; ++round)
        times.push_back(timed([&] { good = good && selection.rebuildList(*container); }));
    if (!good || selection.getWellCount() == 0)
        return failed("a depth window");
    add(figures, atMost(name, "s", median(times), static_cast<double>(with.wells) / 10'000));
    return true;
}

} // namespace

bool selectionMeasures(const settings& with, std::vector<figure>& figures) {
    return chain(with, figures)
           && window(with, "depth window on points", L"exists G/P-2 from -1500 to -1200", figures)
           && window(
               with, "depth window on intervals", L"exists G/P-8 from -1500 to -1200", figures);
}

} // namespace bench
