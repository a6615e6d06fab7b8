// Computes the wells of a chain of queries.
#pragma once

#include "NORLEX_query.h"
#include "selection/well_set.h"

#include <optional>
#include <vector>

class odbc_database;

// Reads the wells of the container at most once. `geometry` are the wells picked on a map, with
// their keys; both are borrowed.
class queryEvaluation {
public:
    queryEvaluation(odbc_database& db, const wellSet::list& geometry)
        : m_db(db), m_geometry(geometry) {}

    // By work object, field and name.
    [[nodiscard]] const wellSet::list& allWells();

    [[nodiscard]] wellSet::list getCondition(const NORLEX_query& query);
    // Each query is joined to the wells of all before it: no precedence. No queries, no wells.
    [[nodiscard]] wellSet::list chain(const std::vector<NORLEX_query>& queries);

private:
    [[nodiscard]] wellSet::list found(const NORLEX_query& query);

    odbc_database& m_db;
    const wellSet::list& m_geometry;
    std::optional<wellSet::list> m_allWells;
};
