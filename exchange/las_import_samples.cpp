#include "exchange/las_import_samples.h"

#include "NORLEX_inclinometry.h"
#include "NORLEX_logSample.h"
#include "exchange/depth_order.h"
#include "exchange/null_value.h"
#include "wells/sample_file.h"

#include <cmath>
#include <utility>

namespace lasImportSamples {

namespace {

// Takes the places without a depth out of `depths`, and answers the places of those that stay.
std::vector<std::uint32_t> keepFinite(std::vector<double>& depths, depth_column& column) {
    std::vector<std::uint32_t> kept;
    for (std::uint32_t row = 0; row < depths.size(); ++row) {
        if (std::isfinite(depths[row]))
            kept.push_back(row);
        else if (column.skipped++ == 0)
            column.firstSkipped = row;
    }
    if (column.skipped == 0)
        return {};
    for (std::size_t i = 0; i < kept.size(); ++i)
        depths[i] = depths[kept[i]];
    depths.resize(kept.size());
    return kept;
}

} // namespace

depth_column sorted(std::span<const Tts_vtx_d2> points, double metres) {
    depth_column column;
    column.depths.reserve(points.size());
    for (const auto& point : points)
        column.depths.push_back(point.y * metres);
    column.rows = keepFinite(column.depths, column);
    if (depthOrder::isIncreasing(column.depths))
        return column;
    auto order = depthOrder::sorted(column.depths);
    const std::vector<double> unsorted = std::exchange(column.depths, {});
    for (const std::uint32_t from : order)
        column.depths.push_back(unsorted[from]);
    if (!column.rows.empty())
        for (std::uint32_t& from : order)
            from = column.rows[from];
    column.rows = std::move(order);
    return column;
}

void addAbsolute(depth_column& column, NORLEX_inclinometry& survey) {
    column.depthsAbs.clear();
    column.depthsAbs.reserve(column.depths.size());
    for (const double depth : column.depths)
        column.depthsAbs.push_back(survey.getAbs(depth));
}

bool sample_writer::write(std::FILE* file,
                          const NORLEX_lasCurve& curve,
                          exactNotes::row_ranges missing) const {
    const auto points = curve.getPoints();
    const double null = curve.getNodata();
    const auto stored = [null](double value) {
        return nullValue::is(value, null) ? NORLEX_missingValue : value;
    };
    std::vector<double> values(m_column.depths.size());
    if (m_column.rows.empty())
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = stored(points[i].x);
    else
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = stored(points[m_column.rows[i]].x);
    if (m_nullsAreNoSamples)
        return writeOwn(file, std::move(values), std::move(missing));
    return sampleFile::write(file, m_column.depths, m_column.depthsAbs, values);
}

// The notes count rows as the file has them. They are written with depths that never fall, so the
// order of the samples is the rows' own; in a file that was sorted since, they say nothing.
bool sample_writer::writeOwn(std::FILE* file,
                             std::vector<double> values,
                             exactNotes::row_ranges missing) const {
    std::vector<double> depths;
    std::vector<double> depthsAbs;
    std::size_t count = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double value = values[i];
        if (value == NORLEX_missingValue && !missing.contains(static_cast<std::uint32_t>(i)))
            continue;
        depths.push_back(m_column.depths[i]);
        depthsAbs.push_back(m_column.depthsAbs[i]);
        values[count++] = value;
    }
    values.resize(count);
    return sampleFile::write(file, depths, depthsAbs, values);
}

} // namespace lasImportSamples
