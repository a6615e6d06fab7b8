#include "exchange/log_columns.h"

#include "exchange/depth_order.h"
#include "exchange/exported_logs.h"
#include "platform/last_error.h"

#include <cmath>
#include <cstring>
#include <utility>

namespace {

using depthList = std::shared_ptr<const std::vector<double>>;

// To the last bit: 0.0 and -0.0 differ.
bool isSame(const std::vector<double>& a, const std::vector<double>& b) {
    return a.size() == b.size()
           && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0);
}

class column_reader {
public:
    explicit column_reader(log_order order) : m_order(order) {}

    [[nodiscard]] bool read(const exportedLogs::source& log, log_columns& columns) {
        if (!log.read(m_samples))
            return false;
        std::vector<double> depths;
        std::vector<double> values;
        split(depths, values);
        if (m_order == log_order::increasing && !sort(log.name, depths, values))
            return false;
        columns.emplace_back(shared(std::move(depths)), std::move(values));
        return true;
    }

private:
    void split(std::vector<double>& depths, std::vector<double>& values) const {
        depths.reserve(m_samples.size());
        values.reserve(m_samples.size());
        for (const auto& sample : m_samples) {
            depths.push_back(sample.depth);
            values.push_back(std::isfinite(sample.value) ? sample.value : NORLEX_missingValue);
        }
    }

    [[nodiscard]] static bool
    sort(const std::wstring& name, std::vector<double>& depths, std::vector<double>& values) {
        for (const double depth : depths)
            if (!std::isfinite(depth))
                return refuse(L"log '" + name + L"' has a sample whose depth is not a number");
        if (depthOrder::isIncreasing(depths))
            return true;
        const std::vector<double> oldDepths = depths;
        const std::vector<double> oldValues = values;
        std::size_t to = 0;
        for (const std::uint32_t from : depthOrder::sorted(oldDepths)) {
            depths[to] = oldDepths[from];
            values[to++] = oldValues[from];
        }
        return true;
    }

    depthList shared(std::vector<double> depths) {
        for (const auto& known : m_known)
            if (isSame(*known, depths))
                return known;
        m_known.push_back(std::make_shared<const std::vector<double>>(std::move(depths)));
        return m_known.back();
    }

    log_order m_order;
    std::vector<NORLEX_logSample> m_samples;
    std::vector<depthList> m_known;
};

} // namespace

bool readColumns(const std::vector<exportedLogs::source>& logs,
                 log_order order,
                 log_columns& columns) {
    columns.clear();
    columns.reserve(logs.size());
    column_reader reader(order);
    for (const auto& log : logs)
        if (!reader.read(log, columns))
            return false;
    return true;
}
