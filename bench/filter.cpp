// Data filters over all wells of a container.
#include "bench/big_container.h"
#include "bench/child.h"
#include "bench/database.h"
#include "bench/measures.h"

#include "NORLEX_dataFilter.h"
#include "odbc_database.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>

namespace bench {

namespace {

using conditionTree = TreeNode<filterCondition>;

void addCondition(conditionTree& tree,
                  int property,
                  const wchar_t* field,
                  int operation,
                  const wchar_t* operand) {
    tree.addChild(
        {operation, {L"P-" + std::to_wstring(property), L"G"}, field, operand, false, true});
}

struct task {
    const char* name;
    std::vector<int> properties; // of each its numbers, its texts
};

// A number of points and a text of intervals: a fifth of the values; and all values.
const task usual{"filter on 2 properties of 10", {1, 7}};
const task every{"filter on every value", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}};

void grow(conditionTree& tree, const task& of) {
    for (const int property : of.properties) {
        addCondition(tree, property, L"num", NORLEX_filterGreater, L"990");
        addCondition(tree, property, L"text", NORLEX_filterEqual, L"value 500");
    }
}

// Worked out from how the container is filled, 25 values in a field.
int depthsOf(const task& of, std::size_t wells) {
    int count = 0;
    for (std::size_t i = 1; i <= wells * 500; ++i) {
        const std::size_t field = (i - 1) / 25 % 20;
        const std::size_t value = (i + i / 500 * 37) % 1000 * 7919 % 1000;
        const auto isTested = std::ranges::count(of.properties, static_cast<int>(field / 2)) > 0;
        count += isTested && (field % 2 == 1 ? value >= 990 : value == 500) ? 1 : 0;
    }
    return count;
}

// Seconds on a container that has just been opened; none when it failed or found other depths.
std::optional<double> filtered(const std::string& path, const task& of, int depths) {
    const std::shared_ptr<NORLEX_wellContainer> container = openContainer(path);
    conditionTree tree;
    grow(tree, of);
    NORLEX_dataFilter filter(container, nullptr, &tree);
    std::vector<NORLEX_wellFilterDepths> wells;
    bool good = container != nullptr;
    const double time = timed([&] { good = good && filter.getInfoForFilterConditions(wells); });
    return good && filter.getDepthsCount() == depths ? std::optional(time) : std::nullopt;
}

std::optional<double> filteredOften(const settings& with, std::size_t wells, const task& of) {
    const std::string path = bigContainer(with, wells);
    const int depths = depthsOf(of, wells);
    std::vector<double> times;
    for (std::size_t round = 0; round < with.rounds && !path.empty(); ++round) {
        const auto time = filtered(path, of, depths);
        if (!time)
            return std::nullopt;
        times.push_back(*time);
    }
    return times.empty() ? std::nullopt : std::optional(median(times));
}

// By a connection of its own: the next one sees what has become of it.
bool change(const settings& with, const std::function<bool(NORLEX_wellContainer&)>& work) {
    const auto container = openContainer(bigContainer(with, with.wells));
    return container && work(*container);
}

// There are none until they are made for the first time.
bool forgetStatistics(NORLEX_wellContainer& container) {
    static_cast<void>(container.getBaseLink()->exec(L"DELETE FROM sqlite_stat1"));
    return true;
}

bool measured(const settings& with,
              const task& of,
              const std::string& how,
              double most,
              std::vector<figure>& figures) {
    const auto time = filteredOften(with, with.wells, of);
    if (!time)
        return failed("filtering");
    add(figures, atMost(of.name + how, "s", *time, most));
    return true;
}

// What a well takes is to be the same among many.
bool growth(const settings& with, std::vector<figure>& figures) {
    const std::size_t fewer = std::max<std::size_t>(with.wells / 10, 1);
    const auto many = filteredOften(with, with.wells, every);
    const auto few = filteredOften(with, fewer, every);
    if (!many || !few)
        return failed("filtering");
    figure line = against("filter on every value, a well of " + std::to_string(with.wells),
                          "ms",
                          {1e3 * *many / static_cast<double>(with.wells)},
                          "of " + std::to_string(fewer),
                          {1e3 * *few / static_cast<double>(fewer)},
                          1.5);
    line.atMost = true;
    add(figures, line);
    return true;
}

} // namespace

bool filterMeasures(const settings& with, std::vector<figure>& figures) {
    const double share = static_cast<double>(with.wells) / 10'000;
    using target = NORLEX_wellContainer;
    const bool good = change(with, forgetStatistics)
                      && measured(with, usual, ", no statistics", 10.0 * share, figures)
                      && measured(with, every, ", no statistics", 10.0 * share, figures)
                      && change(with, [](target& c) { return c.updateStatistics(); })
                      && measured(with, usual, "", 10.0 * share, figures)
                      && measured(with, every, "", 10.0 * share, figures) && growth(with, figures)
                      && change(with, [](target& c) { return c.createSearchIndexes(); })
                      && measured(with, usual, ", search indexes", 2.0 * share, figures)
                      && measured(with, every, ", search indexes", 10.0 * share, figures);
    return change(with, [](target& c) { return c.dropSearchIndexes(); }) && good;
}

} // namespace bench
