// The commands that make data from data of a container.
#pragma once

#include "cli/commands.h"

#include "NORLEX_derivedData.h"
#include "NORLEX_propCopy.h"

#include <optional>
#include <string>
#include <vector>

struct copyPropRequest {
    std::wstring file;
    std::wstring from;
    std::wstring property;
    std::wstring to;
    std::wstring newName;                      // empty: the same
    std::optional<NORLEX_db_prop_merge> merge; // none: a property that is there is refused
    NORLEX_dataDirection keep = NORLEX_dataDirectionMeasured;
};

// Each command takes what it needs of it.
struct deriveRequest {
    std::wstring file;
    std::wstring well;
    std::vector<std::wstring> sources; // one, or several runs
    std::wstring result;
    std::wstring field;
    std::wstring column; // a property of intervals
    std::optional<double> step;
    std::optional<double> window;
    std::optional<double> tolerance;
    std::optional<double> cutoff;
    std::optional<double> min;
    std::optional<double> max;
    std::optional<double> minThickness;
    std::optional<double> maxGap;
    std::optional<double> bottom;
    NORLEX_windowKind windowKind = NORLEX_windowMean;
    NORLEX_crossing crossing = NORLEX_crossingBoth;
    NORLEX_lasOverlap overlap = NORLEX_lasOverlapUpper;
    NORLEX_statistic statistic = NORLEX_statisticMean;
};

namespace commands {

[[nodiscard]] int copyProp(const copyPropRequest& request);

[[nodiscard]] int deriveLog(const deriveRequest& request);
[[nodiscard]] int deriveFilter(const deriveRequest& request);
[[nodiscard]] int deriveSimplified(const deriveRequest& request);
[[nodiscard]] int deriveMarkers(const deriveRequest& request);
[[nodiscard]] int deriveJoined(const deriveRequest& request);
[[nodiscard]] int deriveAttribute(const deriveRequest& request);
[[nodiscard]] int deriveIntervals(const deriveRequest& request);
[[nodiscard]] int deriveOre(const deriveRequest& request);
[[nodiscard]] int deriveSerial(const deriveRequest& request);
[[nodiscard]] int deriveColumn(const deriveRequest& request);
[[nodiscard]] int deriveBetweenPicks(const deriveRequest& request);

} // namespace commands
