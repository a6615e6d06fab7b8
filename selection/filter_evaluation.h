// The hits of conditions in the wells of a container.
#pragma once

#include "NORLEX_dataFilter.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class odbc_database;

namespace filterEvaluation {

// Wells to be looked at, in the order of the result, each once.
struct wellChoice {
    std::vector<std::uint32_t> keys;
    bool isAll = false; // of the container: a statement need not name them
};
[[nodiscard]] wellChoice allWells(odbc_database& db); // by work object, field and name
[[nodiscard]] wellChoice chosenWells(odbc_database& db, const std::vector<std::wstring>& keys);
// " AND property.w_id IN (…)", or nothing.
[[nodiscard]] std::wstring restriction(const wellChoice& wells);

// The templates whose properties have their records in point_data or in interval_data: the keys of
// both tables begin at 1, so a value alone does not tell its record.
struct templateKeys {
    std::vector<std::uint32_t> points;
    std::vector<std::uint32_t> intervals;
};
[[nodiscard]] templateKeys templatesByGeometry(odbc_database& db);

// What joins a value to its property and its record. The joins are made in this order, whatever
// indexes and statistics there are: any other one reads all values of a container.
[[nodiscard]] std::wstring joined(const wchar_t* recordTable,
                                  const std::vector<std::uint32_t>& templates);

// Wells with hits. With `properties`, only the intervals of these. Nothing, with a line in the last
// error, where the tree has no text or the database refuses it.
[[nodiscard]] std::optional<std::vector<NORLEX_wellFilterDepths>>
hits(odbc_database& db,
     const TreeNode<filterCondition>& tree,
     const wellChoice& wells,
     const std::vector<NORLEX_propDescription>* properties = nullptr);

} // namespace filterEvaluation
