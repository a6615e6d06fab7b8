#include "exchange/log_columns.h"

#include "NORLEX_wellProperty.h"
#include "exchange/depth_order.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "store/well_path.h"

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
    column_reader(odbc_database& db, log_order order) : m_db(db), m_order(order) {}

    [[nodiscard]] bool read(NORLEX_wellProperty* log, log_columns& columns) {
        if (log == nullptr)
            return refuse(L"a log to write is missing from the list (null pointer)");
        if (log->getType() != NORLEX_dataTypeLog)
            return refuse(L"'" + log->getName() + L"' is no log and has no samples to write");
        m_samples.clear();
        if (hasSamples(*log) && !log->getSamples(m_samples))
            return false;
        std::vector<double> depths;
        std::vector<double> values;
        split(depths, values);
        if (m_order == log_order::increasing && !sort(log->getName(), depths, values))
            return false;
        columns.emplace_back(shared(std::move(depths)), std::move(values));
        return true;
    }

private:
    [[nodiscard]] bool hasSamples(NORLEX_wellProperty& log) const {
        return log.getRecordCount() > 0
               || files::isFile(samplePathOf(NORLEX_getWellPath(&m_db, log.getWellID()),
                                             {log.getName(), log.getGroup()}));
    }

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

    odbc_database& m_db;
    log_order m_order;
    std::vector<NORLEX_logSample> m_samples;
    std::vector<depthList> m_known;
};

} // namespace

bool readColumns(odbc_database& db,
                 const std::vector<NORLEX_wellProperty*>& logs,
                 log_order order,
                 log_columns& columns) {
    columns.clear();
    columns.reserve(logs.size());
    column_reader reader(db, order);
    for (NORLEX_wellProperty* const log : logs)
        if (!reader.read(log, columns))
            return false;
    return true;
}
