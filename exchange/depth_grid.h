// Values of logs on a common depth grid.
#pragma once

#include "exchange/log_columns.h"

#include <cstddef>
#include <optional>

// Top, bottom and step of the rows that several logs are written on.
struct depth_grid {
    double top = 0.0;
    double bottom = 0.0;
    double step = 0.0;

    // Top: the smallest depth of a first sample; bottom: the largest of a last one; logs without
    // samples take no part. Step: between the first two samples of the first log, which it takes
    // its sign from only where the bottom is not below the top. Nothing, with the last error set,
    // when there is no such step or range.
    [[nodiscard]] static std::optional<depth_grid> of(const log_columns& logs);

    // All three to two decimals.
    [[nodiscard]] depth_grid rounded() const;

    // Whether stepping through the rounded grid comes to an end in a number of rows that makes
    // sense; the last error is set where it does not.
    [[nodiscard]] bool isWalkable() const;
};

// Finds the values of one log at depths that only grow. `log` is borrowed.
class grid_cursor {
public:
    explicit grid_cursor(const log_column& log) : m_log(&log) {}

    // The sample within 0.0001 of the depth, or the line between its two neighbours.
    // NORLEX_missingValue above the first and below the last sample, and beside a missing one.
    [[nodiscard]] double valueAt(double depth);

private:
    const log_column* m_log;
    std::size_t m_at = 0;
};
