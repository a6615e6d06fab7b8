// Directional survey of one well and the trajectory computed from it.
//
// Units: depths and offsets in the well's depth unit; angles in degrees, azimuth clockwise from
// north. Measured depth grows down the hole; absolute depth is altitude minus vertical depth, so
// it falls. Method: tangential, upper station's angles (docs/adr/0004).
#pragma once

#include "NORLEX_export.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

class odbc_database;
class stationSearch;

// One survey station. Only depth, angle and azimuth are stored; the rest is zero until computed.
struct inclData {
    double depth = 0.0;    // measured depth
    double absDepth = 0.0; // altitude minus vertical depth
    double angle = 0.0;    // inclination from the vertical, degrees
    double azimuth = 0.0;  // degrees clockwise from north
    double cosAngle = 0.0;
    double sinAzimuth = 0.0;
    double cosAzimuth = 0.0;
    double xShift = 0.0; // east of the well head
    double yShift = 0.0; // north of the well head
};

// Where a hole begins.
struct inclHead {
    double altitude = 0.0;
    double x = 0.0; // east
    double y = 0.0; // north
};

class NORLEX_API NORLEX_inclinometry {
public:
    // Reads and computes the survey at once. `db` is not owned and must outlive the object.
    NORLEX_inclinometry(odbc_database* db, std::uint32_t wellId);
    // Of what was read before, by many wells at a time: the head, and depth, angle and azimuth of
    // the stations in order of depth. The database is not looked at before the next update().
    NORLEX_inclinometry(odbc_database* db,
                        std::uint32_t wellId,
                        const inclHead& head,
                        const std::vector<inclData>& stations);
    NORLEX_inclinometry(const NORLEX_inclinometry&) = default;
    NORLEX_inclinometry(NORLEX_inclinometry&&) = default;
    NORLEX_inclinometry& operator=(const NORLEX_inclinometry&) = default;
    NORLEX_inclinometry& operator=(NORLEX_inclinometry&&) = default;
    virtual ~NORLEX_inclinometry() = default;

    void update();       // reads altitude, head and stations again, and computes
    void loadInclData(); // the same

    // Change the table only; memory follows at the next update().
    [[nodiscard]] bool clear();
    // Stores the depth rounded to 0.01 and the angles to 0.0001 degree. A number that is not
    // finite is refused.
    [[nodiscard]] bool addPoint(double depth, double angle, double azimuth);

    // Absolute depth at a measured depth. A negative depth answers the altitude; below the last
    // station its inclination is extended without limit.
    [[nodiscard]] double getAbs(double depth);

    // Measured depth at an absolute depth. Unbounded through a horizontal (90 degree) station;
    // unlike getAbs, negative arguments are not special.
    [[nodiscard]] double getReal(double absDepth);

    // Offset of the hole from the well head at an absolute depth. Without any station, the head's
    // own coordinates. At the mark of an absent depth, 2000000.0, x and y are left as they were.
    void getCoordAbs(double absDepth, double& x, double& y);

    [[nodiscard]] double getAltitude() const;
    void setAltitude(double altitude); // recomputes in memory; nothing is written

    // Station i, counting the synthetic surface station where it was kept; 0.0 past the end.
    [[nodiscard]] std::size_t getDataCount() const;
    [[nodiscard]] double getDepthData(std::size_t index) const;
    [[nodiscard]] double getAbsDepthData(std::size_t index) const;
    [[nodiscard]] double getAngleData(std::size_t index) const;
    [[nodiscard]] double getAzimuthData(std::size_t index) const;
    [[nodiscard]] double getXShiftData(std::size_t index) const;
    [[nodiscard]] double getYShiftData(std::size_t index) const;
    // Elongation: measured minus vertical depth.
    [[nodiscard]] double getUdlData(std::size_t index) const;

    // Largest offsets seen since construction in each direction; reloads only widen them. 0.0
    // while exactly one station is held.
    [[nodiscard]] double getWMaxShift() const;
    [[nodiscard]] double getEMaxShift() const;
    [[nodiscard]] double getNMaxShift() const;
    [[nodiscard]] double getSMaxShift() const;

    [[nodiscard]] bool isInclData() const; // more than one station

    // The stations equal those in memory, the synthetic one included: depth within 0.01, angles
    // within 0.00001 degree.
    [[nodiscard]] bool checIsDataLoaded(const std::vector<inclData>& stations) const;
    [[nodiscard]] static bool isEqual(NORLEX_inclinometry* a, NORLEX_inclinometry* b);

    // At most one station, or depths that strictly grow while absolute depths strictly fall.
    [[nodiscard]] bool isValid() const;

private:
    void readAltitude();
    void readHead();
    void readStations();
    void setStations(const std::vector<inclData>& stored);
    void compute();
    void widenExtremes(const inclData& station);
    void indexStations();
    [[nodiscard]] std::size_t findActiveIndexReal(double depth) const;
    [[nodiscard]] std::size_t findActiveIndexAbs(double absDepth) const;

    odbc_database* m_db = nullptr;
    std::uint32_t m_wellId = 0;
    double m_altitude = 0.0;
    double m_headX = 0.0;
    double m_headY = 0.0;
    std::vector<inclData> m_stations;
    // Never changed once made, so copies share them.
    std::shared_ptr<const stationSearch> m_byDepth;
    std::shared_ptr<const stationSearch> m_byAbsDepth;
    std::size_t m_activeIndex = 0; // of the last look-up, where the next one starts
    double m_west = std::numeric_limits<double>::max();
    double m_east = std::numeric_limits<double>::lowest();
    double m_north = std::numeric_limits<double>::lowest();
    double m_south = std::numeric_limits<double>::max();
};
