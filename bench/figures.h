// What the benchmark measures and how it tells the result.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace bench {

// One line of the result. A figure is compared with a limit that was measured in the same run, or
// with a fixed one.
struct figure {
    std::string name;
    std::string unit;
    double value = 0.0;
    std::string limitName;
    std::optional<double> limit;
    std::string note;    // what else was seen, where there is no limit
    double ratio = 0.0;  // what is compared with `reach`: value by limit, or the value itself
    double reach = 0.0;  // the ratio to reach
    bool atMost = false; // the ratio is to stay below it
    [[nodiscard]] bool isReached() const { return atMost ? ratio <= reach : ratio >= reach; }
};

[[nodiscard]] double median(std::vector<double> values);

// Medians of both, and the median of the ratios of each round: rounds alternate between the two,
// so that a machine that is busy for a while slows both of them.
[[nodiscard]] figure against(std::string name,
                             std::string unit,
                             const std::vector<double>& values,
                             std::string limitName,
                             const std::vector<double>& limits,
                             double reach);
// The value itself is to stay at or below `most`, or to reach `least`.
[[nodiscard]] figure atMost(std::string name, std::string unit, double value, double most);
[[nodiscard]] figure atLeast(std::string name, std::string unit, double value, double least);

void printHead();
void print(const figure& line);
[[nodiscard]] bool writeJson(const std::string& path, const std::vector<figure>& figures);

} // namespace bench
