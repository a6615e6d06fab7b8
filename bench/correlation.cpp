// Correlations of a large container: 50 borders on every well; intervals of one well among all.
#include "bench/big_container.h"
#include "bench/child.h"
#include "bench/database.h"
#include "bench/measures.h"

#include "NORLEX_corInterval.h"
#include "NORLEX_correlation.h"
#include "NORLEX_wellContainer.h"
#include "odbc_database.h"
#include "platform/strconv.h"

#include <sqlite3.h>

#include <algorithm>
#include <cmath>

namespace bench {

namespace {

using store = correlation::correlation;

constexpr int borders = 50;
constexpr std::size_t wellsLooked = 21; // and the first is not counted
const NORLEX_propDescription name{L"Tops", L"Correlation"};

// The wells of which single ones are looked at, spread over the container.
std::vector<NORLEX_wellDescription> someWells(odbc_database& db) {
    std::vector<NORLEX_wellDescription> all;
    const auto rows =
        db.query(L"SELECT work_object, field, name, w_id FROM well_base ORDER BY w_id");
    while (rows && rows->next())
        all.push_back({rows->get_text(0),
                       rows->get_text(1),
                       rows->get_text(2),
                       static_cast<std::uint32_t>(rows->get_counter(3))});
    std::vector<NORLEX_wellDescription> out;
    for (std::size_t i = 0; i < wellsLooked && !all.empty(); ++i)
        out.push_back(all[i * 997 % all.size()]);
    return out;
}

bool importing(odbc_database& db, std::size_t wells, std::vector<figure>& figures) {
    std::vector<correlation::newPick> picks;
    for (std::size_t w = 1; w <= wells; ++w)
        for (int b = 0; b < borders; ++b)
            picks.push_back({static_cast<std::uint32_t>(w),
                             L"border " + std::to_wstring(b),
                             10.5 * b + static_cast<double>(w % 10)});
    correlation::pickSums sums;
    bool good = true;
    const double time = timed([&] {
        good = store::createCorrelationLayer(&db, name)
               && store::insertPoints(&db, name, picks, correlation::onExistingPick::fail, sums);
    });
    if (!good || sums.inserted != picks.size())
        return failed("making picks");
    add(figures,
        atLeast("making picks of 50 borders", "1/s", double(picks.size()) / time, 50'000.0));
    return true;
}

// Milliseconds, a well each; none when something failed.
std::vector<double> loading(odbc_database& db, const std::vector<NORLEX_wellDescription>& wells) {
    std::vector<double> times;
    for (const auto& well : wells) {
        std::vector<correlation::point> points;
        bool good = true;
        times.push_back(1e3 * timed([&] {
                            good = store::loadData(
                                &db, name, well, NORLEX_dataDirectionAbsolute, points);
                        }));
        if (!good || points.size() != borders)
            return {};
    }
    times.erase(times.begin());
    return times;
}

// Looking at every pick, through the engine's own interface: what any look-up costs that has no
// index.
std::vector<double> scanning(const std::string& path,
                             const std::vector<NORLEX_wellDescription>& wells) {
    std::vector<double> times;
    sqlite3* db = nullptr;
    bool good =
        sqlite3_open(path.c_str(), &db) == SQLITE_OK
        && sqlite3_exec(db, "PRAGMA cache_size=50000", nullptr, nullptr, nullptr) == SQLITE_OK;
    for (const auto& well : wells) {
        const std::string text =
            "SELECT d_id, b_id, depth_abs, type FROM correlation_data WHERE w_id = "
            + std::to_string(well.wellId);
        int found = 0;
        times.push_back(1e3 * timed([&] {
                            sqlite3_stmt* statement = nullptr;
                            good = good
                                   && sqlite3_prepare_v2(db, text.c_str(), -1, &statement, nullptr)
                                          == SQLITE_OK;
                            while (good && sqlite3_step(statement) == SQLITE_ROW)
                                ++found;
                            sqlite3_finalize(statement);
                        }));
        good = good && found == borders;
    }
    sqlite3_close(db);
    times.erase(times.begin());
    return good ? times : std::vector<double>();
}

bool loadingWells(NORLEX_wellContainer& container,
                  const std::string& path,
                  const std::vector<NORLEX_wellDescription>& wells,
                  std::vector<figure>& figures) {
    const auto own = loading(*container.getBaseLink(), wells);
    const auto scan = scanning(path, wells);
    if (own.empty() || scan.empty())
        return failed("loading picks");
    figure line =
        against("loading the picks of a well", "ms", own, "a look at all picks", scan, 2.5);
    line.atMost = true;
    add(figures, line);
    if (!container.createSearchIndexes())
        return failed("making indexes");
    const auto indexed = loading(*container.getBaseLink(), wells);
    if (indexed.empty() || !container.dropSearchIndexes())
        return failed("loading picks by an index");
    add(figures, atMost("the same with search indexes", "ms", median(indexed), 5.0));
    return true;
}

bool renaming(odbc_database& db, std::vector<figure>& figures) {
    std::vector<double> times;
    const NORLEX_propDescription other{L"Tops renamed", name.group};
    bool good = true;
    for (int i = 0; good && i < 6; ++i)
        times.push_back(timed([&] {
            good = i % 2 == 0 ? store::rename(&db, name, other.name)
                              : store::rename(&db, other, name.name);
        }));
    if (!good)
        return failed("renaming a correlation");
    add(figures, atMost("renaming the correlation", "s", median(times), 1.0));
    const double time = timed([&] { good = store::removeCorrelation(&db, name); });
    if (!good)
        return failed("removing a correlation");
    add(figures, atMost("removing it", "s", time, 5.0));
    return true;
}

bool intervals(const std::string& path,
               const std::vector<NORLEX_wellDescription>& wells,
               std::vector<figure>& figures) {
    const NORLEX_corInterval looked(
        NORLEX_wellContainer::makeDescription(ts::strconv::fromUtf8(path)),
        wells,
        {L"P-7", L"G"},
        NORLEX_dataDirectionAbsolute);
    std::vector<double> objects, lists;
    for (std::size_t i = 0; i < wells.size(); ++i) {
        std::vector<NORLEX_corInterval::interval> all;
        bool good = true;
        lists.push_back(1e3 * timed([&] { good = looked.getIntervals(i, all); }));
        if (!good || all.size() != 25)
            return failed("listing intervals");
        const double depth = 0.5 * (all[12].first + all[12].second);
        objects.push_back(1e3 * timed([&] { good = looked.isObjectAtDepth(i, depth, depth); }));
        if (!good)
            return failed("finding an interval");
    }
    objects.erase(objects.begin());
    lists.erase(lists.begin());
    add(figures, atMost("an interval at a depth of one well", "ms", median(objects), 200.0));
    add(figures, atMost("the intervals of one well", "ms", median(lists), 200.0));
    return true;
}

} // namespace

bool correlationMeasures(const settings& with, std::vector<figure>& figures) {
    const std::string path = bigContainer(with, with.wells);
    const auto container = path.empty() ? nullptr : openContainer(path);
    if (!container)
        return failed("opening the large container");
    auto& db = *container->getBaseLink();
    const auto wells = someWells(db);
    return wells.size() == wellsLooked && intervals(path, wells, figures)
           && importing(db, with.wells, figures) && loadingWells(*container, path, wells, figures)
           && renaming(db, figures);
}

} // namespace bench
