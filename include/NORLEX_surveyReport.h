// A directional survey computed by minimum curvature, for reading beside the stored trajectory.
//
// Depths in metres, angles in degrees, azimuth clockwise from north; north and east are offsets
// from the well head, vertical depth grows downwards. Each section is a circular arc tangent to
// the directions of both its stations: Taylor and Mason 1972; Sawaryn and Thorogood 2005
// (SPE 84246). Nothing is stored.
#pragma once

#include "NORLEX_export.h"
#include "NORLEX_inclinometry.h"

#include <vector>

struct NORLEX_surveyReportRow {
    double depth = 0.0; // measured
    double angle = 0.0;
    double azimuth = 0.0;
    double vertical = 0.0; // true vertical depth
    double absDepth = 0.0; // altitude minus vertical depth
    double north = 0.0;
    double east = 0.0;
    double dogLeg = 0.0;    // angle turned since the station above
    double dogLeg30m = 0.0; // degrees per 30 m, of the section above
    double dogLeg100ft = 0.0;
    // The stored trajectory at this measured depth, minus the values above.
    double absDepthDifference = 0.0;
    double northDifference = 0.0;
    double eastDifference = 0.0;
};

class NORLEX_API NORLEX_surveyReport {
public:
    // Of a survey as it is held, its synthetic surface station included.
    explicit NORLEX_surveyReport(NORLEX_inclinometry& incl);
    // Of stations in increasing measured depth, without a stored trajectory to differ from. The
    // hole is vertical at the head unless a station is there.
    NORLEX_surveyReport(const std::vector<inclData>& stations, double altitude);

    [[nodiscard]] const std::vector<NORLEX_surveyReportRow>& getRows() const { return m_rows; }

    // Every measured depth at which the hole passes an absolute depth, in increasing order; of a
    // stretch that stays on it, both ends. Only between the head and the last station.
    [[nodiscard]] std::vector<double> getCrossings(double absDepth) const;

private:
    void compute(const std::vector<inclData>& stations);

    double m_altitude = 0.0;
    std::vector<NORLEX_surveyReportRow> m_rows;
};
