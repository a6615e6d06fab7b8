#include "NORLEX_surveyReport.h"

#include "NORLEX_logSample.h"
#include "trajectory/arc_section.h"

#include <numbers>

namespace {

// Metres: one crossing seen from two sections, or touched where an arc is level.
constexpr double sameDepth = 1e-4;

// Degrees per `length` metres.
double severity(double dogLeg, double sectionLength, double length) {
    return sectionLength > 0.0 ? dogLeg / sectionLength * length : 0.0;
}

} // namespace

NORLEX_surveyReport::NORLEX_surveyReport(const std::vector<inclData>& stations, double altitude)
    : m_altitude(altitude) {
    compute(stations);
}

NORLEX_surveyReport::NORLEX_surveyReport(NORLEX_inclinometry& incl)
    : m_altitude(incl.getAltitude()) {
    std::vector<inclData> stations(incl.getDataCount());
    for (std::size_t i = 0; i < stations.size(); ++i) {
        stations[i].depth = incl.getDepthData(i);
        stations[i].angle = incl.getAngleData(i);
        stations[i].azimuth = incl.getAzimuthData(i);
    }
    compute(stations);
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        auto& row = m_rows[i];
        row.absDepthDifference = incl.getAbsDepthData(i) - row.absDepth;
        row.northDifference = incl.getYShiftData(i) - row.north;
        row.eastDifference = incl.getXShiftData(i) - row.east;
    }
}

void NORLEX_surveyReport::compute(const std::vector<inclData>& stations) {
    NORLEX_surveyReportRow above;
    for (const auto& station : stations) {
        const auto lower = directionOf(station.angle, station.azimuth);
        const auto upper = directionOf(above.angle, above.azimuth); // vertical above the first
        const double length = station.depth - above.depth;
        const arcSection section(upper, lower, length);
        const auto offset = section.offset();
        NORLEX_surveyReportRow row;
        row.depth = station.depth;
        row.angle = station.angle;
        row.azimuth = station.azimuth;
        row.north = above.north + offset[0];
        row.east = above.east + offset[1];
        row.vertical = above.vertical + offset[2];
        row.absDepth = m_altitude - row.vertical;
        row.dogLeg = section.turn() * 180.0 / std::numbers::pi;
        row.dogLeg30m = severity(row.dogLeg, length, 30.0);
        row.dogLeg100ft = severity(row.dogLeg, length, 30.48);
        m_rows.push_back(row);
        above = row;
    }
}

std::vector<double> NORLEX_surveyReport::getCrossings(double absDepth) const {
    std::vector<double> out;
    NORLEX_surveyReportRow above;
    above.absDepth = m_altitude;
    for (const auto& row : m_rows) {
        const auto lower = directionOf(row.angle, row.azimuth);
        const double length = row.depth - above.depth;
        const arcSection section(directionOf(above.angle, above.azimuth), lower, length);
        if (length > 0.0) // a station at the head begins no section
            for (const double along : section.depthsAt(above.absDepth - absDepth))
                if (out.empty() || above.depth + along > out.back() + sameDepth)
                    out.push_back(above.depth + along);
        above = row;
    }
    return out;
}
