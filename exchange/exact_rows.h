// Logs side by side at all their own depths.
#pragma once

#include "exchange/log_columns.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

// The rows that hold every sample of the logs, by increasing depth. Logs of one depth column take
// a row each sample; several columns are merged, samples of one depth (to the last bit) in one
// row, and a depth that a column holds twice has two rows. `logs` is borrowed, sorted, and may be
// walked by several of these.
class exact_rows {
public:
    explicit exact_rows(const log_columns& logs);

    // Whether some row may lack a sample of some log.
    [[nodiscard]] bool isMerged() const { return m_columns.size() > 1; }

    [[nodiscard]] bool next(); // steps to the first or the next row
    [[nodiscard]] double depth() const { return m_depth; }
    // The value of a log in this row: nothing where it has no sample, NORLEX_missingValue where
    // the sample has no value.
    [[nodiscard]] std::optional<double> valueOf(std::size_t log) const;

private:
    struct column {
        std::span<const double> depths;
        std::size_t at = 0; // first sample not yet given out
        bool inRow = false; // sample at - 1 stands in this row
    };

    const log_columns* m_logs;
    std::vector<column> m_columns;
    std::vector<std::size_t> m_columnOf; // by log
    double m_depth = 0.0;
};

// Depths of the first and the last row, and the step between rows where it is the same for all of
// them to a millionth, else 0. Nothing without a row.
struct row_range {
    double top = 0.0;
    double bottom = 0.0;
    double step = 0.0;
};
[[nodiscard]] std::optional<row_range> rangeOf(exact_rows rows);

// A number that no sample is mistaken for: `preferred` where it serves, else -999.25 or the first
// of its like. Nothing, with the last error set, where every one of them is taken.
[[nodiscard]] std::optional<double> freeNullValue(const log_columns& logs,
                                                  std::optional<double> preferred);
