// The samples of logs as columns, for writing them side by side.
#pragma once

#include "NORLEX_logSample.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace exportedLogs {
struct source;
}

// Measured depths and values of one log, in the order of its file. A value that is not finite is
// NORLEX_missingValue. Logs of equal depths share one column of them.
class log_column {
public:
    log_column() : m_depths(std::make_shared<const std::vector<double>>()) {}
    log_column(std::shared_ptr<const std::vector<double>> depths, std::vector<double> values)
        : m_depths(std::move(depths)), m_values(std::move(values)) {}

    [[nodiscard]] std::span<const double> depths() const { return *m_depths; }
    [[nodiscard]] std::span<const double> values() const { return m_values; }
    [[nodiscard]] bool sharesDepths(const log_column& other) const {
        return m_depths == other.m_depths;
    }

private:
    std::shared_ptr<const std::vector<double>> m_depths;
    std::vector<double> m_values;
};

using log_columns = std::vector<log_column>;

// How the samples of a log come into its column.
enum class log_order {
    stored,    // as they are
    increasing // see depth_order.h; a depth that is not finite is refused
};

// The columns of `logs`, in their order; empty ones of a log without samples. False, with the last
// error set, when the samples of one cannot be read.
[[nodiscard]] bool
readColumns(const std::vector<exportedLogs::source>& logs, log_order order, log_columns& columns);
