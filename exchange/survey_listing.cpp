#include "exchange/survey_listing.h"

#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/textio.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

namespace surveyListing {

namespace {

using fields = std::array<std::string_view, 3>;

// The first three fields of a line, empty ones among them or not; nothing when it has fewer.
std::optional<fields> split(std::string_view line, bool takeEmpty) {
    fields found;
    for (std::size_t i = 0; i < found.size();) {
        const std::size_t blank = std::min(line.find(' '), line.size());
        found[i] = line.substr(0, blank);
        i += takeEmpty || !found[i].empty() ? 1U : 0U;
        if (blank == line.size())
            return i == found.size() ? std::optional(found) : std::nullopt;
        line.remove_prefix(blank + 1);
    }
    return found;
}

std::optional<fields> split(std::string_view line) {
    const auto padded = split(line, false);
    return padded ? padded : split(line, true);
}

std::optional<double> finite(std::string_view field) {
    const auto value = numbers::toDouble(field);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

void addStation(std::string_view line, std::vector<inclData>& stations) {
    const auto field = split(line);
    const auto depth = field ? finite((*field)[0]) : std::nullopt;
    if (!depth)
        return;
    const inclData before = stations.empty() ? inclData{} : stations.back();
    inclData station;
    station.depth = *depth;
    station.angle = finite((*field)[1]).value_or(before.angle);
    station.azimuth = finite((*field)[2]).value_or(before.azimuth);
    stations.push_back(station);
}

} // namespace

bool read(const std::wstring& path, std::vector<inclData>& stations) {
    ts::textio file;
    if (!file.open(path, ts::strconv::detect))
        return false;
    std::vector<inclData> found;
    std::string_view line;
    for (int rules = 0; rules < 3 && file.next(line);) {
        if (line.find('=') != std::string_view::npos)
            ++rules;
        else if (rules == 2)
            addStation(line, found);
    }
    if (file.isLineTooLong())
        return refuse(L"survey listing " + path + L": line "
                      + std::to_wstring(file.lineNumber() + 1)
                      + L" is longer than a line of text can be");
    if (found.size() < 2)
        return refuse(L"survey listing " + path + L", stations found: "
                      + std::to_wstring(found.size())
                      + L"; at least two lines of depth, angle and azimuth, blanks between "
                        L"them, must follow the second line with a \"=\"");
    stations = std::move(found);
    return true;
}

} // namespace surveyListing
