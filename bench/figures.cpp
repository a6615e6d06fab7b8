#include "bench/figures.h"

#include "platform/numbers.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <utility>

namespace bench {

namespace {

// Three digits that matter.
std::string shown(double value) {
    const double size = std::abs(value);
    return numbers::fixed(value, size < 1.0 ? 3 : size < 10.0 ? 2 : size < 100.0 ? 1 : 0);
}

std::string json(const figure& line) {
    std::string out = "  {\"name\": \"" + line.name + "\", \"unit\": \"" + line.unit
                      + "\", \"value\": " + numbers::shortest(line.value);
    if (line.limit)
        out += ", \"limit_name\": \"" + line.limitName
               + "\", \"limit\": " + numbers::shortest(*line.limit);
    if (!line.note.empty())
        out += ", \"note\": \"" + line.note + "\"";
    out += ", \"ratio\": " + numbers::shortest(line.ratio)
           + (line.atMost ? ", \"at_most\": " : ", \"at_least\": ") + numbers::shortest(line.reach)
           + ", \"reached\": " + (line.isReached() ? "true" : "false") + "}";
    return out;
}

} // namespace

double median(std::vector<double> values) {
    if (values.empty())
        return 0.0;
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2.0;
}

figure against(std::string name,
               std::string unit,
               const std::vector<double>& values,
               std::string limitName,
               const std::vector<double>& limits,
               double reach) {
    std::vector<double> ratios;
    for (std::size_t i = 0; i < std::min(values.size(), limits.size()); ++i)
        ratios.push_back(limits[i] > 0.0 ? values[i] / limits[i] : 0.0);
    figure line;
    line.name = std::move(name);
    line.unit = std::move(unit);
    line.value = median(values);
    line.limitName = std::move(limitName);
    line.limit = median(limits);
    line.ratio = median(ratios);
    line.reach = reach;
    return line;
}

figure atMost(std::string name, std::string unit, double value, double most) {
    figure line = atLeast(std::move(name), std::move(unit), value, most);
    line.atMost = true;
    return line;
}

figure atLeast(std::string name, std::string unit, double value, double least) {
    figure line;
    line.name = std::move(name);
    line.unit = std::move(unit);
    line.value = line.ratio = value;
    line.reach = least;
    return line;
}

void printHead() {
    std::printf("%-40s %16s  %-42s %8s  %s\n", "measure", "value", "limit", "ratio", "to reach");
}

void print(const figure& line) {
    const std::string value = shown(line.value) + " " + line.unit;
    const std::string limit =
        line.limit ? shown(*line.limit) + " " + line.unit + ", " + line.limitName : line.note;
    const std::string reach = (line.atMost ? "<= " : ">= ") + shown(line.reach);
    std::printf("%-40s %16s  %-42s %8s  %-8s %s\n",
                line.name.c_str(),
                value.c_str(),
                limit.c_str(),
                line.limit ? shown(line.ratio).c_str() : "",
                reach.c_str(),
                line.isReached() ? "" : "MISSED");
    std::fflush(stdout);
}

bool writeJson(const std::string& path, const std::vector<figure>& figures) {
    std::string out = "[\n";
    for (std::size_t i = 0; i < figures.size(); ++i)
        out += json(figures[i]) + (i + 1 < figures.size() ? ",\n" : "\n");
    out += "]\n";
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr)
        return false;
    const bool written = std::fwrite(out.data(), 1, out.size(), file) == out.size();
    return std::fclose(file) == 0 && written;
}

} // namespace bench
