// What a chart object holds.
#pragma once

#include "NORLEX_strategraphy.h"
#include "strat/chart.h"

#include <functional>
#include <string>
#include <vector>

struct strategraphy::statoTable::content {
    bool isLoaded = false;
    std::vector<raw_data> rows;
    chart units;

    // Hands over the units of an expression, one call for each unit or range between two "+", and
    // what is not in the chart.
    using runVisitor = std::function<void(const std::vector<chart::unit>&)>;
    using unknownVisitor = std::function<void(const std::wstring&)>;
    void visitRuns(const std::wstring& text,
                   const runVisitor& visit,
                   const unknownVisitor& visitUnknown) const;

    // Adds those of the related units whose level, beside the unit's own, is wanted.
    void addRelated(const element& unit,
                    bool (*isWanted)(std::size_t own, std::size_t level),
                    std::vector<element>& out) const;
};
